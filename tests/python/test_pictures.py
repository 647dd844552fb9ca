"""Fonts and pictures, pixels and image files."""
import os
import stat
import struct
import tempfile
import unittest
import zlib
from pathlib import Path

import mox

from support import NoLeaks, error


def png_pixels(path):
    """Size, bits, colour type and red, green, blue bytes of a PNG file, read without any library of ours."""
    data = Path(path).read_bytes()
    assert data[:8] == b"\x89PNG\r\n\x1a\n"
    place, packed = 8, b""
    while place < len(data):
        length, kind = struct.unpack(">I4s", data[place : place + 8])
        content = data[place + 8 : place + 8 + length]
        if kind == b"IHDR":
            width, height, bits, color = struct.unpack(">IIBB", content[:10])
        elif kind == b"IDAT":
            packed += content
        place += length + 12
    rows, step, before = zlib.decompress(packed), width * 3, bytes(width * 3)
    result = b""
    for y in range(height):
        method, row = rows[y * (step + 1)], bytearray(rows[y * (step + 1) + 1 : (y + 1) * (step + 1)])
        for i in range(step):
            left, up, corner = row[i - 3] if i >= 3 else 0, before[i], before[i - 3] if i >= 3 else 0
            nearest = min((left, up, corner), key=lambda v: abs(left + up - corner - v))
            row[i] = (row[i] + (0, left, up, (left + up) // 2, nearest)[method]) & 0xFF
        result += row
        before = bytes(row)
    return (width, height, bits, color), result


class Fonts(NoLeaks):
    def test_font(self):
        font = mox.create("StdFont")
        changes = []
        connection = mox.connect(font, {"FontChanged": changes.append})
        font.Size = 12.5
        font.Bold = True
        font.Bold = True
        self.assertEqual((font.Name, float(font.Size), font.Weight), ("MS Sans Serif", 12.5, 700))
        self.assertEqual(changes, ["Size", "Bold"])
        self.assertError(380, setattr, font, "Size", 0)
        connection.disconnect()

    def test_screen(self):
        screen = mox.create("MoxRuntime.Global").Screen
        self.assertEqual((screen.TwipsPerPixelX, screen.TwipsPerPixelY), (15, 15))
        self.assertEqual(mox.create("Screen").Width, screen.Width)


class Pictures(NoLeaks):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    rows = bytes(range(24))

    def test_pixels_go_in_and_come_out(self):
        for rows in (self.rows, bytearray(self.rows), memoryview(self.rows)):
            picture = mox.picture(3, 2, rows)
            self.assertEqual((picture.Type, picture.Width, picture.Height), (1, 79, 53))
            self.assertEqual(mox.pixels(picture), self.rows)
        self.assertEqual(mox.pixels(picture, 1, 1), self.rows[16:])
        self.assertEqual(mox.pixels(picture, 2, 0, 1, 2), self.rows[8:12] + self.rows[20:])
        self.assertIsInstance(mox.pixels(picture), bytes)

    def test_large_pictures_are_quick(self):
        size = 1500
        rows = bytes(4 * size * size)
        self.assertEqual(mox.pixels(mox.picture(size, size, rows)), rows)

    def test_what_cannot_be(self):
        picture = mox.picture(3, 2, self.rows)
        for area in ((-1, 0), (3, 0), (0, 0, 4, 1), (0, 0, 0, 0), (0, 0, 1 << 20, 1 << 20)):
            self.assertError(5, mox.pixels, picture, *area)
        for width, height in ((2, 2), (0, 0), (-3, -2), (3, 3)):
            self.assertError(5, mox.picture, width, height, self.rows)
        self.assertError(5, mox.pixels, 4711)
        self.assertError(5, mox.pixels, mox.create("StdPicture"))
        self.assertRaises(TypeError, mox.pixels, "picture")

    def test_files(self):
        picture = mox.picture(3, 2, self.rows)
        shown = bytes(0 if i % 4 == 3 else value for i, value in enumerate(self.rows))
        png = self.folder / "picture.PNG"
        mox.save_picture(picture, png)
        facts, colors = png_pixels(png)
        self.assertEqual(facts, (3, 2, 8, 2))
        self.assertEqual(colors, b"".join(self.rows[i : i + 3][::-1] for i in range(0, 24, 4)))
        self.assertEqual(mox.pixels(mox.load_picture(png)), shown)
        bmp = self.folder / "picture.bmp"
        mox.save_picture(picture, str(bmp))
        self.assertEqual(bmp.read_bytes()[:2], b"BM")
        self.assertEqual(mox.pixels(mox.load_picture(str(bmp))), self.rows)

    def test_files_are_replaced_whole(self):
        picture = mox.picture(3, 2, self.rows)
        path = self.folder / "file.bmp"
        path.write_text("what was there")
        path.chmod(0o640)
        self.assertError(5, mox.save_picture, mox.create("StdPicture"), path)
        self.assertEqual(path.read_text(), "what was there")
        mox.save_picture(picture, path)
        self.assertEqual(stat.S_IMODE(path.stat().st_mode), 0o640)
        self.assertRaises(OSError, mox.save_picture, picture, self.folder)
        self.assertRaises(OSError, mox.save_picture, picture, self.folder / "no" / "such")
        self.assertEqual(os.listdir(self.folder), ["file.bmp"])

    def test_bad_files(self):
        path = self.folder / "file.png"
        path.write_bytes(b"\x89PNG\r\n\x1a\n" + bytes(40))
        self.assertEqual(error(mox.load_picture, path).number, 481)
        self.assertRaises(FileNotFoundError, mox.load_picture, self.folder / "missing")

    def test_property_bag(self):
        bag = mox.create("PropertyBag")
        bag.WriteProperty("PictureBytes", mox.picture(3, 2, self.rows))
        bag.WriteProperty("Title", "text")
        copy = mox.create("PropertyBag")
        copy.Contents = bag.Contents
        self.assertEqual(mox.pixels(copy.ReadProperty("picturebytes")), self.rows)
        self.assertEqual(copy.ReadProperty("TITLE"), "text")
        self.assertEqual(copy.ReadProperty("none", 5), 5)
        self.assertEqual(error(copy.ReadProperty, "none").number, 327)


if __name__ == "__main__":
    unittest.main()
