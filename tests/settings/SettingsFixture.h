// SPDX-License-Identifier: MIT
// The settings window over fakes, found and driven as a user would: by the names of its controls.
#pragma once

#include "FeedServer.h"
#include "effects/SoundEngine.h"
#include "fakes/FakeDesktop.h"
#include "fakes/FakeServices.h"
#include "fakes/ManualTime.h"
#include "linux/parts/LatePart.h"
#include "model/NotificationCenter.h"
#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"
#include "settings/SettingsView.h"
#include "settings/UpdateChecker.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QCoreApplication>
#include <QLabel>
#include <QTemporaryDir>
#include <QTest>

#include <chrono>
#include <memory>

namespace tarnwick::test {

/// The visible button that a screen reader calls by the name.
[[nodiscard]] inline QAbstractButton* named(const QWidget& root, const QString& name) {
  for (auto* button : root.findChildren<QAbstractButton*>()) {
    const auto spoken = button->accessibleName().isEmpty() ? button->text() : button->accessibleName();
    if (spoken == name && button->isVisible()) return button;
  }
  return nullptr;
}

[[nodiscard]] inline bool showsText(const QWidget& root, const QString& text) {
  for (const auto* label : root.findChildren<QLabel*>()) {
    if (label->text() == text && label->isVisible()) return true;
  }
  return false;
}

class SettingsFixture : public testing::Test {
 protected:
  SettingsFixture() {
    QCoreApplication::setApplicationVersion(QStringLiteral("1.4"));
    registerDefaultSettings(defaults);
  }
  ~SettingsFixture() override { QCoreApplication::setApplicationVersion({}); }

  SettingsView& open(SettingsView::Pane pane) {
    view = std::make_unique<SettingsView>(
        SettingsServices{defaults, center, sound, updates, loginItem, capture, workspace, time, screens, dock});
    view->selectPane(pane);
    view->show();
    view->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(view.get()));
    return *view;
  }
  [[nodiscard]] QAbstractButton& button(const QString& name) const {
    auto* found = named(*view, name);
    if (!found) throw std::runtime_error("no visible button is named " + name.toStdString());
    return *found;
  }
  void click(const QString& name) const { QTest::mouseClick(&button(name), Qt::LeftButton); }

  ManualTime time;
  QTemporaryDir folder;
  UserDefaults defaults{folder.filePath(QStringLiteral("defaults.json")), time};
  NotificationCenter center;
  FakeAudio audio;
  FakeWorkspace workspace;
  FakeLoginItem loginItem;
  FakeCaptureWatch capture;
  FakeScreens screens;
  FakeDockPreferences dock;
  FeedServer server;
  SoundEngine sound{audio, defaults};
  std::unique_ptr<Downloads> downloads = loadPart<Downloads>(QStringLiteral("tarnwick-downloads.so"));
  UpdateChecker updates{defaults, time, workspace, *downloads, server.url(), std::chrono::milliseconds(2000)};
  std::unique_ptr<SettingsView> view;
};

}  // namespace tarnwick::test
