# SPDX-License-Identifier: MIT
"""The board by hot key and tray, and the notes' windows in each display mode, as the X server sees them."""
import contextlib
import subprocess

from driver import Failure, wait, xdo
from stage import ALL_DESKTOPS, Plain, expect, park, play, settled, tear_at


def board(tarnwick, server, say):
    def is_shown():
        seen = tarnwick.status()["board"]
        return seen["visible"] and not seen["dismissing"]

    def is_hidden():
        return not tarnwick.status()["board"]["visible"] and server.titled("Tarnwick") is None

    def chord(condition, what):
        tarnwick.key("super+shift+t")
        wait(condition, what)

    chord(is_shown, "the hot key drops the board")
    window = wait(lambda: server.titled("Tarnwick"), "the board has a window")
    wait(lambda: server.active() == window.id, "the board has the keyboard")
    wait(lambda: server.desktop_of(window) == ALL_DESKTOPS and "ABOVE" in server.states(window), "on all desktops, above")
    chord(is_hidden, "the hot key tucks the board")
    for lock in ("Num_Lock", "Caps_Lock"):
        xdo("key", lock)
        xdo("key", "super+shift+t")
        wait(is_shown, f"with {lock} on")
        xdo("key", "super+shift+t")
        wait(is_hidden, f"again with {lock} on")
        xdo("key", lock)
    say("the hot key toggles the board, with the locks on too")

    place = wait(lambda: tray_place(tarnwick, server), "the icon in the tray")
    tarnwick.click(*place)
    wait(is_shown, "the tray icon drops the board")
    frame = tarnwick.status()["board"]["frame"]
    expect(abs(frame[0] + frame[2] / 2 - place[0]) < 200 + 8, f"the board {frame} is at the icon {place}")

    def is_moved():
        seen = tarnwick.status()["board"]["frame"]
        if seen == server.inner_board() == frame:
            xdo("windowmove", window.id, 300, 250)  # in vain while the board is new
        return seen != frame and seen == server.inner_board()
    wait(is_moved, "the board is where the window manager moved it")
    tarnwick.click(*place)
    wait(is_hidden, "the tray icon tucks the board")

    def menu():
        # while the keyboard still goes from the hidden board to another window, a click may be lost
        tarnwick.click(*place, button=3)
        with contextlib.suppress(Failure):
            return wait(server.popups, "the menu opens", limit=1)

    wait(menu, "the tray's menu")
    tarnwick.shot("menu")
    tarnwick.key("Down", "Return")
    wait(is_shown, "its first item opens the board")
    wait(lambda: not server.popups(), "the menu closes")
    tarnwick.run("toggle", check=True)
    wait(is_hidden, "the command tucks the board")
    say("the tray icon and its menu")


def tray_place(tarnwick, server):
    """Middle of our icon: of its window, or where the panel that draws it itself keeps such icons."""
    icon = tarnwick.tray_icon() or server.named("wrapper-2.0")
    return (icon[0] + icon[2] / 2, icon[1] + icon[3] / 2) if icon and icon[2] >= 20 else None


class Note:
    def __init__(self, tarnwick, server, identifier):
        self.tarnwick, self.server, self.id = tarnwick, server, identifier

    def window(self):
        """The X window that agrees with the status, once both agree."""
        def agree():
            seen = self.tarnwick.window(self.id)
            return seen and seen["visible"] and self.server.note_window(seen["frame"])
        return wait(agree, "status and X server agree on the note's place")

    def frame(self):
        return self.server.inner(self.window())

    def expect(self, states, without, opacity, is_open):
        def holds():
            window = self.window()
            width, height = self.server.inner(window)[2:]
            rectangles = self.server.input_rectangles(window)
            seen = self.server.states(window)
            return (states <= seen and not without & seen and self.server.desktop_of(window) == ALL_DESKTOPS and
                    abs(self.server.opacity(window) - opacity) < 0.02 and
                    rectangles == ([[0, 0, width, height]] if is_open else []))
        try:
            wait(holds, f"{states}, opacity {opacity}, open to the pointer: {is_open}")
        except Failure as failure:
            window = self.window()
            raise Failure(f"{failure}: {self.server.states(window)} on {self.server.desktop_of(window)}, "
                          f"{self.server.opacity(window)}, {self.server.input_rectangles(window)}") from None


def modes(tarnwick, server, say):
    other = Plain("Other", 150, 300, 420, 330)
    under = wait(lambda: server.titled("Other"), "the other window")
    wait(lambda: server.is_viewable(under), "it is shown")
    park()
    note = Note(tarnwick, server, tarnwick.run("add", "Water the fern", check=True).stdout.strip())
    note.expect({"ABOVE", "SKIP_TASKBAR", "SKIP_PAGER"}, {"BELOW"}, 1, True)
    expect(server.active() != note.window().id, "a note takes no keyboard from another program")
    left, top, width, height = note.frame()

    def tells():
        for x in (0, 1):  # the first motion may be but an entry
            xdo("mousemove", int(left + width - 34 + x), int(top + 48))
        with contextlib.suppress(Failure):
            return wait(server.tips, "a tool tip", limit=2)
    wait(tells, "and still tells what its circle does")
    park()
    wait(lambda: not server.tips(), "while the pointer is on it")

    # onto the other window, by hand; a click there reaches the note, and the other program stays below
    left, top, width, height = note.frame()
    grip = (left + width / 2, top + height - 50)
    tarnwick.drag(grip, (grip[0] + 240 - left, grip[1] + 350 - top))
    wait(lambda: abs(note.frame()[0] - 240) <= 3 and abs(note.frame()[1] - 350) <= 3, "dragged")
    left, top, width, height = settled(note.frame, "the note")
    middle = (left + width / 2, top + height - 50)
    other.clicks()
    xdo("windowactivate", under.id)
    wait(lambda: server.active() == under.id, "the other window is in front")
    wait(lambda: server.is_above(note.window(), under), "the note stays above it")
    tarnwick.click(170, 620)
    wait(lambda: other.clicks() == 1, "the other window gets its own clicks")
    expect(server.is_above(note.window(), under), "the note is above after a click below")
    tarnwick.click(*middle)
    wait(lambda: server.active() == note.window().id, "the click reaches the note")
    expect(other.clicks() == 0, "and nothing below it")
    say("always on top")

    tarnwick.run("settings", "noteDisplayMode", "desktop", check=True)
    note.expect({"BELOW"}, {"ABOVE"}, 1, True)
    wait(lambda: server.is_above(under, note.window()), "the note is below the other window")
    expect(tarnwick.window(note.id)["level"] == "desktop", "and the status says so")
    tarnwick.click(*middle)
    wait(lambda: other.clicks() == 1, "the other window gets the click")
    xdo("windowraise", note.window().id)
    xdo("windowactivate", under.id)
    wait(lambda: server.active() == under.id and server.is_above(under, note.window()), "it stays below")
    tarnwick.shot("desktop")
    say("on the desktop")

    tarnwick.run("settings", "noteDisplayMode", "mouseThrough", check=True)
    park()
    note.expect({"ABOVE"}, {"BELOW"}, 0.6, False)
    wait(lambda: server.is_above(note.window(), under), "the ghost is above")
    expect(tarnwick.window(note.id)["sharing"] == "none", "a ghost is never shared")
    xdo("mousemove", *map(int, middle))
    note.expect({"ABOVE"}, {"BELOW"}, 0.12, False)
    tarnwick.shot("ghost")
    other.clicks()
    xdo("click", 1)
    wait(lambda: other.clicks() == 1, "the click passes through to the window below")
    xdo("keydown", "alt")
    note.expect({"ABOVE"}, {"BELOW"}, 1, True)
    # by the note itself or by a window manager that moves windows with Alt
    tarnwick.drag(middle, (middle[0] + 90, middle[1] - 40))
    wait(lambda: abs(note.frame()[0] - left - 90) <= 6 and abs(note.frame()[1] - top + 40) <= 6, "Alt grabs the ghost")
    xdo("keyup", "alt")
    expect(other.clicks() == 0, "the grabbed note keeps the click")
    park()
    note.expect({"ABOVE"}, {"BELOW"}, 0.6, False)
    say("see-through")

    tarnwick.run("settings", "noteDisplayMode", "alwaysOnTop", check=True)
    note.expect({"ABOVE"}, {"BELOW"}, 1, True)
    tarnwick.run("redock", note.id, check=True)
    wait(lambda: not tarnwick.window(note.id) and not server.notes(), "back on the board")
    tarnwick.run("tear", note.id, check=True)
    note.expect({"ABOVE"}, {"BELOW"}, 1, True)
    other.close()
    say("put back and torn off again")
    return note


def places(tarnwick, server, say, note, width):
    """The first monitor is that wide, and the screen 1280."""
    notes = [note]
    if width < 1280:
        # torn off where the pointer is
        notes.append(Note(tarnwick, server, tear_at(tarnwick, "On the right", width + 260, 400)))
        expect(notes[-1].frame()[0] >= width, f"the note appears on the pointer's monitor: {notes[-1].frame()}")
    third = Note(tarnwick, server, tear_at(tarnwick, "On the left", 300, 400))
    expect(third.frame()[0] + third.frame()[2] <= width, f"and on the first one: {third.frame()}")
    notes.append(third)
    left, top, across, down = third.frame()
    grip = (left + across / 2, top + down - 50)
    tarnwick.drag(grip, (grip[0] + 760 - left, grip[1] + 330 - top))
    wait(lambda: abs(third.frame()[0] - 760) <= 3 and abs(third.frame()[1] - 330) <= 3, "dragged across the screen")
    frames = settled(lambda: {each.id: each.frame() for each in notes}, "the notes")
    tarnwick.shot("places")
    expect(tarnwick.quit() == 0, "it ends well")
    wait(lambda: not server.notes(), "the notes go")
    tarnwick.start("--background")
    wait(lambda: {each.id: each.frame() for each in notes} == frames, f"every note is back at {frames}")
    for each in notes:
        each.expect({"ABOVE"}, {"BELOW"}, 1, True)
    say("the same places after a restart")


def scene(tarnwick, server, say):
    park()
    tarnwick.start("--background")
    board(tarnwick, server, say)
    note = modes(tarnwick, server, say)
    monitors = subprocess.run(["xrandr", "--listmonitors"], capture_output=True, text=True, check=True).stdout
    places(tarnwick, server, say, note, width=640 if "right" in monitors else 1280)


play(scene)
