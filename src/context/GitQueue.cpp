// SPDX-License-Identifier: MIT
#include "context/GitQueue.h"

#include <QProcess>
#include <QStringDecoder>

#include <array>
#include <utility>

#include <csignal>
#include <unistd.h>

namespace tarnwick {

namespace {

constexpr qint64 kMostOutput = 64 * 1024;

/// The repository is anybody's: nothing that its configuration names is run, nothing is asked, nothing is locked. Also
/// without what a hook or a script that started us may have set: it would answer for another repository.
QProcessEnvironment guardedEnvironment() {
  auto environment = QProcessEnvironment::systemEnvironment();
  for (const auto& name : environment.keys()) {
    const bool isUsersConfiguration = name == u"GIT_CONFIG_GLOBAL" || name == u"GIT_CONFIG_SYSTEM" ||
                                      name == u"GIT_CONFIG_NOSYSTEM" || name == u"GIT_EXEC_PATH";
    if (name.startsWith(u"GIT_") && !isUsersConfiguration) environment.remove(name);
  }
  const std::array<std::pair<const char*, const char*>, 3> overrides{
      {{"core.fsmonitor", "false"}, {"core.hooksPath", "/dev/null"}, {"core.pager", "cat"}}};
  environment.insert(QStringLiteral("GIT_CONFIG_COUNT"), QString::number(overrides.size()));
  for (std::size_t i = 0; i < overrides.size(); ++i) {
    environment.insert(QStringLiteral("GIT_CONFIG_KEY_%1").arg(i), QLatin1StringView(overrides[i].first));
    environment.insert(QStringLiteral("GIT_CONFIG_VALUE_%1").arg(i), QLatin1StringView(overrides[i].second));
  }
  environment.insert(QStringLiteral("GIT_TERMINAL_PROMPT"), QStringLiteral("0"));
  environment.insert(QStringLiteral("GIT_ASKPASS"), QStringLiteral("/bin/false"));
  environment.insert(QStringLiteral("SSH_ASKPASS"), QStringLiteral("/bin/false"));
  environment.insert(QStringLiteral("GIT_OPTIONAL_LOCKS"), QStringLiteral("0"));
  return environment;
}

}  // namespace

GitQueue::GitQueue(Scheduler& scheduler, QString program) : m_scheduler(scheduler), m_program(std::move(program)) {
  setObjectName(QStringLiteral("tarnwick.context.git"));
}

GitQueue::~GitQueue() { abandonChild(); }

void GitQueue::run(const QStringList& arguments, Answer answer) {
  m_questions.push_back({arguments, std::move(answer)});
  startNext();
}

std::optional<QString> GitQueue::textOf(const QByteArray& output) {
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  const QString text = QString(decoder(output)).trimmed();
  if (decoder.hasError() || text.isEmpty()) return std::nullopt;
  return text;
}

void GitQueue::startNext() {
  if (m_child || m_questions.empty()) return;
  m_child = new QProcess(this);
  m_child->setProcessEnvironment(guardedEnvironment());
  // A group of its own: what it starts ends with it.
  m_child->setChildProcessModifier([] { setpgid(0, 0); });
  m_child->setStandardInputFile(QProcess::nullDevice());
  m_child->setStandardErrorFile(QProcess::nullDevice());
  connect(m_child, &QProcess::readyReadStandardOutput, this, [this] {
    if (m_child && m_child->bytesAvailable() > kMostOutput) finish(std::nullopt);
  });
  connect(m_child, &QProcess::finished, this, [this](int exitCode, QProcess::ExitStatus status) {
    const bool isGood = status == QProcess::NormalExit && exitCode == 0 && m_child->bytesAvailable() <= kMostOutput;
    finish(isGood ? textOf(m_child->readAllStandardOutput()) : std::nullopt);
  });
  // From the event loop: a program that cannot be started fails inside start().
  connect(
      m_child, &QProcess::errorOccurred, this,
      [this, child = m_child](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart && child == m_child) finish(std::nullopt);
      },
      Qt::QueuedConnection);
  m_patience = m_scheduler.after(kPatience, [this] { finish(std::nullopt); });
  m_child->start(m_program, m_questions.front().arguments, QIODevice::ReadOnly);
}

void GitQueue::finish(std::optional<QString> text) {
  if (!m_child) return;
  m_patience = {};
  abandonChild();
  const auto answer = std::move(m_questions.front().answer);
  m_questions.pop_front();
  // The next one first: the answer may well ask for more, which then queues behind it.
  startNext();
  if (answer) answer(std::move(text));
}

void GitQueue::abandonChild() {
  if (!m_child) return;
  auto* child = std::exchange(m_child, nullptr);
  child->disconnect(this);
  child->setParent(nullptr);
  if (const auto group = static_cast<pid_t>(child->processId()); group > 0) kill(-group, SIGKILL);
  if (child->state() == QProcess::NotRunning) {
    child->deleteLater();
    return;
  }
  // Deleting a process object waits for the process; one that cannot even be killed is left to end by itself.
  connect(child, &QProcess::finished, child, &QObject::deleteLater);
  child->kill();
}

}  // namespace tarnwick
