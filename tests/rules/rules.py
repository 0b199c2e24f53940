#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The rules of the house, read from the sources: who includes whom, who owns time, how wide a port is."""
import pathlib
import re
import sys

ALLOWED = {
    "platform": set(),
    "model": {"platform"},
    "context": {"platform", "model"},
    "effects": {"platform", "model", "context"},
    "settings": {"platform", "model", "context", "effects"},
    "board": {"platform", "model", "context", "effects", "settings"},
    "shell": {"platform", "model", "context", "effects", "settings", "board"},
    "exchange": {"platform", "model"},
    "linux": {"platform"},
    "client": set(),
    "app": {"platform", "model", "context", "effects", "settings", "board", "shell", "exchange", "linux"},
}
TIME = re.compile(r"\b(QTimer|QElapsedTimer|QDeadlineTimer|QBasicTimer|steady_clock::now|system_clock::now"
                  r"|QDateTime::current\w+|QDate::currentDate|QTime::currentTime|startTimer)\b")
PLATFORM = re.compile(r"\b(xcb_\w+|XGrabKey|pa_context\w*|pw_\w+|QDBus\w+|org\.a11y|org\.freedesktop\.login1)\b")
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.M)
FORBIDDEN_COMMENT = re.compile(r"(?i:\bspec\.md\b|\bthe spec(ification)?\b|\bParts? \d\.\d\b)|\b(TODO|FIXME|XXX|HACK)\b")
MAX_LINES = 800
MAX_VIRTUALS = 8


def without_comments(text):
    text = re.sub(r"/\*.*?\*/", "", text, flags=re.S)
    return re.sub(r"//[^\n]*", "", text)


def check(top):
    problems = []
    src = top / "src"
    for path in sorted(p for p in src.rglob("*") if p.suffix in {".h", ".cpp"}):
        folder = path.relative_to(src).parts[0]
        name = path.relative_to(top).as_posix()
        text = path.read_text(encoding="utf-8")
        code = without_comments(text)
        if folder not in ALLOWED:
            problems.append(f"{name}: folder {folder} is in no row of the include table")
            continue
        for included in INCLUDE.findall(text):
            target = included.split("/")[0]
            if "/" not in included or target not in ALLOWED:
                if not included.startswith("moc_") and not included.endswith(".moc"):
                    problems.append(f"{name}: include \"{included}\" does not start at src/")
            elif target != folder and target not in ALLOWED[folder]:
                problems.append(f"{name}: {folder} must not include {target}")
        if folder != "linux":
            for match in TIME.finditer(code):
                problems.append(f"{name}: {match.group(0)} belongs to linux/ (use Clock and Scheduler)")
        if folder not in {"linux", "client"}:
            for match in PLATFORM.finditer(code):
                problems.append(f"{name}: {match.group(0)} belongs to linux/")
        if folder != "linux" and re.search(r"^\s*#\s*if.*\b(__linux__|Q_OS_\w+|_WIN32|__APPLE__)\b", code, re.M):
            problems.append(f"{name}: an OS #if outside linux/")
        if folder == "platform" and path.suffix == ".h" and path.name != "Unavailable.h":
            for block in re.split(r"\bclass\s+", code)[1:]:
                width = len(re.findall(r"\bvirtual\b(?!\s*~)", block))
                if width > MAX_VIRTUALS:
                    problems.append(f"{name}: a port of {width} virtual functions")
                if width and "virtual ~" not in block:
                    problems.append(f"{name}: a port without a virtual destructor")
        if path.suffix == ".h" and "#pragma once" not in text:
            problems.append(f"{name}: no #pragma once")
        if not text.startswith("// SPDX-License-Identifier: MIT"):
            problems.append(f"{name}: does not begin with the licence line")
    for path in sorted(p for d in ("src", "tests", "benchmarks") for p in (top / d).rglob("*")):
        if path.suffix not in {".h", ".cpp", ".py", ".sh", ".txt"} or not path.is_file():
            continue
        name = path.relative_to(top).as_posix()
        text = path.read_text(encoding="utf-8", errors="replace")
        lines = text.count("\n") + 1
        if lines > MAX_LINES:
            problems.append(f"{name}: {lines} lines, more than {MAX_LINES}")
        if path.parent.name != "rules":
            for match in FORBIDDEN_COMMENT.finditer(text):
                problems.append(f"{name}: \"{match.group(0)}\" has no place here")
    problems += check_map(top)
    return problems


def check_map(top):
    """Every path that the map names exists."""
    document = top / "docs" / "ARCHITECTURE.md"
    if not document.exists():
        return ["docs/ARCHITECTURE.md is missing"]
    problems = []
    for path in sorted(set(re.findall(r"`((?:src|tests|docs|packaging|benchmarks|scripts|art)/[^`*<>\s]+)`",
                                      document.read_text(encoding="utf-8")))):
        if not (top / path).exists():
            problems.append(f"docs/ARCHITECTURE.md names {path}, which does not exist")
    return problems


def main():
    problems = check(pathlib.Path(sys.argv[1]))
    for problem in problems:
        print(problem)
    print(f"{len(problems)} problem(s)")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
