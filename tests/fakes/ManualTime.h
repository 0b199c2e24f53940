// SPDX-License-Identifier: MIT
// Time that tests move by hand: a clock, and a scheduler whose work runs in order as the clock advances.
#pragma once

#include "platform/Clock.h"
#include "platform/Scheduler.h"

#include <list>
#include <memory>

namespace tarnwick::test {

class ManualTime final : public Clock, public Scheduler {
 public:
  /// Starts at a local wall time: Berlin, 2026-03-03 10:00 unless told otherwise.
  ManualTime();

  [[nodiscard]] QDateTime now() const override { return m_now; }
  [[nodiscard]] std::chrono::nanoseconds mediaTime() const override { return m_media; }
  [[nodiscard]] QTimeZone timeZone() const override { return m_zone; }
  [[nodiscard]] QLocale locale() const override { return m_locale; }

  [[nodiscard]] Registration after(std::chrono::milliseconds delay, Work work) override;
  [[nodiscard]] Registration every(std::chrono::milliseconds period, Work work) override;
  [[nodiscard]] Registration post(Work work) override;
  [[nodiscard]] Registration frames(FrameWork work) override;

  /// Runs what falls due, in order, with the clock at each work's own moment.
  void advance(std::chrono::milliseconds duration);
  /// Moves the wall clock alone, as sleep or a set clock does; nothing runs.
  void jump(std::chrono::milliseconds duration) { m_now = m_now.addMSecs(duration.count()); }
  /// Sets the wall clock to a local time of the zone.
  void setLocal(const QString& isoLocal);
  void setZone(const QTimeZone& zone) { m_zone = zone; }
  void setLocale(const QLocale& locale) { m_locale = locale; }
  /// Runs what is due now: posted work.
  void settle() { advance(std::chrono::milliseconds(0)); }
  /// Repeating work that is registered, frames included: what would keep an idle program awake.
  [[nodiscard]] int repeatingCount() const;
  [[nodiscard]] int pendingCount() const { return static_cast<int>(m_items.size()); }

 private:
  struct Item;
  Registration add(std::chrono::nanoseconds delay, std::chrono::nanoseconds period, std::function<void()> work);

  QDateTime m_now;
  std::chrono::nanoseconds m_media{std::chrono::seconds(1000)};
  QTimeZone m_zone;
  QLocale m_locale;
  quint64 m_serial = 0;
  std::list<std::shared_ptr<Item>> m_items;
};

}  // namespace tarnwick::test
