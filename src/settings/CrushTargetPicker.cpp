// SPDX-License-Identifier: MIT
#include "settings/CrushTargetPicker.h"

#include "effects/Tokens.h"

#include <QCursor>
#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>

namespace tarnwick {

namespace {

constexpr QSize kWordsMargin(24, 14);
constexpr QRgb kDim = qRgba(0, 0, 0, 90);
constexpr QRgb kPlate = 0xFF1E2229;

QRect allScreens(const Screens& screens) {
  QRect all;
  for (const auto& screen : screens.all()) all |= screens.space().toQt(screen.frame).toAlignedRect();
  return all;
}

}  // namespace

CrushTargetPicker::CrushTargetPicker(const Screens& screens, double tile)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint | Qt::WindowStaysOnTopHint),
      m_screens(screens),
      m_tile(tile),
      m_isSeeThrough(screens.isComposited()) {
  setAttribute(Qt::WA_TranslucentBackground, m_isSeeThrough);
  setAttribute(Qt::WA_QuitOnClose, false);
  setMouseTracking(true);
  setCursor(Qt::CrossCursor);
  setAccessibleName(tr("Click where crushed notes should land. Escape leaves it as it is."));
  const auto all = screens.all();
  const QRect primary =
      all.empty() ? QRect() : screens.space().toQt(all.front().visibleFrame).toAlignedRect();
  const QFontMetrics metrics(tokens::font(tokens::Type::Body));
  const QSize words(metrics.horizontalAdvance(accessibleName()) + 2 * kWordsMargin.width(),
                    metrics.height() + 2 * kWordsMargin.height());
  m_wordsPlace = QRect(primary.center().x() - words.width() / 2, primary.top() + primary.height() / 6, words.width(),
                       words.height());
  setGeometry(m_isSeeThrough ? allScreens(screens) : m_wordsPlace);
}

void CrushTargetPicker::begin() {
  m_pointer = QCursor::pos();
  show();
  raise();
  // No window manager hands the keyboard to such a window, and a click beside the words counts too.
  grabMouse(Qt::CrossCursor);
  grabKeyboard();
}

QRectF CrushTargetPicker::squareAt(const QPointF& global) const {
  return {global.x() - m_tile / 2, global.y() - m_tile / 2, m_tile, m_tile};
}

QRect CrushTargetPicker::wordsRect() const { return m_wordsPlace.translated(-geometry().topLeft()); }

void CrushTargetPicker::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (m_isSeeThrough) painter.fillRect(rect(), QColor::fromRgba(kDim));
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor::fromRgba(kPlate));
  painter.drawRoundedRect(wordsRect(), m_isSeeThrough ? 12 : 0, m_isSeeThrough ? 12 : 0);
  painter.setFont(tokens::font(tokens::Type::Body));
  painter.setPen(Qt::white);
  painter.drawText(wordsRect(), Qt::AlignCenter, accessibleName());
  if (!m_isSeeThrough) return;
  painter.setBrush(QColor(255, 255, 255, 40));
  painter.setPen(QPen(Qt::white, 1.5));
  painter.drawRoundedRect(squareAt(m_pointer - QPointF(geometry().topLeft())), 8, 8);
}

void CrushTargetPicker::mouseMoveEvent(QMouseEvent* event) {
  m_pointer = event->globalPosition();
  if (m_isSeeThrough) update();
}

void CrushTargetPicker::mousePressEvent(QMouseEvent* event) {
  event->accept();
  if (event->button() != Qt::LeftButton) return;
  Q_EMIT picked(m_screens.space().fromQt(squareAt(event->globalPosition())));
}

// The release must not reach what lies below.
void CrushTargetPicker::mouseReleaseEvent(QMouseEvent* event) {
  event->accept();
  end();
}

void CrushTargetPicker::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) end();
}

void CrushTargetPicker::end() {
  if (!isVisible()) return;
  releaseMouse();
  releaseKeyboard();
  hide();
  Q_EMIT finished();
}

}  // namespace tarnwick
