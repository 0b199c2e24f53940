#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Every text of the program is translated, and no translation loses a place for a value."""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

PLACE = re.compile(r"%\d+|%n")
COMMAND = re.compile(r"--[a-z]+")  # options are not translated


def messages(path):
    found = {}
    for context in ElementTree.parse(path).getroot().findall("context"):
        for message in context.findall("message"):
            comment = message.findtext("comment", "")
            found[context.findtext("name"), message.findtext("source"), comment] = message.find("translation")
    return found


def check(top, lupdate):
    problems = []
    with tempfile.TemporaryDirectory() as folder:
        fresh = pathlib.Path(folder) / "fresh.ts"
        done = subprocess.run([lupdate, "-no-obsolete", "-locations", "none", str(top / "src"), "-ts", str(fresh)],
                              capture_output=True, text=True, check=False)
        if done.returncode != 0:
            return [f"lupdate: {done.stderr}"]
        needed = set(messages(fresh))
    for path in sorted((top / "translations").glob("tarnwick_*.ts")):
        there = messages(path)
        for context, source, _ in sorted(needed - set(there)):
            problems.append(f"{path.name}: {context}: no translation of {source!r}")
        for context, source, _ in sorted(set(there) - needed):
            problems.append(f"{path.name}: {context}: {source!r} is said nowhere any more")
        for (context, source, _), translation in there.items():
            text = translation.text or ""
            if translation.get("type") is not None or not text.strip():
                problems.append(f"{path.name}: {context}: {source!r} is unfinished")
            for pattern in (PLACE, COMMAND):
                if sorted(pattern.findall(source)) != sorted(pattern.findall(text)):
                    problems.append(f"{path.name}: {context}: {source!r} and {text!r} differ in what they name")
            if source[:1].isspace() != text[:1].isspace() or source[-1:].isspace() != text[-1:].isspace():
                problems.append(f"{path.name}: {context}: {source!r} and {text!r} differ in blanks at their ends")
    return problems


def main():
    top = pathlib.Path(sys.argv[1])
    lupdate = shutil.which("lupdate", path="/usr/lib/qt6/bin:/usr/bin:/usr/local/bin")
    if not lupdate:
        print("no lupdate of Qt 6: not checked")
        return 77
    problems = check(top, lupdate)
    for problem in problems:
        print(problem)
    print(f"{len(problems)} problem(s)")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
