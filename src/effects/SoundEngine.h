// SPDX-License-Identifier: MIT
// The three paper sounds, synthesised at start into memory and played through prepared players.
#pragma once

#include "platform/Audio.h"

#include <QHash>
#include <QString>

#include <map>
#include <memory>

namespace tarnwick {

class UserDefaults;

class SoundEngine final {
 public:
  /// Synthesises and prepares all three sounds.
  SoundEngine(Audio& audio, const UserDefaults& defaults);
  ~SoundEngine();

  /// On unless the setting holds a stored false.
  [[nodiscard]] bool isEnabled() const;
  void playStick() { play(QStringLiteral("stick")); }
  void playTear() { play(QStringLiteral("tear")); }
  void playCrush() { play(QStringLiteral("crush")); }

 private:
  void prepareSounds();
  void play(const QString& name);

  Audio& m_audio;
  const UserDefaults& m_defaults;
  std::map<QString, std::unique_ptr<AudioPlayer>> m_players;
};

}  // namespace tarnwick
