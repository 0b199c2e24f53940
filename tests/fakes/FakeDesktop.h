// SPDX-License-Identifier: MIT
// A desktop in memory: screens, applications, windows and pointer, all set by the test.
#pragma once

#include "fakes/ObserverList.h"
#include "platform/OtherWindows.h"
#include "platform/Screens.h"
#include "platform/WindowServer.h"
#include "platform/Workspace.h"

#include <QHash>
#include <QWindow>

#include <algorithm>
#include <map>

namespace tarnwick::test {

class FakeScreens final : public Screens {
 public:
  /// One 1280 × 800 screen with a 30-high panel at the top.
  std::vector<ScreenFacts> screens{{QStringLiteral("left"), {0, 0, 1280, 800}, {0, 0, 1280, 770}, 1}};
  bool hasCompositor = true;

  [[nodiscard]] std::vector<ScreenFacts> all() const override { return screens; }
  [[nodiscard]] bool isComposited() const override { return hasCompositor; }
  [[nodiscard]] Registration onChanged(std::function<void()> observer) override { return changed.add(std::move(observer)); }

  ObserverList<> changed;
};

class FakeWorkspace final : public Workspace {
 public:
  std::optional<RunningApplication> front;
  std::vector<RunningApplication> applications;
  QList<QUrl> opened;
  bool hasReducedMotion = false;
  bool canOpen = true;

  void activate(const RunningApplication& application) {
    const auto old = front;
    front = application;
    if (old && (old->pid != application.pid || old->bundleID != application.bundleID)) deactivated.notify(*old);
    activated.notify(application);
  }
  void terminate(const RunningApplication& application) {
    std::erase(applications, application);
    if (front == application) front.reset();
    terminated.notify(application);
  }

  [[nodiscard]] std::optional<RunningApplication> frontmost() const override { return front; }
  [[nodiscard]] std::vector<RunningApplication> running() const override { return applications; }
  [[nodiscard]] Registration onActivated(Observer observer) override { return activated.add(std::move(observer)); }
  [[nodiscard]] Registration onDeactivated(Observer observer) override { return deactivated.add(std::move(observer)); }
  [[nodiscard]] Registration onTerminated(Observer observer) override { return terminated.add(std::move(observer)); }
  [[nodiscard]] std::pair<QString, QIcon> identity(const QString& bundleID) const override {
    for (const auto& application : applications) {
      if (application.bundleID == bundleID) return {application.name, {}};
    }
    return {bundleID, {}};
  }
  bool openUrl(const QUrl& url) override {
    opened.append(url);
    return canOpen;
  }
  [[nodiscard]] bool isMotionReduced() const override { return hasReducedMotion; }

  ObserverList<const RunningApplication&> activated;
  ObserverList<const RunningApplication&> deactivated;
  ObserverList<const RunningApplication&> terminated;
};

class FakeWindowServer final : public WindowServer {
 public:
  struct State {
    WindowLevel level = WindowLevel::Floating;
    ClickThrough clickThrough = ClickThrough::Off;
    SharingType sharing = SharingType::ReadOnly;
    QMargins margins;
    double opacity = 1;
    int raises = 0;
    int activations = 0;
    std::optional<DesktopRect> frame;
  };
  [[nodiscard]] const State& of(const QWindow* window) { return m_states[window]; }
  /// The window manager has it there.
  void place(const QWindow* window, const DesktopRect& frame) { m_states[window].frame = frame; }

  void applyLevel(QWindow& window, WindowLevel level) override { m_states[&window].level = level; }
  void setClickThrough(QWindow& window, ClickThrough value) override { m_states[&window].clickThrough = value; }
  void setOpacity(QWindow& window, double opacity) override { m_states[&window].opacity = opacity; }
  void setShadowMargins(QWindow& window, const QMargins& margins) override { m_states[&window].margins = margins; }
  void raiseWithoutActivating(QWindow& window) override { ++m_states[&window].raises; }
  void activate(QWindow& window) override { ++m_states[&window].activations; }
  void setSharing(QWindow& window, SharingType sharing) override { m_states[&window].sharing = sharing; }
  [[nodiscard]] std::optional<DesktopRect> frameOf(QWindow& window) const override {
    const auto found = m_states.find(&window);
    return found == m_states.end() ? std::nullopt : found->second.frame;
  }

 private:
  std::map<const QWindow*, State> m_states;
};

class FakeOtherWindows final : public OtherWindows {
 public:
  std::vector<OtherWindow> windows;
  PointerState pointerState;
  bool canFollow = true;
  WindowSight seen = WindowSight::All;

  /// The focused window of a process moved, or went.
  void move(qint64 pid, std::optional<DesktopRect> frame) {
    frames[pid] = frame;
    followers[pid].notify(frame);
  }
  [[nodiscard]] int followerCount(qint64 pid) { return followers[pid].count(); }

  [[nodiscard]] WindowSight sight() const override { return seen; }
  [[nodiscard]] std::vector<OtherWindow> onScreen() const override { return windows; }
  [[nodiscard]] Registration followFocusedWindow(qint64 pid, FrameObserver observer) override {
    if (!canFollow || pid < 1) return {};
    auto handle = followers[pid].add(observer);
    if (frames.contains(pid)) observer(frames[pid]);
    return handle;
  }
  [[nodiscard]] PointerState pointer() const override { return pointerState; }

  std::map<qint64, std::optional<DesktopRect>> frames;
  std::map<qint64, ObserverList<std::optional<DesktopRect>>> followers;
};

}  // namespace tarnwick::test
