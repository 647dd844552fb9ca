"""Objects: one Python class for each interface of the type library, made when it is first met."""
import ctypes
from ctypes import byref, c_char, c_void_p

from . import _abi, _describe
from ._abi import (
    DISPATCH_GET,
    DISPATCH_METHOD,
    DISPATCH_PUT,
    DISPATCH_PUTREF,
    GUID,
    IID_ENUM_VARIANT,
    IID_IDISPATCH,
    TYPEATTR,
    VARIANT,
    VT_DISPATCH,
    Dispatch,
    DispatchTable,
    EnumVariant,
    TypeInfo,
    add_ref,
    release,
)
from ._call import caller, getter, putter
from ._errors import MemberError, check, error_of
from ._platform import CLSCTX_INPROC_SERVER, apartments, identity_of, interface_of, platform, utf16
from ._typelib import ANY, Function, entry_of, find_type
from ._variant import add_writer, clear, makers, read_variant, write_object

_INVOKE = ctypes.CFUNCTYPE(ctypes.c_int)

#: Invoke and Release by their addresses. Not by that of the table, which another object may have when this one is gone.
_known_functions = {}


def _functions_of(pointer):
    """IDispatch::Invoke and Release of an object. Invoke has no declared arguments: they are prepared once and need no look at
    each call."""
    table = DispatchTable.from_address(c_void_p.from_address(pointer).value)
    addresses = table.Invoke, table.Release
    functions = _known_functions.get(addresses)
    if functions is None:
        functions = _known_functions[addresses] = _INVOKE(addresses[0]), release.of(pointer)
    return functions


class Member:
    """A method or a property of a class, under one name."""

    def __init__(self, owner, functions):
        by_kind = {function.kind: function for function in functions}
        self.owner = owner
        self.functions = functions
        self.method = by_kind.get(DISPATCH_METHOD)
        self.get = by_kind.get(DISPATCH_GET)
        self.put = by_kind.get(DISPATCH_PUT)
        self.putref = by_kind.get(DISPATCH_PUTREF)
        main = self.method or self.get or self.put or self.putref
        self.name, self.help, self.id, self.hidden = main.name, main.help, main.id, main.hidden
        #: Calls the method, or reads the property with arguments.
        readable = self.method or self.get
        self.call = caller(readable or _absent(main, DISPATCH_GET), readable is not None)
        #: Sets the property: arguments, then the value.
        has_put = self.put or self.putref
        self.set = putter(self.put if has_put else _absent(main, DISPATCH_PUT), self.putref)

    @property
    def takes_arguments(self):
        """True for a property that is read or set with arguments, even if all of them can be left out."""
        put = self.put or self.putref
        return bool(self.get.arguments) if self.get else len(put.arguments) > 1

    @property
    def doc(self):
        declared = "\n".join(_describe.visual_basic(function) for function in self.functions)
        return f"{self.help}.\n\n{declared}"

    def attribute(self):
        """What stands in the Python class for this member."""
        if self.method:
            return self._function(self.call, self.method)
        if self.takes_arguments:
            return _IndexedAttribute(self)
        put = self.put or self.putref
        return property(getter(self.get or _absent(put, DISPATCH_GET)), self.set if put else None, None, self.doc)

    def _function(self, function, declared):
        function.__name__ = self.name
        function.__qualname__ = f"{self.owner}.{self.name}"
        function.__doc__ = self.doc
        function.__module__ = "mox"
        function.__signature__ = _describe.signature(declared, of_method=True)
        return function


def _absent(function, kind):
    """A use that the member does not have. The object is asked all the same, so that the error is the one that any client
    gets."""
    return Function(function.name, function.help, function.id, kind, function.hidden, [], ANY)


class Indexed:
    """A property with arguments of one object: call it or index it to read, assign to an index to set."""

    __slots__ = ("_object", "_member")
    __iter__ = None

    def __init__(self, object, member):
        self._object = object
        self._member = member

    def __call__(self, *arguments, **named):
        return self._member.call(self._object, *arguments, **named)

    def __getitem__(self, index):
        return self._member.call(self._object, *_indexes(index))

    def __setitem__(self, index, value):
        self._member.set(self._object, *_indexes(index), value)

    def __repr__(self):
        return f"<property {self._member.owner}.{self._member.name}>"

    @property
    def __doc__(self):
        return self._member.doc

    @property
    def __signature__(self):
        return _describe.signature(self._member.get or self._member.put or self._member.putref)


class _IndexedAttribute:
    """Stands in a class for a property with arguments."""

    def __init__(self, member):
        self.member = member
        self.__doc__ = member.doc
        self.__name__ = member.name

    def __get__(self, object, owner=None):
        return self if object is None else Indexed(object, self.member)

    def __set__(self, object, value):
        self.member.set(object, value)


def _indexes(index):
    return index if isinstance(index, tuple) else (index,)


class Object:
    """An object of the library. Its members are attributes: properties are read and set, methods called, names being case-blind.
    Objects are equal if they are the same one."""

    __slots__ = ("_pointer", "_this", "_invoke", "_release", "_identity", "__weakref__")

    _entry = None
    #: Members by name, and by name in lower case.
    _members = {}
    _lower = {}

    def __new__(cls, *_, **__):
        raise TypeError("objects are made by mox.create and by the members of other objects")

    def put(self, name, *arguments, **named):
        """Sets a property with arguments: ``obj.put("Name", *arguments, value)``."""
        if not arguments:
            raise error_of(_abi.DISP_E_PARAMNOTOPTIONAL, argument="value")
        self._member(name).set(self, *arguments, **named)

    @classmethod
    def _member(cls, name):
        member = cls._members.get(name) or cls._lower.get(name.lower())
        if member is None:
            raise MemberError(438, f"{cls.__name__} has no member {name}", hresult=_abi.DISP_E_UNKNOWNNAME)
        return member

    def __getattr__(self, name):
        # Only for names that are no attribute as they are written.
        member = self._member(name)
        if member.name == name:
            raise MemberError(438, f"{type(self).__name__}.{name} cannot be read", hresult=_abi.DISP_E_MEMBERNOTFOUND)
        return getattr(self, member.name)

    def __setattr__(self, name, value):
        (self._members.get(name) or self._member(name)).set(self, value)

    def __eq__(self, other):
        if not isinstance(other, Object):
            return NotImplemented
        return self._pointer == other._pointer or hash(self) == hash(other)

    def __hash__(self):
        if self._identity is None:
            _set_identity(self, identity_of(self._pointer))
        return self._identity

    def __repr__(self):
        return f"<mox.{type(self).__name__}>"

    def __dir__(self):
        hidden = {name for name, member in self._members.items() if member.hidden}
        return [name for name in super().__dir__() if name not in hidden]

    def __reduce_ex__(self, protocol):
        raise TypeError(f"a {type(self).__name__} cannot be copied or pickled")

    def __del__(self):
        # References may be given back on any thread.
        self._release(self._pointer)


_set_pointer, _set_this, _set_invoke, _set_release, _set_identity = (
    Object.__dict__[name].__set__ for name in ("_pointer", "_this", "_invoke", "_release", "_identity")
)
_new = object.__new__


def _adopt(pointer, cls):
    """The Python object for an interface pointer, whose reference it takes over."""
    invoke, release_ = _functions_of(pointer)
    result = _wrap(pointer, cls, release_)
    _set_this(result, byref(c_char.from_address(pointer)))
    _set_invoke(result, invoke)
    return result


def _wrap(pointer, cls, release_):
    result = _new(cls)
    _set_release(result, release_)
    _set_pointer(result, pointer)
    _set_identity(result, None)
    return result


def _taken_object(pointer, type):
    if not pointer:
        return None
    entry = type.entry
    if entry is None:
        entry = _entry_of_object(pointer)
    return _adopt(pointer, class_of(entry))


def _object(pointer, type):
    if not pointer:
        return None
    if type.vt == VT_DISPATCH:
        add_ref(pointer)
        return _taken_object(pointer, type)
    dispatch, _ = interface_of(pointer, IID_IDISPATCH)
    if dispatch is None:
        add_ref(pointer)
        return _wrap(pointer, _Unknown, release.of(pointer))
    return _taken_object(dispatch, ANY)


def _entry_of_object(pointer):
    """The interface that an object says it has, or None."""
    info = c_void_p()
    if Dispatch.GetTypeInfo(pointer, 0, 0, info) < 0 or not info.value:
        return None
    try:
        attributes = ctypes.POINTER(TYPEATTR)()
        check(TypeInfo.GetTypeAttr(info.value, attributes))
        guid = bytes(attributes.contents.guid)
        TypeInfo.ReleaseTypeAttr(info.value, attributes)
    finally:
        release(info.value)
    return entry_of(guid)


class _Unknown(Object):
    """An object that has no members to call."""

    __slots__ = ()


_Unknown.__name__ = _Unknown.__qualname__ = "IUnknown"
_Unknown.__module__ = "mox"


#: The Python classes by their interfaces. Two threads may make one at once; the first is kept.
_classes = {None: _Unknown}


def class_of(entry):
    """The Python class for an interface. It has the name of the class whose default interface that is."""
    return _classes.get(entry) or _classes.setdefault(entry, _make_class(entry))


def _make_class(entry):
    owner = entry.library.class_of(entry)
    named = owner or entry
    groups = {}
    for function in entry.content:
        groups.setdefault(function.name, []).append(function)
    members = {name: Member(named.name, functions) for name, functions in groups.items()}
    namespace = {
        "__slots__": (),
        "__module__": "mox",
        "__doc__": named.help,
        "_entry": named,
        "_members": members,
        "_lower": {name.lower(): member for name, member in members.items()},
    }
    by_id = {member.id: member for member in members.values()}
    if _abi.DISPID_VALUE in by_id:
        namespace.update(_default_member(by_id[_abi.DISPID_VALUE]))
    if _abi.DISPID_NEWENUM in by_id:
        namespace["__iter__"] = _iterator(by_id[_abi.DISPID_NEWENUM])
    namespace.update((name, member.attribute()) for name, member in members.items())
    return type(named.name, (Object,), namespace)


def _default_member(member):
    """Calling and indexing of an object itself goes to its default member."""

    def __call__(self, *arguments, **named):
        return member.call(self, *arguments, **named)

    def __getitem__(self, index):
        return member.call(self, *_indexes(index))

    def __setitem__(self, index, value):
        member.set(self, *_indexes(index), value)

    __call__.__doc__ = __getitem__.__doc__ = __setitem__.__doc__ = f"The same for {member.name}, the default member."
    return {"__call__": __call__, "__getitem__": __getitem__, "__setitem__": __setitem__, "__iter__": None}


def _iterator(member):
    def iterate(self):
        unknown = getattr(self, member.name)
        enumerator, status = interface_of(unknown._pointer, IID_ENUM_VARIANT)
        check(status)
        try:
            variant, count = VARIANT(), ctypes.c_uint()
            while EnumVariant.Next(enumerator, 1, variant, count) == _abi.S_OK:
                try:
                    yield read_variant(variant)
                finally:
                    clear(variant)
        finally:
            release(enumerator)

    return iterate


def create(name):
    """A new object of a class: by its name, ``"moxHub"``, its ProgID, ``"TRL_OBKR_MOX.moxHub"``, or its class identifier in text
    form. Error 429 if there is no such class, or if its objects come from other objects only."""
    apartments.enter()
    identifier = _class_identifier(name)
    result = c_void_p()
    check(platform.CoCreateInstance(identifier, None, CLSCTX_INPROC_SERVER, IID_IDISPATCH, result))
    return _taken_object(result.value, ANY)


def _class_identifier(name):
    try:
        return GUID.parse(name)
    except ValueError:
        pass
    entry = None if "." in name else find_type(name)
    if entry is not None and entry.is_class:
        return GUID.from_buffer_copy(entry.guid)
    identifier = GUID()
    if platform.CLSIDFromProgID(utf16(name), identifier) < 0:
        raise error_of(_abi.CO_E_CLASSSTRING, f"There is no class {name}")
    return identifier


makers.object_class = Object
makers.object = _object
makers.taken_object = _taken_object
add_writer(Object, lambda variant, value, type: write_object(variant, value._pointer))
