"""Reading, setting and calling members; arguments by position, by name, left out, by reference."""
import ctypes
import unittest

import mox
from mox._abi import (
    E_NOINTERFACE,
    GUID,
    IID_ENUM_VARIANT,
    VARIANT,
    VT_UNKNOWN,
    signed,
    DISPATCH_GET,
    DISPATCH_METHOD,
    DISPATCH_PUT,
    DISPATCH_PUTREF,
    DISPID_NEWENUM,
    DISPID_PROPERTYPUT,
    VT_BOOL,
    VT_BSTR,
    VT_BYREF,
    VT_DISPATCH,
    VT_EMPTY,
    VT_ERROR,
    VT_I4,
    VT_R8,
    VT_VARIANT,
)
from mox._variant import write

from support import Call, FakeObject, NoLeaks, TestCase, declared, error, hub


class Reading(NoLeaks):
    def test_objects_know_their_class(self):
        for name in ("moxHub", "MOXHUB", "TRL_OBKR_MOX.moxHub", "{61380ADE-4B65-4141-888C-A1048D037772}"):
            self.assertEqual(repr(mox.create(name)), "<mox.moxHub>", name)
        self.assertEqual(type(hub().Vars.vLong).__name__, "moxVarLong")
        self.assertIsInstance(hub().Vars, mox.moxVars)

    def test_a_property_without_arguments_is_its_value(self):
        timer = mox.create("moxTimer")
        self.assertEqual((timer.MinInterval, timer.MaxInterval, timer.Running, timer.Tag), (10, 2147483647, False, ""))

    def test_a_property_with_arguments_is_called_or_indexed(self):
        info = hub().ExtensionInfo
        self.assertEqual(repr(info), "<property moxHub.ExtensionInfo>")
        for value in (info(20), info[20], info(eInfo=20), info[mox.moxext_VersionMajor]):
            self.assertEqual(value, 8)
        with self.assertRaises(TypeError):
            iter(info)

    def test_names_are_blind_to_case(self):
        self.assertEqual(hub().vars.VLONG.minmax(5, minvalue=7), 7)
        timer = mox.create("moxTimer")
        timer.tAG = "x"
        self.assertEqual(timer.Tag, "x")

    def test_default_members(self):
        shared = mox.create("moxHubGlobal")
        self.assertEqual(shared(), shared.mox)

    def test_what_is_no_member(self):
        root = hub()
        self.assertFalse(hasattr(root, "Nothing"))
        self.assertEqual(getattr(root, "Nothing", 3), 3)
        with self.assertRaises(AttributeError) as caught:
            root.Nothing
        self.assertEqual((caught.exception.number, caught.exception.hresult), (438, 0x80020006))
        self.assertIn("Nothing", str(caught.exception))

    def test_listing_and_help(self):
        vLong = hub().Vars.vLong
        self.assertLess({"GetLoWord", "MinMax", "SwapEndian", "put"}, set(dir(vLong)))
        self.assertNotIn("mox", dir(mox.create("moxHubGlobal")), "hidden members are not listed")
        self.assertIn("held to MinValue and MaxValue", vLong.MinMax.__doc__)
        self.assertIn("Optional MinValue As Long = -2147483647", vLong.MinMax.__doc__)
        self.assertIn("fact about the running library", hub().ExtensionInfo.__doc__)
        import inspect

        self.assertEqual(
            str(inspect.signature(vLong.MinMax)),
            "(LongValue: int, MinValue: int = -2147483647, MaxValue: int = 2147483647) -> int",
        )
        self.assertEqual(str(inspect.signature(hub().ExtensionInfo)), "(eInfo: MOX_EXTENSION_INFO) -> Any")

    def test_every_class_has_help(self):
        import pydoc

        from mox import _typelib

        for library in _typelib.libraries():
            for entry in library.classes:
                text = pydoc.plain(pydoc.render_doc(getattr(mox, entry.name)))
                for function in (function for function in entry.content[0].content if not function.hidden):
                    self.assertIn(function.help, text, entry.name)

    def test_objects_are_equal_if_they_are_the_same(self):
        root = hub()
        number = root.Vars.vObject.PointerFromObject(root.Vars)
        same = root.Vars.vObject.ObjectFromPointer(number)
        self.assertEqual(same, root.Vars)
        self.assertEqual(len({same, root.Vars, root}), 2)
        self.assertNotEqual(root, hub())
        self.assertNotEqual(root, 1)

    def test_objects_are_not_made_or_copied_by_python(self):
        import copy

        with self.assertRaises(TypeError):
            mox.moxHub()
        with self.assertRaises(TypeError):
            copy.copy(hub())


class Arguments(NoLeaks):
    def test_by_position_by_name_and_left_out(self):
        vLong = hub().Vars.vLong
        self.assertEqual(vLong.MinMax(50), 50)
        self.assertEqual(vLong.MinMax(50, 1, 10), 10)
        self.assertEqual(vLong.MinMax(50, MaxValue=10), 10)
        self.assertEqual(vLong.MinMax(MaxValue=10, LongValue=50), 10)
        self.assertEqual(vLong.MinMax(-50, MinValue=-10), -10)

    def test_arguments_that_do_not_fit(self):
        vLong = hub().Vars.vLong
        cases = [
            ("unknown name", 448, "Least", lambda: vLong.MinMax(5, Least=1)),
            ("given twice", 448, "LongValue", lambda: vLong.MinMax(5, LongValue=1)),
            ("required one missing", 449, "LongValue", lambda: vLong.MinMax()),
            ("required one missing behind a named one", 449, "LongValue", lambda: vLong.MinMax(MinValue=1)),
            ("too many", 450, None, lambda: vLong.MinMax(1, 2, 3, 4)),
            ("too large for Long", 6, "LongValue", lambda: vLong.MinMax(1 << 40)),
            ("too large for any", 6, "LongValue", lambda: vLong.MinMax(1 << 5000)),
            ("too large for Integer", 6, "HiWord", lambda: vLong.MakeDWord(1, 70000)),
            ("no number", 13, "MinValue", lambda: vLong.MinMax(1, "x")),
            ("Nothing for a number", 13, "LongValue", lambda: vLong.MinMax(None)),
            ("array for a number", 13, "LongValue", lambda: vLong.MinMax([1])),
            ("object for a number", 13, "LongValue", lambda: vLong.MinMax(vLong)),
            ("Python object", 13, "LongValue", lambda: vLong.MinMax(object())),
            ("number for an object", 13, "cObject", lambda: hub().Vars.vObject.PointerFromObject(5)),
            ("Python object for an object", 13, "cObject", lambda: hub().Vars.vObject.PointerFromObject(object())),
            ("reference that does not convert", 13, "LngB", lambda: vLong.SwapValues(mox.ByRef(1), mox.ByRef("x"))),
        ]
        for name, number, argument, call in cases:
            with self.subTest(name):
                caught = self.assertError(number, call, argument=argument)
                self.assertEqual(isinstance(caught, TypeError), number == 13)
                if argument:
                    self.assertIn(argument, str(caught))
        self.assertEqual(vLong.MinMax(5), 5, "calls go on as before")

    def test_values_by_reference(self):
        values = hub().Vars
        one, two = mox.ByRef(1), mox.ByRef(2)
        values.vLong.SwapValues(one, LngB=two)
        self.assertEqual((one.value, two.value), (2, 1))
        flags = mox.ByRef(0)
        values.vLong.SetBit(flags, 31, True)
        self.assertEqual(flags.value, -0x80000000)
        text, number = mox.ByRef("a\0b"), mox.ByRef(5)
        values.vString.StringSwap(text, number)
        self.assertEqual((text.value, number.value), ("5", "a\0b"), "converted to the declared type on the way in")
        self.assertEqual(values.ConvertUnit(mox.ByRef(1), mox.ByRef(mox.suINCH), mox.suTWIP), 1440)

    def test_plain_values_for_references(self):
        self.assertIsNone(hub().Vars.vLong.SwapValues(1, 2))

    def test_objects_and_arrays_to_come(self):
        root = hub()
        self.assertEqual(root.Vars.vObject.PointerFromObject(mox.ByRef(None)), 0)
        corners, bounds = mox.ByRef([]), mox.Record("RECT")
        root.Vars.vMath.RotateRectEx(mox.Record("RECT", Right=10, Bottom=20), 0, 0, 0, corners, bounds)
        self.assertEqual(len(corners.value), 4)
        self.assertEqual(corners.value[2], mox.Record("POINTAPI", X=10, Y=20))
        self.assertEqual(bounds, mox.Record("RECT", Right=10, Bottom=20))


class Setting(NoLeaks):
    def test_put_converts_as_the_member_wants(self):
        timer = mox.create("moxTimer")
        for value, text in (("a\0b", "a\0b"), (5, "5"), (True, "True"), (1.5, "1.5")):
            timer.Tag = value
            self.assertEqual(timer.Tag, text)

    def test_what_cannot_be_set(self):
        root, timer = hub(), mox.create("moxTimer")
        cases = [
            ("property that can only be read", lambda: setattr(timer, "MinInterval", 1)),
            ("method", lambda: setattr(timer, "StopTimer", 1)),
            ("no member", lambda: setattr(timer, "Nothing", 1)),
            ("with an index", lambda: root.ExtensionInfo.__setitem__(1, 2)),
            ("by put", lambda: root.put("ExtensionInfo", 1, 2)),
        ]
        for name, call in cases:
            with self.subTest(name):
                self.assertIsInstance(self.assertError(438, call), AttributeError)


class Wire(TestCase):
    """What Invoke gets, seen by an object of another make."""

    def setUp(self):
        self.fake = FakeObject(
            "Fake",
            [
                declared("Name", DISPATCH_GET, ("Index", VT_I4), ("Kind", VT_BSTR, "optional"), result=VT_BSTR),
                declared("Name", DISPATCH_PUT, ("Index", VT_I4), ("Kind", VT_BSTR, "optional"), ("value", VT_R8)),
                declared("Owner", DISPATCH_GET, id=2, result=VT_DISPATCH),
                declared("Owner", DISPATCH_PUT, ("value", VT_DISPATCH), id=2),
                declared("Owner", DISPATCH_PUTREF, ("value", VT_DISPATCH), id=2),
                declared("Target", DISPATCH_PUTREF, ("value", VT_DISPATCH), id=3),
                declared(
                    "Run",
                    DISPATCH_METHOD,
                    ("A", VT_I4, "optional"),
                    ("B", VT_VARIANT, "optional"),
                    ("C", VT_BOOL, "optional"),
                    id=4,
                ),
                declared("Change", DISPATCH_METHOD, ("A", VT_BYREF | VT_VARIANT), ("B", VT_BYREF | VT_I4), id=5),
                declared("Item", DISPATCH_GET, ("Index", VT_VARIANT), id=0, result=VT_I4),
                declared("Item", DISPATCH_PUT, ("Index", VT_VARIANT), ("value", VT_I4), id=0),
            ],
        )
        self.object = self.fake.object

    def assertCalled(self, *expected):
        self.assertEqual(self.fake.calls, [Call(*expected)])
        self.fake.calls.clear()

    def test_put_with_arguments(self):
        put = [DISPID_PROPERTYPUT]
        self.object.Name[3] = 1.5
        self.assertCalled(1, DISPATCH_PUT, [(VT_I4, 3), (VT_R8, 1.5)], put)
        self.object.Name[3, "x"] = 1.5
        self.assertCalled(1, DISPATCH_PUT, [(VT_I4, 3), (VT_BSTR, "x"), (VT_R8, 1.5)], put)
        self.object.put("name", 3, 1.5)
        self.assertCalled(1, DISPATCH_PUT, [(VT_I4, 3), (VT_R8, 1.5)], put)
        self.object.put("Name", 1.5, Kind="x")
        self.assertCalled(1, DISPATCH_PUT, [(VT_ERROR, None), (VT_BSTR, "x"), (VT_R8, 1.5)], put)
        self.object.Name = 1.5
        self.assertCalled(1, DISPATCH_PUT, [(VT_R8, 1.5)], put)
        self.assertError(449, self.object.put, "Name", argument="value")
        self.assertError(450, self.object.put, "Name", 1, "x", 2, 1.5)

    def test_objects_are_set_by_reference_where_that_is_there(self):
        put = [DISPID_PROPERTYPUT]
        self.object.Owner = self.object
        self.assertCalled(2, DISPATCH_PUTREF, [(VT_DISPATCH, self.object)], put)
        self.object.Owner = None
        self.assertCalled(2, DISPATCH_PUTREF, [(VT_DISPATCH, None)], put)
        self.object.Owner = 5
        self.assertCalled(2, DISPATCH_PUT, [(VT_I4, 5)], put)
        self.object.Target = 5
        self.assertCalled(3, DISPATCH_PUTREF, [(VT_I4, 5)], put)

    def test_arguments_before_a_named_one_are_marked_as_left_out(self):
        self.object.Run(C=True)
        self.assertCalled(4, DISPATCH_METHOD, [(VT_ERROR, None), (VT_ERROR, None), (VT_BOOL, True)], [])
        self.object.Run(1, None)
        self.assertCalled(4, DISPATCH_METHOD, [(VT_I4, 1), (VT_EMPTY, None)], [])

    def test_references_have_the_declared_type(self):
        self.object.Change(mox.ByRef("x"), mox.ByRef("7"))
        self.assertCalled(5, DISPATCH_METHOD, [(VT_BYREF | VT_VARIANT, "x"), (VT_BYREF | VT_I4, 7)], [])

    def test_what_cannot_be_read_is_asked_all_the_same(self):
        self.fake.answer = lambda result, exception, bad: 0x80020003
        self.assertError(438, lambda: self.object.Target)
        self.assertCalled(3, DISPATCH_GET, [], [])

    def test_default_member(self):
        self.object(2)
        self.assertCalled(0, DISPATCH_GET, [(VT_I4, 2)], [])
        self.object["x"] = 2
        self.assertCalled(0, DISPATCH_PUT, [(VT_BSTR, "x"), (VT_I4, 2)], [DISPID_PROPERTYPUT])

    def test_enumeration(self):
        enumerator = FakeEnumerator([1, "x", None])
        fake = FakeObject("Collection", [declared("_NewEnum", DISPATCH_GET, id=DISPID_NEWENUM, result=VT_UNKNOWN)])

        def answer(result, exception, bad):
            result.vt, result.ptr = VT_UNKNOWN, enumerator.give()
            return 0

        fake.answer = answer
        self.assertEqual(list(fake.object), [1, "x", None])
        self.assertEqual(next(iter(fake.object)), 1)
        self.assertEqual(enumerator.references, 0)

    def test_a_call_inside_a_call(self):
        def answer(result, exception, bad):
            level = self.fake.calls[-1].arguments[0][1]
            inner = self.object.Name(level + 1, "x" * level) if level < 5 else 0
            result.vt, result.lVal = VT_I4, inner + level
            return 0

        self.fake.answer = answer
        self.assertEqual(self.object.Name(1), 1 + 2 + 3 + 4 + 5)
        self.assertEqual([call.arguments[0][1] for call in self.fake.calls], [1, 2, 3, 4, 5])

    def test_references_are_given_back(self):
        self.object.Owner = self.object
        self.object.Run(B=[self.object, self.object])
        self.fake.calls.clear()
        self.assertEqual(self.fake.references, 1)
        self.object = self.fake.object = None
        self.assertEqual(self.fake.references, 0)


class FakeEnumerator:
    """An IEnumVARIANT of another make."""

    def __init__(self, values):
        self.references = 0
        self._values = values
        pointer = ctypes.c_void_p
        self._callbacks = [
            ctypes.CFUNCTYPE(ctypes.c_int, pointer, ctypes.POINTER(GUID), ctypes.POINTER(pointer))(self._query),
            ctypes.CFUNCTYPE(ctypes.c_uint, pointer)(lambda this: self._count(1)),
            ctypes.CFUNCTYPE(ctypes.c_uint, pointer)(lambda this: self._count(-1)),
            ctypes.CFUNCTYPE(ctypes.c_int, pointer, ctypes.c_uint, ctypes.POINTER(VARIANT), ctypes.POINTER(ctypes.c_uint))(
                self._next
            ),
        ]
        addresses = [ctypes.cast(callback, pointer).value for callback in self._callbacks]
        self._table = (pointer * 7)(*addresses, *[None] * 3)
        self._memory = (pointer * 1)(ctypes.addressof(self._table))

    def give(self):
        """The pointer with a reference, from the first value on."""
        self._rest = list(self._values)
        self.references += 1
        return ctypes.addressof(self._memory)

    def _count(self, step):
        self.references += step
        return self.references

    def _query(self, this, iid, result):
        known = bytes(iid.contents) == bytes(IID_ENUM_VARIANT)
        self.references += known
        result[0] = this if known else None
        return 0 if known else signed(E_NOINTERFACE)

    def _next(self, this, count, result, fetched):
        if not self._rest:
            return 1
        write(result.contents, self._rest.pop(0))
        return 0


class Failures(TestCase):
    """From what Invoke answers to an error."""

    def setUp(self):
        self.fake = FakeObject("Fake", [declared("Run", DISPATCH_METHOD, ("A", VT_I4), ("B", VT_I4, "optional"))])

    def failing(self, status, bad_argument=None, code=0, scode=0, description=None):
        from mox._platform import bstr_of

        def answer(result, exception, bad):
            if bad_argument is not None:
                bad[0] = bad_argument
            exception.wCode, exception.scode = code, scode - (1 << 32) if scode else 0
            exception.bstrDescription = bstr_of(description) if description else None
            return status

        self.fake.answer = answer
        return error(self.fake.object.Run, 1, 2)

    def test_numbers(self):
        for status, bad, number, argument in [
            (0x80020005, 0, 13, "B"),
            (0x80020005, 1, 13, "A"),
            (0x8002000A, 1, 6, "A"),
            (0x8002000B, None, 9, None),
            (0x80020003, None, 438, None),
            (0x80020006, None, 438, None),
            (0x80020004, None, 448, None),
            (0x8002000E, None, 450, None),
            (0x800A005B, None, 91, None),
            (0x800A01C5, None, 453, None),
            (0x80004001, None, 445, None),
            (0x80004005, None, 0x80004005, None),
        ]:
            with self.subTest(f"{status:08X}"):
                caught = self.failing(status, bad)
                self.assertEqual((caught.number, caught.hresult, caught.argument), (number, status, argument))
                self.assertTrue(caught.description)

    def test_exceptions_of_the_member(self):
        caught = self.failing(0x80020009, scode=0x800A0009, description="no such place")
        self.assertEqual((caught.number, caught.hresult, caught.description), (9, 0x800A0009, "no such place"))
        caught = self.failing(0x80020009, code=1004, description="own number")
        self.assertEqual((caught.number, caught.description), (1004, "own number"))
        caught = self.failing(0x80020009, scode=0x80004005)
        self.assertEqual((caught.number, caught.hresult), (0x80004005, 0x80004005))

    def test_a_failure_leaves_nothing_for_the_next_one(self):
        self.failing(0x80020005, 0)
        self.assertIsNone(self.failing(0x80020005).argument)
        self.failing(0x80020009, code=1004, scode=0x800A0009, description="first")
        self.fake.answer = lambda result, exception, bad: 0x80020009
        caught = error(self.fake.object.Run, 1)
        self.assertEqual((caught.number, caught.description), (0x80004005, "Automation error 0x80004005"))

    def test_an_error_survives_pickling(self):
        import pickle

        before = self.failing(0x80020005, 0)
        after = pickle.loads(pickle.dumps(before))
        self.assertEqual((type(after), vars(after)), (type(before), vars(before)))


if __name__ == "__main__":
    unittest.main()
