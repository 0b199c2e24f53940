# SPDX-License-Identifier: MIT
"""A note pinned to an application docks to its window as a tab, follows it, and hides without it."""
import json
import os
import pathlib

from driver import wait, xdo
from stage import ALL_DESKTOPS, UNFOLDED, DockedNote, Plain, Terminal, expect, park, play, settled


def scene(tarnwick, server, say):
    park()
    tarnwick.start("--background")
    terminal = Terminal(server, "Shell", "60x20+80+260")
    terminal.activate()
    pin = wait(lambda: (lambda name: name if name and "xterm" in name.lower() else None)(
        tarnwick.status()["context"]["lastExternalApp"]), "the terminal is known")
    note = tarnwick.run("add", "Restart the server", "--pin", pin, check=True).stdout.strip()

    pinned = DockedNote(tarnwick, server, note)
    window, hides = pinned.window, pinned.hides

    def docks(**how):
        return pinned.docks(terminal, **how)

    tab = docks()
    expect(window()["tucked"], "it starts as a tab")
    wait(lambda: server.desktop_of(tab) == ALL_DESKTOPS and "ABOVE" in server.states(tab), "on all desktops, above")
    tarnwick.shot("docked")
    say("docked as a tab")

    terminal.move(300, 330)
    wait(lambda: terminal.frame()[0] > 250, "the terminal moves")
    docks()
    before = terminal.frame()
    terminal.resize(before[2] + 130, before[3] + 60)
    wait(lambda: terminal.frame()[2] > before[2] + 60, "the terminal grows")
    docks()
    terminal.move(1200, 300)
    wait(lambda: terminal.frame()[0] > 400, "the terminal moves to the edge")  # some window managers stop it there
    docks(what="on the screen, beside the edge")
    terminal.move(200, 300)
    docks()
    say("follows a move and a resize")

    other = Plain("Other", 700, 60, 300, 120)
    wait(lambda: server.titled("Other") and server.active() == server.titled("Other").id or
         xdo("windowactivate", other.window.id) is None and server.active() == other.window.id, "the other is in front")
    hides("hides behind another program")
    expect(not window()["docked"], "it is not docked meanwhile")
    terminal.activate()
    tab = docks()
    wait(lambda: server.desktop_of(tab) == ALL_DESKTOPS and "ABOVE" in server.states(tab), "still on all desktops, above")
    xdo("windowminimize", terminal.window.id)
    hides("hides with a minimised window")
    terminal.activate()
    docks()
    second = Terminal(server, "Second shell", "40x8+20+60")
    second.activate()
    pinned.docks(second, "a second window")
    second.close()
    terminal.activate()
    docks()
    other.close()
    say("hides, returns, changes windows")

    x, y, width, height = window()["frame"]
    xdo("mousemove", x + width // 2, y + height // 2)
    docks(size=UNFOLDED)
    wait(lambda: not window()["tucked"], "opens under the pointer")
    tarnwick.shot("opened")
    park()
    docks()
    expect(window()["tucked"], "a tab again")
    say("opens under the pointer, folds behind it")

    # dragged by the pointer: it keeps that distance from the corner
    xdo("mousemove", x + width // 2, y + height // 2)
    docks(size=UNFOLDED)
    left, top, width, height = settled(lambda: window()["frame"], "the open note")
    grip = (left + width / 2, top + height - 50)
    tarnwick.drag(grip, (grip[0] - 90, grip[1] + 40))
    wait(lambda: abs(window()["frame"][0] - (left - 90)) <= 3 and abs(window()["frame"][1] - (top + 40)) <= 3, "dragged")
    dragged = settled(lambda: window()["frame"], "the dragged note")
    target = terminal.frame()
    offset = (dragged[0] + dragged[2] - target[0] - target[2], target[1] - dragged[1])
    park()
    terminal.activate()
    docks(offset=offset)
    terminal.move(120, 240)
    wait(lambda: terminal.frame()[0] < 190, "the terminal moves")
    docks(offset=offset)
    expect(tarnwick.quit() == 0, "it ends well")
    terminal.activate()
    tarnwick.start("--background")
    docks(offset=offset)
    say(f"keeps the dragged offset {offset}, also after a restart")

    # a value that is none
    expect(tarnwick.quit() == 0, "it ends well")
    changed = 0
    for path in pathlib.Path(os.environ["XDG_CONFIG_HOME"]).rglob("*.json"):
        values = json.loads(path.read_text(encoding="utf-8"))
        key = "appNoteOffset." + note
        if key in values:
            values[key] = [1, 2, 3]
            path.write_text(json.dumps(values), encoding="utf-8")
            changed += 1
    expect(changed == 1, "the offset is in the settings")
    tarnwick.start("--background")
    terminal.activate()
    docks()
    say("a malformed offset falls back")

    terminal.close()
    hides("hides when the program has ended")
    terminal = Terminal(server, "Shell again", "60x20+160+260")
    terminal.activate()
    docks()
    terminal.close()
    hides("and once more")
    say("hides with the program's end, returns with it")


play(scene)
