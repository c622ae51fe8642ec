#!/usr/bin/env python3
"""Checks that includes point down: prints file:line for each that does not, and fails.

The table says what each folder may include of ours. A folder that is not in it must be added, so that nobody
grows a new storey by accident.
"""
import pathlib
import re
import sys

TOP = pathlib.Path(__file__).resolve().parent.parent

LOGIC = ["platform", "routines", "forms", "instance"]
SUBSYSTEMS = ["cards", "attachments", "models", "exchange", "commands"]
ADAPTERS = ["system", "engines", "desktop"]

MAY_INCLUDE = {
    "platform": ["platform"],
    "routines": ["platform", "routines"],
    "forms": ["platform", "routines", "forms"],
    "instance": LOGIC,
    **{folder: LOGIC + SUBSYSTEMS for folder in SUBSYSTEMS},
    "component": LOGIC + SUBSYSTEMS + ["component"],
    "system": ["platform", "system"],
    "engines": ["platform", "engines"],
    "desktop": ["platform", "routines", "forms", "system", "desktop"],
    "host": LOGIC + SUBSYSTEMS + ADAPTERS + ["component", "host"],
    "bench": LOGIC + SUBSYSTEMS + ADAPTERS + ["component", "host", "bench"],
    "tests": LOGIC + SUBSYSTEMS + ADAPTERS + ["component", "host", "tests"],
}

# Libraries that a folder may use beyond the standard one; the logic and its tests' kits use none.
LIBRARIES = {
    "system": r"(unistd|fcntl|dirent|sys/\w+|pwd|time|signal|spawn|stdlib)\.h",
    "engines": r"(sqlite3\.h|unicode/\w+\.h|libpq-fe\.h)",
    "desktop": r"(Q\w+(/\w+(\.h)?)?|zip\.h|gmime/gmime\.h|curl/curl\.h|(unistd|fcntl|pwd|sys/\w+)\.h)",
    "host": r"(Q\w+(/\w+(\.h)?)?|sqlite3\.h|iconv\.h)",
    "bench": r".*",
    "tests": r".*",
}
STANDARD = re.compile(r"[a-z_0-9]+(?<!\.h)$")
INCLUDE = re.compile(r'^\s*#\s*include\s+(?:"([^"]+)"|<([^>]+)>)')


def complaints(path):
    folder = path.relative_to(TOP).parts[0]
    allowed = MAY_INCLUDE.get(folder)
    if allowed is None:
        yield 1, f"folder {folder}/ has no row in tools/include_direction.py"
        return
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        match = INCLUDE.match(line)
        if not match:
            continue
        ours, library = match.groups()
        if ours is not None:
            target = ours.split("/")[0]
            if "/" not in ours:
                yield number, f'"{ours}" is not named from the top of the tree'
            elif target not in allowed:
                yield number, f"{folder}/ must not include {target}/"
        elif not STANDARD.match(library) or library.startswith("Q"):
            if not re.fullmatch(LIBRARIES.get(folder, r"(?!)"), library):
                yield number, f"{folder}/ must not use <{library}>"


def main():
    found = 0
    for path in sorted(TOP.rglob("*")):
        if path.suffix not in (".h", ".cpp") or "build" in path.relative_to(TOP).parts:
            continue
        for number, complaint in complaints(path):
            print(f"{path.relative_to(TOP)}:{number}: {complaint}")
            found += 1
    if found:
        sys.exit(1)
    print("includes point down")


main()
