# SPDX-License-Identifier: MIT
"""What docking costs, seen from the X server and the kernel: how long a tab is behind the window that it is docked to,
what a drag of that window costs Tarnwick, and what pinned notes cost while nothing happens."""
import os
import pathlib
import re
import select
import sys
import time

from Xlib import X, display
from Xlib.ext import xtest

from figures import quantile, reporter

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tests" / "session"))
from driver import Failure, Tarnwick, wait, xdo  # noqa: E402
from stage import Terminal, XServer, park, settled  # noqa: E402

report = reporter("dock", digits=2)
COMMAND = str(pathlib.Path(sys.argv[1]).resolve() / "tarnwick")
FRAME = 1000 / 60  # ms
MOVES = 200
DRAG = 5  # seconds
IDLE = 60
SETTLING = 15  # until what was started is at rest


class Costs:
    """Processor time and wake-ups of a process since it was made. A thread that has ended meanwhile counts for nothing."""

    def __init__(self, pid):
        self.folder = pathlib.Path("/proc") / str(pid) / "task"
        self.before = self.read()

    def read(self):
        threads = {}
        for task in self.folder.iterdir():
            try:
                spent = int((task / "schedstat").read_text().split()[0])
                wakes = int(re.search(r"\nvoluntary_ctxt_switches:\s+(\d+)", (task / "status").read_text()).group(1))
                threads[task.name] = (spent, wakes)
            except FileNotFoundError:
                continue
        return threads

    def since(self):
        now = self.read()
        spent, wakes = (sum(each[part] - self.before.get(thread, (0, 0))[part] for thread, each in now.items())
                        for part in (0, 1))
        return spent / 1e9, wakes


class Watch:
    """A client that hears of every move of the windows told, with the moment it heard."""

    def __init__(self, *windows):
        self.x = display.Display()
        self.places = {}
        for window in windows:
            self.x.create_resource_object("window", window.id).change_attributes(event_mask=X.StructureNotifyMask)
        self.x.sync()

    def pump(self, limit):
        """Waits for events at most that many seconds; gives back (moment in ms, window, place on the screen)."""
        if not self.x.pending_events():
            select.select([self.x.fileno()], [], [], limit)
        heard = []
        while self.x.pending_events():
            event, now = self.x.next_event(), time.monotonic() * 1000
            if event.type == X.ConfigureNotify and event.send_event:  # the window manager's: in the root's coordinates
                heard.append((now, event.window.id, (event.x, event.y)))
            elif event.type == X.ConfigureNotify:
                place = event.window.translate_coords(self.x.screen().root, 0, 0)
                heard.append((now, event.window.id, (-place.x, -place.y)))
        return heard


def lags(server, terminal, note):
    """From the event of the window's move to the event of the tab's."""
    tab = server.notes()[0]
    watch = Watch(terminal.window, tab)
    found = []
    for step in range(MOVES):
        before = server.inner(tab)[0]
        across = 30 if step % 2 else -30
        inner = server.inner(terminal.window)
        outer = terminal.frame()
        xdo("windowmove", terminal.window.id, outer[0] + across, outer[1])
        moved = followed = None
        end = time.monotonic() + 2
        while followed is None and time.monotonic() < end:
            for moment, window, place in watch.pump(0.5):
                if window == terminal.window.id and moved is None and place[0] != inner[0]:
                    moved = moment
                elif window == tab.id and place[0] != before:
                    followed = moment
        if followed is not None:
            found.append(max(0.0, followed - (moved if moved is not None else followed)))
    return found if len(found) > 0.95 * MOVES else []


def drag(terminal, seconds):
    """By the title bar, sixty steps a second, as a hand does."""
    x = display.Display()
    left, top, width, _ = terminal.frame()
    start = (left + width // 3, top + 8)
    xtest.fake_input(x, X.MotionNotify, x=start[0], y=start[1])
    xtest.fake_input(x, X.ButtonPress, 1)
    x.sync()
    begun = time.monotonic()
    step = 0
    while time.monotonic() - begun < seconds:
        step += 1
        swing = step % 240
        along = swing if swing < 120 else 240 - swing
        xtest.fake_input(x, X.MotionNotify, x=start[0] + 5 * along, y=start[1] + 2 * along)
        x.sync()
        time.sleep(max(0, begun + step / 60 - time.monotonic()))
    xtest.fake_input(x, X.MotionNotify, x=start[0], y=start[1])
    xtest.fake_input(x, X.ButtonRelease, 1)
    x.sync()
    x.close()


def cost_of(tarnwick, work):
    costs = Costs(tarnwick.process.pid)
    work()
    return costs.since()


def rest(tarnwick, terminal):
    terminal.activate()
    settled(terminal.frame, "the window")
    time.sleep(SETTLING)
    return cost_of(tarnwick, lambda: time.sleep(IDLE))


def main():
    park()
    tarnwick = Tarnwick(COMMAND)
    tarnwick.skip_welcome()
    server = XServer()
    tarnwick.start("--background")
    terminal = Terminal(server, "Dragged", "70x20+200+200")
    terminal.activate()
    pin = wait(lambda: tarnwick.status()["context"]["lastExternalApp"], "the terminal is known")

    plain = [tarnwick.run("add", f"Plain {i}", check=True).stdout.strip() for i in range(20)]
    quiet = rest(tarnwick, terminal)
    _, free = cost_of(tarnwick, lambda: drag(terminal, DRAG))
    for note in plain:
        tarnwick.run("crush", note, check=True)

    note = tarnwick.run("add", "Follow", "--pin", pin, check=True).stdout.strip()
    terminal.activate()
    wait(lambda: tarnwick.window(note)["docked"] and len(server.notes()) == 1, "docked")
    settled(lambda: tarnwick.window(note)["frame"], "the tab")
    behind = lags(server, terminal, note)
    report("follow-p95", quantile(behind, 0.95), "ms", FRAME, "frame", 2)
    report("follow-median", quantile(behind, 0.5), "ms", FRAME, "frame", 1)
    spent, bound = cost_of(tarnwick, lambda: drag(terminal, DRAG))
    report("drag-cpu", 1000 * spent, "ms", 1000 * DRAG, "drag", 0.05)
    report("unpinned-drag-wakeups", float(free), "count", bound, "pinned", 0.05)

    for index in range(19):
        tarnwick.run("add", f"Follow {index}", "--pin", pin, check=True)
    terminal.activate()
    wait(lambda: len(server.notes()) == 20, "twenty are docked")
    pinned = rest(tarnwick, terminal)
    report("idle-wakeups-20", float(pinned[1]), "count", max(quiet[1], 1), "unpinned", 1.5)
    report("idle-cpu-20", 1000 * pinned[0], "ms", max(1000 * quiet[0], 1), "unpinned", 1.5)
    spent, _ = cost_of(tarnwick, lambda: drag(terminal, DRAG))
    report("drag-cpu-20", 1000 * spent, "ms", 1000 * DRAG, "drag", 0.1)
    tarnwick.quit()


try:
    main()
except Failure as failure:
    print("dock:", failure, file=sys.stderr)
    for figure in ("follow-p95", "drag-cpu", "idle-wakeups-20"):
        report(figure, None, "-", None, "-", 0)
    sys.exit(1)
