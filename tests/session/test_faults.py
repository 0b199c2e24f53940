# SPDX-License-Identifier: MIT
"""Services of the desktop end and come back: Tarnwick stays up, loses nothing and is right again."""
import os
import pathlib
import signal
import subprocess

from Xlib import X, XK, display

from driver import wait
from stage import ALL_DESKTOPS, expect, park, play, settled, tear_at

MARK = os.environ["DESKTOP_MARK"]
FOLDER = pathlib.Path(os.environ["DESKTOP_DIR"])


def end(program):
    """Ends the program of this desktop by its process id; gives back how it was started."""
    for entry in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            words = (entry / "cmdline").read_bytes().split(b"\0")[:-1]
            marked = f"DESKTOP_MARK={MARK}".encode() in (entry / "environ").read_bytes().split(b"\0")
        except OSError:
            continue
        if marked and words and os.path.basename(words[0].decode()) == program:
            os.kill(int(entry.name), signal.SIGKILL)
            wait(lambda: not (entry / "exe").exists(), f"{program} is gone")
            return [word.decode() for word in words]
    raise AssertionError(f"{program} does not run here")


def begin(words):
    return subprocess.Popen(words, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def has_owner(name):
    x = display.Display()
    owner = x.get_selection_owner(x.intern_atom(name))
    x.close()
    return owner != X.NONE


def taken_hot_key(tarnwick, say):
    x = display.Display()
    code = x.keysym_to_keycode(XK.string_to_keysym("t"))
    x.screen().root.grab_key(code, X.Mod4Mask | X.ShiftMask, 1, X.GrabModeAsync, X.GrabModeAsync)
    x.sync()
    tarnwick.start("--background")
    text = "Tarnwick: ⌘⇧T hotkey registration failed (status 10). Another app may own this chord."
    wait(lambda: text in (FOLDER / "tarnwick.log").read_text(encoding="utf-8"), "the failure is told on standard error")
    wait(lambda: tarnwick.status()["platform"]["hotKey"].startswith("unavailable"), "and in the status")
    tarnwick.run("toggle", check=True)
    wait(lambda: tarnwick.status()["board"]["visible"], "the board opens without it")
    tarnwick.run("toggle", check=True)
    wait(lambda: not tarnwick.status()["board"]["visible"], "and hides")
    expect(tarnwick.quit() == 0, "it ends well")
    x.close()
    say("a hot key that another program holds")


def scene(tarnwick, server, say):
    park()
    taken_hot_key(tarnwick, say)
    tarnwick.start("--background")
    wait(lambda: not tarnwick.status()["platform"]["hotKey"].startswith("unavailable"), "the hot key is ours")
    left = tear_at(tarnwick, "On the left", 300, 400)
    right = tear_at(tarnwick, "On the right", 900, 400)
    park()
    notes = tarnwick.notes()

    def frames():
        return {each["id"]: each["frame"] for each in tarnwick.status()["windows"]}

    def agrees(wanted=None, is_managed=True):
        def holds():
            seen = tarnwick.status()["windows"]
            if {each["id"] for each in seen} != {left, right} or not all(each["visible"] for each in seen):
                return False
            if wanted and {each["id"]: each["frame"] for each in seen} != wanted:
                return False
            if not is_managed:
                return True
            windows = [server.note_window(each["frame"]) for each in seen]
            return all(window and server.desktop_of(window) == ALL_DESKTOPS and "ABOVE" in server.states(window)
                       for window in windows)
        wait(holds, "both notes show, where the status says")
        expect(tarnwick.process.poll() is None, "Tarnwick runs")
        expect(tarnwick.notes() == notes, "nothing is lost")

    def board_toggles():
        tarnwick.key("super+shift+t")
        wait(lambda: tarnwick.status()["board"]["visible"] and not tarnwick.status()["board"]["dismissing"], "it drops")
        tarnwick.key("super+shift+t")
        wait(lambda: not tarnwick.status()["board"]["visible"], "it hides")

    agrees()
    places = frames()
    expect(places[right][0] >= 640 > places[left][0], f"one note on each monitor: {places}")

    # the tray
    words = end("tint2")
    wait(lambda: not has_owner("_NET_SYSTEM_TRAY_S0"), "the tray is gone")
    agrees(places)
    board_toggles()
    begin(words)
    x, y, width, height = settled(tarnwick.tray_icon, "the icon in the new tray", hold=0.6)
    tarnwick.click(x + width / 2, y + height / 2)
    wait(lambda: tarnwick.status()["board"]["visible"], "and works")
    tarnwick.run("toggle", check=True)
    wait(lambda: not tarnwick.status()["board"]["visible"], "it hides")
    agrees(places)
    say("the tray ended and came back")

    # the compositor
    words = end("picom")
    wait(lambda: not has_owner("_NET_WM_CM_S0"), "the compositor is gone")
    agrees(places)
    board_toggles()
    tarnwick.shot("not-composited")
    begin(words)
    wait(lambda: has_owner("_NET_WM_CM_S0"), "the compositor is back")
    board_toggles()
    agrees(places)
    say("the compositor ended and came back")

    # the window manager
    words = end("openbox")
    agrees(places, is_managed=False)
    begin(words)
    wait(lambda: len(server.notes()) == 2, "the window manager has the notes again")
    agrees(places)
    board_toggles()
    say("the window manager ended and came back")

    # the notifications
    words = end("dunst")
    due = tarnwick.run("add", "Later", "--due", "2099-01-01T09:00", "--no-tear", check=True).stdout.strip()
    wait(lambda: any(due in each["identifier"] for each in tarnwick.status()["reminders"]), "the reminder waits")
    begin(words)
    notes = tarnwick.notes()
    agrees(places)
    say("the notifications ended and came back")

    # a monitor with a note on it
    subprocess.run(["xrandr", "--delmonitor", "right"], check=True)
    wait(lambda: frames()[right][0] + frames()[right][2] <= 640, "its note comes into view")
    agrees({**places, right: frames()[right]})
    output = next(line.split()[0] for line in subprocess.run(["xrandr"], capture_output=True, text=True, check=True)
                  .stdout.splitlines() if " connected" in line)
    subprocess.run(["xrandr", "--setmonitor", "right", "640/169x800/211+640+0", "none"], check=True)
    expect(output, "the screen has an output")
    agrees(places)
    say("a monitor went and came back")


play(scene)
