#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks how the library is built in floors: that includes only point down, that what is installed needs nothing that is
not, that programs and examples include only what is installed, and that CMake and CONTRIBUTING.md tell the order of the
table in docs/architecture.md."""
import pathlib
import re
import sys

ROOT = pathlib.Path(sys.argv[1])
LIBRARY = ROOT / "src" / "tessera"


def floors():
    """Folder -> floor, from the table's rows such as "| 1 | `data` | … |"."""
    rows = re.findall(r"^\| *(\d+) *\|([^|]*)\|", (ROOT / "docs/architecture.md").read_text(), re.MULTILINE)
    return {folder: int(floor) for floor, folders in rows for folder in re.findall(r"`([^`/]+)`", folders)}


def order_told_by(folders, where, faults):
    unknown = [folder for folder in folders if folder not in FLOOR]
    faults += [f"{where}: {folder} is not in the table of docs/architecture.md" for folder in unknown]
    known = [FLOOR[folder] for folder in folders if folder in FLOOR]
    if known != sorted(known):
        faults.append(f"{where}: the folders do not stand in the order of their floors: {', '.join(folders)}")


def includes_of(path):
    return re.findall(r"^ *#include <tessera/([^>]+)>", path.read_text(), re.MULTILINE)


def check_file(path, faults):
    name = path.relative_to(LIBRARY)
    own_floor = FLOOR[name.parts[0]] if len(name.parts) > 1 else max(FLOOR.values())
    for include in includes_of(path):
        target = pathlib.PurePath(include)
        if not (LIBRARY / target).is_file():
            faults.append(f"{name}: there is no {include}")
        elif len(target.parts) > 1 and FLOOR[target.parts[0]] > own_floor:
            faults.append(f"{name} includes {include} from a floor above its own")
        if path.suffix == ".h" and "detail" in target.parts and "detail" not in name.parts:
            faults.append(f"{name} is installed, but includes {include}, which is not")


def check_program(path, faults):
    for include in includes_of(path):
        if "detail" in pathlib.PurePath(include).parts:
            faults.append(f"{path.relative_to(ROOT)} includes {include}, which is not installed")


FLOOR = floors()


def main():
    faults = []
    sources = sorted(p for p in LIBRARY.rglob("*") if p.suffix in (".h", ".cpp"))
    if len(sources) < 50 or len(FLOOR) < 5:
        faults.append("hardly anything was found to check")
    cmake = (LIBRARY / "CMakeLists.txt").read_text()
    order_told_by(re.findall(r"^add_subdirectory\((\w+)\)", cmake, re.MULTILINE), "src/tessera/CMakeLists.txt", faults)
    told = re.search(r"is built in floors(.*?)A header stands", (ROOT / "CONTRIBUTING.md").read_text(), re.DOTALL)
    folders = re.findall(r"`(\w+)`", told.group(1)) if told else []
    order_told_by(folders, "CONTRIBUTING.md", faults)
    folders_of_sources = {p.relative_to(LIBRARY).parts[0] for p in sources if p.parent != LIBRARY}
    for missing in folders_of_sources - set(folders):
        faults.append(f"CONTRIBUTING.md: {missing} is missing")
    for source in sources:
        check_file(source, faults)
    programs = [p for folder in ("src/apps", "examples") for p in (ROOT / folder).rglob("*") if p.suffix in (".h", ".cpp")]
    if len(programs) < 20:
        faults.append("hardly any programs were found to check")
    for source in sorted(programs):
        check_program(source, faults)
    print("\n".join(faults))
    return 1 if faults else 0


sys.exit(main())
