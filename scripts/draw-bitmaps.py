#!/usr/bin/env python3
"""Draws the library's two picture sheets as 24-bit .bmp files.

Run from the top of the tree; it rewrites core/resources/bitmaps/*.bmp.

32000 is a strip of drive and folder pictures on pure blue, which the
drive and directory lists show transparently: drives in the first row of
16-pixel cells, folders in the second.

32001 holds the check box marks in its first row and the radio marks, on
red, in its second; cells are 16 pixels apart, starting at pixel 1. The
stepping arrows of the number field are cut from inside the checked box,
(6, 4)-(16, 10) and (6, 11)-(16, 17), so the checked box is drawn filled and
the arrows are drawn into its fill as light-grey cut-outs: the buttons treat
light grey as see-through, and the box still reads as checked.
"""
import struct

BLACK = (0, 0, 0)
WHITE = (255, 255, 255)
GREY = (128, 128, 128)
LIGHT = (192, 192, 192)
RED = (255, 0, 0)
BLUE = (0, 0, 255)
YELLOW = (255, 255, 0)
DARKYELLOW = (128, 128, 0)
GREEN = (0, 128, 0)
CYAN = (0, 128, 128)


class Sheet:
    def __init__(self, width, height, ground):
        self.width, self.height = width, height
        self.pixels = [[ground] * width for _ in range(height)]

    def put(self, x, y, colour):
        if 0 <= x < self.width and 0 <= y < self.height:
            self.pixels[y][x] = colour

    def fill(self, left, top, right, bottom, colour):
        """Fills the columns left..right and rows top..bottom, both ends included."""
        for y in range(top, bottom + 1):
            for x in range(left, right + 1):
                self.put(x, y, colour)

    def frame(self, left, top, right, bottom, colour):
        self.fill(left, top, right, top, colour)
        self.fill(left, bottom, right, bottom, colour)
        self.fill(left, top, left, bottom, colour)
        self.fill(right, top, right, bottom, colour)

    def disc(self, cx, cy, radius, colour, ring=None):
        """A disc of the given radius around (cx + 0.5, cy + 0.5); ring > 0 keeps only its edge."""
        for y in range(int(cy - radius) - 1, int(cy + radius) + 2):
            for x in range(int(cx - radius) - 1, int(cx + radius) + 2):
                d = ((x - cx) ** 2 + (y - cy) ** 2) ** 0.5
                if d <= radius and (ring is None or d > radius - ring):
                    self.put(x, y, colour)

    def save(self, path):
        row = (self.width * 3 + 3) & ~3
        data = b""
        for line in reversed(self.pixels):
            raw = b"".join(bytes((b, g, r)) for (r, g, b) in line)
            data += raw + b"\0" * (row - len(raw))
        header = struct.pack("<IiiHHIIiiII", 40, self.width, self.height, 1, 24, 0, len(data), 2835, 2835, 0, 0)
        with open(path, "wb") as out:
            out.write(struct.pack("<2sIHHI", b"BM", 14 + 40 + len(data), 0, 0, 14 + 40) + header + data)


def arrow(sheet, left, top, pointing_up):
    """A 10 x 6 cell: black, with a light-grey triangle of rows 2, 4, 6 and 8 wide."""
    sheet.fill(left, top, left + 9, top + 5, BLACK)
    for step in range(4):
        y = top + 1 + (step if pointing_up else 3 - step)
        sheet.fill(left + 4 - step, y, left + 5 + step, y, LIGHT)


def marks():
    sheet = Sheet(65, 33, WHITE)
    # Check boxes, columns 1..15 of each cell: checked, plain, third state, disabled.
    sheet.frame(1, 1, 15, 15, BLACK)
    sheet.fill(2, 2, 14, 14, BLACK)
    sheet.frame(17, 1, 31, 15, BLACK)
    sheet.frame(33, 1, 47, 15, BLACK)
    for y in range(3, 14):
        for x in range(35, 46):
            if (x + y) % 2 == 0:
                sheet.put(x, y, GREY)
    sheet.fill(49, 1, 63, 15, LIGHT)
    sheet.frame(49, 1, 63, 15, GREY)
    # Radio marks on red, the see-through colour of their draw, below the
    # row between the two rows of cells that the down arrow reaches into.
    sheet.fill(0, 17, 64, 32, RED)
    for left, edge, dot in ((1, BLACK, BLACK), (17, BLACK, None), (49, GREY, None)):
        cx, cy = left + 7, 24
        sheet.disc(cx, cy, 6.6, LIGHT if edge is GREY else WHITE)
        sheet.disc(cx, cy, 6.6, edge, ring=1.4)
        if dot:
            sheet.disc(cx, cy, 2.5, dot)
    # The arrows last, as nothing else may cross their cells.
    arrow(sheet, 6, 4, True)
    arrow(sheet, 6, 11, False)
    return sheet


def drives_and_folders():
    sheet = Sheet(80, 32, BLUE)
    # Removable: a diskette with its shutter and label.
    sheet.fill(2, 2, 13, 13, BLACK)
    sheet.fill(5, 2, 10, 6, LIGHT)
    sheet.fill(4, 9, 11, 13, WHITE)
    # Fixed: a drive box with its light.
    sheet.fill(17, 5, 30, 11, GREY)
    sheet.frame(17, 5, 30, 11, BLACK)
    sheet.fill(27, 9, 28, 9, GREEN)
    # Remote: a drive box hanging from a cable.
    sheet.fill(33, 3, 46, 9, GREY)
    sheet.frame(33, 3, 46, 9, BLACK)
    sheet.fill(39, 10, 40, 13, BLACK)
    sheet.fill(34, 14, 45, 14, BLACK)
    # CD-ROM: a disc with its hole.
    sheet.disc(55.5, 7.5, 6.5, LIGHT)
    sheet.disc(55.5, 7.5, 6.5, BLACK, ring=1)
    sheet.disc(55.5, 7.5, 1.6, BLUE)
    # RAM disk: a chip with its legs.
    sheet.fill(67, 4, 76, 11, GREEN)
    for x in range(68, 76, 2):
        sheet.put(x, 3, BLACK)
        sheet.put(x, 12, BLACK)
    # Folders: closed, open, and open with the current-directory mark.
    for left, open_ in ((0, False), (16, True), (32, True)):
        sheet.fill(left + 1, 19, left + 6, 20, DARKYELLOW)
        sheet.fill(left + 1, 21, left + 14, 29, YELLOW if not open_ else DARKYELLOW)
        sheet.frame(left + 1, 21, left + 14, 29, BLACK)
        if open_:
            sheet.fill(left + 3, 24, left + 15, 29, YELLOW)
            sheet.frame(left + 3, 24, left + 15, 29, BLACK)
    sheet.fill(40, 26, 42, 27, CYAN)
    return sheet


if __name__ == "__main__":
    drives_and_folders().save("core/resources/bitmaps/32000.bmp")
    marks().save("core/resources/bitmaps/32001.bmp")
