# SPDX-License-Identifier: MIT
"""While the screen is shared, what must not be seen is out of sight, and comes back a little later. Stand-ins of PipeWire
play the cast, and the daemon comes late, goes and comes again."""
import subprocess

from driver import wait, xdo
from stage import expect, never, park, play

HELD = "pipewire: hidden while sharing is detected"


def tool(*words):
    return subprocess.run(words, capture_output=True, text=True, check=False).stdout


def make_cast():
    for name, kind in (("cast", "Stream/Output/Video"), ("reader", "Audio/Sink")):
        tool("pw-cli", "create-node", "adapter", "{ object.linger=1 factory.name=support.null-audio-sink "
             f"node.name={name} media.class={kind} audio.position=[MONO] "
             "adapter.auto-port-config={mode=dsp monitor=true} }")
    wait(lambda: {"cast:monitor_MONO", "reader:playback_MONO"} <= set(tool("pw-link", "-io").split()), "the stand-ins")


def cast(*options):
    tool("pw-link", *options, "cast:monitor_MONO", "reader:playback_MONO")


def scene(tarnwick, server, say):
    park()
    tarnwick.start("--background")

    def level():
        return tarnwick.status()["platform"]["captureExclusion"]

    expect(level().startswith("unavailable: not available here"), f"nothing is promised without a daemon: {level()}")
    daemon = subprocess.Popen(["pipewire"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    wait(lambda: level() == HELD, "a daemon that comes late serves")
    open_note = tarnwick.run("add", "For everybody", check=True).stdout.strip()
    private = tarnwick.run("add", "For me", "--private", check=True).stdout.strip()

    def shown():
        return {note: tarnwick.window(note)["visible"] for note in (open_note, private)}, len(server.notes())

    both, one = ({open_note: True, private: True}, 2), ({open_note: True, private: False}, 1)
    wait(lambda: shown() == both, "both are there")
    make_cast()
    cast()
    wait(lambda: shown() == one, "during a cast the private one is out of sight")
    tarnwick.shot("shared")
    tarnwick.run("settings", "hideFromScreenShare", "true", check=True)
    wait(lambda: not server.notes(), "and all of them when all are to be hidden")
    xdo("key", "super+shift+t")
    never(lambda: server.titled("Tarnwick"), "the board showed itself in the cast")
    tarnwick.run("settings", "hideFromScreenShare", "false", check=True)
    wait(lambda: shown() == one, "those that may be seen come back at once")
    cast("-d")
    never(lambda: shown() != one, "nothing flashes up right after a cast")
    wait(lambda: shown() == both, "some seconds later they are back")
    say("hidden during a cast")

    cast()
    wait(lambda: shown() == one, "another cast")
    daemon.kill()
    daemon.wait()
    wait(lambda: level().startswith("unavailable") and shown() == both, "the daemon ends, the cast with it")
    daemon = subprocess.Popen(["pipewire"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    wait(lambda: level() == HELD, "it is followed again")
    make_cast()
    cast()
    wait(lambda: shown() == one, "and its casts")
    daemon.terminate()
    daemon.wait()
    say("the daemon ended and came back")


play(scene)
