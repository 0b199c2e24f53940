// SPDX-License-Identifier: MIT
// Whether a screen cast runs, from PipeWire's registry of streams: portal casts of all compositors pass through it.
// Programs that read an X11 screen directly leave no trace anywhere.
#pragma once

#include "linux/Observers.h"
#include "platform/CaptureWatch.h"

#include <QFileSystemWatcher>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QString>

#include <chrono>
#include <memory>

namespace tarnwick {

class Scheduler;

/// What the registry says of the graph, and the rule that decides on it.
class StreamGraph final {
 public:
  using Properties = QHash<QString, QString>;
  void addNode(quint32 id, const Properties& properties);
  void addLink(quint32 id, quint32 outputNode);
  void remove(quint32 id);
  /// A video source that is no camera and that somebody reads.
  [[nodiscard]] bool isCasting() const;

 private:
  QSet<quint32> m_screenSources;
  QHash<quint32, quint32> m_links;  // link -> node at its output
};

class PipeWireCaptureWatch final : public QObject, public CaptureWatch {
 public:
  /// Follows a daemon that comes later, or again. The library is loaded for the first one only.
  explicit PipeWireCaptureWatch(Scheduler& scheduler);
  ~PipeWireCaptureWatch() override;

  [[nodiscard]] PortTraits traits() const override;
  [[nodiscard]] CaptureExclusion exclusion() const override;
  [[nodiscard]] bool isCasting() const override { return m_isCasting; }
  [[nodiscard]] Registration onChanged(std::function<void()> observer) override { return m_changed.add(std::move(observer)); }

 private:
  struct Connection;
  void lookForDaemon();
  void lookAgain(std::chrono::milliseconds delay);
  void daemonLeft();
  void graphChanged();

  Scheduler& m_scheduler;
  StreamGraph m_graph;
  bool m_isCasting = false;
  Observers<> m_changed;
  std::unique_ptr<Connection> m_connection;  // null while no daemon answers
  QFileSystemWatcher m_socketFolder;
  int m_triesLeft = 0;
  Registration m_look;
};

}  // namespace tarnwick
