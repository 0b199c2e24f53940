// SPDX-License-Identifier: MIT
#include "linux/parts/LatePart.h"
#include "linux/qt/QtDownloads.h"

TARNWICK_PART(Downloads, QtDownloads)
