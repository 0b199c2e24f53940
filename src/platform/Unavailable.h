// SPDX-License-Identifier: MIT
// For each port that a desktop may lack, a harmless object that says so.
#pragma once

#include "platform/Accessibility.h"
#include "platform/Audio.h"
#include "platform/CaptureWatch.h"
#include "platform/DockPreferences.h"
#include "platform/Downloads.h"
#include "platform/Haptics.h"
#include "platform/HotKeys.h"
#include "platform/Instance.h"
#include "platform/LoginItem.h"
#include "platform/Power.h"
#include "platform/UserNotifications.h"

namespace tarnwick {

/// What keeps the reason for all of them.
class Absence {
 protected:
  explicit Absence(QString reason) : m_reason(std::move(reason)) {}
  [[nodiscard]] PortTraits absent() const { return PortTraits::unavailable(m_reason); }

 private:
  QString m_reason;
};

class UnavailableAccessibility final : public Accessibility, private Absence {
 public:
  explicit UnavailableAccessibility(QString reason) : Absence(std::move(reason)) {}
  [[nodiscard]] PortTraits traits() const override { return absent(); }
  [[nodiscard]] bool isTrusted(AccessNeed) const override { return false; }
  void requestTrust(TrustRequest) override {}
  [[nodiscard]] std::optional<ElementRef> focusedWindow(qint64) const override { return std::nullopt; }
  [[nodiscard]] Registration onFocusedWindowChanged(qint64, std::function<void()>) override { return {}; }
  [[nodiscard]] std::optional<ElementFacts> facts(const ElementRef&) const override { return std::nullopt; }
  [[nodiscard]] std::optional<std::vector<ElementRef>> children(const ElementRef&) const override { return std::nullopt; }
  [[nodiscard]] std::vector<ElementRef> docks() const override { return {}; }
};

class UnavailableHotKeys final : public HotKeys, private Absence {
 public:
  explicit UnavailableHotKeys(QString reason) : Absence(std::move(reason)) {}
  [[nodiscard]] PortTraits traits() const override { return absent(); }
  [[nodiscard]] HotKeyRegistration registerChord(const QString&, std::function<void()>) override { return {-1, {}}; }
};

class UnavailableUserNotifications final : public UserNotifications, private Absence {
 public:
  explicit UnavailableUserNotifications(QString reason) : Absence(std::move(reason)) {}
  [[nodiscard]] PortTraits traits() const override { return absent(); }
  void requestAuthorization() override {}
  void add(const NotificationRequest&) override {}
  void remove(const QStringList&) override {}
  void removeAll() override {}
  [[nodiscard]] std::vector<NotificationRequest> pending() const override { return {}; }
  [[nodiscard]] Registration onActedOn(ActedOn) override { return {}; }
};

class UnavailableAudio final : public Audio, private Absence {
 public:
  explicit UnavailableAudio(QString reason) : Absence(std::move(reason)) {}
  [[nodiscard]] PortTraits traits() const override { return absent(); }
  [[nodiscard]] std::unique_ptr<AudioPlayer> prepare(const QByteArray&) override { return nullptr; }
  void playStock(const QString&) override {}
};

class UnavailableHaptics final : public Haptics, private Absence {
 public:
  explicit UnavailableHaptics(QString reason) : Absence(std::move(reason)) {}
  [[nodiscard]] PortTraits traits() const override { return absent(); }
  void perform(HapticPattern) override {}
};

class UnavailablePower final : public Power, private Absence {
 public:
  explicit UnavailablePower(QString reason) : Absence(std::move(reason)) {}
  [[nodiscard]] PortTraits traits() const override { return absent(); }
  [[nodiscard]] Registration observe(std::function<void(PowerEvent)>) override { return {}; }
};

class UnavailableCaptureWatch final : public CaptureWatch, private Absence {
 public:
  explicit UnavailableCaptureWatch(QString reason) : Absence(std::move(reason)) {}
  [[nodiscard]] PortTraits traits() const override { return absent(); }
  [[nodiscard]] CaptureExclusion exclusion() const override { return CaptureExclusion::NotAvailable; }
  [[nodiscard]] bool isCasting() const override { return false; }
  [[nodiscard]] Registration onChanged(std::function<void()>) override { return {}; }
};

class UnavailableInstance final : public Instance, private Absence {
 public:
  explicit UnavailableInstance(QString reason) : Absence(std::move(reason)) {}
  [[nodiscard]] PortTraits traits() const override { return absent(); }
  [[nodiscard]] InstanceRole acquire(InstanceHandlers) override { return InstanceRole::NoBus; }
  [[nodiscard]] CommandReply forward(const CommandCall&) override { return {1, {}, "tarnwick: not running\n"}; }
};

class UnavailableLoginItem final : public LoginItem, private Absence {
 public:
  explicit UnavailableLoginItem(QString reason) : Absence(std::move(reason)) {}
  [[nodiscard]] LoginItemStatus status() const override { return LoginItemStatus::NotFound; }
  Result<void> registerItem() override { return Error{ErrorKind::Unavailable, absent().reason}; }
  Result<void> unregisterItem() override { return Error{ErrorKind::Unavailable, absent().reason}; }
};

class UnavailableDownloads final : public Downloads {
 public:
  [[nodiscard]] Registration fetch(const DownloadRequest&, Done done) override {
    done(std::nullopt);
    return {};
  }
};

class UnavailableDockPreferences final : public DockPreferences {
 public:
  [[nodiscard]] DockState read() const override { return {}; }
};

}  // namespace tarnwick
