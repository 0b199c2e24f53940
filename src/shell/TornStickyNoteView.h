// SPDX-License-Identifier: MIT
// What is inside a torn-off note's window: the whole note, its in-place editor, or the folded tab. Forwards what the
// user does to the rules of the board; the window around it is TornNotePanel's.
#pragma once

#include "board/BoardServices.h"
#include "board/NoteCrush.h"
#include "model/Task.h"
#include "platform/DesktopGeometry.h"
#include "platform/Registration.h"
#include "shell/TornNoteFace.h"
#include "shell/Tween.h"

#include <QPixmap>
#include <QWidget>

#include <array>
#include <functional>
#include <optional>

namespace tarnwick {

class HoverBridge;
class NoteEditPlate;
class NoteSpot;
class NoteTextSpot;

class TornStickyNoteView final : public QWidget {
  Q_OBJECT

 public:
  /// What the note asks of its window.
  struct Window {
    std::function<DesktopRect()> frame;
    std::function<void(double)> setAlpha;      // at once
    std::function<void()> fadeIn;              // back to its own opacity
    std::function<DesktopPoint()> pointer;
    std::function<void()> redock;
    std::function<void(const QRegion&)> setMask;  // what can be seen without transparency
  };

  TornStickyNoteView(TaskPtr task, const BoardServices& services, const HoverBridge& hover, Window window);
  ~TornStickyNoteView() override;

  void beginEditing();
  void saveEdit();
  void cancelEdit();
  [[nodiscard]] bool isEditing() const { return m_isEditing; }
  [[nodiscard]] bool hasSaveError() const;
  /// Built when it is first asked for: most notes are never edited where they hang.
  [[nodiscard]] NoteEditPlate& editPlate();
  void crush() { m_crush.crush(); }
  [[nodiscard]] bool isCrushing() const { return m_crush.isCrushing(); }

  void togglePrivate();
  void cycleColor();
  void toggleDaily3();
  /// Reads the note anew.
  void refresh();
  [[nodiscard]] const TornNoteFace& face() const { return m_face; }
  /// A note without transparency around it is drawn level and opaque; one that others see through gets a dashed edge.
  void setDashed(bool isDashed);  // NOLINT: a look that is on or off

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  enum Tool { Redock, Edit, Colour, Daily, Private, ToolCount };

  [[nodiscard]] NoteCrush::TornNote crushView();
  [[nodiscard]] TornNoteFace currentFace() const;
  void buildSpots();
  void layOut();
  void hoverChanged();
  void lookChanged();
  [[nodiscard]] bool isMoving() const;
  void animate();
  void step();
  void crushingChanged();
  void scrollBy(double distance);
  void toggleLineAt(const QPointF& point);
  void walkRows(int rows);
  void toggleCurrentRow();
  void planLabelRefresh();
  void save();
  void paintNote(QPainter& painter);
  void paintWriting(QPainter& painter, double bar);
  void paintBar(QPainter& painter, double opacity);
  [[nodiscard]] QPixmap picture(const std::function<void(QPainter&)>& paint);
  void paintFlat(QPainter& painter);
  [[nodiscard]] bool isBarWanted() const;
  [[nodiscard]] std::vector<int> checklistRows() const;
  [[nodiscard]] std::chrono::nanoseconds mediaTime() const;

  const BoardServices& m_services;
  TaskPtr m_task;
  TaskRecord m_shown;  // as of the last refresh
  const HoverBridge& m_hover;
  Window m_window;
  NoteCrush m_crush;
  TornNoteFace m_face;
  StickyChecklistBody m_body;
  QIcon m_appIcon;
  NoteEditPlate* m_editPlate = nullptr;
  NoteTextSpot* m_textSpot = nullptr;
  NoteSpot* m_circle = nullptr;
  std::array<NoteSpot*, ToolCount> m_tools{};
  bool m_isEditing = false;
  bool m_isDashed = false;
  bool m_isBarDue = false;  // the pointer has been over the note for a moment
  double m_scroll = 0;
  int m_currentRow = -1;  // walked to by the keyboard: a line of the text
  Tween m_peel{TornNoteFace::kRestingPeel};
  Tween m_bar{0};
  PaintedSheet m_sheet;  // for as long as it is painted again and again
  QPixmap m_shredPicture;
  std::chrono::nanoseconds m_shredStart{0};
  Registration m_barDelay;
  Registration m_frames;
  Registration m_labelRefresh;
  Registration m_rest;
};

}  // namespace tarnwick
