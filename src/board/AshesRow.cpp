// SPDX-License-Identifier: MIT
#include "board/AshesRow.h"

#include "effects/PaintedButton.h"
#include "effects/PaperSheet.h"
#include "effects/PixmapCache.h"
#include "effects/SoftShadow.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"
#include "model/Color.h"
#include "model/StickyChecklist.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <random>

namespace tarnwick {
namespace {

constexpr double kWidth = 362;

class ReviveButton final : public PaintedButton {
 public:
  explicit ReviveButton(QWidget* parent) : PaintedButton(parent) {
    setFont(tokens::font(tokens::Type::RowTitle));
    setHalo({7, 7, 0, 0, 0, 0});
  }
  [[nodiscard]] QSize sizeHint() const override {
    return {static_cast<int>(std::ceil(8 + 13 + 5 + QFontMetricsF(font()).horizontalAdvance(text()) + 10)), 28};
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor accent = QColor::fromRgb(tokens::kAccent);
    const bool isLit = isHovered() || isDown();
    const QColor front = isLit ? QColor::fromRgb(tokens::kOnAccent) : accent;
    painter.setPen(Qt::NoPen);
    painter.setBrush(isDown() ? QColor::fromRgb(tokens::kAccentPressed) : isLit ? accent : tokens::faded(accent, 0.12));
    painter.drawRoundedRect(rect(), 7, 7);
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    Symbols::paint(painter, QStringLiteral("revive"), QRectF(isMirrored ? width() - 21 : 8, 7.5, 13, 13), front);
    painter.setFont(font());
    painter.setPen(front);
    painter.drawText(isMirrored ? rect().adjusted(10, 0, -26, 0) : rect().adjusted(26, 0, -6, 0),
                     int(Qt::AlignVCenter) | int(isMirrored ? Qt::AlignRight : Qt::AlignLeft), text());
  }
};

QString oneLine(const Task& task) {
  QStringList words;
  for (const QString& line : StickyChecklist::lines(task.text())) {
    const QString label = StickyChecklist::isChecklistLine(line) ? StickyChecklist::label(line) : line.trimmed();
    if (!label.isEmpty()) words << label;
  }
  return words.join(QStringLiteral(" · "));
}

double turnOf(const Task& task) {
  static constexpr std::array kTurns{-0.5, 0.4, -0.3, 0.5};
  return kTurns[paperSeed(task.id()) % kTurns.size()];
}

}  // namespace

AshesRow::AshesRow(QWidget* parent) : QWidget(parent), m_revive(new ReviveButton(this)) {
  m_revive->setText(tr("Revive"));
  resize(390, kHeight + 2 * kMargin);
  connect(m_revive, &QAbstractButton::clicked, this, [this] {
    if (const TaskPtr task = m_task) Q_EMIT reviveRequested(task);
  });
}

void AshesRow::setTask(const TaskPtr& task) {
  setVisible(task != nullptr);
  if (task == m_task) return;
  m_task = task;
  m_scrap = {};
  if (task) {
    setAccessibleName(oneLine(*task));
    m_revive->setAccessibleName(tr("Revive"));
    m_revive->setAccessibleDescription(oneLine(*task));
  }
  update();
}

void AshesRow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const QSize size = m_revive->sizeHint();
  const int x = layoutDirection() == Qt::RightToLeft ? 14 + 12 : width() - 14 - 12 - size.width();
  m_revive->setGeometry(x, kMargin + 11, size.width(), size.height());
}

QPixmap AshesRow::scrap(double scale) const {
  QPixmap pixmap(size() * scale);
  pixmap.setDevicePixelRatio(scale);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(14, kMargin);
  const double w = kWidth;
  const double h = kHeight;
  std::minstd_rand random(paperSeed(m_task->id()) | 1u);
  std::uniform_real_distribution<double> unit(0, 1);
  const auto q = [&] { return unit(random); };

  QPolygonF outline;
  const auto bite = [&] { return 1.5 + q() * 3.2 + (q() < 0.12 ? 2.5 : 0); };
  for (double x = 3; x < w - 3; x += 6 + q() * 9) outline << QPointF(x, bite());
  for (double y = 5; y < h - 4; y += 4 + q() * 5) outline << QPointF(w - 1.5 - q() * 4, y);
  for (double x = w - 4; x > 3; x -= 6 + q() * 9) outline << QPointF(x, h - bite());
  for (double y = h - 5; y > 4; y -= 4 + q() * 5) outline << QPointF(1.5 + q() * 4, y);
  QPainterPath path;
  path.addPolygon(outline);
  path.closeSubpath();

  for (const double drop : {4.0, 3.0, 2.0}) painter.fillPath(path.translated(0, drop), tokens::black(0.18));
  const QColor paper = Color::fromHex(m_task->colorHex());
  painter.save();
  painter.setClipPath(path);
  const QColor charred =
      Color::blend(Color::blend(paper, QColor::fromRgb(0x38322D), 0.90), QColor::fromRgb(0x1D1917), 0.42);
  painter.fillRect(QRectF(0, 0, w, h), charred);
  painter.setPen(Qt::NoPen);
  for (int i = 0; i < 10; ++i) {
    const QPointF center(q() * w, q() * h);
    const double rx = 26 + q() * 44;
    const double ry = 12 + q() * 14;
    const QColor stain = q() < 0.5 ? QColor(Qt::black) : QColor::fromRgb(0x6B5A4C);
    painter.save();
    painter.translate(center);
    painter.scale(1, ry / rx);
    QRadialGradient cloud(0, 0, rx);
    cloud.setColorAt(0, tokens::faded(stain, 0.12 + q() * 0.12));
    cloud.setColorAt(1, tokens::faded(stain, 0));
    painter.setBrush(cloud);
    painter.drawEllipse(QPointF(0, 0), rx, rx);
    painter.restore();
  }
  for (int i = 0; i < 26; ++i) {
    const QPointF at(q() * w, q() * h);
    const QColor flake = q() < 0.4 ? QColor::fromRgb(0x9C9086) : QColor::fromRgb(0x0D0B0A);
    painter.setPen(QPen(tokens::faded(flake, 0.2 + q() * 0.3), 0.8));
    painter.drawLine(at, at + QPointF(1 + q() * 3, q() * 1.5));
  }
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  QLinearGradient rest(isMirrored ? w : 0, 0, isMirrored ? 0 : w, 0);
  rest.setColorAt(0, tokens::faded(paper, 0.95));
  rest.setColorAt(0.022, tokens::faded(paper, 0.85));
  rest.setColorAt(0.042, tokens::faded(QColor::fromRgb(0x4A250C), 0.9));
  rest.setColorAt(0.083, tokens::faded(QColor::fromRgb(0x120A06), 0));
  painter.fillRect(QRectF(0, 0, w, h), rest);
  painter.restore();

  painter.strokePath(path, QPen(QColor::fromRgb(0x0C0908), 1.6));
  QList<qreal> glowing;
  for (int k = 0; k < 4; ++k) glowing << 3 + q() * 15 << 40 + q() * 130;
  const auto ember = [&](double width, double alpha) {
    QPen pen(tokens::faded(QColor::fromRgb(tokens::kEmber), alpha), width);
    QList<qreal> pattern;
    for (const double length : glowing) pattern << length / width;
    pen.setDashPattern(pattern);
    pen.setDashOffset(static_cast<double>(paperSeed(m_task->id()) % 200) / width);
    pen.setCapStyle(width > 1 ? Qt::RoundCap : Qt::FlatCap);
    pen.setJoinStyle(Qt::RoundJoin);
    painter.strokePath(path, pen);
  };
  for (const double width : {7.0, 5.5, 4.0, 2.8}) ember(width, 0.09);
  ember(1, 0.95);
  return pixmap;
}

void AshesRow::paintEvent(QPaintEvent* /*event*/) {
  if (!m_task) return;
  QPainter painter(this);
  const double scale = deviceScale(painter);
  if (m_scrap.isNull() || m_scrap.devicePixelRatio() != scale) m_scrap = scrap(scale);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  painter.translate(width() / 2.0, height() / 2.0);
  painter.rotate(turnOf(*m_task));
  painter.translate(-width() / 2.0, -height() / 2.0);
  painter.drawPixmap(0, 0, m_scrap);
  QFont font = tokens::font(tokens::Type::RowTitle);
  font.setWeight(QFont::Medium);
  painter.setFont(font);
  painter.setPen(QColor::fromRgb(0xEFE8DC));
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const double trail = 14 + 12 + m_revive->width() + 10;
  const QRectF text = isMirrored ? QRectF(trail, kMargin, width() - trail - 44, kHeight)
                                 : QRectF(44, kMargin, width() - trail - 44, kHeight);
  painter.drawText(text, int(Qt::AlignVCenter) | int(isMirrored ? Qt::AlignRight : Qt::AlignLeft) | Qt::TextSingleLine,
                   QFontMetricsF(font).elidedText(oneLine(*m_task), Qt::ElideRight, text.width()));
}

}  // namespace tarnwick
