#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes the layers of samples/world that are not taken from a data set: the graticule and the cities.

Usage: scripts/make_samples.py [--check]
With --check nothing is written, and the exit status is 1 when the files are not what would be written.
"""
import pathlib
import sys

FOLDER = pathlib.Path(__file__).resolve().parent.parent / "samples" / "world"
ENCODING = "cp1251"

GRATICULE_SPACING_DEG = 15
# Close enough for the lines to bend smoothly in other projections.
GRATICULE_STEP_DEG = 5

SOLID_LINE = 2
STAR, CIRCLE = 35, 34


def rgb(red, green, blue):
    """A MapInfo colour number."""
    return red * 65536 + green * 256 + blue


LIGHT_GREY = rgb(200, 200, 200)
CRIMSON = rgb(178, 34, 52)
SLATE = rgb(47, 79, 112)

# Name, country as in countries.mid, longitude, latitude, people in the urban area (rounded), capital.
CITIES = [
    ("Abuja", "Nigeria", 7.491, 9.057, 3600000, True),
    ("Accra", "Ghana", -0.187, 5.604, 2600000, True),
    ("Addis Ababa", "Ethiopia", 38.747, 9.030, 5200000, True),
    ("Algiers", "Algeria", 3.059, 36.754, 2900000, True),
    ("Almaty", "Kazakhstan", 76.886, 43.238, 2000000, False),
    ("Anchorage", "United States of America", -149.900, 61.218, 290000, False),
    ("Antananarivo", "Madagascar", 47.508, -18.879, 3700000, True),
    ("Athens", "Greece", 23.728, 37.984, 3150000, True),
    ("Auckland", "New Zealand", 174.763, -36.848, 1650000, False),
    ("Baghdad", "Iraq", 44.366, 33.315, 7500000, True),
    ("Bangkok", "Thailand", 100.502, 13.756, 10700000, True),
    ("Beijing", "China", 116.407, 39.904, 20900000, True),
    ("Berlin", "Germany", 13.405, 52.520, 3570000, True),
    ("Bogota", "Colombia", -74.072, 4.711, 11200000, True),
    ("Buenos Aires", "Argentina", -58.382, -34.604, 15300000, True),
    ("Cairo", "Egypt", 31.236, 30.044, 21700000, True),
    ("Canberra", "Australia", 149.130, -35.281, 460000, True),
    ("Cape Town", "South Africa", 18.424, -33.925, 4800000, False),
    ("Caracas", "Venezuela", -66.904, 10.481, 2950000, True),
    ("Dakar", "Senegal", -17.467, 14.717, 3300000, True),
    ("Dar es Salaam", "Tanzania", 39.208, -6.792, 7400000, False),
    ("Delhi", "India", 77.209, 28.614, 32100000, True),
    ("Dhaka", "Bangladesh", 90.412, 23.811, 22500000, True),
    ("Hanoi", "Vietnam", 105.834, 21.028, 5100000, True),
    ("Havana", "Cuba", -82.367, 23.114, 2150000, True),
    ("Helsinki", "Finland", 24.938, 60.170, 1330000, True),
    ("Istanbul", "Turkey", 28.978, 41.008, 15600000, False),
    ("Jakarta", "Indonesia", 106.845, -6.209, 11100000, True),
    ("Karachi", "Pakistan", 67.001, 24.861, 16800000, False),
    ("Kinshasa", "Dem. Rep. Congo", 15.266, -4.442, 15600000, True),
    ("Kyiv", "Ukraine", 30.523, 50.450, 3000000, True),
    ("Lagos", "Nigeria", 3.379, 6.524, 15400000, False),
    ("Lima", "Peru", -77.043, -12.046, 11000000, True),
    ("London", "United Kingdom", -0.128, 51.507, 9540000, True),
    ("Los Angeles", "United States of America", -118.244, 34.052, 12500000, False),
    ("Madrid", "Spain", -3.704, 40.417, 6700000, True),
    ("Manila", "Philippines", 120.984, 14.600, 14400000, True),
    ("Mexico City", "Mexico", -99.133, 19.433, 22100000, True),
    ("Moscow", "Russia", 37.617, 55.756, 12600000, True),
    ("Mumbai", "India", 72.878, 19.076, 20900000, False),
    ("Nairobi", "Kenya", 36.817, -1.286, 5100000, True),
    ("New York", "United States of America", -74.006, 40.713, 18900000, False),
    ("Novosibirsk", "Russia", 82.921, 55.030, 1690000, False),
    ("Nuuk", "Greenland", -51.736, 64.184, 19000, True),
    ("Ottawa", "Canada", -75.697, 45.421, 1430000, True),
    ("Paris", "France", 2.352, 48.857, 11100000, True),
    ("Perth", "Australia", 115.861, -31.953, 2100000, False),
    ("Reykjavik", "Iceland", -21.943, 64.147, 216000, True),
    ("Riyadh", "Saudi Arabia", 46.675, 24.714, 7500000, True),
    ("Rome", "Italy", 12.496, 41.903, 4300000, True),
    ("Santiago", "Chile", -70.669, -33.449, 6900000, True),
    ("Sao Paulo", "Brazil", -46.633, -23.551, 22400000, False),
    ("Seoul", "South Korea", 126.978, 37.567, 9970000, True),
    ("Shanghai", "China", 121.474, 31.230, 28500000, False),
    ("Sydney", "Australia", 151.209, -33.869, 5060000, False),
    ("Tehran", "Iran", 51.389, 35.689, 9380000, True),
    ("Tokyo", "Japan", 139.692, 35.690, 37300000, True),
    ("Vancouver", "Canada", -123.121, 49.283, 2630000, False),
    ("Vladivostok", "Russia", 131.886, 43.115, 600000, False),
    ("Washington", "United States of America", -77.037, 38.907, 5490000, True),
    ("Yakutsk", "Russia", 129.732, 62.034, 355000, False),
]


def header(*columns):
    lines = ["Version 300", 'Charset "WindowsCyrillic"', 'Delimiter ","', "CoordSys Earth Projection 1, 0"]
    lines.append(f"Columns {len(columns)}")
    return lines + [f"  {column}" for column in columns] + ["Data", ""]


def number(value):
    return f"{value:.6f}".rstrip("0").rstrip(".")


def degrees(first, last, step):
    return range(first, last + 1, step)


def graticule():
    """The layer's .mif and .mid lines."""
    mif, mid = header("kind Char(10)", "degree Integer"), []

    def line(kind, degree, points):
        mif.append(f"Pline {len(points)}")
        mif.extend(f"{number(x)} {number(y)}" for x, y in points)
        mif.append(f"    Pen (1,{SOLID_LINE},{LIGHT_GREY})")
        mid.append(f'"{kind}",{degree}')

    for longitude in degrees(-180, 180, GRATICULE_SPACING_DEG):
        line("meridian", longitude, [(longitude, y) for y in degrees(-90, 90, GRATICULE_STEP_DEG)])
    for latitude in degrees(-90, 90, GRATICULE_SPACING_DEG):
        line("parallel", latitude, [(x, latitude) for x in degrees(-180, 180, GRATICULE_STEP_DEG)])
    return mif, mid


def cities():
    """The layer's .mif and .mid lines; the biggest cities come last, so that they are drawn over the others."""
    mif = header("name Char(40)", "country Char(64)", "population Integer", "capital Char(3)")
    mid = []
    for name, country, longitude, latitude, population, capital in sorted(CITIES, key=lambda city: (city[4], city[0])):
        sign = f"{STAR},{CRIMSON},14" if capital else f"{CIRCLE},{SLATE},10"
        mif.append(f"Point {number(longitude)} {number(latitude)}")
        mif.append(f"    Symbol ({sign})")
        mid.append(f'"{name}","{country}",{population},"{"yes" if capital else "no"}"')
    return mif, mid


def files():
    """Every file by path, as bytes."""
    for name, (mif, mid) in (("graticule", graticule()), ("cities", cities())):
        # The reader leaves the last line of a .mif file unread, so that line is an empty one.
        for suffix, lines in ((".mif", mif + [""]), (".mid", mid)):
            yield FOLDER / (name + suffix), "".join(line + "\r\n" for line in lines).encode(ENCODING)


def main(arguments):
    if arguments not in ([], ["--check"]):
        print(__doc__, file=sys.stderr)
        return 2
    stale = [path for path, data in files() if not path.is_file() or path.read_bytes() != data]
    if arguments:
        for path in stale:
            print(f"{path} is not what scripts/make_samples.py writes")
        return 1 if stale else 0
    for path, data in files():
        path.write_bytes(data)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
