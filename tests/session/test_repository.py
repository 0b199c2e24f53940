# SPDX-License-Identifier: MIT
"""A note of a repository shows only while a file of that repository is in front in an editor."""
import os
import pathlib
import subprocess

from driver import wait
from stage import Terminal, expect, never, park, play

ENTRY = """[Desktop Entry]
Type=Application
Name=Stand-in Editor
Exec=standineditor %F
StartupWMClass=StandInEditor
Categories=Development;IDE;
"""


def git(folder, *words):
    subprocess.run(["git", "-C", str(folder), "-c", "user.name=A", "-c", "user.email=a@example.org", *words], check=True,
                   capture_output=True)


def repository(name):
    root = pathlib.Path(os.environ["HOME"]) / name
    (root / "src").mkdir(parents=True)
    (root / "src" / "main.c").write_text("int main(void) { return 0; }\n", encoding="utf-8")
    git(root, "init", "-q", "-b", "trunk")
    git(root, "add", ".")
    git(root, "commit", "-q", "-m", "First")
    return root


def scene(tarnwick, server, say):
    park()
    applications = pathlib.Path(os.environ["XDG_DATA_HOME"]) / "applications"
    applications.mkdir(parents=True)
    (applications / "org.example.StandIn.desktop").write_text(ENTRY, encoding="utf-8")
    ours = repository("Büro und Garten")
    theirs = repository("elsewhere")
    tarnwick.start("--background")

    def editor(title, geometry):
        window = Terminal(server, f"{title} - Stand-in Editor", geometry, "-class", "StandInEditor")
        window.activate()
        return window

    def context():
        return tarnwick.status()["context"]

    first = editor("main.c (~/Büro und Garten/src)", "50x10+30+420")
    wait(lambda: context()["gitRoot"] == str(ours), "the repository is known")
    seen = context()
    expect(seen["frontBundleID"] == "org.example.StandIn", f"the editor by its entry: {seen}")
    expect(seen["folderPath"] == str(ours / "src") and seen["gitBranch"] == "trunk", f"folder and branch: {seen}")
    note = tarnwick.run("add", "Prune the roses", "--repo", str(ours), check=True).stdout.strip()
    expect(tarnwick.note("roses")["gitRepoPath"] == str(ours), "the repository is stored")

    def shows(what):
        wait(lambda: tarnwick.window(note)["visible"] and server.note_window(tarnwick.window(note)["frame"]), what)

    def hides(what):
        wait(lambda: not tarnwick.window(note)["visible"] and not server.notes(), what)

    shows("the note shows with its repository")
    tarnwick.shot("shown")
    other = editor("main.c (~/elsewhere/src)", "50x10+430+420")
    wait(lambda: context()["gitRoot"] == str(theirs), "the other repository is known")
    hides("another repository hides it")
    first.activate()
    shows("it returns with its file")
    terminal = Terminal(server, "Shell", "40x8+30+60")
    terminal.activate()
    hides("a program that is no editor hides it")
    say("shows only with its repository")

    second = editor("README (~/Büro und Garten)", "50x8+430+200")
    shows("another file of the repository shows it")
    second.close()
    wait(lambda: server.titled(second.title) is None, "the window closes")
    first.activate()
    shows("and the first one again")

    # on another branch, and with no branch at all
    git(ours, "checkout", "-q", "-b", "winter")
    terminal.activate()
    hides("hidden")
    first.activate()
    wait(lambda: context()["gitBranch"] == "winter", "the new branch is read")
    shows("every branch shows it")
    git(ours, "checkout", "-q", "--detach")
    terminal.activate()
    hides("hidden")
    first.activate()
    wait(lambda: context()["gitRoot"] == str(ours) and context()["gitBranch"] is None, "no branch")
    shows("without a branch too")
    say("whatever the branch")

    # one's own note, clicked, stays
    left, top, width, height = tarnwick.window(note)["frame"]
    tarnwick.click(left + width / 2, top + height - 40)
    wait(lambda: server.active() == server.note_window([left, top, width, height]).id, "the note is clicked")
    never(lambda: not tarnwick.window(note)["visible"], "a note vanished by being clicked")
    expect(context()["frontBundleID"] == "org.example.StandIn" and context()["gitRoot"] == str(ours),
           f"the editor behind the note counts: {context()}")
    tarnwick.key("super+shift+t")
    wait(lambda: tarnwick.status()["board"]["visible"], "the board drops")
    never(lambda: context()["gitRoot"] != str(ours) or not tarnwick.window(note)["visible"], "the board hid the note")
    tarnwick.key("super+shift+t")
    wait(lambda: not tarnwick.status()["board"]["visible"], "the board hides")
    terminal.activate()
    hides("hidden by another program")
    first.activate()
    shows("back")

    # the application and the repository together
    tarnwick.run("edit", note, "--pin", "org.example.Nothing", check=True)
    tarnwick.run("redock", note, check=True)
    tarnwick.run("tear", note, check=True)
    terminal.activate()
    wait(lambda: context()["frontBundleID"] != "org.example.StandIn", "the terminal is in front")
    hides("hidden")
    first.activate()
    wait(lambda: context()["gitRoot"] == str(ours), "the repository is in front")
    expect(not tarnwick.window(note)["visible"], "the wrong application does not show it")
    say("both pins must hold")
    for each in (first, other, terminal):
        each.close()


play(scene)
