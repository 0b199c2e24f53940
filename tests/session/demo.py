# SPDX-License-Identifier: MIT
"""Plays the main job and tells what happened: what ./run shows where there is no display."""
import sys

from driver import Failure, Tarnwick
import journey


def main():
    tarnwick = Tarnwick(sys.argv[1], sys.argv[2])
    try:
        journey.play(tarnwick, say=lambda text: print("-", text, flush=True))
    except Failure as failure:
        tarnwick.shot("failed")
        print("FAILED:", failure)
        return 1
    finally:
        for path in tarnwick.pictures:
            print("picture:", path.resolve())
    return 0


if __name__ == "__main__":
    sys.exit(main())
