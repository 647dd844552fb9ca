"""Files, settings and the system from Python: lists a folder tree, finds a file, joins two, and counts its own runs in a setting.

    python3 examples/files.py FOLDER [TREE]

writes into FOLDER, which also becomes the home of the machine, and lists TREE (else the documentation of this project)."""

import pathlib
import sys

import mox


def drive_path(path):
    """The path of a file on disk as programs of the library write it: the root of the disk is drive Z."""
    return "Z:" + str(path.resolve()).replace("/", "\\")


def rows_of(listing):
    """Each row of a listing with the path of its file."""
    folder = ""
    for is_folder, name, depth in zip(listing.IsDirectory, listing.PathFileName, listing.Depth):
        if is_folder:
            folder = name
            yield depth, name.rstrip("\\").rpartition("\\")[2] + "\\", None
        else:
            yield depth + 1, name, folder + name


def show_tree(fs, tree, most=16):
    listing = fs.GetFolderAndFiles(tree, True)
    print(f"{tree}: {sum(listing.IsDirectory)} folders, {listing.Count - sum(listing.IsDirectory)} files")
    for number, (depth, name, path) in enumerate(rows_of(listing)):
        if number == most:
            print(f"  ... and {listing.Count - most} more")
            break
        print(f"  {'  ' * depth + name:<40}{facts_of(fs.File, path) if path else ''}".rstrip())
    return listing


def facts_of(file, path):
    modified = file.GetDateTime(path).Modified.datetime
    return f"{file.GetSize(path):>9}  {modified:%Y-%m-%d %H:%M}  {file.GetTypeName(path)}"


def main(folder, tree):
    mox.machine(home=str(folder / "home"))
    hub = mox.create("moxHub")
    fs = hub.FileSystem

    print(hub.System.OS.VersionString)
    for name in ("Windows", "Temp", "UserDocuments", "Application"):
        print(f"  {name:<14}{fs.GetStandardPath(getattr(mox, name))}")
    space = fs.Folder.GetSpace("Z:\\")
    print(f"  free          {space.AvailableBytes / 2**30:.1f} of {space.TotalBytes / 2**30:.1f} GiB\n")

    listing = show_tree(fs, drive_path(tree))
    wanted = next(name for is_folder, name in zip(listing.IsDirectory[::-1], listing.PathFileName[::-1]) if not is_folder)
    print(f"\nfind {wanted}: {fs.FindFile(wanted, drive_path(tree), True)}")

    first, second = folder / "first.txt", folder / "second.txt"
    first.write_text("Two files ", encoding="cp1252")
    second.write_text("became one.\n", encoding="cp1252")
    joined = fs.MergeFiles(drive_path(first), drive_path(second))
    checksum = fs.File.GetChecksum(drive_path(first)) & 0xFFFFFFFF
    print(f"merge: {joined}, {first.read_text(encoding='cp1252').strip()!r}, checksum {checksum:08X}")
    copy = fs.File.CreateUniqueFileName(drive_path(first))
    print(f"copy: {fs.File.Copy(drive_path(first), copy)}, {fs.File.StripFileName(copy)}")

    registry = hub.System.Registry
    runs = int(registry.GetSetting("mox", "Demo", "Files", "Runs", "0")) + 1
    registry.SaveSetting("mox", "Demo", "Files", "Runs", str(runs))
    print(f"setting: run number {runs} of this demo in {folder}")
    print(f"\nwritten:\n  {first}\n  {folder / 'home' / 'registry.sqlite'}")


if __name__ == "__main__":
    target = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else "demo")
    target.mkdir(parents=True, exist_ok=True)
    main(target, pathlib.Path(sys.argv[2]) if len(sys.argv) > 2 else pathlib.Path(__file__).resolve().parents[1] / "docs")
