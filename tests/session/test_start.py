# SPDX-License-Identifier: MIT
"""The first start greets, the second does not, a file that is handed over is shown before it is imported, and a store
that cannot be opened is told of and left alone."""
import os
import pathlib
import subprocess
import sys

from driver import Atspi, Failure, Tarnwick, wait
from stage import expect

NAME = "app.tarnwick.Tarnwick"
DATA = pathlib.Path(os.environ["XDG_DATA_HOME"]) / NAME
CONTROLS = {"check box", "push button", "button", "radio button", "toggle button", "page tab", "combo box", "link"}
FOLDER = pathlib.Path(os.environ["DESKTOP_DIR"])


def first_start(tarnwick, say):
    tarnwick.run("settings", "autoCheckUpdates", "false", check=True)
    tarnwick.start()
    tarnwick.element("^Stick a thought, anywhere$")
    tarnwick.shot("welcome")
    expect(not tarnwick.status()["board"]["visible"], "the board waits for the welcome")
    # by the keyboard alone
    for title in ("^Done. Crush it", "^Let notes find the Trash$"):
        tarnwick.key("Return")
        tarnwick.element(title)
    tarnwick.shot("welcome-last")
    tarnwick.key("Return")
    wait(lambda: tarnwick.status()["board"]["visible"], "after the welcome the board drops")
    expect(tarnwick.run("settings", "hasSeenWelcome").stdout == "true\n", "it is remembered")
    store = next(DATA.glob("Tarnwick.store"))
    expect(oct(store.stat().st_mode & 0o777) == "0o600" and oct(DATA.stat().st_mode & 0o777) == "0o700",
           "notes are for their owner's eyes only")
    expect(list((DATA / "backups").glob("Tarnwick-*.store")), "a backup is made at the first launch")
    tarnwick.run("add", "From the first day", "--no-tear", check=True)
    expect(tarnwick.quit() == 0, "it ends well")
    say("first start")


def second_start(tarnwick, say):
    tarnwick.run("settings", "planNudge", "false", check=True)
    tarnwick.start("--background")
    expect(tarnwick.note("From the first day"), "the note is there")
    expect(not tarnwick.elements("^Stick a thought"), "nobody is greeted twice")
    expect(not tarnwick.status()["board"]["visible"], "in the background no board")
    again = subprocess.run([tarnwick.command], timeout=30, check=False)
    expect(again.returncode == 0, "a second start by hand ends well")
    wait(lambda: tarnwick.status()["board"]["visible"], "and shows the board")
    tarnwick.run("toggle", check=True)
    wait(lambda: not tarnwick.status()["board"]["visible"], "the board goes")
    say("second start")


def files_handed_over(tarnwick, say):
    notes = FOLDER / "my notes.md"
    notes.write_text("## Home\n\n- [ ] water the plants\n- [x] pay the rent\n", encoding="utf-8")
    subprocess.run(["gdbus", "call", "--session", "-d", NAME, "-o", "/app/tarnwick/Tarnwick", "-m",
                    "org.freedesktop.Application.Open", f"['{notes.as_uri()}']", "{}"], check=True, capture_output=True)
    tarnwick.element("^From Markdown: 2 notes, 2 of them new")
    tarnwick.shot("import-preview")
    expect(tarnwick.note("water the plants") is None, "nothing is imported before it is confirmed")
    tarnwick.click_element("^Import 2$")
    wait(lambda: tarnwick.note("water the plants"), "confirmed, the notes come")
    expect(tarnwick.note("pay the rent")["isCompleted"], "done is done")
    tarnwick.click_element("^Close$")
    # the command that the desktop entry names does the same
    done = subprocess.run([tarnwick.command, "--open", str(notes)], timeout=30, capture_output=True, text=True, check=False)
    expect(done.returncode == 0, f"--open: {done}")
    tarnwick.element("^From Markdown: 2 notes, 0 of them new")
    tarnwick.click_element("^Close$")
    expect(tarnwick.quit() == 0, "it ends well")
    say("files handed over")


def settings_by_the_keyboard(tarnwick, say):
    tarnwick.start("--background")
    tarnwick.action("settings")
    for name in ("Daily Burn", "Tuck into a tab", "Paper sounds", "Check for updates automatically"):
        tarnwick.element(f"^{name}$")
        controls = [each for each in tarnwick.elements() if each.get_role_name() in CONTROLS]
        nameless = [each.get_role_name() for each in controls if not each.get_name()]
        expect(len(controls) > 4 and not nameless, f"beside {name!r} every control has a name: {nameless}")
        tarnwick.shot("settings-" + name.split()[0].lower())
        tarnwick.key("ctrl+Next")  # from the last pane back to the first

    def is_focused(name):
        return any(each.get_state_set().contains(Atspi.StateType.FOCUSED) for each in tarnwick.elements(f"^{name}$"))

    def reached():
        if is_focused("Daily Burn"):
            return True
        tarnwick.key("Tab")
        return is_focused("Daily Burn")

    wait(reached, "Tab reaches the switch")
    for expected in ("false", "true"):
        tarnwick.key("space")
        wait(lambda: tarnwick.run("settings", "dailyBurn").stdout.strip() == expected, f"Space sets it to {expected}")  # noqa: B023
    tarnwick.key("Escape")
    wait(lambda: not tarnwick.elements("^Daily Burn$"), "Escape closes the window")
    expect(tarnwick.quit() == 0, "it ends well")
    say("the settings by the keyboard, and as a screen reader has them")


def store_that_cannot_be_opened(tarnwick, say):
    store = DATA / "Tarnwick.store"
    whole = store.read_bytes()
    damaged = b"nothing that a database begins with" + whole[35:]
    store.write_bytes(damaged)
    tarnwick.process = subprocess.Popen([tarnwick.command], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    tarnwick.element("^Quit Tarnwick$")
    tarnwick.shot("store-alert")
    listed = tarnwick.run("list")
    expect(listed.returncode == 1 and listed.stderr.startswith("tarnwick: "), f"verbs say why: {listed}")
    expect(tarnwick.run("settings", "dailyBurn").returncode == 0, "settings are answered")
    expect(tarnwick.run("status").returncode == 0, "the status is answered")
    expect(tarnwick.run("toggle").returncode in (0, 1) and tarnwick.process.poll() is None, "toggle does no harm")
    expect(subprocess.run([tarnwick.command], timeout=30, check=False).returncode == 0, "a second start")
    tarnwick.element("^Quit Tarnwick$")
    expect(store.read_bytes() == damaged, "the file is left as it is")
    tarnwick.click_element("^Quit Tarnwick$")
    expect(tarnwick.process.wait(timeout=30) == 0, "the alert's button ends it")
    expect(store.read_bytes() == damaged, "the file is left as it is at the end")
    store.write_bytes(whole)
    for log in DATA.glob("Tarnwick.store-*"):
        log.unlink()
    tarnwick.start("--background")
    expect(tarnwick.note("water the plants"), "mended, everything is there")
    expect(tarnwick.quit() == 0, "it ends well")
    say("a store that cannot be opened")


def main():
    tarnwick = Tarnwick(os.environ["TARNWICK"], os.environ.get("TARNWICK_SHOTS"))

    def say(text):
        print("-", text, flush=True)

    try:
        first_start(tarnwick, say)
        second_start(tarnwick, say)
        files_handed_over(tarnwick, say)
        settings_by_the_keyboard(tarnwick, say)
        store_that_cannot_be_opened(tarnwick, say)
    except (Failure, subprocess.SubprocessError, OSError) as failure:
        print("FAILED:", failure)
        tarnwick.shot("failed")
        print("0 passed, 1 failed")
        sys.exit(1)
    print("1 passed, 0 failed")


main()
