// SPDX-License-Identifier: MIT
// What the process does with its words: one command without windows, or the program itself.
#pragma once

namespace tarnwick {

class TarnwickApp {
 public:
  /// Exit status of the process.
  [[nodiscard]] static int main(int argc, char** argv);
};

}  // namespace tarnwick
