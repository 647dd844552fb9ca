"""Type information read into plain Python data.

Every interface pointer is given back at once, as type information keeps the file of its library loaded. What was read stays.
"""
import ctypes
import threading
from contextlib import contextmanager
from ctypes import POINTER, c_int, c_uint, c_void_p

from . import _abi
from ._abi import (
    FUNCDESC,
    GUID,
    TLIBATTR,
    TYPEATTR,
    VARDESC,
    VT_DISPATCH,
    VT_I4,
    VT_PTR,
    VT_RECORD,
    VT_SAFEARRAY,
    VT_UNKNOWN,
    VT_USERDEFINED,
    VT_VARIANT,
    TypeInfo,
    TypeLib,
    release,
)
from ._errors import check, error_of
from ._platform import CLSCTX_INPROC_SERVER, apartments, platform, take_text

#: Asked of a server for this class, its entry point gives the type library of the file.
_CLSID_SERVER_TYPE_LIBRARY = GUID.parse("B9D3B6A2-6A0F-4C53-8B0E-0C7F521B93D4")
_IID_TYPELIB = GUID.parse("00020402-0000-0000-C000-000000000046")

_guard = threading.RLock()


class Type:
    """The type of an argument, a result or a field. ``vt`` is the type of the value, or of the elements of an array: enums have
    VT_I4, objects VT_DISPATCH, records VT_RECORD. ``entry`` is the named type behind it, if there is one."""

    __slots__ = ("vt", "array", "byref", "entry")

    def __init__(self, vt, array=False, byref=False, entry=None):
        self.vt = vt
        self.array = array
        self.byref = byref
        self.entry = entry

    @property
    def is_object(self):
        return not self.array and self.vt in (VT_DISPATCH, VT_UNKNOWN)

    @property
    def enum(self):
        return self.entry if self.vt == VT_I4 else None

    @property
    def record(self):
        return self.entry if self.vt == VT_RECORD else None


#: What a value is converted as when nothing is declared.
ANY = Type(VT_VARIANT)


class Argument:
    """A declared argument. ``default`` is None for one that is optional without a stated default."""

    __slots__ = ("name", "type", "optional", "default", "has_default")

    def __init__(self, name, type, flags, default):
        self.name = name
        self.type = type
        self.optional = bool(flags & _abi.PARAMFLAG_OPT)
        self.has_default = bool(flags & _abi.PARAMFLAG_HASDEFAULT)
        self.default = default


class Function:
    """One way to call a member: a method, or the Get, Let or Set of a property. ``kind`` has the flag for Invoke, ``places`` the
    position of each argument by its name, as it is declared and in lower case."""

    __slots__ = ("name", "help", "id", "kind", "hidden", "arguments", "result", "places")

    def __init__(self, name, help, id, kind, hidden, arguments, result):
        self.name = name
        self.help = help
        self.id = id
        self.kind = kind
        self.hidden = hidden
        self.arguments = arguments
        self.result = result
        self.places = {name: place for place, argument in enumerate(arguments) for name in (argument.name.lower(), argument.name)}


class Field:
    """A field of a record, at ``offset`` bytes from its start."""

    __slots__ = ("name", "help", "type", "offset")

    def __init__(self, name, help, type, offset):
        self.name = name
        self.help = help
        self.type = type
        self.offset = offset


class Value:
    """A value of an enum."""

    __slots__ = ("name", "help", "number")

    def __init__(self, name, help, number):
        self.name = name
        self.help = help
        self.number = number


def _text_pair(get, pointer, key):
    name, help = c_void_p(), c_void_p()
    check(get(pointer, key, name, help, None, None))
    return take_text(name.value), take_text(help.value)


class Entry:
    """A named type of a library. What it consists of is read when it is first asked for."""

    def __init__(self, library, index, info):
        self.library = library
        self.index = index
        self.name, self.help = _text_pair(TypeInfo.GetDocumentation, info, _abi.MEMBERID_NIL)
        attributes = POINTER(TYPEATTR)()
        check(TypeInfo.GetTypeAttr(info, attributes))
        content = attributes.contents
        self.kind = content.typekind
        self.guid = bytes(content.guid)
        self.can_create = bool(content.wTypeFlags & _abi.TYPEFLAG_CANCREATE)
        self.size = content.cbSizeInstance
        self._counts = content.cFuncs, content.cVars, content.cImplTypes
        TypeInfo.ReleaseTypeAttr(info, attributes)
        self._content = None

    def __repr__(self):
        return f"<{self.library.name}.{self.name}>"

    @property
    def is_class(self):
        return self.kind == _abi.TKIND_COCLASS

    @property
    def is_enum(self):
        return self.kind == _abi.TKIND_ENUM

    @property
    def is_record(self):
        return self.kind == _abi.TKIND_RECORD

    @property
    def is_interface(self):
        return self.kind in (_abi.TKIND_DISPATCH, _abi.TKIND_INTERFACE)

    @property
    def content(self):
        """Values of an enum, fields of a record, functions of an interface; of a class its default interface and its events or
        None."""
        if self._content is None:
            with _guard, self.library.type_info(self.index) as info:
                if self._content is None:
                    self._content = self._read(info)
        return self._content

    def _read(self, info):
        functions, variables, interfaces = self._counts
        if self.is_class:
            return self._read_interfaces(info, interfaces)
        if self.is_enum or self.is_record:
            return [self._read_variable(info, i) for i in range(variables)]
        return [self._read_function(info, i) for i in range(functions)]

    def _read_interfaces(self, info, count):
        default = events = None
        for i in range(count):
            handle, flags = c_uint(), c_int()
            check(TypeInfo.GetRefTypeOfImplType(info, i, handle))
            check(TypeInfo.GetImplTypeFlags(info, i, flags))
            if flags.value & _abi.IMPLTYPEFLAG_SOURCE:
                events = _referenced(info, handle.value)
            else:
                default = _referenced(info, handle.value)
        return default, events

    def _read_variable(self, info, index):
        place = POINTER(VARDESC)()
        check(TypeInfo.GetVarDesc(info, index, place))
        try:
            variable = place.contents
            name, help = _text_pair(TypeInfo.GetDocumentation, info, variable.memid)
            if self.is_enum:
                return Value(name, help, variable.lpvarValue.contents.lVal)
            return Field(name, help, _type_of(info, variable.elemdescVar.tdesc), variable.oInst)
        finally:
            TypeInfo.ReleaseVarDesc(info, place)

    def _read_function(self, info, index):
        place = POINTER(FUNCDESC)()
        check(TypeInfo.GetFuncDesc(info, index, place))
        try:
            function = place.contents
            name, help = _text_pair(TypeInfo.GetDocumentation, info, function.memid)
            names = _names_of(info, function.memid, function.cParams)
            arguments = []
            for i in range(function.cParams):
                element = function.lprgelemdescParam[i]
                flags = element.paramdesc.wParamFlags
                default = None
                if flags & _abi.PARAMFLAG_HASDEFAULT:
                    default = _constant(element.paramdesc.pparamdescex.contents.varDefaultValue)
                arguments.append(Argument(names[i], _type_of(info, element.tdesc), flags, default))
            return Function(
                name,
                help,
                function.memid,
                function.invkind,
                bool(function.wFuncFlags & _abi.FUNCFLAG_HIDDEN),
                arguments,
                _type_of(info, function.elemdescFunc.tdesc),
            )
        finally:
            TypeInfo.ReleaseFuncDesc(info, place)


def _names_of(info, id, count):
    """The names of a function's arguments. The last one of a Let or Set, its value, has none."""
    names, found = (c_void_p * (count + 1))(), c_uint()
    check(TypeInfo.GetNames(info, id, ctypes.cast(names, POINTER(c_void_p)), count + 1, found))
    texts = [take_text(names[i]) for i in range(found.value)][1:]
    return texts + ["value"] * (count - len(texts))


def _constant(variant):
    """The value of a default. None stands for Nothing and for an empty variant."""
    from ._variant import read_variant

    return read_variant(variant, ANY)


def _type_of(info, description):
    array, pointers = False, 0
    while description.vt in (VT_PTR, VT_SAFEARRAY):
        array |= description.vt == VT_SAFEARRAY
        pointers += description.vt == VT_PTR and not array
        description = description.lptdesc.contents
    if description.vt != VT_USERDEFINED:
        return Type(description.vt, array, pointers > 0)
    entry = _referenced(info, description.hreftype)
    if entry.kind == _abi.TKIND_ALIAS:
        target = entry.library.alias_target(entry)
        return Type(target.vt, array or target.array, pointers > 0, target.entry)
    if entry.is_enum:
        return Type(VT_I4, array, pointers > 0, entry)
    if entry.is_record:
        return Type(VT_RECORD, array, pointers > 0, entry)
    return Type(VT_DISPATCH, array, pointers > 1, entry)  # an object is a pointer in any case


def _referenced(info, handle):
    """The entry of another type that type information names."""
    other, library, index = c_void_p(), c_void_p(), c_uint()
    check(TypeInfo.GetRefTypeInfo(info, handle, other))
    try:
        check(TypeInfo.GetContainingTypeLib(other.value, library, index))
    finally:
        release(other.value)
    return _library_at(library.value).entries[index.value]


class Library:
    """A type library. ``entries`` are its types in their order."""

    def __init__(self, pointer, reopen):
        self._reopen = reopen
        self.name, self.help = _text_pair(TypeLib.GetDocumentation, pointer, -1)
        self.guid, self.version, self.lcid = _identity(pointer)
        self._aliases = {}
        self.entries = []
        for index in range(TypeLib.GetTypeInfoCount(pointer)):
            info = c_void_p()
            check(TypeLib.GetTypeInfo(pointer, index, info))
            self.entries.append(Entry(self, index, info.value))
            release(info.value)
        self.by_name = {entry.name.lower(): entry for entry in self.entries}
        self.by_guid = {entry.guid: entry for entry in self.entries}

    def named(self, name):
        """The type of that name without regard to case, or None."""
        return self.by_name.get(name.lower())

    @property
    def classes(self):
        return [entry for entry in self.entries if entry.is_class]

    @property
    def enums(self):
        return [entry for entry in self.entries if entry.is_enum]

    @property
    def records(self):
        return [entry for entry in self.entries if entry.is_record]

    def class_of(self, interface):
        """The class whose default interface this is, or None."""
        return next((entry for entry in self.classes if entry.content[0] is interface), None)

    @contextmanager
    def type_info(self, index):
        library, info = self._reopen(), c_void_p()
        try:
            check(TypeLib.GetTypeInfo(library, index, info))
        finally:
            release(library)
        try:
            yield info.value
        finally:
            release(info.value)

    def alias_target(self, entry):
        if entry not in self._aliases:
            with self.type_info(entry.index) as info:
                attributes = POINTER(TYPEATTR)()
                check(TypeInfo.GetTypeAttr(info, attributes))
                self._aliases[entry] = _type_of(info, attributes.contents.tdescAlias)
                TypeInfo.ReleaseTypeAttr(info, attributes)
        return self._aliases[entry]


def _identity(pointer):
    attributes = POINTER(TLIBATTR)()
    check(TypeLib.GetLibAttr(pointer, attributes))
    try:
        content = attributes.contents
        return bytes(content.guid), (content.wMajorVerNum, content.wMinorVerNum), content.lcid
    finally:
        TypeLib.ReleaseTLibAttr(pointer, attributes)


#: The libraries that were met, by their identifier.
_libraries = {}


def _open_server():
    apartments.enter()
    result = c_void_p()
    check(platform.CoGetClassObject(_CLSID_SERVER_TYPE_LIBRARY, CLSCTX_INPROC_SERVER, None, _IID_TYPELIB, result))
    return result.value


def _library_at(pointer):
    """The library behind a pointer, which is taken over. One that is not the server's belongs to the platform, which stays loaded
    anyway: its pointer is kept."""
    with _guard:
        known = _libraries.get(_identity(pointer)[0])
        if known is not None:
            release(pointer)
            return known

        def reopen():
            _abi.add_ref(pointer)
            return pointer

        library = Library(pointer, reopen)
        _libraries[library.guid] = library
        return library


def library():
    """The type library of the server."""
    with _guard:
        if not _libraries:
            pointer = _open_server()
            try:
                server = Library(pointer, _open_server)
            finally:
                release(pointer)
            _libraries[server.guid] = server
        return next(iter(_libraries.values()))


def libraries():
    """The server's library and those that it refers to."""
    with _guard:
        for entry in library().entries:
            entry.content
        return list(_libraries.values())


def find_type(name):
    """The type of that name, without regard to case, in the server's library or in one that it refers to; None if there is
    none."""
    return library().named(name) or next((entry for found in libraries() if (entry := found.named(name))), None)


def entry_of(guid):
    """The type with this identifier, in bytes, in the server's library or in one that it refers to."""
    for known in (lambda: list(_libraries.values()), libraries):
        for found in known():
            if guid in found.by_guid:
                return found.by_guid[guid]
    raise error_of(_abi.TYPE_E_ELEMENTNOTFOUND)
