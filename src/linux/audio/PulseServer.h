// SPDX-License-Identifier: MIT
// The connection to the sound server on a thread of its own, and the streams on it. Everything below runs under the lock
// of that thread's loop; a lost connection is made again, more and more rarely, and at the next sound.
#pragma once

#include "linux/audio/WavImage.h"

#include <pulse/pulseaudio.h>

#include <atomic>
#include <memory>
#include <optional>
#include <vector>

namespace tarnwick {

class PulseStream;

class PulseServer final {
 public:
  PulseServer();
  ~PulseServer();
  PulseServer(const PulseServer&) = delete;
  PulseServer& operator=(const PulseServer&) = delete;

  [[nodiscard]] bool isUsable() const { return m_loop != nullptr; }
  [[nodiscard]] bool isReady() const { return m_isReady; }
  [[nodiscard]] pa_context* context() const { return m_context; }
  [[nodiscard]] pa_mainloop_api* api() const { return pa_threaded_mainloop_get_api(m_loop); }

  void add(PulseStream* stream);
  void remove(PulseStream* stream);
  /// Looks for the server at once if there is none.
  void wake();

  class Lock {
   public:
    explicit Lock(const PulseServer& server) : m_loop(server.m_loop) { pa_threaded_mainloop_lock(m_loop); }
    ~Lock() { pa_threaded_mainloop_unlock(m_loop); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

   private:
    pa_threaded_mainloop* m_loop;
  };

 private:
  void connect();
  void disconnect();
  void stateChanged();
  void retryLater();

  pa_threaded_mainloop* m_loop = nullptr;
  pa_context* m_context = nullptr;
  pa_time_event* m_retry = nullptr;
  int m_retrySeconds = 2;
  std::atomic<bool> m_isReady = false;
  std::vector<PulseStream*> m_streams;
};

/// One sound on the server.
class PulseStream final {
 public:
  PulseStream(std::shared_ptr<PulseServer> server, PcmSound sound);
  ~PulseStream();
  PulseStream(const PulseStream&) = delete;
  PulseStream& operator=(const PulseStream&) = delete;

  void play(double volume);
  void stop();

  // For the server, under its lock.
  void open();
  void close();

 private:
  [[nodiscard]] bool isReady() const;
  void start(double volume);
  void becameReady();
  void flush();
  void corkLater();

  std::shared_ptr<PulseServer> m_server;
  struct Wanted {
    double volume;
    pa_usec_t until;  // of pa_rtclock_now()
  };
  PcmSound m_sound;
  pa_stream* m_stream = nullptr;
  pa_time_event* m_cork = nullptr;
  std::optional<Wanted> m_wanted;  // asked for while the stream was still opening
};

}  // namespace tarnwick
