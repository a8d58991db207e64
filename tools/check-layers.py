#!/usr/bin/env python3
"""Holds the includes of src/ to the arrows of cmake/Layers.cmake, and keeps each library in the folder that may know it."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
LIBRARIES = {  # headers beginning so: the folders that may include them
    r"Q[A-Z]": {"desktop", "suite", "audit_report", "report_program"},
    r"qpdf/": {"report_program"},
    r"pugixml|nlohmann/": {"audit_report"},
    r"csv\.h": {"trial_balance", "suite"},
    r"zlib\.h": {"suite"},
    r"SQLiteCpp/|sqlite3\.h": {"store"},
    r"sql(ext|types|ucode)?\.h": {"store"},
}


def allowed_uses():
    text = (ROOT / "cmake/Layers.cmake").read_text()
    return {folder: set(uses.split()) | {folder} for folder, uses in re.findall(r"set\(PGBP_USES_(\w+)([^)]*)\)", text)}


def faults_of(path, folder, uses):
    for number, line in enumerate(path.read_text().splitlines(), 1):
        include = re.match(r'\s*#include\s+([<"])([^>"]+)', line)
        if not include:
            continue
        kind, header = include.groups()
        place = f"{path.relative_to(ROOT)}:{number}"
        if kind == '"' and header.split("/")[0] not in uses:
            yield f"{place}: src/{folder} must not include {header}"
        for pattern, folders in LIBRARIES.items():
            if kind == "<" and re.match(pattern, header) and folder not in folders:
                yield f"{place}: only {', '.join(sorted(folders))} may include <{header}>"


def main():
    uses = allowed_uses()
    faults = []
    for path in sorted((ROOT / "src").rglob("*")):
        if path.suffix in {".h", ".cpp"}:
            folder = path.relative_to(ROOT / "src").parts[0]
            faults += faults_of(path, folder, uses.get(folder, {folder}))
    print("\n".join(faults) or "includes keep to the layers")
    return 1 if faults else 0


sys.exit(main())
