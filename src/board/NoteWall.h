// SPDX-License-Identifier: MIT
// The wall: two columns of cards that scroll. Paints the visible ones, makes a card object for those only, and turns
// pointer and keys into what they ask for. Which notes hang here, and in which order, it is told.
#pragma once

#include "board/BoardServices.h"
#include "board/Glide.h"
#include "board/TaskStickyCard.h"
#include "platform/Registration.h"

#include <QHash>
#include <QPointer>
#include <QWidget>

#include <memory>
#include <optional>
#include <vector>

namespace tarnwick {

class NoteWall final : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kColumns = 2;
  static constexpr double kEdge = 14;
  /// How far a tilted card's shadow, ring and flag reach beyond its paper.
  static constexpr double kSpill = 38;
  static constexpr double kColumnGap = 12;
  static constexpr double kRowPitch = 124;
  static constexpr double kFirstRow = 12;
  static constexpr double kDragThreshold = 4;

  explicit NoteWall(const BoardServices& services, QWidget* parent = nullptr);
  ~NoteWall() override;

  void setNotes(const TaskList& notes);
  [[nodiscard]] const TaskList& notes() const { return m_notes; }
  void setMark(const QString& mark);
  /// Room inside the scrolled content: above the first row, and below the last one.
  /// What stands on a wall without notes; nothing by default.
  void setEmptyText(const QString& text);
  void setInsets(int top, int bottom);
  [[nodiscard]] std::optional<QUuid> selection() const { return m_selection; }
  void setSelection(const std::optional<QUuid>& id);
  /// Reads clock and settings anew.
  void refreshCards();
  /// Draws what is in view ahead of the first paint.
  void prepare();
  /// Has another thread draw it, while this one does what else is to be done before the first paint.
  void drawAhead();
  /// Crushes that run are taken back; hover and drag end.
  void rest();

  /// Made on demand; null for a note that does not hang here.
  [[nodiscard]] TaskStickyCard* card(const QUuid& id);
  [[nodiscard]] int indexOf(const QUuid& id) const;
  /// In the wall's coordinates, upright, where it is scrolled to now.
  [[nodiscard]] QRectF cardRect(int index) const;
  [[nodiscard]] int indexAt(const QPointF& point) const;
  [[nodiscard]] double scrollOffset() const { return m_offset; }
  [[nodiscard]] int cardObjectCount() const { return static_cast<int>(m_cards.size()); }
  /// What a press on a part does.
  void activate(const QUuid& id, CardPart part, int line = -1);

 Q_SIGNALS:
  void editRequested(const QUuid& id);
  /// From a card's rectangle on the desktop.
  void tearOffRequested(const QUuid& id, const DesktopRect& from);
  void selectionChanged();
  void scrolled(double offset);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  bool event(QEvent* event) override;

 private:
  struct Press {
    QUuid id;
    TaskStickyCard::Hit hit;
    QPointF at;
    QPointF grip;  // within the card
    bool isDragging = false;
  };

  [[nodiscard]] std::pair<int, int> visibleRange() const;
  [[nodiscard]] QPointF toCard(int index, const QPointF& point) const;
  [[nodiscard]] double angleOf(const TaskStickyCard& card) const;
  [[nodiscard]] bool isLifted(const QUuid& id) const;
  [[nodiscard]] DesktopRect desktopRect(const QRectF& rect) const;
  [[nodiscard]] std::unique_ptr<TaskStickyCard> makeCard(const TaskPtr& task);
  [[nodiscard]] TaskStickyCard::Appearance appearance() const;
  void dropDistantCards();
  void paintCard(QPainter& painter, int index, TaskStickyCard& card, Glide::Time now);
  void paintLifted(QPainter& painter, TaskStickyCard& card, double lift);
  void paintControls(QPainter& painter, const TaskStickyCard& card, Glide::Time now);
  void updateCard(const QUuid& id);
  void setHover(const std::optional<QUuid>& id);
  void setHotPart(CardPart part);
  void updateLift(const QUuid& id);
  void runFrames();
  void updateBreath();
  void scrollTo(double offset);
  void reveal(int index);
  [[nodiscard]] double contentHeight() const;
  [[nodiscard]] double maxOffset() const;
  void beginDrag(const QPointF& globalPoint);
  void endDrag(const QPointF& globalPoint);
  void cancelPress();
  void popUpMenu(const QUuid& id, const QPoint& globalPoint);
  void announceSelection();

  const BoardServices& m_services;
  TaskList m_notes;
  QHash<QUuid, int> m_indexes;
  std::map<QUuid, std::unique_ptr<TaskStickyCard>> m_cards;
  std::optional<QUuid> m_selection;
  std::optional<QUuid> m_hover;
  CardPart m_hotPart = CardPart::None;
  std::optional<Press> m_press;
  std::unique_ptr<QWidget> m_dragSheet;
  QString m_mark;
  QString m_emptyText;
  double m_offset = 0;
  Glide m_scroll;
  int m_topInset = 0;
  int m_bottomInset = 0;
  bool m_isThumbHeld = false;
  bool m_hasPointer = false;
  Registration m_frames;
  Registration m_toolsDelay;
  Registration m_breath;
  double m_breathPhase = 0;
};

}  // namespace tarnwick
