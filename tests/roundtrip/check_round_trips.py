#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Converts map files with the program tessera, TAB to TAB and MIF to TAB to MIF, and lets GDAL compare every object, style
and value of the source with those of what was written. Nothing of Tessera reads here: only GDAL does.

Usage: check_round_trips.py TESSERA FILE-OR-FOLDER…

A difference is fine when the program told of it as a loss. The exit status is 1 when one went untold, and 77 where the
Python module of GDAL is missing (Debian: python3-gdal).
"""
import math
import pathlib
import re
import subprocess
import sys
import tempfile

try:
    from osgeo import gdal, ogr
except ImportError:
    print("skipped: the Python module of GDAL is missing; scripts/setup test installs it (python3-gdal)")
    sys.exit(77)

# What the program says when it gives up the sort of thing that differs.
LOSSES = {
    "count": ["objects that cannot be read"],
    "shape": ["shapes without points", "objects that cannot be read"],
    "pen": ["patterns and widths of lines", "widths of pens"],
    "brush": ["patterns of areas"],
    "symbol": ["pictures of symbols", "numbers of symbols"],
    "text": ["characters that the character set lacks"],
    "text size": ["line spacings of texts"],
    "text look": ["justifications of texts"],
    "column": ["names of columns", "types of columns"],
    "value": ["characters that the character set lacks", "texts longer than their column", "numbers without a value",
              "line ends in values"],
    "coordinate system": [],
}


class Row:
    """An object with one plain shape, its style and its values."""

    def __init__(self, shape, style, values):
        self.shape = shape
        self.style = style
        self.values = values


def plain_shapes(geometry):
    """The parts that tessera makes objects of: areas and lines stay whole, points are taken apart."""
    kind = ogr.GT_Flatten(geometry.GetGeometryType())
    if kind == ogr.wkbGeometryCollection:
        members = [geometry.GetGeometryRef(i) for i in range(geometry.GetGeometryCount())]
        return join_kinds([shape for member in members for shape in plain_shapes(member)])
    if kind == ogr.wkbMultiPoint:
        return [("point", [points_of(geometry.GetGeometryRef(i))]) for i in range(geometry.GetGeometryCount())]
    if kind == ogr.wkbPoint:
        return [("point", [points_of(geometry)])]
    parts = [geometry] if kind in (ogr.wkbLineString, ogr.wkbPolygon) else [
        geometry.GetGeometryRef(i) for i in range(geometry.GetGeometryCount())]
    if kind in (ogr.wkbLineString, ogr.wkbMultiLineString):
        return [("line", [points_of(part) for part in parts])]
    rings = [part.GetGeometryRef(i) for part in parts for i in range(part.GetGeometryCount())]
    return [("area", sorted(normal_ring(points_of(ring)) for ring in rings))] if rings else []


def join_kinds(shapes):
    """The members of a collection: one area, one line, and the points."""
    joined = [("area", sorted(part for kind, parts in shapes if kind == "area" for part in parts)),
              ("line", [part for kind, parts in shapes if kind == "line" for part in parts])]
    return [shape for shape in joined if shape[1]] + [shape for shape in shapes if shape[0] == "point"]


def points_of(geometry):
    """The points of a curve without those that repeat the one before."""
    points = [geometry.GetPoint_2D(i) for i in range(geometry.GetPointCount())]
    return [point for i, point in enumerate(points) if i == 0 or math.dist(point, points[i - 1]) > 1e-10]


def normal_ring(points):
    """A ring whatever its direction and its first point, and without the last, which repeats it."""
    if len(points) > 1 and math.dist(points[0], points[-1]) <= 1e-10:
        points = points[:-1]
    rounded = [(round(x, 3), round(y, 3)) for x, y in points]
    first = rounded.index(min(rounded))
    turned = points[first:] + points[:first]
    backwards = [turned[0]] + turned[:0:-1]
    return min(turned, backwards, key=lambda ring: [(round(x, 3), round(y, 3)) for x, y in ring])


def style_of(text):
    """A style string as {tool: {key: value}}."""
    tools = {}
    for tool, settings in re.findall(r'(\w+)\(((?:"(?:[^"\\]|\\.)*"|[^")])*)\)', text or ""):
        pairs = re.findall(r'(\w+):("(?:[^"\\]|\\.)*"|[^,]*)', settings)
        tools[tool] = {key: value.strip('"') for key, value in pairs}
    return tools


def rows_of(layer):
    rows = []
    for feature in layer:
        values = [feature.GetField(i) for i in range(feature.GetFieldCount())]
        geometry = feature.GetGeometryRef()
        shapes = [("none", [])] if geometry is None or geometry.IsEmpty() else plain_shapes(geometry)
        style = style_of(feature.GetStyleString()) if geometry is not None else {}
        is_collection = geometry is not None and ogr.GT_Flatten(geometry.GetGeometryType()) == ogr.wkbGeometryCollection
        rows += [Row(shape, None if is_collection else style, values) for shape in shapes]
    return rows


def columns_of(layer):
    definition = layer.GetLayerDefn()
    fields = [definition.GetFieldDefn(i) for i in range(definition.GetFieldCount())]
    return [(field.GetName(), field.GetTypeName()) for field in fields]


def are_near(one, other, tolerance):
    return abs(one - other) <= tolerance


def same_shape(one, other):
    if one[0] != other[0] or [len(part) for part in one[1]] != [len(part) for part in other[1]]:
        return False
    numbers = [abs(value) for part in one[1] for point in part for value in point]
    # Files keep integers of 32 bits for the range of the map.
    tolerance = 2e-6 * max(numbers, default=1) + 1e-9
    return all(are_near(a, b, tolerance) for left, right in zip(one[1], other[1])
               for p, q in zip(left, right) for a, b in zip(p, q))


def same_number(one, other, share=2e-3):
    numbers = [float(re.match(r"[-+.\deE]*", text or "0").group() or 0) for text in (one, other)]
    return are_near(numbers[0], numbers[1], share * max(map(abs, numbers)) + 1e-9)


def same_tool(one, other, exact, near=()):
    return all(one.get(key) == other.get(key) for key in exact) and all(
        same_number(one.get(key), other.get(key)) for key in near)


def number_in_id(tool, prefix):
    match = re.search(prefix + r"(\d+)", tool.get("id", ""))
    return match and match.group(1)


def brushes_agree(one, other):
    patterns = [number_in_id(brush, "mapinfo-brush-") for brush in (one, other)]
    if patterns[0] == patterns[1] == "1":  # nothing is filled, so no colour shows
        return True
    return patterns[0] == patterns[1] and same_tool(one, other, ("fc", "bc"))


def plain_symbol(symbol):
    """A sign of Tessera's own font is the one of MapInfo's font with the same number, and is written as that."""
    if symbol.get("f") != "Tessera Symbols":
        return symbol
    plain = {key: value for key, value in symbol.items() if key != "f"}
    return plain | {"id": plain["id"].replace("font-sym-", "mapinfo-sym-")}


def symbols_agree(one, other):
    one, other = plain_symbol(one), plain_symbol(other)
    numbers = [[number_in_id(symbol, prefix) for prefix in ("mapinfo-sym-", "font-sym-", "mapinfo-custom-sym-")]
               for symbol in (one, other)]
    # GDAL turns some of MapInfo's own signs, which have no angle.
    near = ("s",) if numbers[0][0] else ("s", "a")
    return numbers[0] == numbers[1] and same_tool(one, other, ("c", "f"), near)


def compare_styles(source, written):
    """The sorts of things that differ between two styles."""
    pens, brushes, symbols, labels = ([style.get(tool, {}) for style in (source, written)]
                                      for tool in ("PEN", "BRUSH", "SYMBOL", "LABEL"))
    if any(labels):
        if labels[0].get("t") != labels[1].get("t"):
            yield "text"
        if not same_tool(*labels, (), ("s",)):
            yield "text size"
        if not same_tool(*labels, ("f", "c", "b", "p"), ("a",)):
            yield "text look"
        return
    if number_in_id(pens[0], "mapinfo-pen-") != number_in_id(pens[1], "mapinfo-pen-") or not same_tool(*pens, ("w", "c")):
        yield "pen"
    if any(brushes) and not brushes_agree(*brushes):
        yield "brush"
    if any(symbols) and not symbols_agree(*symbols):
        yield "symbol"


def angle_of(row):
    return (row.style or {}).get("LABEL", {}).get("a", "0")


def same_values(one, other):
    return len(one) == len(other) and all(same_value(a, b) for a, b in zip(one, other))


def same_value(one, other):
    if one is None:  # MapInfo's files know no missing values
        return other in (None, 0, "")
    if isinstance(one, str) and one.startswith("\ufeff"):  # the mark of the byte order, before the first value
        return one[1:] == other
    if isinstance(one, float) and isinstance(other, float):
        return one == other or math.isclose(one, other, rel_tol=1e-12)
    return one == other


def open_layer(path):
    return gdal.OpenEx(str(path), gdal.OF_VECTOR)


def compare_files(source, written):
    """Yields (sort of thing, words) for each difference."""
    one, other = open_layer(source), open_layer(written)
    if other is None:
        yield "count", "GDAL cannot open what was written"
        return
    layers = [dataset.GetLayer(0) for dataset in (one, other)]
    columns = [columns_of(layer) for layer in layers]
    if columns[0] and columns[0] != columns[1]:
        yield "column", f"{columns[0]} became {columns[1]}"
    systems = [layer.GetSpatialRef() and layer.GetSpatialRef().ExportToMICoordSys() for layer in layers]
    rows = [rows_of(layer) for layer in layers]
    if len(rows[0]) != len(rows[1]):
        yield "count", f"{len(rows[0])} objects became {len(rows[1])}"
    # A table without any shape keeps no coordinate system.
    if systems[0] and systems[0] != systems[1] and any(row.shape[0] != "none" for row in rows[1]):
        yield "coordinate system", f"{systems[0]} became {systems[1]}"
    for number, (was, now) in enumerate(zip(*rows), start=1):
        # GDAL gives the height, and so the place, of the upright box around a turned text of a MIF file.
        is_turned = source.suffix.lower() != written.suffix.lower() and float(angle_of(was)) != 0
        if not same_shape(was.shape, now.shape) and not is_turned:
            yield "shape", f"object {number}: {was.shape} became {now.shape}"
        if was.style is not None and was.shape[0] == now.shape[0] != "none":
            for sort in compare_styles(was.style, now.style):
                if sort != "text size" or not is_turned:
                    yield sort, f"object {number}: {was.style} became {now.style}"
        if columns[0] and not same_values(was.values, now.values):
            yield "value", f"object {number}: {was.values} became {now.values}"


def convert(program, source, target):
    """What was lost, as the program tells; None when it wrote nothing."""
    run = subprocess.run([program, "convert", str(source), str(target)], capture_output=True, text=True, check=False)
    return run.stderr if run.returncode in (0, 3) else None


def differences(program, source, folder):
    """The differences that went untold, one of each sort, after each step."""
    steps = ["table.tab", "again.mif"] if source.suffix.lower() == ".mif" else ["table.tab"]
    told, last = "", source
    for name in steps:
        target = folder / name
        losses = convert(program, last, target)
        dataset = open_layer(source)  # which its layers need
        if losses is None and not rows_of(dataset.GetLayer(0)):
            return  # GDAL reads nothing of it either
        if losses is None:
            yield f"{source}: {last.name} cannot be converted to {name}"
            return
        told += losses
        found = {}
        for sort, words in compare_files(source, target):
            if not any(loss in told for loss in LOSSES[sort]):
                found.setdefault(sort, []).append(words)
        for sort, words in found.items():
            yield f"{source} as {name}: {sort} differs {len(words)} times: {words[0][:600]}"
        last = target


def sources(arguments):
    for argument in map(pathlib.Path, arguments):
        files = sorted(argument.rglob("*")) if argument.is_dir() else [argument]
        yield from (file for file in files if file.suffix.lower() in (".tab", ".mif"))


def main(arguments):
    if len(arguments) < 2:
        print(__doc__, file=sys.stderr)
        return 2
    gdal.PushErrorHandler("CPLQuietErrorHandler")
    checked = failed = 0
    for source in sources(arguments[1:]):
        if open_layer(source) is None:
            print(f"{source}: GDAL does not open it")
            continue
        checked += 1
        with tempfile.TemporaryDirectory() as folder:
            for words in differences(arguments[0], source, pathlib.Path(folder)):
                failed += 1
                print(words)
    print(f"{checked} files, {failed} differences that went untold")
    return 1 if failed or not checked else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
