"""What the tests share: a machine in memory, a hub, a look at what the server keeps alive, and an object that says how it was
called."""
import ctypes
import gc
import os
import subprocess
import sys
import types
import unittest
from ctypes import CFUNCTYPE, POINTER, c_int, c_uint, c_ushort, c_void_p
from pathlib import Path

import mox
from mox import _abi, _objects, _typelib
from mox._variant import read_variant

ROOT = Path(__file__).resolve().parents[2]

mox.machine(memory=True)


def hub():
    return mox.create("moxHub")


def error(function, *arguments, **named):
    """The mox.Error that a call raises."""
    try:
        result = function(*arguments, **named)
    except mox.Error as caught:
        return caught
    raise AssertionError(f"no error, but {result!r}")


def loaded(name):
    """The path of a library that is loaded in this process."""
    mox.create("moxHub")
    with open("/proc/self/maps", encoding="utf-8") as maps:
        return Path(next(line.split()[-1] for line in maps if line.rstrip().endswith("/" + name)))


def server_is_idle():
    """True if no object, record or type information of the server is alive."""
    gc.collect()
    return ctypes.CDLL(str(loaded("trl.obkr.mox.so"))).DllCanUnloadNow() == _abi.S_OK


def run_python(code, *, check=True, **environment):
    """Runs a program in an interpreter of its own, with a machine in memory behind it."""
    return run([sys.executable, "-c", "import mox\nmox.machine(memory=True)\n" + code], check=check, **environment)


def run(command, *, check=True, **environment):
    package = str(ROOT / "bindings" / "python")
    result = subprocess.run(
        command, capture_output=True, text=True, timeout=120, env={**os.environ, "PYTHONPATH": package, **environment}
    )
    if check and result.returncode != 0:
        raise AssertionError(f"exit status {result.returncode}\n{result.stdout}\n{result.stderr}")
    return result


class FakeObject:
    """An object of another make: a table of callbacks. It notes how it was called and answers with what the test puts in
    ``answer``, a function of the result place that returns a status."""

    def __init__(self, name, functions):
        self.calls = []
        self.answer = lambda result, exception, bad: 0
        self.references = 1
        pointer = c_void_p
        self._callbacks = [
            CFUNCTYPE(c_int, pointer, pointer, POINTER(pointer))(lambda this, iid, result: _abi.signed(_abi.E_NOINTERFACE)),
            CFUNCTYPE(c_uint, pointer)(lambda this: self._count(1)),
            CFUNCTYPE(c_uint, pointer)(lambda this: self._count(-1)),
            CFUNCTYPE(c_int, pointer, pointer)(lambda *_: _abi.signed(_abi.E_NOTIMPL)),
            CFUNCTYPE(c_int, pointer, c_uint, c_uint, pointer)(lambda *_: _abi.signed(_abi.E_NOTIMPL)),
            CFUNCTYPE(c_int, pointer, pointer, pointer, c_uint, c_uint, pointer)(lambda *_: _abi.signed(_abi.E_NOTIMPL)),
            CFUNCTYPE(
                c_int,
                pointer,
                c_int,
                pointer,
                c_uint,
                c_ushort,
                POINTER(_abi.DISPPARAMS),
                POINTER(_abi.VARIANT),
                POINTER(_abi.EXCEPINFO),
                POINTER(c_uint),
            )(self._invoke),
        ]
        self._table = (pointer * 7)(*(ctypes.cast(callback, pointer).value for callback in self._callbacks))
        self._memory = (pointer * 1)(ctypes.addressof(self._table))
        entry = types.SimpleNamespace(name=name, help=name, content=functions, is_class=False, guid=bytes(16))
        entry.library = types.SimpleNamespace(class_of=lambda interface: None)
        self.object = _objects._adopt(ctypes.addressof(self._memory), _objects.class_of(_Hashable(entry)))

    def _count(self, step):
        self.references += step
        return self.references

    def _invoke(self, this, id, iid, locale, flags, parameters, result, exception, bad):
        content = parameters.contents
        variants = [_abi.VARIANT.from_address(content.rgvarg + 24 * i) for i in range(content.cArgs)][::-1]
        named = [c_int.from_address(content.rgdispidNamedArgs + 4 * i).value for i in range(content.cNamedArgs)]
        self.calls.append(Call(id, flags, [(variant.vt, read_variant(variant)) for variant in variants], named))
        return _abi.signed(self.answer(result.contents, exception.contents, bad))


class _Hashable:
    def __init__(self, namespace):
        self.__dict__.update(vars(namespace))


class Call:
    """How a FakeObject was called: arguments in their order as pairs of variant type and value."""

    def __init__(self, id, flags, arguments, named):
        self.id, self.flags, self.arguments, self.named = id, flags, arguments, named

    def __eq__(self, other):
        return vars(self) == vars(other)

    def __repr__(self):
        return f"Call({self.id}, {self.flags}, {self.arguments}, {self.named})"


def declared(name, kind, *arguments, id=1, result=_abi.VT_VOID):
    """A function of a FakeObject. Arguments are (name, variant type) or (name, variant type, "optional")."""
    declared_arguments = [
        _typelib.Argument(argument[0], _type(argument[1]), _abi.PARAMFLAG_OPT if "optional" in argument else 0, None)
        for argument in arguments
    ]
    return _typelib.Function(name, name, id, kind, False, declared_arguments, _type(result))


def _type(vt):
    return _typelib.Type(vt & 0xFFF, bool(vt & _abi.VT_ARRAY), bool(vt & _abi.VT_BYREF))


class TestCase(unittest.TestCase):
    def assertError(self, number, function, *arguments, argument=None, **named):
        """A call has to fail with this error number, and to blame this argument."""
        caught = error(function, *arguments, **named)
        self.assertEqual((caught.number, caught.argument), (number, argument), caught)
        return caught


class NoLeaks(TestCase):
    """After each test nothing of the server is alive and no handle is open."""

    def tearDown(self):
        self.assertTrue(server_is_idle(), "something of the server is still alive")
        self.assertEqual(mox.handles(), {})
