// SPDX-License-Identifier: MIT
// What is fed with foreign bytes: one function for each reader. It may refuse what it gets and must not crash; what a
// reader promises about its answer is asserted inside.
#pragma once

#include <QByteArray>

#include <vector>

namespace tarnwick::fuzz {

struct Target {
  const char* name;  // and the folder of its corpus
  void (*feed)(const QByteArray& bytes);
  int rounds;  // mutations of each corpus file in a short run; fewer where a file has to be written
};

[[nodiscard]] const std::vector<Target>& targets();

/// Ends the process, so that either driver sees it.
void require(bool holds, const char* what);

}  // namespace tarnwick::fuzz
