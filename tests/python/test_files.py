"""Files, folders and searches as late-bound clients reach them, on real folders."""
import os
import sys
import tempfile
import unittest
from datetime import datetime
from pathlib import Path

import mox
from support import ROOT, hub, run


def drive_path(path):
    return "Z:" + str(path).replace("/", "\\")


class Files(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.disk = Path(os.path.realpath(folder.name))
        self.folder = drive_path(self.disk)
        self.fs = hub().FileSystem

    def test_listing_is_a_record_of_lists(self):
        (self.disk / "sub").mkdir()
        (self.disk / "sub" / "file.txt").touch()
        listing = self.fs.GetFolderAndFiles(self.folder, bSearchInSubFolders=True)
        self.assertEqual(listing.Count, 3)
        self.assertEqual(listing.IsDirectory, [True, True, False])
        self.assertEqual(listing.PathFileName, [self.folder + "\\", self.folder + "\\sub\\", "file.txt"])
        self.assertEqual(listing.Extension[2], "txt")
        self.assertEqual(bytes(listing.Depth), b"\0\1\1")
        self.assertEqual(self.fs.FindFile("FILE.*", self.folder, True), self.folder + "\\sub\\file.txt")

    def test_times_are_dates(self):
        path = self.disk / "x"
        path.touch()
        when = datetime(2011, 5, 17, 12, 30, 1)
        times = mox.Record("MOX_FILEDATETIME", Created=when, LastAccess=when, Modified=when)
        self.assertTrue(self.fs.File.SetDateTime(drive_path(path), times))
        self.assertEqual(self.fs.File.GetDateTime(drive_path(path)).Modified.datetime, when)

    def test_names_beyond_the_code_page_are_reached_by_short_names(self):
        (self.disk / "日本.txt").write_text("far")
        listing = self.fs.GetFolderAndFiles(self.folder)
        name = listing.PathFileName[1]
        self.assertEqual(self.fs.File.GetSize(f"{self.folder}\\{name}"), 3)
        self.assertTrue(self.fs.File.Copy(f"{self.folder}\\{name}", f"{self.folder}\\copy.txt"))
        self.assertEqual((self.disk / "copy.txt").read_text(), "far")

    def test_questions_and_the_trash(self):
        code = f"""
import mox, os
mox.machine(memory=True, trash={str(self.disk / "trash")!r})
file = mox.create("moxHub").FileSystem.File
for name in ("declined", "confirmed", "kept"):
    open({str(self.disk)!r} + "/" + name, "w").close()
path = {self.folder!r} + "\\\\"
print(file.Delete(path + "declined", False, False, True))
mox.answer("confirm", yes=True)
print(file.Delete(path + "confirmed", bAllowUndo=False, bConfirmDialog=True))
print(file.Delete(path + "kept"))
print([dialog["answer"] for dialog in mox.dialogs()])
print(os.listdir({str(self.disk / "trash" / "files")!r}))
"""
        output = run([sys.executable, "-c", code]).stdout
        self.assertEqual(output, "False\nTrue\nTrue\n[{'yes': False}, {'yes': True}]\n['kept']\n")
        self.assertEqual(sorted(path.name for path in self.disk.iterdir()), ["declined", "trash"])


class Example(unittest.TestCase):
    def test_keeps_a_setting_from_run_to_run(self):
        with tempfile.TemporaryDirectory() as folder:
            for number in (1, 2):
                output = run([sys.executable, str(ROOT / "examples" / "files.py"), folder]).stdout
                self.assertIn(f"run number {number} of", output)
            self.assertIn("merge: True, 'Two files became one.', checksum", output)


if __name__ == "__main__":
    unittest.main()
