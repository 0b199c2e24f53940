# SPDX-License-Identifier: MIT
"""The morning's plan: once a day the board drops by itself and asks; its slots make the daily three."""
import datetime

from driver import wait
from stage import WallClock, expect, never, park, play

COLORS = ["#FFE169", "#4CC9F0", "#FF7597"]


def scene(tarnwick, server, say):
    park()
    clock = WallClock()
    today = datetime.date(2027, 3, 9)
    clock.set(today, "08:00:00")
    tarnwick.run("settings", "planNudge", "true", check=True)

    def is_shown():
        seen = tarnwick.status()["board"]
        return seen["visible"] and not seen["dismissing"]

    tarnwick.start("--background", env=clock.environment)
    wait(is_shown, "the board drops by itself")
    tarnwick.element("^What's today's plan\\?$")
    tarnwick.shot("plan")

    for number, text in enumerate(["Ring Ola", "Sharpen the plane", "Sort the photos"], start=1):
        if not is_shown():
            tarnwick.run("board", check=True)
        if number > 1:
            # the tab of a board without notes asks too
            tarnwick.click_element("^Add Board$")
            tarnwick.type(f"Day {number}")
            tarnwick.key("Return")
        tarnwick.click_element(f"^Plan slot {number} of 3$")
        tarnwick.element("^Stick Note$")
        tarnwick.type(text)
        tarnwick.key("ctrl+Return")
        note = wait(lambda: tarnwick.note(text), "the note is stored")  # noqa: B023
        expect(note["isDaily3"] and note["colorHex"] == COLORS[number - 1], f"one of the three, in its colour: {note}")
        wait(lambda: tarnwick.window(note["id"]), "it is on the desktop")  # noqa: B023
        wait(lambda: not tarnwick.status()["board"]["visible"], "the board hides")
    say("three notes planned by the slots")

    tarnwick.run("board", check=True)
    wait(is_shown, "the board is there")
    tarnwick.click_element("^Focus$")
    planned = wait(lambda: (lambda cards: cards if len(cards) == 3 else None)(tarnwick.elements("daily three", "list item")),
                   "Focus shows the three")
    expect(len(planned) == 3, "and no other")
    tarnwick.shot("focus")
    expect(tarnwick.quit() == 0, "it ends well")
    say("Focus shows them")

    tarnwick.start("--background", env=clock.environment)
    never(is_shown, "the board has asked today", during=2)
    expect(tarnwick.quit() == 0, "it ends well")
    clock.set(today + datetime.timedelta(days=1), "05:00:00")
    tarnwick.start("--background", env=clock.environment)
    wait(is_shown, "and asks tomorrow")
    say("once a day")


play(scene)
