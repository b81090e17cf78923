#!/usr/bin/env python3
"""Draws the library's drag cursors as 32 x 32 monochrome .cur files.

Run from the top of the tree; it rewrites core/resources/cursors/*.cur. The
pictures below are the source: '.' lets the screen through, 'X' is black,
'o' is white and '~' inverts the screen. The hot spot is the arrow's tip.
"""
import struct

ARROW = """
X
XX
XoX
XooX
XoooX
XooooX
XoooooX
XooooooX
XoooooooX
XooooooooX
XoooooooooX
XooooooXXXXX
XoooXooX
XooX.XooX
XoX..XooX
XX....XooX
X.....XooX
.......XooX
.......XXX
"""

# A page beside the arrow: what is dragged can be dropped here.
DROP = ARROW.rstrip("\n") + """
..............XXXXXXXXX
..............XoooooooXX
..............XoXXXXooXoX
..............XoooooooXXXX
..............XoXXXXXXXooX
..............XoooooooooooX
..............XoXXXXXXXXooX
..............XoooooooooooX
..............XoXXXXXXXXooX
..............XoooooooooooX
..............XXXXXXXXXXXXX
"""

# A barred circle beside the arrow, its top on the arrow's last row:
# nothing here takes a drop.
NO_DROP = ARROW.rstrip("\n").rsplit("\n", 1)[0] + """
.......XXX......XXXXXX
..............XXooooooXX
.............XooXXXXXXooX
............XoXXX....XXXoX
............XoXXXX.....XoX
...........XoX.XXXX....XoX
...........XoX..XXXX...XoX
...........XoX...XXXX..XoX
...........XoX....XXXX.XoX
............XoX....XXXXoX
............XoXX....XXXoX
.............XooXXXXXXooX
..............XXooooooXX
................XXXXXX
"""

CURSORS = {32500: DROP, 32505: NO_DROP}
SIZE = 32

# (AND bit, XOR bit) of each picture character; XOR bit 1 is palette entry 1, white.
BITS = {".": (1, 0), "X": (0, 0), "o": (0, 1), "~": (1, 1)}


def rows(picture):
    lines = picture.strip("\n").split("\n")
    assert len(lines) <= SIZE and all(len(line) <= SIZE for line in lines)
    lines = [line.ljust(SIZE, ".") for line in lines]
    return lines + ["." * SIZE] * (SIZE - len(lines))


def mask(lines, which):
    """One mask, bottom row first, each row a 32-bit word with the left pixel high."""
    data = b""
    for line in reversed(lines):
        word = 0
        for character in line:
            word = (word << 1) | BITS[character][which]
        data += struct.pack(">I", word)
    return data


def cursor(picture, hot_x=0, hot_y=0):
    lines = rows(picture)
    header = struct.pack("<IiiHHIIiiII", 40, SIZE, SIZE * 2, 1, 1, 0, 0, 0, 0, 2, 0)
    palette = struct.pack("<II", 0x000000, 0xFFFFFF)
    image = header + palette + mask(lines, 1) + mask(lines, 0)
    directory = struct.pack("<HHH", 0, 2, 1)
    entry = struct.pack("<BBBBHHII", SIZE, SIZE, 2, 0, hot_x, hot_y, len(image), 6 + 16)
    return directory + entry + image


def main():
    for number, picture in CURSORS.items():
        with open("core/resources/cursors/%d.cur" % number, "wb") as out:
            out.write(cursor(picture))


if __name__ == "__main__":
    main()
