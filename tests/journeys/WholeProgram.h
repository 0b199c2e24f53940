// SPDX-License-Identifier: MIT
// The whole program on fakes: a store and settings in a folder of their own, and time moved by hand.
#pragma once

#include "app/AppDelegate.h"
#include "fakes/FakeDesktop.h"
#include "fakes/FakeServices.h"
#include "fakes/ManualTime.h"
#include "model/SettingsKeys.h"
#include "model/store/ModelContainer.h"
#include "platform/Unavailable.h"
#include "shell/FloatingPanel.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace tarnwick::test {

class WholeProgram {
 public:
  ManualTime time;
  FakeScreens screens;
  FakeWorkspace workspace;
  FakeWindowServer windowServer;
  FakeOtherWindows otherWindows;
  FakeAccessibility accessibility;
  FakeHotKeys hotKeys;
  FakeUserNotifications notifications;
  FakeAudio audio;
  FakeHaptics haptics;
  FakePower power;
  FakeCaptureWatch captureWatch;
  FakeLoginItem loginItem;
  FakeDockPreferences dockPreferences;
  UnavailableDownloads downloads;

  ~WholeProgram() { stop(); }

  [[nodiscard]] QString storePath() const { return m_folder.filePath(QStringLiteral("data/Tarnwick.store")); }
  [[nodiscard]] QString settingsPath() const { return m_folder.filePath(QStringLiteral("config/settings.json")); }

  /// As if the user had been here before.
  void writeSettings(const QByteArray& json) {
    QDir().mkpath(m_folder.filePath(QStringLiteral("config")));
    QFile file(settingsPath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(json);
  }
  static QByteArray seasoned() {
    return R"({"hasSeenWelcome": true, "planNudge": false, "autoCheckUpdates": false, "v1SellableDefaultsApplied": true})";
  }

  AppDelegate& launch() {
    stop();
    m_delegate = std::make_unique<AppDelegate>(
        AppPorts{time, time, screens, workspace, windowServer, otherWindows, accessibility, hotKeys, notifications,
                 audio, haptics, power, captureWatch, loginItem, dockPreferences, downloads, QStringLiteral("x11")},
        AppDelegate::Paths{storePath(), settingsPath()});
    m_delegate->applicationDidFinishLaunching();
    settle();
    return *m_delegate;
  }
  void stop() {
    if (!m_delegate) return;
    m_delegate->applicationWillTerminate();
    m_delegate.reset();
  }
  void settle() {
    time.settle();
    QCoreApplication::processEvents();
  }
  void advance(std::chrono::milliseconds duration) {
    time.advance(duration);
    QCoreApplication::processEvents();
  }
  [[nodiscard]] AppDelegate& delegate() { return *m_delegate; }
  [[nodiscard]] FloatingPanel& panel() { return *m_delegate->panel(); }
  [[nodiscard]] ModelContext& context() { return m_delegate->container()->mainContext(); }

  /// What the command line prints; fails the test unless the exit status is as expected.
  QString tarnwick(const QStringList& words, int expectedStatus = 0) {
    const auto reply = m_delegate->runCommand({words, {}, QDir::currentPath()});
    EXPECT_EQ(reply.exitStatus, expectedStatus) << qPrintable(words.join(u' ')) << ": " << reply.error.constData();
    settle();
    return QString::fromUtf8(expectedStatus == 0 ? reply.output : reply.error).trimmed();
  }
  [[nodiscard]] TaskPtr note(const QString& idText) { return context().findTask(QUuid::fromString(idText)); }

 private:
  QTemporaryDir m_folder;
  std::unique_ptr<AppDelegate> m_delegate;
};

}  // namespace tarnwick::test
