#!/usr/bin/env python3
"""Checks that the paths and names that the architecture page and the README mention exist in the tree."""
import pathlib
import re
import sys

TOP = pathlib.Path(__file__).resolve().parent.parent
PAGES = ["README.md", "docs/architecture.md"]


def sources():
    for folder in TOP.iterdir():
        if folder.is_dir() and folder.name not in ("build", ".git"):
            for path in folder.rglob("*"):
                if path.suffix in (".h", ".cpp"):
                    yield path.read_text(encoding="utf-8")


def main():
    code = "\n".join(sources())
    missing = []
    for page in PAGES:
        for name in re.findall(r"`([^`\n]+)`", (TOP / page).read_text(encoding="utf-8")):
            if name.startswith("./") or " " in name or name in ("logic", "asan", "clang", "release"):
                continue
            if "/" in name or name.endswith((".h", ".cpp", ".py")):
                if not (TOP / name).exists() and not name.startswith("build/"):
                    missing.append(f"{page}: there is no {name}")
            else:
                for word in re.findall(r"[A-Za-z_]\w+", name):
                    if not re.search(rf"\b{word}\b", code):
                        missing.append(f"{page}: no source knows {word}")
    print("\n".join(missing) if missing else "every documented name exists")
    sys.exit(bool(missing))


main()
