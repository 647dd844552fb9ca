"""Pictures as rows of pixels and as image files."""
import os
import tempfile
from ctypes import byref, c_char, c_int, c_void_p, create_string_buffer
from pathlib import Path

from ._abi import IID_IDISPATCH, VT_UI1
from ._errors import check
from ._objects import Object, _taken_object
from ._platform import apartments, platform
from ._typelib import ANY
from ._variant import read_array


def pixels(source, x=0, y=0, cx=None, cy=None):
    """Pixels of a picture object or of a device context, given by its number, as bytes: rows from the top down, four bytes a
    pixel: blue, green, red and one that does not count.

    ``x``, ``y``: the upper left corner, in pixels of the picture or logical units of the device context. ``cx``, ``cy``: the
    size, by default all that there is from the corner on. Icons and metafiles are shown on white. An area that is not all inside
    is error 5, as are an empty picture and a number that is no device context.
    """
    picture, hdc = _source(source)
    if cx is None or cy is None:
        width, height = c_int(), c_int()
        check(platform.MoxGetPixelSize(picture, hdc, byref(width), byref(height)))
        cx = width.value - x if cx is None else cx
        cy = height.value - y if cy is None else cy
    size = 4 * cx * cy if cx > 0 and cy > 0 else 4
    if size > 1 << 29:
        cx, size = 0, 4  # more than any picture has
    rows = create_string_buffer(size)
    check(platform.MoxGetPixels(picture, hdc, x, y, cx, cy, rows, size))
    return rows.raw


def picture(width, height, bgrx):
    """A new picture object with a bitmap of ``width`` by ``height`` pixels. ``bgrx``: its rows from the top down, four bytes a
    pixel: blue, green, red and one that does not count; bytes or anything like it. Error 5 if they are not
    ``4 * width * height``."""
    apartments.enter()
    view = memoryview(bgrx).cast("B")
    rows = (c_char * view.nbytes).from_buffer(view) if not view.readonly else bytes(view)
    result = c_void_p()
    check(platform.MoxCreatePicture(width, height, rows, view.nbytes, IID_IDISPATCH, result))
    return _taken_object(result.value, ANY)


def load_picture(path):
    """A new picture object from an image file of this system: BMP, ICO, CUR, WMF, EMF, PNG, JPEG or GIF, by what is in it. Error
    481 for what is none of them, an OSError for a file that cannot be read."""
    apartments.enter()
    file = Path(path).read_bytes()
    result = c_void_p()
    check(platform.MoxLoadPicture(file, len(file), IID_IDISPATCH, result))
    return _taken_object(result.value, ANY)


def save_picture(picture, path):
    """Writes a picture object to a file of this system, which is replaced when the new one is complete: with the extension
    ``.png`` as PNG with 8 bits a channel, else in the format of its kind: BMP, ICO, WMF or EMF. Error 5 for an empty picture, an
    OSError for a file that cannot be written."""
    content = _file_of(picture, Path(path).suffix.lower() == ".png")
    target = os.path.realpath(path)
    mode = os.stat(target).st_mode & 0o7777 if os.path.exists(target) else None
    handle, pending = tempfile.mkstemp(prefix=".mox-", dir=os.path.dirname(target))
    try:
        with open(handle, "wb") as file:
            file.write(content)
            os.fchmod(file.fileno(), 0o666 & ~_mask() if mode is None else mode)
        os.replace(pending, target)
    except BaseException:
        os.unlink(pending)
        raise


def _mask():
    """The permissions that new files of this process do not get."""
    with open("/proc/self/status", encoding="ascii", errors="replace") as status:
        for line in status:
            if line.startswith("Umask:"):
                return int(line.split()[1], 8)
    return 0o022


def _source(source):
    """The pointer to a picture object and the number of a device context, one of which is none."""
    apartments.enter()
    if isinstance(source, Object):
        return source._pointer, 0
    if isinstance(source, int):
        return None, source
    raise TypeError(f"a picture object or the number of a device context, not {source!r}")


def _file_of(picture, as_png):
    if not isinstance(picture, Object):
        raise TypeError(f"a picture object, not {picture!r}")
    apartments.enter()
    array = c_void_p()
    check(platform.MoxSavePicture(picture._pointer, as_png, array))
    try:
        return bytes(read_array(array.value, VT_UI1))
    finally:
        platform.SafeArrayDestroy(array)
