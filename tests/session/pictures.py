# SPDX-License-Identifier: MIT
"""Makes the pictures of the README: a board with notes on it, the composer, and notes on the desktop."""
import pathlib
import subprocess
import sys

from driver import Tarnwick, wait, xdo

BOARD = [
    ("Call the baker about Saturday's cake", ["--color", "#FFE169"]),
    ("- [x] Tent\n- [ ] Stove\n- [ ] Maps", ["--color", "#06D6A0", "--board", "Trip"]),
    ("Send the invoice", ["--color", "#FF7597", "--due", "today", "--stamp", "urgent"]),
    ("Water the plants", ["--color", "#4CC9F0", "--repeat", "weekly", "--theme", "lined", "--due", "tomorrow"]),
    ("Sketch the poster", ["--color", "#C77DFF", "--theme", "graph", "--stamp", "idea"]),
    ("Read chapter four", ["--color", "#FFA647", "--tag", "blue"]),
]
DESK = [
    ("Pick up the parcel\nbefore six", ["--color", "#FFE169"], (80, 60)),
    ("- [x] Backup\n- [x] Update\n- [ ] Restart", ["--color", "#4CC9F0", "--stamp", "focus"], (370, 90)),
    ("Rent is due on the first", ["--color", "#FF7597", "--theme", "parchment", "--due", "2026-12-01"], (200, 330)),
]


def crop(tarnwick, frame, margin, path):
    x, y, width, height = frame
    tarnwick.shot("whole")
    subprocess.run(["convert", str(tarnwick.pictures[-1]), "-crop",
                    f"{width + 2 * margin}x{height + 2 * margin}+{max(0, x - margin)}+{max(0, y - margin)}",
                    "+repage", str(path)], check=True)


def main():
    target = pathlib.Path(sys.argv[2])
    target.mkdir(parents=True, exist_ok=True)
    tarnwick = Tarnwick(sys.argv[1], sys.argv[3])
    tarnwick.skip_welcome()
    tarnwick.start("--background")
    for text, options, place in DESK:
        note = tarnwick.run("add", text, *options, check=True).stdout.strip()
        left, top, width, height = wait(lambda: tarnwick.window(note), "a window")["frame"]
        grip = (left + width / 2, top + height - 70)
        tarnwick.drag(grip, (grip[0] + place[0] - left, grip[1] + place[1] - top))
        wait(lambda: tarnwick.window(note)["frame"][:2] != [left, top], "it moved")
    xdo("mousemove", 1000, 120)
    wait(lambda: len(tarnwick.status()["windows"]) == len(DESK), "all are open")
    tarnwick.hover(1000, 120)
    crop(tarnwick, (60, 30, 590, 560), 0, target / "torn-notes.png")
    for text, options in reversed(BOARD):
        tarnwick.run("add", text, "--no-tear", *options, check=True)
    tarnwick.run("board", check=True)
    frame = wait(lambda: (lambda s: s["board"]["frame"] if s["board"]["visible"] else None)(tarnwick.status()), "the board")
    tarnwick.click_element("^All$")
    tarnwick.hover(1000, 120)
    crop(tarnwick, frame, 24, target / "board.png")
    tarnwick.quit()


if __name__ == "__main__":
    main()
