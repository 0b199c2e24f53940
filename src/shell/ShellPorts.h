// SPDX-License-Identifier: MIT
// The ports that windows on the desktop need beside what the board's views are given.
#pragma once

namespace tarnwick {

class Accessibility;
class CaptureWatch;
class OtherWindows;
class WindowServer;

struct ShellPorts {
  WindowServer& windowServer;
  OtherWindows& otherWindows;
  Accessibility& accessibility;
  CaptureWatch& captureWatch;
};

}  // namespace tarnwick
