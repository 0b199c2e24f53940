// SPDX-License-Identifier: MIT
#include "board/StickyChecklistBody.h"

#include "effects/Symbols.h"
#include "effects/Tokens.h"
#include "model/StickyChecklist.h"
#include "model/store/ModelContext.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextBoundaryFinder>
#include <QTextOption>

#include <algorithm>

namespace tarnwick {
namespace {

constexpr double kBoxGap = 6;
constexpr double kOpenOpacity = 0.88;
constexpr double kPlainOpacity = 0.88;
constexpr double kBoxOpenOpacity = 0.70;
constexpr double kBoxDoneOpacity = 0.40;

/// More than this no line of a card can hold, however narrow its letters are.
constexpr int kMostOfALine = 400;

/// Offers places to break at to a word without an end: for each line Qt looks through all that is left of it.
QString breakable(const QString& words) {
  constexpr int kLongestWord = 500;
  constexpr QChar kZeroWidthSpace(0x200B);
  constexpr QChar kJoiner(0x200D);
  QString result;
  int length = 0;
  QChar before;
  for (const QChar letter : words) {
    length = letter.isSpace() ? 0 : length + 1;
    if (length > kLongestWord && !letter.isSurrogate() && !letter.isMark() && letter != kJoiner && before != kJoiner) {
      result += kZeroWidthSpace;
      length = 1;
    }
    result += letter;
    before = letter;
  }
  return result;
}

/// As much of the text as fits with dots behind it, cut between what people see as characters.
QString elided(const QString& text, const QFontMetricsF& metrics, double room) {
  const QString dots(QChar(0x2026));
  const auto fits = [&](const QString& part) { return metrics.horizontalAdvance(part + dots) <= room; };
  if (fits(text)) return text + dots;
  std::vector<qsizetype> ends;
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
  for (auto end = finder.toNextBoundary(); end > 0; end = finder.toNextBoundary()) ends.push_back(end);
  const auto first = std::ranges::partition_point(ends, [&](qsizetype end) { return fits(text.left(end).trimmed()); });
  return (first == ends.begin() ? QString() : text.left(*std::prev(first)).trimmed()) + dots;
}

/// What a line leaves free at its trailing end.
double freeEnd(const StickyChecklistBody::Style& style, bool isFirst, double top) {
  const double inset = isFirst ? style.firstLineInset : 0;
  if (style.keepOut.isEmpty()) return inset;
  const auto shared = style.keepOut.intersected(QRectF(0, top, style.width, style.lineHeight)).boundingRect();
  if (shared.isEmpty()) return inset;
  return std::max(inset, style.direction == Qt::RightToLeft ? shared.right() : style.width - shared.left());
}

struct Wrapped {
  int lines = 0;
  int lastLineStart = -1;  // where the last allowed line began
  bool hasMore = false;
};

}  // namespace

StickyChecklistBody::StickyChecklistBody(const QString& text, const Style& style) : m_style(style) {
  const bool isMirrored = style.direction == Qt::RightToLeft;
  const QStringList lines = StickyChecklist::lines(text);
  const bool hasBoxes = StickyChecklist::hasChecklist(text);
  double y = 0;
  int used = 0;
  for (int index = 0; index < lines.size(); ++index) {
    if (style.maxLines > 0 && used >= style.maxLines) break;
    Row row;
    row.line = index;
    row.isBox = StickyChecklist::isChecklistLine(lines[index]);
    row.isDone = row.isBox && StickyChecklist::isDoneLine(lines[index]);
    row.isPlainText = !hasBoxes;
    row.top = y;
    QString words = row.isBox ? StickyChecklist::label(lines[index]) : lines[index];
    if (style.maxLines > 0) words.truncate(qsizetype{style.maxLines} * kMostOfALine);  // shaping costs by the letter
    words = breakable(words);
    const double indent = row.isBox ? style.boxSize + kBoxGap : 0;
    QFont font = style.font;
    font.setStrikeOut(row.isDone);

    // Lays the words out from line `used` on; stops at the limit and tells what did not fit.
    const auto layOut = [&](const QString& content) {
      row.layout = std::make_unique<QTextLayout>(content, font);
      QTextOption option;
      option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
      const bool readsLeft = content.isRightToLeft();
      option.setTextDirection(readsLeft ? Qt::RightToLeft : Qt::LeftToRight);
      option.setAlignment(readsLeft ? Qt::AlignRight : Qt::AlignLeft);
      row.layout->setTextOption(option);
      row.layout->setCacheEnabled(true);
      Wrapped result;
      double lineTop = row.top;
      row.layout->beginLayout();
      while (true) {
        QTextLine line = row.layout->createLine();
        if (!line.isValid()) break;
        if (style.maxLines > 0 && used + result.lines >= style.maxLines) {
          result.hasMore = true;
          break;
        }
        const double cut = freeEnd(style, used + result.lines == 0, lineTop);
        line.setLineWidth(std::max(20.0, style.width - indent - cut));
        const double x = isMirrored ? cut : indent;
        line.setPosition({x, lineTop + (style.lineHeight - line.height()) / 2});
        result.lastLineStart = line.textStart();
        ++result.lines;
        lineTop += style.lineHeight;
      }
      row.layout->endLayout();
      return result;
    };

    Wrapped wrapped = layOut(words);
    const bool isLast = style.maxLines > 0 && used + wrapped.lines >= style.maxLines;
    const bool isFollowed = std::any_of(lines.begin() + index + 1, lines.end(),
                                        [](const QString& line) { return !line.trimmed().isEmpty(); });
    if (isLast && wrapped.lastLineStart >= 0 && (wrapped.hasMore || isFollowed)) {
      m_isElided = true;
      const double cut = freeEnd(style, used + wrapped.lines == 1, row.top + (wrapped.lines - 1) * style.lineHeight);
      const double room = style.width - indent - cut;
      const QString tail = words.mid(wrapped.lastLineStart, kMostOfALine);
      wrapped = layOut(words.left(wrapped.lastLineStart) + elided(tail, QFontMetricsF(font), room - 1));
    }
    const int count = std::max(1, wrapped.lines);
    if (row.isBox) {
      const double boxX = isMirrored ? style.width - style.boxSize : 0;
      row.box = QRectF(boxX, row.top + (style.lineHeight - style.boxSize) / 2, style.boxSize, style.boxSize);
    }
    used += count;
    y += count * style.lineHeight;
    row.bottom = y;
    if (row.isBox) y += style.rowGap;
    m_rows.push_back(std::move(row));
  }
  m_height = m_rows.empty() ? 0 : m_rows.back().bottom;
}

void StickyChecklistBody::paint(QPainter& painter, const QPointF& origin) const {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  for (const Row& row : m_rows) {
    if (!m_style.mark.isEmpty()) {
      painter.setPen(Qt::NoPen);
      painter.setBrush(tokens::white(0.55));
      const QString words = row.layout->text();
      const auto length = static_cast<int>(m_style.mark.size());
      for (qsizetype at = words.indexOf(m_style.mark, 0, Qt::CaseInsensitive); at >= 0;
           at = words.indexOf(m_style.mark, at + length, Qt::CaseInsensitive)) {
        for (int i = 0; i < row.layout->lineCount(); ++i) {
          const QTextLine line = row.layout->lineAt(i);
          const int from = std::max(static_cast<int>(at), line.textStart());
          const int to = std::min(static_cast<int>(at) + length, line.textStart() + line.textLength());
          if (from >= to) continue;
          const double x1 = line.cursorToX(from);
          const double x2 = line.cursorToX(to);
          const QRectF rect(origin.x() + std::min(x1, x2) - 1.5, origin.y() + line.y() - 0.5, std::abs(x2 - x1) + 3,
                            line.height() + 1);
          painter.drawRoundedRect(rect, 3, 3);
        }
      }
    }
    double opacity = 1;
    if (row.isBox) {
      opacity = row.isDone ? m_style.doneOpacity : kOpenOpacity;
    } else if (!row.isPlainText) {
      opacity = kPlainOpacity;
    }
    if (row.isBox) {
      Symbols::paint(
          painter, row.isDone ? QStringLiteral("boxDone") : QStringLiteral("box"), row.box.translated(origin),
          tokens::faded(m_style.ink, row.isDone ? std::max(kBoxDoneOpacity, m_style.doneOpacity) : kBoxOpenOpacity));
    }
    painter.setPen(tokens::faded(m_style.ink, opacity));
    row.layout->draw(&painter, origin);
  }
  painter.restore();
}

int StickyChecklistBody::checklistLineAt(const QPointF& point) const {
  if (point.x() < -4 || point.x() > m_style.width + 4) return -1;
  for (const Row& row : m_rows) {
    if (!row.isBox || point.y() < row.top || point.y() >= row.bottom) continue;
    // The row reacts where it has something: from its box to the end of its widest line.
    double reach = 0;
    for (int i = 0; i < row.layout->lineCount(); ++i) {
      const QTextLine line = row.layout->lineAt(i);
      reach = std::max(reach, line.naturalTextWidth());
    }
    const double fromLead = m_style.direction == Qt::RightToLeft ? m_style.width - point.x() : point.x();
    return fromLead <= m_style.boxSize + kBoxGap + reach + 6 ? row.line : -1;
  }
  return -1;
}

QString StickyChecklistBody::shownText() const {
  QStringList rows;
  for (const Row& row : m_rows) rows << row.layout->text();
  return rows.join(u'\n');
}

QString StickyChecklistBody::counter(const QString& text) {
  const auto progress = StickyChecklist::progress(text);
  return progress ? QStringLiteral("%1/%2").arg(progress->done).arg(progress->total) : QString();
}

void StickyChecklistBody::toggleLine(Task& task, int line, ModelContext& context) {
  task.set(&TaskRecord::text, StickyChecklist::toggle(task.text(), line));
  (void)context.save();  // what could not be written stays visible and is written with the next change
}

}  // namespace tarnwick
