"""Records: fields, equality, copies, and how members change them."""
import copy
import datetime
import pickle
import unittest

import mox
from mox import _typelib

from support import NoLeaks, TestCase, error, hub


class Records(NoLeaks):
    def test_fields(self):
        rc = mox.Record("RECT", Left=1, Bottom="4")
        rc.Top = 2.0
        rc.right = 3
        self.assertEqual((rc.Left, rc.Top, rc.Right, rc.Bottom, rc.bottom), (1, 2, 3, 4, 4))
        self.assertEqual(repr(rc), "mox.Record('RECT', Left=1, Top=2, Right=3, Bottom=4)")
        self.assertEqual(eval(repr(rc)), rc)
        self.assertIsInstance(rc, mox.RECT)
        self.assertEqual(mox.RECT(Left=1), mox.Record("rect", Left=1))

    def test_equality_is_by_type_and_fields(self):
        self.assertEqual(mox.Record("POINTAPI", X=1), mox.Record("POINTAPI", X=1))
        self.assertNotEqual(mox.Record("POINTAPI", X=1), mox.Record("POINTAPI", Y=1))
        self.assertNotEqual(mox.Record("POINTAPI"), mox.Record("Size"))
        self.assertNotEqual(mox.Record("POINTAPI"), 0)
        with self.assertRaises(TypeError):
            hash(mox.Record("POINTAPI"))

    def test_what_does_not_fit(self):
        rc = mox.Record("RECT")
        for number, argument, call in [
            (438, None, lambda: mox.Record("NoSuchRecord")),
            (438, None, lambda: mox.Record("moxHub")),
            (438, None, lambda: mox.Record("RECT", Width=1)),
            (438, None, lambda: rc.Width),
            (438, None, lambda: setattr(rc, "Width", 1)),
            (13, "Left", lambda: setattr(rc, "Left", "x")),
            (6, "Left", lambda: setattr(rc, "Left", 1 << 40)),
            (13, "Left", lambda: setattr(rc, "Left", rc)),
            (13, "Left", lambda: setattr(rc, "Left", {})),
        ]:
            self.assertError(number, call, argument=argument)
        self.assertEqual(rc, mox.Record("RECT"))
        with self.assertRaises(TypeError):
            mox.Record()

    def test_copies(self):
        rc = mox.Record("RECT", Left=1)
        for other in (copy.copy(rc), copy.deepcopy(rc), pickle.loads(pickle.dumps(rc))):
            self.assertEqual(other, rc)
            other.Left = 2
            self.assertEqual(rc.Left, 1)

    def test_members_change_them_in_place(self):
        rectangles = hub().Vars.vRect
        rc = mox.Record("RECT", Left=1, Top=2, Right=3, Bottom=4)
        rectangles.MoveRect(rc, 10)
        self.assertEqual(rc, mox.Record("RECT", Left=11, Top=2, Right=13, Bottom=4))
        reference = mox.ByRef(rc)
        rectangles.MoveRect(reference, yOff=10)
        self.assertIs(reference.value, rc)
        self.assertEqual((rc.Top, rc.Bottom), (12, 14))
        self.assertError(13, rectangles.MoveRect, mox.Record("POINTAPI"), argument="rc")
        self.assertError(13, rectangles.MoveRect, 5, argument="rc")

    def test_as_results_and_in_arrays(self):
        self.assertEqual(hub().Vars.vRect.RectFromPoints(1, 2, 3, 4), mox.Record("RECT", Left=1, Top=2, Right=3, Bottom=4))
        corners = mox.ByRef([mox.Record("POINTAPI", X=9)] * 2)
        hub().Vars.vMath.RotateRectEx(mox.Record("RECT"), 0, 0, 0, corners, mox.Record("RECT"))
        self.assertEqual(corners.value, [mox.Record("POINTAPI")] * 4)
        wrong = mox.ByRef([mox.Record("Size")])
        self.assertError(
            13, hub().Vars.vMath.RotateRectEx, mox.Record("RECT"), 0, 0, 0, wrong, mox.Record("RECT"), argument="ptRotated"
        )


class Fields(TestCase):
    """Fields of every type that records have."""

    def test_texts_dates_and_booleans(self):
        moment = datetime.datetime(2024, 2, 29, 18)
        times = mox.Record("MOX_FILEDATETIME", Created=moment)
        self.assertEqual((times.Created.datetime, times.Modified), (moment, mox.Date(0)))
        user = mox.Record("moxBiosInfo")
        texts = [field.name for field in _typelib.find_type("moxBiosInfo").content if field.type.vt == 8]
        for name in texts:
            setattr(user, name, name + "\0\xe4")
        self.assertEqual([getattr(user, name) for name in texts], [name + "\0\xe4" for name in texts])

    def test_arrays(self):
        listing = mox.Record("MOX_FS_FINDFF")
        self.assertEqual((listing.PathFileName, listing.Depth, listing.IsDirectory), ([], b"", []))
        listing.PathFileName = ["a", "b"]
        listing.Depth = [0, 1]
        listing.IsDirectory = (True, False)
        self.assertEqual((listing.PathFileName, listing.Depth, listing.IsDirectory), (["a", "b"], b"\0\1", [True, False]))
        listing.PathFileName = []
        self.assertEqual(listing.PathFileName, [])
        self.assertEqual(error(setattr, listing, "Depth", [300]).number, 6)
        self.assertEqual(copy.deepcopy(listing), listing)

    def test_records_inside_records_are_the_same_memory(self):
        nested = [
            (entry.name, field.name)
            for library in _typelib.libraries()
            for entry in library.records
            for field in entry.content
            if field.type.record and not field.type.array
        ]
        self.assertTrue(nested)
        for name, field in nested:
            with self.subTest(f"{name}.{field}"):
                outer = mox.Record(name)
                inner = getattr(outer, field)
                first, one, two = _changeable(inner)
                setattr(inner, first, one)
                del outer
                self.assertEqual(getattr(inner, first), one, "the part keeps the whole")
                outer = mox.Record(name, **{field: inner})
                self.assertEqual(getattr(outer, field), inner)
                setattr(getattr(outer, field), first, two)
                self.assertEqual((getattr(getattr(outer, field), first), getattr(inner, first)), (two, one))

    def test_all_records_can_be_made(self):
        for library in _typelib.libraries():
            for entry in library.records:
                record = mox.Record(entry.name)
                self.assertEqual(copy.copy(record), record, entry.name)


def _changeable(record):
    """A field of plain numbers or text, and two values for it."""
    for name in record._fields:
        value = getattr(record, name)
        if type(value) is str:
            return name, "one", "two"
        if type(value) in (int, float):
            return name, 1, 2
    raise AssertionError(f"{record!r} has neither numbers nor texts")


if __name__ == "__main__":
    unittest.main()
