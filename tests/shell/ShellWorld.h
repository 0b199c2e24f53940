// SPDX-License-Identifier: MIT
// A board panel with its notes on a desktop in memory: real store and rules, fakes for everything outside.
#pragma once

#include "board/BoardServices.h"
#include "board/CrushUndoStore.h"
#include "board/NotificationEngine.h"
#include "context/ContextEngine.h"
#include "effects/SoundEngine.h"
#include "fakes/FakeBoard.h"
#include "fakes/FakeDesktop.h"
#include "fakes/FakeServices.h"
#include "fakes/ManualTime.h"
#include "model/NotificationCenter.h"
#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"
#include "model/store/ModelContainer.h"
#include "platform/Unavailable.h"
#include "settings/UpdateChecker.h"
#include "shell/FloatingPanel.h"
#include "shell/TornNotePanel.h"
#include "shell/TornStickyNoteView.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QCoreApplication>
#include <QEnterEvent>
#include <QTemporaryDir>
#include <QTest>

#include <chrono>
#include <memory>

namespace tarnwick {

inline void PrintTo(const DesktopPoint& point, std::ostream* out) { *out << point.x << ", " << point.y; }
inline void PrintTo(const DesktopRect& rect, std::ostream* out) { *out << toText(rect).toStdString(); }
inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }

}  // namespace tarnwick

namespace tarnwick::test {

using namespace std::chrono_literals;

inline const RunningApplication kEditor{QStringLiteral("org.example.Editor"), 4001, QStringLiteral("Editor"), true, true};
inline const RunningApplication kBrowser{QStringLiteral("org.example.Browser"), 4002, QStringLiteral("Browser"), false, true};
inline RunningApplication ourselves() {
  return {kApplicationID, QCoreApplication::applicationPid(), QStringLiteral("Tarnwick"), false, true};
}

class ShellWorld : public testing::Test {
 protected:
  ShellWorld() : container(open(folder.filePath(QStringLiteral("Tarnwick.store")))) {
    registerDefaultSettings(defaults);
    workspace.applications = {kEditor, kBrowser};
    workspace.front = kBrowser;
  }
  ~ShellWorld() override { panel.reset(); }

  /// Made at its first use, so that a test can arrange the desktop before.
  FloatingPanel& board() {
    if (!panel) {
      auto content = std::make_unique<QWidget>();
      contentWidget = content.get();
      panel = std::make_unique<FloatingPanel>(services, ports, std::move(content));
      panel->setAnchorSource([this] { return anchor; });
    }
    return *panel;
  }
  /// As after a restart of the program: the same store and settings.
  FloatingPanel& restart() {
    panel.reset();
    return board();
  }
  TaskPtr note(const std::function<void(TaskRecord&)>& change = {}) {
    TaskRecord record;
    record.id = QUuid::createUuid();
    record.text = QStringLiteral("Book the ferry");
    record.colorHex = QStringLiteral("#FFE169");
    record.createdAt = time.now();
    if (change) change(record);
    auto task = container->mainContext().insert(record);
    EXPECT_TRUE(container->mainContext().save());
    return task;
  }
  TaskPtr pinnedNote(const RunningApplication& application) {
    return note([&](TaskRecord& record) { record.pinnedBundleID = application.bundleID; });
  }
  TornNotePanel& torn(const TaskPtr& task, const std::optional<DesktopRect>& near = std::nullopt) {
    board().tearOffTask(task, near);
    time.settle();
    return *board().tornPanel(task->id());
  }
  const FakeWindowServer::State& window(const QWidget& widget) { return windowServer.of(widget.windowHandle()); }
  void pass(std::chrono::milliseconds duration) {
    time.advance(duration);
    QCoreApplication::processEvents();
  }
  /// A drag with the left button; the pointer stays where it went when the window follows it.
  static void dragBy(QWidget& widget, QPoint from, QPoint way) {
    auto* handle = widget.windowHandle();
    const auto target = handle->mapToGlobal(from) + way;
    QTest::mousePress(handle, Qt::LeftButton, {}, from);
    QTest::mouseMove(handle, from + way);
    QTest::mouseRelease(handle, Qt::LeftButton, {}, handle->mapFromGlobal(target));
  }
  /// Another window has the keyboard.
  void leaveKeyboard() {
    elsewhere.show();
    elsewhere.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&elsewhere));
  }
  /// The pointer comes over a note, or leaves it.
  void hover(TornNotePanel& note, bool isInside) {
    auto* host = note.noteView().parentWidget();
    if (isInside) {
      QEnterEvent enter({10, 10}, {10, 10}, host->mapToGlobal(QPointF(10, 10)));
      QCoreApplication::sendEvent(host, &enter);
    } else {
      QEvent leave(QEvent::Leave);
      QCoreApplication::sendEvent(host, &leave);
    }
    time.settle();
  }
  /// From here on the store refuses every change.
  void breakStore() {
    sqlite3* connection = nullptr;
    sqlite3_open(container->path().toUtf8().constData(), &connection);
    EXPECT_EQ(sqlite3_exec(connection, "CREATE TRIGGER refuse BEFORE UPDATE ON Task BEGIN SELECT RAISE(ABORT, 'no'); END",
                           nullptr, nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(connection);
  }
  void setText(const QString& key, const QString& value) { ASSERT_TRUE(defaults.setText(key, value)); }
  void setMode(const QString& mode) {
    setText(keys::kNoteDisplayMode, mode);
    Q_EMIT center.noteDisplayModeChanged();
  }
  [[nodiscard]] static QString upper(const QUuid& id) { return id.toString(QUuid::WithoutBraces).toUpper(); }
  [[nodiscard]] int sounds(const QString& name) const { return int(audio.log.count(QStringLiteral("play ") + name)); }

  static std::unique_ptr<ModelContainer> open(const QString& path) {
    auto opened = ModelContainer::open(path);
    EXPECT_TRUE(opened);
    return opened.take();
  }

  QTemporaryDir folder;
  ManualTime time;
  FakeScreens screens;
  FakeWorkspace workspace;
  FakeWindowServer windowServer;
  FakeOtherWindows otherWindows;
  FakeAccessibility accessibility;
  FakeCaptureWatch capture;
  FakeHaptics haptics;
  FakeAudio audio;
  FakeUserNotifications notifications;
  FakeCrushFlight flight;
  FakeGitRunner git;
  NotificationCenter center;
  UserDefaults defaults{folder.filePath(QStringLiteral("defaults.json")), time};
  std::unique_ptr<ModelContainer> container;
  SoundEngine sound{audio, defaults};
  NotificationEngine reminders{notifications, time};
  CrushUndoStore undo{[this] { return panel.get(); }};
  ContextEngine context{{workspace, accessibility, time, git}, defaults, center};
  UnavailableDownloads downloads;
  UpdateChecker updates{defaults, time, workspace, downloads, QUrl()};
  BoardServices services{*container, defaults, center,    time,  time, screens, workspace, haptics,
                         sound,      flight,   reminders, undo,  context, updates, [this] { return panel.get(); }};
  ShellPorts ports{windowServer, otherWindows, accessibility, capture};
  std::optional<DesktopRect> anchor = DesktopRect{640, 774, 22, 22};
  QWidget* contentWidget = nullptr;
  QWidget elsewhere;
  std::unique_ptr<FloatingPanel> panel;
};

}  // namespace tarnwick::test
