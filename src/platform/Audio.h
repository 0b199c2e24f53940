// SPDX-License-Identifier: MIT
// Port: prepared sounds that start at once.
#pragma once

#include "platform/PortTraits.h"

#include <QByteArray>
#include <QString>

#include <memory>

namespace tarnwick {

class AudioPlayer {
 public:
  virtual ~AudioPlayer() = default;
  /// Back to the beginning; what still sounds stops.
  virtual void rewind() = 0;
  /// 0 to 1.
  virtual void setVolume(double volume) = 0;
  virtual void play() = 0;
};

class Audio {
 public:
  virtual ~Audio() = default;
  [[nodiscard]] virtual PortTraits traits() const = 0;
  /// A player of a 16-bit PCM WAV image, kept decoded; null when it cannot be had.
  [[nodiscard]] virtual std::unique_ptr<AudioPlayer> prepare(const QByteArray& wav) = 0;
  /// A short stock sound by its name ("Tink", "Purr", "Pop"); silent when unknown.
  virtual void playStock(const QString& name) = 0;
};

}  // namespace tarnwick
