# SPDX-License-Identifier: MIT
"""Three hundred notes on the desktop at once, and all of them again after a restart."""
from collections import Counter

from driver import Failure, wait
from stage import expect, park, play, settled

MANY = 300
REACH = 48


def scene(tarnwick, server, say):
    park()
    tarnwick.start("--background")
    for number in range(MANY):
        tarnwick.run("add", f"Note {number} of many\n- [ ] first\n- [x] second", check=True)
    say(f"{MANY} notes are added")

    def frames():
        seen = tarnwick.status()["windows"]
        return {each["id"]: each["frame"] for each in seen} if all(each["visible"] for each in seen) else None

    there = settled(frames, "the notes", limit=120)
    expect(len(there) == MANY, f"{len(there)} notes are open")

    def the_server_agrees():
        try:
            wait(lambda: sorted(map(server.inner, server.notes())) == sorted(there.values()),
                 "the X server has all of them there", limit=20)
        except Failure as failure:
            seen = Counter(map(tuple, map(server.inner, server.notes())))
            told = Counter(map(tuple, there.values()))
            raise Failure(f"{failure}; only the server: {seen - told}, only the status: {told - seen}") from None

    the_server_agrees()
    across, down = server.x.screen().width_in_pixels, server.x.screen().height_in_pixels

    def within_reach(seen):
        for left, top, width, height in seen.values():
            expect(min(left + width, across) - max(left, 0) >= REACH and min(top + height, down) - max(top, 0) >= REACH,
                   f"a note is out of reach: {left}, {top}")

    within_reach(there)
    tarnwick.key("super+shift+t")
    wait(lambda: server.titled("Tarnwick"), "the board still drops")
    tarnwick.shot("many")
    tarnwick.key("super+shift+t")
    wait(lambda: server.titled("Tarnwick") is None, "and tucks")
    tarnwick.run("settings", "noteDisplayMode", "desktop", check=True)
    wait(lambda: all("BELOW" in server.states(each) for each in server.notes()), "all go to the desktop", limit=120)
    say("they are all there")

    expect(tarnwick.quit() == 0, "it ends well")
    tarnwick.start("--background")
    wait(lambda: (frames() or {}).keys() == there.keys(), "all are back", limit=120)
    back = settled(frames, "the notes", limit=120)
    expect(back == there, f"every note is back where it was, but for {[(*each, back[each[0]]) for each in there.items() if back[each[0]] != each[1]]}")
    the_server_agrees()
    say("and after a restart")


play(scene)
