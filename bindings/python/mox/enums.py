"""All enums of the type library, as classes of ``enum.IntEnum``.

>>> from mox.enums import MOX_SCALEUNIT
>>> MOX_SCALEUNIT.suINCH
<MOX_SCALEUNIT.suINCH: 5>

A name that is no identifier is a key of its class, ``SYS_SPECIALSOUND["!Stopp Playing"]``, and has an alias with underscores,
``SYS_SPECIALSOUND._Stopp_Playing``. ``dir(mox.enums)`` lists the classes.
"""
import enum as _enum
import functools as _functools
import re as _re

from . import _typelib
from ._variant import makers as _makers

_classes = {}


def _class_of(entry):
    """The Python class of an enum."""
    known = _classes.get(entry)
    if known is None:
        members = [(value.name, value.number) for value in entry.content]
        members += [(_re.sub(r"\W", "_", name), number) for name, number in members if not name.isidentifier()]
        known = _enum.IntEnum(entry.name, members, module="mox.enums", qualname=entry.name)
        known.__doc__ = entry.help
        known = _classes.setdefault(entry, known)
    return known


@_functools.lru_cache(None)
def _numbers_of(entry):
    """The values of an enum by number."""
    return {int(value): value for value in _class_of(entry)}


@_functools.lru_cache(None)
def _values(of_all_libraries):
    """The enums by the names of their values."""
    libraries = _typelib.libraries() if of_all_libraries else [_typelib.library()]
    return {value.name: entry for library in reversed(libraries) for entry in library.enums for value in entry.content}


def _value_named(name):
    """The value of that name in whichever enum has it, or None. Other libraries are read only for names that the server's does
    not have."""
    entry = _values(False).get(name) or _values(True).get(name)
    return None if entry is None else _class_of(entry)[name]


def __getattr__(name):
    entry = None if name.startswith("__") else _typelib.find_type(name)
    if entry is None or not entry.is_enum or entry.name != name:
        raise AttributeError(f"there is no enum {name}")
    return _class_of(entry)


def __dir__():
    return sorted(entry.name for library in _typelib.libraries() for entry in library.enums)


_makers.enum_values = _numbers_of
