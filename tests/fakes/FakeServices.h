// SPDX-License-Identifier: MIT
// The desktop's services in memory: they record what they were asked and answer as the test says.
#pragma once

#include "fakes/ObserverList.h"
#include "platform/Accessibility.h"
#include "platform/Audio.h"
#include "platform/CaptureWatch.h"
#include "platform/Clock.h"
#include "platform/DockPreferences.h"
#include "platform/Haptics.h"
#include "platform/HotKeys.h"
#include "platform/LoginItem.h"
#include "platform/Power.h"
#include "platform/UserNotifications.h"

#include <QStringList>

#include <algorithm>
#include <map>

namespace tarnwick::test {

class FakeUserNotifications final : public UserNotifications {
 public:
  std::vector<NotificationRequest> requests;
  int authorizationRequests = 0;
  int removeAllCalls = 0;
  ObserverList<const QString&, const QString&> actedOn;

  [[nodiscard]] PortTraits traits() const override { return PortTraits::served(QStringLiteral("fake")); }
  void requestAuthorization() override { ++authorizationRequests; }
  void add(const NotificationRequest& request) override {
    remove({request.identifier});
    requests.push_back(request);
  }
  void remove(const QStringList& identifiers) override {
    std::erase_if(requests, [&](const auto& request) { return identifiers.contains(request.identifier); });
  }
  void removeAll() override {
    ++removeAllCalls;
    requests.clear();
  }
  [[nodiscard]] std::vector<NotificationRequest> pending() const override { return requests; }
  [[nodiscard]] Registration onActedOn(ActedOn observer) override {
    return actedOn.add(std::move(observer));
  }
};

class FakeAudio final : public Audio {
 public:
  /// "rewind crush", "volume crush 0.85", "play crush", "stock Pop": in order. A player is named by its image's size.
  QStringList log;
  bool canPrepare = true;

  [[nodiscard]] PortTraits traits() const override { return PortTraits::served(QStringLiteral("fake")); }
  [[nodiscard]] std::unique_ptr<AudioPlayer> prepare(const QByteArray& wav) override {
    if (!canPrepare) return nullptr;
    images.append(wav);
    return std::make_unique<Player>(*this, nameOf(wav));
  }
  void playStock(const QString& name) override { log.append(QStringLiteral("stock ") + name); }
  QList<QByteArray> images;

 private:
  class Player final : public AudioPlayer {
   public:
    Player(FakeAudio& audio, QString name) : m_audio(audio), m_name(std::move(name)) {}
    void rewind() override { m_audio.log.append(QStringLiteral("rewind ") + m_name); }
    void setVolume(double volume) override {
      m_audio.log.append(QStringLiteral("volume %1 %2").arg(m_name).arg(volume));
    }
    void play() override { m_audio.log.append(QStringLiteral("play ") + m_name); }

   private:
    FakeAudio& m_audio;
    QString m_name;
  };
  static QString nameOf(const QByteArray& wav) {
    switch (wav.size()) {
      case 10628: return QStringLiteral("stick");
      case 19448: return QStringLiteral("tear");
      case 33560: return QStringLiteral("crush");
      default: return QString::number(wav.size());
    }
  }
};

class FakeHaptics final : public Haptics {
 public:
  std::vector<HapticPattern> performed;
  [[nodiscard]] PortTraits traits() const override { return PortTraits::served(QStringLiteral("fake")); }
  void perform(HapticPattern pattern) override { performed.push_back(pattern); }
};

class FakeHotKeys final : public HotKeys {
 public:
  int status = 0;
  std::map<QString, std::function<void()>> chords;
  void press(const QString& chord) {
    if (chords.contains(chord)) chords[chord]();
  }
  [[nodiscard]] PortTraits traits() const override { return PortTraits::served(QStringLiteral("fake")); }
  [[nodiscard]] HotKeyRegistration registerChord(const QString& chord, std::function<void()> work) override {
    if (status != 0) return {status, {}};
    chords[chord] = std::move(work);
    return {0, Registration([this, chord] { chords.erase(chord); })};
  }
};

class FakePower final : public Power {
 public:
  ObserverList<PowerEvent> events;
  [[nodiscard]] PortTraits traits() const override { return PortTraits::served(QStringLiteral("fake")); }
  [[nodiscard]] Registration observe(std::function<void(PowerEvent)> observer) override {
    return events.add(std::move(observer));
  }
};

class FakeCaptureWatch final : public CaptureWatch {
 public:
  CaptureExclusion level = CaptureExclusion::HiddenWhileSharing;
  bool casting = false;
  ObserverList<> changed;
  void setCasting(bool isOn) {
    casting = isOn;
    changed.notify();
  }
  [[nodiscard]] PortTraits traits() const override { return PortTraits::served(QStringLiteral("fake")); }
  [[nodiscard]] CaptureExclusion exclusion() const override { return level; }
  [[nodiscard]] bool isCasting() const override { return casting; }
  [[nodiscard]] Registration onChanged(std::function<void()> observer) override { return changed.add(std::move(observer)); }
};

class FakeLoginItem final : public LoginItem {
 public:
  LoginItemStatus current = LoginItemStatus::NotRegistered;
  std::optional<QString> refusal;
  [[nodiscard]] LoginItemStatus status() const override { return current; }
  Result<void> registerItem() override { return change(LoginItemStatus::Enabled); }
  Result<void> unregisterItem() override { return change(LoginItemStatus::NotRegistered); }

 private:
  Result<void> change(LoginItemStatus to) {
    if (refusal) return Error{ErrorKind::Refused, *refusal};
    current = to;
    return {};
  }
};

class FakeDockPreferences final : public DockPreferences {
 public:
  DockState state;
  [[nodiscard]] DockState read() const override { return state; }
};

/// A tree of elements by path.
class FakeAccessibility final : public Accessibility {
 public:
  struct Node {
    ElementFacts facts;
    std::vector<QString> children;
    bool isReadable = true;
  };
  bool hasFrames = true;
  bool hasTree = true;
  int trustRequests = 0;
  std::optional<TrustRequest> lastRequest;
  std::map<QString, Node> nodes;
  std::map<qint64, QString> windows;  // pid -> path of the focused window
  std::map<qint64, ObserverList<>> changed;
  std::vector<QString> dockPaths;

  [[nodiscard]] static ElementRef ref(const QString& path) { return {QStringLiteral("fake"), path}; }
  [[nodiscard]] PortTraits traits() const override { return PortTraits::served(QStringLiteral("fake")); }
  [[nodiscard]] bool isTrusted(AccessNeed need) const override { return need == AccessNeed::Frames ? hasFrames : hasTree; }
  void requestTrust(TrustRequest request) override {
    ++trustRequests;
    lastRequest = request;
  }
  [[nodiscard]] std::optional<ElementRef> focusedWindow(qint64 pid) const override {
    const auto found = windows.find(pid);
    if (found == windows.end()) return std::nullopt;
    return ref(found->second);
  }
  [[nodiscard]] Registration onFocusedWindowChanged(qint64 pid, std::function<void()> observer) override {
    return changed[pid].add(std::move(observer));
  }
  [[nodiscard]] std::optional<ElementFacts> facts(const ElementRef& element) const override {
    const auto found = nodes.find(element.path);
    if (found == nodes.end() || !found->second.isReadable) return std::nullopt;
    visited.append(element.path);
    return found->second.facts;
  }
  [[nodiscard]] std::optional<std::vector<ElementRef>> children(const ElementRef& element) const override {
    const auto found = nodes.find(element.path);
    if (found == nodes.end() || !found->second.isReadable) return std::nullopt;
    std::vector<ElementRef> refs;
    for (const auto& path : found->second.children) refs.push_back(ref(path));
    return refs;
  }
  [[nodiscard]] std::vector<ElementRef> docks() const override {
    std::vector<ElementRef> refs;
    for (const auto& path : dockPaths) refs.push_back(ref(path));
    return refs;
  }
  mutable QStringList visited;
};

}  // namespace tarnwick::test
