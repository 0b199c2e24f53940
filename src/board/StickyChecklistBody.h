// SPDX-License-Identifier: MIT
// Lays out and paints a note's text: plain lines, tap-to-check boxes, elision, search marks. Board cards and torn-off
// notes share it; who shows it decides what a tapped row writes.
#pragma once

#include "model/Task.h"

#include <QColor>
#include <QFont>
#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QString>
#include <QTextLayout>

#include <memory>
#include <vector>

class QPainter;

namespace tarnwick {

class ModelContext;

class StickyChecklistBody final {
 public:
  struct Style {
    QFont font;
    double lineHeight = 17;
    QColor ink;
    double width = 152;
    double firstLineInset = 0;  // what the first line leaves free at its trailing end
    QPolygonF keepOut;  // lines that would run into this shape end before it
    int maxLines = 0;           // the last one is elided; 0 = all
    double boxSize = 13;
    double rowGap = 0;  // between checklist rows
    QString mark;       // text to highlight, any case; empty = none
    Qt::LayoutDirection direction = Qt::LeftToRight;
    double doneOpacity = 0.40;
  };

  StickyChecklistBody() = default;
  StickyChecklistBody(const QString& text, const Style& style);
  StickyChecklistBody(StickyChecklistBody&&) noexcept = default;
  StickyChecklistBody& operator=(StickyChecklistBody&&) noexcept = default;

  [[nodiscard]] double height() const { return m_height; }
  [[nodiscard]] bool isElided() const { return m_isElided; }
  /// The words as they stand there, with the dots of what is left out.
  [[nodiscard]] QString shownText() const;
  void paint(QPainter& painter, const QPointF& origin) const;
  /// Index of the checklist line of the text under a point relative to the origin; -1 for none.
  [[nodiscard]] int checklistLineAt(const QPointF& point) const;
  /// "done/total" of the text; empty when it has no boxes.
  [[nodiscard]] static QString counter(const QString& text);
  /// What tapping a row does: flips the line and saves.
  static void toggleLine(Task& task, int line, ModelContext& context);

 private:
  struct Row {
    std::unique_ptr<QTextLayout> layout;
    int line = 0;  // index in the text
    bool isBox = false;
    bool isDone = false;
    bool isPlainText = true;  // of a note without any boxes: full ink
    double top = 0;
    double bottom = 0;
    QRectF box;
  };

  Style m_style;
  std::vector<Row> m_rows;
  double m_height = 0;
  bool m_isElided = false;
};

}  // namespace tarnwick
