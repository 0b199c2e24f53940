// SPDX-License-Identifier: MIT
// The targets under libFuzzer: FUZZ_TARGET=exchange fuzz_targets tests/fuzz/corpus/exchange
#include "fuzz/Targets.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const char* const kName = std::getenv("FUZZ_TARGET");
  for (const auto& target : tarnwick::fuzz::targets()) {
    if (kName && std::strcmp(kName, target.name) == 0)
      target.feed(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
  }
  return 0;
}
