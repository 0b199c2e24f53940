// SPDX-License-Identifier: MIT
#include "board/AshesOverlay.h"

#include "board/AshesRow.h"
#include "effects/BoardSurfaceView.h"
#include "effects/Controls.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"

#include <QFontMetricsF>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWheelEvent>

#include <cmath>
#include <random>

namespace tarnwick {
namespace {

constexpr int kScrapsTop = 88;  // a little above the first scrap, for its turned edge
constexpr int kFirstScrap = 96;
constexpr int kSweepHeight = 38;
constexpr int kSweepFloor = 18;

class SweepButton final : public PaintedButton {
 public:
  explicit SweepButton(QWidget* parent) : PaintedButton(parent) {
    setFont(tokens::font(tokens::Type::RowTitle));
    setHalo({12, 12, 2, 0, 0, 0});
  }
  [[nodiscard]] QSize sizeHint() const override { return {362, kSweepHeight}; }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(tokens::white(isHovered() ? 0.28 : 0.14), 1));
    painter.setBrush(tokens::black(isDown() ? 0.65 : 0.45));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 11.5, 11.5);
    const double words = QFontMetricsF(font()).horizontalAdvance(text());
    const double left = (width() - words - 23) / 2;
    const QColor front = QColor::fromRgb(tokens::kText);
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    Symbols::paint(painter, QStringLiteral("sweep"),
                   QRectF(isMirrored ? left + words + 8 : left, (height() - 15) / 2.0, 15, 15), front);
    painter.setFont(font());
    painter.setPen(front);
    painter.drawText(QRectF(isMirrored ? left : left + 23, 0, words + 2, height()), Qt::AlignVCenter, text());
  }
};

}  // namespace

AshesOverlay::AshesOverlay(Actions actions, QWidget* parent)
    : QWidget(parent),
      m_actions(std::move(actions)),
      m_scraps(new QWidget(this)),
      m_close(new ToolButton(QStringLiteral("close"), tr("Close"), ToolButton::Plate::Chip, this)),
      m_sweep(new SweepButton(this)) {
  setAccessibleName(tr("Ashes"));
  m_scraps->setAccessibleName(tr("Burned notes"));
  m_close->setFixedSize(28, 28);
  m_sweep->setText(tr("Sweep all ashes"));
  connect(m_close, &QAbstractButton::clicked, this, [this] { m_actions.onClose(); });
  connect(m_sweep, &QAbstractButton::clicked, this, [this] { m_actions.onSweep(); });
}

AshesOverlay::~AshesOverlay() = default;

void AshesOverlay::setBurned(const TaskList& burned) {
  m_burned = burned;
  m_sweep->setVisible(!burned.empty());
  scrollTo(m_offset);
  update();
}

void AshesOverlay::takeFocus() {
  if (!m_rows.empty() && !m_burned.empty()) {
    m_rows.front()->reviveButton().setFocus();
  } else {
    m_close->setFocus();
  }
}

int AshesOverlay::maxOffset() const {
  const int content = (kFirstScrap - kScrapsTop) + static_cast<int>(m_burned.size()) * AshesRow::kPitch;
  return std::max(0, content - m_scraps->height());
}

void AshesOverlay::scrollTo(int offset) {
  m_offset = std::clamp(offset, 0, maxOffset());
  layOut();
}

void AshesOverlay::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  m_close->move(isMirrored ? 14 : width() - 14 - 28, 13);
  m_sweep->setGeometry(14, height() - kSweepFloor - kSweepHeight, width() - 28, kSweepHeight);
  m_scraps->setGeometry(0, kScrapsTop, width(), height() - kScrapsTop - kSweepFloor - kSweepHeight - 10);
  scrollTo(m_offset);
}

void AshesOverlay::layOut() {
  const auto wanted = static_cast<std::size_t>(m_scraps->height() / AshesRow::kPitch + 2);
  while (m_rows.size() < wanted) {
    auto* row = new AshesRow(m_scraps);
    row->reviveButton().installEventFilter(this);
    connect(row, &AshesRow::reviveRequested, this, [this](const TaskPtr& task) { m_actions.onRevive(task); });
    m_rows.push_back(row);
    QWidget::setTabOrder(
        m_rows.size() > 1 ? &m_rows[m_rows.size() - 2]->reviveButton() : static_cast<QWidget*>(m_close),
        &row->reviveButton());
    QWidget::setTabOrder(&row->reviveButton(), m_sweep);
  }
  const int first = m_offset / AshesRow::kPitch;
  for (std::size_t i = 0; i < m_rows.size(); ++i) {
    const std::size_t index = static_cast<std::size_t>(first) + i;
    AshesRow* row = m_rows[i];
    row->setTask(index < m_burned.size() ? m_burned[index] : nullptr);
    row->setGeometry(
        0, kFirstScrap - kScrapsTop + static_cast<int>(index) * AshesRow::kPitch - m_offset - AshesRow::kMargin,
        width(), AshesRow::kHeight + 2 * AshesRow::kMargin);
  }
}

bool AshesOverlay::eventFilter(QObject* watched, QEvent* event) {
  // Arrows walk the scraps; a scrap that gets the keyboard comes into view.
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Down || key == Qt::Key_Up) {
      for (std::size_t i = 0; i < m_rows.size(); ++i) {
        if (&m_rows[i]->reviveButton() != watched) continue;
        const int way = key == Qt::Key_Down ? 1 : -1;
        const int top = m_rows[i]->y() + way * AshesRow::kPitch;
        if (top < 0 || top + AshesRow::kPitch > m_scraps->height()) {
          scrollTo(m_offset + way * AshesRow::kPitch);
          return true;
        }
        const auto next = static_cast<std::ptrdiff_t>(i) + way;
        if (next >= 0 && next < static_cast<std::ptrdiff_t>(m_rows.size()) &&
            m_rows[static_cast<std::size_t>(next)]->task()) {
          m_rows[static_cast<std::size_t>(next)]->reviveButton().setFocus();
        }
        return true;
      }
    }
  }
  return QWidget::eventFilter(watched, event);
}

void AshesOverlay::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    m_actions.onClose();
    return;
  }
  QWidget::keyPressEvent(event);
}

void AshesOverlay::wheelEvent(QWheelEvent* event) {
  const int way = event->pixelDelta().isNull() ? event->angleDelta().y() / 3 : event->pixelDelta().y();
  scrollTo(m_offset - way);
  event->accept();
}

void AshesOverlay::mousePressEvent(QMouseEvent* event) {
  event->ignore();  // the panel may be dragged by it; nothing below gets the press
}

void AshesOverlay::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QPainterPath board;
  board.addRoundedRect(QRectF(rect()), BoardSurfaceView::kRadius, BoardSurfaceView::kRadius);
  painter.setClipPath(board);
  QLinearGradient soot(0, 0, 0, height());
  soot.setColorAt(0, tokens::faded(QColor::fromRgb(0x141210), 0.93));
  soot.setColorAt(1, tokens::faded(QColor::fromRgb(0x1B1512), 0.97));
  painter.fillRect(rect(), soot);
  QRadialGradient glow(width() / 2.0, height() * 1.15, height() * 0.7);
  const QColor ember = QColor::fromRgb(tokens::kEmber);
  glow.setColorAt(0, tokens::faded(ember, 0.24));
  glow.setColorAt(1, tokens::faded(ember, 0));
  painter.fillRect(rect(), glow);
  std::minstd_rand random(21);
  std::uniform_real_distribution<double> unit(0, 1);
  for (int i = 0; i < 220; ++i) {
    const double y = 318 + std::pow(unit(random), 0.7) * 80;
    const QPointF at(unit(random) * width(), y);
    const QPointF up(1 + unit(random) * 3.5, -unit(random) * 2);
    const QPointF down(unit(random) * 2, unit(random) * 2);
    const QColor flake = unit(random) < 0.5 ? QColor::fromRgb(0x6A6661) : QColor::fromRgb(0x94908A);
    QPainterPath chip(at);
    chip.lineTo(at + up);
    chip.lineTo(at + up + down);
    chip.closeSubpath();
    painter.fillPath(chip, tokens::faded(flake, 0.10 + unit(random) * 0.26));
  }

  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const int side = int(isMirrored ? Qt::AlignRight : Qt::AlignLeft) | int(Qt::AlignVCenter);
  Symbols::paint(painter, QStringLiteral("flame"), QRectF(isMirrored ? width() - 33 : 14, 17.5, 19, 19), ember);
  QFont title = tokens::font(tokens::Type::PanelTitle);
  title.setPixelSize(18);
  painter.setFont(title);
  painter.setPen(ember);
  painter.drawText(isMirrored ? QRectF(60, 0, width() - 101, 54) : QRectF(41, 0, width() - 101, 54), side, tr("Ashes"));
  QFont help = tokens::font(tokens::Type::Help);
  painter.setFont(help);
  painter.setPen(QColor::fromRgb(0xC2BDB4));
  painter.drawText(isMirrored ? QRectF(40, 51, width() - 56, 34) : QRectF(16, 51, width() - 56, 34),
                   int(isMirrored ? Qt::AlignRight : Qt::AlignLeft) | int(Qt::AlignTop) | Qt::TextWordWrap,
                   tr("At midnight, uncrushed notes without a date turn to ash. Revive them anytime."));
  if (m_burned.empty()) paintEmpty(painter);
}

void AshesOverlay::paintEmpty(QPainter& painter) const {
  painter.save();
  painter.translate((width() - 180) / 2.0, 142);
  painter.setPen(Qt::NoPen);
  QRadialGradient shadow(90, 92, 84);
  shadow.setColorAt(0.4, tokens::black(0.5));
  shadow.setColorAt(1, tokens::black(0));
  painter.save();
  painter.translate(90, 92);
  painter.scale(1, 0.2);
  painter.translate(-90, -92);
  painter.setBrush(shadow);
  painter.drawEllipse(QPointF(90, 92), 84, 84);
  painter.restore();
  QPainterPath dish(QPointF(18, 58));
  dish.quadTo(90, 76, 162, 58);
  dish.quadTo(158, 96, 120, 98);
  dish.lineTo(60, 98);
  dish.quadTo(22, 96, 18, 58);
  QLinearGradient metal(18, 0, 162, 0);
  metal.setColorAt(0, QColor::fromRgb(0x3A3C45));
  metal.setColorAt(0.3, QColor::fromRgb(0x565965));
  metal.setColorAt(0.6, QColor::fromRgb(0x34363E));
  metal.setColorAt(1, QColor::fromRgb(0x202127));
  painter.fillPath(dish, metal);
  painter.setBrush(QColor::fromRgb(0x2B2D33));
  painter.setPen(QPen(tokens::white(0.35), 1));
  painter.drawEllipse(QPointF(90, 58), 72, 13);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor::fromRgb(0x15161A));
  painter.drawEllipse(QPointF(90, 60), 62, 9);
  QPainterPath sheen(QPointF(40, 61));
  sheen.quadTo(90, 70, 140, 61);
  painter.strokePath(sheen, QPen(tokens::white(0.07), 1));
  painter.restore();
  QFont font = tokens::font(tokens::Type::PanelTitle);
  font.setPixelSize(17);
  painter.setFont(font);
  painter.setPen(QColor::fromRgb(tokens::kText));
  painter.drawText(QRectF(0, 142 + 122, width(), 26), Qt::AlignCenter, tr("No ashes yet."));
}

}  // namespace tarnwick
