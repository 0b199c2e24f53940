// SPDX-License-Identifier: MIT
#include "board/UndoToast.h"

#include "effects/PixmapCache.h"
#include "effects/SoftShadow.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"
#include "effects/WadArt.h"
#include "model/Color.h"
#include "platform/Clock.h"
#include "platform/Scheduler.h"
#include "platform/Workspace.h"

#include <QAccessible>
#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace tarnwick {
namespace {

using namespace std::chrono_literals;

QFont sized(tokens::Type role, int pixels, QFont::Weight weight) {
  QFont font = tokens::font(role);
  font.setPixelSize(pixels);
  font.setWeight(weight);
  return font;
}

}  // namespace

namespace {
constexpr int kToastHeight = 34;
constexpr int kToastFloor = 46;
constexpr int kToastMargin = 26;  // room for its shadow
constexpr double kToastRise = 8;
}  // namespace

UndoToast::UndoToast(const Clock& clock, Scheduler& scheduler, const Workspace& workspace, QWidget* parent)
    : QWidget(parent), m_clock(clock), m_scheduler(scheduler), m_workspace(workspace) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  hide();
}

void UndoToast::show(Kind kind) {
  m_kind = kind;
  m_text = kind == Kind::Crushed ? tr("Crushed — ⌘Z to undo") : tr("Restored");
  setAccessibleName(m_text);
  place();
  QWidget::show();
  raise();
  // A toast that is up already only changes its words.
  m_presence.start(1, m_clock.mediaTime(), m_workspace.isMotionReduced() ? 120ms : 180ms);
  run();
  const auto stay = kind == Kind::Crushed ? 3500ms : 1500ms;
  m_stay = m_scheduler.after(stay, [this] { leave(); });
  if (QAccessible::isActive()) {
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
  }
  update();
}

void UndoToast::leave() {
  m_stay.cancel();
  m_text.clear();
  m_presence.start(0, m_clock.mediaTime(), m_workspace.isMotionReduced() ? 120ms : 140ms, Glide::Curve::EaseIn);
  run();
}

void UndoToast::drop() {
  m_stay.cancel();
  m_frames.cancel();
  m_text.clear();
  m_presence.jumpTo(0);
  hide();
}

void UndoToast::run() {
  m_frames = m_scheduler.frames([this](std::chrono::nanoseconds now) {
    if (!m_presence.isRunning(now)) {
      if (m_presence.target() <= 0) hide();
      m_frames.cancel();
    }
    update();
  });
}

void UndoToast::place() {
  const double icon = m_kind == Kind::Crushed ? 18 : 14;
  const double words = QFontMetricsF(sized(tokens::Type::RowTitle, 13, QFont::DemiBold)).horizontalAdvance(m_text);
  const int w = static_cast<int>(std::ceil(11 + icon + 8 + words + 14)) + 2 * kToastMargin;
  const QSize board = parentWidget()->size();
  setGeometry((board.width() - w) / 2, board.height() - kToastFloor - kToastHeight - kToastMargin, w,
              kToastHeight + 2 * kToastMargin);
}

void UndoToast::paintEvent(QPaintEvent* /*event*/) {
  const double presence = m_presence.at(m_clock.mediaTime());
  if (presence <= 0) return;
  const QString words = m_kind == Kind::Crushed ? tr("Crushed — ⌘Z to undo") : tr("Restored");
  QPainter painter(this);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  painter.setOpacity(presence);
  const double sunk = m_workspace.isMotionReduced() || m_presence.target() <= 0 ? 0 : kToastRise * (1 - presence);
  const QRectF pill = QRectF(rect()).adjusted(kToastMargin, kToastMargin + sunk, -kToastMargin, -kToastMargin + sunk);
  paintBoxShadow(painter, pill, 17, 17, 6, 9, 0.50);
  painter.setPen(QPen(tokens::white(0.12), 1));
  painter.setBrush(tokens::faded(QColor::fromRgb(0x0A0B0E), 0.94));
  painter.drawRoundedRect(pill.adjusted(-0.5, -0.5, 0.5, 0.5), 17.5, 17.5);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const double side = m_kind == Kind::Crushed ? 18 : 14;
  const QRectF sign(isMirrored ? pill.right() - 11 - side : pill.left() + 11, pill.center().y() - side / 2, side, side);
  if (m_kind == Kind::Crushed) {
    painter.drawImage(sign, WadArt::image(Color::fromHex(kPaperPalette[0]), 18, deviceScale(painter)));
  } else {
    Symbols::paint(painter, QStringLiteral("undo"), sign, QColor::fromRgb(tokens::kText));
  }
  painter.setFont(sized(tokens::Type::RowTitle, 13, QFont::DemiBold));
  painter.setPen(QColor::fromRgb(tokens::kText));
  const QRectF text = isMirrored ? pill.adjusted(14, 0, -19 - side, 0) : pill.adjusted(19 + side, 0, -12, 0);
  painter.drawText(text, int(Qt::AlignVCenter) | int(isMirrored ? Qt::AlignRight : Qt::AlignLeft), words);
}

}  // namespace tarnwick
