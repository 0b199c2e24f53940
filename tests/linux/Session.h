// SPDX-License-Identifier: MIT
// What tests on a real desktop share: waiting for conditions, another program, commands of the desktop's own tools.
#pragma once

#include <QCoreApplication>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>

namespace tarnwick::test {

/// Runs the event loop until the condition holds; generous, for machines under load.
inline bool holdsSoon(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, 20000); }

/// Runs a tool of the desktop while our own event loop goes on; its output.
inline QString run(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  if (!holdsSoon([&] { return process.state() == QProcess::NotRunning; })) process.kill();
  return QString::fromUtf8(process.readAllStandardOutput() + process.readAllStandardError());
}

inline void xdotool(const QString& words) { run(QStringLiteral("xdotool"), words.split(u' ', Qt::SkipEmptyParts)); }

/// Another program with at most one window.
class PeerProgram final {
 public:
  explicit PeerProgram(const char* windowClass = "peer", const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment()) {
    m_process.setProcessEnvironment(environment);
    m_process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/tarnwick_peer"),
                    {QStringLiteral("-name"), QLatin1String(windowClass)});
    m_process.waitForStarted();
  }
  ~PeerProgram() {
    m_process.closeWriteChannel();
    if (!m_process.waitForFinished(5000)) m_process.kill();
    m_process.waitForFinished();
  }
  void tell(const QByteArray& line) { m_process.write(line + '\n'); }
  [[nodiscard]] qint64 pid() const { return m_process.processId(); }
  /// Whether it says the line by and by.
  [[nodiscard]] bool says(const QString& line) {
    return holdsSoon([&] { return said().contains(line); });
  }
  [[nodiscard]] QStringList said() {
    m_output += QString::fromUtf8(m_process.readAllStandardOutput());
    return m_output.split(u'\n');
  }
  [[nodiscard]] bool hasEnded() const { return m_process.state() == QProcess::NotRunning; }

 private:
  QProcess m_process;
  QString m_output;
};

}  // namespace tarnwick::test
