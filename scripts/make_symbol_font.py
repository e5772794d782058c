#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Draws the map signs of "Tessera Symbols" and writes them as a TrueType font.

    scripts/make_symbol_font.py src/tessera/graphics/symbols/TesseraSymbols.ttf

Signs are drawn on a grid of 16 x 16 cells, y upwards, so that a cell is one pixel at a size of 16. Every sign is put in
the middle of its em square, and the em square is the whole text box (ascent 16 cells, descent none, advance 16 cells):
a sign that is drawn centred by its text box lies centred on its point. The signs have private use codes, 0xF000 plus
the shape, the place of signs in symbol fonts; there no layout engine takes them for spaces or letters, and no automatic
hinting bends them into the heights of letters. The same input always gives the same bytes.
"""
import math
import struct
import sys

UNITS_PER_CELL = 128
EM = 16 * UNITS_PER_CELL
FIRST_CODE = 0xF000
FAMILY = "Tessera Symbols"
LINE = 1.5  # the width of outlines, in cells


# A contour is a list of (x, y, on the curve); between two points on the curve at most one is off it (quadratic).


def polygon(*points):
    return [(x, y, True) for x, y in points]


def mirrored(*right_half):
    """A polygon that is symmetrical about x = 8, from its right half, top to bottom."""
    left_half = [(16 - x, y) for x, y in reversed(right_half) if x != 8]
    return polygon(*right_half, *left_half)


def rect(x1, y1, x2, y2):
    return polygon((x1, y1), (x2, y1), (x2, y2), (x1, y2))


def arc_points(cx, cy, radius, start_deg, end_deg):
    """Points of an arc, in quadratic pieces of at most 45 degrees: off the true circle by less than 0.1 %."""
    pieces = max(1, math.ceil(abs(end_deg - start_deg) / 45 - 1e-9))
    step = math.radians(end_deg - start_deg) / pieces
    points = []
    for i in range(pieces + 1):
        angle = math.radians(start_deg) + i * step
        points.append((cx + radius * math.cos(angle), cy + radius * math.sin(angle), True))
        if i < pieces:
            middle, reach = angle + step / 2, radius / math.cos(step / 2)
            points.append((cx + reach * math.cos(middle), cy + reach * math.sin(middle), False))
    return points


def circle(cx, cy, radius):
    return arc_points(cx, cy, radius, 0, 360)[:-1]


def round_rect(x1, y1, x2, y2, radius):
    return (
        arc_points(x2 - radius, y2 - radius, radius, 0, 90)
        + arc_points(x1 + radius, y2 - radius, radius, 90, 180)
        + arc_points(x1 + radius, y1 + radius, radius, 180, 270)
        + arc_points(x2 - radius, y1 + radius, radius, 270, 360)
    )


def bow(cx, cy, radius, width, start_deg, end_deg):
    """A thick arc."""
    return arc_points(cx, cy, radius + width / 2, start_deg, end_deg) + arc_points(
        cx, cy, radius - width / 2, end_deg, start_deg
    )


def stroke(x1, y1, x2, y2, width):
    """A thick line with square ends at its end points."""
    scale = width / 2 / math.hypot(x2 - x1, y2 - y1)
    dx, dy = (y2 - y1) * scale, (x1 - x2) * scale
    return polygon((x1 + dx, y1 + dy), (x2 + dx, y2 + dy), (x2 - dx, y2 - dy), (x1 - dx, y1 - dy))


def turned(contour, degrees):
    """The contour turned about the middle of the em square."""
    c, s = math.cos(math.radians(degrees)), math.sin(math.radians(degrees))
    return [(8 + (x - 8) * c - (y - 8) * s, 8 + (x - 8) * s + (y - 8) * c, on) for x, y, on in contour]


def flipped(contours):
    """Contours mirrored about x = 8."""
    return [[(16 - x, y, on) for x, y, on in contour] for contour in contours]


def signed_area(contour):
    return sum(x1 * y2 - x2 * y1 for (x1, y1, _), (x2, y2, _) in zip(contour, contour[1:] + contour[:1])) / 2


def filled(contour):
    """Clockwise, as the format has its filled contours. Those of one sign may overlap."""
    return contour if signed_area(contour) < 0 else contour[::-1]


def hole(contour):
    """Counter-clockwise: empty where exactly one filled contour lies."""
    return contour if signed_area(contour) > 0 else contour[::-1]


def inset(contour, distance):
    """The polygon with every side moved inwards."""
    points = [(x, y) for x, y, _ in filled(contour)]
    lines = []
    for (x1, y1), (x2, y2) in zip(points, points[1:] + points[:1]):
        length = math.hypot(x2 - x1, y2 - y1)
        nx, ny = (y2 - y1) / length, (x1 - x2) / length
        lines.append((nx, ny, nx * x1 + ny * y1 + distance))
    corners = []
    for (a1, b1, c1), (a2, b2, c2) in zip(lines[-1:] + lines[:-1], lines):
        det = a1 * b2 - a2 * b1
        corners.append(((c1 * b2 - c2 * b1) / det, (a1 * c2 - a2 * c1) / det))
    return polygon(*corners)


def hollow(contour, width=LINE):
    return [filled(contour), hole(inset(contour, width))]


def ring(cx, cy, outer, inner):
    return [filled(circle(cx, cy, outer)), hole(circle(cx, cy, inner))]


def solid(*contours):
    return [filled(contour) for contour in contours]


def five_pointed_star():
    radii = (7.9, 3.4)
    angles = [math.radians(90 - 36 * i) for i in range(10)]
    return polygon(*((8 + radii[i % 2] * math.cos(a), 8 + radii[i % 2] * math.sin(a)) for i, a in enumerate(angles)))


SQUARE = rect(2, 2, 14, 14)
DIAMOND = mirrored((8, 15.4), (15.4, 8), (8, 0.6))
TRIANGLE_UP = mirrored((8, 14.5), (15.5, 1.5))
TRIANGLE_DOWN = mirrored((15.5, 14.5), (8, 1.5))
STAR = five_pointed_star()


def plus_arms(reach, width):
    half = width / 2
    return polygon(
        (8 - half, 8 + reach), (8 + half, 8 + reach), (8 + half, 8 + half), (8 + reach, 8 + half),
        (8 + reach, 8 - half), (8 + half, 8 - half), (8 + half, 8 - reach), (8 - half, 8 - reach),
        (8 - half, 8 - half), (8 - reach, 8 - half), (8 - reach, 8 + half), (8 - half, 8 + half),
    )  # fmt: skip


def crosshair():
    return ring(8, 8, 5.6, 4.1) + solid(rect(7.25, 0.5, 8.75, 15.5), rect(0.5, 7.25, 15.5, 8.75))


def north_arrow():
    east_half = polygon((8, 15.5), (14, 0.8), (8, 4.6))
    return solid(polygon((8, 15.5), (2, 0.8), (8, 4.6))) + hollow(east_half, 1.1)


def triangulation_point():
    return hollow(TRIANGLE_UP, 1.4) + solid(circle(8, 5.9, 1.6))


def flag():
    cloth = [
        (3.5, 14.6, True), (6, 16.2, False), (9, 14.4, True), (11.6, 12.8, False), (14.6, 14.4, True),
        (14.6, 7, True), (11.6, 5.4, False), (9, 7, True), (6, 8.8, False), (3.5, 7.2, True),
    ]  # fmt: skip
    return solid(rect(2, 0.8, 3.6, 15.2), cloth)


def house():
    return solid(
        polygon(
            (8, 15.2), (10.7, 12.6), (10.7, 14.4), (12.9, 14.4), (12.9, 10.5), (15.7, 7.8), (13.4, 7.8), (13.4, 1),
            (9.5, 1), (9.5, 6), (6.5, 6), (6.5, 1), (2.6, 1), (2.6, 7.8), (0.3, 7.8),
        )
    )  # fmt: skip


def church():
    door = [(9.4, 0.6, True), (9.4, 3, True), (9.4, 4.6, False), (8, 4.6, True), (6.6, 4.6, False), (6.6, 3, True),
            (6.6, 0.6, True)]  # fmt: skip
    walls = polygon((2.6, 0.6), (2.6, 5.8), (8, 10.4), (13.4, 5.8), (13.4, 0.6))
    return solid(walls + door, rect(7.25, 9.4, 8.75, 15.6), rect(5.3, 12, 10.7, 13.5))


def hospital():
    return [filled(round_rect(1.4, 1.4, 14.6, 14.6, 2.2)), hole(plus_arms(4.8, 3.2))]


def school():
    """A mortarboard."""
    cap = [(3.6, 7.5, True), (8, 5.4, True), (12.4, 7.5, True), (12.4, 4, True), (8, 1, False), (3.6, 4, True)]
    return solid(mirrored((8, 14), (15.8, 10.2), (8, 6.4)), cap, rect(14, 4.4, 15, 9.9), circle(14.5, 4.2, 1.1))


def factory():
    outline = polygon(
        (0.8, 1.4), (1.4, 14.6), (4, 14.6), (4.5, 7), (8, 10.4), (8, 7), (11.6, 10.4), (11.6, 7), (15.2, 10.4), (15.2, 1.4)
    )
    windows = [rect(x, 3.4, x + 1.9, 5.3) for x in (3, 7.05, 11.1)]
    return solid(outline) + [hole(window) for window in windows]


def museum():
    columns = [rect(x, 3.4, x + 1.7, 9.2) for x in (2, 5.45, 8.85, 12.3)]
    return solid(mirrored((8, 15.4), (15.4, 11.4), (15.4, 10)), rect(0.6, 0.6, 15.4, 2.6), *columns)


def lighthouse():
    def left_edge(y):
        return 4.4 + (y - 0.6) * 0.21

    bands = [
        polygon((left_edge(y1), y1), (left_edge(y2), y2), (16 - left_edge(y2), y2), (16 - left_edge(y1), y1))
        for y1, y2 in ((0.6, 3.4), (4.5, 7), (8.1, 9.6))
    ]
    beam = polygon((5.4, 12.1), (0.6, 14.2), (0.6, 10.0))
    tower = solid(*bands, rect(5, 9.6, 11, 10.6), rect(6.5, 10.6, 9.5, 13.2), mirrored((8, 15.6), (10.3, 13.2)))
    return tower + solid(beam) + solid(*flipped([beam]))


def anchor():
    barb = polygon((0.7, 4.4), (1.6, 8.2), (4.7, 5.7))
    body = solid(rect(7.2, 1, 8.8, 11.2), rect(4.4, 8.8, 11.6, 10.3), bow(8, 6.7, 5.5, 1.7, 202, 338))
    return ring(8, 12.9, 2.5, 1.1) + body + solid(barb) + solid(*flipped([barb]))


def target():
    return ring(8, 8, 7.4, 5.7) + solid(circle(8, 8, 3))


def ship():
    hull = [(0.4, 6.6, True), (15.6, 6.6, True), (14.8, 3.6, False), (13, 1.8, True), (3, 1.8, True), (1.2, 3.6, False)]
    cabin = polygon((3, 7.4), (3, 10.2), (12.2, 10.2), (13, 7.4))
    return solid(hull, cabin, rect(5, 11, 7.2, 14.2), rect(8.6, 11, 10.8, 14.2))


def airplane():
    right = [
        (8, 15.7, True), (9.4, 15.5, False), (9.4, 12.6, True), (9.4, 10.1, True), (15.6, 6.2, True), (15.6, 4.4, True),
        (9.4, 6.4, True), (9.0, 3.2, True), (11.2, 1.5, True), (11.2, 0.3, True), (8, 1.2, True),
    ]  # fmt: skip
    left = [(16 - x, y, on) for x, y, on in reversed(right) if x != 8]
    return solid(right + left)


def bridge():
    main_cable = [(4, 13.9, True), (8, 4.2, False), (12, 13.9, True), (12, 12.5, True), (8, 2.8, False), (4, 12.5, True)]
    towers = [rect(3.2, 2, 4.8, 14), rect(11.2, 2, 12.8, 14)]
    hangers = [rect(x - 0.4, 5.8, x + 0.4, 8.6) for x in (6.6, 8, 9.4)]
    cables = [main_cable, stroke(4, 13.2, 0.9, 6, 1.2), stroke(12, 13.2, 15.1, 6, 1.2)]
    return solid(rect(0.4, 4.4, 15.6, 6.2), *towers, *hangers, *cables)


def mountain():
    outline = polygon((0.3, 2), (6.6, 14), (9.6, 8.4), (10.9, 10.6), (15.7, 2))
    snow = polygon((6.6, 11.9), (5, 8.8), (6, 9.4), (6.8, 7.9), (7.6, 9.2), (8.1, 9.1))
    return [filled(outline), hole(snow)]


def conifer():
    return solid(
        mirrored((8, 15.6), (11.8, 10.6), (10, 10.6), (13.4, 6.6), (11.4, 6.6), (14.8, 2.6), (9.1, 2.6), (9.1, 0.4))
    )


def tent():
    poles = [stroke(8.2, 12, 9.5, 14.2, 1.2), stroke(7.8, 12, 6.5, 14.2, 1.2)]
    return solid(mirrored((8, 13.1), (15.7, 1.8), (11.4, 1.8), (8, 8.2)), *poles)


def mine():
    """Crossed hammers."""
    handle = rect(7.1, -0.6, 8.9, 15)
    head = polygon((4.2, 12.6), (4.2, 15.8), (9.6, 15.8), (12, 13.4), (12, 12.6))
    hammer = [turned(handle, -45), turned(head, -45)]
    return solid(*hammer) + solid(*flipped(hammer))


def camera():
    finder = polygon((4.8, 11.4), (6, 13.8), (10, 13.8), (11.2, 11.4))
    return solid(round_rect(0.5, 2.2, 15.5, 12, 1.6), finder) + [
        hole(circle(8, 7, 3.5)),
        filled(circle(8, 7, 2.1)),
    ]


def railway_station():
    """A train from the front, on its track."""
    front = solid(round_rect(2.6, 3.6, 13.4, 15.5, 2.6))
    front += [hole(rect(4.5, 8.6, 11.5, 12.8)), hole(circle(5.4, 6.1, 1.1)), hole(circle(10.6, 6.1, 1.1))]
    rail = stroke(5.6, 4.2, 3, 0.5, 1.5)
    return front + solid(rail, rect(4.6, 1.4, 11.4, 2.5)) + solid(*flipped([rail]))


# The signs, from shape 32 on.
SIGNS = [
    solid(SQUARE),
    solid(DIAMOND),
    solid(circle(8, 8, 7)),
    solid(STAR),
    solid(TRIANGLE_UP),
    solid(TRIANGLE_DOWN),
    hollow(SQUARE),
    hollow(DIAMOND, 1.6),
    ring(8, 8, 7, 7 - LINE),
    hollow(STAR, 1.2),
    hollow(TRIANGLE_UP),
    hollow(TRIANGLE_DOWN),
    solid(plus_arms(6.8, 3.4)),
    solid(turned(plus_arms(7.6, 3.4), 45)),
    crosshair(),
    north_arrow(),
    triangulation_point(),
    flag(),
    house(),
    church(),
    hospital(),
    school(),
    factory(),
    museum(),
    lighthouse(),
    anchor(),
    target(),
    ship(),
    airplane(),
    bridge(),
    mountain(),
    conifer(),
    tent(),
    mine(),
    camera(),
    railway_station(),
]
FIRST_SIGN_SHAPE = 32
EMPTY_SHAPE = 31


def curve_extent(contour, axis):
    """The least and the greatest coordinate that the curve itself reaches; control points lie farther out."""
    reached = [point[axis] for point in contour if point[2]]
    for before, control, after in zip(contour[-1:] + contour[:-1], contour, contour[1:] + contour[:1]):
        bend = before[axis] - 2 * control[axis] + after[axis]
        if control[2] or bend == 0:
            continue
        t = (before[axis] - control[axis]) / bend
        if 0 < t < 1:
            reached.append((1 - t) ** 2 * before[axis] + 2 * t * (1 - t) * control[axis] + t * t * after[axis])
    return min(reached), max(reached)


def in_font_units(contours):
    """The contours in whole font units, moved so that what is drawn lies in the middle of the em square."""
    extents = [[curve_extent(contour, axis) for contour in contours] for axis in (0, 1)]
    dx, dy = (8 - (min(e[0] for e in extent) + max(e[1] for e in extent)) / 2 for extent in extents)
    return [
        [(round((x + dx) * UNITS_PER_CELL), round((y + dy) * UNITS_PER_CELL), on) for x, y, on in contour]
        for contour in contours
    ]


def bounds(contours):
    xs = [x for contour in contours for x, _, _ in contour]
    ys = [y for contour in contours for _, y, _ in contour]
    return min(xs), min(ys), max(xs), max(ys)


def glyph_bytes(contours):
    """One entry of the table of outlines; nothing for an empty sign."""
    if not contours:
        return b""
    ends, flags, xs, ys = [], b"", b"", b""
    last_x = last_y = count = 0
    for contour in contours:
        for x, y, on in contour:
            flags += bytes([1 if on else 0])
            xs += struct.pack(">h", x - last_x)
            ys += struct.pack(">h", y - last_y)
            last_x, last_y = x, y
        count += len(contour)
        ends.append(count - 1)
    data = struct.pack(">h4h", len(contours), *bounds(contours))
    data += struct.pack(f">{len(ends)}HH", *ends, 0) + flags + xs + ys
    return data + b"\0" * (-len(data) % 4)


def cmap_table(first_code, count):
    """`count` codes from `first_code` on are the glyphs from 1 on."""
    segments = [(first_code, first_code + count - 1, (1 - first_code) % 0x10000), (0xFFFF, 0xFFFF, 1)]
    ends, starts, deltas = (struct.pack(">2H", *(s[i] for s in segments)) for i in (1, 0, 2))
    body = struct.pack(">4H", 4, 4, 1, 0) + ends + b"\0\0" + starts + deltas + b"\0" * 4
    subtable = struct.pack(">3H", 4, len(body) + 6, 0) + body
    records = struct.pack(">HHL", 0, 3, 20) + struct.pack(">HHL", 3, 1, 20)
    return struct.pack(">2H", 0, 2) + records + subtable


def name_table():
    names = {
        0: "Copyright the Tessera developers. MIT licence.",
        1: FAMILY,
        2: "Regular",
        3: FAMILY + " 1.0",
        4: FAMILY,
        5: "Version 1.0",
        6: FAMILY.replace(" ", ""),
    }
    records, text = b"", b""
    for key, value in names.items():
        encoded = value.encode("utf-16-be")
        records += struct.pack(">6H", 3, 1, 0x409, key, len(encoded), len(text))
        text += encoded
    return struct.pack(">3H", 0, len(names), 6 + len(records)) + records + text


def os2_table(last_code):
    private_use_area = (0, 1 << (60 - 32), 0, 0)
    weight_normal, width_normal, regular = 400, 5, 0x40
    data = struct.pack(">HhHHH", 4, EM, weight_normal, width_normal, 0)
    data += struct.pack(">10h", *([EM // 2, EM // 2, 0, EM // 8] * 2), EM // 16, EM // 2)
    data += struct.pack(">h", 0) + bytes([5, 0, 0, 0, 0, 0, 0, 0, 0, 0]) + struct.pack(">4L", *private_use_area)
    data += b"TESS" + struct.pack(">HHH", regular, FIRST_CODE + EMPTY_SHAPE, last_code)
    data += struct.pack(">hhhHH", EM, 0, 0, EM, 0) + struct.pack(">2L", 1 << 31, 0)
    return data + struct.pack(">hhHHH", EM // 2, EM, 0, 0, 0)


def head_table(box):
    created = 3786912000  # 2024-01-01, in seconds since 1904: a fixed date, so that the same signs give the same file
    check_sum_adjustment, magic, left_to_right_baseline_at_zero, lowest_ppem = 0, 0x5F0F3CF5, 0x0003, 8
    long_offsets = 1
    data = struct.pack(">LLLLHH", 0x00010000, 0x00010000, check_sum_adjustment, magic, left_to_right_baseline_at_zero, EM)
    return data + struct.pack(">qq4hHHhhh", created, created, *box, 0, lowest_ppem, 2, long_offsets, 0)


def tables(glyphs):
    drawn = [glyph for glyph in glyphs if glyph]
    boxes = [bounds(glyph) for glyph in drawn]
    box = (min(b[0] for b in boxes), min(b[1] for b in boxes), max(b[2] for b in boxes), max(b[3] for b in boxes))
    outlines = [glyph_bytes(glyph) for glyph in glyphs]
    offsets = [sum(len(o) for o in outlines[:i]) for i in range(len(outlines) + 1)]
    left_bearings = [bounds(glyph)[0] if glyph else 0 for glyph in glyphs]
    most_points = max(sum(len(contour) for contour in glyph) for glyph in drawn)
    most_contours = max(len(glyph) for glyph in drawn)
    right_bearing = min(EM - b[2] for b in boxes)
    return {
        b"OS/2": os2_table(FIRST_CODE + EMPTY_SHAPE + len(glyphs) - 2),
        b"cmap": cmap_table(FIRST_CODE + EMPTY_SHAPE, len(glyphs) - 1),
        b"gasp": struct.pack(">4H", 1, 1, 0xFFFF, 0x000A),
        b"glyf": b"".join(outlines),
        b"head": head_table(box),
        b"hhea": struct.pack(">LhhhHhhhhhh4hhH", 0x00010000, EM, 0, 0, EM, min(left_bearings), right_bearing, box[2], 1, 0, 0,
                             0, 0, 0, 0, 0, len(glyphs)),  # fmt: skip
        b"hmtx": b"".join(struct.pack(">Hh", EM, bearing) for bearing in left_bearings),
        b"loca": struct.pack(f">{len(offsets)}L", *offsets),
        b"maxp": struct.pack(">LHHHHHHHHHHHHHH", 0x00010000, len(glyphs), most_points, most_contours, 0, 0, 2, 0, 0, 0, 0, 0, 0,
                             0, 0),  # fmt: skip
        b"name": name_table(),
        b"post": struct.pack(">LLhhLLLLL", 0x00030000, 0, EM // 16, EM // 16, 1, 0, 0, 0, 0),
    }  # fmt: skip


def check_sum(data):
    data += b"\0" * (-len(data) % 4)
    return sum(struct.unpack(f">{len(data) // 4}L", data)) & 0xFFFFFFFF


def font_file(table_map):
    count = len(table_map)
    power = 1 << (count.bit_length() - 1)
    directory = struct.pack(">LHHHH", 0x00010000, count, power * 16, power.bit_length() - 1, (count - power) * 16)
    offset = len(directory) + 16 * count
    body, head_offset = b"", 0
    for tag, data in sorted(table_map.items()):
        if tag == b"head":
            head_offset = offset + len(body)
        directory += tag + struct.pack(">LLL", check_sum(data), offset + len(body), len(data))
        body += data + b"\0" * (-len(data) % 4)
    font = bytearray(directory + body)
    struct.pack_into(">L", font, head_offset + 8, (0xB1B0AFBA - check_sum(bytes(font))) & 0xFFFFFFFF)
    return bytes(font)


def main():
    if len(sys.argv) != 2:
        sys.exit(f"usage: {sys.argv[0]} FILE.ttf")
    missing = in_font_units(hollow(rect(3, 1, 13, 15), 1))
    glyphs = [missing, []] + [in_font_units(sign) for sign in SIGNS]
    with open(sys.argv[1], "wb") as file:
        file.write(font_file(tables(glyphs)))


if __name__ == "__main__":
    main()
