// SPDX-License-Identifier: MIT
// The board's head: tabs, add-tab and New in the first row; countdown, display mode and tools in the second.
#pragma once

#include "board/BoardQueries.h"
#include "board/ChoiceRow.h"

#include <QWidget>

class QLineEdit;

namespace tarnwick {

class BoardTabs;
class PrimaryButton;
class ToolButton;

/// How torn-off notes sit on screen, as three symbols in a groove.
class DisplayModeSegment final : public ChoiceRow {
  Q_OBJECT

 public:
  explicit DisplayModeSegment(QWidget* parent = nullptr);
  [[nodiscard]] int count() const override { return 3; }
  [[nodiscard]] QString itemName(int index) const override;
  [[nodiscard]] QRectF itemRect(int index) const override;
  [[nodiscard]] QSize sizeHint() const override { return {84, 24}; }

 protected:
  void paintGround(QPainter& painter) override;
  void paintItem(QPainter& painter, int index, const ItemState& state) override;
};

/// The hourglass and what it counts. Never larger than its text.
class BurnCountdownLabel final : public QWidget {
  Q_OBJECT

 public:
  explicit BurnCountdownLabel(QWidget* parent = nullptr);
  /// Nothing is shown for a count of zero.
  void setCountdown(int count, const BurnCountdown& countdown);
  [[nodiscard]] const QString& text() const { return m_countdown.label; }
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  BurnCountdown m_countdown;
};

class BoardRail final : public QWidget {
  Q_OBJECT

 public:
  explicit BoardRail(QWidget* parent = nullptr);

  void setTabs(const QStringList& names, const QString& selected);
  void setDisplayMode(NoteDisplayMode mode);
  void setCountdown(int count, const BurnCountdown& countdown);
  [[nodiscard]] BoardTabs& tabs() { return *m_tabs; }
  [[nodiscard]] ToolButton& searchTool() { return *m_search; }
  [[nodiscard]] ToolButton& tagsTool() { return *m_tags; }
  [[nodiscard]] ToolButton& statsTool() { return *m_stats; }
  [[nodiscard]] BurnCountdownLabel& countdown() { return *m_countdown; }
  /// In the order of the keyboard.
  [[nodiscard]] QList<QWidget*> stops() const;

 Q_SIGNALS:
  void boardChosen(const QString& name);
  void boardAdded(const QString& name);
  void newNoteRequested();
  void displayModeChosen(NoteDisplayMode mode);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  enum class Naming { Keep, Drop };
  void layOut();
  void makeName();
  void beginNaming();
  void endNaming(Naming outcome);

  BoardTabs* m_tabs;
  ToolButton* m_addTab;
  QLineEdit* m_name = nullptr;  // made for the first board that is named
  PrimaryButton* m_new;
  BurnCountdownLabel* m_countdown;
  DisplayModeSegment* m_mode;
  ToolButton* m_search;
  ToolButton* m_tags;
  ToolButton* m_stats;
  bool m_isNaming = false;
};

}  // namespace tarnwick
