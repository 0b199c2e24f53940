# SPDX-License-Identifier: MIT
"""The main job works on a real desktop, from the tray click to the restart."""
import os
import sys

from driver import Failure, Tarnwick
import journey

tarnwick = Tarnwick(os.environ["TARNWICK"], os.environ.get("TARNWICK_SHOTS"))
try:
    journey.play(tarnwick, say=lambda text: print("-", text, flush=True))
except Failure as failure:
    tarnwick.shot("failed")
    print("FAILED:", failure)
    try:
        print(tarnwick.status())
    except (Failure, ValueError):
        pass
    sys.exit(1)
print("1 passed, 0 failed")
