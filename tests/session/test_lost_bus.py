# SPDX-License-Identifier: MIT
"""The session bus is lost while Tarnwick runs: it stays up, its windows work, nothing is lost. And two of them on one bus
that hold different stores do not know each other."""
import os
import pathlib
import signal
import subprocess
import tempfile

from driver import wait
from stage import expect, never, park, play, settled


def foreign(tarnwick, say):
    with tempfile.TemporaryDirectory() as folder:
        homes = {"XDG_DATA_HOME": f"{folder}/data", "XDG_CONFIG_HOME": f"{folder}/config"}
        desktop = pathlib.Path(tarnwick.command).with_name("tarnwick-desktop")
        other = subprocess.Popen([desktop], env={**os.environ, **homes}, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait(pathlib.Path(f"{folder}/data/app.tarnwick.Tarnwick/Tarnwick.store").exists, "the other opens its own store")
        never(lambda: other.poll() is not None or tarnwick.status()["board"]["visible"], "it called up a foreign board")
        expect(len(tarnwick.notes()) == 1, "each has its own notes")
        other.terminate()
        expect(other.wait(30) == 0, "it ends well")
    say("a program with another store is left alone")


def scene(tarnwick, server, say):
    park()
    theirs = os.environ["DBUS_SESSION_BUS_ADDRESS"]
    bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address=1"], stdout=subprocess.PIPE,
                           stderr=subprocess.DEVNULL, text=True)
    os.environ["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
    tarnwick.start("--background")
    note = tarnwick.run("add", "Survives the bus", check=True).stdout.strip()
    frame = wait(lambda: tarnwick.window(note), "its window")["frame"]
    window = wait(lambda: server.note_window(frame), "the note's window")
    stored = tarnwick.notes()

    bus.send_signal(signal.SIGKILL)
    bus.wait()
    os.environ["DBUS_SESSION_BUS_ADDRESS"] = theirs
    tarnwick.key("super+shift+t")
    wait(lambda: server.titled("Tarnwick"), "the hot key still drops the board")
    tarnwick.shot("without-a-bus")
    tarnwick.key("super+shift+t")
    wait(lambda: server.titled("Tarnwick") is None, "and tucks it")
    left, top, width, height = frame
    grip = (left + width / 2, top + height - 50)
    tarnwick.drag(grip, (grip[0] - 160, grip[1] + 120))
    wait(lambda: abs(server.inner(window)[0] - left + 160) <= 3, "the note can be dragged")
    there = settled(lambda: server.inner(window), "the dragged note")
    expect(tarnwick.process.poll() is None, "Tarnwick runs")
    say("the bus is lost, the windows work")

    tarnwick.process.send_signal(signal.SIGTERM)
    expect(tarnwick.process.wait(30) == 0, "it ends well without a bus")
    tarnwick.start("--background")
    wait(lambda: tarnwick.window(note) and tarnwick.window(note)["frame"] == there, f"the note is back at {there}")
    expect(tarnwick.notes() == stored, "nothing is lost")
    say("and back on another one")
    foreign(tarnwick, say)


play(scene)
