# SPDX-License-Identifier: MIT
"""A note of a repository shows only while a file of that repository is in front in an editor: a real one, on real git."""
import os
import pathlib
import subprocess

from driver import wait
from stage import Application, Terminal, expect, never, park, play

HOME = pathlib.Path(os.environ["HOME"])


def git(folder, *words):
    subprocess.run(["git", "-C", str(folder), "-c", "user.name=A", "-c", "user.email=a@example.org",
                    "-c", "protocol.file.allow=always", *words], check=True, capture_output=True)


def repository(name):
    root = HOME / name
    (root / "src").mkdir(parents=True)
    (root / "src" / "main.c").write_text("int main(void) { return 0; }\n", encoding="utf-8")
    git(root, "init", "-q", "-b", "trunk")
    git(root, "add", ".")
    git(root, "commit", "-q", "-m", "First")
    return root


def scene(tarnwick, server, say):
    park()
    ours = repository("Büro und Garten – Späße")
    theirs = repository("elsewhere")
    tarnwick.start("--background")

    def editor(*paths):
        """A window, and a process, of its own."""
        window = Application(server, "geany", "geany", "-i", "-s", "-t", "-p", *map(str, paths))
        wait(lambda: paths[0].name in server.title(window.window), f"{paths[0].name} is open")
        window.resize(480, 300)
        window.activate()
        return window

    def context():
        return tarnwick.status()["context"]

    terminal = Terminal(server, "Shell", "40x8+30+60")
    first = editor(ours / "src" / "main.c")
    wait(lambda: context()["gitRoot"] == str(ours), "the repository is known")
    seen = context()
    expect(seen["frontBundleID"] == "geany", f"the editor by its entry: {seen}")
    expect(seen["folderPath"] == str(ours / "src") and seen["gitBranch"] == "trunk", f"folder and branch: {seen}")
    note = tarnwick.run("add", "Prune the roses", "--repo", str(ours), check=True).stdout.strip()
    stored = tarnwick.note("roses")
    expect(stored["gitRepoPath"] == str(ours) and stored["gitBranch"] == "trunk", f"the repository is stored: {stored}")

    def shows(what):
        wait(lambda: tarnwick.window(note)["visible"] and server.note_window(tarnwick.window(note)["frame"]), what)

    def hides(what):
        wait(lambda: not tarnwick.window(note)["visible"] and not server.notes(), what)

    shows("the note shows with its repository")
    tarnwick.shot("shown")
    other = editor(theirs / "src" / "main.c")
    wait(lambda: context()["gitRoot"] == str(theirs), "the other repository is known")
    hides("another repository hides it")
    first.activate()
    shows("it returns with its file")
    terminal.activate()
    hides("a program that is no editor hides it")
    say("shows only with its repository")

    # inside one window, without a change of the front application
    tabs = editor(ours / "src" / "main.c", theirs / "src" / "main.c")
    for root in (theirs, ours, theirs, ours):
        if root.name not in server.title(tabs.window):
            tarnwick.key("ctrl+Next")
        wait(lambda: context()["gitRoot"] == str(root), f"the tab of {root.name} is noticed")  # noqa: B023
        (shows if root is ours else hides)(f"turned to {root.name}")
    expect(tabs.is_in_front(), "the editor was in front all the while")
    tabs.close()
    first.activate()
    say("follows the tabs of one window")

    # on another branch, and with no branch at all
    def turned(*words):
        git(ours, *words)
        terminal.activate()
        hides(f"hidden before {words}")
        first.activate()

    turned("checkout", "-q", "-b", "winter")
    wait(lambda: context()["gitBranch"] == "winter", "the new branch is read")
    shows("every branch shows it")
    turned("checkout", "-q", "--detach")
    wait(lambda: context()["gitRoot"] == str(ours) and context()["gitBranch"] is None, "no branch")
    shows("without a branch too")
    say("whatever the branch")

    # a second worktree and a submodule are repositories of their own
    tree = HOME / "Zweig daneben"
    git(ours, "worktree", "add", "-q", "-b", "spring", str(tree))
    beside = editor(tree / "src" / "main.c")
    wait(lambda: context()["gitRoot"] == str(tree) and context()["gitBranch"] == "spring", "the worktree is known")
    hides("a worktree is another place")
    git(ours, "submodule", "--quiet", "add", str(theirs), "Teil")
    part = editor(ours / "Teil" / "src" / "main.c")
    wait(lambda: context()["gitRoot"] == str(ours / "Teil"), "the submodule is known")
    hides("a submodule is another one")
    inner = tarnwick.run("add", "Ask upstream", "--repo", str(ours / "Teil" / "src"), check=True).stdout.strip()
    wait(lambda: tarnwick.window(inner)["visible"], "the submodule's own note shows")
    for each in (beside, part):
        each.close()
    first.activate()
    shows("the file of the repository itself shows it")
    wait(lambda: not tarnwick.window(inner)["visible"], "the submodule's is hidden")
    tarnwick.run("crush", inner, check=True)
    say("a worktree and a submodule are others")

    # one's own note, clicked, stays
    left, top, width, height = tarnwick.window(note)["frame"]
    tarnwick.click(left + width / 2, top + height - 40)
    wait(lambda: server.active() == server.note_window([left, top, width, height]).id, "the note is clicked")
    never(lambda: not tarnwick.window(note)["visible"], "a note vanished by being clicked")
    expect(context()["frontBundleID"] == "geany" and context()["gitRoot"] == str(ours),
           f"the editor behind the note counts: {context()}")
    park()
    first.activate()

    # the composer offers what is in front, and the editor of the note takes it away again
    tarnwick.key("super+shift+t")
    wait(lambda: tarnwick.status()["board"]["visible"], "the board drops")
    never(lambda: context()["gitRoot"] != str(ours) or not tarnwick.window(note)["visible"], "the board hid the note")
    tarnwick.key("super+n")
    tarnwick.element("^Note$")
    tarnwick.type("Water the beans")
    tarnwick.click_element("^Pin to Geany or the repository")
    tarnwick.shot("choices")
    tarnwick.key("Down", "Down", "Return")
    tarnwick.shot("composer")
    tarnwick.key("super+Return")
    beans = wait(lambda: tarnwick.note("beans"), "the note is written")
    expect(beans["gitRepoPath"] == str(ours) and "pinnedBundleID" not in beans, f"pinned to the repository alone: {beans}")
    wait(lambda: not tarnwick.status()["board"]["visible"], "the board hides")
    terminal.activate()
    hides("hidden by another program")
    wait(lambda: not tarnwick.window(beans["id"])["visible"], "so is the new one")
    first.activate()
    wait(lambda: tarnwick.window(beans["id"])["visible"], "it comes back with the repository")
    say("offered in the composer, with the repository in front")

    # the application and the repository together
    tarnwick.run("edit", note, "--pin", "org.example.Nothing", check=True)
    terminal.activate()
    wait(lambda: context()["frontBundleID"] != "geany", "the terminal is in front")
    wait(lambda: not tarnwick.window(note)["visible"], "hidden")
    first.activate()
    wait(lambda: context()["gitRoot"] == str(ours), "the repository is in front")
    expect(not tarnwick.window(note)["visible"], "the wrong application does not show it")
    say("both pins must hold")

    # whoever started us may not lead git elsewhere; and in a session that hides windows from us the composer says so
    expect(tarnwick.quit() == 0, "it ends well")
    tarnwick.start("--background", env={"GIT_DIR": str(theirs / ".git"), "XDG_SESSION_TYPE": "wayland"})
    terminal.activate()
    first.activate()
    wait(lambda: context()["gitRoot"] == str(ours), "its own repository, not the one of the environment")
    tarnwick.run("new", check=True)
    chip = tarnwick.element("^Pin to Geany or the repository")
    said = chip.get_description()
    expect("Or pin it to the repository" in said and "XWayland" in said, f"what works here is said: {said!r}")
    tarnwick.shot("wayland")
    say("says what works on another kind of desktop")
    tarnwick.run("toggle", check=True)
    wait(lambda: not tarnwick.status()["board"]["visible"], "the board hides")

    # the last window of all goes, and nobody comes to the front
    for each in (other, terminal):
        each.close()
    first.activate()
    wait(lambda: tarnwick.window(beans["id"])["visible"], "the note shows with its editor alone on the desktop")
    first.close()
    wait(lambda: not tarnwick.window(beans["id"])["visible"], "an empty desktop hides it")
    wait(lambda: context()["frontBundleID"] is None and context()["gitRoot"] is None, "nobody is in front")
    say("hides on an empty desktop")


play(scene)
