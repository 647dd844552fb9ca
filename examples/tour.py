"""A tour of the library from Python. Writes two files into the folder that is given: an SVG drawing and a page of text."""

import pathlib
import sys

import mox


def drawing(math):
    """A rectangle turned in steps around a point, every corner computed by the library."""
    shapes = []
    for step in range(24):
        corners = mox.ByRef([])
        bounds = mox.Record("RECT")
        math.RotateRectEx(mox.Record("RECT", Left=240, Top=170, Right=390, Bottom=230), step * 15, 200, 200, corners, bounds)
        points = " ".join(f"{point.X},{point.Y}" for point in corners.value)
        shapes.append(f'<polygon points="{points}" fill="hsl({step * 15}, 70%, 60%)" fill-opacity="0.45" stroke="#333"/>')
    return '<svg xmlns="http://www.w3.org/2000/svg" width="400" height="400">\n' + "\n".join(shapes) + "\n</svg>\n"


def main(folder):
    hub = mox.create("moxHub")
    facts = mox.enums.MOX_EXTENSION_INFO
    print(f"mox {hub.ExtensionInfo(facts.moxext_VersionString)} in process {hub.ExtensionInfo(facts.moxext_ProcessID)}")

    values = hub.Vars
    rows = [(f"1 {name[2:].lower()}", values.ConvertUnit(1, unit, mox.suTWIP), values.ConvertUnit(1, unit, mox.suMM))
            for name, unit in mox.enums.MOX_SCALEUNIT.__members__.items()]
    print(f"\n{'unit':<12}{'twips':>10}{'mm':>12}")
    for name, twips, millimetres in rows:
        print(f"{name:<12}{twips:>10.2f}{millimetres:>12.4f}")

    text = values.vString
    source = pathlib.Path(__file__).read_text(encoding="utf-8")
    page = folder / "tour.html"
    page.write_text(f"<!DOCTYPE html><meta charset='cp1252'><code>{text.StringEntities(source, True)}</code>", encoding="cp1252")
    print(f"\nchecksum of this program: {text.StringChecksum(source) & 0xFFFFFFFF:08X}")
    assert text.StringEntities(text.StringEntities(source, True), False).replace("\r\n", "\n") == source

    try:
        values.vLong.MinMax(5, Least=1)
    except mox.Error as error:
        print(f"an unknown argument: error {error.number}, {error.description} ({error.argument})")

    seen = []
    timer = hub.Controls.CreateTimerObject()
    with mox.connect(timer, {"Timer": lambda events, milliseconds: seen.append(events)}):
        timer.StartTimer(20)
        while len(seen) < 3:
            mox.pump(0.02)
        timer.StopTimer()
    print(f"timer events: {seen}")

    picture = folder / "rotation.svg"
    picture.write_text(drawing(values.vMath), encoding="utf-8")
    print(f"\nwritten:\n  {picture}\n  {page}")


if __name__ == "__main__":
    target = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else "demo")
    target.mkdir(parents=True, exist_ok=True)
    main(target)
