"""Members in words: as a Visual Basic declaration, and as a Python signature."""
import inspect

from ._abi import (
    DISPATCH_GET,
    DISPATCH_METHOD,
    DISPATCH_PUT,
    VT_BOOL,
    VT_BSTR,
    VT_CY,
    VT_DATE,
    VT_DECIMAL,
    VT_DISPATCH,
    VT_I2,
    VT_I4,
    VT_R4,
    VT_R8,
    VT_UI1,
    VT_UNKNOWN,
    VT_VARIANT,
    VT_VOID,
)

_BASIC = {
    VT_I4: "Long",
    VT_I2: "Integer",
    VT_UI1: "Byte",
    VT_R4: "Single",
    VT_R8: "Double",
    VT_BOOL: "Boolean",
    VT_BSTR: "String",
    VT_DATE: "Date",
    VT_CY: "Currency",
    VT_DECIMAL: "Decimal",
    VT_VARIANT: "Variant",
    VT_DISPATCH: "Object",
    VT_UNKNOWN: "Unknown",
}
_PYTHON = {
    VT_I4: "int",
    VT_I2: "int",
    VT_UI1: "int",
    VT_R4: "float",
    VT_R8: "float",
    VT_BOOL: "bool",
    VT_BSTR: "str",
    VT_DATE: "Date",
    VT_CY: "Decimal",
    VT_DECIMAL: "Decimal",
    VT_VARIANT: "Any",
    VT_DISPATCH: "Object",
    VT_UNKNOWN: "Object",
    VT_VOID: "None",
}


def type_name(type):
    """``Long``, ``RECT``, ``moxFS``: the name of a type in declarations, of an array that of its elements."""
    if type.entry is None:
        return _BASIC.get(type.vt, f"variant type {type.vt}")
    owner = type.entry.library.class_of(type.entry) if type.entry.is_interface else None
    return (owner or type.entry).name


def python_name(type):
    """The same for Python: ``int``, ``list[str]``, ``moxFS``."""
    name = _PYTHON.get(type.vt, "Any") if type.entry is None else type_name(type)
    if type.array:
        return "bytes" if type.vt == VT_UI1 else f"list[{name}]"
    return name


def literal(value, type):
    """A default value as Visual Basic writes it."""
    if value is None:
        return "Nothing" if type.is_object else "Empty"
    if isinstance(value, bool):
        return str(value)
    if isinstance(value, str):
        return '"' + value.replace('"', '""') + '"'
    if type.entry is not None and type.vt == VT_I4:
        return getattr(value, "name", str(value))
    if isinstance(value, float) and type.vt == VT_R4:
        return f"{value:.7G}"
    return str(value)


def argument(declared):
    """``Optional ByRef Name As Long = 5``"""
    text = f"{declared.name}{'()' if declared.type.array else ''} As {type_name(declared.type)}"
    if declared.type.byref:
        text = "ByRef " + text
    if declared.optional:
        text = "Optional " + text
    if declared.has_default:
        text += " = " + literal(declared.default, declared.type)
    return text


def visual_basic(function, name=None):
    """``Function MinMax(LongValue As Long, Optional MinValue As Long = -2147483647) As Long``"""
    words = {
        DISPATCH_METHOD: "Sub" if function.result.vt == VT_VOID else "Function",
        DISPATCH_GET: "Property Get",
        DISPATCH_PUT: "Property Let",
    }
    text = f"{words.get(function.kind, 'Property Set')} {name or function.name}({', '.join(map(argument, function.arguments))})"
    if function.result.vt != VT_VOID:
        text += f" As {type_name(function.result)}{'()' if function.result.array else ''}"
    return text


class _Word:
    """Stands in a signature for what is shown, not evaluated."""

    def __init__(self, text):
        self._text = text

    def __repr__(self):
        return self._text


def signature(function, of_method=False):
    """The signature as help() shows it, of a method with ``self``. An optional argument before a required one is shown as
    required."""
    parameters = []
    optional = True
    for declared in reversed(function.arguments):
        optional = optional and declared.optional
        default = inspect.Parameter.empty
        if optional:
            default = _shown(declared.default) if declared.has_default else _Word("...")
        annotation = _Word(python_name(declared.type) + (" | ByRef" if declared.type.byref else ""))
        parameters.append(
            inspect.Parameter(declared.name, inspect.Parameter.POSITIONAL_OR_KEYWORD, default=default, annotation=annotation)
        )
    if of_method:
        parameters.append(inspect.Parameter("self", inspect.Parameter.POSITIONAL_OR_KEYWORD))
    return inspect.Signature(parameters[::-1], return_annotation=_Word(python_name(function.result)))


def _shown(value):
    return _Word(value.name) if hasattr(value, "name") and isinstance(value, int) else value
