"""Dialogs that are answered ahead, what was asked, and the trash of the machine's own."""
import sys
import tempfile
import unittest

import mox

from support import TestCase, error, run, run_python


class Answers(TestCase):
    def test_what_is_refused(self):
        for kind, reply, part in [
            ("dance", {}, "dance"),
            ("confirm", {}, "needs yes"),
            ("confirm", {"yes": 1}, "yes: not true or false"),
            ("confirm", {"yes": True, "button": 6}, "button"),
            ("message_box", {"button": 0}, "1 to 11"),
            ("message_box", {"button": True}, "1 to 11"),
            ("message_box", {"yes": True}, "yes"),
        ]:
            with self.subTest(kind=kind, reply=reply):
                caught = error(mox.answer, kind, **reply)
                self.assertEqual(caught.number, 5)
                self.assertIn(part, caught.description)

    def test_what_was_asked(self):
        code = "print(mox.dialogs())\nhub = mox.create('moxHub')\n"
        code += "mox.answer('message_box', button=1)\nhub.ShowAbout()\nmox.answer('message_box', button=6)\nhub.ShowAbout()\n"
        code += "for dialog in mox.dialogs():\n    print(dialog['kind'], dialog['caption'], dialog['answer'], '8.10' in dialog['text'])"
        line = "message_box About mox {'button': 1} True\n"
        self.assertEqual(run_python(code).stdout, "[]\n" + line + line)


class Trash(TestCase):
    def shell(self, facts):
        code = f"import mox\nmox.machine({facts})\nprint(mox.doctor()['shell'])"
        return run([sys.executable, "-c", code]).stdout

    def test_the_folder_is_a_fact(self):
        with tempfile.TemporaryDirectory() as folder:
            for value in (repr(folder), f"__import__('pathlib').Path({folder!r})"):
                self.assertIn(f"trash {folder}\n", self.shell(f"memory=True, trash={value}"))
            self.assertRegex(self.shell("memory=True"), "trash /.*/trash\n")
            self.assertIn("trash of the desktop", self.shell(f"home={folder!r}"))

    def test_what_is_refused(self):
        for value in ("1", "''"):
            code = f"import mox\ntry:\n    mox.machine(trash={value})\nexcept mox.Error as error:\n    print(error.number, error)"
            self.assertRegex(run([sys.executable, "-c", code]).stdout, "^5 .*trash")


if __name__ == "__main__":
    unittest.main()
