// SPDX-License-Identifier: MIT
// Sounds through a PulseAudio server, or PipeWire in its place. Each prepared sound keeps a corked stream, so that it
// starts within some milliseconds. Nothing here waits for the server: without one it is silent, and it looks again.
#pragma once

#include "platform/Audio.h"

#include <QString>

#include <map>
#include <memory>

namespace tarnwick {

class PulseServer;

class PulseAudio final : public Audio {
 public:
  PulseAudio();
  ~PulseAudio() override;

  [[nodiscard]] PortTraits traits() const override;
  [[nodiscard]] std::unique_ptr<AudioPlayer> prepare(const QByteArray& wav) override;
  void playStock(const QString& name) override;

 private:
  /// Connects at the first call: nothing sounds while the program starts.
  [[nodiscard]] PulseServer& server() const;

  mutable std::shared_ptr<PulseServer> m_server;  // players hold it too
  std::map<QString, std::unique_ptr<AudioPlayer>> m_stock;
};

}  // namespace tarnwick
