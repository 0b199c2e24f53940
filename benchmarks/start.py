# SPDX-License-Identifier: MIT
"""How long a start takes, seen from the X server: until the icon is in the tray, and until the board's first frame when a
launcher asks for it over the bus. Beside an empty program that links every library Tarnwick uses, and, where they are
asked for and installed, beside other note programs until their first window."""
import contextlib
import os
import pathlib
import select
import shutil
import signal
import statistics
import subprocess
import sys
import time

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402
from Xlib import X, display, error  # noqa: E402
from Xlib.ext import damage  # noqa: E402

from figures import reporter  # noqa: E402

report = reporter("start")
BIN = pathlib.Path(sys.argv[1]).resolve()
RUNS = int(os.environ.get("TARNWICK_BENCH_RUNS", "20"))
NAME = "app.tarnwick.Tarnwick"
FLOOR = "app.tarnwick.Floor"  # started by the bus as well, which has no other service of that name
PEERS = {"xpad": ["xpad"], "gnote": ["gnote"], "tomboy-ng": ["tomboy-ng"], "zim": ["zim"]}


class Watch:
    """When an icon comes into the tray, and when a window of some size is painted for the first time."""

    def __init__(self):
        self.x = display.Display()
        self.root = self.x.screen().root
        self.x.damage_query_version()
        self.info = self.x.intern_atom("_XEMBED_INFO")
        self.followed = {}
        check = self.root.get_full_property(self.x.intern_atom("_NET_SUPPORTING_WM_CHECK"), X.AnyPropertyType)
        self.window_manager = check.value[0]
        self.root.change_attributes(event_mask=X.SubstructureNotifyMask)
        self.x.sync()
        self.clear()

    def clear(self):
        self.x.sync()
        while self.x.pending_events():
            self.x.next_event()
        self.tray_at = self.painted_at = None
        self.followed = {}

    def until(self, condition, limit=20):
        end = time.monotonic() + limit
        while not condition():
            while self.x.pending_events():
                self.take(self.x.next_event())
            if condition():
                return True
            left = end - time.monotonic()
            if left <= 0:
                return False
            select.select([self.x.fileno()], [], [], min(left, 0.5))
        return True

    def take(self, event):
        moment = time.monotonic() * 1000
        try:
            if event.type == X.ReparentNotify and not self.tray_at and event.parent != self.root:
                if event.window.get_full_property(self.info, X.AnyPropertyType):
                    self.tray_at = moment
            elif event.type == X.CreateNotify and event.width >= 150 and event.height >= 100:
                self.follow(event.window)
            elif event.type == X.ConfigureNotify and event.width >= 150 and event.height >= 100:
                self.follow(event.window)
            elif event.type == self.x.extension_event.DamageNotify and not self.painted_at:
                drawn = self.followed.get(getattr(event.drawable, "id", event.drawable))
                if drawn and drawn.get_attributes().map_state == X.IsViewable:
                    self.painted_at = moment
        except (error.BadWindow, error.BadDrawable):
            pass

    def follow(self, window):
        """Not the frames of the window manager, whose background counts for nothing."""
        is_frame = window.id >> 21 == self.window_manager >> 21
        if window.id not in self.followed and not is_frame:
            window.damage_create(damage.DamageReportRawRectangles)
            self.x.flush()
            self.followed[window.id] = window


def spawn(*words):
    return os.posix_spawnp(words[0], list(words), os.environ,
                           file_actions=[(os.POSIX_SPAWN_OPEN, 1, "/dev/null", os.O_WRONLY, 0),
                                         (os.POSIX_SPAWN_OPEN, 2, "/dev/null", os.O_WRONLY, 0)])


def end(pid):
    os.kill(pid, 15)
    os.waitpid(pid, 0)


def quiet(watch):
    """What was ended has gone from the screen."""
    time.sleep(0.4)
    watch.clear()


def begin(watch, *words):
    quiet(watch)
    return time.monotonic() * 1000, spawn(*words)


def floor(watch):
    start, pid = begin(watch, str(BIN / "bench_start_floor"))
    came = watch.until(lambda: watch.tray_at and watch.painted_at)
    end(pid)
    return watch.tray_at - start if came else None


def tarnwick_tray(watch):
    start, pid = begin(watch, str(BIN / "tarnwick-desktop"))
    came = watch.until(lambda: watch.tray_at)
    end(pid)
    return watch.tray_at - start if came else None


def by_bus(watch, bus, name, path, interface, method, arguments):
    """Until the first frame of what the bus starts for a call."""
    quiet(watch)
    start = time.monotonic() * 1000
    bus.call(name, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, -1, None, None)
    bus.flush_sync()
    came = watch.until(lambda: watch.painted_at)
    return watch.painted_at - start if came else None


def floor_window(watch, bus):
    found = by_bus(watch, bus, "org.freedesktop.DBus", "/", "org.freedesktop.DBus", "StartServiceByName",
                   GLib.Variant("(su)", (FLOOR, 0)))
    for comm in pathlib.Path("/proc").glob("[0-9]*/comm"):  # a child of the bus
        with contextlib.suppress(OSError):  # others come and go
            if comm.read_text().strip() == "bench_start_flo":
                os.kill(int(comm.parent.name), signal.SIGTERM)
    return found


def tarnwick_board(watch, bus):
    found = by_bus(watch, bus, NAME, "/app/tarnwick/Tarnwick", "org.freedesktop.Application", "Activate",
                   GLib.Variant("(a{sv})", ({},)))
    subprocess.run([str(BIN / "tarnwick"), "quit"], check=True)
    return found


def peer(watch, words):
    start, pid = begin(watch, *words)
    came = watch.until(lambda: watch.painted_at)
    end(pid)
    return watch.painted_at - start if came else None


def middle(values):
    good = [value for value in values if value is not None]
    return statistics.median(good) if good and len(good) > len(values) / 2 else None


def activatable(bus):
    folder = pathlib.Path(os.environ["XDG_DATA_HOME"]) / "dbus-1" / "services"
    folder.mkdir(parents=True, exist_ok=True)
    for name, words in ((NAME, "tarnwick-desktop --background"), (FLOOR, "bench_start_floor")):
        (folder / f"{name}.service").write_text(f"[D-BUS Service]\nName={name}\nExec={BIN}/{words}\n", encoding="utf-8")
    bus.call_sync("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "ReloadConfig", None, None, Gio.DBusCallFlags.NONE, -1,
                  None)


def main():
    for key, value in (("hasSeenWelcome", "true"), ("planNudge", "false"), ("autoCheckUpdates", "false")):
        subprocess.run([str(BIN / "tarnwick"), "settings", key, value], check=True)
    for index in range(12):
        subprocess.run([str(BIN / "tarnwick"), "add", f"Note {index}", "--no-tear"], check=True, stdout=subprocess.DEVNULL)
    bus = Gio.bus_get_sync(Gio.BusType.SESSION, None)
    activatable(bus)
    watch = Watch()
    icons, windows, trays, boards = [], [], [], []
    floor(watch), tarnwick_tray(watch)  # the first reads everything from the disk
    for _ in range(RUNS):
        icons.append(floor(watch))
        windows.append(floor_window(watch, bus))
        trays.append(tarnwick_tray(watch))
        boards.append(tarnwick_board(watch, bus))
    empty_tray, empty_window = middle(icons), middle(windows)
    tray, board = middle(trays), middle(boards)
    report("tray", tray, "ms", empty_tray, "empty-qt-tray", 1.5)
    report("board", board, "ms", empty_window, "empty-qt-window", 1.5)
    best = {}
    if os.environ.get("TARNWICK_PEERS"):
        for name, words in PEERS.items():
            if shutil.which(words[0]):
                best[name] = middle([peer(watch, words) for _ in range(max(3, RUNS // 4))])
    best = {name: value for name, value in best.items() if value}
    fastest = min(best, key=best.get) if best else "best-peer"
    report("board-peer", board, "ms", best.get(fastest), fastest, 0.6)


main()
