"""The registry: settings through the library, and values past it."""
import sys
import tempfile
import unittest

import mox

from support import NoLeaks, TestCase, run

KEY = "Software\\Python\\Test"
USER = mox.HKEY_CURRENT_USER


class Values(NoLeaks):
    def test_types_and_bytes(self):
        for type, data in [
            (mox.registry.NONE, b""),
            (mox.registry.SZ, b"text"),
            (mox.registry.SZ, b"text\0"),
            (mox.registry.BINARY, bytes(range(256))),
            (mox.registry.DWORD, b"\xff\0\0\0"),
            (mox.registry.MULTI_SZ, b"one\0two\0\0"),
            (0xFFFFFFFF, b"x"),
        ]:
            with self.subTest(type=type, data=data):
                mox.registry.set(USER, KEY, "Value", type, data)
                self.assertEqual(mox.registry.get(USER, KEY.upper(), "vALUE"), (type, data))
        self.assertIsNone(mox.registry.get(USER, KEY, "None"))
        self.assertIsNone(mox.registry.get("HKEY_CURRENT_USER", KEY + "\\None", ""))

    def test_the_library_sees_them(self):
        registry = mox.create("moxHub").System.Registry
        mox.registry.set(USER, KEY, "Number", mox.registry.DWORD, b"\xff\0\0\0")
        mox.registry.set("HKEY_CURRENT_USER", KEY, "Raw", mox.registry.BINARY, b"\x01\xab")
        self.assertEqual(registry.extGetKeyValue(USER, KEY, "Number"), "000000FF")
        self.assertEqual(registry.extGetKeyValue(USER, KEY, "Raw"), "01AB")
        self.assertTrue(registry.SaveSetting("Python", "Test", "", "Setting", "Z\u00fcrich"))
        self.assertEqual(mox.registry.get(USER, KEY, "setting"), (mox.registry.SZ, b"Z\xfcrich"))
        self.assertEqual(registry.GetSetting("Python", "Test", "", "SETTING", "none"), "Z\u00fcrich")

    def test_what_is_refused(self):
        with self.assertRaises(ValueError):
            mox.registry.get(7, KEY, "x")
        for root, key, type, hresult in [
            ("HKEY_NONE", KEY, 1, 0x80070057),
            (USER, KEY, -1, 0x80070057),
            (USER, KEY, 1 << 32, 0x80070057),
            (USER, "x" * 256, 1, 0x80004005),
            (mox.HKEY_DYN_DATA, KEY, 1, 0x80004005),
        ]:
            with self.subTest(root=root, type=type), self.assertRaises(mox.Error) as raised:
                mox.registry.set(root, key, "x", type, b"")
            self.assertEqual(raised.exception.hresult, hresult)


class Processes(TestCase):
    def test_one_process_after_the_other(self):
        with tempfile.TemporaryDirectory() as home:
            start = f"import mox\nmox.machine(home={home!r})\nregistry = mox.create('moxHub').System.Registry\n"
            run([sys.executable, "-c", start + "assert registry.SaveSetting('P', 'A', 'S', 'Key', 'kept')"])
            result = run([sys.executable, "-c", start + "print(registry.GetSetting('p', 'a', 's', 'KEY', 'lost'))"])
            self.assertEqual(result.stdout.strip(), "kept")


if __name__ == "__main__":
    unittest.main()
