// SPDX-License-Identifier: MIT
// The numbers behind fibres, flakes and ragged edges: the same seed gives the same paper on every machine.
#pragma once

#include <QtGlobal>

namespace tarnwick {

class PaperRandom {
 public:
  explicit PaperRandom(quint32 seed) : m_state(seed) {}

  /// From 0 up to, but not including, 1.
  double next() {
    m_state += 0x9E3779B9U;
    quint32 mixed = m_state;
    mixed = (mixed ^ (mixed >> 16)) * 0x85EBCA6BU;
    mixed = (mixed ^ (mixed >> 13)) * 0xC2B2AE35U;
    return static_cast<double>(mixed ^ (mixed >> 16)) / 4294967296.0;
  }
  double between(double low, double high) { return low + next() * (high - low); }

 private:
  quint32 m_state;
};

}  // namespace tarnwick
