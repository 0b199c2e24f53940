#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Breaks each rule once in a small house of its own, and expects the check to say so."""
import pathlib
import sys
import tempfile

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).parent))
import rules  # noqa: E402

LICENCE = "// SPDX-License-Identifier: MIT\n"
CASES = {
    "a folder includes what it must not": ("src/model/A.h", "#pragma once\n#include \"board/B.h\"\n", "must not include"),
    "a timer outside linux": ("src/board/A.cpp", "void f() { QTimer timer; }\n", "belongs to linux/"),
    "a D-Bus call outside linux": ("src/app/A.cpp", "QDBusConnection c();\n", "belongs to linux/"),
    "a port too wide": ("src/platform/P.h", "#pragma once\nclass P {\n public:\n  virtual ~P();\n"
                        + "".join(f"  virtual void f{i}() = 0;\n" for i in range(9)) + "};\n", "virtual functions"),
    "a header without its guard": ("src/model/A.h", "struct A {};\n", "#pragma once"),
    "a file too long": ("src/model/A.cpp", "int a;\n" * 900, "more than"),
    "an unfinished remark": ("src/model/A.cpp", "// TO" + "DO later\n", "no place here"),
    "a path that is gone": ("docs/ARCHITECTURE.md", "see `src/nowhere/A.h`\n", "does not exist"),
}


def main():
    missed = []
    for title, (name, text, expected) in CASES.items():
        with tempfile.TemporaryDirectory() as folder:
            top = pathlib.Path(folder)
            for part in ("src", "tests", "benchmarks", "docs"):
                (top / part).mkdir()
            (top / "docs" / "ARCHITECTURE.md").write_text("nothing\n", encoding="utf-8")
            if rules.check(top):
                missed.append(f"an empty house has problems: {rules.check(top)}")
            path = top / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text((LICENCE if name.startswith("src") else "") + text, encoding="utf-8")
            if not any(expected in problem for problem in rules.check(top)):
                missed.append(f"not caught: {title}")
    for line in missed:
        print(line)
    print(f"{len(CASES) - len(missed)} passed, {len(missed)} failed")
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
