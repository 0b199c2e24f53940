// SPDX-License-Identifier: MIT
// Sound from a part that is loaded when the first is prepared, or its traits are asked for.
#pragma once

#include "platform/Audio.h"

namespace tarnwick {

class LateAudio final : public Audio {
 public:
  [[nodiscard]] PortTraits traits() const override { return part().traits(); }
  [[nodiscard]] std::unique_ptr<AudioPlayer> prepare(const QByteArray& wav) override { return part().prepare(wav); }
  void playStock(const QString& name) override { part().playStock(name); }

 private:
  [[nodiscard]] Audio& part() const;

  mutable std::unique_ptr<Audio> m_part;
};

}  // namespace tarnwick
