// SPDX-License-Identifier: MIT
// The serial queue "tarnwick.context.git": one git at a time as a child process, in the order asked. A git that hangs
// or floods is ended; nobody waits for it, and nothing that a repository names is run.
#pragma once

#include "context/GitRunner.h"
#include "platform/Registration.h"
#include "platform/Scheduler.h"

#include <QByteArray>
#include <QObject>

#include <chrono>
#include <deque>
#include <memory>

class QProcess;

namespace tarnwick {

class GitQueue final : public QObject, public GitRunner {
  Q_OBJECT

 public:
  static constexpr std::chrono::seconds kPatience{5};

  explicit GitQueue(Scheduler& scheduler, QString program = QStringLiteral("/usr/bin/git"));
  /// Pending questions are dropped without an answer.
  ~GitQueue() override;

  void run(const QStringList& arguments, Answer answer) override;

  /// What the output of a git that ended well says; nothing when it is blank or no UTF-8.
  [[nodiscard]] static std::optional<QString> textOf(const QByteArray& output);

 private:
  struct Question {
    QStringList arguments;
    Answer answer;
  };

  void startNext();
  void finish(std::optional<QString> text);
  /// Takes the child out of the queue without waiting for its end.
  void abandonChild();

  Scheduler& m_scheduler;
  QString m_program;
  std::deque<Question> m_questions;  // the first is under way while there is a child
  QProcess* m_child = nullptr;
  Registration m_patience;
};

}  // namespace tarnwick
