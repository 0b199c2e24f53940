# SPDX-License-Identifier: MIT
"""A desktop of which nothing is there but the screen: no bus, no tray, no notifications, no sound, no accessibility, no
compositor. Tarnwick starts, opens by its chord, keeps notes, and ends well."""
import os
import pathlib
import signal
import subprocess
import sys
import time

from driver import Failure, Tarnwick, wait, xdo
from stage import XServer, expect

NOWHERE = "unix:path=" + os.environ["DESKTOP_DIR"] + "/no-such-bus"
BARE = {key: value for key, value in os.environ.items() if key not in {"AT_SPI_BUS_ADDRESS", "PULSE_SERVER"}}
BARE |= {"DBUS_SESSION_BUS_ADDRESS": NOWHERE, "DBUS_SYSTEM_BUS_ADDRESS": NOWHERE, "PULSE_SERVER": NOWHERE,
         "PIPEWIRE_REMOTE": "no-such-socket"}


def scene(tarnwick, server, say):
    def run(*words):
        return subprocess.run([tarnwick.command, *words], env=BARE, capture_output=True, text=True, timeout=60, check=False)

    def boards():
        return [w for w in server.windows() if server.title(w) == "Tarnwick" and server.is_viewable(w)]

    for key in ("planNudge", "autoCheckUpdates"):
        expect(run("settings", key, "false").returncode == 0, "settings need no bus")
    expect(run("settings", "hasSeenWelcome", "true").returncode == 0, "settings need no bus")
    expect(run("add", "Written without a bus", "--no-tear").returncode == 0, "the store needs no bus")
    for round_ in (1, 2):
        log = open(pathlib.Path(os.environ["DESKTOP_DIR"]) / "tarnwick.log", "ab")
        tarnwick.process = subprocess.Popen([tarnwick.command], env=BARE, stdout=log, stderr=log)

        def told_of_lock():
            expect(tarnwick.process.poll() is None, "it stays up")
            done = run("list")
            return done.returncode == 1 and "the store is in use" in done.stderr

        wait(told_of_lock, "it holds the store, and a command says so")

        def opened():
            expect(tarnwick.process.poll() is None, "it stays up")
            if boards():
                return True
            xdo("key", "--clearmodifiers", "super+shift+t")
            time.sleep(0.7)  # the drop, before the chord would tuck it again
            return bool(boards())

        wait(opened, "the chord drops the board")
        tarnwick.shot(f"bare-{round_}")
        # nobody can be asked over a bus: the lock of the store tells the second one, and it says so
        windows = len(boards())
        second = subprocess.Popen([tarnwick.command], env=BARE, stdout=log, stderr=log)
        wait(lambda: len(boards()) > windows, "a second start tells that the store is in use")
        tarnwick.shot(f"bare-second-{round_}")
        second.send_signal(signal.SIGTERM)
        expect(second.wait(timeout=30) == 0, "and ends well")
        expect(tarnwick.process.poll() is None, "the first one stays up")
        tarnwick.process.send_signal(signal.SIGTERM)
        expect(tarnwick.process.wait(timeout=30) == 0, "SIGTERM ends it well")
        expect("Written without a bus" in run("list").stdout, "the note is there")
        say(f"start {round_} with nothing but a screen")


def main():
    tarnwick = Tarnwick(os.environ["TARNWICK"], os.environ.get("TARNWICK_SHOTS"))
    try:
        scene(tarnwick, XServer(), lambda text: print("-", text, flush=True))
    except (Failure, subprocess.SubprocessError) as failure:
        print("FAILED:", failure)
        tarnwick.shot("failed")
        if tarnwick.process and tarnwick.process.poll() is None:
            tarnwick.kill()
        print("0 passed, 1 failed")
        sys.exit(1)
    print("1 passed, 0 failed")


main()
