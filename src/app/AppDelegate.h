// SPDX-License-Identifier: MIT
// Start-up and shutdown: opens the store, makes every long-lived object in order and wires them to each other.
#pragma once

#include "app/AppPorts.h"
#include "platform/Instance.h"
#include "platform/Power.h"
#include "platform/Result.h"

#include <QObject>

#include <chrono>
#include <memory>

namespace tarnwick {

class CommandRunner;
class FloatingPanel;
class ImportWindow;
class ModelContainer;
class SettingsView;
struct StatusReport;

class AppDelegate final : public QObject {
  Q_OBJECT

 public:
  struct Paths {
    QString store;
    QString settings;
  };

  AppDelegate(const AppPorts& ports, Paths paths);
  ~AppDelegate() override;
  /// The delegate of this process; null before launch and after its end.
  [[nodiscard]] static AppDelegate* shared();

  void applicationDidFinishLaunching();
  /// The reopen event: presents the board unless the settings or the welcome window is there.
  void applicationShouldHandleReopen();
  void applicationWillTerminate();
  void showAddTask();
  void showSettings();
  void toggleBoard();
  void restickDueNotes();
  void planNudgeIfDue();
  /// A word of the command line, sent to the running program.
  [[nodiscard]] CommandReply runCommand(const CommandCall& call);
  /// Shows what the files, named by path or URI, would bring; the user decides.
  void openFiles(const QStringList& names);
  /// One of the actions of the desktop entry.
  void runAction(const QString& action);

  /// Null when the store could not be opened.
  [[nodiscard]] ModelContainer* container() const;
  [[nodiscard]] FloatingPanel* panel() const;

 Q_SIGNALS:
  void quitRequested();

 private:
  struct Parts;
  [[nodiscard]] ImportWindow& importWindow();
  void presentStoreError(const Error& error);
  void makeCommands();
  [[nodiscard]] StatusReport status() const;
  void makeParts();
  void startParts();
  void followCalendar(PowerEvent event);
  void backUp();
  void actOnReminder(const QString& identifier, const QString& action);
  void schedulePlanNudge(std::chrono::milliseconds delay);

  AppPorts m_ports;
  Paths m_paths;
  std::unique_ptr<Parts> m_parts;
};

}  // namespace tarnwick
