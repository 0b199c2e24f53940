# SPDX-License-Identifier: MIT
"""Panels that change their size, and screens of other scales: what the status tells agrees with the X server."""
import struct

from Xlib import X, Xatom, display

from driver import wait, xdo
from stage import expect, park, play, settled, tear_at

SIDE = 390
NOTE = (250, 230)


class SidePanel:
    """A panel along the right edge of the screen, as wide as it likes."""

    def __init__(self):
        self.x = display.Display()
        screen = self.x.screen()
        self.across, self.down = screen.width_in_pixels, screen.height_in_pixels
        self.window = screen.root.create_window(self.across - 40, 0, 40, self.down, 0, screen.root_depth, X.InputOutput,
                                                X.CopyFromParent, background_pixel=screen.black_pixel)
        self.window.set_wm_name("Side panel")
        self.window.change_property(self.x.intern_atom("_NET_WM_WINDOW_TYPE"), Xatom.ATOM, 32,
                                    [self.x.intern_atom("_NET_WM_WINDOW_TYPE_DOCK")])
        self.claim(40)
        self.window.map()
        self.x.sync()

    def claim(self, width):
        self.window.configure(x=self.across - width, width=max(width, 1))
        self.window.change_property(self.x.intern_atom("_NET_WM_STRUT_PARTIAL"), Xatom.CARDINAL, 32,
                                    [0, width, 0, 0, 0, 0, 0, self.down - 1, 0, 0, 0, 0])
        self.x.sync()

    def close(self):
        self.window.destroy()
        self.x.close()


def board_frame(tarnwick, server):
    """Drops the board; gives back where status and server agree that it is, and hides it again."""
    def agree():
        seen = tarnwick.status()["board"]
        return seen["frame"] if seen["visible"] and server.inner_board() == seen["frame"] else None
    tarnwick.run("toggle", check=True)
    frame = settled(agree, "status and X server agree on the board's place")
    tarnwick.run("toggle", check=True)
    wait(lambda: not tarnwick.status()["board"]["visible"], "it hides")
    return frame


def strut(tarnwick, server, say):
    panel = SidePanel()
    tarnwick.start("--background")
    for width in (40, 300, 0, 160):
        panel.claim(width)
        edge = panel.across - width

        def keeps_clear():
            note = tear_at(tarnwick, "Beside the panel", 300, 400)
            frame = tarnwick.window(note)["frame"]
            tarnwick.run("crush", note, check=True)
            return frame[0] + frame[2] == edge - 100
        wait(keeps_clear, f"a new note keeps clear of a panel {width} wide")
    panel.close()
    expect(tarnwick.quit() == 0, "it ends well")
    say("a panel that grows, goes and shrinks")


def scaled(tarnwick, server, say, scale):
    def pixels(points):
        return round(points * scale)

    tarnwick.start("--background", env={"QT_SCALE_FACTOR": str(scale)})
    note = tear_at(tarnwick, f"At {scale}", 300, 400)
    park()

    def agree():
        seen = tarnwick.window(note)
        return seen["frame"] if seen["visible"] and server.note_window(seen["frame"]) else None
    left, top, width, height = settled(agree, "status and X server agree on the note")
    expect(abs(width - pixels(NOTE[0])) <= 1 and abs(height - pixels(NOTE[1])) <= 1, f"{scale}: the note is {width} × {height}")
    frame = board_frame(tarnwick, server)
    expect(abs(frame[2] - pixels(SIDE)) <= 1 and abs(frame[3] - pixels(SIDE)) <= 1, f"{scale}: the board is {frame}")
    tarnwick.shot(f"scale-{scale}")

    # by hand, in the server's pixels
    grip = (left + width / 2, top + height - pixels(50))
    tarnwick.drag(grip, (grip[0] - 200, grip[1] + 90))
    wait(lambda: (lambda now: now and abs(now[0] - left + 200) <= 4 and abs(now[1] - top - 90) <= 4)(agree()),
         f"{scale}: dragged by as much as the pointer")
    held = settled(agree, "the dragged note")
    # and by the window manager, to where no whole point is
    xdo("windowmove", server.note_window(held).id, held[0] + 31, held[1] + 17)
    wait(lambda: agree() not in (None, held), f"{scale}: moved by the window manager")
    there = settled(agree, "the moved note")
    expect(abs(there[0] - held[0] - 31) <= 2 and abs(there[1] - held[1] - 17) <= 2, f"{scale}: it is there, {there}")
    expect(tarnwick.quit() == 0, "it ends well")
    tarnwick.start("--background", env={"QT_SCALE_FACTOR": str(scale)})
    wait(lambda: agree() == there, f"{scale}: back at {there}")
    tarnwick.run("crush", note, check=True)
    expect(tarnwick.quit() == 0, "it ends well")
    say(f"at a scale of {scale}")


class LargerFont:
    """The settings that a desktop publishes, with a font of its own."""

    def __init__(self, font):
        self.x = display.Display()
        self.window = self.x.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        name, value = b"Gtk/FontName", font.encode()
        padded = value + bytes(-len(value) % 4)
        setting = struct.pack("<BxH", 1, len(name)) + name + struct.pack("<II", 0, len(value)) + padded
        atom = self.x.intern_atom("_XSETTINGS_SETTINGS")
        self.window.change_property(atom, atom, 8, struct.pack("<BxxxII", 0, 1, 1) + setting)
        self.window.set_selection_owner(self.x.intern_atom("_XSETTINGS_S0"), X.CurrentTime)
        self.x.sync()

    def close(self):
        self.x.close()


def larger_letters(tarnwick, server, say):
    for name, variables, scale in (("Sans Bold 13", {}, 1.3), ("Noto Sans 12.5", {"QT_SCALE_FACTOR": "1.2"}, 1.5),
                                   ("Sans 11", {}, 1), ("Sans 10", {"QT_FONT_DPI": "120"}, 1.25)):
        font = LargerFont(name)
        tarnwick.start("--background", env=variables)
        frame = board_frame(tarnwick, server)
        side = SIDE * scale
        expect(abs(frame[2] - side) <= 1 and abs(frame[3] - side) <= 1, f"{name}, {variables}: the board is {frame}")
        expect(tarnwick.quit() == 0, "it ends well")
        font.close()
    say("letters of another size")


def scene(tarnwick, server, say):
    park()
    strut(tarnwick, server, say)
    larger_letters(tarnwick, server, say)
    for scale in (2, 1.8, 1.625, 1.5, 1.25):
        scaled(tarnwick, server, say, scale)


if __name__ == "__main__":
    play(scene)
