# SPDX-License-Identifier: MIT
"""The command line does the same with the program running and not running, and says what it cannot do."""
import json
import os
import pathlib
import re
import subprocess
import sys

from driver import Failure, Tarnwick, wait

tarnwick = Tarnwick(os.environ["TARNWICK"])
failures = []


def check(condition, what):
    if not condition:
        failures.append(what)
        print("FAILED:", what)


def expect(words, status, output=None, error=None, stdin=None):
    done = tarnwick.run(*words, stdin=stdin)
    check(done.returncode == status, f"{words}: exit {done.returncode}, not {status}: {done.stderr.strip()}")
    if output is not None:
        check(re.search(output, done.stdout, re.S), f"{words}: prints {done.stdout!r}, not {output!r}")
    if error is not None:
        check(re.search(error, done.stderr), f"{words}: says {done.stderr!r}, not {error!r}")
    if status != 0:
        check(done.stderr.startswith("tarnwick: ") and done.stderr.count("\n") == 1,
              f"{words}: the error is one line, {done.stderr!r}")
    return done.stdout.strip()


def on_the_store(mode):
    print("--", mode)
    note = expect(["add", f"Water the {mode}", "--color", "#06d6a0", "--due", "2030-02-03T09:30", "--tag", "green",
                   "--no-tear"], 0, r"^[0-9A-F-]{36}\n$")
    shown = json.loads(expect(["show", note.lower(), "--json"], 0))
    check(shown["colorHex"] == "#06D6A0" and shown["tag"] == "green" and shown["recurrence"] == "none", f"{shown}")
    check(shown["dueDate"].startswith("2030-02-03T09:30:00.000"), shown["dueDate"])
    check(list(shown)[:4] == ["id", "text", "colorHex", "dueDate"], f"the order of the fields: {list(shown)}")
    check("completedAt" not in shown and "gitBranch" not in shown, "absent fields are left out")
    expect(["edit", note, "--text", f"- [ ] Water the {mode}", "--no-due", "--stamp", "star"], 0)
    expect(["check", note, "0"], 0)
    shown = json.loads(expect(["show", note, "--json"], 0))
    check("[x]" in shown["text"] and "dueDate" not in shown and shown["stampRaw"] == "star", f"{shown}")
    expect(["check", note, "7"], 1, error="7")
    expect(["list", "--search", mode, "--json"], 0, note)
    expect(["list", "--board", "Nowhere", "--json"], 0, r"^\[\]")
    expect(["crush", note], 0)
    expect(["crush", note], 1)
    check(json.loads(expect(["list", "--state", "completed", "--json"], 0))[0]["id"] == note, "it is listed as crushed")
    expect(["revive", note], 1)
    expect(["sweep"], 2)
    expect(["add", "   "], 2)
    expect(["add", "x", "--color", "red"], 2, error="red")
    expect(["add", "x", "--due", "2030-02-30"], 2, error="2030-02-30")
    expect(["frobnicate"], 2, error="frobnicate")
    expect(["show", "ffff"], 1, error="ffff")
    expect(["settings", "dailyBurn"], 0, "^true\n$")
    expect(["settings", "dailyBurn", "perhaps"], 2)
    expect(["settings", "noSuchKey", "1"], 2, error="noSuchKey")
    expect(["add", "-", "--no-tear"], 0, stdin="from\nstandard input\n")
    check(tarnwick.note("standard input")["text"] == "from\nstandard input", "standard input is stored trimmed")
    exported = json.loads(expect(["export"], 0))
    check(exported["tarnwick"] == 1 and exported["tasks"] and "clipboardItems" in exported, "the export has its parts")
    folder = pathlib.Path(os.environ["DESKTOP_DIR"])
    (folder / "notes.json").write_text(json.dumps(exported), encoding="utf-8")
    count = len(exported["tasks"])
    expect(["import", str(folder / "notes.json")], 0, f"imported 0, skipped {count}")
    (folder / "bad.json").write_text("{\"tarnwick\": 1, \"tasks\": [", encoding="utf-8")
    expect(["import", str(folder / "bad.json")], 1)
    expect(["--version"], 0, r"^tarnwick \d")
    expect(["add", "--help"], 0, "--due")
    expect(["import", "-"], 0, "imported 1, skipped 0", stdin=f"- [ ] from a pipe, {mode}\n")


def bad_bytes():
    done = subprocess.run([tarnwick.command.encode(), b"add", b"\xff\xfe"], capture_output=True)
    check(done.returncode == 2 and done.stderr.startswith(b"tarnwick: "), f"invalid UTF-8: {done}")


def in_german():
    german = {**os.environ, "LC_ALL": "de_DE.UTF-8", "LANGUAGE": "de"}
    done = subprocess.run([tarnwick.command, "--help"], capture_output=True, text=True, env=german)
    check("Notizen auflisten" in done.stdout, f"help in German: {done.stdout[:200]}")


try:
    tarnwick.skip_welcome()
    in_german()
    for verb in (["toggle"], ["board"], ["new"], ["status"], ["undo"], ["quit"]):
        expect(verb, 1, error="not running")
    on_the_store("fern")
    bad_bytes()
    tarnwick.start("--background")
    check(not tarnwick.status()["board"]["visible"], "a start in the background shows no board")
    on_the_store("cactus")
    bad_bytes()
    note = expect(["add", "On the desktop"], 0)
    wait(lambda: tarnwick.window(note), "add tears it off")
    check(tarnwick.note("On the desktop").get("isTornOff"), "and it is stored")
    expect(["redock", note], 0)
    wait(lambda: not tarnwick.window(note), "redock closes the window")
    expect(["crush", note], 0)
    expect(["undo"], 0)
    check(not tarnwick.note("On the desktop")["isCompleted"], "undo takes it back")
    expect(["undo"], 1)
    expect([], 0)
    wait(lambda: tarnwick.status()["board"]["visible"], "a second start is the reopen event")
    status = tarnwick.status()
    check(list(status) == ["version", "pid", "board", "windows", "context", "reminders", "platform"], f"{list(status)}")
    check(status["pid"] == tarnwick.process.pid, "the status is that of this process")
    check(status["platform"]["session"] == "x11", f"{status['platform']}")
    before = tarnwick.notes()
    tarnwick.kill()
    expect(["status"], 1, error="not running")
    check(tarnwick.notes() == before, "a kill loses nothing")
    tarnwick.start("--background")
    check(tarnwick.quit() == 0, "quit ends it well")
except Failure as failure:
    check(False, str(failure))
print(f"1 passed, {len(failures)} failed")
sys.exit(1 if failures else 0)
