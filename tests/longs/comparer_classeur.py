#!/usr/bin/env python3
"""comparer_classeur.py WORKBOOK EXPECTED: opens a workbook with LibreOffice and compares what it
finds with a file of comma-separated values, cell by cell. Leaves with 77 where there is no
LibreOffice."""

import csv
import pathlib
import shutil
import subprocess
import sys
import tempfile

SKIPPED = 77
# Comma, double quote, UTF-8, from line 1; every text quoted, cells as they are shown.
FILTER = "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,true,true"


def converted(soffice, workbook, folder):
    # A profile of its own: another LibreOffice that runs would take the work over.
    profile = (folder / "profile").as_uri()
    subprocess.run([soffice, f"-env:UserInstallation={profile}", "--headless", "--convert-to",
                    FILTER, "--outdir", folder, workbook],
                   check=True, stdout=subprocess.DEVNULL, timeout=240)
    return folder / (workbook.stem + ".csv")


def rows(path):
    with open(path, encoding="utf-8", newline="") as lines:
        return list(csv.reader(lines, strict=True))


def main():
    soffice = shutil.which("soffice") or shutil.which("libreoffice")
    if soffice is None:
        print("skipped: LibreOffice (soffice) is not installed")
        return SKIPPED
    workbook, expected = pathlib.Path(sys.argv[1]), rows(sys.argv[2])
    with tempfile.TemporaryDirectory() as folder:
        found = rows(converted(soffice, workbook, pathlib.Path(folder)))
    faults = [f"row {n}, column {c}: expected {e!r}, found {f!r}"
              for n, (left, right) in enumerate(zip(expected, found), 1)
              for c, (e, f) in enumerate(zip(left, right), 1) if e != f]
    faults += [f"row {n}: {len(left)} cells expected, {len(right)} found"
               for n, (left, right) in enumerate(zip(expected, found), 1)
               if len(left) != len(right)]
    if len(expected) != len(found):
        faults.append(f"{len(expected)} rows expected, {len(found)} found")
    print("\n".join(faults[:20]) or f"{len(found)} rows are the same")
    return 1 if faults else 0


sys.exit(main())
