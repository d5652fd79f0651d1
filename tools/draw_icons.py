#!/usr/bin/env python3
"""Draws the icons of the tool bar and of the window into resources/icons, and the icon of the window in the sizes of
a desktop into resources/desktop/hicolor.

Simple shapes in one look: a dark blue pencil, pale fills, one orange mark for the satellite. A pale rim keeps the
pencil legible on a dark tool bar; on a light one it does not show. Each icon of the tool bar comes in two sizes, the
second for a screen of twice the resolution. Needs the standard library only. Run it from anywhere; the files come out
the same byte for byte.
"""
import functools
import math
import os
import struct
import zlib

BLUE = (31, 63, 127)
PALE = (214, 226, 245)
WHITE = (255, 255, 255)
ORANGE = (224, 112, 16)
GREEN = (40, 140, 60)
SAND = (240, 204, 112)
SEA = (72, 128, 208)
SAMPLES = 4  # per pixel and direction


class Canvas:
    """A square picture; shapes are functions of a point that say whether it lies inside.

    The drawing is made for a square of grid units, whatever the number of pixels.
    """

    def __init__(self, size, grid):
        self.size = size
        self.unit = grid / size
        self.pixels = [[(0.0, 0.0, 0.0, 0.0)] * size for _ in range(size)]

    def fill(self, inside, colour):
        steps = [(k + 0.5) / SAMPLES for k in range(SAMPLES)]
        for y in range(self.size):
            for x in range(self.size):
                hits = sum(inside((x + dx) * self.unit, (y + dy) * self.unit) for dx in steps for dy in steps)
                if hits:
                    self.blend(x, y, colour, hits / SAMPLES**2)

    def blend(self, x, y, colour, cover):
        red, green, blue, alpha = self.pixels[y][x]
        total = cover + alpha * (1 - cover)
        mixed = [(c * cover + old * alpha * (1 - cover)) / total for c, old in zip(colour, (red, green, blue))]
        self.pixels[y][x] = (*mixed, total)

    def rim(self, width, colour):
        """Lays a rim of width grid units under the shapes, solid at their edge and fading outwards."""
        reach = math.ceil(width / self.unit)
        steps = range(-reach, reach + 1)
        near = [(dx, dy, max(0, 1 - math.hypot(dx, dy) / (reach + 1))) for dx in steps for dy in steps]
        before = [[alpha for _, _, _, alpha in row] for row in self.pixels]
        for y in range(self.size):
            for x in range(self.size):
                glow = max(before[y + dy][x + dx] * fall for dx, dy, fall in near
                           if 0 <= x + dx < self.size and 0 <= y + dy < self.size)
                red, green, blue, alpha = self.pixels[y][x]
                total = alpha + glow * (1 - alpha)
                if total > 0:
                    mixed = [(c * alpha + r * glow * (1 - alpha)) / total for c, r in zip((red, green, blue), colour)]
                    self.pixels[y][x] = (*mixed, total)

    def disc(self, x, y, r, colour):
        self.fill(lambda px, py: (px - x) ** 2 + (py - y) ** 2 <= r * r, colour)

    def ring(self, x, y, r, width, colour, start=0, end=360):
        """An arc from start to end degrees, counted clockwise from the top."""

        def inside(px, py):
            angle = math.degrees(math.atan2(px - x, y - py)) % 360
            return abs(math.hypot(px - x, py - y) - r) <= width / 2 and start <= angle <= end

        self.fill(inside, colour)

    def ellipse(self, x, y, a, b, tilt, width, colour):
        """The outline of an ellipse with its long axis turned by tilt degrees."""
        turn = math.radians(tilt)
        points = []
        for k in range(73):
            angle = math.radians(5 * k)
            u, v = a * math.cos(angle), b * math.sin(angle)
            points.append((x + u * math.cos(turn) - v * math.sin(turn), y + u * math.sin(turn) + v * math.cos(turn)))
        self.path(points, width, colour)

    def path(self, points, width, colour):
        @functools.lru_cache
        def pieces(py):
            """Those that a point of this height may lie on: the others cost most of the time."""
            return [(a, b) for a, b in zip(points, points[1:])
                    if min(a[1], b[1]) - width <= py <= max(a[1], b[1]) + width]

        self.fill(lambda px, py: any(distance(px, py, a, b) <= width / 2 for a, b in pieces(py)), colour)

    def polygon(self, points, colour):
        def inside(px, py):
            odd = False
            for (ax, ay), (bx, by) in zip(points, points[1:] + points[:1]):
                if (ay > py) != (by > py) and px < ax + (py - ay) * (bx - ax) / (by - ay):
                    odd = not odd
            return odd

        self.fill(inside, colour)

    def box(self, x0, y0, x1, y1, colour):
        self.fill(lambda px, py: x0 <= px <= x1 and y0 <= py <= y1, colour)

    def framed(self, x0, y0, x1, y1, fill):
        self.box(x0, y0, x1, y1, BLUE)
        self.box(x0 + 1.4, y0 + 1.4, x1 - 1.4, y1 - 1.4, fill)

    def satellite(self, x, y):
        self.path([(x - 5, y + 5), (x + 5, y - 5)], 1.2, BLUE)
        for side in (-1, 1):
            cx, cy = x + 4 * side, y - 4 * side
            self.polygon([(cx - 3, cy), (cx, cy - 3), (cx + 3, cy), (cx, cy + 3)], SEA)
        self.disc(x, y, 2.7, ORANGE)

    def arrow(self, points, colour, head=3.2, width=1.8):
        self.path(points, width, colour)
        (ax, ay), (bx, by) = points[-2:]
        length = math.hypot(bx - ax, by - ay)
        ux, uy = (bx - ax) / length, (by - ay) / length
        tip = (bx + ux * head * 0.9, by + uy * head * 0.9)
        self.polygon([tip, (bx - uy * head, by + ux * head), (bx + uy * head, by - ux * head)], colour)

    def save(self, path):
        rows = b""
        for row in self.pixels:
            rows += b"\0" + b"".join(bytes([round(r), round(g), round(b), round(255 * a)]) for r, g, b, a in row)
        header = struct.pack(">IIBBBBB", self.size, self.size, 8, 6, 0, 0, 0)
        with open(path, "wb") as out:
            out.write(b"\x89PNG\r\n\x1a\n")
            for kind, data in ((b"IHDR", header), (b"IDAT", zlib.compress(rows, 9)), (b"IEND", b"")):
                out.write(struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data)))


def distance(px, py, a, b):
    """From a point to a piece of straight line."""
    (ax, ay), (bx, by) = a, b
    square = (bx - ax) ** 2 + (by - ay) ** 2
    t = 0 if square == 0 else max(0, min(1, ((px - ax) * (bx - ax) + (py - ay) * (by - ay)) / square))
    return math.hypot(px - ax - t * (bx - ax), py - ay - t * (by - ay))


def arc_points(x, y, r, start, end):
    return [(x + r * math.sin(math.radians(d)), y - r * math.cos(math.radians(d))) for d in range(start, end + 1, 6)]


def fileopen(c):
    c.polygon([(2, 18.5), (2, 4), (8, 4), (10, 6.5), (18, 6.5), (18, 18.5)], BLUE)
    c.polygon([(3.4, 17), (3.4, 5.4), (7.4, 5.4), (9.4, 7.9), (16.6, 7.9), (16.6, 17)], SAND)
    c.polygon([(2, 18.5), (6, 10), (21, 10), (17.5, 18.5)], BLUE)
    c.polygon([(4.2, 17.1), (6.9, 11.4), (18.9, 11.4), (16.6, 17.1)], PALE)


def filesave(c):
    c.polygon([(3, 3), (16, 3), (19, 6), (19, 19), (3, 19)], BLUE)
    c.box(6.5, 3, 14.5, 8.5, PALE)
    c.box(11.5, 4, 13.3, 7.5, BLUE)
    c.box(5.5, 11, 16.5, 19, WHITE)
    c.box(7, 13, 15, 14, SEA)
    c.box(7, 15.5, 15, 16.5, SEA)


def satpsels(c):
    c.satellite(9, 12.5)
    c.box(14.8, 13, 17, 20, GREEN)
    c.box(12.4, 15.4, 19.4, 17.6, GREEN)


def satpnx4p(c):
    c.satellite(8.5, 9)
    for x in (8, 13):
        c.polygon([(x, 14), (x + 5, 17.5), (x, 21)], GREEN)


def satpdate(c):
    c.framed(3, 4, 19, 19, WHITE)
    c.box(3, 4, 19, 8.5, BLUE)
    for x in (7, 15):
        c.box(x - 0.9, 2.2, x + 0.9, 6, SEA)
    for x in (6.5, 11, 15.5):
        for y in (11.2, 15.2):
            c.box(x - 1.2, y - 1.1, x + 1.2, y + 1.1, ORANGE if (x, y) == (11, 15.2) else SEA)


def satploc(c):
    c.ellipse(11, 18, 7.5, 2.3, 0, 1.4, BLUE)
    c.polygon([(6.2, 9.2), (15.8, 9.2), (11, 18)], ORANGE)
    c.disc(11, 7.3, 5.2, ORANGE)
    c.disc(11, 7.3, 2.2, WHITE)


def satppaos(c):
    c.box(1.5, 17.6, 20.5, 19.2, BLUE)
    c.path(arc_points(11, 17.5, 8.5, -84, 84), 1.5, SEA)
    for degrees in (-62, 0, 62):
        x, y = 11 + 8.5 * math.sin(math.radians(degrees)), 17.5 - 8.5 * math.cos(math.radians(degrees))
        c.disc(x, y, 2.4, ORANGE)


def satpirid(c):
    for degrees in range(0, 360, 45):
        length = 9.5 if degrees % 90 == 0 else 5.5
        u, v = math.sin(math.radians(degrees)), math.cos(math.radians(degrees))
        c.polygon([(11 + length * u, 11 - length * v), (11 + 2 * v, 11 + 2 * u), (11 - 2 * v, 11 - 2 * u)], ORANGE)
    c.disc(11, 11, 3.4, SAND)


def satpfind(c):
    c.path([(13.2, 13.2), (19, 19)], 3.2, BLUE)
    c.disc(9, 9, 7, BLUE)
    c.disc(9, 9, 5.4, PALE)
    c.disc(9, 9, 2.4, ORANGE)


def satpxorb(c):
    c.ellipse(11, 11, 9.5, 3.8, -35, 1.5, BLUE)
    c.disc(11, 11, 4.2, SEA)
    c.disc(17.6, 5.1, 2.5, ORANGE)


def satprtim(c):
    c.disc(11, 11, 9, BLUE)
    c.disc(11, 11, 7.4, WHITE)
    c.path([(11, 5.5), (11, 11), (15, 13.5)], 1.8, BLUE)
    c.disc(11, 11, 1.6, ORANGE)


def satpdltm(c):
    c.polygon([(11, 2), (20, 16), (2, 16)], BLUE)
    c.polygon([(11, 5.4), (16.6, 14.2), (5.4, 14.2)], WHITE)
    for x in (3.5, 8.5, 13.5, 18.5):
        c.disc(x, 19.2, 1.4, ORANGE)


def satppass(c):
    c.box(1.5, 17.6, 20.5, 19.2, BLUE)
    c.path(arc_points(11, 17.5, 8.5, -84, 84), 1.5, SEA)
    c.disc(11, 9, 2.6, ORANGE)
    c.arrow([(2.5, 4), (9, 4)], GREEN)


def satprefr(c):
    c.path(arc_points(11, 11.5, 7, 60, 342), 2.2, BLUE)
    c.polygon([(8.3, 0.8), (8.3, 9), (14.3, 4.9)], BLUE)


def satpswss(c):
    c.disc(4.5, 6.5, 2.5, ORANGE)
    c.arrow([(8, 6.5), (16.5, 6.5)], BLUE)
    c.disc(17.5, 15.5, 2.5, ORANGE)
    c.arrow([(14, 15.5), (5.5, 15.5)], BLUE)


def satpsmap(c):
    c.disc(11, 11, 9.3, BLUE)
    c.disc(11, 11, 7.9, PALE)
    c.ellipse(11, 11, 7.9, 3.4, 90, 1.1, SEA)
    c.box(3.2, 10.4, 18.8, 11.6, SEA)
    c.box(10.4, 3.2, 11.6, 18.8, SEA)
    c.disc(14.5, 7.5, 2.3, ORANGE)


def satpvisb(c):
    lens = [(1.5, 11)] + arc_points(11, 15.6, 10.5, -60, 60) + [(20.5, 11)] + arc_points(11, 6.4, 10.5, 120, 240)
    c.polygon(lens, BLUE)
    inner = [(3.8, 11)] + arc_points(11, 16.2, 9.6, -48, 48) + [(18.2, 11)] + arc_points(11, 5.8, 9.6, 132, 228)
    c.polygon(inner, WHITE)
    c.disc(11, 11, 3.6, SEA)
    c.disc(11, 11, 1.6, BLUE)


def satptstp(c):
    c.path([(3, 19), (3, 14.5), (8.5, 14.5), (8.5, 10), (14, 10), (14, 5.5), (19.5, 5.5)], 2, BLUE)
    for x, y in ((5.7, 11.3), (11.2, 6.8), (16.7, 2.5)):
        c.disc(x, y, 1.8, ORANGE)


def satpwhat(c):
    c.polygon([(2, 2), (2, 16.5), (5.4, 13.4), (7.8, 19), (10.6, 17.8), (8.2, 12.3), (12.8, 12.3)], BLUE)
    c.polygon([(3.5, 5.5), (3.5, 13), (5.9, 10.9), (9.3, 10.9)], PALE)
    c.path(arc_points(16, 6, 3.4, -84, 132) + [(16, 11.4)], 2, ORANGE)
    c.disc(16, 15, 1.4, ORANGE)


def vorlix32(c):
    c.disc(16, 16, 10, BLUE)
    c.disc(16, 16, 8.6, SEA)
    c.polygon([(11, 10), (16, 8.5), (17, 12), (14, 15), (15, 19), (12.5, 20), (9.5, 15)], GREEN)
    c.polygon([(19, 16), (23, 14.5), (23.5, 18), (20.5, 21.5)], GREEN)
    c.ellipse(16, 16, 15, 5.2, -30, 1.8, ORANGE)
    c.disc(27, 6.8, 3.6, BLUE)
    c.disc(27, 6.8, 2.5, ORANGE)


TOOL_BAR = (fileopen, filesave, satpsels, satpnx4p, satpdate, satploc, satppaos, satpirid, satpfind, satpxorb, satprtim,
            satpdltm, satppass, satprefr, satpswss, satpsmap, satpvisb, satptstp, satpwhat)


DESKTOP_SIZES = (16, 22, 24, 32, 48, 64, 128, 256)


def save(draw, size, grid, *path, rim=0):
    path = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "resources", *path)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    canvas = Canvas(size, grid)
    draw(canvas)
    if rim:
        canvas.rim(rim, PALE)
    canvas.save(path)


def main():
    for draw in TOOL_BAR:
        save(draw, 22, 22, "icons", draw.__name__ + ".png", rim=1)
        save(draw, 44, 22, "icons", draw.__name__ + "@2x.png", rim=1)
    save(vorlix32, 32, 32, "icons", "vorlix32.png")
    for size in DESKTOP_SIZES:
        save(vorlix32, size, 32, "desktop", "hicolor", f"{size}x{size}", "apps", "vorlix.png")


if __name__ == "__main__":
    main()
