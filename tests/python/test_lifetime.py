"""Threads, and references that are given back."""
import os
import threading
import unittest

import mox
from mox._abi import add_ref, release

from support import NoLeaks, TestCase, error, hub, run_python, server_is_idle


def in_thread(function):
    """What a function gives in a thread of its own, or what it raises."""
    result = []

    def run():
        try:
            result.append((function(), None))
        except BaseException as caught:
            result.append((None, caught))

    thread = threading.Thread(target=run)
    thread.start()
    thread.join(30)
    value, caught = result[0]
    if caught is not None:
        raise caught
    return value


def references(object):
    count = add_ref(object._pointer)
    release(object._pointer)
    return count - 1


class Lifetime(NoLeaks):
    def test_each_object_has_one_reference(self):
        root = hub()
        self.assertEqual(references(root), 1)
        again = [root.Vars for _ in range(3)]
        self.assertEqual(references(again[0]), 1 + 3, "one of the hub, three of ours")
        del again[1:]
        self.assertEqual(references(again[0]), 1 + 1)

    def test_calls_leave_no_references(self):
        root = hub()
        helper = root.Vars.vObject
        number = helper.PointerFromObject(root)
        before = references(root)
        for call in [
            lambda: helper.PointerFromObject(root),
            lambda: helper.PointerFromObject(mox.ByRef(root)),
            lambda: helper.ObjectFromPointer(number),
            lambda: error(helper.PointerFromObject, root, 1),
            lambda: error(root.Vars.vLong.MinMax, root),
            lambda: error(helper.ObjectFromPointer, root),
            lambda: root == helper.ObjectFromPointer(number),
            lambda: hash(root),
            lambda: error(mox.connect, root, {}),
        ]:
            call()
            self.assertEqual(references(root), before)

    def test_the_server_is_busy_while_something_lives(self):
        for make in (hub, lambda: mox.create("moxTimer"), lambda: mox.Record("RECT"), lambda: mox.ByRef([mox.Record("RECT")])):
            thing = make()
            self.assertFalse(server_is_idle())
            del thing
            self.assertTrue(server_is_idle())

    def test_failed_creation_leaves_nothing(self):
        error(mox.create, "moxVars")
        error(lambda: hub().INet)

    def test_cycles_are_collected(self):
        cycle = [hub()]
        cycle.append(cycle)
        del cycle
        self.assertTrue(server_is_idle())


class Threads(NoLeaks):
    def test_an_object_belongs_to_its_thread(self):
        root = hub()
        vLong, info = root.Vars.vLong, root.ExtensionInfo
        timer = mox.create("moxTimer")
        for name, call in [
            ("get", lambda: root.Vars),
            ("call", lambda: vLong.MinMax(1)),
            ("indexed", lambda: info[0]),
            ("put", lambda: setattr(timer, "Tag", "")),
            ("connect", lambda: mox.connect(timer, {"Timer": print})),
        ]:
            with self.subTest(name):
                caught = in_thread(lambda: error(call))
                self.assertEqual((caught.hresult, caught.number), (0x8001010E, 0x8001010E))
        self.assertTrue(in_thread(lambda: root == root and hash(root) == hash(root)))

    def test_each_thread_has_its_own_objects(self):
        def work():
            root = mox.create("moxHub")
            return [root.Vars.vLong.MinMax(i, 0, 50) for i in range(100)]

        results, threads = [], [threading.Thread(target=lambda: results.append(work())) for _ in range(8)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join(30)
        self.assertEqual(results, [[min(i, 50) for i in range(100)]] * 8)

    def test_timers_run_in_the_thread_that_pumps(self):
        def work():
            seen, timer = [], mox.create("moxTimer")
            mox.connect(timer, {"Timer": lambda *_: seen.append(threading.get_ident())})
            timer.StartTimer(10)
            for _ in range(500):
                if seen:
                    break
                mox.pump(0.01)
            timer.StopTimer()
            return seen[0] == threading.get_ident()

        self.assertTrue(in_thread(work))

    def test_references_are_given_back_on_any_thread(self):
        kept = [hub(), hub().Vars, mox.Record("RECT"), mox.create("moxTimer")]
        in_thread(kept.clear)
        mox.pump(0)
        self.assertTrue(server_is_idle(), "let go elsewhere, ended here")

    def test_objects_outlive_their_thread(self):
        kept = in_thread(lambda: [mox.create("moxHub"), mox.create("moxTimer"), mox.Record("RECT", Left=1)])
        self.assertEqual(error(lambda: kept[0].Vars).hresult, 0x8001010E)
        self.assertEqual(kept[2].Left, 1)
        kept.clear()
        for _ in range(500):  # the thread itself ends a little later than its Python part
            if server_is_idle():
                break
            mox.pump(0.01)

    def test_records_are_free_of_threads(self):
        rc = mox.Record("RECT", Left=1)
        self.assertEqual(in_thread(lambda: setattr(rc, "Top", 5) or rc.Left), 1)
        self.assertEqual(rc.Top, 5)


class Memory(TestCase):
    @unittest.skipIf("asan" in os.environ.get("LD_PRELOAD", ""), "the address sanitizer keeps what is freed for a while")
    def test_calls_do_not_grow_the_process(self):
        code = """
            import resource
            root = mox.create("moxHub")
            values, timer = root.Vars, mox.create("moxTimer")
            number = values.vObject.PointerFromObject(root)
            def work():
                text = mox.ByRef("x" * 2000)
                values.vString.StringSwap(text, "y" * 2000)
                timer.Tag = "z" * 2000
                timer.Tag
                values.vByte.ConvByteArr2String(b"b" * 2000)
                values.vByte.ConvByteArr2String(mox.ByRef([1] * 200))
                values.vMath.RotateRectEx(mox.Record("RECT"), 1, 0, 0, mox.ByRef([]), mox.Record("RECT"))
                values.vRect.RectFromPoints(1, 2, 3, 4)
                mox.Record("MOX_FS_FINDFF", PathFileName=["p" * 500] * 4).PathFileName
                values.vObject.ObjectFromPointer(number)
                mox.connect(timer, {"Timer": print}).disconnect()
                for call in (
                    lambda: values.vLong.MinMax("q" * 2000),
                    lambda: values.vLong.MinMax(object()),
                    lambda: values.Nothing,
                    lambda: values.vByte.ConvByteArr2String([0] * 5000 + ["x"]),
                    lambda: mox.create("r" * 2000),
                ):
                    try:
                        call()
                    except mox.Error:
                        pass
            for _ in range(300):
                work()
            before = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss
            for _ in range(1500):
                work()
            print(resource.getrusage(resource.RUSAGE_SELF).ru_maxrss - before)
        """
        import textwrap

        grown = int(run_python(textwrap.dedent(code)).stdout)
        self.assertLess(grown, 1024, "kilobytes; one lost text a round would be 6 MB")


if __name__ == "__main__":
    unittest.main()
