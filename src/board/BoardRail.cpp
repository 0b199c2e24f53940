// SPDX-License-Identifier: MIT
#include "board/BoardRail.h"

#include "board/BoardTabs.h"
#include "effects/Controls.h"
#include "effects/PixmapCache.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

#include <cmath>

namespace tarnwick {
namespace {

constexpr int kEdge = 14;
constexpr int kNameWidth = 108;

QFont countdownFont(const BurnCountdown& countdown) {
  QFont font = tokens::font(tokens::Type::Countdown);
  if (countdown.isUrgent) font.setWeight(QFont::Bold);
  return font;
}

}  // namespace

DisplayModeSegment::DisplayModeSegment(QWidget* parent) : ChoiceRow(tr("Torn-off notes"), parent) {
  setFixedSize(sizeHint());
}

QString DisplayModeSegment::itemName(int index) const {
  return label(kNoteDisplayModes[static_cast<std::size_t>(index)]);
}

QRectF DisplayModeSegment::itemRect(int index) const {
  return mirrored(QRectF(2 + index * 27, 2, 26, 20));
}

void DisplayModeSegment::paintGround(QPainter& painter) {
  static PixmapCache grounds(64);
  const QString key = QStringLiteral("%1x%2").arg(width()).arg(height());
  paintCached(painter, grounds, key, rect(), [this](QPainter& inside) {
    inside.setPen(QPen(tokens::white(0.07), 1));
    inside.setBrush(tokens::black(0.30));
    inside.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 7.5, 7.5);
  });
}

void DisplayModeSegment::paintItem(QPainter& painter, int index, const ItemState& state) {
  static const QStringList kSymbols{QStringLiteral("pin"), QStringLiteral("desktop"), QStringLiteral("ghost")};
  const QRectF rect = itemRect(index);
  painter.setPen(Qt::NoPen);
  if (state.isCurrent || state.isHovered) {
    painter.setBrush(state.isPressed ? tokens::black(0.35) : tokens::white(state.isCurrent ? 0.16 : 0.08));
    painter.drawRoundedRect(rect, 6, 6);
  }
  if (state.isCurrent) {
    painter.setPen(QPen(tokens::white(0.25), 0.5));
    painter.drawLine(QPointF(rect.left() + 5, rect.top() + 0.25), QPointF(rect.right() - 5, rect.top() + 0.25));
  }
  Symbols::paint(painter, kSymbols[index], QRectF(rect.center().x() - 7, rect.center().y() - 7, 14, 14),
                 QColor::fromRgb(state.isCurrent ? tokens::kText : tokens::kText3));
  if (state.hasFocus) paintFocusRing(painter, rect, 6);
}

BurnCountdownLabel::BurnCountdownLabel(QWidget* parent) : QWidget(parent) {
  const QString explanation = tr("Uncrushed notes without a due date turn to ash at midnight.");
  setToolTip(explanation);
  setAccessibleDescription(explanation);
  hide();
}

void BurnCountdownLabel::setCountdown(int count, const BurnCountdown& countdown) {
  const BurnCountdown shown = count > 0 ? countdown : BurnCountdown{};
  if (shown == m_countdown) return;
  m_countdown = shown;
  setVisible(count > 0);
  setAccessibleName(m_countdown.label);
  updateGeometry();
  update();
}

QSize BurnCountdownLabel::sizeHint() const {
  const QFontMetricsF metrics(countdownFont(m_countdown));
  return {static_cast<int>(std::ceil(3 + 13 + 5 + metrics.horizontalAdvance(m_countdown.label))) + 1, 24};
}

void BurnCountdownLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const QColor color = QColor::fromRgb(m_countdown.isUrgent ? tokens::kWarning : tokens::kAmber);
  Symbols::paint(painter, QStringLiteral("hourglass"),
                 QRectF(isMirrored ? width() - 16 : 3, (height() - 13) / 2.0, 13, 13), color);
  const QFont font = countdownFont(m_countdown);
  painter.setFont(font);
  painter.setPen(color);
  const QRectF text = isMirrored ? QRectF(0, 0, width() - 21, height()) : QRectF(21, 0, width() - 21, height());
  painter.drawText(text, int(Qt::AlignVCenter) | int(isMirrored ? Qt::AlignRight : Qt::AlignLeft) | Qt::TextSingleLine,
                   QFontMetricsF(font).elidedText(m_countdown.label, Qt::ElideRight, text.width() + 1));
}

BoardRail::BoardRail(QWidget* parent)
    : QWidget(parent),
      m_tabs(new BoardTabs(this)),
      m_addTab(new ToolButton(QStringLiteral("plus"), tr("Add Board"), ToolButton::Plate::None, this)),
      m_new(new PrimaryButton(QString(), QStringLiteral("plus"), this)),
      m_countdown(new BurnCountdownLabel(this)),
      m_mode(new DisplayModeSegment(this)),
      m_search(new ToolButton(QStringLiteral("search"), tr("Search"), ToolButton::Plate::None, this)),
      m_tags(new ToolButton(QStringLiteral("flag"), tr("Tags"), ToolButton::Plate::None, this)),
      m_stats(new ToolButton(QStringLiteral("stats"), tr("Stats"), ToolButton::Plate::None, this)) {
  m_new->setAccessibleName(tr("New Note"));
  m_new->setToolTip(tr("New Note"));
  m_new->setFixedSize(30, 28);
  m_addTab->setFixedSize(26, 26);
  m_addTab->setToolTip(tr("Add Board"));
  for (auto* tool : {m_search, m_tags, m_stats}) {
    tool->setFixedSize(26, 24);
    tool->setCheckable(true);
    tool->setToolTip(tool->accessibleName());
  }
  connect(m_tabs, &ChoiceRow::chosen, this, [this](int index) { Q_EMIT boardChosen(m_tabs->tabs().value(index)); });
  connect(m_addTab, &QAbstractButton::clicked, this, &BoardRail::beginNaming);
  connect(m_new, &QAbstractButton::clicked, this, &BoardRail::newNoteRequested);
  connect(m_mode, &ChoiceRow::chosen, this,
          [this](int index) { Q_EMIT displayModeChosen(kNoteDisplayModes[static_cast<std::size_t>(index)]); });
}

QList<QWidget*> BoardRail::stops() const {
  return {m_tabs, m_addTab, m_new, m_mode, m_search, m_tags, m_stats};
}

void BoardRail::setTabs(const QStringList& names, const QString& selected) {
  m_tabs->setTabs(names, selected);
  layOut();
}

void BoardRail::setDisplayMode(NoteDisplayMode mode) {
  const auto* const found = std::find(kNoteDisplayModes.begin(), kNoteDisplayModes.end(), mode);
  m_mode->setCurrent(static_cast<int>(found - kNoteDisplayModes.begin()));
}

void BoardRail::setCountdown(int count, const BurnCountdown& countdown) {
  m_countdown->setCountdown(count, countdown);
  layOut();
}

void BoardRail::makeName() {
  m_name = new QLineEdit(this);
  m_name->setFrame(false);
  m_name->setMaxLength(40);
  m_name->setAccessibleName(tr("Name of the new board"));
  m_name->setPlaceholderText(tr("Board name"));
  m_name->setFont(tokens::font(tokens::Type::RowTitle));
  m_name->setStyleSheet(
      QStringLiteral("QLineEdit{background:rgba(0,0,0,.34);border:2px solid #FFE169;border-radius:7px;"
                     "color:#F4F1EA;padding:0 5px;selection-background-color:#FFE169;"
                     "selection-color:#383217}"));
  m_name->installEventFilter(this);
  m_name->hide();
  setTabOrder(m_addTab, m_name);
  connect(m_name, &QLineEdit::returnPressed, this, [this] { endNaming(Naming::Keep); });
}

void BoardRail::beginNaming() {
  if (!m_name) makeName();
  m_isNaming = true;
  m_name->clear();
  m_name->show();
  layOut();
  m_addTab->hide();
  m_name->setFocus();
}

void BoardRail::endNaming(Naming outcome) {
  if (!m_isNaming) return;
  m_isNaming = false;
  const QString name = m_name->text().simplified();
  const bool hadFocus = m_name->hasFocus();
  m_addTab->show();
  if (hadFocus) m_addTab->setFocus();
  m_name->hide();
  layOut();
  if (outcome == Naming::Keep && !name.isEmpty()) Q_EMIT boardAdded(name);
}

bool BoardRail::eventFilter(QObject* watched, QEvent* event) {
  if (m_name && watched == m_name) {
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
      endNaming(Naming::Drop);
      return true;
    }
    if (event->type() == QEvent::FocusOut) endNaming(Naming::Keep);
  }
  return QWidget::eventFilter(watched, event);
}

void BoardRail::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::LayoutDirectionChange) layOut();
}

void BoardRail::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  layOut();
}

void BoardRail::layOut() {
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const auto place = [&](QWidget* widget, int x, int y, int w, int h) {
    widget->setGeometry(isMirrored ? width() - x - w : x, y, w, h);
  };
  const int newX = width() - kEdge - 30;
  place(m_new, newX, 11, 30, 28);
  const int tailWidth = m_isNaming ? kNameWidth : 26;
  const int stripWidth = std::max(60, std::min(m_tabs->contentWidth(), newX - 8 - tailWidth - (kEdge - 3)));
  place(m_tabs, kEdge - 3, 9, stripWidth, 32);
  place(m_addTab, kEdge - 3 + stripWidth, 12, 26, 26);
  if (m_name) place(m_name, kEdge - 3 + stripWidth, 12, kNameWidth, 26);

  int x = width() - kEdge - 1;
  for (QWidget* tool :
       {static_cast<QWidget*>(m_stats), static_cast<QWidget*>(m_tags), static_cast<QWidget*>(m_search)}) {
    x -= 26;
    place(tool, x, 42, 26, 24);
    x -= 2;
  }
  x -= 6 + 84;
  place(m_mode, x, 42, 84, 24);
  place(m_countdown, kEdge, 42, std::min(m_countdown->sizeHint().width(), x - kEdge - 6), 24);
}

}  // namespace tarnwick
