# SPDX-License-Identifier: MIT
"""Draws map files with two builds of the programs and compares the pictures: see scripts/compare-pictures.

Usage: compare_pictures.py OLD_BIN NEW_BIN WORK_FOLDER FOLDER...
"""

import os
import pathlib
import subprocess
import sys

SIZE = "640x480"
TIMEOUT_SECONDS = 120
MAP_ENDINGS = {".mif", ".tab", ".wor"}
# All of a map, and a part of it for which outlines are cut.
VIEWS = [[], ["--zoom", "5"]]
ENVIRONMENT = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8"}


def run(command):
    """The exit status; None for a program that does not end."""
    try:
        return subprocess.run(command, env=ENVIRONMENT, capture_output=True, timeout=TIMEOUT_SECONDS).returncode
    except subprocess.TimeoutExpired:
        return None


class Programs:
    """The programs of one build."""

    def __init__(self, folder, picture):
        self.folder = pathlib.Path(folder)
        self.picture = pathlib.Path(picture)
        words = subprocess.run(
            [self.folder / "tessera", "render", "--help"], env=ENVIRONMENT, capture_output=True, text=True
        ).stdout
        # What only newer builds draw is left out.
        self.plain = ["--no-small"] if "--no-small" in words else []

    def draw(self, program, arguments):
        """The bytes of the picture, or why there is none."""
        self.picture.unlink(missing_ok=True)
        status = run([self.folder / program, *arguments, "--out", self.picture])
        if status == 0 and self.picture.exists():
            return self.picture.read_bytes()
        return "does not end" if status is None else f"exit status {status}"

    def draw_files(self, files, view):
        return self.draw("tessera", ["render", *files, "--size", SIZE, *view, *self.plain])


def size_and_pixels(picture):
    """Of the bytes of a PPM file."""
    kind, width, height, deepest = picture[:64].split(maxsplit=4)[:4]
    if kind != b"P6" or deepest != b"255":
        raise ValueError("this is no picture of three bytes for a pixel")
    size = int(width), int(height)
    return size, picture[len(picture) - 3 * size[0] * size[1] :]


def difference(old, new):
    """In words; none when the pictures are alike, or when there is none of either for the same reason."""
    if old == new:
        return None
    if isinstance(old, str) or isinstance(new, str):
        words = [what if isinstance(what, str) else "a picture" for what in (old, new)]
        return f"then {words[0]}, now {words[1]}"
    (old_size, old_pixels), (new_size, new_pixels) = size_and_pixels(old), size_and_pixels(new)
    if old_size != new_size:
        return f"then {old_size} pixels, now {new_size}"
    count = sum(old_pixels[i : i + 3] != new_pixels[i : i + 3] for i in range(0, len(old_pixels), 3))
    return f"{count} pixels differ"


def map_files(folder):
    return sorted(path for path in pathlib.Path(folder).rglob("*") if path.suffix.lower() in MAP_ENDINGS)


def main(old_bin, new_bin, work, folders):
    old, new = (Programs(path, pathlib.Path(work) / f"{name}.ppm") for path, name in ((old_bin, "old"), (new_bin, "new")))
    compared = differing = drawn = 0

    def compare(title, draw):
        nonlocal compared, differing, drawn
        then, now = draw(old), draw(new)
        compared += 1
        drawn += isinstance(now, bytes)
        words = difference(then, now)
        if words:
            differing += 1
            print(f"{title}: {words}", flush=True)

    compare("gallery", lambda programs: programs.draw("tessera-gallery", []))
    for folder in folders:
        for path in map_files(folder):
            for view in VIEWS:
                compare(" ".join([str(path), *view]), lambda programs: programs.draw_files([path], view))
    print(f"{compared} compared, of which {drawn} are drawn now; {differing} differ")
    return 1 if differing else 0


if __name__ == "__main__":
    if len(sys.argv) < 5:
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1], sys.argv[2], sys.argv[3], sys.argv[4:]))
