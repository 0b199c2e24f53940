// SPDX-License-Identifier: MIT
// The documents that windows publish on the accessibility bus. Asked for in the background whenever a window is looked
// at, in a handful of calls, and kept for the next look, which a change calls for.
#pragma once

#include "platform/Accessibility.h"

#include <QHash>
#include <QObject>
#include <QString>

#include <functional>
#include <optional>

namespace tarnwick {

class AtSpiTree;

/// What of a published address is a document of the user's: a file, and none of those that the program itself is made
/// of, as pages of programs built on a browser are. `programFolder` may be empty.
[[nodiscard]] std::optional<QString> userDocument(const QString& address, const QString& programFolder);

class AtSpiDocuments final : public QObject {
 public:
  using Changed = std::function<void(qint64 pid)>;
  AtSpiDocuments(const AtSpiTree& tree, Changed changed) : m_tree(tree), m_changed(std::move(changed)) {}

  /// As the process's window of that title said last; asks anew, and tells when the answer would be another one now.
  [[nodiscard]] std::optional<QString> look(qint64 pid, const QString& title);

 private:
  struct Known {
    QString title;
    std::optional<QString> document;
  };
  void askApplication(const ElementRef& application, qint64 pid, const QString& title);
  void askWindow(const ElementRef& window, qint64 pid, const QString& title);
  void askDocument(const ElementRef& document, qint64 pid, const QString& title);

  [[nodiscard]] std::optional<QString> known(qint64 pid, const QString& title) const;
  void learn(qint64 pid, const QString& title, const std::optional<QString>& document);

  const AtSpiTree& m_tree;
  Changed m_changed;
  QHash<qint64, Known> m_known;
};

}  // namespace tarnwick
