#!/usr/bin/env python3
"""Draws the shapes of the theme: white on clear, in their size at scale 1, coloured by the theme.

Run it in this folder after changing a shape; the build only reads the PNG files.
"""

import ctypes
import ctypes.util
import math
import struct
import zlib

FACTOR = 1


def write_png(name, size, coverage):
    """Writes a square grey-and-alpha picture; coverage(x, y) gives the alpha of a pixel, 0 to 1."""
    rows = bytearray()
    for y in range(size):
        rows.append(0)
        for x in range(size):
            rows += bytes((255, round(255 * coverage(x + 0.5, y + 0.5))))

    def chunk(tag, data):
        return struct.pack(">I", len(data)) + tag + data + struct.pack(">I", zlib.crc32(tag + data))

    with open(name, "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n")
        file.write(chunk(b"IHDR", struct.pack(">IIBBBBB", size, size, 8, 4, 0, 0, 0)))
        file.write(chunk(b"IDAT", zlib.compress(bytes(rows), 9)))
        file.write(chunk(b"IEND", b""))


def inside(distance):
    return min(1.0, max(0.0, 0.5 - distance))


def corner_distance(x, y, size, radius):
    """How far a point lies outside (negative: inside) a rounded square."""
    half = size / 2
    dx = abs(x - half) - (half - radius)
    dy = abs(y - half) - (half - radius)
    return math.hypot(max(dx, 0), max(dy, 0)) + min(max(dx, dy), 0) - radius


def draw_round(radius):
    size = 2 * radius + 2
    write_png(f"round-{radius}.png", size, lambda x, y: inside(corner_distance(x, y, size, radius)))


def draw_ring(radius, width):
    size = 2 * radius + 2

    def coverage(x, y):
        distance = corner_distance(x, y, size, radius)
        return inside(distance) - inside(distance + width)

    write_png(f"ring-{radius}.png", size, coverage)


def segment_distance(x, y, ax, ay, bx, by):
    t = ((x - ax) * (bx - ax) + (y - ay) * (by - ay)) / ((bx - ax) ** 2 + (by - ay) ** 2)
    t = min(1.0, max(0.0, t))
    return math.hypot(x - ax - t * (bx - ax), y - ay - t * (by - ay))


def draw_tick():
    points = [(12.5, 25), (20.5, 33), (35.5, 16)]
    width = 5.5

    def coverage(x, y):
        near = min(segment_distance(x, y, *a, *b) for a, b in zip(points, points[1:]))
        return inside(near - width / 2)

    write_png("tick.png", 48, coverage)


def draw_arrow():
    """An arrow head that points up, and turned."""
    points = [(12, 30), (24, 18), (36, 30)]
    width = 5.5

    def coverage(x, y):
        near = min(segment_distance(x, y, *a, *b) for a, b in zip(points, points[1:]))
        return inside(near - width / 2)

    write_png("arrow-up.png", 48, coverage)
    write_png("arrow-down.png", 48, lambda x, y: coverage(x, 48 - y))
    write_png("arrow-left.png", 48, lambda x, y: coverage(y, x))
    write_png("arrow-right.png", 48, lambda x, y: coverage(y, 48 - x))


def draw_slash():
    write_png("slash.png", 48, lambda x, y: inside(segment_distance(x, y, 16, 42, 32, 6) - 2))


def draw_shade(radius):
    """Thick at the edge, clear within; round at the corners, like the ground below it."""
    size = 48

    def coverage(x, y):
        dx = abs(x - size / 2) - (size / 2 - radius)
        dy = radius - y
        distance = math.hypot(dx, dy) - radius if min(dx, dy) > 0 else -1.0
        return (1 - y / size) ** 1.5 * inside(distance)

    write_png("shade-top.png", size, coverage)
    write_png("shade-bottom.png", size, lambda x, y: coverage(x, size - y))


def draw_stick():
    """A stick that stands on its plug; the program loads it by itself, and a row colours it."""
    size = 48
    boxes = ((24, 29, 12, 15, 4), (24, 9, 7.5, 6, 1.5))  # body and plug: centre, half its size, corner
    holes = ((21, 9, 1.5, 2, 0.5), (27, 9, 1.5, 2, 0.5), (24, 20, 4.5, 1.5, 1.5))

    def box_distance(x, y, cx, cy, w, h, radius):
        dx, dy = abs(x - cx) - (w - radius), abs(y - cy) - (h - radius)
        return math.hypot(max(dx, 0), max(dy, 0)) + min(max(dx, dy), 0) - radius

    def coverage(x, y):
        solid = max(inside(box_distance(x, y, *box)) for box in boxes)
        return solid * (1 - max(inside(box_distance(x, y, *hole)) for hole in holes))

    pixels = bytearray()
    for y in range(size):
        for x in range(size):
            pixels += bytes((255, 255, 255, round(255 * coverage(x + 0.5, y + 0.5))))
    webp = ctypes.CDLL(ctypes.util.find_library("webp"))
    webp.WebPEncodeLosslessRGBA.restype = ctypes.c_size_t
    output = ctypes.POINTER(ctypes.c_uint8)()
    length = webp.WebPEncodeLosslessRGBA(bytes(pixels), size, size, 4 * size, ctypes.byref(output))
    with open("r_icon_device_s_usb.webp", "wb") as file:
        file.write(ctypes.string_at(output, length))


for corner in (5, 6, 10, 16, 20, 24, 28):
    draw_round(corner)
for corner, line in ((10, 4), (16, 3), (20, 3), (28, 4)):
    draw_ring(corner, line)
draw_tick()
draw_arrow()
draw_slash()
draw_shade(20)
draw_stick()
