"""What is generated from the type library: the stubs, the reference pages, and that they agree with the package."""
import ast
import re
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

import mox
from mox import _typelib

from support import ROOT, TestCase, loaded, run

PACKAGE = ROOT / "bindings" / "python" / "mox"
REFERENCE = ROOT / "docs" / "reference"


def compiler():
    """The IDL compiler of the build whose libraries are under test."""
    return loaded("libmoxplatform.so").parents[1] / "bin" / "idlc"


class Generated(TestCase):
    def setUp(self):
        if not compiler().exists():
            self.skipTest("the IDL compiler is not there")
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def compile(self, option):
        subprocess.run([compiler(), option, self.folder, ROOT / "typelib" / "TRL_OBKR_MOX.idl"], check=True, timeout=60)
        return {file.name: file.read_text(encoding="utf-8") for file in self.folder.iterdir()}

    def test_stubs_are_current(self):
        for name, text in self.compile("--stubs").items():
            self.assertEqual(
                (PACKAGE / name).read_text(encoding="utf-8"), text, f"{name}: idlc --stubs {PACKAGE} typelib/TRL_OBKR_MOX.idl"
            )

    def test_reference_pages_are_current(self):
        fresh = self.compile("--reference")
        kept = {file.name: file.read_text(encoding="utf-8") for file in REFERENCE.glob("*.md")}
        self.assertEqual(sorted(kept), sorted(fresh))
        for name, text in fresh.items():
            self.assertEqual(kept[name], text, f"{name}: idlc --reference {REFERENCE} typelib/TRL_OBKR_MOX.idl")


class Pages(TestCase):
    def test_links_lead_somewhere(self):
        anchors = {}
        for file in REFERENCE.glob("*.md"):
            headings = re.findall(r"(?m)^#+ (.*)$", file.read_text(encoding="utf-8"))
            anchors[file.name] = {re.sub(r"[^\w-]", "", heading.lower().replace(" ", "-")) for heading in headings}
        self.assertGreater(len(anchors), 40)
        for file in REFERENCE.glob("*.md"):
            for target, anchor in re.findall(r"\]\(([\w.]+)(?:#([\w-]+))?\)", file.read_text(encoding="utf-8")):
                self.assertIn(target, anchors, file.name)
                self.assertTrue(not anchor or anchor in anchors[target], f"{file.name}: {target}#{anchor}")

    def test_every_class_has_its_page_in_the_index(self):
        index = (REFERENCE / "README.md").read_text(encoding="utf-8")
        for library in _typelib.libraries():
            for entry in library.classes:
                self.assertIn(f"[{entry.name}]({entry.name}.md)", index)
                page = (REFERENCE / f"{entry.name}.md").read_text(encoding="utf-8")
                names = list(dict.fromkeys(function.name for function in entry.content[0].content))
                names += [event.name for event in entry.content[1].content] if entry.content[1] else []
                self.assertEqual(re.findall(r"(?m)^### (.*)$", page), names, "members in their order")

    def test_tables_are_whole(self):
        for file in REFERENCE.glob("*.md"):
            columns = None
            for line in file.read_text(encoding="utf-8").splitlines():
                count = len(re.findall(r"(?<!\\)\|", line)) if line.startswith("|") else None
                self.assertTrue(columns is None or count is None or count == columns, f"{file.name}: {line}")
                columns = count


class Agreement(TestCase):
    """The stubs and the package say the same."""

    def classes(self, file):
        tree = ast.parse((PACKAGE / file).read_text(encoding="utf-8"))
        return tree, {node.name: node for node in tree.body if isinstance(node, ast.ClassDef)}

    @staticmethod
    def names(node):
        found = {child.name for child in node.body if isinstance(child, ast.FunctionDef)}
        found |= {child.target.id for child in node.body if isinstance(child, ast.AnnAssign)}
        return {name for name in found if not name.startswith("__")}

    def test_members(self):
        _, classes = self.classes("_library.pyi")
        for library in _typelib.libraries():
            for entry in library.classes:
                python_class = getattr(mox, entry.name)
                self.assertEqual(self.names(classes[entry.name]), set(python_class._members), entry.name)
            for entry in library.records:
                self.assertEqual(self.names(classes[entry.name]), set(getattr(mox, entry.name)._fields), entry.name)

    def test_arguments(self):
        _, classes = self.classes("_library.pyi")
        for library in _typelib.libraries():
            for entry in library.classes:
                for node in classes[entry.name].body:
                    member = getattr(mox, entry.name)._members.get(getattr(node, "name", None))
                    if member and member.method:
                        names = [argument.arg for argument in node.args.args]
                        self.assertEqual(names, ["self"] + [argument.name for argument in member.method.arguments], node.name)
                        self.assertEqual(
                            len(node.args.defaults), sum(argument.optional for argument in member.method.arguments), node.name
                        )

    def test_enums(self):
        tree, classes = self.classes("enums.pyi")
        self.assertEqual(set(classes), set(dir(mox.enums)))
        for name, node in classes.items():
            stubs = {child.targets[0].id: ast.literal_eval(child.value) for child in node.body if isinstance(child, ast.Assign)}
            values = {key: int(value) for key, value in getattr(mox.enums, name).__members__.items() if key.isidentifier()}
            self.assertEqual(stubs, values, name)

    def test_the_hand_written_part(self):
        tree, _ = self.classes("__init__.pyi")
        names = {getattr(node, "name", None) for node in tree.body} | {
            node.target.id for node in tree.body if isinstance(node, ast.AnnAssign)
        }
        generated = {"Record", "create", "enums"}
        self.assertEqual(set(mox.__all__) - generated - names, set())


@unittest.skipUnless(shutil.which("mypy"), "mypy is not there")
class Checker(TestCase):
    def check(self, code):
        with tempfile.TemporaryDirectory() as folder:
            program = Path(folder) / "program.py"
            program.write_text(code, encoding="utf-8")
            result = run(
                ["mypy", "--strict", "--cache-dir", str(Path(folder) / "cache"), str(program)],
                check=False,
                MYPYPATH=str(PACKAGE.parent),
            )
        return [line for line in result.stdout.splitlines() if ": error: " in line or ": note: " in line]

    def test_the_stubs_are_well_formed(self):
        with tempfile.TemporaryDirectory() as cache:
            files = [str(PACKAGE / name) for name in ("__init__.pyi", "_library.pyi", "enums.pyi")]
            result = run(["mypy", "--strict", "--cache-dir", cache, *files], check=False)
        self.assertEqual(result.returncode, 0, result.stdout)

    def test_what_a_program_means(self):
        lines = self.check(
            """
import mox
hub = mox.create("moxHub")
reveal_type(hub)
reveal_type(hub.Vars.vLong.MinMax(5, MaxValue=3))
reveal_type(hub.System.Printers.Printer(0).PaperName[1])
hub.System.Printers.Printer(0).PaperHeightUser = 2.5
hub.System.Printers.Printer(0).PaperHeightUser[mox.PRNUN_MM] = 2.5
reveal_type(mox.Record("RECT", Left=1).Left)
reveal_type(mox.suINCH)
hub.Vars.vLong.SwapValues(mox.ByRef(1), 2)
hub.Vars.vLong.MinMax("x")
hub.Vars.vLong.MinMax(5, Least=1)
hub.Nothing
mox.create("moxTimer").Tag = 5
"""
        )
        expected = [
            '"mox._library.moxHub"',
            '"builtins.int"',
            '"builtins.str"',
            '"builtins.int"',
            "MOX_SCALEUNIT",
            "arg-type",
            "call-arg",
            "attr-defined",
            "assignment",
        ]
        found = [line for line in lines if "program.py" in line]
        self.assertEqual(len(found), len(expected), "\n".join(lines))
        for part, line in zip(expected, found):
            self.assertIn(part, line)


if __name__ == "__main__":
    unittest.main()
