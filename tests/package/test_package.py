# SPDX-License-Identifier: MIT
"""The installed package on a desktop: started from its desktop entry and by autostart, upgraded with notes in it,
removed."""
import configparser
import os
import pathlib
import shlex
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "session"))
from driver import Failure, Tarnwick, wait  # noqa: E402

NAME = "app.tarnwick.Tarnwick"
ENTRY = f"/usr/share/applications/{NAME}.desktop"
DATA = pathlib.Path(os.environ["XDG_DATA_HOME"]) / NAME
AUTOSTART = pathlib.Path(os.environ["XDG_CONFIG_HOME"]) / "autostart" / f"{NAME}.desktop"


def expect(condition, what):
    if not condition:
        raise Failure(what)


def apt(*words):
    done = subprocess.run(["apt-get", "-y", "-qq", *words], capture_output=True, text=True, check=False)
    expect(done.returncode == 0, f"apt-get {' '.join(words)}: {done.stdout}{done.stderr}")


def is_running(tarnwick):
    return tarnwick.run("status").returncode == 0


class Started:
    """Stands for a process that somebody else started."""

    def __init__(self, pid):
        self.pid = pid


def from_the_desktop_entry(tarnwick):
    subprocess.run(["gio", "launch", ENTRY], check=True, timeout=30)
    wait(lambda: is_running(tarnwick), "started from its desktop entry")
    tarnwick.process = Started(tarnwick.status()["pid"])
    exe = os.readlink(f"/proc/{tarnwick.process.pid}/exe")
    expect(exe == "/usr/libexec/tarnwick/tarnwick-desktop", f"the installed program runs, not {exe}")
    expect(tarnwick.status()["platform"]["tray"] == "QSystemTrayIcon", "it is in the tray")
    audio = tarnwick.status()["platform"]["audio"]
    expect(audio != "unavailable: no sound library", f"its sound part is found and loaded, not {audio}")


def end(tarnwick):
    tarnwick.run("quit", check=True)
    wait(lambda: not is_running(tarnwick), "it ends")


def main(old, new):
    tarnwick = Tarnwick("/usr/bin/tarnwick", "build/demo")
    tarnwick.skip_welcome()
    from_the_desktop_entry(tarnwick)
    tarnwick.run("add", "Older than the upgrade", check=True)
    print("- started from its desktop entry", flush=True)

    # launch at login, by its switch
    subprocess.run(["gapplication", "action", NAME, "settings"], check=True, timeout=30)
    switch = wait(lambda: next((each for each in tarnwick.elements("^Launch at login$") if each.get_role_name() != "label"),
                               None), "the switch")
    x, y, width, height = wait(lambda: tarnwick._stable(switch), "the settings hold still")
    tarnwick.click(x + width / 2, y + height / 2)
    wait(AUTOSTART.exists, "the autostart entry is written")
    tarnwick.shot("package-settings")
    end(tarnwick)
    entry = configparser.ConfigParser(interpolation=None)
    entry.read(AUTOSTART)
    words = shlex.split(entry["Desktop Entry"]["Exec"])
    expect(words[0] == "/usr/bin/tarnwick", f"it starts the installed command: {words}")
    subprocess.Popen(words)
    wait(lambda: is_running(tarnwick), "started as at login")
    expect(not tarnwick.status()["board"]["visible"], "without showing the board")
    print("- started as at login", flush=True)

    apt("install", "--no-install-recommends", new)
    version = subprocess.run(["dpkg-query", "-W", "-f", "${Version}", "tarnwick"], capture_output=True, text=True,
                             check=True).stdout
    expect(version in new and version not in old, f"the new version is installed, not {version}")
    expect(is_running(tarnwick), "an upgrade leaves the running program alone")
    expect(tarnwick.note("Older than the upgrade"), "with its notes")
    end(tarnwick)
    expect(tarnwick.note("Older than the upgrade"), "the new one reads what the older wrote")
    from_the_desktop_entry(tarnwick)
    expect(tarnwick.note("Older than the upgrade").get("isTornOff"), "as it was")
    wait(lambda: tarnwick.window(tarnwick.note("Older than the upgrade")["id"]), "on the desktop")
    expect(AUTOSTART.exists(), "launch at login stays")
    end(tarnwick)
    print("- upgraded over an older build", flush=True)

    files = [pathlib.Path(line) for line in subprocess.run(["dpkg", "-L", "tarnwick"], capture_output=True, text=True,
                                                           check=True).stdout.split("\n") if "tarnwick" in line.lower()]
    expect(len(files) > 12, f"the package holds its files: {files}")
    apt("purge", "tarnwick")
    left = [str(path) for path in files if path.exists()]
    expect(not left, f"removed without a trace: {left}")
    expect((DATA / "Tarnwick.store").exists(), "the user's notes stay")
    print("- removed", flush=True)


try:
    main(*sys.argv[1:3])
except (Failure, subprocess.SubprocessError) as failure:
    print("FAILED:", failure)
    print("0 passed, 1 failed")
    sys.exit(1)
print("1 passed, 0 failed")
