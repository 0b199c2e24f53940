// SPDX-License-Identifier: MIT
#include "shell/NoteEditPlate.h"

#include "board/CaretRest.h"
#include "board/ChecklistEdit.h"
#include "effects/Controls.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"
#include "shell/DraggableHostingView.h"

#include <QAccessible>
#include <QAccessibleEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QTextCursor>

namespace tarnwick {

namespace {

constexpr double kChipHeight = 28;
constexpr double kInset = 10;

QFont chipFont() {
  auto font = tokens::font(tokens::Type::RowTitle);
  font.setPixelSize(12);
  return font;
}

}  // namespace

PaperChip::PaperChip(const QString& text, const QString& symbol, Fill fill, QWidget* parent)
    : QAbstractButton(parent), m_symbol(symbol), m_fill(fill) {
  setText(text);
  setAccessibleName(text);
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_Hover);
}

void PaperChip::setInk(const QColor& ink) {
  m_ink = ink;
  update();
}

QSize PaperChip::sizeHint() const {
  const int words = text().isEmpty() ? 0 : qCeil(QFontMetricsF(chipFont()).horizontalAdvance(text()));
  const int symbol = m_symbol.isEmpty() ? 0 : (words > 0 ? 18 : 14);
  return {words + symbol + 16, int(kChipHeight)};
}

void PaperChip::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF plate = QRectF(rect()).adjusted(.5, .5, -.5, -.5).translated(0, isDown() ? 1 : 0);
  const bool isInk = m_fill == Fill::Ink;
  QColor fill = isInk ? m_ink : tokens::white(.40);
  if (underMouse() && !isDown()) fill = isInk ? m_ink.lighter(130) : tokens::white(.55);
  painter.setPen(isInk ? QPen(Qt::NoPen) : QPen(tokens::black(.14), .5));
  painter.setBrush(fill);
  painter.drawRoundedRect(plate, 6, 6);
  const QColor color = isInk ? QColor(Qt::white) : m_ink;
  const double words = text().isEmpty() ? 0 : QFontMetricsF(chipFont()).horizontalAdvance(text());
  const double glyph = text().isEmpty() ? 15 : 13;
  const double used = words + (m_symbol.isEmpty() ? 0 : glyph) + (words > 0 && !m_symbol.isEmpty() ? 5 : 0);
  double x = plate.center().x() - used / 2;
  const bool isRightToLeft = layoutDirection() == Qt::RightToLeft;
  if (isRightToLeft) x = plate.center().x() + used / 2;
  if (!m_symbol.isEmpty()) {
    Symbols::paint(painter, m_symbol, {isRightToLeft ? x - glyph : x, plate.center().y() - glyph / 2, glyph, glyph}, color);
    x += isRightToLeft ? -glyph - 5 : glyph + 5;
  }
  painter.setFont(chipFont());
  painter.setPen(color);
  painter.drawText(QRectF(isRightToLeft ? x - words - 1 : x, plate.top(), words + 2, plate.height()), Qt::AlignCenter,
                   text());
  if (hasFocus()) paintFocusRing(painter, QRectF(rect()).adjusted(3, 3, -3, -3), 5);
}

void PaperChip::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
  } else {
    QAbstractButton::keyPressEvent(event);
  }
}

NoteEditPlate::NoteEditPlate(Scheduler& scheduler, QWidget* parent)
    : QWidget(parent),
      m_editor(new ChecklistEdit(this)),
      m_checklist(new PaperChip({}, QStringLiteral("checklist"), PaperChip::Fill::Paper, this)),
      m_cancel(new PaperChip(tr("Cancel"), {}, PaperChip::Fill::Paper, this)),
      m_save(new PaperChip(tr("Save"), QStringLiteral("check"), PaperChip::Fill::Ink, this)),
      m_failure(new QWidget(this)) {
  m_editor->setHint(tr("Write a thought…"));
  m_editor->setAccessibleName(tr("Edit"));
  m_editor->setAccessibleDescription(tr("Write a thought…"));
  new CaretRest(scheduler, m_editor);
  DraggableHostingView::keepOwnDrags(m_editor->viewport());
  m_checklist->setToolTip(tr("Turn lines into checkboxes"));
  m_checklist->setAccessibleName(tr("Turn lines into checkboxes"));
  m_failure->setAccessibleName(tr("Couldn’t save. Try again."));
  m_failure->setAttribute(Qt::WA_TransparentForMouseEvents);
  m_failure->hide();
  connect(m_checklist, &QAbstractButton::clicked, this, &NoteEditPlate::makeChecklist);
  connect(m_cancel, &QAbstractButton::clicked, this, &NoteEditPlate::cancelRequested);
  connect(m_save, &QAbstractButton::clicked, this, &NoteEditPlate::saveRequested);
  connect(m_editor, &ChecklistEdit::submitted, this, &NoteEditPlate::saveRequested);
  connect(m_editor, &ChecklistEdit::cancelled, this, &NoteEditPlate::cancelRequested);
}

void NoteEditPlate::begin(const QString& text, const QColor& ink) {
  m_ink = ink;
  for (auto* chip : {m_checklist, m_cancel, m_save}) chip->setInk(ink);
  m_editor->setInk(ink);
  m_editor->setNoteText(text);
  m_editor->moveCursor(QTextCursor::End);
  setSaveState(SaveState::Fine);
  show();
  m_editor->setFocus();
}

QString NoteEditPlate::draft() const { return m_editor->noteText(); }

void NoteEditPlate::setSaveState(SaveState state) {
  m_saveState = state;
  m_failure->setVisible(state == SaveState::Failed);
  layOut();
  if (state == SaveState::Failed) {
    QAccessibleEvent alert(m_failure, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
  }
}

void NoteEditPlate::makeChecklist() {
  m_editor->ensureChecklist();
  m_editor->setFocus();
}

QRectF NoteEditPlate::boxRect() const {
  const double bottom = m_saveState == SaveState::Failed ? failureRect().top() - 10 : height() - 11 - kChipHeight - 10;
  return {kInset, 20, width() - 2 * kInset, bottom - 20};
}

QRectF NoteEditPlate::failureRect() const { return {kInset, height() - 46.0 - 24, width() - 2 * kInset, 24}; }

void NoteEditPlate::layOut() {
  m_editor->setGeometry(boxRect().adjusted(10, 8, -10, -6).toRect());
  m_failure->setGeometry(failureRect().toRect());
  const int y = height() - 11 - int(kChipHeight);
  const int trailing = 44;  // the lifted corner stays free
  const bool isRightToLeft = layoutDirection() == Qt::RightToLeft;
  const auto place = [&](PaperChip* chip, int left, int chipWidth) {
    chip->setGeometry(isRightToLeft ? width() - left - chipWidth : left, y, chipWidth, int(kChipHeight));
  };
  place(m_checklist, int(kInset), 30);
  const int saveWidth = m_save->sizeHint().width() + 4;
  const int cancelWidth = m_cancel->sizeHint().width();
  place(m_save, width() - trailing - saveWidth, saveWidth);
  place(m_cancel, width() - trailing - saveWidth - 6 - cancelWidth, cancelWidth);
  update();
}

void NoteEditPlate::resizeEvent(QResizeEvent* event) {
  layOut();
  QWidget::resizeEvent(event);
}

void NoteEditPlate::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(tokens::faded(m_ink, .75), 1.5));
  painter.setBrush(tokens::white(.34));
  painter.drawRoundedRect(boxRect().adjusted(.75, .75, -.75, -.75), 5, 5);
  if (m_saveState == SaveState::Fine) return;
  const auto plate = failureRect();
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor::fromRgb(tokens::kOverdue));
  painter.drawRoundedRect(plate, 6, 6);
  const bool isRightToLeft = layoutDirection() == Qt::RightToLeft;
  const double bang = isRightToLeft ? plate.right() - 21 : plate.left() + 8;
  Symbols::paint(painter, QStringLiteral("bang"), {bang, plate.center().y() - 6.5, 13, 13}, Qt::white);
  painter.setFont(chipFont());
  painter.setPen(Qt::white);
  painter.drawText(isRightToLeft ? plate.adjusted(8, 0, -27, 0) : plate.adjusted(27, 0, -8, 0),
                   Qt::AlignVCenter | (isRightToLeft ? Qt::AlignRight : Qt::AlignLeft), m_failure->accessibleName());
}

}  // namespace tarnwick
