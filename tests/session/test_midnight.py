# SPDX-License-Identifier: MIT
"""Midnight from outside, with a wall clock that the test moves: what nobody crushed burns, is revived or swept away, and
comes through a restart. Elapsed time stays the machine's."""
import datetime
import os
import pathlib

from driver import wait
from stage import WallClock, expect, play, sleeps_and_wakes


def scene(tarnwick, server, say):
    today = datetime.date(2027, 3, 9)
    clock = WallClock()
    clock.set(today, "23:58:00")
    tarnwick.start("--background", env=clock.environment)

    def add(text, *options):
        return tarnwick.run("add", text, *options, check=True).stdout.strip()

    forgotten = add("Nobody cared")
    second = add("Nor for this", "--no-tear")
    dated = add("Has a date", "--due", "2027-03-20")
    daily = add("Every day", "--repeat", "daily", "--no-tear")
    window = wait(lambda: server.note_window(tarnwick.window(forgotten)["frame"]), "the note is on the desktop")
    tarnwick.shot("before-midnight")

    def board():
        tarnwick.run("board", check=True)
        wait(lambda: tarnwick.status()["board"]["visible"], "the board is there")

    def hide():
        tarnwick.run("toggle", check=True)
        wait(lambda: not tarnwick.status()["board"]["visible"], "the board goes")

    # the machine sleeps over midnight
    clock.set(today + datetime.timedelta(days=1), "00:01:00")
    sleeps_and_wakes()
    wait(lambda: tarnwick.note("Nobody cared").get("isBurned"), "the note turns to ash")
    wait(lambda: not server.is_viewable(window), "and leaves the desktop")
    states = {note["id"]: note.get("isBurned", False) for note in tarnwick.notes()}
    expect(states == {forgotten: True, second: True, dated: False, daily: False}, f"what burned: {states}")
    expect(tarnwick.note("Nobody cared")["burnedAt"].startswith("2027-03-10T00:01"), "at the moment of the pass")
    say("midnight took what had no date")

    # the strip leads to the ashes; one note comes back
    board()
    tarnwick.element("burned last night")
    tarnwick.shot("strip")
    tarnwick.click_element("burned last night")
    tarnwick.element("^Sweep all ashes$")
    tarnwick.shot("ashes")
    tarnwick.run("revive", second, check=True)
    wait(lambda: not tarnwick.note("Nor for this").get("isBurned"), "one is revived")
    tarnwick.element("^Revive$|Revive")
    revived = tarnwick.note("Nor for this")
    expect(revived["createdAt"].startswith("2027-03-10T00:01") and "burnedAt" not in revived, "written anew")
    sleeps_and_wakes()
    say("one is back on the board")

    # the other goes for good, by the button
    tarnwick.click_element("^Sweep all ashes$")
    wait(lambda: not tarnwick.note("Nobody cared"), "the ashes are swept")
    tarnwick.shot("swept")
    hide()
    expect({note["id"] for note in tarnwick.notes()} == {second, dated, daily}, "nothing else is gone")
    say("the other is swept away")

    # the next midnight passes while Tarnwick does not run
    expect(tarnwick.quit() == 0, "it ends well")
    clock.set(today + datetime.timedelta(days=2), "08:00:00")
    tarnwick.start("--background", env=clock.environment)
    wait(lambda: tarnwick.note("Nor for this").get("isBurned"), "the first pass catches up")
    expect(tarnwick.note("Nor for this")["burnedAt"].startswith("2027-03-11T08:00"), "at its own moment")
    backups = sorted(path.name for path in pathlib.Path(os.environ["XDG_DATA_HOME"]).glob("*/backups/*.store"))
    expect(backups == [f"Tarnwick-2027-03-{day}.store" for day in ("09", "10", "11")], f"a copy for each day: {backups}")
    say("a start catches up")


play(scene)
