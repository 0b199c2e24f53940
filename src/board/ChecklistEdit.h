// SPDX-License-Identifier: MIT
// The text field on the composer's sheet. Checkbox lines show a box instead of their marker; what was not touched is
// given back to the letter.
#pragma once

#include <QColor>
#include <QString>
#include <QTextEdit>

#include <functional>

namespace tarnwick {

class ChecklistEdit final : public QTextEdit {
  Q_OBJECT

 public:
  explicit ChecklistEdit(QWidget* parent = nullptr);

  void setNoteText(const QString& text);
  [[nodiscard]] QString noteText() const;
  [[nodiscard]] bool hasBoxes() const;
  /// Makes the lines checkboxes, or adds one more; can be undone.
  void ensureChecklist();
  void setInk(const QColor& ink);
  void setHint(const QString& hint) { m_hint = hint; }
  /// Tells whether the caret is to be seen now.
  void setCaretSource(std::function<bool()> isCaretOn) { m_isCaretOn = std::move(isCaretOn); }

 Q_SIGNALS:
  void submitted();
  void cancelled();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void insertFromMimeData(const QMimeData* source) override;

 private:
  enum class History { Forget, Keep };
  void fill(const QString& text, History history);
  [[nodiscard]] QTextBlockFormat formatOf(const QString& line) const;
  [[nodiscard]] QRectF boxOf(const QTextBlock& block) const;
  [[nodiscard]] QTextBlock boxAt(const QPointF& point) const;
  void toggle(QTextBlock block);

  QColor m_ink;
  QString m_hint;
  std::function<bool()> m_isCaretOn;
};

}  // namespace tarnwick
