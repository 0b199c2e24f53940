// SPDX-License-Identifier: MIT
// The board's window: drops from the tray and tucks back. Owns every torn-off note's window and the table of them.
// What the board shows is the content widget's affair.
#pragma once

#include "board/TornNotes.h"
#include "platform/DesktopGeometry.h"
#include "platform/Registration.h"
#include "platform/Screens.h"
#include "platform/WindowServer.h"
#include "shell/BoardMotion.h"
#include "shell/GhostController.h"
#include "shell/SettledFrame.h"
#include "shell/ShellPorts.h"

#include <QPixmap>
#include <QPointer>
#include <QUuid>
#include <QWidget>

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace tarnwick {

struct BoardServices;
class CaptureVeil;
class TornNotePanel;

/// What can be told about one torn-off window.
struct TornWindowFacts {
  QUuid id;
  DesktopRect frame;
  bool isVisible = false;
  WindowLevel level = WindowLevel::Floating;
  bool isGhost = false;
  bool isTucked = false;
  bool isDocked = false;
  SharingType sharing = SharingType::ReadOnly;
  double opacity = 1;
};

class FloatingPanel final : public QWidget, public TornNotes {
  Q_OBJECT

 public:
  static constexpr int kSide = 390;
  static constexpr int kShadowMargin = 36;
  static constexpr double kCornerRadius = 26;
  /// Where the tray's item is now, desktop coordinates; nothing when that is not known.
  using AnchorSource = std::function<std::optional<DesktopRect>()>;

  /// Hidden at first. `services` must outlive the panel.
  FloatingPanel(const BoardServices& services, const ShellPorts& ports, std::unique_ptr<QWidget> content);
  ~FloatingPanel() override;

  void setAnchorSource(AnchorSource source) { m_anchorSource = std::move(source); }

  void present();
  void dismiss();
  /// Presents unless it is shown and not on its way out.
  void toggle();
  /// On screen, also while it drops or tucks.
  [[nodiscard]] bool isPresented() const { return isVisible(); }
  [[nodiscard]] bool isDismissing() const { return m_isDismissing; }
  /// Hides at once.
  void orderOut();
  /// Brings the open notes forward that belong to what is in front, and the program with them.
  void resurfaceTornNotes();
  [[nodiscard]] SharingType sharing() const { return m_sharing; }
  [[nodiscard]] std::vector<TornWindowFacts> tornWindows() const;
  /// Null when the note has no window.
  [[nodiscard]] TornNotePanel* tornPanel(const QUuid& id) const;
  [[nodiscard]] QWidget* content() const { return m_content; }
  /// Width of the window's rim around the board: room for the shadow, or the black edge.
  [[nodiscard]] int rim() const;

  /// A note whose window was open when the program ended last opens where it was.
  void tearOffTask(const TaskPtr& task, const std::optional<DesktopRect>& near) override;
  void closePanel(const QUuid& id) override;
  void redockTask(const TaskPtr& task) override;
  [[nodiscard]] bool isOpen(const QUuid& id) const override;
  [[nodiscard]] DesktopRect boardFrame() const override;
  void hideBoard() override { orderOut(); }

 Q_SIGNALS:
  /// The board came up and has the keyboard: whoever made the content gives the focus to the right place in it.
  void presented();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  /// Where the panel hangs by its rule: under the anchor, else at the top right; nothing without a screen.
  [[nodiscard]] std::optional<DesktopRect> frameByRule(const std::optional<DesktopRect>& anchor) const;
  /// Places the panel at its anchor; returns the pivot of the motion, in the panel's own top-left coordinates.
  QPointF anchorToStatusItem();
  [[nodiscard]] QPointF tuckPivot() const;
  [[nodiscard]] QPointF pivotFor(const DesktopRect& anchor) const;
  void setFrame(const DesktopRect& frame);
  void askFor(const DesktopRect& frame);
  void applyGeometry() { askFor(m_frame); }
  [[nodiscard]] SettledFrame::Window settledWindow();
  /// Around the same middle as the window, whatever rim that has now.
  [[nodiscard]] DesktopRect boardInside(const DesktopRect& window) const;
  /// Margins, mask and input shape for a desktop with or without a compositor.
  void applyCompositing();
  void applySharing();
  /// The board within the window.
  [[nodiscard]] QRect boardRect() const;
  void showInFront();
  /// Has another thread draw what is around the board.
  void drawAhead() const;
  void startMotion(BoardMotion motion);
  void stepMotion();
  /// Seconds since it began.
  [[nodiscard]] double motionTime() const;
  void endMotion();
  void setAlpha(double alpha);
  void screensChanged();
  void compositingChanged();
  [[nodiscard]] bool isVeiled() const;
  void forwardMouse(QMouseEvent* event);

  [[nodiscard]] DesktopRect visibleFrameAtPointer() const;
  [[nodiscard]] DesktopRect placeForTornNote(const QUuid& id, const std::optional<DesktopRect>& near, DesktopSize size);
  void rememberFrame(const QUuid& id);
  /// Of all open notes, when there is nothing else to do.
  void rememberFramesLater();
  void readRememberedFrames();
  /// Takes the window out of the table and away; it is released when no event of its own is under way.
  void dropPanel(const QUuid& id);

  const BoardServices& m_services;
  ShellPorts m_ports;
  QWidget* m_content;
  AnchorSource m_anchorSource;
  DesktopRect m_frame{0, 0, kSide, kSide};  // inner panel, as wanted; the window system may lag behind
  SettledFrame m_settled;
  bool m_isPlaced = false;                  // it was presented once
  std::vector<ScreenFacts> m_screens;  // as last seen
  DesktopSpace m_space;
  GhostController m_ghost;
  std::unique_ptr<CaptureVeil> m_veil;
  std::map<QUuid, std::unique_ptr<TornNotePanel>> m_tornPanels;
  std::vector<std::unique_ptr<TornNotePanel>> m_leaving;
  std::map<QUuid, DesktopRect> m_rememberedFrames;  // as read at start-up
  SharingType m_sharing = SharingType::ReadOnly;
  bool m_isDismissing = false;
  bool m_isComposited = true;
  double m_alpha = 1;
  std::optional<BoardMotion> m_motion;
  std::chrono::nanoseconds m_motionStart{0};
  QPixmap m_picture;  // of the whole panel, while it moves
  std::optional<QPointF> m_dragOffset;  // from the frame's top-left corner to the pointer, Qt's coordinates
  QPointer<QWidget> m_pressed;          // the part of the content that a press during the drop was meant for
  Registration m_frames;
  Registration m_release;
  Registration m_rememberWork;
  Registration m_screensObserver;
};

}  // namespace tarnwick
