# SPDX-License-Identifier: MIT
"""What else is on the desktop beside Tarnwick, and what the X server says about all of it: other programs' windows,
stacking, window properties, input shapes."""
import contextlib
import os
import pathlib
import re
import subprocess
import sys
import time

from Xlib import X, Xutil, display, error
from Xlib.ext import shape
from Xlib.protocol import event

from driver import Failure, Tarnwick, wait, xdo

ALL_DESKTOPS = 0xFFFFFFFF
LIBRARIES = list(pathlib.Path("/usr/lib").glob("*/faketime/libfaketime.so.1"))


def expect(condition, what):
    if not condition:
        raise Failure(what)


def settled(read, what, hold=0.3, limit=None):
    """Waits until what is read stays the same for a while; returns it."""
    seen = {"value": None, "since": None}

    def holds():
        value, now = read(), time.monotonic()
        if value is None or value != seen["value"]:
            seen.update(value=value, since=now)
            return None
        return [value] if now - seen["since"] >= hold else None

    return wait(holds, f"{what} comes to rest", limit)[0]


def never(condition, what, during=1.2):
    """For what must not come: looks all the while."""
    end = time.monotonic() + during
    while time.monotonic() < end:
        expect(not condition(), what)
        time.sleep(0.03)


def sleeps_and_wakes():
    """What the mocked login manager says around a sleep."""
    for argument in ("true", "false"):
        subprocess.run(["gdbus", "call", "--system", "-d", "org.freedesktop.login1", "-o", "/org/freedesktop/login1", "-m",
                        "org.freedesktop.DBus.Mock.EmitSignal", "org.freedesktop.login1.Manager", "PrepareForSleep", "b",
                        f"[<{argument}>]"], check=True, capture_output=True)


class WallClock:
    """A clock that stands at the moment that was set last."""

    def __init__(self):
        expect(LIBRARIES, "libfaketime is installed")
        self.file = pathlib.Path(os.environ["DESKTOP_DIR"]) / "faketime"
        self.environment = {"LD_PRELOAD": str(LIBRARIES[0]), "FAKETIME_TIMESTAMP_FILE": str(self.file),
                            "FAKETIME_NO_CACHE": "1", "DONT_FAKE_MONOTONIC": "1"}

    def set(self, day, time):
        staged = self.file.with_suffix(".new")
        staged.write_text(f"{day} {time}\n")
        staged.rename(self.file)


class XServer:
    """A client of its own that only looks."""

    def __init__(self):
        self.x = display.Display()
        self.root = self.x.screen().root

    def _quietly(self, work, otherwise=None):
        try:
            return work()
        except (error.BadWindow, error.BadDrawable, error.BadMatch):
            return otherwise

    def property(self, window, name):
        def read():
            found = window.get_full_property(self.x.intern_atom(name), X.AnyPropertyType)
            return found.value if found else None
        return self._quietly(read)

    def windows(self, name="_NET_CLIENT_LIST_STACKING"):
        """The managed windows, the lowest first."""
        ids = self.property(self.root, name)
        if ids is None:
            ids = self.property(self.root, "_NET_CLIENT_LIST")
        return [self.x.create_resource_object("window", each) for each in (ids if ids is not None else [])]

    def title(self, window):
        text = self.property(window, "_NET_WM_NAME") or self.property(window, "WM_NAME") or ""
        if isinstance(text, str):
            return text
        try:
            return text.decode("utf-8")
        except UnicodeDecodeError:
            return text.decode("latin-1")

    def titled(self, title):
        return next((w for w in self.windows() if self.title(w) == title), None)

    def states(self, window):
        atoms = self.property(window, "_NET_WM_STATE")
        return {self.x.get_atom_name(each).removeprefix("_NET_WM_STATE_") for each in (atoms if atoms is not None else [])}

    def desktop_of(self, window):
        value = self.property(window, "_NET_WM_DESKTOP")
        return value[0] if value is not None and len(value) else None

    def opacity(self, window):
        value = self.property(window, "_NET_WM_WINDOW_OPACITY")
        return 1.0 if value is None or not len(value) else value[0] / 0xFFFFFFFF

    def is_viewable(self, window):
        return self._quietly(lambda: window.get_attributes().map_state == X.IsViewable, False)

    def inner(self, window):
        """The window's own rectangle on the screen, without what the window manager puts around it."""
        def read():
            size = window.get_geometry()
            # the library turns it round: the window named first is the one translated to
            place = self.root.translate_coords(window, 0, 0)
            return [place.x, place.y, size.width, size.height]
        return self._quietly(read)

    def outer(self, window):
        """With the window manager's frame."""
        frame = self.inner(window)
        extents = self.property(window, "_NET_FRAME_EXTENTS")
        if frame is None or extents is None:
            return frame
        left, right, top, bottom = extents
        return [frame[0] - left, frame[1] - top, frame[2] + left + right, frame[3] + top + bottom]

    def inner_board(self):
        """The board's rectangle without the margin for its shadow."""
        window = self.titled("Tarnwick")
        frame, margins = window and self.inner(window), window and self.property(window, "_GTK_FRAME_EXTENTS")
        if frame is None:
            return None
        left, right, top, bottom = margins if margins is not None else (0, 0, 0, 0)
        return [frame[0] + left, frame[1] + top, frame[2] - left - right, frame[3] - top - bottom]

    def input_rectangles(self, window):
        return self._quietly(lambda: [[r.x, r.y, r.width, r.height]
                                      for r in window.shape_get_rectangles(shape.SK.Input).rectangles])

    def is_above(self, upper, lower):
        order = [w.id for w in self.windows()]
        return upper.id in order and lower.id in order and order.index(upper.id) > order.index(lower.id)

    def active(self):
        value = self.property(self.root, "_NET_ACTIVE_WINDOW")
        return value[0] if value is not None and len(value) else 0

    def keep_above(self, window):
        data = (32, [1, self.x.intern_atom("_NET_WM_STATE_ABOVE"), 0, 2, 0])
        message = event.ClientMessage(window=window, client_type=self.x.intern_atom("_NET_WM_STATE"), data=data)
        self.root.send_event(message, X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self.x.sync()

    def named(self, name):
        """Rectangle of a visible window of that name, however deep it lies."""
        def look(window):
            for child in window.query_tree().children:
                if child.get_attributes().map_state == X.IsViewable and child.get_wm_name() == name:
                    return self.inner(child)
                if found := self._quietly(lambda: look(child)):  # noqa: B023
                    return found
            return None
        return self._quietly(lambda: look(self.root))

    def popups(self):
        """Menus: what no window manager manages, of some size."""
        def is_popup(window):
            facts, size = window.get_attributes(), window.get_geometry()
            return facts.override_redirect and facts.map_state == X.IsViewable and size.width > 120 and size.height > 80
        return [w.id for w in self.root.query_tree().children if self._quietly(lambda: is_popup(w), False)]

    def tips(self):
        def is_tip(window):
            types = self.property(window, "_NET_WM_WINDOW_TYPE")
            return self.is_viewable(window) and types is not None and \
                self.x.intern_atom("_NET_WM_WINDOW_TYPE_TOOLTIP") in types
        return [w.id for w in self.root.query_tree().children if is_tip(w)]

    def note_window(self, frame):
        """The note whose window lies there."""
        return next((w for w in self.windows()
                     if self.title(w).startswith("Tarnwick Note") and self.is_viewable(w) and self.inner(w) == frame), None)

    def notes(self):
        return [w for w in self.windows() if self.title(w).startswith("Tarnwick Note") and self.is_viewable(w)]


class Plain:
    """An ordinary window of another program, which counts the clicks that it gets."""

    def __init__(self, title, x, y, width, height):
        self.x = display.Display()
        screen = self.x.screen()
        self.window = screen.root.create_window(x, y, width, height, 0, screen.root_depth, X.InputOutput, X.CopyFromParent,
                                                background_pixel=screen.white_pixel,
                                                event_mask=X.ButtonPressMask | X.StructureNotifyMask)
        self.window.set_wm_name(title)
        self.window.set_wm_class(title.lower(), title)
        self.window.set_wm_normal_hints(flags=Xutil.USPosition | Xutil.USSize, x=x, y=y, width=width, height=height)
        self.window.map()
        self.x.sync()
        self.title = title

    def clicks(self):
        """Those since the last time it was asked."""
        self.x.sync()
        count = 0
        while self.x.pending_events():
            if self.x.next_event().type == X.ButtonPress:
                count += 1
        return count

    def close(self):
        self.window.destroy()
        self.x.close()


class Framed:
    """A window of a real application, framed by the window manager."""

    def __init__(self, server, title, find):
        self.server = server
        self.title = title
        self.window = wait(find, f"the window {title!r}")
        wait(lambda: server.is_viewable(self.window) and server.property(self.window, "_NET_FRAME_EXTENTS") is not None,
             f"{title!r} is framed")

    def is_in_front(self):
        return self.server.active() == self.window.id

    def activate(self):
        def comes():
            if self.is_in_front():
                return True
            xdo("windowactivate", self.window.id)
            return self.is_in_front()
        wait(comes, f"{self.title!r} is in front")

    def frame(self):
        return self.server.outer(self.window)

    def move(self, x, y):
        xdo("windowmove", self.window.id, x, y)

    def resize(self, width, height):
        xdo("windowsize", self.window.id, width, height)

    def minimize(self):
        xdo("windowminimize", self.window.id)

    def unmaximize(self):
        self._change("remove,maximized_vert,maximized_horz")

    def set_full_screen(self, value):
        self._change(("add" if value else "remove") + ",fullscreen")

    def _change(self, states):
        subprocess.run(["wmctrl", "-i", "-r", hex(self.window.id), "-b", states], check=True)


class Terminal(Framed):
    """An xterm: a real application with a desktop entry."""

    def __init__(self, server, title, geometry, *words):
        self.process = subprocess.Popen(["xterm", "-geometry", geometry, *words, "-T", title, "-e", "sleep", "600"],
                                        env={**os.environ, "LC_ALL": "C.UTF-8"}, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
        super().__init__(server, title, lambda: server.titled(title))

    def close(self):
        self.process.terminate()
        self.process.wait()


class Application(Framed):
    """The window that comes when a command is run, whatever its title is and whichever process makes it."""

    def __init__(self, server, window_class, *words):
        known = {w.id for w in server.windows()}
        self.process = subprocess.Popen(words, env={**os.environ, "LC_ALL": "C.UTF-8"}, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)

        def is_ours(window):
            names = (server.property(window, "WM_CLASS") or b"").lower()
            return window.id not in known and window_class.encode() in (names if isinstance(names, bytes) else names.encode())
        super().__init__(server, window_class, lambda: next((w for w in server.windows() if is_ours(w)), None))

    def close(self):
        """As its close button does."""
        subprocess.run(["wmctrl", "-i", "-c", hex(self.window.id)], check=False)
        wait(lambda: all(w.id != self.window.id for w in self.server.windows()), f"{self.title!r} closes")


TAB = [210, 46]
UNFOLDED = [250, 230]
DOCK_OFFSET = (-18, -64)


def monitors():
    """Rectangles of the monitors, in the order in which the server names them."""
    lines = subprocess.check_output(["xrandr", "--listmonitors"], text=True).splitlines()[1:]
    sizes = [re.search(r" (\d+)/\d+x(\d+)/\d+\+(\d+)\+(\d+)", line).groups() for line in lines]
    return [[int(x), int(y), int(width), int(height)] for width, height, x, y in sizes]


def docked_at(target, offset=DOCK_OFFSET, size=None):
    """Top right corner at the target's, moved by the offset (whose y counts upwards), inside the first monitor that the
    target touches."""
    across, down = size or TAB
    left, top, width, height = next(m for m in monitors() if target[0] < m[0] + m[2] and m[0] < target[0] + target[2])
    x = min(max(left, target[0] + target[2] + offset[0] - across), left + width - across)
    y = min(max(top, target[1] - offset[1]), top + height - down)
    return [x, y, across, down]


class DockedNote:
    """A note that is pinned to an application: where it is, by its own word and by the X server's."""

    def __init__(self, tarnwick, server, note):
        self.tarnwick = tarnwick
        self.server = server
        self.note = note

    def window(self):
        return self.tarnwick.window(self.note)

    def docks(self, to, what="docked", offset=DOCK_OFFSET, size=None):
        def is_there():
            seen, wanted = self.window(), docked_at(to.frame(), offset, size)
            return seen["visible"] and seen["docked"] and seen["frame"] == wanted and self.server.note_window(wanted)
        try:
            return wait(is_there, f"{to.title!r} and its note: {what}")
        except Failure as failure:
            raise Failure(f"{failure}: {self.window()} beside {to.frame()}") from None

    def hides(self, what):
        wait(lambda: not self.window()["visible"] and not self.server.notes(), what)


def tear_at(tarnwick, text, x, y):
    """A new note, torn off on the monitor where the pointer is; gives back its id."""
    xdo("mousemove", x, y)
    note = tarnwick.run("add", text, "--no-tear", check=True).stdout.strip()
    tarnwick.run("tear", note, check=True)
    return note


def park(x=None, y=None):
    """The pointer to where no note is: the lower left corner."""
    across, down = map(int, xdo("getdisplaygeometry").split())
    xdo("mousemove", 8 if x is None else x, down // 2 if y is None else y)


def play(scene):
    """Runs the scene with a Tarnwick that is not yet started; says how far it came when something is wrong."""
    tarnwick = Tarnwick(os.environ["TARNWICK"], os.environ.get("TARNWICK_SHOTS"))
    began = time.monotonic()

    def say(text):
        print(f"- {time.monotonic() - began:5.1f} s  {text}", flush=True)

    try:
        tarnwick.skip_welcome()
        scene(tarnwick, XServer(), say)
        if tarnwick.process and tarnwick.process.poll() is None:
            expect(tarnwick.quit() == 0, "it ends well")
    except (Failure, subprocess.SubprocessError) as failure:
        print("FAILED:", failure)
        tarnwick.shot("failed")
        with contextlib.suppress(Failure, ValueError):
            print(str(tarnwick.status())[:4000])
        print("0 passed, 1 failed")
        sys.exit(1)
    print("1 passed, 0 failed")
