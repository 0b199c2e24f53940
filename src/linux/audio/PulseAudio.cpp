// SPDX-License-Identifier: MIT
#include "linux/audio/PulseAudio.h"

#include "linux/audio/PulseServer.h"

#include <QCoreApplication>

namespace tarnwick {

namespace {

class PulsePlayer final : public AudioPlayer {
 public:
  PulsePlayer(std::shared_ptr<PulseServer> server, PcmSound sound) : m_stream(std::move(server), std::move(sound)) {}

  void rewind() override { m_stream.stop(); }
  void setVolume(double volume) override { m_volume = volume; }
  void play() override { m_stream.play(m_volume); }

 private:
  PulseStream m_stream;
  double m_volume = 1;
};

}  // namespace

PulseAudio::PulseAudio() = default;

PulseAudio::~PulseAudio() = default;

PulseServer& PulseAudio::server() const {
  if (!m_server) m_server = std::make_shared<PulseServer>();
  return *m_server;
}

PortTraits PulseAudio::traits() const {
  return server().isReady() ? PortTraits::served(QStringLiteral("pulse"))
                            : PortTraits::unavailable(QCoreApplication::translate("Audio", "no sound server"));
}

std::unique_ptr<AudioPlayer> PulseAudio::prepare(const QByteArray& wav) {
  auto sound = pcmFromWav(wav);
  if (!sound || !server().isUsable()) return nullptr;
  return std::make_unique<PulsePlayer>(m_server, std::move(*sound));
}

void PulseAudio::playStock(const QString& name) {
  auto& player = m_stock[name];
  if (!player) {
    auto sound = stockSound(name);
    if (!sound || !server().isUsable()) return;
    player = std::make_unique<PulsePlayer>(m_server, std::move(*sound));
  }
  player->play();
}

}  // namespace tarnwick
