// SPDX-License-Identifier: MIT
#include "fakes/ManualTime.h"

#include <algorithm>

namespace tarnwick::test {

using namespace std::chrono_literals;

struct ManualTime::Item {
  std::chrono::nanoseconds due{0};
  std::chrono::nanoseconds period{0};
  quint64 serial = 0;
  std::function<void()> work;
  bool isCancelled = false;
};

ManualTime::ManualTime() : m_zone("Europe/Berlin"), m_locale(QLocale::English, QLocale::UnitedStates) {
  setLocal(QStringLiteral("2026-03-03T10:00:00"));
}

void ManualTime::setLocal(const QString& isoLocal) {
  const auto wall = QDateTime::fromString(isoLocal, Qt::ISODateWithMs);
  m_now = QDateTime(wall.date(), wall.time(), m_zone).toUTC();
}

Registration ManualTime::add(std::chrono::nanoseconds delay, std::chrono::nanoseconds period,
                             std::function<void()> work) {
  auto item = std::make_shared<Item>();
  item->due = m_media + std::max(delay, 0ns);
  item->period = period;
  item->serial = ++m_serial;
  item->work = std::move(work);
  m_items.push_back(item);
  return Registration([this, weak = std::weak_ptr<Item>(item)] {
    if (const auto held = weak.lock()) {
      held->isCancelled = true;
      m_items.remove(held);
    }
  });
}

Registration ManualTime::after(std::chrono::milliseconds delay, Work work) { return add(delay, 0ns, std::move(work)); }
Registration ManualTime::every(std::chrono::milliseconds period, Work work) {
  return add(period, period, std::move(work));
}
Registration ManualTime::post(Work work) { return add(0ns, 0ns, std::move(work)); }
Registration ManualTime::frames(FrameWork work) {
  constexpr auto frame = std::chrono::nanoseconds(16'666'667);
  return add(frame, frame, [this, work = std::move(work)] { work(m_media); });
}

void ManualTime::advance(std::chrono::milliseconds duration) {
  const auto end = m_media + duration;
  const auto startNow = m_now;
  const auto startMedia = m_media;
  const auto moveTo = [&](std::chrono::nanoseconds media) {
    m_media = media;
    m_now = startNow.addMSecs(std::chrono::duration_cast<std::chrono::milliseconds>(media - startMedia).count());
  };
  for (;;) {
    const auto next = std::min_element(m_items.begin(), m_items.end(), [](const auto& a, const auto& b) {
      return std::pair(a->due, a->serial) < std::pair(b->due, b->serial);
    });
    if (next == m_items.end() || (*next)->due > end) break;
    const auto item = *next;
    moveTo(std::max(item->due, m_media));
    if (item->period > 0ns) {
      item->due += item->period;
      item->serial = ++m_serial;
    } else {
      m_items.erase(next);
    }
    item->work();
  }
  moveTo(end);
}

int ManualTime::repeatingCount() const {
  return static_cast<int>(
      std::count_if(m_items.begin(), m_items.end(), [](const auto& item) { return item->period > 0ns; }));
}

}  // namespace tarnwick::test
