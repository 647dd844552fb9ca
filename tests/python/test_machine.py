"""The machine behind the library, its operations, and the command line."""
import sys
import tempfile
import time
import unittest
from pathlib import Path

import mox

from support import NoLeaks, ROOT, TestCase, loaded, run, run_python


class Machine(TestCase):
    def facts(self, facts, code, **environment):
        result = run([sys.executable, "-c", f"import mox\nmox.machine({facts})\n{code}"], **environment)
        return result.stdout.strip()

    def test_facts(self):
        services = "services = mox.doctor()\nprint(services['runtime'], '|', services['text'], '|', services['files'])"
        for facts, expected in [
            ("memory=True", ["6.1.7601", "code page 1252", "(temporary)"]),
            ("windows=(10, 0), memory=True", ["reports version 10.0.7601"]),
            ("windows=(5, 1, 2600, 2, 'Service Pack 3', 1, 256), memory=True", ["5.1.2600 Service Pack 3"]),
            ("codepage=1250, memory=True", ["code page 1250"]),
        ]:
            with self.subTest(facts):
                text = self.facts(facts, services)
                for part in expected:
                    self.assertIn(part, text)

    def test_home(self):
        with tempfile.TemporaryDirectory() as folder:
            for value in (repr(folder), f"__import__('pathlib').Path({folder!r})"):
                self.assertIn(folder, self.facts(f"home={value}", "print(mox.doctor()['files'])"))

    def test_code_page_of_texts(self):
        euro = "print(mox.create('moxHub').Vars.vString.Conv2HexString('\\u20ac\\u0416'))"
        self.assertEqual(self.facts("codepage=1252, memory=True", euro), "803F")
        self.assertEqual(self.facts("codepage=1251, memory=True", euro), "88C6")

    def test_what_is_refused(self):
        for facts, part in [
            ("colour=1", "colour"),
            ("codepage='x'", "codepage"),
            ("windows=(1, 'x')", "minor"),
            ("memory=True, home='/x'", "memory"),
        ]:
            text = self.facts(
                "memory=False", f"try:\n    mox.machine({facts})\nexcept mox.Error as error:\n    print(error.number, error)"
            )
            self.assertRegex(text, f"^5 .*{part}")

    def test_too_late(self):
        use = "mox.create('moxHub').Vars.vString.Conv2HexString('x')\n"
        code = use + "try:\n    mox.machine(codepage=1250)\nexcept mox.Error as error:\n    print(hex(error.hresult))"
        self.assertEqual(self.facts("memory=True", code), "0x80004005")


class Operations(NoLeaks):
    def test_counting_and_failing(self):
        ticks = mox.operations["KERNEL32.GetTickCount"]
        self.assertEqual(ticks.name, "kernel32.GetTickCount")
        ticks.reset()
        self.assertEqual(ticks.calls, 0)
        timer = mox.create("moxTimer")
        timer.StartTimer(1000)
        self.assertEqual((ticks.calls, timer.Running), (1, True))
        start = mox.operations["user32.SetTimer"]
        start.fail(1)
        self.assertEqual((timer.StartTimer(1000), timer.StartTimer(1000)), (False, True))
        start.fail()
        self.assertEqual((timer.StartTimer(1000), timer.StartTimer(1000)), (False, False))
        start.restore()
        self.assertTrue(timer.StartTimer(1000))
        timer.StopTimer()

    def test_the_list(self):
        self.assertGreater(len(mox.operations), 10)
        self.assertIn("kernel32.GetTickCount", mox.operations)
        self.assertEqual(set(mox.operations), set(dict(mox.operations)))
        with self.assertRaises(KeyError):
            mox.operations["kernel32.NoSuchThing"]


class Pumping(TestCase):
    def test_it_takes_its_time(self):
        start = time.monotonic()
        mox.pump(0.12)
        self.assertGreaterEqual(time.monotonic() - start, 0.119)
        mox.pump()

    def test_signals_are_handled_meanwhile(self):
        code = "import signal\nsignal.setitimer(signal.ITIMER_REAL, 0.1)\n"
        code += "signal.signal(signal.SIGALRM, signal.default_int_handler)\n"
        result = run_python(code + "try:\n    mox.pump(60)\nexcept KeyboardInterrupt:\n    print('interrupted')")
        self.assertEqual(result.stdout, "interrupted\n")


class Libraries(TestCase):
    def test_a_folder_of_ones_own(self):
        source = loaded("libmoxplatform.so")
        with tempfile.TemporaryDirectory() as folder:
            for name in (source.name, "trl.obkr.mox.so"):
                (Path(folder) / name).symlink_to(source.parent / name)
            code = "print(mox.create('moxHub'), any(%r in line for line in open('/proc/self/maps')))" % str(source)
            self.assertEqual(run_python(code, MOX_LIBRARY_PATH=f"/nowhere:{folder}").stdout, "<mox.moxHub> True\n")

    def test_no_library(self):
        with tempfile.TemporaryDirectory() as folder:
            package = Path(folder) / "mox"
            package.mkdir()
            for file in (ROOT / "bindings" / "python" / "mox").glob("*.py"):
                (package / file.name).write_text(file.read_text(encoding="utf-8"), encoding="utf-8")
            code = "import mox\nprint('create' in dir(mox))\n"
            code += "try:\n    mox.create('moxHub')\nexcept OSError as error:\n    print(error)"
            text = run([sys.executable, "-c", code], PYTHONPATH=folder, MOX_LIBRARY_PATH="/nowhere", LD_LIBRARY_PATH="").stdout
        self.assertRegex(text, "^True\ncannot find libmoxplatform.so; looked in: /nowhere, .*MOX_LIBRARY_PATH")


class CommandLine(TestCase):
    def command(self, *arguments, check=True, **environment):
        with tempfile.TemporaryDirectory() as home:
            return run([sys.executable, "-m", "mox", *arguments], check=check, MOX_HOME=home, **environment)

    def test_call(self):
        for expression, output in [
            ("moxHub.Vars.ConvertUnit(1, suINCH, suCM)", "2.5396825396825395\n"),
            ("moxHub.Vars.vLong.MinMax(5, MaxValue=3)", "3\n"),
            (
                "[moxHub.Vars.ConvertUnit(1, unit, suTWIP) for unit in enums.MOX_SCALEUNIT]",
                "[1.0, 20.0, 15.0, 1440.0, 56.7, 567.0]\n",
            ),
            ("Record('RECT', Left=max(1, 2))", "mox.Record('RECT', Left=2, Top=0, Right=0, Bottom=0)\n"),
            ("moxTimer.Tag", "\n"),
            ("MOX_SCALEUNIT.suMM + 1", "7\n"),
            ("None", ""),
        ]:
            with self.subTest(expression):
                self.assertEqual(self.command("call", expression).stdout, output)

    def test_calls_that_fail(self):
        for expression, part in [
            ("moxHub.Vars.vLong.MinMax(5, Least=1)", "error 448: .*Least"),
            ("moxHub.System.Nothing", "error 4"),
            ("noSuchName", "noSuchName"),
            ("1 +", "SyntaxError"),
            ("create('moxVars')", "error 429"),
        ]:
            with self.subTest(expression):
                result = self.command("call", expression, check=False)
                self.assertEqual((result.returncode, result.stdout), (1, ""))
                self.assertRegex(result.stderr, part)
                self.assertNotIn("Traceback", result.stderr)

    def test_browse(self):
        everything = self.command("browse").stdout
        for part in ("TRL_OBKR_MOX 1.0", "MoxRuntime 1.0", "moxHub", "MOX_SCALEUNIT", "RECT"):
            self.assertIn(part, everything)
        for name, parts in [
            (
                "moxTimer",
                [
                    "Class moxTimer, creatable",
                    "Function StartTimer(Interval As Long) As Boolean",
                    "at least 10",
                    "Event Timer(Events As Long, Milliseconds As Long)",
                ],
            ),
            ("moxvars", ["ByRef SourceUnit As MOX_SCALEUNIT", "Property Get vLong() As moxVarLong", "suINCH = 5"]),
            ("RECT", ["Left As Long", "Position of the left edge"]),
            ("MOX_SCALEUNIT", ["suINCH = 5", "1440 twips each"]),
            ("moxHubGlobal", ["Property Get mox() As moxHub"]),
        ]:
            with self.subTest(name):
                text = self.command("browse", name).stdout
                for part in parts:
                    self.assertIn(part, text)
        failed = self.command("browse", "Nonsense", check=False)
        self.assertEqual((failed.returncode, failed.stdout), (1, ""))
        self.assertIn("Nonsense", failed.stderr)

    def test_every_type_can_be_browsed(self):
        from mox import _typelib

        code = "from mox.__main__ import browse\nfrom mox import _typelib\n"
        code += "for library in _typelib.libraries():\n    for entry in library.entries:\n        browse(entry.name)"
        output = run_python(code).stdout
        for library in _typelib.libraries():
            for entry in library.classes:
                self.assertIn(f"Class {entry.name}", output)

    def test_doctor(self):
        self.assertRegex(self.command("doctor").stdout, r"(?m)^files +home ")

    def test_trace(self):
        result = self.command("call", "moxHub.Vars.vLong.MinMax(5, 1, 10)", MOX_TRACE="dispatch")
        self.assertRegex(result.stderr, r"moxVarLong\.MinMax\(5, 1, 10\) -> 5 ")


if __name__ == "__main__":
    unittest.main()
