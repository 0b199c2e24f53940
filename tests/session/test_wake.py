# SPDX-License-Identifier: MIT
"""After the machine woke, the notes come back above the other windows, if that is wanted."""
from driver import wait, xdo
from stage import Plain, never, park, play, sleeps_and_wakes


def scene(tarnwick, server, say):
    park()
    tarnwick.run("settings", "wakeResurface", "true", check=True)
    tarnwick.start("--background")
    note = tarnwick.run("add", "Good morning", check=True).stdout.strip()
    window = wait(lambda: server.note_window(tarnwick.window(note)["frame"]), "the note is shown")
    left, top, width, height = tarnwick.window(note)["frame"]
    # another window that is kept above as well, over the note
    other = Plain("Other", left - 40, top - 40, width + 80, height + 80)
    cover = wait(lambda: server.titled("Other"), "the other window")

    def covers():
        xdo("windowactivate", cover.id)
        xdo("windowraise", cover.id)
        wait(lambda: server.active() == cover.id and server.is_above(cover, window), "the note is covered")

    server.keep_above(cover)
    wait(lambda: "ABOVE" in server.states(cover), "the other window is kept above")
    covers()
    sleeps_and_wakes()
    wait(lambda: server.is_above(window, cover), "the note comes back above")
    wait(lambda: server.active() == window.id, "and Tarnwick is in front")
    say("back after the wake")

    # not wanted
    tarnwick.run("settings", "wakeResurface", "false", check=True)
    covers()
    sleeps_and_wakes()
    never(lambda: server.is_above(window, cover), "the note came back although that is switched off")
    tarnwick.run("settings", "wakeResurface", "true", check=True)
    sleeps_and_wakes()
    wait(lambda: server.is_above(window, cover), "and back once it is switched on again")
    say("only if it is wanted")

    # without notes a wake takes no keyboard
    tarnwick.run("redock", note, check=True)
    wait(lambda: not server.notes(), "no note is left")
    xdo("windowactivate", cover.id)
    wait(lambda: server.active() == cover.id, "the other is in front")
    sleeps_and_wakes()
    never(lambda: server.active() != cover.id, "a wake without notes took the keyboard")
    other.close()
    say("nothing without notes")


play(scene)
