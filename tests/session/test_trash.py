# SPDX-License-Identifier: MIT
"""A note that is crushed flies into the Trash of the panel, wherever the panel has it; a picked place goes before."""
import contextlib
import os
import pathlib
import re

from driver import wait, xdo
from stage import expect, play


def trash_button(server):
    """Frame of the panel's Trash, counted from the bottom of the screen: the window that holds the plug-in."""
    for folder in pathlib.Path("/proc").glob("[0-9]*"):
        with contextlib.suppress(OSError):
            words = (folder / "cmdline").read_bytes().split(b"\0")
            ours = f"DESKTOP_MARK={os.environ['DESKTOP_MARK']}".encode() in (folder / "environ").read_bytes().split(b"\0")
            if ours and len(words) > 3 and words[1].endswith(b"libthunar-tpa.so"):
                x, y, width, height = server.inner(server.x.create_resource_object("window", int(words[3])))
                return (x, 800 - y - height, width, height) if width > 8 else None
    return None


def scene(tarnwick, server, say):
    tarnwick.start("--background")
    button = wait(lambda: trash_button(server), "the panel has a Trash")
    wait(lambda: "at-spi" in str(tarnwick.status()["platform"]["accessibility"]), "accessibility is there")

    def crush(text):
        note = tarnwick.run("add", text, check=True).stdout.strip()
        left, top, width, height = wait(lambda: tarnwick.window(note), "the note has a window")["frame"]
        tarnwick.hover(left + width / 2, top + height / 2)
        tarnwick.click_element("^Crush note$")
        wait(lambda: tarnwick.note(text)["isCompleted"], "the note is crushed")
        wait(lambda: not tarnwick.window(note), "and its window is gone")

    def found():
        text = tarnwick.run("settings", "dockTrashFrame", check=True).stdout
        numbers = tuple(float(number) for number in re.findall(r"-?[\d.]+", text))
        return numbers if len(numbers) == 4 else None

    # a reading that was still under way at the first crush serves the second
    crush("Into the panel's Trash")
    if found() != button:
        crush("Into the panel's Trash again")
    expect(found() == button, f"the flight went to {found()}, the button is at {button}")
    say(f"the Trash was found at {button}")

    # a place on the screen that is picked with a click, until the user leaves it to Tarnwick again
    def target():
        return tarnwick.run("settings", "crushTarget", check=True).stdout.strip()

    tarnwick.action("settings")
    tarnwick.click_element("^Pick where crushed notes land$")
    tarnwick.element("^Click where crushed notes should land")
    tarnwick.hover(240, 300)
    tarnwick.shot("picking")
    tarnwick.click(240, 300)
    wait(lambda: target() == "{{216, 476}, {48, 48}}", "the place is picked")
    wait(lambda: not tarnwick.elements("^Click where crushed notes should land"), "and the screen is free again")
    tarnwick.shot("picked")
    tarnwick.run("settings", "dockTrashFrame", "{{1, 2}, {30, 40}}", check=True)
    crush("To where I picked")
    expect(found() == (1, 2, 30, 40), "nobody asked the panel")
    tarnwick.click_element("^Let Tarnwick find the Trash$")
    wait(lambda: target() == "automatic", "left to Tarnwick")
    tarnwick.key("Escape")
    say("a place is picked by a click")

    # pressed again in the air: the window is seen again, the note is as it was
    def taken_back(text):
        note = tarnwick.run("add", text, check=True).stdout.strip()
        left, top, width, height = wait(lambda: tarnwick.window(note), "the note has a window")["frame"]
        window = wait(lambda: server.note_window(tarnwick.window(note)["frame"]), "its window is shown")
        tarnwick.hover(left + width / 2, top + height / 2)
        tarnwick.click_element("^Crush note$")
        wait(lambda: server.opacity(window) < 0.05 or not server.is_viewable(window), "it flies")
        xdo("click", 1)
        wait(lambda: tarnwick.note(text)["isCompleted"] or server.opacity(window) == 1.0, "it lands or comes back")
        return not tarnwick.note(text)["isCompleted"]

    # a slow machine may let it land before the second press
    expect(any(taken_back(f"Second thoughts {turn}") for turn in range(5)), "a crush can be taken back in the air")
    say("a crush is taken back")


play(scene)
