# SPDX-License-Identifier: MIT
"""A screen that is narrower than the board: the right edge holds it, and all of a note can be reached."""
from driver import wait
from stage import expect, park, play, tear_at
from test_screens import SIDE, board_frame


def scene(tarnwick, server, say):
    park()
    tarnwick.start("--background")
    across = server.x.screen().width_in_pixels
    expect(across < SIDE, f"the screen is {across} wide")
    frame = board_frame(tarnwick, server)
    expect(frame[0] + frame[2] == across - 8, f"the board {frame} ends 8 before the right edge")
    say("the board is held at the right edge")

    note = tear_at(tarnwick, "Hardly any room", 100, 300)
    left, top, width, height = wait(lambda: tarnwick.window(note), "its window")["frame"]
    wait(lambda: server.note_window([left, top, width, height]), "status and X server agree")
    expect(left >= 0 and left + width <= across, f"the note is in sight: {left}, {width}")
    tarnwick.shot("narrow")
    tarnwick.run("redock", note, check=True)
    wait(lambda: not server.notes(), "it goes back")
    say("a note fits in")


play(scene)
