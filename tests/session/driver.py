# SPDX-License-Identifier: MIT
"""Drives a real Tarnwick in a virtual desktop from outside: pointer, keys, the command line, the accessibility bus."""
import json
import os
import pathlib
import re
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

LIMIT = float(os.environ.get("TARNWICK_LIMIT", "30"))  # seconds until a condition counts as not coming


class Failure(AssertionError):
    pass


def wait(condition, what, limit=None):
    """Asks again and again until the condition gives something true; returns it."""
    end = time.monotonic() + (limit or LIMIT)
    error = None
    while True:
        try:
            found = condition()
            error = None
        except (GLib.Error, ValueError, IndexError, KeyError, TypeError, subprocess.CalledProcessError) as caught:
            found, error = None, caught
        if found:
            return found
        if time.monotonic() > end:
            raise Failure(f"waited in vain: {what}" + (f" ({error})" if error else ""))
        time.sleep(0.03)


def xdo(*words):
    return subprocess.run(["xdotool", *map(str, words)], check=True, capture_output=True, text=True).stdout.strip()


class Tarnwick:
    def __init__(self, command, shots=None):
        self.command = str(pathlib.Path(command).resolve())
        self.shots = pathlib.Path(shots) if shots else None
        if self.shots:
            self.shots.mkdir(parents=True, exist_ok=True)
        self.process = None
        self.pictures = []

    # -- life
    def start(self, *words, env=None):
        log = open(pathlib.Path(os.environ.get("DESKTOP_DIR", "/tmp")) / "tarnwick.log", "ab")
        self.process = subprocess.Popen([self.command, *words], stdout=log, stderr=log,
                                        env={**os.environ, **(env or {})})
        wait(lambda: self.run("status").returncode == 0, "Tarnwick answers")
        return self

    def quit(self):
        self.run("quit")
        self.process.wait(timeout=LIMIT)
        return self.process.returncode

    def kill(self):
        self.process.kill()
        self.process.wait(timeout=LIMIT)

    # -- command line
    def run(self, *words, stdin=None, check=False):
        done = subprocess.run([self.command, *words], capture_output=True, text=True, input=stdin, timeout=60)
        if check and done.returncode != 0:
            raise Failure(f"tarnwick {' '.join(words)}: {done.returncode} {done.stderr}")
        return done

    def action(self, name):
        """As the desktop does it from the entry in its menus."""
        subprocess.run(["gdbus", "call", "--session", "-d", "app.tarnwick.Tarnwick", "-o", "/app/tarnwick/Tarnwick", "-m",
                        "org.freedesktop.Application.ActivateAction", name, "[]", "{}"], check=True, capture_output=True)

    def status(self):
        return json.loads(self.run("status", "--json", check=True).stdout)

    def notes(self, state="all"):
        return json.loads(self.run("list", "--state", state, "--json", check=True).stdout)

    def note(self, text):
        return next((note for note in self.notes() if text in note["text"]), None)

    def window(self, note_id):
        return next((w for w in self.status()["windows"] if w["id"] == note_id), None)

    def skip_welcome(self):
        self.run("settings", "hasSeenWelcome", "true", check=True)
        self.run("settings", "planNudge", "false", check=True)
        self.run("settings", "autoCheckUpdates", "false", check=True)

    # -- accessibility
    def application(self):
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(index)
            if child and child.get_process_id() == self.process.pid:
                return child
        return None

    def elements(self, name=None, role=None, root=None):
        """Every showing element whose name matches, anywhere under the root."""
        found = []

        def walk(node, depth):
            if node is None or depth > 25:
                return
            try:
                node.clear_cache_single()
            except (AttributeError, GLib.Error):
                pass
            try:
                if depth > 0 and not node.get_state_set().contains(Atspi.StateType.SHOWING):
                    return
                if (name is None or re.search(name, node.get_name() or "")) and \
                        (role is None or node.get_role_name() == role):
                    found.append(node)
                for index in range(min(node.get_child_count(), 400)):
                    walk(node.get_child_at_index(index), depth + 1)
            except GLib.Error:
                return

        walk(root or self.application(), 0)
        return found

    def element(self, name=None, role=None, limit=None):
        return wait(lambda: (self.elements(name, role) or [None])[0], f"an element {name!r} {role or ''}", limit)

    @staticmethod
    def frame(element):
        box = element.get_extents(Atspi.CoordType.SCREEN)
        return box.x, box.y, box.width, box.height

    # -- pointer and keys
    def click(self, x, y, button=1):
        xdo("mousemove", int(x), int(y))
        time.sleep(0.05)
        xdo("click", button)

    def click_element(self, name=None, role=None, button=1):
        x, y, width, height = wait(lambda: self._stable(self.element(name, role)), f"{name!r} holds still")
        self.click(x + width / 2, y + height / 2, button)

    def hover(self, x, y):
        """Rests the pointer until the tools of a note have faded in, a quarter of a second after it came."""
        xdo("mousemove", int(x), int(y))
        time.sleep(0.6)

    def _stable(self, element):
        first = self.frame(element)
        time.sleep(0.08)
        second = self.frame(element)
        across, down = map(int, xdo("getdisplaygeometry").split())
        is_on_screen = 0 <= second[0] < across and 0 <= second[1] < down  # the board is beside it while it drops
        return second if first == second and second[2] > 0 and is_on_screen else None

    @staticmethod
    def drag(start, end, steps=12):
        xdo("mousemove", int(start[0]), int(start[1]), "mousedown", 1)
        for step in range(1, steps + 1):
            xdo("mousemove", int(start[0] + (end[0] - start[0]) * step / steps),
                int(start[1] + (end[1] - start[1]) * step / steps))
            time.sleep(0.02)
        xdo("mouseup", 1)

    @staticmethod
    def key(*chords):
        for chord in chords:
            xdo("key", "--clearmodifiers", chord)

    @staticmethod
    def type(text):
        xdo("type", "--delay", "25", text)

    # -- the X server's own view
    @staticmethod
    def tray_icon():
        """Rectangle of our icon in the tray: the small window of ours inside the panel's."""
        tree = subprocess.run(["xwininfo", "-root", "-tree"], capture_output=True, text=True, check=True).stdout
        for line in tree.splitlines():
            if re.search("tarnwick", line, re.I):
                size = re.search(r"(\d+)x(\d+)\+-?\d+\+-?\d+\s+\+(-?\d+)\+(-?\d+)", line)
                if size:
                    width, height, x, y = map(int, size.groups())
                    if 8 <= width <= 40 and 8 <= height <= 40:
                        return x, y, width, height
        return None

    def shot(self, name):
        if not self.shots:
            return
        path = self.shots / f"{len(self.pictures) + 1:02d}-{name}.png"
        subprocess.run(["import", "-window", "root", str(path)], check=True)
        self.pictures.append(path)
