"""Events: objects made of memory and callbacks, which event sources call through IDispatch."""
import atexit
import ctypes
import threading
from ctypes import CFUNCTYPE, POINTER, c_int, c_uint, c_ushort, c_void_p

from . import _abi
from ._abi import (
    DISPPARAMS,
    EXCEPINFO,
    GUID,
    IID_CONNECTION_POINT_CONTAINER,
    IID_IDISPATCH,
    IID_IUNKNOWN,
    VARIANT,
    VARIANT_SIZE,
    VT_ARRAY,
    VT_BYREF,
    VT_RECORD,
    VT_VARIANT,
    ConnectionPoint,
    ConnectionPointContainer,
    RecordInfo,
    release,
    signed,
)
from ._errors import Error, check, error_of, mismatch
from ._objects import Object
from ._platform import bstr_of, interface_of, platform
from ._records import Record
from ._typelib import ANY
from ._values import ByRef
from ._variant import SIZES, clear, convert, read_variant, write

#: The sinks by their address, as long as somebody outside holds a reference to them.
_sinks = {}
_guard = threading.RLock()


class _Waiting(threading.local):
    """What a handler leaves to the message loop that it runs in: a request to stop the program."""

    pumping = 0
    interrupt = None


waiting = _Waiting()


class Sink:
    """What an event source gets to call. It begins with one reference, which belongs to its maker."""

    def __init__(self, events, handler):
        self.iid = GUID.from_buffer_copy(events.guid)
        self.handler = handler
        self.functions = {function.id: function for function in events.content}
        self.count = 1
        self.address = _functions.new_object()
        with _guard:
            _sinks[self.address] = self

    def release(self):
        with _guard:
            self.count -= 1
            if self.count == 0:
                del _sinks[self.address]
                _functions.free_object(self.address)
            return self.count

    def handler_of(self, name):
        if isinstance(self.handler, dict):
            return self.handler.get(name)
        return getattr(self.handler, name, None)

    def invoke(self, id, parameters, exception):
        function = self.functions.get(id)
        handle = function and self.handler_of(function.name)
        if handle is None:
            return _abi.DISP_E_MEMBERNOTFOUND
        try:
            _deliver(handle, function, parameters)
            return _abi.S_OK
        except BaseException as error:
            return _report(error, handle, exception)


def _deliver(handle, function, parameters):
    count = parameters.cArgs
    variants = [VARIANT.from_address(parameters.rgvarg + VARIANT_SIZE * (count - 1 - i)) for i in range(count)]
    types = [argument.type for argument in function.arguments[:count]]
    types += [ANY] * (count - len(types))
    arguments = [read_variant(variant, type) for variant, type in zip(variants, types)]
    given = list(arguments)
    for i, (variant, type) in enumerate(zip(variants, types)):
        if variant.vt & VT_BYREF and type.byref:
            arguments[i] = ByRef(given[i])
    handle(*arguments)
    for variant, type, before, argument in zip(variants, types, given, arguments):
        if isinstance(argument, ByRef) and (argument.value is not before or isinstance(before, (list, Record))):
            _write_back(variant, argument.value, type)


def _write_back(variant, value, type):
    """Puts a value into the place that a by-reference argument leads to, in the type of that place."""
    target = variant.vt & ~VT_BYREF
    if target == VT_RECORD:
        if not isinstance(value, Record):
            raise mismatch(f"{value!r} is no record")
        check(RecordInfo.RecordCopy(variant.record.pRecInfo, value._memory, variant.record.pvRecord))
        return
    fresh = VARIANT()
    write(fresh, value, type)
    if target == VT_VARIANT:
        place, start, size = variant.ptr, ctypes.addressof(fresh), VARIANT_SIZE
    else:
        convert(fresh, target)
        place, start = variant.ptr, ctypes.addressof(fresh) + _abi.VALUE_OFFSET
        size = ctypes.sizeof(c_void_p) if target & VT_ARRAY else SIZES.get(target, ctypes.sizeof(c_void_p))
    # The place and the fresh variant change what they hold, and what was in the place goes with the variant.
    before = ctypes.string_at(place, size)
    ctypes.memmove(place, start, size)
    ctypes.memmove(start, before, size)
    clear(fresh)


class _Raiser:
    """Raises an error where only sys.unraisablehook hears of it."""

    def __init__(self, error, handle):
        self.error = error
        self.handle = handle

    def __call__(self):
        raise self.error

    def __repr__(self):
        return f"event handler {self.handle!r}"


def _report(error, handle, exception):
    """Says what went wrong in a handler, which must not reach the source as anything but a failing status."""
    if waiting.pumping and not isinstance(error, Exception):
        waiting.interrupt = error
        return _abi.E_FAIL
    CFUNCTYPE(None)(_Raiser(error, handle))()
    if exception:
        content = exception.contents
        ctypes.memset(ctypes.addressof(content), 0, ctypes.sizeof(content))
        content.scode = signed(error.hresult if isinstance(error, Error) else _abi.E_FAIL)
        content.bstrSource = bstr_of("Python")
        content.bstrDescription = bstr_of(str(error))
    return _abi.DISP_E_EXCEPTION


class _Functions:
    """The functions that all sinks share, and the memory that sources see of a sink.

    A sink is its table of functions, with a number before it. When the interpreter ends, the table is filled with a function of
    the platform that only reads that number, so that a source which outlives Python calls nothing that is gone.
    """

    def __init__(self):
        self.table = None

    def new_object(self):
        with _guard:
            if self.table is None:
                self._make()
        block = platform.CoTaskMemAlloc(2 * ctypes.sizeof(c_void_p))
        address = block + ctypes.sizeof(c_void_p)
        c_uint.from_address(address - 4).value = 1
        c_void_p.from_address(address).value = self.table
        return address

    @staticmethod
    def free_object(address):
        platform.CoTaskMemFree(address - ctypes.sizeof(c_void_p))

    def _make(self):
        pointer = c_void_p
        self.callbacks = [
            CFUNCTYPE(c_int, pointer, POINTER(GUID), POINTER(pointer))(_query_interface),
            CFUNCTYPE(c_uint, pointer)(_add_reference),
            CFUNCTYPE(c_uint, pointer)(lambda this: _sinks[this].release()),
            CFUNCTYPE(c_int, pointer, POINTER(c_uint))(_get_type_info_count),
            CFUNCTYPE(c_int, pointer, c_uint, c_uint, pointer)(lambda *_: signed(_abi.E_NOTIMPL)),
            CFUNCTYPE(c_int, pointer, pointer, pointer, c_uint, c_uint, pointer)(lambda *_: signed(_abi.E_NOTIMPL)),
            CFUNCTYPE(
                c_int, pointer, c_int, pointer, c_uint, c_ushort, POINTER(DISPPARAMS), pointer, POINTER(EXCEPINFO), pointer
            )(_invoke),
        ]
        addresses = [ctypes.cast(callback, pointer).value for callback in self.callbacks]
        self.table = platform.CoTaskMemAlloc(len(addresses) * ctypes.sizeof(pointer))
        (pointer * len(addresses)).from_address(self.table)[:] = addresses
        atexit.register(self._silence)

    def _silence(self):
        harmless = ctypes.cast(platform.SysStringByteLen, c_void_p).value
        (c_void_p * len(self.callbacks)).from_address(self.table)[:] = [harmless] * len(self.callbacks)
        _sinks.clear()


_functions = _Functions()


def _query_interface(this, iid, result):
    if not result:
        return signed(_abi.E_POINTER)
    sink = _sinks[this]
    known = bytes(iid.contents) in map(bytes, (IID_IUNKNOWN, IID_IDISPATCH, sink.iid))
    result[0] = this if known else None
    if not known:
        return signed(_abi.E_NOINTERFACE)
    _add_reference(this)
    return _abi.S_OK


def _add_reference(this):
    with _guard:
        sink = _sinks[this]
        sink.count += 1
        return sink.count


def _get_type_info_count(this, result):
    result[0] = 0
    return _abi.S_OK


def _invoke(this, id, iid, locale, flags, parameters, result, exception, bad):
    return signed(_sinks[this].invoke(id, parameters.contents, exception))


class Connection:
    """A handler that is connected to the events of an object. ``disconnect()`` ends that, and so does the end of a ``with``
    block; a connection that is merely forgotten stays as long as its object lives."""

    def __init__(self, point, cookie):
        self._point = point
        self._cookie = cookie
        self._release = release.of(point)

    @property
    def connected(self):
        """False once disconnect was called."""
        return self._cookie is not None

    def disconnect(self):
        """No event arrives any more. May be called again, and from inside a handler."""
        if self._cookie is not None:
            check(ConnectionPoint.Unadvise(self._point, self._cookie))
            self._cookie = None

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.disconnect()

    def __del__(self):
        self._release(self._point)


def connect(object, handler):
    """Connects a handler to the events of an object: an object with methods named as the events, or a dictionary of callables by
    the names of the events. By-reference arguments arrive as ``ByRef``; what the handler leaves in their ``value`` goes back to
    the source.

    An exception in a handler goes to ``sys.unraisablehook``; in ``mox.pump`` KeyboardInterrupt and SystemExit end the loop. Error
    459 for an object without events; ValueError if a name is no event, or if no method of the handler is named as one.
    """
    events = _events_of(object)
    names = {function.name for function in events.content}
    if isinstance(handler, dict):
        handler = _checked(handler, names, object)
    elif not any(hasattr(handler, name) for name in names):
        raise ValueError(f"the handler has no method named as an event of {type(object).__name__}: {', '.join(sorted(names))}")
    return _advise(object._pointer, Sink(events, handler))


def _events_of(object):
    if object is None:
        raise Error(91)
    if not isinstance(object, Object):
        raise mismatch(f"a Python {type(object).__name__} has no events")
    entry = object._entry
    events = entry.content[1] if entry is not None and entry.is_class else None
    if events is None:
        raise Error(459)
    return events


def _checked(handlers, names, object):
    declared = {name.lower(): name for name in names}
    for name, handle in handlers.items():
        if name.lower() not in declared:
            raise ValueError(f"{type(object).__name__} has no event {name}; it has {', '.join(sorted(names))}")
        if not callable(handle):
            raise TypeError(f"the handler for {name} cannot be called")
    return {declared[name.lower()]: handle for name, handle in handlers.items()}


def _advise(source, sink):
    try:
        container, status = interface_of(source, IID_CONNECTION_POINT_CONTAINER)
        check(status)
        point = c_void_p()
        try:
            check(ConnectionPointContainer.FindConnectionPoint(container, sink.iid, point))
        finally:
            release(container)
        cookie = c_uint()
        status = ConnectionPoint.Advise(point.value, sink.address, cookie)
        if status < 0:
            release(point.value)
            raise error_of(status)
        return Connection(point.value, cookie.value)
    finally:
        sink.release()
