// SPDX-License-Identifier: MIT
#include "board/ChecklistEdit.h"

#include "board/BoardKeys.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"
#include "model/StickyChecklist.h"

#include <QAbstractTextDocumentLayout>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>

#include <cmath>

namespace tarnwick {
namespace {

constexpr int kBoxState = QTextFormat::UserProperty + 1;  // absent: a plain line
constexpr int kOriginal = QTextFormat::UserProperty + 2;  // the line as it was stored
constexpr int kOpen = 1;
constexpr int kDone = 2;
constexpr double kBoxSize = 14;
constexpr double kIndent = 20;
constexpr double kLineHeight = 20;

int stateOf(const QTextBlock& block) {
  return block.blockFormat().intProperty(kBoxState);
}

QString lineOf(const QTextBlock& block) {
  const int state = stateOf(block);
  if (state == 0) return block.text();
  const QString original = block.blockFormat().stringProperty(kOriginal);
  if (!original.isEmpty() && StickyChecklist::label(original) == block.text() &&
      StickyChecklist::isDoneLine(original) == (state == kDone)) {
    return original;
  }
  return (state == kDone ? QStringLiteral("- [x] ") : QStringLiteral("- [ ] ")) + block.text();
}

}  // namespace

ChecklistEdit::ChecklistEdit(QWidget* parent) : QTextEdit(parent), m_ink(QColor::fromRgb(tokens::kOnLabel)) {
  setFrameShape(QFrame::NoFrame);
  setAcceptRichText(false);
  setTabChangesFocus(true);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  setFont(tokens::font(tokens::Type::NoteText));
  document()->setDocumentMargin(0);
  document()->setDefaultFont(font());
  setCursorWidth(0);  // Qt inverts what lies below it; here it is drawn in ink
  viewport()->setAutoFillBackground(false);
  viewport()->setMouseTracking(true);
  setStyleSheet(QStringLiteral("QTextEdit{background:transparent;border:none}"));
  fill(QString(), History::Forget);
}

void ChecklistEdit::setInk(const QColor& ink) {
  m_ink = ink;
  QPalette colors = palette();
  colors.setColor(QPalette::Text, ink);
  colors.setColor(QPalette::Base, Qt::transparent);
  colors.setColor(QPalette::Highlight, tokens::faded(ink, 0.28));
  colors.setColor(QPalette::HighlightedText, ink);
  setPalette(colors);
  viewport()->update();
}

QTextBlockFormat ChecklistEdit::formatOf(const QString& line) const {
  QTextBlockFormat format;
  format.setLineHeight(kLineHeight, QTextBlockFormat::FixedHeight);
  if (!StickyChecklist::isChecklistLine(line)) return format;
  format.setProperty(kBoxState, StickyChecklist::isDoneLine(line) ? kDone : kOpen);
  format.setProperty(kOriginal, line);
  if (layoutDirection() == Qt::RightToLeft) {
    format.setRightMargin(kIndent);
  } else {
    format.setLeftMargin(kIndent);
  }
  return format;
}

void ChecklistEdit::fill(const QString& text, History history) {
  if (history == History::Forget) document()->setUndoRedoEnabled(false);
  QTextCursor cursor(document());
  cursor.beginEditBlock();
  cursor.select(QTextCursor::Document);
  cursor.removeSelectedText();
  const QStringList lines = StickyChecklist::lines(text);
  QTextCharFormat plain;
  plain.setFont(font());
  for (int i = 0; i < std::max<qsizetype>(1, lines.size()); ++i) {
    const QString line = lines.value(i);
    const QTextBlockFormat format = formatOf(line);
    if (i == 0) {
      cursor.setBlockFormat(format);
      cursor.setCharFormat(plain);
    } else {
      cursor.insertBlock(format, plain);
    }
    cursor.insertText(StickyChecklist::isChecklistLine(line) ? StickyChecklist::label(line) : line);
  }
  cursor.endEditBlock();
  if (history == History::Forget) document()->setUndoRedoEnabled(true);
  QTextCursor caret = textCursor();
  caret.movePosition(QTextCursor::End);
  setTextCursor(caret);
}

void ChecklistEdit::setNoteText(const QString& text) {
  fill(text, History::Forget);
}

QString ChecklistEdit::noteText() const {
  QStringList lines;
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) lines << lineOf(block);
  return lines.join(QLatin1Char('\n'));
}

bool ChecklistEdit::hasBoxes() const {
  return StickyChecklist::hasChecklist(noteText());
}

void ChecklistEdit::ensureChecklist() {
  fill(StickyChecklist::ensureChecklist(noteText()), History::Keep);
  ensureCursorVisible();
}

QRectF ChecklistEdit::boxOf(const QTextBlock& block) const {
  const QRectF place = document()->documentLayout()->blockBoundingRect(block);
  const double x = layoutDirection() == Qt::RightToLeft ? viewport()->width() - kBoxSize : 0;
  return {x, place.top() - verticalScrollBar()->value() + (kLineHeight - kBoxSize) / 2, kBoxSize, kBoxSize};
}

QTextBlock ChecklistEdit::boxAt(const QPointF& point) const {
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    if (stateOf(block) != 0 && boxOf(block).adjusted(-3, -3, 5, 3).contains(point)) return block;
  }
  return {};
}

void ChecklistEdit::toggle(QTextBlock block) {
  QTextCursor cursor(block);
  QTextBlockFormat format = block.blockFormat();
  format.setProperty(kOriginal, StickyChecklist::toggle(lineOf(block), 0));
  format.setProperty(kBoxState, stateOf(block) == kDone ? kOpen : kDone);
  cursor.setBlockFormat(format);
  viewport()->update();
}

void ChecklistEdit::paintEvent(QPaintEvent* event) {
  QTextEdit::paintEvent(event);
  QPainter painter(viewport());
  painter.setRenderHint(QPainter::Antialiasing);
  if (document()->isEmpty() && stateOf(document()->begin()) == 0 && document()->blockCount() == 1) {
    QFont hint = tokens::font(tokens::Type::NoteText);
    hint.setItalic(true);
    hint.setWeight(QFont::Normal);
    painter.setFont(hint);
    painter.setPen(tokens::faded(m_ink, 0.88));
    painter.drawText(QRectF(3, 0, viewport()->width() - 3, kLineHeight), int(Qt::AlignVCenter) | int(Qt::AlignLeading),
                     m_hint);
  }
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    const int state = stateOf(block);
    if (state == 0) continue;
    const QRectF box = boxOf(block);
    if (box.bottom() < 0 || box.top() > viewport()->height()) continue;
    Symbols::paint(painter, state == kDone ? QStringLiteral("boxDone") : QStringLiteral("box"), box,
                   tokens::faded(m_ink, state == kDone ? 0.40 : 0.70));
  }
  if (hasFocus() && (!m_isCaretOn || m_isCaretOn())) {
    const QRectF caret(cursorRect());
    painter.fillRect(QRectF(caret.left(), caret.center().y() - 8.5, 1.5, 17), m_ink);
  }
  if (const auto* bar = verticalScrollBar(); bar->maximum() > 0) {
    const double room = viewport()->height();
    const double length = std::max(16.0, room * room / (room + bar->maximum()));
    painter.setPen(Qt::NoPen);
    painter.setBrush(tokens::faded(m_ink, 0.35));
    painter.drawRoundedRect(QRectF(viewport()->width() - 4, (room - length) * bar->value() / bar->maximum(), 4, length),
                            2, 2);
  }
}

void ChecklistEdit::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isReturn && hasCommand(event->modifiers())) {
    Q_EMIT submitted();
    return;
  }
  if (event->key() == Qt::Key_Escape) {
    Q_EMIT cancelled();
    return;
  }
  QTextCursor cursor = textCursor();
  const QTextBlock block = cursor.block();
  if (stateOf(block) != 0 && !cursor.hasSelection()) {
    const bool leavesList =
        (isReturn && block.text().isEmpty()) || (event->key() == Qt::Key_Backspace && cursor.atBlockStart());
    if (leavesList) {
      cursor.setBlockFormat(formatOf(QString()));
      viewport()->update();
      return;
    }
    if (isReturn) {
      QTextEdit::keyPressEvent(event);
      QTextCursor next = textCursor();
      QTextBlockFormat format = formatOf(QStringLiteral("- [ ] "));
      format.clearProperty(kOriginal);
      next.setBlockFormat(format);
      return;
    }
  }
  QTextEdit::keyPressEvent(event);
}

void ChecklistEdit::mousePressEvent(QMouseEvent* event) {
  if (const QTextBlock block = boxAt(event->position()); block.isValid() && event->button() == Qt::LeftButton) {
    toggle(block);
    return;
  }
  QTextEdit::mousePressEvent(event);
}

void ChecklistEdit::mouseMoveEvent(QMouseEvent* event) {
  viewport()->setCursor(boxAt(event->position()).isValid() ? Qt::PointingHandCursor : Qt::IBeamCursor);
  QTextEdit::mouseMoveEvent(event);
}

void ChecklistEdit::insertFromMimeData(const QMimeData* source) {
  if (source->hasText()) textCursor().insertText(source->text());
}

}  // namespace tarnwick
