# SPDX-License-Identifier: MIT
"""Notification servers that are not there, come late, are slow, or answer nonsense: no reminder is lost or left behind,
and Tarnwick says what it has."""
import datetime
import os
import pathlib
import subprocess
import sys

from driver import wait
from stage import expect, play

FOLDER = pathlib.Path(os.environ["DESKTOP_DIR"])


class Server:
    def __init__(self, kind):
        self.log = FOLDER / f"{kind}.log"
        with open(self.log, "wb") as log:
            self.process = subprocess.Popen([sys.executable, str(pathlib.Path(__file__).with_name("notification_server.py")),
                                             kind], stdout=log)
        wait(lambda: self.has("ready"), f"the {kind} server")

    def has(self, text):
        return text in self.log.read_text()

    def close(self):
        self.process.kill()
        self.process.wait()


def nobody_serves():
    """The bus would start a server that is installed."""
    services = pathlib.Path(os.environ["XDG_DATA_HOME"]) / "dbus-1" / "services"
    services.mkdir(parents=True)
    (services / "none.service").write_text("[D-BUS Service]\nName=org.freedesktop.Notifications\nExec=/bin/false\n")
    subprocess.run(["gdbus", "call", "--session", "-d", "org.freedesktop.DBus", "-o", "/org/freedesktop/DBus", "-m",
                    "org.freedesktop.DBus.ReloadConfig"], check=True, capture_output=True)


def scene(tarnwick, server, say):
    nobody_serves()
    tarnwick.start("--background")

    def notifications():
        return str(tarnwick.status()["platform"]["notifications"])

    def due_soon(text):
        moment = datetime.datetime.now() + datetime.timedelta(seconds=2)
        return tarnwick.run("add", text, "--no-tear", "--due", moment.isoformat(timespec="seconds"), check=True).stdout.strip()

    def has_fired():
        wait(lambda: not tarnwick.status()["reminders"], "the reminder's moment passes")

    wait(lambda: notifications().startswith("unavailable"), "nobody shows notifications, and the status says so")
    due_soon("Shown late")
    over = due_soon("Over before")
    has_fired()
    tarnwick.run("crush", over, check=True)
    right = Server("right")
    wait(lambda: right.has("Shown late"), "what was missed is shown once somebody can")
    wait(lambda: notifications() == "freedesktop", "and the status says so")
    expect(not right.has("Over before"), "but not what is over")
    right.close()
    say("a server that comes late")

    odd = Server("nonsense")
    note = due_soon("Answered oddly")
    wait(lambda: odd.has("Answered oddly"), "it is asked")
    tarnwick.run("crush", note, check=True)
    again = due_soon("And again")
    wait(lambda: odd.has("And again"), "it is asked again")
    expect(not tarnwick.note("And again")["isCompleted"], "nonsense crushes nothing")
    tarnwick.run("crush", again, check=True)
    odd.close()
    say("a server that answers nonsense")

    slow = Server("slow")
    note = due_soon("Taken back")
    wait(lambda: slow.has("Notify 1 Taken back"), "it is asked")
    tarnwick.run("crush", note, check=True)
    wait(lambda: slow.has("Close 1"), "what was over before it answered is withdrawn")
    slow.close()
    say("a slow server")


play(scene)
