# SPDX-License-Identifier: MIT
"""A reminder comes in a real notification server, at its moment; a click and each of its actions work, and it goes when
its note goes."""
import datetime
import os
import pathlib

from Xlib import X

from driver import wait
from stage import expect, never, play


def notification(server):
    """Rectangle of the notification on the screen."""
    def shown(window):
        types = server.property(window, "_NET_WM_WINDOW_TYPE")
        kind = server.x.intern_atom("_NET_WM_WINDOW_TYPE_NOTIFICATION")
        return types is not None and kind in types and window.get_attributes().map_state == X.IsViewable
    found = [w for w in server.root.query_tree().children if server._quietly(lambda: shown(w), False)]  # noqa: B023
    return server.inner(found[0]) if found else None


def choose(label):
    (pathlib.Path(os.environ["DESKTOP_DIR"]) / "choice").write_text(label + "\n")


def scene(tarnwick, server, say):
    tarnwick.start("--background")
    wait(lambda: "unavailable" not in str(tarnwick.status()["platform"]["notifications"]), "notifications are there")

    def due_soon(text):
        moment = datetime.datetime.now() + datetime.timedelta(seconds=5)
        return tarnwick.run("add", text, "--no-tear", "--due", moment.isoformat(timespec="seconds"), check=True).stdout.strip()

    def press(button):
        x, y, width, height = wait(lambda: notification(server), "the notification is shown")
        tarnwick.click(x + width / 2, y + height / 2, button)

    # opened by a click
    opened = due_soon("Open me")
    expect([r["identifier"] for r in tarnwick.status()["reminders"]] == [opened + "-due"], "one reminder is planned")
    wait(lambda: notification(server), "it comes")
    tarnwick.shot("reminder")
    expect(not tarnwick.status()["board"]["visible"], "the board is hidden")
    press(1)
    wait(lambda: tarnwick.status()["board"]["visible"], "the click shows the board")
    wait(lambda: not notification(server), "and the notification goes")
    tarnwick.shot("opened")
    tarnwick.run("toggle", check=True)
    wait(lambda: not tarnwick.status()["board"]["visible"], "the board goes again")
    say("a click shows the note")

    # crushed from the notification
    choose("Crush")
    due_soon("Crush me")
    press(3)
    wait(lambda: tarnwick.note("Crush me")["isCompleted"], "the note is crushed")
    wait(lambda: not notification(server), "and its reminder goes")
    say("crushed from the notification")

    # put off
    choose("Remind me in an hour")
    later = due_soon("Not now")
    press(3)
    planned = wait(lambda: next((r for r in tarnwick.status()["reminders"] if r["identifier"] == later + "-due"), None),
                   "it is planned again")
    away = datetime.datetime.fromisoformat(planned["firesAt"]) - datetime.datetime.now(datetime.timezone.utc)
    expect(3000 < away.total_seconds() <= 3600, f"in an hour, not in {away}")
    wait(lambda: not notification(server), "it is gone from the screen")
    say("put off for an hour")

    # withdrawn with its note
    gone = due_soon("Done elsewhere")
    wait(lambda: notification(server), "it comes")
    tarnwick.run("crush", gone, check=True)
    wait(lambda: not notification(server), "it goes with its note")
    moved = due_soon("Moved")
    tarnwick.run("edit", moved, "--due", "tomorrow", check=True)
    never(lambda: notification(server), "the old moment of a moved note", during=6)
    say("withdrawn with its note")


play(scene)
