"""Draws a contact sheet: filters, primitives, text, icons, a metafile and fonts, all without a display.

Usage: python3 examples/pictures.py FOLDER
"""

import math
import os
import random
import struct
import sys

import mox

WIDTH, HEIGHT = 1180, 1330
INK, PAPER, RULE = 0x402A1E, 0xFFFFFF, 0xC8BEB4  # colours are 0xBBGGRR
RED, GREEN, BLUE, ORANGE = 0x3030D0, 0x4CA02C, 0xC86A1E, 0x1E90F0


def photograph(width: int, height: int) -> bytes:
    """A landscape at dusk as rows of blue, green, red, 0."""
    chance = random.Random(7)
    ridge = [0.52 + 0.10 * math.sin(x / 23) + 0.05 * math.sin(x / 7 + 1) for x in range(width)]
    hill = [0.70 + 0.06 * math.sin(x / 41 + 2) for x in range(width)]
    rows = bytearray()
    for y in range(height):
        v = y / height
        for x in range(width):
            u = x / width
            glow = math.exp(-(((u - 0.68) * 1.5) ** 2 + (v - 0.30) ** 2) * 26)
            red, green, blue = 60 + 150 * v + 150 * glow, 80 + 70 * v + 110 * glow, 150 - 20 * v + 20 * glow
            if (u - 0.68) ** 2 * 2.2 + (v - 0.30) ** 2 < 0.0042:
                red, green, blue = 255, 244, 214
            if v > ridge[x]:
                red, green, blue = 74 + 60 * (v - ridge[x]), 70, 104
            if v > hill[x]:
                ripple = 18 * math.sin(y * 1.7 + 3 * math.sin(x / 9)) * (v - hill[x]) * 3
                red, green, blue = 44 + ripple + 60 * glow, 82 + ripple, 70 + ripple
            noise = chance.randint(-5, 5)
            rows += bytes(max(0, min(255, int(c + noise))) for c in (blue, green, red)) + b"\0"
    return bytes(rows)


def chart(path: str) -> None:
    """Writes a bar chart as an old-style metafile with a placeable header."""

    def record(function: int, *words: int) -> bytes:
        return struct.pack(f"<IH{len(words)}H", 3 + len(words), function, *(w & 0xFFFF for w in words))

    def color(value: int) -> tuple[int, int]:
        return value & 0xFFFF, value >> 16

    records = [record(0x0103, 8), record(0x020B, 0, 0), record(0x020C, 300, 400)]  # anisotropic, origin, extent
    records.append(record(0x02FA, 0, 3, 0, *color(INK)))  # a pen, object 0
    records.append(record(0x012D, 0))
    for place, (value, fill) in enumerate(((120, RED), (210, GREEN), (90, ORANGE), (250, BLUE))):
        left = 40 + 90 * place
        records += [record(0x02FC, 0, *color(fill), 0), record(0x012D, 1)]  # a brush, object 1
        records.append(record(0x041B, 280, left + 60, 280 - value, left))  # a rectangle
        records += [record(0x012D, 0), record(0x01F0, 1)]
    points = (20, 200, 110, 130, 200, 170, 290, 60, 380, 90)
    records.append(record(0x0325, len(points) // 2, *points))
    records.append(record(0))
    body = b"".join(records)
    size = 9 + len(body) // 2
    header = struct.pack("<HHHIHIH", 1, 9, 0x300, size, 2, max(len(r) for r in records) // 2, 0)
    placeable = struct.pack("<IHhhhhHI", 0x9AC6CDD7, 0, 0, 0, 400, 300, 120, 0)
    checksum = 0
    for word in struct.unpack("<10H", placeable):
        checksum ^= word
    with open(path, "wb") as file:
        file.write(placeable + struct.pack("<H", checksum) + header + body)


def main(folder: str) -> None:
    os.makedirs(folder, exist_ok=True)
    drawing = mox.create("moxHub").Drawing
    sheet = drawing.CreateOffscreenBuffer(WIDTH, HEIGHT, PAPER)
    hdc = sheet.hDC

    def label(x: int, y: int, text: str, size: float = 9, color: int = INK, **style: object) -> None:
        drawing.DrawText(hdc, x, y, x + 600, y + 60, text, color, mox.dtf_LEFT, "Arial", size, **style)

    def section(y: int, title: str) -> None:
        label(30, y, title, 13, FontBold=True)
        drawing.DrawLine(hdc, 30, y + 24, WIDTH - 30, y + 24, 1, RULE)

    label(30, 18, "Contact sheet", 22, BLUE, FontBold=True, bUseShadow=True, ShadowColor=0xD8D0C8)

    section(66, "Bitmap filters")
    width, height = 208, 140
    photo = mox.picture(width, height, photograph(width, height))
    filters = drawing.BitmapFilter
    pictures = [
        ("The picture", photo),
        ("Brightness 60", filters.Brightness(photo, 60)),
        ("Contrast 20", filters.Contrast(photo, 20)),
        ("Emboss 1", filters.Emboss(photo, 1)),
        ("GrayScale", filters.GrayScale(photo)),
        ("HSL, one hue", filters.HSL(photo, True, 150)),
        ("Invert", filters.Invert(photo)),
        ("Neon", filters.Neon(photo)),
        ("BlackAndWhite", filters.BlackAndWhite(photo, 110, 0x602000, 0xC0F0FF)),
        ("RGB, more red", filters.RGB(photo, 70, 0, 10)),
    ]
    for place, (name, picture) in enumerate(pictures):
        x, y = 30 + place % 5 * (width + 20), 100 + place // 5 * (height + 30)
        drawing.DrawPicture(picture, hdc, x, y)
        label(x, y + height + 3, name)

    section(450, "Lines, rectangles, patterns, copies")
    for place in range(9):
        drawing.DrawLine(hdc, 30, 490 + 12 * place, 170, 490 + 20 * place, place % 5 + 1, (RED, GREEN, BLUE)[place % 3])
    for place, border in enumerate((1, 3, 8)):
        drawing.DrawRect2(hdc, 200 + 75 * place, 490, 265 + 75 * place, 555, border, BLUE, True, 0xF0E4D8)
        drawing.DrawRect2(hdc, 200 + 75 * place, 570, 265 + 75 * place, 635, border, ORANGE)
    for place, side in enumerate((2, 8, 16)):
        checkers = drawing.CreateOffscreenBuffer(64, 145, PAPER)
        for row in range(0, 145, side):
            for column in range(0, 64, side):
                if (row // side + column // side) % 2:
                    drawing.FillRect2(checkers.hDC, column, row, column + side, row + side, (RED, INK, GREEN)[place])
        checkers.Render(hdc, 440 + 75 * place, 490, 64, 145)
    drawing.DrawBitmap(photo, hdc, 680, 490, 150, 144, 60, 20, 75, 72, True)
    drawing.DrawBitmap(photo, hdc, 850, 490, 140, 95)
    drawing.FillRect2(hdc, 1010, 490, 1150, 635, 0x80C8F0)
    for place, transparency in enumerate((0, 110, 190)):
        drawing.DrawBitmap(photo, hdc, 1020, 498 + 46 * place, 120, 40, 0, 0, 0, 0, False, False, 0, transparency)
    label(850, 592, "scaled")

    section(660, "Text")
    for place in range(12):
        drawing.DrawText(hdc, 130, 790, 131, 791, f"      turned {30 * place}°", (INK, RED, BLUE)[place % 3], mox.dtf_NOCLIP, "Arial", 10, Degree=30 * place)
    for place, (face, style) in enumerate(
        (("Times New Roman", {}), ("Arial", {"FontBold": True}), ("Courier New", {"FontItalic": True}), ("Verdana", {"FontUnderline": True}))
    ):
        drawing.DrawText(hdc, 290, 695 + 46 * place, 800, 760 + 46 * place, f"{face}: quick brown fox", INK, mox.dtf_LEFT, face, 20, **style)
    drawing.DrawText(hdc, 760, 690, 1150, 750, "With a shadow", BLUE, mox.dtf_LEFT, "Arial", 30, FontBold=True, bUseShadow=True)
    box = "Words are broken where the rectangle ends, and what does not fit ends in dots."
    drawing.DrawRect2(hdc, 760, 760, 950, 850, 1, RULE)
    drawing.DrawText(hdc, 766, 764, 946, 846, box, INK, mox.dtf_WORDBREAK | mox.dtf_CENTER, "Arial", 10)
    drawing.DrawRect2(hdc, 970, 760, 1150, 790, 1, RULE)
    drawing.DrawText(hdc, 976, 764, 1144, 786, box, INK, mox.dtf_END_ELLIPSIS, "Arial", 10)
    drawing.DrawText(hdc, 970, 800, 1150, 850, "ClearType off", INK, mox.dtf_LEFT, "Arial", 14, bUseClearType=False)
    drawing.DrawText(hdc, 970, 824, 1150, 860, "ClearType on", INK, mox.dtf_LEFT, "Arial", 14)

    section(910, "Icons and a metafile")
    icons = (mox.dsi_Error, mox.dsi_Question, mox.dsi_Warning, mox.dsi_Information, mox.dsi_WinLogo, mox.dsi_Shield)
    for place, icon in enumerate(icons):
        drawing.DrawSystemIcon(icon, hdc, 30 + 56 * place, 950)
        drawing.DrawSystemIcon(icon, hdc, 30 + 56 * place, 1000, 16, 16)
        drawing.DrawSystemIcon(icon, hdc, 30 + 56 * place, 1030, 48, 48, 120)
    files = mox.create("moxHub").FileSystem
    for place, state in enumerate((mox.ICONSTATE_NORMAL, mox.ICONSTATE_FOCUS, mox.ICONSTATE_SELECTED)):
        files.File.DrawIcon("Z:" + os.path.abspath(__file__).replace("/", "\\"), hdc, 400 + 50 * place, 950, mox.ICON_32, state)
        files.Folder.DrawIcon("C:\\", hdc, 400 + 50 * place, 1000, mox.ICON_32, state)
        files.Folder.DrawIcon("Z:\\" + os.path.abspath(folder).strip("/").replace("/", "\\"), hdc, 400 + 50 * place, 1046, mox.ICON_32, state)
    path = os.path.join(folder, "chart.wmf")
    chart(path)
    metafile = mox.load_picture(path)
    drawing.DrawMetaFile(metafile, hdc, 590, 945, 200, 150)
    drawing.DrawMetaFile(metafile, hdc, 820, 960, 330, 110)

    section(1110, "Fonts of this machine")
    fonts = drawing.Font.ScreenFonts
    names = list(dict.fromkeys(fonts.Name(index) for index in range(fonts.Count) if not fonts.Symbol(index)))
    for place, name in enumerate(names[:32]):
        x, y = 30 + place // 8 * 285, 1145 + place % 8 * 21
        drawing.DrawText(hdc, x, y, x + 280, y + 22, name, INK, mox.dtf_SINGLELINE | mox.dtf_VCENTER, name, 11)
    label(30, HEIGHT - 18, f"{len(names)} names, {fonts.Count} entries with their character sets", 8)

    path = os.path.join(folder, "contact-sheet.png")
    mox.save_picture(sheet.CreateOlePicture(), path)
    print(f"  {path}")


if __name__ == "__main__":
    main(sys.argv[1] if len(sys.argv) > 1 else "demo")
