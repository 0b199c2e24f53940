// SPDX-License-Identifier: MIT
#include "board/DateBlock.h"

#include "board/InkButton.h"
#include "effects/Controls.h"
#include "effects/SoftShadow.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"

#include <QFontMetricsF>
#include <QKeyEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QTimeEdit>
#include <QWheelEvent>

namespace tarnwick {
namespace {

constexpr double kHead = 16;
constexpr int kGridHeight = 116;
const QRgb kBanner = 0xB4332F;
const QRgb kRedInk = 0x9A231F;

QFont gridFont(double pixels, QFont::Weight weight) {
  QFont font = tokens::font(tokens::Type::Help);
  font.setPixelSize(static_cast<int>(pixels));
  font.setWeight(weight);
  return font;
}

}  // namespace

DayGrid::DayGrid(QWidget* parent) : ChoiceRow(tr("Day"), parent) {
  connect(this, &ChoiceRow::chosen, this, [this](int index) { Q_EMIT dayChosen(dayAt(index)); });
}

void DayGrid::show(const QLocale& locale, QDate month, QDate chosenDay, QDate today) {
  m_locale = locale;
  m_month = QDate(month.year(), month.month(), 1);
  m_chosen = chosenDay;
  m_today = today;
  const int lead = (m_month.dayOfWeek() - static_cast<int>(locale.firstDayOfWeek()) + 7) % 7;
  m_first = m_month.addDays(-lead);
  m_weeks = (lead + m_month.daysInMonth() + 6) / 7;
  setCurrent(static_cast<int>(m_first.daysTo(chosenDay)));
  update();
}

QString DayGrid::itemName(int index) const {
  return m_locale.toString(dayAt(index), QLocale::LongFormat);
}

QRectF DayGrid::itemRect(int index) const {
  const double rowHeight = std::min(20.0, (height() - kHead) / m_weeks);
  const double cell = width() / 7.0;
  return mirrored(QRectF((index % 7) * cell, kHead + index / 7 * rowHeight, cell, rowHeight));  // NOLINT: whole rows
}

void DayGrid::paintGround(QPainter& painter) {
  painter.setFont(gridFont(10, QFont::Bold));
  painter.setPen(QColor::fromRgb(0x6B6353));
  for (int i = 0; i < 7; ++i) {
    const QRectF cell = itemRect(i);
    painter.drawText(QRectF(cell.left(), 0, cell.width(), kHead), Qt::AlignCenter,
                     m_locale.dayName(m_first.addDays(i).dayOfWeek(), QLocale::NarrowFormat));
  }
}

void DayGrid::paintItem(QPainter& painter, int index, const ItemState& state) {
  const QDate day = dayAt(index);
  const QRectF cell = itemRect(index).adjusted(1, 0.5, -1, -0.5);
  QColor ink = day.month() == m_month.month() ? QColor::fromRgb(tokens::kOnLabel) : QColor::fromRgb(0x716953);
  QFont::Weight weight = QFont::Medium;
  painter.setPen(Qt::NoPen);
  if (day == m_chosen) {
    painter.setBrush(QColor::fromRgb(tokens::kOnLabel));
    painter.drawRoundedRect(cell, 6, 6);
    ink = QColor::fromRgb(tokens::kLabelTop);
    weight = QFont::Bold;
  } else if (state.isHovered) {
    painter.setBrush(tokens::black(0.08));
    painter.drawRoundedRect(cell, 6, 6);
  }
  if (day == m_today) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor::fromRgb(kBanner), 1.3));
    painter.drawRoundedRect(cell.adjusted(0.65, 0.65, -0.65, -0.65), 5.4, 5.4);
    if (day != m_chosen) ink = QColor::fromRgb(kRedInk);
    weight = QFont::Bold;
  }
  painter.setFont(gridFont(12, weight));
  painter.setPen(ink);
  painter.drawText(cell, Qt::AlignCenter, m_locale.toString(day.day()));
  if (state.hasFocus) paintFocusRing(painter, cell.adjusted(-1, -1, 1, 1), 7);
}

void DayGrid::keyPressEvent(QKeyEvent* event) {
  const int towardsEnd = layoutDirection() == Qt::RightToLeft ? -1 : 1;
  QDate wanted = m_chosen;
  switch (event->key()) {
    case Qt::Key_Left:
      wanted = wanted.addDays(-towardsEnd);
      break;
    case Qt::Key_Right:
      wanted = wanted.addDays(towardsEnd);
      break;
    case Qt::Key_Up:
      wanted = wanted.addDays(-7);
      break;
    case Qt::Key_Down:
      wanted = wanted.addDays(7);
      break;
    case Qt::Key_PageUp:
      wanted = wanted.addMonths(-1);
      break;
    case Qt::Key_PageDown:
      wanted = wanted.addMonths(1);
      break;
    case Qt::Key_Home:
      wanted = QDate(wanted.year(), wanted.month(), 1);
      break;
    case Qt::Key_End:
      wanted = QDate(wanted.year(), wanted.month(), wanted.daysInMonth());
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      Q_EMIT accepted();
      return;
    default:
      event->ignore();
      return;
  }
  Q_EMIT dayChosen(wanted);
}

DateBlock::DateBlock(const Clock& clock, QWidget* parent)
    : QWidget(parent),
      m_clock(clock),
      m_grid(new DayGrid(this)),
      m_previous(new InkButton(QStringLiteral("arrowLeft"), tr("Previous month"), InkButton::Plate::None, this)),
      m_next(new InkButton(QStringLiteral("arrowRight"), tr("Next month"), InkButton::Plate::None, this)),
      m_time(new QTimeEdit(this)),
      m_clear(new InkButton(QString(), tr("Clear due date"), InkButton::Plate::None, this)) {
  setAccessibleName(tr("Due Date"));
  resize(kWidth + 2 * kMargin, kHeight + 2 * kMargin);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const auto at = [&](int x, int w) { return kMargin + (isMirrored ? kWidth - x - w : x); };
  m_previous->setInk(Qt::white);
  m_next->setInk(Qt::white);
  m_previous->setGeometry(at(6, 26), kMargin + 5, 26, 26);
  m_next->setGeometry(at(kWidth - 32, 26), kMargin + 5, 26, 26);
  m_grid->setGeometry(kMargin + 12, kMargin + 38, kWidth - 24, kGridHeight);
  m_time->setGeometry(at(30, 76), kMargin + kHeight - 33, 76, 24);
  m_time->setButtonSymbols(QAbstractSpinBox::NoButtons);
  m_time->setAccessibleName(tr("Time"));
  m_time->setFont(tokens::font(tokens::Type::RowTitle));
  m_time->setStyleSheet(
      QStringLiteral("QTimeEdit{background:rgba(0,0,0,.07);border:1px solid "
                     "rgba(0,0,0,.22);border-radius:5px;color:#2A251C;padding:0 6px;"
                     "selection-background-color:#2A251C;selection-color:#FBF3DF}QTimeEdit:focus{border:2px solid "
                     "#B4332F;padding:0 5px}"));
  m_clear->setText(tr("Clear due date"));
  m_clear->setInk(QColor::fromRgb(kRedInk));
  const int clearWidth = m_clear->sizeHint().width();
  m_clear->setGeometry(at(kWidth - 5 - clearWidth, clearWidth), kMargin + kHeight - 34, clearWidth, 26);

  connect(m_previous, &QAbstractButton::clicked, this, [this] { turnMonth(-1); });
  connect(m_next, &QAbstractButton::clicked, this, [this] { turnMonth(1); });
  connect(m_clear, &QAbstractButton::clicked, this, &DateBlock::cleared);
  connect(m_grid, &DayGrid::accepted, this, &DateBlock::closed);
  connect(m_grid, &DayGrid::dayChosen, this, [this](QDate day) {
    m_day = m_month = day;
    refresh();
    Q_EMIT dateChanged(date());
  });
  connect(m_time, &QTimeEdit::timeChanged, this, [this] { Q_EMIT dateChanged(date()); });
  setTabOrder(m_previous, m_next);
  setTabOrder(m_next, m_grid);
  setTabOrder(m_grid, m_time);
  setTabOrder(m_time, m_clear);
}

void DateBlock::setDate(const QDateTime& moment) {
  const Calendar calendar = Calendar::of(m_clock);
  const QDateTime local = calendar.local(moment);
  m_day = m_month = local.date();
  const QSignalBlocker quiet(m_time);
  m_time->setLocale(calendar.locale());
  m_time->setDisplayFormat(calendar.locale().timeFormat(QLocale::ShortFormat));
  m_time->setTime(QTime(local.time().hour(), local.time().minute()));
  refresh();
}

QDateTime DateBlock::date() const {
  return Calendar::of(m_clock).at(m_day, m_time->time());
}

void DateBlock::takeFocus() {
  m_grid->setFocus(Qt::OtherFocusReason);
}

void DateBlock::turnMonth(int months) {
  m_month = m_month.addMonths(months);
  refresh();
}

void DateBlock::refresh() {
  const Calendar calendar = Calendar::of(m_clock);
  m_grid->show(calendar.locale(), m_month, m_day, calendar.day(m_clock.now()));
  update();
}

void DateBlock::wheelEvent(QWheelEvent* event) {
  if (event->angleDelta().y() != 0) turnMonth(event->angleDelta().y() > 0 ? -1 : 1);
  event->accept();
}

void DateBlock::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    Q_EMIT closed();
    return;
  }
  QWidget::keyPressEvent(event);
}

void DateBlock::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(kMargin, kMargin);
  const QRectF page(0, 0, kWidth, kHeight);
  paintBoxShadow(painter, page, 6, 6, 4, 6, 0.55);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor::fromRgb(0xCBBE9F));
  painter.drawRoundedRect(page.adjusted(3, 5, -3, 5), 6, 6);
  painter.setBrush(QColor::fromRgb(0xE3D7BA));
  painter.drawRoundedRect(page.adjusted(1.5, 2.5, -1.5, 2.5), 6, 6);
  painter.setBrush(QColor::fromRgb(tokens::kLabelTop));
  painter.drawRoundedRect(page, 6, 6);
  painter.fillPath(roundedBox(QRectF(0, 0, kWidth, 34), 6, 0), QColor::fromRgb(kBanner));
  painter.fillRect(QRectF(0, 33.5, kWidth, 1), tokens::black(0.25));
  painter.fillRect(QRectF(6, 0.2, kWidth - 12, 1), tokens::white(0.35));
  painter.setBrush(QColor::fromRgb(0x3D0F0E));
  painter.drawEllipse(QPointF(44, 6), 2.6, 2.6);
  painter.drawEllipse(QPointF(206, 6), 2.6, 2.6);

  const Calendar calendar = Calendar::of(m_clock);
  QString month = calendar.locale().standaloneMonthName(m_month.month());
  if (m_month.year() != calendar.day(m_clock.now()).year()) month += QStringLiteral(" %1").arg(m_month.year());
  QFont font = tokens::font(tokens::Type::RowTitle);
  font.setWeight(QFont::Bold);
  painter.setFont(font);
  painter.setPen(Qt::white);
  painter.drawText(QRectF(36, 2, kWidth - 72, 33), Qt::AlignCenter, month);
  const double clockX = layoutDirection() == Qt::RightToLeft ? kWidth - 25 : 12;
  Symbols::paint(painter, QStringLiteral("clock"), QRectF(clockX, kHeight - 27.5, 13, 13),
                 QColor::fromRgb(tokens::kOnLabel));
}

}  // namespace tarnwick
