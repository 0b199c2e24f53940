// SPDX-License-Identifier: MIT
// The three paper sounds, synthesised once into memory and played through prepared players.
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
  SoundEngine(Audio& audio, const UserDefaults& defaults);
  ~SoundEngine();

  /// Synthesises and prepares all three sounds, once. The first sound does it where nobody did before.
  void prepare();
  /// On unless the setting holds a stored false.
  [[nodiscard]] bool isEnabled() const;
  void playStick() { play(QStringLiteral("stick")); }
  void playTear() { play(QStringLiteral("tear")); }
  void playCrush() { play(QStringLiteral("crush")); }
  /// The stock sound of the ball that reaches the Trash.
  void playLanding();

 private:
  void play(const QString& name);

  Audio& m_audio;
  const UserDefaults& m_defaults;
  std::map<QString, std::unique_ptr<AudioPlayer>> m_players;
  bool m_isPrepared = false;
};

}  // namespace tarnwick
