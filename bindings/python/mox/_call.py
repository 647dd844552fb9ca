"""Calls through IDispatch::Invoke.

A call fills a frame, memory that is laid out once and then used again: the arguments as variants, what Invoke wants to know of
them, the place of the result. Frames wait in a list, so a call that is made inside another one, or on another thread, has a frame
of its own.
"""
import ctypes
from ctypes import byref, c_char, c_void_p

from . import _abi
from ._abi import (
    DISPATCH_PUT,
    DISPATCH_PUTREF,
    DISPPARAMS,
    EXCEPINFO,
    IID_NULL,
    VARIANT,
    VARIANT_SIZE,
    VT_ARRAY,
    VT_BOOL,
    VT_BSTR,
    VT_BYREF,
    VT_DISPATCH,
    VT_EMPTY,
    VT_ERROR,
    VT_I4,
    VT_R8,
    VT_RECORD,
    VT_VARIANT,
)
from ._errors import Error, error_of
from ._platform import platform, take_text
from ._typelib import ANY
from ._values import ByRef
from ._variant import clear, convert, makers, read_variant, write

#: The most arguments that a member may have.
_MOST = 32

# Where things lie in a frame, in units of eight bytes; a variant has three.
_HOLDERS = 3 * _MOST
_RESULT = 2 * _HOLDERS
_NO_ARGUMENTS = _RESULT + 3
_ARGUMENTS = _NO_ARGUMENTS + 3
_PUT = _ARGUMENTS + 3
_PUT_ID = _PUT + 3
_BAD = _PUT_ID + 1
_EXCEPTION = _BAD + 1
_SIZE = _EXCEPTION + ctypes.sizeof(EXCEPINFO) // 8

# The same for single numbers of four bytes.
_RESULT_LONG = 2 * _RESULT + 2
_COUNT = 2 * _ARGUMENTS + DISPPARAMS.cArgs.offset // 4
_PUT_COUNT = 2 * _PUT + DISPPARAMS.cArgs.offset // 4

_iid_null = byref(IID_NULL)

_OWNS_NOTHING = {VT_EMPTY, VT_I4, VT_R8, VT_BOOL, VT_ERROR}


class Frame:
    """Memory for one call. Between calls its variants are empty and no error is noted in it."""

    __slots__ = (
        "longs",
        "quads",
        "doubles",
        "variants",
        "holders",
        "result",
        "no_arguments",
        "arguments",
        "put",
        "results",
        "exceptions",
        "exception",
        "bad",
    )

    def __init__(self):
        memory = bytearray(8 * _SIZE)
        view = memoryview(memory)
        self.longs, self.quads, self.doubles = view.cast("i"), view.cast("q"), view.cast("d")
        base = (c_char * len(memory)).from_buffer(memory)
        self.variants = [VARIANT.from_buffer(memory, VARIANT_SIZE * i) for i in range(_MOST)]
        self.holders = [VARIANT.from_buffer(memory, VARIANT_SIZE * i) for i in range(_MOST, 2 * _MOST)]
        self.result = VARIANT.from_buffer(memory, 8 * _RESULT)
        self.exception = EXCEPINFO.from_buffer(memory, 8 * _EXCEPTION)
        start = ctypes.addressof(base)
        for parameters in (_ARGUMENTS, _PUT):
            self.quads[parameters] = start
        self.quads[_PUT + 1] = start + 8 * _PUT_ID
        self.longs[_PUT_COUNT + 1] = 1
        self.longs[2 * _PUT_ID] = _abi.DISPID_PROPERTYPUT
        self.longs[2 * _BAD] = -1
        # What Invoke is called with. These keep the memory.
        self.no_arguments, self.arguments, self.put = (byref(base, 8 * place) for place in (_NO_ARGUMENTS, _ARGUMENTS, _PUT))
        self.results, self.exceptions, self.bad = (byref(base, 8 * place) for place in (_RESULT, _EXCEPTION, _BAD))


_frames = [Frame()]
_pop, _push = _frames.pop, _frames.append


class Missing:
    """An argument that is left out before one that is given."""


_MISSING = Missing()


def arrange(function, arguments, named):
    """The arguments by position, from those that are given by position and by name."""
    places = function.places
    result = list(arguments)
    for name, value in named.items():
        place = places.get(name)
        if place is None:
            place = places.get(name.lower())
        if place is None or place < len(result) and result[place] is not _MISSING:
            what = f"{function.name} has no argument {name}" if place is None else f"{function.name} got {name} twice"
            raise error_of(_abi.DISP_E_PARAMNOTFOUND, f"Named argument not found: {what}", argument=name)
        if place >= len(result):
            result.extend([_MISSING] * (place + 1 - len(result)))
        result[place] = value
    return result


def getter(function):
    """Reads a property without arguments."""
    id, result_type = function.id, function.result
    long_result = result_type.vt == VT_I4 and result_type.entry is None

    def get(self):
        try:
            frame = _pop()
        except IndexError:
            frame = Frame()
        status = self._invoke(self._this, id, _iid_null, 0, 2, frame.no_arguments, frame.results, frame.exceptions, frame.bad)
        if status < 0:
            return _settle(function, frame, 0, status, (), _PLAIN)
        if long_result and frame.quads[_RESULT] == VT_I4:
            value = frame.longs[_RESULT_LONG]
            frame.quads[_RESULT] = VT_EMPTY
        else:
            value = _take(frame, result_type)
        _push(frame)
        return value

    return get


def caller(function, exists=True):
    """Calls a method, or reads a property with arguments. One that does not exist is called all the same, for the object's own
    answer."""
    id, flags, result_type = function.id, function.kind, function.result
    long_result = result_type.vt == VT_I4 and result_type.entry is None
    # A property without arguments that gives an object takes those of the object's default member.
    takes_any = not exists or not function.arguments and result_type.is_object
    limit = _MOST if takes_any else len(function.arguments)

    def call(self, *arguments, **named):
        if named:
            arguments = arrange(function, arguments, named)
        count = len(arguments)
        if count > limit:
            raise _too_many(function, count)
        try:
            frame = _pop()
        except IndexError:
            frame = Frame()
        quads, longs = frame.quads, frame.longs
        owned = _fill(function, frame, quads, longs, arguments, count)
        longs[_COUNT] = count
        status = self._invoke(self._this, id, _iid_null, 0, flags, frame.arguments, frame.results, frame.exceptions, frame.bad)
        if status < 0 or owned == _REFERENCES:
            return _settle(function, frame, count, status, arguments, owned)
        if long_result and quads[_RESULT] == VT_I4:
            value = longs[_RESULT_LONG]
            quads[_RESULT] = VT_EMPTY
        else:
            value = _take(frame, result_type)
        if owned:
            _empty(frame, count)
        _push(frame)
        return value

    return call


def putter(put, putref):
    """Sets a property: arguments first, then the value. An object goes by reference where the property has a Set."""

    def set(self, *arguments, **named):
        value = arguments[-1]
        function = putref if not put or putref and (value is None or isinstance(value, makers.object_class)) else put
        if named:
            arguments = (*arrange(function, arguments[:-1], named), value)
        count = len(arguments)
        if count > (len(function.arguments) or _MOST):
            raise _too_many(function, count)
        try:
            frame = _pop()
        except IndexError:
            frame = Frame()
        owned = _fill(function, frame, frame.quads, frame.longs, arguments, count)
        frame.longs[_PUT_COUNT] = count
        status = self._invoke(
            self._this, function.id, _iid_null, 0, function.kind, frame.put, frame.results, frame.exceptions, frame.bad
        )
        if status < 0 or owned == _REFERENCES:
            _settle(function, frame, count, status, arguments, owned)
            return
        if owned:
            _empty(frame, count)
        _push(frame)

    return set


#: What _fill says of the arguments: nothing to free, something to free, something to free and something to read back.
_PLAIN, _OWNED, _REFERENCES = range(3)


def _fill(function, frame, quads, longs, arguments, count):
    """Writes the arguments, the last one first."""
    place = 3 * count
    result = _PLAIN
    for value in arguments:
        place -= 3
        kind = value.__class__
        if kind is int and -0x80000000 <= value <= 0x7FFFFFFF:
            quads[place] = VT_I4
            longs[2 * place + 2] = value
        elif kind is float:
            quads[place] = VT_R8
            frame.doubles[place + 1] = value
        elif kind is str:
            data = value.encode("utf-16-le", "surrogatepass")
            quads[place + 1] = platform.SysAllocStringByteLen(data, len(data))
            quads[place] = VT_BSTR
            result = result or _OWNED
        elif kind is bool:
            quads[place] = VT_BOOL
            quads[place + 1] = -value
        elif kind is Missing:
            quads[place] = VT_ERROR
            quads[place + 1] = _abi.DISP_E_PARAMNOTFOUND
        else:
            _place(function, frame, count, place // 3, value)
            result = _REFERENCES if kind is ByRef else result or _OWNED
    return result


def _too_many(function, count):
    return error_of(
        _abi.DISP_E_BADPARAMCOUNT,
        f"Wrong number of arguments or invalid property assignment: {function.name} takes at most "
        f"{len(function.arguments)}, not {count}",
    )


def _type_at(function, count, slot):
    """The declared type of the argument in a slot, counted from the last argument; the value of a property is its last one in any
    case."""
    declared = function.arguments
    if slot == 0 and function.kind in (DISPATCH_PUT, DISPATCH_PUTREF):
        return declared[-1] if declared else None
    index = count - 1 - slot
    return declared[index] if index < len(declared) else None


def _place(function, frame, count, slot, value):
    """Writes the argument in a slot. On failure the frame is emptied, and the error names the argument."""
    argument = _type_at(function, count, slot)
    kind = ANY if argument is None else argument.type
    frame.quads[3 * slot] = VT_EMPTY  # numbers of an earlier call may still stand there
    try:
        if isinstance(value, ByRef):
            _write_by_reference(frame.variants[slot], frame.holders[slot], value.value, kind)
        else:
            write(frame.variants[slot], value, kind)
    except BaseException as error:
        _empty(frame, count)
        _push(frame)
        if isinstance(error, Error) and error.argument is None and argument is not None:
            error.argument = argument.name
        raise


def _write_by_reference(variant, holder, value, type):
    """The value goes into the holder, converted to the declared type, and the argument leads to it."""
    if value is None and not type.is_object:
        holder.vt = VT_EMPTY  # an output: the callee's type begins with its own zero
    elif type.array and isinstance(value, (list, tuple, bytes, bytearray)) and not value:
        holder.vt = VT_EMPTY  # an array without elements is one to come
    else:
        write(holder, value, type)
    place = ctypes.addressof(holder)
    if holder.vt & ~VT_BYREF == VT_RECORD and type.vt != VT_VARIANT:
        variant.record.pvRecord, variant.record.pRecInfo = holder.record.pvRecord, holder.record.pRecInfo
        holder.vt = VT_EMPTY
        variant.vt = VT_BYREF | VT_RECORD
    elif type.vt == VT_VARIANT and not type.array:
        variant.ptr = place
        variant.vt = VT_BYREF | VT_VARIANT
    else:
        wanted = VT_ARRAY | type.vt if type.array else type.vt
        if type.array and holder.vt == VT_EMPTY:
            holder.ptr = None
            holder.vt = wanted
        convert(holder, wanted)
        variant.ptr = place + _abi.VALUE_OFFSET
        variant.vt = VT_BYREF | wanted


def _settle(function, frame, count, status, arguments, owned):
    """Ends a call that failed or had arguments to read back."""
    try:
        if owned == _REFERENCES:
            _read_back(function, frame, count, arguments)
        if status < 0:
            raise _failure(function, frame, count, status)
        return _take(frame, function.result)
    finally:
        _empty(frame, count)
        _push(frame)


def _read_back(function, frame, count, arguments):
    for index, argument in enumerate(arguments):
        if isinstance(argument, ByRef):
            slot = count - 1 - index
            holder = frame.holders[slot]
            if frame.variants[slot].vt != VT_BYREF | VT_RECORD:
                declared = _type_at(function, count, slot)
                argument.value = read_variant(holder, ANY if declared is None else declared.type)


def _empty(frame, count):
    """Frees what the arguments own."""
    quads = frame.quads
    for slot in range(count):
        vt = quads[3 * slot] & 0xFFFF
        if vt == VT_BSTR:
            platform.SysFreeString(quads[3 * slot + 1])
            quads[3 * slot] = VT_EMPTY
        elif vt not in _OWNS_NOTHING:
            clear(frame.variants[slot])
        if vt & VT_BYREF:
            clear(frame.holders[slot])


def _take(frame, type):
    """The result, which is taken out of the frame."""
    quads = frame.quads
    vt = quads[_RESULT] & 0xFFFF
    if vt == VT_EMPTY:
        return None
    if vt == VT_BSTR:
        quads[_RESULT] = VT_EMPTY
        return take_text(quads[_RESULT + 1])
    if vt == VT_BOOL:
        quads[_RESULT] = VT_EMPTY
        return frame.result.iVal != 0
    if vt == VT_DISPATCH:
        quads[_RESULT] = VT_EMPTY
        return makers.taken_object(quads[_RESULT + 1], type)
    if vt == VT_RECORD:
        quads[_RESULT] = VT_EMPTY
        return makers.taken_record(quads[_RESULT + 1], quads[_RESULT + 2], type)
    try:
        return read_variant(frame.result, type)
    finally:
        clear(frame.result)


def _failure(function, frame, count, status):
    """The exception for a failed call."""
    status &= 0xFFFFFFFF
    bad = frame.longs[2 * _BAD]
    frame.longs[2 * _BAD] = -1
    if status == _abi.DISP_E_EXCEPTION:
        return _exception(frame.exception)
    argument = None
    if status == _abi.DISP_E_PARAMNOTOPTIONAL:
        given = {count - 1 - slot for slot in range(count) if frame.variants[slot].vt != VT_ERROR}
        argument = next(
            (declared for index, declared in enumerate(function.arguments) if not declared.optional and index not in given), None
        )
    elif 0 <= bad < count:
        argument = _type_at(function, count, bad)
    description = None
    if status in (_abi.DISP_E_MEMBERNOTFOUND, _abi.DISP_E_UNKNOWNNAME):
        description = f"Object doesn't support this property or method: {function.name}"
    return error_of(status, description, argument=argument and argument.name)


def _exception(content):
    if content.pfnDeferredFillIn:
        ctypes.CFUNCTYPE(ctypes.c_int, c_void_p)(content.pfnDeferredFillIn)(ctypes.addressof(content))
    source, description = take_text(content.bstrSource), take_text(content.bstrDescription)
    platform.SysFreeString(content.bstrHelpFile)
    status, code = content.scode, content.wCode
    ctypes.memset(ctypes.addressof(content), 0, ctypes.sizeof(content))
    return error_of(status or _abi.E_FAIL, description, source=source, code=code)
