"""Values between Python and variants, and the classes for values that Python has no type for."""
import array
import copy
import ctypes
import datetime
import decimal
import fractions
import pickle
import unittest

import mox
from mox import _typelib
from mox._abi import (
    SAFEARRAYBOUND,
    VARIANT,
    VT_ARRAY,
    VT_BOOL,
    VT_BSTR,
    VT_CY,
    VT_DATE,
    VT_DECIMAL,
    VT_DISPATCH,
    VT_EMPTY,
    VT_I2,
    VT_I4,
    VT_I8,
    VT_NULL,
    VT_R4,
    VT_R8,
    VT_UI1,
    VT_VARIANT,
)
from mox._platform import platform
from mox._variant import clear, convert, read_variant, write

from support import TestCase, error

D = decimal.Decimal


def through(value, vt=VT_VARIANT, is_array=False):
    """A value in a variant for an argument of a declared type: its variant type, and the value that comes out again."""
    variant = VARIANT()
    try:
        write(variant, value, _typelib.Type(vt, is_array))
        return variant.vt, read_variant(variant)
    finally:
        clear(variant)


def as_type(value, vt):
    """A value after the platform's own conversion to another type."""
    variant = VARIANT()
    try:
        write(variant, value)
        convert(variant, vt)
        return read_variant(variant)
    finally:
        clear(variant)


class Variants(TestCase):
    def test_values_and_their_variant_types(self):
        noon = datetime.datetime(2024, 2, 29, 12)
        for value, vt, result in [
            (None, VT_EMPTY, None),
            (True, VT_BOOL, True),
            (False, VT_BOOL, False),
            (0, VT_I4, 0),
            (0x7FFFFFFF, VT_I4, 0x7FFFFFFF),
            (-0x80000000, VT_I4, -0x80000000),
            (0x80000000, VT_I8, 0x80000000),
            (-(1 << 63), VT_I8, -(1 << 63)),
            (1 << 63, VT_R8, float(1 << 63)),
            (mox.suINCH, VT_I4, 5),
            (1.5, VT_R8, 1.5),
            (fractions.Fraction(1, 4), VT_R8, 0.25),
            ("", VT_BSTR, ""),
            ("a\0\ud800\U0001F600\xe4", VT_BSTR, "a\0\ud800\U0001F600\xe4"),
            (noon, VT_DATE, mox.Date(noon)),
            (datetime.date(1899, 12, 30), VT_DATE, mox.Date(0)),
            (mox.Date(2.25), VT_DATE, mox.Date(2.25)),
            (D("1.50"), VT_DECIMAL, D("1.50")),
            (D("-0.0000000000000000000000000001"), VT_DECIMAL, D("-1E-28")),
            (D(79228162514264337593543950335), VT_DECIMAL, D(79228162514264337593543950335)),
            (D("12E3"), VT_DECIMAL, D(12000)),
            (b"\0\xff", VT_ARRAY | VT_UI1, b"\0\xff"),
            (bytearray(b"x"), VT_ARRAY | VT_UI1, b"x"),
            (memoryview(b"xy"), VT_ARRAY | VT_UI1, b"xy"),
            ([], VT_ARRAY | VT_VARIANT, []),
            ((1, "x", [True, None]), VT_ARRAY | VT_VARIANT, [1, "x", [True, None]]),
            (range(3), VT_ARRAY | VT_VARIANT, [0, 1, 2]),
        ]:
            with self.subTest(repr(value)):
                self.assertEqual(through(value), (vt, result))
                self.assertIs(type(through(value)[1]), type(result))

    def test_decimals_are_rounded_to_what_there_is_room_for(self):
        for value, result in [
            (D(1) / D(3), D("0.3333333333333333333333333333")),
            (D("1E-40"), D(0)),
            (D("0.99999999999999999999999999999"), D(1)),
            (D("79228162514264337593543950334.6"), D(79228162514264337593543950335)),
        ]:
            self.assertEqual(through(value), (VT_DECIMAL, result), value)
        self.assertEqual(error(through, D(1 << 96)).number, 6)
        self.assertEqual(error(through, D("NaN")).number, 13)

    def test_currency_has_four_decimals(self):
        for value, result in [
            (D("12.34565"), D("12.3456")),
            (D("-0.00015"), D("-0.0002")),
            (D("922337203685477.5807"), D("922337203685477.5807")),
        ]:
            self.assertEqual(through(value, VT_CY), (VT_CY, result))
        self.assertEqual(error(through, D("922337203685477.5808"), VT_CY).number, 6)

    def test_nothing(self):
        self.assertEqual(through(None, VT_DISPATCH), (VT_DISPATCH, None))
        self.assertEqual(through(None, VT_I4), (VT_DISPATCH, None), "the callee refuses it")
        self.assertEqual(through(None, VT_I4, is_array=True), (VT_EMPTY, None))
        self.assertIsNone(read_variant(VARIANT(vt=VT_NULL)))

    def test_what_cannot_be_passed(self):
        for value in (object(), {}, {1}, 1j, type, mox.ByRef(1), [object()]):
            with self.subTest(repr(value)):
                self.assertIsInstance(error(through, value), TypeError)


class Arrays(TestCase):
    def test_elements_have_the_declared_type(self):
        for values, vt, result in [
            ([1, -2], VT_I2, [1, -2]),
            ([1, 2.5, "3", True], VT_I4, [1, 2, 3, -1]),
            ([1, 2.5], VT_R4, [1.0, 2.5]),
            (array.array("d", [1, 2]), VT_R8, [1.0, 2.0]),
            ([0, 255], VT_UI1, b"\0\xff"),
            (b"ab", VT_I4, [97, 98]),
            (["a", 5], VT_BSTR, ["a", "5"]),
            ([True, 0, 2], VT_BOOL, [True, False, True]),
            ([1.5, datetime.date(1900, 1, 1)], VT_DATE, [1.5, 2.0]),
            ([D("1.5"), 2], VT_CY, [D("1.5"), D(2)]),
            ([D("1.5"), 2], VT_DECIMAL, [D("1.5"), D(2)]),
            ([None], VT_DISPATCH, [None]),
            ([], VT_BSTR, []),
            ([], VT_UI1, b""),
        ]:
            with self.subTest(f"{values!r} as {vt}"):
                got, after = through(values, vt, is_array=True)
                self.assertEqual((got, after), (VT_ARRAY | vt, result))

    def test_an_element_that_does_not_fit_fails_the_whole(self):
        for values, vt, number in [
            ([1, 70000], VT_I2, 6),
            ([-1], VT_UI1, 6),
            ([1, "x"], VT_I4, 13),
            ([1e300], VT_R4, 6),
            ([1, None], VT_R8, 13),
            ([{}], VT_BSTR, 13),
        ]:
            with self.subTest(f"{values!r} as {vt}"):
                self.assertEqual(error(through, values, vt, True).number, number)

    def test_lower_bounds(self):
        for value, vt in ((mox.Array([1, 2], lower=-3), VT_I4), (mox.ByteArray(b"ab", lower=1), VT_UI1)):
            after = through(value, vt, is_array=True)[1]
            self.assertEqual((after, after.lower, type(after)), (value, value.lower, type(value)))
            for other in (copy.copy(value), pickle.loads(pickle.dumps(value)), eval(repr(value))):
                self.assertEqual((other, other.lower), (value, value.lower))
        self.assertIs(type(through(mox.Array([1]), VT_I4, is_array=True)[1]), list)

    def test_more_dimensions_than_one(self):
        bounds = (SAFEARRAYBOUND * 2)(SAFEARRAYBOUND(2, 1), SAFEARRAYBOUND(3, 0))
        variant = VARIANT(vt=VT_ARRAY | VT_I4)
        variant.ptr = platform.SafeArrayCreate(VT_I4, 2, bounds)
        place = platform.SafeArrayPutElement
        for i in range(1, 3):
            for j in range(3):
                number = ctypes.c_int(10 * i + j)
                self.assertEqual(place(ctypes.c_void_p(variant.ptr), (ctypes.c_int * 2)(i, j), ctypes.byref(number)), 0)
        values = read_variant(variant)
        clear(variant)
        self.assertEqual((values, values.lower), ([[10, 11, 12], [20, 21, 22]], 1))


class Dates(TestCase):
    def test_days_and_times(self):
        for days, moment in [
            (0.0, datetime.datetime(1899, 12, 30)),
            (45351.75, datetime.datetime(2024, 2, 29, 18)),
            (2.5, datetime.datetime(1900, 1, 1, 12)),
            (-1.25, datetime.datetime(1899, 12, 29, 6)),
            (-2.0, datetime.datetime(1899, 12, 28)),
            (-657434.0, datetime.datetime(100, 1, 1)),
        ]:
            with self.subTest(moment):
                self.assertEqual(mox.Date(days).datetime, moment)
                self.assertEqual(mox.Date(moment), days)

    def test_the_platform_reads_them_alike(self):
        for text, moment in (
            ("1/2/1999 3:04:05 AM", datetime.datetime(1999, 1, 2, 3, 4, 5)),
            ("12/29/1899 6:00:00 AM", datetime.datetime(1899, 12, 29, 6)),
        ):
            self.assertEqual(as_type(text, VT_DATE).datetime.replace(microsecond=0), moment)

    def test_time_zones_become_local_time(self):
        here = datetime.datetime(2024, 6, 1, 12)
        self.assertEqual(mox.Date(here.astimezone(datetime.timezone.utc)).datetime, here)

    def test_it_is_a_number(self):
        self.assertEqual(
            (mox.Date(1.5) + 1, repr(mox.Date(1.5)), str(mox.Date(1.5))), (2.5, "mox.Date(1.5)", "1899-12-31 12:00:00")
        )
        self.assertEqual(str(mox.Date(1e9)), "mox.Date(1000000000.0)")


class Enums(TestCase):
    def test_classes_and_values(self):
        unit = mox.enums.MOX_SCALEUNIT
        self.assertEqual(
            [(value.name, int(value)) for value in unit],
            [("suTWIP", 1), ("suPOINTS", 2), ("suPIXEL", 3), ("suINCH", 5), ("suMM", 6), ("suCM", 7)],
        )
        self.assertIs(mox.suINCH, unit.suINCH)
        self.assertIs(mox.moxext_ProcessID, mox.enums.MOX_EXTENSION_INFO(0), "a value of 0 too")
        self.assertIs(pickle.loads(pickle.dumps(mox.suCM)), mox.suCM)
        self.assertIn("MOX_SCALEUNIT", dir(mox.enums))
        self.assertLess({"suINCH", "vbKeyA", "create"}, set(dir(mox)))
        self.assertFalse(hasattr(mox.enums, "moxHub") or hasattr(mox.enums, "mox_scaleunit") or hasattr(mox, "suinch"))

    def test_names_that_are_no_identifiers(self):
        sound = mox.enums.SYS_SPECIALSOUND
        self.assertIs(sound["!Stopp Playing"], sound._Stopp_Playing)
        self.assertEqual(sound["!Stopp Playing"], 0)

    def test_enums_of_the_run_time_objects(self):
        self.assertEqual((mox.vbKeyA, mox.enums.DrawModeConstants.vbCopyPen), (65, 13))

    def test_names_are_unique_in_the_package(self):
        names = [value.name for library in _typelib.libraries() for entry in library.enums for value in entry.content]
        names += [entry.name for library in _typelib.libraries() for entry in library.classes + library.records]
        self.assertEqual(len(names), len(set(names)))
        self.assertEqual(set(names) & set(vars(mox)), set())


if __name__ == "__main__":
    unittest.main()
