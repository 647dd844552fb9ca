"""Events: handlers, by-reference arguments, errors in handlers, connections that end in all ways."""
import ctypes
import gc
import sys
import unittest
import weakref

import mox
from mox import _events, _typelib
from mox._abi import (
    DISPPARAMS,
    EXCEPINFO,
    IID_NULL,
    VARIANT,
    VT_ARRAY,
    VT_BSTR,
    VT_BYREF,
    VT_DISPATCH,
    VT_I4,
    VT_RECORD,
    VT_VARIANT,
    Slot,
    add_ref,
)
from mox._platform import bstr_of, platform, take_text, text_of
from mox._variant import clear, new_array, read_variant

from support import FakeObject, NoLeaks, TestCase, declared, error, hub, run_python


def run_until(condition, seconds=5):
    """Pumps in short steps until something has happened."""
    for _ in range(int(seconds / 0.01)):
        if condition():
            return
        mox.pump(0.01)
    raise AssertionError("it did not happen")


class Timers(NoLeaks):
    def setUp(self):
        self.timer = hub().Controls.CreateTimerObject()

    def tearDown(self):
        self.timer.StopTimer()
        self.timer = None
        super().tearDown()

    def test_a_dictionary_of_callables(self):
        seen = []
        with mox.connect(self.timer, {"timer": lambda *arguments: seen.append(arguments)}) as connection:
            self.timer.StartTimer(10)
            run_until(lambda: len(seen) >= 2)
            self.assertTrue(connection.connected)
        count = len(seen)
        self.assertEqual([events for events, _ in seen[:2]], [1, 2])
        self.assertGreaterEqual(seen[0][1], 10)
        mox.pump(0.03)
        self.assertEqual(len(seen), count, "nothing arrives behind the with block")
        self.assertFalse(connection.connected)
        connection.disconnect()

    def test_an_object_with_methods(self):
        class Handler:
            count = 0

            def Timer(self, Events, Milliseconds):
                self.count = Events

        handler = Handler()
        connection = mox.connect(self.timer, handler)
        self.timer.StartTimer(10)
        run_until(lambda: handler.count == 2)
        connection.disconnect()

    def test_a_forgotten_connection_stays_as_long_as_the_object(self):
        class Handler:
            def Timer(self, *_):
                seen.append(1)

        seen, handler = [], Handler()
        alive = weakref.ref(handler)
        mox.connect(self.timer, handler)
        del handler
        gc.collect()
        self.timer.StartTimer(10)
        run_until(lambda: seen)
        self.assertIsNotNone(alive())
        self.timer.StopTimer()
        self.timer = hub().Controls.CreateTimerObject()
        self.assertIsNone(alive())

    def test_handlers_that_end_their_connection_or_their_source(self):
        seen, connections = [], []

        def first(*_):
            seen.append("first")
            connections[0].disconnect()

        def second(*_):
            seen.append("second")
            self.timer.StopTimer()
            self.timer = hub().Controls.CreateTimerObject()

        connections.append(mox.connect(self.timer, {"Timer": first}))
        mox.connect(self.timer, {"Timer": second})
        self.timer.StartTimer(10)
        run_until(lambda: "second" in seen)
        self.assertEqual(seen, ["first", "second"])

    def test_several_handlers_and_timers(self):
        seen = []
        other = mox.create("moxTimer")
        for name, timer in (("a", self.timer), ("b", self.timer), ("c", other)):
            mox.connect(timer, {"Timer": lambda events, _, name=name: seen.append(name)})
        self.timer.StartTimer(10)
        run_until(lambda: len(seen) >= 2)
        self.assertEqual(seen[:2], ["a", "b"])
        self.assertNotIn("c", seen)

    def test_errors_in_handlers(self):
        caught, seen = [], []
        before, sys.unraisablehook = sys.unraisablehook, lambda hook: caught.append((hook.exc_type, str(hook.exc_value)))
        try:
            mox.connect(self.timer, {"Timer": lambda *_: seen.append(1) or {}["missing"]})
            mox.connect(self.timer, {"Timer": lambda one: None})
            self.timer.StartTimer(10)
            run_until(lambda: len(seen) >= 2)
        finally:
            sys.unraisablehook = before
        self.assertEqual(caught[0], (KeyError, "'missing'"))
        self.assertIs(caught[1][0], TypeError, "a handler that takes other arguments")

    def test_interrupts_end_the_message_loop(self):
        def interrupt(*_):
            raise KeyboardInterrupt

        mox.connect(self.timer, {"Timer": interrupt})
        self.timer.StartTimer(10)
        with self.assertRaises(KeyboardInterrupt):
            mox.pump(5)
        self.timer.StopTimer()
        mox.pump(0)

    def test_what_cannot_be_connected(self):
        with self.assertRaisesRegex(ValueError, "Tick"):
            mox.connect(self.timer, {"Tick": print})
        with self.assertRaisesRegex(ValueError, "Timer"):
            mox.connect(self.timer, object())
        with self.assertRaises(TypeError):
            mox.connect(self.timer, {"Timer": 5})
        self.assertEqual(error(mox.connect, hub(), {}).number, 459)
        self.assertEqual(error(mox.connect, None, {}).number, 91)
        self.assertEqual(error(mox.connect, 5, {}).number, 13)


class Sinks(TestCase):
    """What a sink does when a source of another make calls it."""

    INVOKE = Slot(
        6,
        ctypes.c_int,
        ctypes.c_void_p,
        ctypes.c_uint,
        ctypes.c_ushort,
        ctypes.c_void_p,
        ctypes.c_void_p,
        ctypes.c_void_p,
        ctypes.c_void_p,
    )

    def raise_event(self, handler, types, *variants):
        """The status and the exception text of an event whose arguments are of these types."""
        import types as _types

        function = declared("Event", 1, *((f"A{i}", type) for i, type in enumerate(types)))
        sink = _events.Sink(_types.SimpleNamespace(guid=bytes(16), content=[function]), {"Event": handler})
        arguments = (VARIANT * len(variants))(*variants[::-1])
        parameters, exception = DISPPARAMS(ctypes.addressof(arguments), None, len(variants), 0), EXCEPINFO()
        try:
            status = self.INVOKE(
                sink.address,
                1,
                ctypes.addressof(IID_NULL),
                0,
                1,
                ctypes.addressof(parameters),
                None,
                ctypes.addressof(exception),
                None,
            )
        finally:
            sink.release()
        take_text(exception.bstrSource)
        return status & 0xFFFFFFFF, take_text(exception.bstrDescription)

    @staticmethod
    def reference(vt, place):
        variant = VARIANT(vt=VT_BYREF | vt)
        variant.ptr = ctypes.addressof(place)
        return variant

    def test_by_reference_arguments(self):
        number = ctypes.c_int(5)
        text = ctypes.c_void_p(bstr_of("before"))
        array = ctypes.c_void_p(new_array([1, 2], _typelib.Type(VT_I4, True)))
        inner = VARIANT(vt=VT_I4)
        places = [
            self.reference(VT_I4, number),
            self.reference(VT_BSTR, text),
            self.reference(VT_ARRAY | VT_I4, array),
            self.reference(VT_VARIANT, inner),
        ]

        def handler(a, b, c, d):
            self.assertEqual([a.value, b.value, c.value, d.value], [5, "before", [1, 2], 0])
            a.value, b.value, d.value = "7", 8, [1, "x"]
            c.value.append(3)

        status, _ = self.raise_event(handler, [variant.vt for variant in places], *places)
        self.assertEqual((status, number.value, text_of(text.value)), (0, 7, "8"))
        self.assertEqual((read_variant(places[2]), read_variant(inner)), ([1, 2, 3], [1, "x"]))
        platform.SysFreeString(text)
        platform.SafeArrayDestroy(array)
        clear(inner)

    def test_records_by_reference(self):
        rc = mox.Record("RECT", Left=1)
        variant = VARIANT(vt=VT_BYREF | VT_RECORD)
        variant.record.pvRecord, variant.record.pRecInfo = rc._memory, rc._info

        def handler(given):
            given.value.Left += 1

        self.assertEqual(self.raise_event(handler, [variant.vt], variant)[0], 0)
        self.assertEqual(rc.Left, 2)

    def test_what_is_replaced_is_given_back(self):
        fake = FakeObject("Fake", [])
        place = ctypes.c_void_p(fake.object._pointer)
        add_ref(fake.object._pointer)  # for the place

        def handler(given):
            given.value = None

        self.assertEqual(self.raise_event(handler, [VT_BYREF | VT_DISPATCH], self.reference(VT_DISPATCH, place))[0], 0)
        self.assertEqual((place.value, fake.references), (None, 1))

    def test_failures_are_answered(self):
        hooked = []
        before, sys.unraisablehook = sys.unraisablehook, hooked.append
        number = ctypes.c_int(5)
        try:

            def bad_value(given):
                given.value = "x"

            self.assertEqual(self.raise_event(bad_value, [VT_BYREF | VT_I4], self.reference(VT_I4, number))[0], 0x80020009)
            self.assertEqual(self.raise_event(lambda: {}["missing"], []), (0x80020009, "'missing'"))
            self.assertEqual(self.raise_event(None, [])[0], 0x80020003, "nobody handles it")
        finally:
            sys.unraisablehook = before
        self.assertEqual((len(hooked), number.value), (2, 5))


THREAD_THAT_RUNS_ON = """
import threading, time
made = threading.Event()
threading.Thread(target=lambda: (mox.create("moxHub"), made.set(), time.sleep(60)), daemon=True).start()
made.wait(10)
"""


class Ends(TestCase):
    """Interpreters that end while something is connected."""

    def test_ends_without_disconnecting(self):
        timer = "t = mox.create('moxTimer'); t.StartTimer(10)\n"
        for name, code in [
            ("running timer", timer + "mox.connect(t, {'Timer': print})"),
            ("handler holds its source", timer + "mox.connect(t, {'Timer': lambda *_: t})"),
            ("exit in a handler", timer + "mox.connect(t, {'Timer': lambda *_: exit()}); mox.pump(5); print('late')"),
            ("objects in a builtin module", "import sys; sys.kept = [mox.create('moxHub'), mox.Record('RECT')]"),
            ("objects in a cycle", timer + "a = [t]; a.append(a); mox.connect(t, {'Timer': a.append})"),
            ("thread that runs on", THREAD_THAT_RUNS_ON),
        ]:
            with self.subTest(name):
                result = run_python(code)
                self.assertEqual((result.stdout, result.stderr), ("", ""))


if __name__ == "__main__":
    unittest.main()
