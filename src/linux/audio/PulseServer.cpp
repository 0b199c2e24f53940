// SPDX-License-Identifier: MIT
#include "linux/audio/PulseServer.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarnwick {

namespace {

constexpr int kLongestRetry = 300;        // s
constexpr pa_usec_t kAfterSound = 400000;  // us between the end of a sound and the rest of its stream
constexpr pa_usec_t kLatestStart = 200000;  // us; a sound that would come later than this does not come
constexpr uint32_t kServerDefault = static_cast<uint32_t>(-1);

void drop(pa_operation* operation) {
  if (operation) pa_operation_unref(operation);
}

timeval inFuture(pa_usec_t delay) {
  timeval moment{};
  pa_gettimeofday(&moment);
  pa_timeval_add(&moment, delay);
  return moment;
}

}  // namespace

PulseServer::PulseServer() {
  m_loop = pa_threaded_mainloop_new();
  if (!m_loop) return;
  if (pa_threaded_mainloop_start(m_loop) < 0) {
    pa_threaded_mainloop_free(m_loop);
    m_loop = nullptr;
    return;
  }
  const Lock lock(*this);
  connect();
}

PulseServer::~PulseServer() {
  if (!m_loop) return;
  {
    const Lock lock(*this);
    disconnect();
    if (m_retry) api()->time_free(m_retry);
  }
  pa_threaded_mainloop_stop(m_loop);
  pa_threaded_mainloop_free(m_loop);
}

void PulseServer::add(PulseStream* stream) {
  m_streams.push_back(stream);
  if (m_isReady) stream->open();
}

void PulseServer::remove(PulseStream* stream) { std::erase(m_streams, stream); }

void PulseServer::wake() {
  if (m_context && PA_CONTEXT_IS_GOOD(pa_context_get_state(m_context))) return;
  disconnect();
  connect();
}

void PulseServer::connect() {
  m_context = pa_context_new(api(), "Tarnwick");
  if (!m_context) return;
  pa_context_set_state_callback(
      m_context, [](pa_context*, void* self) { static_cast<PulseServer*>(self)->stateChanged(); }, this);
  if (pa_context_connect(m_context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0) retryLater();
}

void PulseServer::disconnect() {
  m_isReady = false;
  for (auto* stream : m_streams) stream->close();
  if (!m_context) return;
  pa_context_set_state_callback(m_context, nullptr, nullptr);
  pa_context_disconnect(m_context);
  pa_context_unref(m_context);
  m_context = nullptr;
}

void PulseServer::stateChanged() {
  switch (pa_context_get_state(m_context)) {
    case PA_CONTEXT_READY:
      m_isReady = true;
      m_retrySeconds = 2;
      for (auto* stream : m_streams) stream->open();
      break;
    case PA_CONTEXT_FAILED:
    case PA_CONTEXT_TERMINATED:
      m_isReady = false;
      for (auto* stream : m_streams) stream->close();
      retryLater();
      break;
    default: break;
  }
}

void PulseServer::retryLater() {
  const auto moment = inFuture(static_cast<pa_usec_t>(m_retrySeconds) * PA_USEC_PER_SEC);
  m_retrySeconds = std::min(m_retrySeconds * 2, kLongestRetry);
  if (m_retry) {
    api()->time_restart(m_retry, &moment);
    return;
  }
  m_retry = api()->time_new(
      api(), &moment,
      [](pa_mainloop_api*, pa_time_event*, const timeval*, void* self) { static_cast<PulseServer*>(self)->wake(); }, this);
}

PulseStream::PulseStream(std::shared_ptr<PulseServer> server, PcmSound sound)
    : m_server(std::move(server)), m_sound(std::move(sound)) {
  const PulseServer::Lock lock(*m_server);
  m_server->add(this);
}

PulseStream::~PulseStream() {
  const PulseServer::Lock lock(*m_server);
  m_server->remove(this);
  close();
}

void PulseStream::play(double volume) {
  const PulseServer::Lock lock(*m_server);
  m_server->wake();
  if (isReady()) {
    start(volume);
  } else {
    m_wanted = Wanted{volume, pa_rtclock_now() + kLatestStart};
  }
}

void PulseStream::start(double volume) {
  std::vector<int16_t> scaled(m_sound.samples.size());
  std::transform(m_sound.samples.begin(), m_sound.samples.end(), scaled.begin(), [volume](int16_t sample) {
    return static_cast<int16_t>(std::lround(std::clamp(volume, 0.0, 1.0) * sample));
  });
  flush();
  pa_stream_write(m_stream, scaled.data(), scaled.size() * sizeof(int16_t), nullptr, 0, PA_SEEK_RELATIVE);
  drop(pa_stream_cork(m_stream, 0, nullptr, nullptr));
  drop(pa_stream_trigger(m_stream, nullptr, nullptr));
  corkLater();
}

void PulseStream::stop() {
  const PulseServer::Lock lock(*m_server);
  m_wanted.reset();
  if (isReady()) flush();
}

bool PulseStream::isReady() const { return m_stream && pa_stream_get_state(m_stream) == PA_STREAM_READY; }

void PulseStream::becameReady() {
  const auto wanted = std::exchange(m_wanted, std::nullopt);
  if (wanted && pa_rtclock_now() < wanted->until) start(wanted->volume);
}

void PulseStream::open() {
  if (m_stream) return;
  const pa_sample_spec format{PA_SAMPLE_S16LE, m_sound.rate, m_sound.channels};
  m_stream = pa_stream_new(m_server->context(), "Tarnwick", &format, nullptr);
  if (!m_stream) return;
  pa_stream_set_state_callback(
      m_stream,
      [](pa_stream*, void* self) {
        auto* stream = static_cast<PulseStream*>(self);
        if (stream->isReady()) stream->becameReady();
      },
      this);
  pa_buffer_attr buffers{};
  buffers.maxlength = kServerDefault;  // takes a whole sound in one write
  buffers.tlength = static_cast<uint32_t>(pa_usec_to_bytes(20000, &format));
  buffers.prebuf = 0;
  buffers.minreq = kServerDefault;
  buffers.fragsize = kServerDefault;
  const auto flags = static_cast<pa_stream_flags_t>(PA_STREAM_ADJUST_LATENCY | PA_STREAM_START_CORKED);
  if (pa_stream_connect_playback(m_stream, nullptr, &buffers, flags, nullptr, nullptr) < 0) close();
}

void PulseStream::close() {
  if (m_cork) m_server->api()->time_free(std::exchange(m_cork, nullptr));
  if (!m_stream) return;
  pa_stream_set_state_callback(m_stream, nullptr, nullptr);
  pa_stream_disconnect(m_stream);
  pa_stream_unref(std::exchange(m_stream, nullptr));
}

void PulseStream::flush() { drop(pa_stream_flush(m_stream, nullptr, nullptr)); }

// A stream that runs on in silence would keep the sound hardware awake.
void PulseStream::corkLater() {
  const auto frames = m_sound.samples.size() / m_sound.channels;
  const auto moment = inFuture(frames * PA_USEC_PER_SEC / m_sound.rate + kAfterSound);
  auto* api = m_server->api();
  if (m_cork) {
    api->time_restart(m_cork, &moment);
    return;
  }
  m_cork = api->time_new(
      api, &moment,
      [](pa_mainloop_api*, pa_time_event*, const timeval*, void* self) {
        auto* stream = static_cast<PulseStream*>(self);
        if (stream->isReady()) drop(pa_stream_cork(stream->m_stream, 1, nullptr, nullptr));
      },
      this);
}

}  // namespace tarnwick
