// SPDX-License-Identifier: MIT
#include "linux/audio/PulseAudio.h"
#include "linux/parts/LatePart.h"

TARNWICK_PART(Audio, PulseAudio)
