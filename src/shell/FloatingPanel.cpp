// SPDX-License-Identifier: MIT
#include "shell/FloatingPanel.h"

#include "board/BoardServices.h"
#include "effects/SoftShadow.h"
#include "effects/Tokens.h"
#include "model/AppNotesPrefs.h"
#include "model/NotificationCenter.h"
#include "platform/Clock.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"
#include "platform/Workspace.h"
#include "shell/CaptureVeil.h"
#include "shell/Placement.h"
#include "shell/TornNotePanel.h"

#include <QCloseEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QThreadPool>
#include <QWindow>

namespace tarnwick {

namespace {

constexpr QRgb kOpaqueGround = 0xFF1E2229;
constexpr double kShadowOffset = 8;
constexpr double kShadowSigma = 14;
constexpr double kShadowAlpha = 0.35;

void paintShadowAround(QPainter& painter, const QRectF& board) {
  constexpr double kRadius = FloatingPanel::kCornerRadius;
  paintBoxShadow(painter, board, kRadius, kRadius, kShadowOffset, kShadowSigma, kShadowAlpha);
}

QPainterPath rounded(const QRectF& rect, double radius) {
  QPainterPath path;
  path.addRoundedRect(rect, radius, radius);
  return path;
}

}  // namespace

FloatingPanel::FloatingPanel(const BoardServices& services, const ShellPorts& ports, std::unique_ptr<QWidget> content)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
      m_services(services),
      m_ports(ports),
      m_content(content.release()),
      m_settled(services.clock, services.scheduler, settledWindow()),
      m_screens(services.screens.all()),
      m_space(services.screens.space()),
      m_ghost(ports.otherWindows, services.scheduler, services.center),
      m_veil(std::make_unique<CaptureVeil>(ports.captureWatch, services.scheduler)),
      m_isComposited(services.screens.isComposited()) {
  setAttribute(Qt::WA_TranslucentBackground);
  setAttribute(Qt::WA_AlwaysShowToolTips);
  setAttribute(Qt::WA_QuitOnClose, false);
  setWindowTitle(tr("Tarnwick"));
  m_content->setParent(this);
  applyCompositing();
  readRememberedFrames();
  applySharing();
  connect(&m_services.center, &NotificationCenter::notePrivacyChanged, this, &FloatingPanel::applySharing);
  connect(m_veil.get(), &CaptureVeil::changed, this, [this] {
    if (isVeiled()) orderOut();
  });
  m_screensObserver = m_services.screens.onChanged([this] { screensChanged(); });
}

FloatingPanel::~FloatingPanel() = default;

// --- Presenting and dismissing ---

void FloatingPanel::drawAhead() const {
  if (!m_isComposited) return;
  QThreadPool::globalInstance()->start([scale = devicePixelRatioF()] {
    QImage none(1, 1, QImage::Format_ARGB32_Premultiplied);
    none.setDevicePixelRatio(scale);
    QPainter painter(&none);
    paintShadowAround(painter, QRectF(0, 0, kSide, kSide));
  });
}

void FloatingPanel::toggle() {
  if (isPresented() && !m_isDismissing) {
    dismiss();
  } else {
    present();
  }
}

void FloatingPanel::present() {
  m_isDismissing = false;
  if (m_motion && m_motion->kind == MotionKind::Tuck) endMotion();
  if (!m_isPlaced) drawAhead();
  const auto pivot = anchorToStatusItem();
  if (isVeiled()) return;
  const bool isShownWhole = isVisible() && m_alpha >= 1;
  const bool moves = !isShownWhole && m_isComposited;
  if (moves) setAlpha(0);
  showInFront();
  if (moves) {
    const auto scale = m_services.workspace.isMotionReduced() ? MotionScale::FadeOnly : MotionScale::Full;
    startMotion({MotionKind::Drop, scale, pivot, 0});
  } else {
    setAlpha(1);
  }
  // Only now: it asks the server, which is busy with the window, while the picture could be drawn.
  m_ports.windowServer.activate(*windowHandle());
  Q_EMIT presented();
}

void FloatingPanel::dismiss() {
  if (!isVisible() || m_isDismissing) return;
  m_isDismissing = true;
  if (!m_isComposited) {
    orderOut();
    return;
  }
  const auto scale = m_services.workspace.isMotionReduced() ? MotionScale::FadeOnly : MotionScale::Full;
  startMotion({MotionKind::Tuck, scale, tuckPivot(), m_alpha});
}

void FloatingPanel::orderOut() {
  endMotion();
  hide();
  m_isDismissing = false;
  m_dragOffset.reset();
  m_settled.stop();
  setAlpha(1);
}

void FloatingPanel::showInFront() {
  if (!isVisible()) {
    winId();
    auto& window = *windowHandle();
    m_ports.windowServer.applyLevel(window, WindowLevel::Floating);
    m_ports.windowServer.setOpacity(window, m_alpha);
    m_settled.willShow(window);
    applyGeometry();
    // The window manager frames the window while the board is still being drawn.
    m_content->hide();
    show();
    m_content->show();
    m_ports.windowServer.applyLevel(window, WindowLevel::Floating);
    m_ports.windowServer.setSharing(window, m_sharing);
    applyCompositing();
  }
}

QPointF FloatingPanel::pivotFor(const DesktopRect& anchor) const {
  // Under a panel at the bottom of the screen the board grows upwards out of it.
  const bool isBelow = anchor.midY() < m_frame.minY();
  return {rim() + placement::pivotX(anchor.midX(), m_frame.minX(), m_frame.width), double(rim() + (isBelow ? kSide : 0))};
}

QPointF FloatingPanel::anchorToStatusItem() {
  const auto anchor = m_anchorSource ? m_anchorSource() : std::nullopt;
  const auto wanted = frameByRule(anchor);
  // Without an anchor a board that is seen keeps its place.
  if (wanted && (anchor || !isVisible())) {
    setFrame(*wanted);
    m_isPlaced = true;
    if (anchor) return pivotFor(*anchor);
  }
  return {rim() + kSide / 2.0, double(rim())};
}

std::optional<DesktopRect> FloatingPanel::frameByRule(const std::optional<DesktopRect>& anchor) const {
  const auto screens = m_services.screens.all();
  if (screens.empty()) return std::nullopt;
  const auto origin =
      anchor ? placement::boardUnderAnchor(*anchor, m_services.screens.screenAt(anchor->center()).visibleFrame,
                                           m_frame.size())
             : placement::boardWithoutAnchor(screens.front().visibleFrame, m_frame.size());
  return DesktopRect{origin.x, origin.y, m_frame.width, m_frame.height};
}

DesktopRect FloatingPanel::boardFrame() const {
  if (m_isPlaced) return m_frame;
  return frameByRule(m_anchorSource ? m_anchorSource() : std::nullopt).value_or(m_frame);
}

QPointF FloatingPanel::tuckPivot() const {
  const auto anchor = m_anchorSource ? m_anchorSource() : std::nullopt;
  return anchor ? pivotFor(*anchor) : QPointF(rim() + kSide / 2.0, rim());
}

// --- Motion ---

void FloatingPanel::startMotion(BoardMotion motion) {
  if (motion.scale == MotionScale::Full && m_picture.isNull()) {
    const double scale = devicePixelRatioF();
    m_picture = QPixmap(size() * scale);
    m_picture.setDevicePixelRatio(scale);
    m_picture.fill(Qt::transparent);
    {
      QPainter painter(&m_picture);
      paintShadowAround(painter, boardRect());
    }
    m_content->render(&m_picture, boardRect().topLeft(), {}, QWidget::DrawChildren);
    // The content stays alive and keeps the keyboard, only out of sight: its picture moves in its stead.
    m_content->move(width() + kSide, 0);
  }
  m_motion = motion;
  m_motionStart = m_services.clock.mediaTime();
  m_frames = m_services.scheduler.frames([this](std::chrono::nanoseconds) { stepMotion(); });
  update();
}

double FloatingPanel::motionTime() const {
  return std::chrono::duration<double>(m_services.clock.mediaTime() - m_motionStart).count();
}

void FloatingPanel::stepMotion() {
  if (!m_motion) return;
  const double seconds = motionTime();
  setAlpha(m_motion->alpha(seconds));
  if (m_motion->scale == MotionScale::Full) update();
  if (seconds < m_motion->duration()) return;
  const bool isTucked = m_motion->kind == MotionKind::Tuck;
  endMotion();
  if (!isTucked) {
    setAlpha(1);
  } else if (m_isDismissing) {
    orderOut();
  }
}

void FloatingPanel::endMotion() {
  m_frames.cancel();
  m_motion.reset();
  m_picture = {};
  m_content->move(rim(), rim());
  update();
}

void FloatingPanel::setAlpha(double alpha) {
  m_alpha = alpha;
  if (auto* window = windowHandle()) m_ports.windowServer.setOpacity(*window, alpha);
}

// --- Window ---

QRect FloatingPanel::boardRect() const { return {rim(), rim(), kSide, kSide}; }

int FloatingPanel::rim() const { return m_isComposited ? kShadowMargin : 1; }

void FloatingPanel::setFrame(const DesktopRect& frame) {
  m_frame = frame;
  applyGeometry();
}

void FloatingPanel::askFor(const DesktopRect& frame) {
  m_settled.didAsk();
  const auto place = m_services.screens.space().toQt(frame);
  const QSize size(kSide + 2 * rim(), kSide + 2 * rim());
  // Between whole scales Qt lets windows grow by two pixels only, counted from here.
  if (auto* window = windowHandle()) window->setBaseSize(size);
  setGeometry(QRect(QPoint(qRound(place.x()) - rim(), qRound(place.y()) - rim()), size));
}

SettledFrame::Window FloatingPanel::settledWindow() {
  return {[this] { return m_frame; },
          [this] {
            const auto seen = m_ports.windowServer.frameOf(*windowHandle());
            return seen ? std::optional(boardInside(*seen)) : std::nullopt;
          },
          [this] { return m_dragOffset.has_value(); }, [this](const DesktopRect& frame) { askFor(frame); },
          [this](const DesktopRect& frame) { m_frame = frame; }};
}

DesktopRect FloatingPanel::boardInside(const DesktopRect& window) const {
  return {window.midX() - kSide / 2.0, window.midY() - kSide / 2.0, kSide, kSide};
}

void FloatingPanel::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  if (event->spontaneous()) m_settled.reported(boardInside(m_services.screens.space().fromQt(QRectF(geometry()))));
}

void FloatingPanel::applyCompositing() {
  m_isComposited = m_services.screens.isComposited();
  applyGeometry();
  if (!m_motion || m_picture.isNull()) m_content->setGeometry(rim(), rim(), kSide, kSide);
  if (m_isComposited) {
    clearMask();
  } else {
    setMask(QRegion(rounded(QRectF(rect()), kCornerRadius + 1).toFillPolygon().toPolygon()));
  }
  if (auto* window = windowHandle()) {
    const int margin = m_isComposited ? kShadowMargin : 0;
    m_ports.windowServer.setShadowMargins(*window, {margin, margin, margin, margin});
  }
}

bool FloatingPanel::isVeiled() const { return m_sharing == SharingType::None && m_veil->isDrawn(); }

void FloatingPanel::applySharing() {
  const bool isHidden = AppNotesPrefs(m_services.defaults, m_services.center).hideFromCapture();
  m_sharing = isHidden ? SharingType::None : SharingType::ReadOnly;
  if (auto* window = windowHandle()) m_ports.windowServer.setSharing(*window, m_sharing);
  if (isVeiled()) orderOut();
}

void FloatingPanel::screensChanged() {
  if (m_isComposited != m_services.screens.isComposited()) compositingChanged();
  if (m_screens == m_services.screens.all()) return;
  m_screens = m_services.screens.all();
  const auto before = m_space;
  m_space = m_services.screens.space();
  m_frame = placement::broughtIntoView(m_space.fromQt(before.toQt(m_frame)), m_screens);
  applyCompositing();
  for (const auto& [id, panel] : m_tornPanels) panel->screensChanged(before);
  // Their places are counted from the primary screen's lower edge, which may be another one now.
  rememberFramesLater();
}

void FloatingPanel::compositingChanged() {
  endMotion();
  applyCompositing();
  if (!m_isComposited && isVisible() && !m_isDismissing) setAlpha(1);
  for (const auto& [id, panel] : m_tornPanels) panel->compositingChanged();
}

void FloatingPanel::closeEvent(QCloseEvent* event) {
  event->ignore();
  orderOut();
}

void FloatingPanel::paintEvent(QPaintEvent*) {
  // Its first picture shall be seen; until the first frame is due it would be transparent.
  if (m_motion && m_alpha <= 0) setAlpha(m_motion->alpha(motionTime()));
  QPainter painter(this);
  if (!m_isComposited) {
    painter.fillRect(rect(), Qt::black);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(rounded(boardRect(), kCornerRadius), QColor::fromRgb(kOpaqueGround));
    return;
  }
  if (m_picture.isNull() || !m_motion) {
    paintShadowAround(painter, boardRect());
    return;
  }
  painter.setTransform(m_motion->transform(motionTime()), true);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(0, 0, m_picture);
}

void FloatingPanel::forwardMouse(QMouseEvent* event) {
  if (!m_pressed) return;
  QMouseEvent copy(event->type(), m_pressed->mapFrom(this, event->position()), event->globalPosition(), event->button(),
                   event->buttons(), event->modifiers());
  QCoreApplication::sendEvent(m_pressed, &copy);
}

void FloatingPanel::mousePressEvent(QMouseEvent* event) {
  if (windowHandle()) m_ports.windowServer.activate(*windowHandle());
  if (!m_picture.isNull() && !m_isDismissing) {
    // Whoever is quicker than the spring means what lies there when it has come to rest.
    endMotion();
    setAlpha(1);
    m_pressed = childAt(event->position().toPoint());
    forwardMouse(event);
    return;
  }
  if (event->button() != Qt::LeftButton) return;
  const auto corner = event->globalPosition() - event->position() + QPointF(rim(), rim());
  m_dragOffset = event->globalPosition() - corner;
}

void FloatingPanel::mouseMoveEvent(QMouseEvent* event) {
  if (m_pressed) {
    forwardMouse(event);
  } else if (m_dragOffset && (event->buttons() & Qt::LeftButton)) {
    const auto corner = event->globalPosition() - *m_dragOffset;
    setFrame(m_services.screens.space().fromQt(QRectF(corner, QSizeF(kSide, kSide))));
  }
}

void FloatingPanel::mouseReleaseEvent(QMouseEvent* event) {
  forwardMouse(event);
  m_pressed.clear();
  m_dragOffset.reset();
}

}  // namespace tarnwick
