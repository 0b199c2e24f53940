# SPDX-License-Identifier: MIT
"""Notes dock to the windows of real applications of several toolkits: a terminal, an editor, a file manager, a browser."""
import os
import pathlib
import shutil

from driver import wait, xdo
from stage import Application, DockedNote, Plain, expect, monitors, park, play, settled

HOME = pathlib.Path(os.environ["HOME"])


def xterm(server):
    return Application(server, "xterm", "xterm", "-geometry", "50x16+60+120", "-e", "sleep", "600")


def geany(server):
    return Application(server, "geany", "geany", "-i", "-s", "-t", "-p", str(HOME / "main.c"))


def pcmanfm(server):
    return Application(server, "pcmanfm", "pcmanfm", "--new-win", str(HOME))


def firefox(server):
    profile = HOME / "profile"
    profile.mkdir(exist_ok=True)
    (profile / "user.js").write_text("""user_pref("datareporting.policy.dataSubmissionEnabled", false);
user_pref("browser.shell.checkDefaultBrowser", false);
user_pref("browser.aboutwelcome.enabled", false);
""", encoding="utf-8")
    return Application(server, "firefox", "firefox-esr", "--profile", str(profile), "--new-window", "about:blank")


APPLICATIONS = {"xterm": xterm, "geany": geany, "pcmanfm": pcmanfm}
if os.environ.get("TARNWICK_FULL") and shutil.which("firefox-esr"):
    APPLICATIONS["firefox"] = firefox


def scene(tarnwick, server, say):
    (HOME / "main.c").write_text("int main(void) { return 0; }\n", encoding="utf-8")
    park()
    tarnwick.start("--background")
    for name, launch in APPLICATIONS.items():
        follow(tarnwick, server, name, launch)
        say(f"{name}: docks, follows, hides and returns")


def follow(tarnwick, server, name, launch):
    target = launch(server)
    target.activate()
    pin = wait(lambda: (lambda last: last if last and name in last.lower() else None)(
        tarnwick.status()["context"]["lastExternalApp"]), f"{name} is known")
    note = tarnwick.run("add", f"Look after {name}", "--pin", pin, check=True).stdout.strip()

    pinned = DockedNote(tarnwick, server, note)

    def docks(to, what):
        return pinned.docks(to, f"{name} {what}")

    def hides(what):
        pinned.hides(f"{name} hides: {what}")

    def reshape(to, x, y, width, height):
        to.unmaximize()
        before = settled(to.frame, f"{name}'s window")
        to.resize(width, height)
        to.move(x, y)
        wait(lambda: to.frame()[:2] != before[:2] and to.frame()[2:] != before[2:], f"{name} changes its shape")
        return settled(to.frame, f"{name}'s window")

    docks(target, "where it opened")
    reshape(target, 90, 150, 560, 330)
    docks(target, "moved and resized")
    tarnwick.shot(name)

    other = Plain("Other", 20, 600, 300, 100)
    wait(lambda: server.titled("Other"), "another window")
    other_window = server.titled("Other")
    wait(lambda: server.active() == other_window.id or activate(server, other_window), "another program is in front")
    hides("behind another program")
    target.activate()
    docks(target, "in front again")
    other.close()

    second = launch(server)
    second.activate()
    docks(second, "a second window")
    reshape(second, 140, 220, 480, 300)
    docks(second, "the second window moved")
    target.activate()
    docks(target, "the first window again")
    second.activate()
    docks(second, "and the second")
    second.close()
    target.activate()
    docks(target, "the second window closed")

    target.minimize()
    hides("minimised")
    target.activate()
    docks(target, "restored")

    target.set_full_screen(True)
    wait(lambda: "FULLSCREEN" in server.states(target.window), f"{name} fills the screen")
    whole = settled(target.frame, f"{name}'s full screen")
    first, *others = monitors()
    expect(whole[2] >= first[2] and whole[3] == first[3], f"{name} is as large as the screen: {whole}")
    docks(target, "full screen")
    tarnwick.shot(f"{name}-full-screen")
    target.set_full_screen(False)
    wait(lambda: "FULLSCREEN" not in server.states(target.window), f"{name} is a window again")
    docks(target, "a window again")

    reshape(target, others[0][0] + 100, 100, 520, 360)
    docks(target, "on the other monitor")
    expect(pinned.window()["frame"][0] >= others[0][0], f"{name}: the tab went along")
    tarnwick.shot(f"{name}-other-monitor")
    target.move(others[0][0] - 180, 180)
    settled(target.frame, f"{name}'s window")
    docks(target, "across both monitors")

    target.close()
    hides("closed")
    wait(lambda: target.process.poll() is not None, f"{name} ends")
    target = launch(server)
    target.activate()
    docks(target, "opened again")
    target.close()
    hides("closed for good")
    tarnwick.run("crush", note, check=True)
    wait(lambda: not pinned.window(), "the note is gone")


def activate(server, window):
    xdo("windowactivate", window.id)
    return server.active() == window.id


play(scene)
