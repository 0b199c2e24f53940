// SPDX-License-Identifier: MIT
// A menu in the program's own look that can show stamps as they are printed. Rows are 28 high.
#pragma once

#include "model/Enumerations.h"

#include <QMenu>

#include <optional>

namespace tarnwick {

class StickyMenu : public QMenu {
  Q_OBJECT

 public:
  explicit StickyMenu(QWidget* parent = nullptr);
  /// A quiet line above the choices.
  void setHeading(const QString& text, const QString& symbol);
  /// A choice; checked ones carry a tick.
  QAction* addChoice(const QString& text, bool isChecked);  // NOLINT: mirrors QAction's own
  QAction* addStamp(TaskStamp stamp, bool isChecked);       // NOLINT: the same

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QAction* m_heading = nullptr;
  QString m_headingSymbol;
  QHash<const QAction*, TaskStamp> m_stamps;
};

}  // namespace tarnwick
