"""Values between Python and VARIANT.

``write`` fills an empty variant, which then owns what it holds; ``read`` leaves what it reads where it is. Objects, records and
enums need their classes, so the modules of those put their part in ``makers`` when they are imported.
"""
import array as _array
import ctypes
import datetime
import decimal
import numbers
import operator
import struct
from ctypes import c_double, c_float, c_int, c_longlong, c_short, c_ubyte, c_uint, c_ushort, c_void_p

from . import _abi
from ._abi import (
    DECIMAL_LAYOUT,
    SAFEARRAY,
    SAFEARRAYBOUND,
    VALUE_OFFSET,
    VARIANT,
    VARIANT_SIZE,
    VT_ARRAY,
    VT_BOOL,
    VT_BSTR,
    VT_BYREF,
    VT_CY,
    VT_DATE,
    VT_DECIMAL,
    VT_DISPATCH,
    VT_EMPTY,
    VT_ERROR,
    VT_I1,
    VT_I2,
    VT_I4,
    VT_I8,
    VT_INT,
    VT_NULL,
    VT_R4,
    VT_R8,
    VT_RECORD,
    VT_UI1,
    VT_UI2,
    VT_UI4,
    VT_UI8,
    VT_UINT,
    VT_UNKNOWN,
    VT_VARIANT,
    RecordInfo,
    add_ref,
    release,
)
from ._errors import Error, check, error_of, mismatch
from ._platform import bstr_of, platform, text_of
from ._typelib import ANY, Type
from ._values import Array, ByRef, ByteArray, Date


class Makers:
    """What other modules add: objects, records and enum values from what a variant holds."""

    #: (pointer, type) -> object, with a reference of its own
    object = None
    #: (pointer, type) -> object, which takes the reference over
    taken_object = None
    #: the class of all objects
    object_class = None
    #: (memory, record info, type) -> a copy of the record
    record = None
    #: (memory, record info, type) -> the record, which takes both over
    taken_record = None
    #: entry of an enum -> {number: value}
    enum_values = None


makers = Makers()

# ---- from variants

_PLAIN = {
    VT_I2: c_short,
    VT_I4: c_int,
    VT_R4: c_float,
    VT_R8: c_double,
    VT_I1: ctypes.c_byte,
    VT_UI1: c_ubyte,
    VT_UI2: c_ushort,
    VT_UI4: c_uint,
    VT_I8: c_longlong,
    VT_UI8: ctypes.c_ulonglong,
    VT_INT: c_int,
    VT_UINT: c_uint,
    VT_DATE: c_double,
    VT_CY: c_longlong,
    VT_BOOL: c_short,
}
_MEANING = {VT_DATE: Date, VT_CY: lambda number: decimal.Decimal(number).scaleb(-4), VT_BOOL: bool}
#: Bytes of a value; those that are not listed are pointers.
SIZES = {vt: ctypes.sizeof(plain) for vt, plain in _PLAIN.items()}
SIZES.update({VT_VARIANT: VARIANT_SIZE, VT_DECIMAL: 16, VT_ERROR: 4})


def read(vt, address, type=ANY):
    """The value of variant type ``vt`` that lies at ``address``. Records, whose memory does not tell their type, are not read
    here."""
    plain = _PLAIN.get(vt)
    if plain is not None:
        number = plain.from_address(address).value
        if type.entry is not None and vt == VT_I4:
            return makers.enum_values(type.entry).get(number, number)
        return _MEANING[vt](number) if vt in _MEANING else number
    if vt == VT_BSTR:
        return text_of(c_void_p.from_address(address).value)
    if vt in (VT_DISPATCH, VT_UNKNOWN):
        return makers.object(c_void_p.from_address(address).value, type)
    if vt == VT_VARIANT:
        return read_variant(VARIANT.from_address(address), type)
    if vt == VT_DECIMAL:
        return _read_decimal(address)
    if vt == VT_ERROR:
        status = c_uint.from_address(address).value
        return None if status == _abi.DISP_E_PARAMNOTFOUND else status
    if vt in (VT_EMPTY, VT_NULL):
        return None
    raise Error(458, f"Values of variant type {vt} are not supported")


def read_variant(variant, type=ANY):
    """The value of a variant."""
    vt, address = variant.vt, ctypes.addressof(variant)
    if vt & VT_BYREF:
        if vt & ~VT_BYREF == VT_RECORD:
            return makers.record(variant.record.pvRecord, variant.record.pRecInfo, type)
        vt, address = vt & ~VT_BYREF, variant.ptr
        if address is None:
            return None
    elif vt == VT_RECORD:
        return makers.record(variant.record.pvRecord, variant.record.pRecInfo, type)
    elif vt != VT_DECIMAL:
        address += VALUE_OFFSET
    if vt & VT_ARRAY:
        return read_array(c_void_p.from_address(address).value, vt & ~VT_ARRAY, type)
    return read(vt, address, type)


def _read_decimal(address):
    scale, sign, high, low, middle = DECIMAL_LAYOUT.unpack(ctypes.string_at(address, 16))
    return decimal.Decimal((1 if sign & 0x80 else 0, tuple(map(int, str(high << 64 | middle << 32 | low))), -scale))


def read_array(pointer, vt, type=ANY):
    """The elements of an array: bytes for an array of Byte, else a list; lists of lists for more dimensions than one."""
    if not pointer:
        return b"" if vt == VT_UI1 else []
    array = SAFEARRAY.from_address(pointer)
    dimensions = array.cDims
    bounds = (SAFEARRAYBOUND * dimensions).from_address(pointer + SAFEARRAY.rgsabound.offset)
    if dimensions == 1:
        count, lower = bounds[0].cElements, bounds[0].lLbound
        if vt == VT_UI1:
            data = ctypes.string_at(array.pvData, count) if count else b""
            return ByteArray(data, lower) if lower else data
        values = _read_elements(array, vt, 0, count, type)
        return Array(values, lower) if lower else values
    # The bounds stand from the last dimension to the first; elements that differ in their first index alone lie side by side.
    counts = [bound.cElements for bound in bounds][::-1]
    flat = _read_elements(array, vt, 0, _product(counts), type)
    return _nested(flat, counts, [bound.lLbound for bound in bounds][::-1])


def _product(counts):
    result = 1
    for count in counts:
        result *= count
    return result


def _nested(flat, counts, lowers):
    count, lower = counts[0], lowers[0]
    if len(counts) == 1:
        values = flat
    else:
        values = [_nested(flat[i::count], counts[1:], lowers[1:]) for i in range(count)]
    return Array(values, lower) if lower else values


def _read_elements(array, vt, first, count, type):
    if not count:
        return []
    if vt == VT_RECORD:
        info = c_void_p()
        check(platform.SafeArrayGetRecordInfo(ctypes.addressof(array), info))
        try:
            return [makers.record(array.pvData + i * array.cbElements, info.value, type) for i in range(first, count)]
        finally:
            release(info.value)
    plain = _PLAIN.get(vt)
    if plain is not None and type.entry is None:
        numbers_ = (plain * count).from_address(array.pvData)[:]
        return list(map(_MEANING[vt], numbers_)) if vt in _MEANING else numbers_
    return [read(vt, array.pvData + i * array.cbElements, type) for i in range(first, count)]


# ---- to variants


def write(variant, value, type=ANY):
    """Puts a Python value into an empty variant, the way that a call with an argument of the declared type wants it. The callee
    does the conversion to that type, so that its errors are the ones that a client sees."""
    writer = _WRITERS.get(value.__class__)
    if writer is None:
        writer = _writer_for(value)
    writer(variant, value, type)


def _write_none(variant, value, type):
    # Nothing; a variant and an array can say themselves that they are empty. What takes neither fails in the callee.
    if type.vt != VT_VARIANT and not type.array:
        variant.vt = VT_DISPATCH
        variant.ptr = None


def _write_bool(variant, value, type):
    variant.vt = VT_BOOL
    variant.iVal = -1 if value else 0


def _write_int(variant, value, type):
    value = operator.index(value)
    if -0x80000000 <= value <= 0x7FFFFFFF:
        variant.vt = VT_I4
        variant.lVal = value
    elif -(1 << 63) <= value < 1 << 63:
        variant.vt = VT_I8
        variant.llVal = value
    else:
        _write_float(variant, value, type)


def _write_float(variant, value, type):
    try:
        variant.dblVal = float(value)
    except OverflowError:
        raise error_of(_abi.DISP_E_OVERFLOW) from None
    variant.vt = VT_R8


def _write_text(variant, value, type):
    variant.ptr = bstr_of(value)
    variant.vt = VT_BSTR


def _write_date(variant, value, type):
    variant.vt = VT_DATE
    variant.dblVal = Date(value)


def _write_decimal(variant, value, type):
    if not value.is_finite():
        raise mismatch(f"{value} is no number that a Decimal can hold")
    if type.vt == VT_CY:
        units = int((value * 10000).to_integral_value(decimal.ROUND_HALF_EVEN))
        if not -(1 << 63) <= units < 1 << 63:
            raise error_of(_abi.DISP_E_OVERFLOW)
        variant.vt = VT_CY
        variant.llVal = units
        return
    sign, digits, exponent = value.as_tuple()
    number = int("".join(map(str, digits)))
    scale = max(-exponent, 0)
    number *= 10 ** max(exponent, 0)
    with decimal.localcontext() as context:  # digits that a Decimal has no room for are rounded away
        context.prec = max(len(digits) + 1, 60)
        while scale and (scale > 28 or number >= 1 << 96):
            drop = max(scale - 28, 1)
            number = int(decimal.Decimal(number).scaleb(-drop).to_integral_value(decimal.ROUND_HALF_EVEN))
            scale -= drop
    if number >= 1 << 96:
        raise error_of(_abi.DISP_E_OVERFLOW)
    data = DECIMAL_LAYOUT.pack(scale, 0x80 if sign else 0, number >> 64, number & 0xFFFFFFFF, number >> 32 & 0xFFFFFFFF)
    ctypes.memmove(ctypes.addressof(variant), data, len(data))
    variant.vt = VT_DECIMAL


def _write_bytes(variant, value, type):
    if type.array and type.vt != VT_UI1:
        _write_list(variant, list(value), type)
        return
    variant.ptr = _new_array(VT_UI1, len(value), _lower_of(value))
    variant.vt = VT_ARRAY | VT_UI1
    ctypes.memmove(SAFEARRAY.from_address(variant.ptr).pvData, bytes(value), len(value))


def _write_list(variant, values, type):
    vt = type.vt if type.array else VT_VARIANT
    variant.ptr = new_array(values, Type(vt, True, False, type.entry if type.array else None))
    variant.vt = VT_ARRAY | vt


def _refuse_byref(variant, value, type):
    raise mismatch("a ByRef stands for an argument of its own only")


_WRITERS = {
    type(None): _write_none,
    bool: _write_bool,
    int: _write_int,
    float: _write_float,
    str: _write_text,
    bytes: _write_bytes,
    bytearray: _write_bytes,
    memoryview: lambda variant, value, type: _write_bytes(variant, value.tobytes(), type),
    list: _write_list,
    tuple: _write_list,
    Date: _write_date,
    datetime.datetime: _write_date,
    datetime.date: _write_date,
    decimal.Decimal: _write_decimal,
    ByRef: _refuse_byref,
    Array: _write_list,
    ByteArray: _write_bytes,
    range: _write_list,
    _array.array: lambda variant, value, type: _write_list(variant, value.tolist(), type),
}


def add_writer(kind, writer):
    """Takes values of another class and of those derived from it."""
    _WRITERS[kind] = writer


def _writer_for(value):
    """The writer for a value whose own class is not listed: that of a base class, else of what it can be turned into."""
    for base in type(value).__mro__[1:-1]:
        if base in _WRITERS:
            return _WRITERS[base]
    if hasattr(type(value), "__index__"):
        return _write_int
    if isinstance(value, numbers.Real):
        return _write_float
    raise mismatch(f"a Python {type(value).__name__} cannot be passed")


# ---- arrays


def _lower_of(values):
    return values.lower if isinstance(values, (Array, ByteArray)) else 0


def _new_array(vt, count, lower, info=None):
    bound = SAFEARRAYBOUND(count, lower)
    pointer = platform.SafeArrayCreateEx(vt, 1, bound, info) if info else platform.SafeArrayCreate(vt, 1, bound)
    if not pointer:
        raise MemoryError(f"no room for an array of {count} elements")
    return pointer


_PACKED = {VT_I2: "h", VT_I4: "i", VT_I8: "q", VT_UI1: "B", VT_R4: "f", VT_R8: "d"}
_PACKED_TYPES = {vt: {int, float} if vt in (VT_R4, VT_R8) else {int} for vt in _PACKED}


def new_array(values, type):
    """A new SAFEARRAY of the elements, which are converted to the element type."""
    if type.vt == VT_RECORD:
        return _new_record_array(values, type)
    pointer = _new_array(type.vt, len(values), _lower_of(values))
    try:
        data = SAFEARRAY.from_address(pointer).pvData
        if not _copy_packed(data, values, type.vt):
            element = Type(type.vt, entry=type.entry)
            for index, value in enumerate(values):
                _write_element(data, index, value, element)
        return pointer
    except BaseException:
        platform.SafeArrayDestroy(pointer)
        raise


def _copy_packed(data, values, vt):
    """Copies a list of plain numbers at once. False if it holds anything else."""
    if vt not in _PACKED or not set(map(type, values)) <= _PACKED_TYPES[vt]:
        return False
    try:
        packed = struct.pack(f"={len(values)}{_PACKED[vt]}", *values)
    except (struct.error, OverflowError):
        return False
    if packed:
        ctypes.memmove(data, packed, len(packed))
    return True


def _write_element(data, index, value, type):
    variant = VARIANT()
    write(variant, value, type)
    if type.vt == VT_VARIANT:
        ctypes.memmove(data + index * VARIANT_SIZE, ctypes.addressof(variant), VARIANT_SIZE)
        return
    convert(variant, type.vt)
    # The element takes over what the variant owns.
    size = SIZES.get(type.vt, ctypes.sizeof(c_void_p))
    start = ctypes.addressof(variant) + (0 if type.vt == VT_DECIMAL else VALUE_OFFSET)
    ctypes.memmove(data + index * size, start, size)


def _new_record_array(values, type):
    from ._records import Record, record_info

    info = record_info(type.entry)
    pointer = None
    try:
        pointer = _new_array(VT_RECORD, len(values), _lower_of(values), info)
        array = SAFEARRAY.from_address(pointer)
        for index, value in enumerate(values):
            if not isinstance(value, Record) or value._entry is not type.entry:
                raise mismatch(f"element {index} is no {type.entry.name}")
            check(RecordInfo.RecordCopy(info, value._memory, array.pvData + index * array.cbElements))
        return pointer
    except BaseException:
        platform.SafeArrayDestroy(pointer)
        raise
    finally:
        release(info)


def convert(variant, vt):
    """Converts a variant in its place. On failure it is cleared and the error raised."""
    if variant.vt == vt:
        return
    status = platform.VariantChangeType(variant, variant, 0, vt)
    if status < 0:
        clear(variant)
        raise error_of(status)


def clear(variant):
    """Frees what a variant owns and makes it empty."""
    if variant.vt:
        platform.VariantClear(ctypes.byref(variant))


def write_object(variant, pointer):
    """Puts an object into an empty variant, with a reference of its own."""
    add_ref(pointer)
    variant.ptr = pointer
    variant.vt = VT_DISPATCH
