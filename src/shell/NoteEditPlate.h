// SPDX-License-Identifier: MIT
// The in-place editor of a note on the desktop: the text, the button that makes boxes of its lines, Cancel and Save, and
// the line that says a save failed. What is written where is the note view's.
#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QWidget>

namespace tarnwick {

class ChecklistEdit;
class Scheduler;

/// A small button of lighter paper, or of the note's ink for what the user most likely wants.
class PaperChip final : public QAbstractButton {
  Q_OBJECT

 public:
  enum class Fill { Paper, Ink };
  PaperChip(const QString& text, const QString& symbol, Fill fill, QWidget* parent);
  void setInk(const QColor& ink);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QString m_symbol;
  Fill m_fill;
  QColor m_ink;
};

enum class SaveState { Fine, Failed };

class NoteEditPlate final : public QWidget {
  Q_OBJECT

 public:
  NoteEditPlate(Scheduler& scheduler, QWidget* parent);

  /// Shows the text and takes the keyboard.
  void begin(const QString& text, const QColor& ink);
  [[nodiscard]] QString draft() const;
  void setSaveState(SaveState state);
  [[nodiscard]] SaveState saveState() const { return m_saveState; }
  [[nodiscard]] ChecklistEdit& editor() const { return *m_editor; }

 Q_SIGNALS:
  void saveRequested();
  void cancelRequested();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void layOut();
  void makeChecklist();
  [[nodiscard]] QRectF boxRect() const;
  [[nodiscard]] QRectF failureRect() const;

  ChecklistEdit* m_editor;
  PaperChip* m_checklist;
  PaperChip* m_cancel;
  PaperChip* m_save;
  QWidget* m_failure;  // what assistive programs read; painted by the plate
  QColor m_ink;
  SaveState m_saveState = SaveState::Fine;
};

}  // namespace tarnwick
