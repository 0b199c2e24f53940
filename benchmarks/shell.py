# SPDX-License-Identifier: MIT
"""How quickly the board and a new note come, and what twenty open notes cost, seen from the X server: beside a bare Qt
program that does the same in the same session, and beside other note programs where they are installed and asked for."""
import os
import pathlib
import select
import shutil
import signal
import subprocess
import sys
import time
import uuid

from Xlib import X, XK, display, error
from Xlib.ext import damage, xtest

from figures import quantile, reporter

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tests" / "session"))
from driver import Failure, Tarnwick, wait, xdo  # noqa: E402
from stage import Plain, XServer, settled  # noqa: E402

report = reporter("shell")
BIN = pathlib.Path(sys.argv[1]).resolve()
COMMAND = str(BIN / "tarnwick")
STORE = pathlib.Path(os.environ["XDG_DATA_HOME"]) / "app.tarnwick.Tarnwick" / "Tarnwick.store"
TOGGLES = int(os.environ.get("TARNWICK_BENCH_RUNS", "50"))
ADDS = 12
NOTES = 20
SETTLING = 15  # seconds until what was started is at rest
IDLE = 60


def now():
    return time.monotonic() * 1000


class Watch:
    """Sees when a window is mapped, painted and no longer transparent, and when any window of some size is mapped."""

    def __init__(self):
        self.x = display.Display()
        self.root = self.x.screen().root
        self.x.damage_query_version()
        self.opacity = self.x.intern_atom("_NET_WM_WINDOW_OPACITY")
        self.window = self.damage = None
        self.mapped_at = self.painted_at = self.seen_at = None
        self.root.change_attributes(event_mask=X.SubstructureNotifyMask)
        self.opened_at = None
        self.x.sync()

    def follow(self, window):
        self.window = self.x.create_resource_object("window", window)
        self.window.change_attributes(event_mask=X.StructureNotifyMask | X.PropertyChangeMask)
        self.damage = self.window.damage_create(damage.DamageReportRawRectangles)
        self.clear()

    def leave(self):
        self.x.damage_destroy(self.damage)
        self.x.sync()
        self.window = None

    def clear(self):
        self.x.sync()
        self.pump()
        self.mapped_at = self.painted_at = self.seen_at = self.opened_at = None

    def pump(self):
        while self.x.pending_events():
            self.take(self.x.next_event())

    def take(self, event):
        moment = now()
        ours = self.window is not None and getattr(event, "window", None) == self.window
        if event.type == X.MapNotify and event.event == self.root:
            self.opened(event.window, moment)
        if event.type == X.MapNotify and ours:
            self.mapped_at = moment
        elif event.type == X.UnmapNotify and ours:
            self.mapped_at = None
        elif event.type == self.x.extension_event.DamageNotify and self.mapped_at and not self.painted_at:
            self.painted_at = moment
        if self.painted_at and not self.seen_at and self.is_opaque():
            self.seen_at = now()

    def opened(self, window, moment):
        try:
            size = window.get_geometry()
        except (error.BadWindow, error.BadDrawable):
            return
        if size.width >= 150 and size.height >= 100 and not self.opened_at:
            self.opened_at = moment

    def is_opaque(self):
        value = self.window.get_full_property(self.opacity, X.AnyPropertyType)
        return value is None or value.value[0] > 0

    def until(self, condition, what, limit=10):
        end = time.monotonic() + limit
        while True:
            self.pump()
            if condition():
                return
            left = end - time.monotonic()
            if left <= 0:
                raise Failure(f"waited in vain: {what}")
            select.select([self.x.fileno()], [], [], min(left, 0.5))

    def press(self, *names):
        codes = [self.x.keysym_to_keycode(XK.string_to_keysym(name)) for name in names]
        for code in codes[:-1]:
            xtest.fake_input(self.x, X.KeyPress, code)
        self.x.sync()
        begin = now()
        xtest.fake_input(self.x, X.KeyPress, codes[-1])
        self.x.flush()
        return begin, codes

    def release(self, codes):
        for code in reversed(codes):
            xtest.fake_input(self.x, X.KeyRelease, code)
        self.x.sync()


def spawn(*words):
    """Without a shell and without copying this process: the time until it runs is part of what is measured."""
    return os.posix_spawnp(words[0], list(words), os.environ,
                           file_actions=[(os.POSIX_SPAWN_OPEN, 1, "/dev/null", os.O_WRONLY, 0),
                                         (os.POSIX_SPAWN_OPEN, 2, "/dev/null", os.O_WRONLY, 0)])


def by_command(watch):
    begin = now()
    child = spawn(COMMAND, "toggle")
    return begin, lambda: os.waitpid(child, 0)


def by_chord(watch):
    begin, codes = watch.press("Super_L", "Shift_L", "t")
    return begin, lambda: watch.release(codes)


def toggles(watch, press, runs):
    """From the press to the first frame that can be seen, in milliseconds."""
    times = []
    for _ in range(runs):
        watch.clear()
        begin, finish = press(watch)
        watch.until(lambda: watch.seen_at, "the board is painted")
        times.append(watch.seen_at - begin)
        finish()
        time.sleep(0.75)  # the drop has come to rest
        _, finish = press(watch)
        finish()
        watch.until(lambda: watch.mapped_at is None, "the board hides")
        time.sleep(0.1)
    return times


def adds(watch, words, runs, before=lambda: None, after=lambda: None):
    """From the command's start to the new window mapped."""
    times = []
    for number in range(runs):
        before()
        watch.clear()
        begin = now()
        child = spawn(*[word.format(number) for word in words])
        watch.until(lambda: watch.opened_at, "the note's window", limit=20)
        times.append(watch.opened_at - begin)
        after()
        time.sleep(0.35)
        os.waitpid(child, os.WNOHANG)
    return times


# ---------------------------------------------------------------- what a process costs
def switches(pid):
    """Of each thread."""
    return {task.name: sum(int(line.split()[1]) for line in (task / "status").read_text().splitlines()
                           if "ctxt_switches" in line)
            for task in pathlib.Path(f"/proc/{pid}/task").iterdir()}


def proportional_set(pid):
    """In megabytes."""
    for line in pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines():
        if line.startswith("Pss:"):
            return int(line.split()[1]) / 1024
    return None


def idle_switches(pid):
    """In a minute."""
    time.sleep(SETTLING)
    before = switches(pid)
    time.sleep(IDLE)
    after = switches(pid)
    return sum(after[task] - before.get(task, 0) for task in after) * 60 / IDLE


# ---------------------------------------------------------------- the programs
class Bare:
    def start(self):
        self.process = subprocess.Popen([str(BIN / "bench_shell_floor"), str(STORE)])
        wait(lambda: subprocess.run([COMMAND, "list"], capture_output=True).returncode == 0 and self.process.poll() is None,
             "the bare program answers")
        time.sleep(1)

    def quit(self):
        subprocess.run([COMMAND, "quit"])
        self.process.wait(10)


def board_window(server, title):
    subprocess.run([COMMAND, "toggle"], check=True, stdout=subprocess.DEVNULL)
    window = wait(lambda: server.titled(title), "the board's window").id
    time.sleep(1)
    subprocess.run([COMMAND, "toggle"], check=True, stdout=subprocess.DEVNULL)
    wait(lambda: server.titled(title) is None, "it hides")
    time.sleep(0.5)
    return window


def measure_bare(watch, server, runs):
    bare = Bare()
    bare.start()
    watch.follow(board_window(server, "Bare"))
    found = {"toggle": toggles(watch, by_command, runs), "chord": toggles(watch, by_chord, runs)}
    watch.leave()
    found["add"] = adds(watch, [COMMAND, "add", "note {0}"], ADDS)
    bare.quit()
    return found


def text(number):
    return f"note text {number}\nsecond line"


def measure_ours(watch, server, tarnwick):
    tarnwick.start("--background")
    time.sleep(2)
    watch.follow(board_window(server, "Tarnwick"))
    found = {"toggle": toggles(watch, by_command, TOGGLES), "chord": toggles(watch, by_chord, TOGGLES)}
    watch.leave()
    found["add"] = adds(watch, [COMMAND, "add", text("{0}")], ADDS)
    expect_clean(tarnwick.quit())
    return found


def expect_clean(status):
    if status != 0:
        raise Failure(f"it ended with {status}")


def measure_many(tarnwick):
    """A start with one note, with twenty, and the latter at rest."""
    found = {}
    for note in tarnwick.notes():
        tarnwick.run("crush", note["id"], check=True)
    tarnwick.run("add", text(0), check=True)
    for count in (1, NOTES):
        tarnwick.start("--background")
        for note in tarnwick.notes("active"):
            tarnwick.run("tear", note["id"], check=True)
        for number in range(len(tarnwick.notes("active")), count):
            tarnwick.run("add", text(number), check=True)
        expect_clean(tarnwick.quit())
        tarnwick.start("--background")
        settled(lambda: [each["visible"] for each in tarnwick.status()["windows"]].count(True) == count or None,
                f"{count} notes are open", hold=1)
        if count == NOTES:
            found["idle"] = idle_switches(tarnwick.process.pid)
        else:
            time.sleep(SETTLING)
        found[count] = proportional_set(tarnwick.process.pid)
        expect_clean(tarnwick.quit())
    return found


class Peer:
    """Another program for notes: opens so many of them, makes a new one by a command."""
    name = ""
    new = ()

    def seed(self, count):
        pass

    def command(self):
        return [self.name]

    def open(self, count):
        pass

    def before_new(self):
        pass


class Xpad(Peer):
    name = "xpad"
    new = ("xpad", "-n")

    def seed(self, count):
        folder = pathlib.Path(os.environ["XDG_CONFIG_HOME"]) / "xpad"
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir(parents=True)
        (folder / "default-style").write_text("tray_enabled 1\nconfirm_destroy 0\nautostart_display_pads 2\n")
        for i in range(count):
            (folder / f"content-N{i:05}").write_text(text(i))
            (folder / f"info-N{i:05}").write_text(f"width 250\nheight 230\nx {40 + 70 * i}\ny {40 + 30 * i}\nfollow_font 1\n"
                                                  f"follow_color 1\nsticky 0\nhidden 0\ncontent content-N{i:05}\n")


class Gnote(Peer):
    name = "gnote"
    new = ("gnote", "--new-note")

    @staticmethod
    def call(method, *words):
        return subprocess.run(["gdbus", "call", "--session", "--dest", "org.gnome.Gnote", "--object-path",
                               "/org/gnome/Gnote/RemoteControl", "--method", f"org.gnome.Gnote.RemoteControl.{method}", *words],
                              capture_output=True, text=True).stdout.strip("(),'\n ")

    def open(self, count):
        for i in range(count):
            note = self.call("CreateNamedNote", f"bench note {i}")
            self.call("SetNoteContents", note, f"bench note {i}\n{text(i)}")
            self.call("DisplayNote", note)

    def before_new(self):
        subprocess.run(["wmctrl", "-c", "Gnote"], capture_output=True)
        time.sleep(0.7)


class TomboyNg(Peer):
    name = "tomboy-ng"
    new = ("xdotool", "key", "ctrl+n")

    def seed(self, count):
        folder = pathlib.Path(os.environ["XDG_DATA_HOME"]) / "tomboy-ng"
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir(parents=True)
        for i in range(count):
            (folder / f"{uuid.uuid4()}.note").write_text(
                '<?xml version="1.0" encoding="utf-8"?>\n<note version="0.3" xmlns="http://beatniksoftware.com/tomboy">\n'
                f"  <title>Note {i}</title>\n  <text xml:space=\"preserve\"><note-content version=\"0.1\">Note {i}\n\n{text(i)}"
                "</note-content></text>\n  <last-change-date>2026-01-01T10:00:00.0000000+00:00</last-change-date>\n"
                "  <last-metadata-change-date>2026-01-01T10:00:00.0000000+00:00</last-metadata-change-date>\n"
                "  <create-date>2026-01-01T10:00:00.0000000+00:00</create-date>\n  <cursor-position>1</cursor-position>\n"
                "  <selection-bound-position>1</selection-bound-position>\n  <width>300</width>\n  <height>250</height>\n"
                f"  <x>{40 + 70 * i}</x>\n  <y>{40 + 30 * i}</y>\n  <tags></tags>\n"
                "  <open-on-startup>True</open-on-startup>\n</note>\n")

    def command(self):
        return ["tomboy-ng", "--no-splash"]


def measure_peer(watch, server, peer):
    found = {}

    def owners():
        """Who has windows: a program may live in another process than the one that was started."""
        pids = (server.property(window, "_NET_WM_PID") for window in server.windows())
        return {pid[0] for pid in pids if pid is not None and len(pid)}

    def begin(count):
        others = owners()
        peer.seed(count)
        subprocess.Popen(peer.command(), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait(lambda: owners() - others, f"{peer.name} opens")
        time.sleep(2)
        peer.open(count)
        time.sleep(2)
        return next(iter(owners() - others))

    def end(pid):
        os.kill(pid, signal.SIGTERM)
        try:
            wait(lambda: pid not in owners(), f"{peer.name} is gone", limit=5)
        except Failure:
            os.kill(pid, signal.SIGKILL)
            wait(lambda: pid not in owners(), f"{peer.name} is gone")

    pid = begin(1)
    found["add"] = adds(watch, peer.new, 8, before=peer.before_new)
    end(pid)
    pid = begin(NOTES)
    other = Plain("Elsewhere", 1500, 900, 200, 100)
    wait(lambda: server.titled("Elsewhere"), "the other window")
    xdo("windowactivate", other.window.id)
    found["idle"] = idle_switches(pid)
    found["memory"] = proportional_set(pid)
    other.close()
    end(pid)
    return found


def main():
    watch, server = Watch(), XServer()
    xdo("mousemove", 5, 700)
    tarnwick = Tarnwick(COMMAND)
    tarnwick.skip_welcome()
    half = TOGGLES // 2
    floor = measure_bare(watch, server, half)
    ours = measure_ours(watch, server, tarnwick)
    for figure, times in measure_bare(watch, server, TOGGLES - half).items():
        floor[figure] += times
    peers = {}
    if os.environ.get("TARNWICK_PEERS"):
        for peer in (Xpad(), Gnote(), TomboyNg()):
            try:
                if shutil.which(peer.name):
                    peers[peer.name] = measure_peer(watch, server, peer)
            except (Failure, OSError, subprocess.SubprocessError) as failure:
                print(f"shell: {peer.name} could not be measured: {failure}", file=sys.stderr)
    many = measure_many(tarnwick)

    def best(figure, middle=lambda value: value):
        found = {name: middle(facts[figure]) for name, facts in peers.items() if facts.get(figure) is not None}
        name = min(found, key=found.get, default=None)
        return (found[name], name) if name else (None, "peer")

    for name, facts in peers.items():
        print(f"# {name}: new note {quantile(facts['add'], .5):.1f} ms, {NOTES} notes {facts['memory']:.1f} MB, "
              f"{facts['idle']:.1f} switches/min")
    for figure in ("toggle", "chord"):
        for name, part in (("p50", .5), ("p95", .95)):
            report(f"{figure}-{name}", quantile(ours[figure], part), "ms", quantile(floor[figure], part), "bare-window", 2)
    added = quantile(ours["add"], .5)
    report("add-p50", added, "ms", quantile(floor["add"], .5), "bare-window", 2)
    report("add-p95", quantile(ours["add"], .95), "ms", quantile(floor["add"], .95), "bare-window", 2)
    value, name = best("add", lambda times: quantile(times, .5))
    report("add-peer", added, "ms", value, name, 0.6)
    value, name = best("idle")
    report("idle", many["idle"], "switches/min", value + 4 if value is not None else None, f"{name}+4", 1)
    value, name = best("memory")
    report("memory", many[NOTES], "MB", value, name, 1.2)
    each = (many[NOTES] - many[1]) / (NOTES - 1)
    # More notes take no less: such readings say nothing.
    report("memory-per-note", each if each > 0 else None, "MB", 0.35, "0.35-MB", 1, digits=3)


main()
