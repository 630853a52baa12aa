#!/usr/bin/env python3
"""Draws the icon of Tilwin.app at every size and writes it as an icns file, or one size as a PNG.

    make_icon.py Tilwin.icns
    make_icon.py icon.png 256
"""

import math
import struct
import sys
import zlib

# The picture, on a canvas of 1024 points: a sheet, and on it a display whose left half is filled. Shapes are
# (x, y, width, height, corner radius, line width or 0 to fill, opacity), from the bottom to the top.
CANVAS = 1024
SHEET = (100, 100, 824, 824, 185)
SHEET_TOP, SHEET_BOTTOM = (0x3D, 0x9B, 0xF5), (0x0A, 0x5F, 0xC2)
SHAPES = [
    (252, 292, 520, 440, 64, 36, 1.0),
    (330, 370, 166, 284, 28, 0, 1.0),
    (528, 370, 166, 126, 28, 0, 0.6),
    (528, 528, 166, 126, 28, 0, 0.6),
]
# Type codes of icns with the pixels of their PNG. Where two have the same size, one is of a Retina screen.
SIZES = {"icp4": 16, "icp5": 32, "ic11": 32, "ic12": 64, "ic07": 128, "ic13": 256, "ic08": 256, "ic14": 512,
         "ic09": 512, "ic10": 1024}


def distance(x, y, left, top, width, height, radius):
    """From a point to the edge of a rounded rectangle; negative inside."""
    dx = abs(x - left - width / 2) - width / 2 + radius
    dy = abs(y - top - height / 2) - height / 2 + radius
    return math.hypot(max(dx, 0), max(dy, 0)) + min(max(dx, dy), 0) - radius


def coverage(away, pixel):
    """How much of a pixel lies inside an edge that is this far away, both in points."""
    return min(max(0.5 - away / pixel, 0.0), 1.0)


def pixel_at(x, y, pixel):
    """Red, green, blue and alpha, 0 to 255."""
    alpha = coverage(distance(x, y, *SHEET), pixel)
    if alpha == 0:
        return 0, 0, 0, 0
    down = min(max((y - SHEET[1]) / SHEET[3], 0.0), 1.0)
    colour = [top + (bottom - top) * down for top, bottom in zip(SHEET_TOP, SHEET_BOTTOM)]
    for left, top, width, height, radius, line, opacity in SHAPES:
        away = distance(x, y, left, top, width, height, radius)
        if line:
            away = abs(away) - line / 2
        white = coverage(away, pixel) * opacity
        colour = [part + (255 - part) * white for part in colour]
    return *(round(part) for part in colour), round(alpha * 255)


def png(side):
    pixel = CANVAS / side
    rows = bytearray()
    for row in range(side):
        rows.append(0)  # no filter
        for column in range(side):
            rows.extend(pixel_at((column + 0.5) * pixel, (row + 0.5) * pixel, pixel))

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    header = struct.pack(">IIBBBBB", side, side, 8, 6, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(bytes(rows), 9))
            + chunk(b"IEND", b""))


def icns():
    pictures = {side: png(side) for side in set(SIZES.values())}
    entries = b"".join(kind.encode() + struct.pack(">I", 8 + len(pictures[side])) + pictures[side]
                       for kind, side in SIZES.items())
    return b"icns" + struct.pack(">I", 8 + len(entries)) + entries


def main(arguments):
    if len(arguments) == 1:
        data = icns()
    elif len(arguments) == 2 and arguments[1].isdigit():
        data = png(int(arguments[1]))
    else:
        sys.exit(__doc__)
    with open(arguments[0], "wb") as file:
        file.write(data)


if __name__ == "__main__":
    main(sys.argv[1:])
