# SPDX-License-Identifier: MIT
"""The main job from end to end, by pointer and keys: stick, tear off, move, edit, put back, crush, undo, restart."""
from driver import Failure, wait


def expect(condition, what):
    if not condition:
        raise Failure(what)


def play(tarnwick, say=lambda text: None):
    tarnwick.skip_welcome()
    tarnwick.start()
    say("Tarnwick runs")

    # the board drops under the tray icon
    x, y, width, height = wait(tarnwick.tray_icon, "the icon in the tray")
    tarnwick.click(x + width / 2, y + height / 2)
    board = wait(lambda: (lambda s: s if s["board"]["visible"] else None)(tarnwick.status()), "the board drops")["board"]
    expect(board["frame"][2:] == [390, 390], f"the board is 390 x 390, not {board['frame']}")
    tarnwick.element("^New Note$")
    wait(lambda: not tarnwick.status()["board"]["dismissing"], "the board stays")
    tarnwick.shot("board")
    say(f"the board dropped at {board['frame'][:2]}")

    # a new note
    tarnwick.click_element("^New Note$")
    tarnwick.element("^Stick Note$")
    tarnwick.type("Call the baker")
    tarnwick.click_element("^Sky$")
    tarnwick.shot("composer")
    tarnwick.click_element("^Stick Note$")
    note = wait(lambda: tarnwick.note("Call the baker"), "the note is stored")
    expect(note["colorHex"] == "#4CC9F0", f"the chosen colour is stored, not {note['colorHex']}")
    wait(lambda: tarnwick.window(note["id"]), "the note has a window of its own")
    wait(lambda: not tarnwick.status()["board"]["visible"], "the board hides")
    tarnwick.shot("torn-off")
    say("the note is on the desktop")

    # drag it by its paper
    left, top, width, height = tarnwick.window(note["id"])["frame"]
    grip = (left + width / 2, top + height - 60)
    tarnwick.drag(grip, (grip[0] - 300, grip[1] + 120))
    moved = wait(lambda: (lambda f: f if abs(f[0] - (left - 300)) <= 3 and abs(f[1] - (top + 120)) <= 3 else None)(
        tarnwick.window(note["id"])["frame"]), "the window follows the pointer")
    say(f"dragged to {moved[:2]}")

    # edit it in place
    tarnwick.hover(moved[0] + moved[2] / 2, moved[1] + moved[3] / 2)
    tarnwick.click_element("^Edit$")
    tarnwick.element("^Save$")
    tarnwick.key("ctrl+End")
    tarnwick.type(" at noon")
    tarnwick.click_element("^Save$")
    wait(lambda: tarnwick.note("Call the baker at noon"), "the edit is stored")
    tarnwick.shot("edited")
    say("edited in place")

    # put it back, and tear it off again
    tarnwick.hover(moved[0] + moved[2] / 2 + 5, moved[1] + moved[3] / 2)
    tarnwick.click_element("^Put back on board$")
    wait(lambda: not tarnwick.window(note["id"]), "the window goes")
    expect(not tarnwick.note("baker").get("isTornOff"), "the note is on the board again")
    tarnwick.run("tear", note["id"], check=True)
    wait(lambda: tarnwick.window(note["id"]), "the window is back")
    say("put back and torn off again")

    # crush it, undo on the board
    frame = tarnwick.window(note["id"])["frame"]
    tarnwick.hover(frame[0] + frame[2] / 2, frame[1] + frame[3] / 2)
    tarnwick.click_element("^Crush note$")
    wait(lambda: tarnwick.note("baker")["isCompleted"], "the note is crushed")
    wait(lambda: not tarnwick.window(note["id"]), "its window is gone")
    tarnwick.shot("crushed")
    tarnwick.run("board", check=True)
    wait(lambda: tarnwick.status()["board"]["visible"], "the board is there")
    tarnwick.element("^New Note$")
    tarnwick.key("super+z")
    wait(lambda: not tarnwick.note("baker")["isCompleted"], "undo brings it back")
    wait(lambda: tarnwick.window(note["id"]), "with its window")
    tarnwick.shot("undone")
    say("crushed and brought back")

    # everything is there after a restart
    frame = tarnwick.window(note["id"])["frame"]
    grip = (frame[0] + frame[2] / 2, frame[1] + frame[3] - 60)
    tarnwick.key("Escape")
    tarnwick.run("toggle")
    wait(lambda: not tarnwick.status()["board"]["visible"], "the board goes")
    tarnwick.drag(grip, (grip[0] - 200, grip[1] + 150))
    place = wait(lambda: (lambda f: f if f[:2] != frame[:2] else None)(tarnwick.window(note["id"])["frame"]), "moved")
    wait(lambda: tarnwick.window(note["id"])["frame"] == place, "at rest")
    place = tarnwick.window(note["id"])["frame"]
    before = tarnwick.notes()
    expect(tarnwick.quit() == 0, "it ends well")
    tarnwick.start()
    expect(tarnwick.notes() == before, "every note is as it was")
    back = wait(lambda: (lambda w: w if w and w["frame"] == place else None)(tarnwick.window(note["id"])),
                f"the window is where it was, {place}")
    tarnwick.shot("restarted")
    say(f"restarted: the note is back at {back['frame'][:2]}")
    expect(tarnwick.quit() == 0, "it ends well again")
