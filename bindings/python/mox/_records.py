"""Records: structures of the type library as Python objects over memory of the platform."""
from ctypes import c_void_p

from . import _abi
from ._abi import (
    DISPATCH_PUT,
    DISPATCH_PUTREF,
    GUID,
    VARIANT,
    VT_BYREF,
    VT_DISPATCH,
    VT_RECORD,
    VT_VARIANT,
    RecordInfo,
    add_ref,
    release,
)
from ._errors import Error, MemberError, check, error_of
from ._platform import platform, utf16
from ._typelib import entry_of, find_type
from ._variant import add_writer, clear, makers, read, read_array, write


def record_info(entry):
    """The record information of a type, with a reference."""
    library, info = entry.library, c_void_p()
    check(
        platform.GetRecordInfoFromGuids(
            GUID.from_buffer_copy(library.guid), *library.version, library.lcid, GUID.from_buffer_copy(entry.guid), info
        )
    )
    return info.value


class Record:
    """A record of the type library, by its name: ``Record("RECT", Left=1, Right=10)``. Fields that are not given are zero or
    empty.

    Its fields are attributes. Records are equal if they are of the same type and all their fields are. Where a member takes a
    record, it gets this one and changes it in place.
    """

    __slots__ = ("_memory", "_info", "_owner", "__weakref__")
    __hash__ = None

    _entry = None
    #: The names of the fields in their order.
    _fields = ()

    def __new__(cls, *name, **fields):
        if cls is Record:
            if len(name) != 1 or not isinstance(name[0], str):
                raise TypeError("Record takes the name of the record, and its fields by name")
            entry = find_type(name[0])
            if entry is None or not entry.is_record:
                raise error_of(_abi.DISP_E_UNKNOWNNAME, f"There is no record {name[0]}")
            cls = record_class(entry)
        elif name:
            raise TypeError(f"{cls.__name__} takes its fields by name")
        info = record_info(cls._entry)
        record = _adopt(cls, RecordInfo.RecordCreate(info), info)
        for field, value in fields.items():
            setattr(record, field, value)
        return record

    def __setattr__(self, name, value):
        field = self._find(name)
        if field is None:
            raise self._unknown(name)
        object.__setattr__(self, field, value)

    def __getattr__(self, name):
        # Only for names that are no attribute as they are written: fields know no difference of case.
        field = None if name.startswith("__") else self._find(name)
        if field is None or field == name:
            raise self._unknown(name)
        return getattr(self, field)

    @classmethod
    def _find(cls, name):
        if name in cls._fields:
            return name
        return next((field for field in cls._fields if field.lower() == name.lower()), None)

    @classmethod
    def _unknown(cls, name):
        return MemberError(438, f"{cls.__name__} has no field {name}", hresult=_abi.DISP_E_UNKNOWNNAME)

    def __eq__(self, other):
        if not isinstance(other, Record):
            return NotImplemented
        return type(self) is type(other) and all(getattr(self, field) == getattr(other, field) for field in self._fields)

    def __repr__(self):
        content = "".join(f", {field}={getattr(self, field)!r}" for field in self._fields)
        return f"mox.Record({type(self).__name__!r}{content})"

    def __reduce__(self):
        return _rebuild, (type(self).__name__, {field: getattr(self, field) for field in self._fields})

    def __del__(self):
        if self._owner is None:
            self._destroy(self._info, self._memory)
        self._release(self._info)


_set_memory, _set_info, _set_owner = (Record.__dict__[name].__set__ for name in ("_memory", "_info", "_owner"))


def _adopt(cls, memory, info, owner=None):
    """A record object over memory of its own, or over a part of another record's, that it keeps alive. Takes the reference to
    ``info``."""
    record = object.__new__(cls)
    _set_memory(record, memory)
    _set_info(record, info)
    _set_owner(record, owner)
    return record


def _rebuild(name, fields):
    return Record(name, **fields)


_classes = {}


def record_class(entry):
    """The Python class of a record type."""
    known = _classes.get(entry)
    if known is None:
        info = record_info(entry)
        namespace = {
            "__slots__": (),
            "__doc__": entry.help,
            "__module__": "mox",
            "_entry": entry,
            "_fields": tuple(field.name for field in entry.content),
            # Bound here, so that the end of a record needs nothing that the end of the interpreter may have taken away.
            "_destroy": staticmethod(RecordInfo.RecordDestroy.of(info)),
            "_release": staticmethod(release.of(info)),
        }
        release(info)
        namespace.update((field.name, _property(field)) for field in entry.content)
        known = _classes.setdefault(entry, type(entry.name, (Record,), namespace))
    return known


def _property(field):
    kind, offset, name = field.type, field.offset, utf16(field.name)

    def get(self):
        address = self._memory + offset
        if kind.array:
            return read_array(c_void_p.from_address(address).value, kind.vt, kind)
        if kind.vt == VT_RECORD:
            return _adopt(record_class(kind.entry), address, record_info(kind.entry), self)
        return read(kind.vt, address, kind)

    def set(self, value):
        variant = VARIANT()
        try:
            write(variant, value, kind)
            is_object = variant.vt == VT_DISPATCH and kind.vt in (VT_DISPATCH, VT_VARIANT)
            flags = DISPATCH_PUTREF if is_object else DISPATCH_PUT
            check(RecordInfo.PutField(self._info, flags, self._memory, name, variant))
        except Error as error:
            error.argument = field.name
            raise
        finally:
            clear(variant)

    return property(get, set, None, field.help)


def _taken_record(memory, info, type):
    entry = type.record
    if entry is None:
        guid = GUID()
        check(RecordInfo.GetGuid(info, guid))
        entry = entry_of(bytes(guid))
    return _adopt(record_class(entry), memory, info)


def _record(memory, info, type):
    copy = c_void_p()
    check(RecordInfo.RecordCreateCopy(info, memory, copy))
    add_ref(info)
    return _taken_record(copy.value, info, type)


def _write_record(variant, value, type):
    if type.vt == VT_VARIANT:
        # What takes any variant may keep it, so it gets a copy.
        copy = c_void_p()
        check(RecordInfo.RecordCreateCopy(value._info, value._memory, copy))
        add_ref(value._info)
        variant.record.pvRecord, variant.record.pRecInfo = copy.value, value._info
        variant.vt = VT_RECORD
    else:
        variant.record.pvRecord, variant.record.pRecInfo = value._memory, value._info
        variant.vt = VT_RECORD | VT_BYREF


makers.record = _record
makers.taken_record = _taken_record
add_writer(Record, _write_record)
