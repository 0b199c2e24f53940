// SPDX-License-Identifier: MIT
// The window of one torn-off note: its level, privacy and see-through mode, its folding into a tab, and its place.
// What is on the paper is the note view's; when it shows for an application or repository is the pinning's.
#pragma once

#include "board/BoardServices.h"
#include "model/Task.h"
#include "platform/Registration.h"
#include "platform/WindowServer.h"
#include "shell/FloatingPanel.h"
#include "shell/HoverBridge.h"
#include "shell/PinnedWindow.h"
#include "shell/SettledFrame.h"
#include "shell/ShellPorts.h"
#include "shell/Tween.h"

#include <QWidget>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace tarnwick {

class AppPinning;
class CaptureVeil;
class DraggableHostingView;
class GitPinning;
class TornStickyNoteView;

enum class Animation { Immediate, Animated };

class TornNotePanel final : public QWidget, public PinnedWindow {
  Q_OBJECT

 public:
  struct Surroundings {
    const BoardServices& services;
    const ShellPorts& ports;
    GhostController& ghost;
    const CaptureVeil& veil;
  };
  struct Callbacks {
    std::function<void()> redock;
    std::function<void()> frameSettled;  // the user moved or resized it
  };

  TornNotePanel(TaskPtr task, const Surroundings& surroundings, Callbacks callbacks);
  ~TornNotePanel() override;

  [[nodiscard]] const QUuid& taskID() const { return m_taskID; }
  [[nodiscard]] const TaskPtr& task() const { return m_task; }
  [[nodiscard]] const std::optional<QString>& pinnedBundleID() const { return m_pinnedBundleID; }
  [[nodiscard]] const std::optional<QString>& gitRepoPath() const { return m_gitRepoPath; }
  [[nodiscard]] bool isGhost() const { return m_isGhost; }
  [[nodiscard]] bool isTucked() const { return m_isTucked; }
  [[nodiscard]] bool isDocked() const;
  [[nodiscard]] TornWindowFacts facts() const;
  [[nodiscard]] TornStickyNoteView& noteView() const { return *m_noteView; }
  [[nodiscard]] const HoverBridge& hover() const { return m_hover; }

  void applyDisplayMode();
  void applySharing();
  void applyGhost();
  void setTucked(bool isTucked, Animation animation);  // NOLINT: as its field
  void scheduleTuck();

  [[nodiscard]] DesktopRect frame() const override { return m_frame; }
  void moveTo(DesktopPoint origin) override;
  void orderFront() override;
  void orderOut() override;
  [[nodiscard]] bool isOrderedIn() const override { return m_isOrderedIn; }
  void didDock() override;
  void setFrame(const DesktopRect& frame);
  /// To its application's window, if that is in front.
  void dockIfWanted();
  /// Gives it the keyboard.
  void makeKey();

  /// The user's own place for it: kept while a dock or a missing monitor holds it elsewhere.
  [[nodiscard]] const DesktopRect& home() const { return m_home; }
  void setHome(const DesktopRect& home);
  /// Monitors came or went; `before` converts coordinates of the old arrangement.
  void screensChanged(const DesktopSpace& before);
  /// Transparency came or went.
  void compositingChanged();

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void buildContent();
  void observe();
  void setUpPinning();
  void adoptPins();
  void askFor(const DesktopRect& frame);
  void applyGeometry() { askFor(m_frame); }
  void applyToWindow();
  void refreshVisibility();
  void setAlpha(double alpha);
  void animateSize(DesktopSize target, std::function<void()> finished);
  void hoverChanged(bool isInside);
  void resignKey();
  void userMovedWindow();
  [[nodiscard]] SettledFrame::Window settledWindow();
  /// The window manager says that it moved or resized the window.
  void geometryReported();
  [[nodiscard]] double restingAlpha() const;
  void fadeTo(double alpha, std::chrono::milliseconds duration);
  void workspaceModeChanged(const QString& mode);
  [[nodiscard]] bool foldsNow() const;
  [[nodiscard]] SharingType wantedSharing() const;
  [[nodiscard]] bool isMotionReduced() const;

  const BoardServices& m_services;
  ShellPorts m_ports;
  GhostController& m_ghost;
  const CaptureVeil& m_veil;
  Callbacks m_callbacks;
  TaskPtr m_task;
  QUuid m_taskID;
  std::optional<QString> m_pinnedBundleID;
  std::optional<QString> m_gitRepoPath;
  bool m_isDaily3 = false;
  bool m_wasVisibleBeforeDeepWork = false;
  HoverBridge m_hover;
  TornStickyNoteView* m_noteView = nullptr;
  DraggableHostingView* m_hosting = nullptr;
  std::unique_ptr<AppPinning> m_appPinning;
  std::unique_ptr<GitPinning> m_gitPinning;

  DesktopRect m_frame;  // as wanted; what the window system reports may lag behind
  DesktopRect m_home;
  DesktopSize m_expandedSize;
  DesktopSize m_minimumSize;
  bool m_isTucked = false;
  bool m_isGhost = false;
  bool m_isOrderedIn = false;
  bool m_wasKey = false;
  WindowLevel m_level = WindowLevel::Floating;
  SharingType m_sharing = SharingType::ReadOnly;
  double m_alpha = 1;
  Tween m_fade{1};
  Registration m_collapseWork;
  Registration m_hoverWork;
  Registration m_sizeFrames;
  Registration m_alphaFrames;
  SettledFrame m_settled;
};

}  // namespace tarnwick
