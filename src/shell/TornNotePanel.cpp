// SPDX-License-Identifier: MIT
#include "shell/TornNotePanel.h"

#include "model/AppNotesPrefs.h"
#include "model/NotificationCenter.h"
#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"
#include "platform/Clock.h"
#include "platform/OtherWindows.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"
#include "platform/Workspace.h"
#include "shell/AppPinning.h"
#include "shell/CaptureVeil.h"
#include "shell/DraggableHostingView.h"
#include "shell/GitPinning.h"
#include "shell/Placement.h"
#include "shell/TornStickyNoteView.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QMoveEvent>
#include <QWindow>

#include <cmath>

namespace tarnwick {

using namespace std::chrono_literals;

namespace {

constexpr double kGhostAlpha = 0.6;
constexpr double kGhostUnderPointerAlpha = 0.12;
constexpr double kAlphaStep = 0.01;
constexpr auto kGhostFade = 160ms;
constexpr auto kAbortFade = 200ms;
constexpr auto kTuckDelay = 800ms;
constexpr auto kTuckTime = 200ms;

}  // namespace

TornNotePanel::TornNotePanel(TaskPtr task, const Surroundings& surroundings, Callbacks callbacks)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
      m_services(surroundings.services),
      m_ports(surroundings.ports),
      m_ghost(surroundings.ghost),
      m_veil(surroundings.veil),
      m_callbacks(std::move(callbacks)),
      m_task(std::move(task)),
      m_taskID(m_task->id()),
      m_pinnedBundleID(m_task->record().pinnedBundleID),
      m_gitRepoPath(m_task->record().gitRepoPath),
      m_isDaily3(m_task->isDaily3()),
      m_frame{0, 0, placement::kNoteSize.width, placement::kNoteSize.height},
      m_home(m_frame),
      m_expandedSize(placement::kNoteSize),
      m_minimumSize(placement::kMinimumNoteSize),
      m_settled(m_services.clock, m_services.scheduler, settledWindow()) {
  setAttribute(Qt::WA_TranslucentBackground);
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_AlwaysShowToolTips);  // it rarely has the keyboard
  setAttribute(Qt::WA_QuitOnClose, false);
  setWindowTitle(tr("Tarnwick Note"));
  buildContent();
  resize(int(m_frame.width), int(m_frame.height));
  applyDisplayMode();
  setMinimumSize(int(m_minimumSize.width), int(m_minimumSize.height));
  applySharing();
  observe();
}

TornNotePanel::~TornNotePanel() {
  // The view goes first: what loses the keyboard in it asks the hover bridge, which is ours.
  if (auto* focused = focusWidget()) focused->clearFocus();
  delete m_hosting;
}

void TornNotePanel::buildContent() {
  TornStickyNoteView::Window view;
  view.frame = [this] { return m_frame; };
  view.setAlpha = [this](double alpha) { setAlpha(alpha); };
  view.fadeIn = [this] { fadeTo(restingAlpha(), kAbortFade); };
  view.pointer = [this] { return m_ports.otherWindows.pointer().position; };
  view.redock = [this] { m_callbacks.redock(); };
  view.setMask = [this](const QRegion& mask) {
    if (mask.isEmpty()) {
      clearMask();
    } else {
      setMask(mask);
    }
  };
  m_noteView = new TornStickyNoteView(m_task, m_services, m_hover, std::move(view));

  DraggableHostingView::Window window;
  window.mouseDown = [this] {
    if (windowHandle()) m_ports.windowServer.activate(*windowHandle());
  };
  window.frame = [this] { return m_frame; };
  window.setFrame = [this](const DesktopRect& frame) { setFrame(frame); };
  window.sawOrigin = [this](const QPointF& origin) {
    const auto wanted = m_services.screens.space().toQt(m_frame).topLeft();
    if (std::hypot(origin.x() - wanted.x(), origin.y() - wanted.y()) < 1.5) return;
    m_frame = m_services.screens.space().fromQt(QRectF(origin, QSizeF(m_frame.width, m_frame.height)));
  };
  window.edgesAt = [this](const QPointF& point) {
    return m_isTucked ? Qt::Edges() : m_noteView->face().edgesAt(point);
  };
  window.minimumSize = [this] { return m_minimumSize; };
  m_hosting = new DraggableHostingView(m_noteView, std::move(window), this);
  m_hosting->onHoverChange = [this](bool isInside) {
    m_hoverWork = m_services.scheduler.post([this, isInside] { hoverChanged(isInside); });
  };
  m_hosting->onDragEnd = [this] { userMovedWindow(); };
}

void TornNotePanel::observe() {
  auto& center = m_services.center;
  connect(&center, &NotificationCenter::notePrivacyChanged, this, &TornNotePanel::applySharing);
  connect(&center, &NotificationCenter::taskDidUpdate, this, [this](const QUuid& id) {
    if (id != m_taskID) return;
    applySharing();
    adoptPins();
  });
  connect(&center, &NotificationCenter::ghostTick, this, &TornNotePanel::applyGhost);
  connect(&m_veil, &CaptureVeil::changed, this, &TornNotePanel::refreshVisibility);
  setUpPinning();
  connect(&center, &NotificationCenter::workspaceModeChanged, this, &TornNotePanel::workspaceModeChanged);
  connect(&center, &NotificationCenter::noteDisplayModeChanged, this, &TornNotePanel::applyDisplayMode);
}

void TornNotePanel::setUpPinning() {
  m_gitPinning.reset();
  m_appPinning = std::make_unique<AppPinning>(m_services, m_ports, m_taskID, *this);
  if (m_gitRepoPath) {
    m_gitPinning = std::make_unique<GitPinning>(m_services.center, *m_gitRepoPath, m_pinnedBundleID, *this);
  } else if (m_pinnedBundleID) {
    m_appPinning->start(*m_pinnedBundleID);
  }
}

void TornNotePanel::adoptPins() {
  const auto& record = m_task->record();
  if (record.pinnedBundleID == m_pinnedBundleID && record.gitRepoPath == m_gitRepoPath) return;
  m_pinnedBundleID = record.pinnedBundleID;
  m_gitRepoPath = record.gitRepoPath;
  const bool wasDocked = isDocked();
  setUpPinning();
  if (wasDocked) {
    setTucked(false, Animation::Immediate);
    setFrame(placement::broughtIntoView(m_home, m_services.screens.all()));
  }
  orderFront();
  dockIfWanted();
}

bool TornNotePanel::isDocked() const { return m_appPinning && m_appPinning->isDocked(); }

bool TornNotePanel::isMotionReduced() const { return m_services.workspace.isMotionReduced(); }

TornWindowFacts TornNotePanel::facts() const {
  TornWindowFacts facts;
  facts.id = m_taskID;
  facts.frame = m_frame;
  facts.isVisible = isVisible();
  facts.level = m_level;
  facts.isGhost = m_isGhost;
  facts.isTucked = m_isTucked;
  facts.isDocked = isDocked();
  facts.sharing = m_sharing;
  facts.opacity = m_alpha;
  return facts;
}

// --- Level, privacy, see-through ---

void TornNotePanel::applyDisplayMode() {
  const auto raw = m_services.defaults.text(keys::kNoteDisplayMode).value_or(QString());
  const auto mode = fromRawValue<NoteDisplayMode>(raw).value_or(NoteDisplayMode::alwaysOnTop);
  m_isGhost = mode == NoteDisplayMode::mouseThrough;
  applySharing();
  m_level = mode == NoteDisplayMode::desktop ? WindowLevel::Desktop : WindowLevel::Floating;
  if (!m_noteView->isCrushing()) setAlpha(restingAlpha());
  if (m_isGhost) {
    m_ghost.start();
  } else {
    m_ghost.stop();
  }
  m_noteView->setDashed(m_isGhost);
  applyToWindow();
  if (m_isGhost && m_isTucked) setTucked(false, Animation::Immediate);
}

void TornNotePanel::applyToWindow() {
  auto* window = windowHandle();
  if (!window) return;
  m_ports.windowServer.applyLevel(*window, m_level);
  m_ports.windowServer.setClickThrough(*window, m_isGhost ? ClickThrough::On : ClickThrough::Off);
  m_ports.windowServer.setSharing(*window, m_sharing);
  m_ports.windowServer.setOpacity(*window, m_alpha);
}

SharingType TornNotePanel::wantedSharing() const {
  const bool isHidden =
      m_task->isPrivate() || m_isGhost || AppNotesPrefs(m_services.defaults, m_services.center).hideFromCapture();
  return isHidden ? SharingType::None : SharingType::ReadOnly;
}

void TornNotePanel::applySharing() {
  m_sharing = wantedSharing();
  if (auto* window = windowHandle()) m_ports.windowServer.setSharing(*window, m_sharing);
  refreshVisibility();
}

double TornNotePanel::restingAlpha() const {
  return m_isGhost && m_services.screens.isComposited() ? kGhostAlpha : 1;
}

void TornNotePanel::applyGhost() {
  if (!m_isGhost || !isVisible()) return;
  const bool isGrabbed = m_ghost.isOptionDown();
  m_ports.windowServer.setClickThrough(*windowHandle(), isGrabbed ? ClickThrough::Off : ClickThrough::On);
  if (m_noteView->isCrushing() || !m_services.screens.isComposited()) return;
  const double target = isGrabbed ? 1.0 : m_frame.contains(m_ghost.mouse()) ? kGhostUnderPointerAlpha : kGhostAlpha;
  // A fade that just passes the wanted value would go on past it.
  const double heading = m_alphaFrames.isHeld() ? m_fade.target() : m_alpha;
  if (std::abs(heading - target) > kAlphaStep) fadeTo(target, kGhostFade);
}

void TornNotePanel::setAlpha(double alpha) {
  m_alphaFrames.cancel();
  m_alpha = alpha;
  if (auto* window = windowHandle()) m_ports.windowServer.setOpacity(*window, alpha);
}

void TornNotePanel::fadeTo(double alpha, std::chrono::milliseconds duration) {
  const auto now = m_services.clock.mediaTime();
  m_fade = Tween(m_alpha);
  m_fade.start(alpha, now, duration);
  m_alphaFrames = m_services.scheduler.frames([this](std::chrono::nanoseconds) {
    const auto moment = m_services.clock.mediaTime();
    m_alpha = m_fade.value(moment);
    if (auto* window = windowHandle()) m_ports.windowServer.setOpacity(*window, m_alpha);
    if (!m_fade.isRunning(moment)) m_alphaFrames.cancel();
  });
}

// --- Showing and placing ---

void TornNotePanel::orderFront() {
  m_isOrderedIn = true;
  refreshVisibility();
  if (isVisible()) m_ports.windowServer.raiseWithoutActivating(*windowHandle());
}

void TornNotePanel::orderOut() {
  m_isOrderedIn = false;
  refreshVisibility();
}

void TornNotePanel::refreshVisibility() {
  const bool isVeiled = m_sharing == SharingType::None && m_veil.isDrawn();
  const bool isWanted = m_isOrderedIn && !isVeiled;
  if (isWanted == isVisible()) return;
  if (!isWanted) {
    hide();
    // Nobody tells of a pointer that leaves a window by the window leaving.
    m_hoverWork.cancel();
    m_hover.setHovered(false);
    return;
  }
  winId();
  m_settled.willShow(*windowHandle());
  applyToWindow();
  applyGeometry();
  show();
  applyToWindow();
}

void TornNotePanel::dockIfWanted() { m_appPinning->dockIfInFront(); }

void TornNotePanel::makeKey() {
  // The keyboard goes to the note when it is in this program's hands; it is not taken from another one.
  const auto front = m_services.workspace.frontmost();
  const auto* focus = QGuiApplication::focusWindow();
  const bool isOurs = (focus && focus->isVisible()) || (front && isThisProgram(*front));
  if (!isVisible() || !isOurs) return;
  m_ports.windowServer.activate(*windowHandle());
}

void TornNotePanel::setFrame(const DesktopRect& frame) {
  m_frame = frame;
  applyGeometry();
}

void TornNotePanel::moveTo(DesktopPoint origin) {
  if (m_hosting->isDraggingWindow()) return;
  setFrame({origin.x, origin.y, m_frame.width, m_frame.height});
}

void TornNotePanel::askFor(const DesktopRect& frame) {
  m_settled.didAsk();
  const auto place = m_services.screens.space().toQt(frame);
  const QSize size(qRound(place.width()), qRound(place.height()));
  // Between whole scales Qt lets windows grow by two pixels only, counted from here.
  if (auto* window = windowHandle()) window->setBaseSize(size);
  setGeometry(QRect(QPoint(qRound(place.x()), qRound(place.y())), size));
}

void TornNotePanel::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  if (event->spontaneous()) geometryReported();
}

void TornNotePanel::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  m_hosting->setGeometry(rect());
  if (event->spontaneous()) geometryReported();
}

void TornNotePanel::geometryReported() { m_settled.reported(m_services.screens.space().fromQt(QRectF(geometry()))); }

SettledFrame::Window TornNotePanel::settledWindow() {
  return {[this] { return m_frame; }, [this] { return m_ports.windowServer.frameOf(*windowHandle()); },
          [this] { return m_hosting->isDraggingWindow() || m_sizeFrames.isHeld(); },
          [this](const DesktopRect& frame) { askFor(frame); },
          [this](const DesktopRect& frame) {
            m_frame = frame;
            userMovedWindow();
          }};
}

void TornNotePanel::userMovedWindow() {
  if (isDocked()) {
    m_appPinning->windowWasDragged();
  } else if (!m_isTucked) {
    m_home = m_frame;
    m_callbacks.frameSettled();
  }
}

void TornNotePanel::setHome(const DesktopRect& home) {
  m_home = home;
  m_expandedSize = home.size();
  setFrame(placement::broughtIntoView(home, m_services.screens.all()));
}

void TornNotePanel::screensChanged(const DesktopSpace& before) {
  const auto after = m_services.screens.space();
  m_home = after.fromQt(before.toQt(m_home));
  m_frame = after.fromQt(before.toQt(m_frame));
  if (isDocked()) {
    m_appPinning->screensChanged();
  } else {
    const auto shown = m_isTucked ? placement::keepingTopRight(m_home, m_frame.size()) : m_home;
    setFrame(placement::broughtIntoView(shown, m_services.screens.all()));
  }
}

void TornNotePanel::compositingChanged() {
  m_noteView->refresh();
  if (m_isGhost && !m_noteView->isCrushing()) setAlpha(restingAlpha());
}

void TornNotePanel::closeEvent(QCloseEvent* event) {
  // Only putting it back on the board or crushing it takes a note off the desktop.
  event->ignore();
}

// --- Folding into a tab ---

bool TornNotePanel::foldsNow() const {
  return isDocked() && !m_isGhost && AppNotesPrefs(m_services.defaults, m_services.center).tuck();
}

void TornNotePanel::didDock() {
  if (foldsNow() && !m_hover.isHovered()) setTucked(true, Animation::Immediate);
}

void TornNotePanel::hoverChanged(bool isInside) {
  m_hover.setHovered(isInside);
  if (!foldsNow()) return;
  m_collapseWork.cancel();
  if (isInside) {
    setTucked(false, Animation::Animated);
  } else {
    scheduleTuck();
  }
}

void TornNotePanel::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::ActivationChange) return;
  const bool isKey = isActiveWindow();
  const bool wasKey = std::exchange(m_wasKey, isKey);
  if (wasKey && !isKey) resignKey();
}

void TornNotePanel::resignKey() {
  if (foldsNow() && !m_hover.isHovered()) scheduleTuck();
}

void TornNotePanel::scheduleTuck() {
  m_collapseWork = m_services.scheduler.after(kTuckDelay, [this] {
    if (foldsNow() && !m_hover.isHovered() && !isActiveWindow()) setTucked(true, Animation::Animated);
  });
}

void TornNotePanel::setTucked(bool isTucked, Animation animation) {
  if (isTucked == m_isTucked) return;
  m_isTucked = isTucked;
  const bool isAnimated = animation == Animation::Animated && !isMotionReduced() && isVisible();
  if (isTucked) {
    // A tab that is still unfolding has no size of its own yet.
    if (!m_sizeFrames.isHeld()) m_expandedSize = m_frame.size();
    m_minimumSize = placement::kTabSize;
    setMinimumSize(int(m_minimumSize.width), int(m_minimumSize.height));
    m_hover.setTucked(true);
  }
  const auto target = isTucked ? placement::kTabSize : m_expandedSize;
  const auto finish = [this, isTucked] {
    if (isTucked) return;
    m_minimumSize = placement::kMinimumNoteSize;
    setMinimumSize(int(m_minimumSize.width), int(m_minimumSize.height));
    m_hover.setTucked(false);
  };
  if (isAnimated) {
    animateSize(target, finish);
    return;
  }
  m_sizeFrames.cancel();
  setFrame(placement::keepingTopRight(m_frame, target));
  finish();
}

void TornNotePanel::animateSize(DesktopSize target, std::function<void()> finished) {
  const auto from = m_frame.size();
  const auto start = m_services.clock.mediaTime();
  m_sizeFrames = m_services.scheduler.frames(
      [this, from, target, start, finished = std::move(finished)](std::chrono::nanoseconds) {
        const double way = std::chrono::duration<double>(m_services.clock.mediaTime() - start) / kTuckTime;
        const double eased = easeInOut(way);
        const DesktopSize size{std::round(from.width + (target.width - from.width) * eased),
                               std::round(from.height + (target.height - from.height) * eased)};
        setFrame(placement::keepingTopRight(m_frame, way >= 1 ? target : size));
        if (way < 1) return;
        const auto finish = finished;
        m_sizeFrames.cancel();
        finish();
      });
}

// --- Deep work ---

void TornNotePanel::workspaceModeChanged(const QString& mode) {
  if (mode == QStringLiteral("deepWork")) {
    m_wasVisibleBeforeDeepWork = m_isOrderedIn;
    if (!m_isDaily3) orderOut();
  } else if (m_wasVisibleBeforeDeepWork) {
    orderFront();
  }
}

}  // namespace tarnwick
