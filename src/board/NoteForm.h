// SPDX-License-Identifier: MIT
// What composer and editor share below their heads: the live sheet, colours and themes, six options.
#pragma once

#include "board/BoardServices.h"
#include "board/NoteEditing.h"

#include <QWidget>

#include <optional>

namespace tarnwick {

class AppPinChip;
class ChecklistEdit;
class ColorSwatches;
class DateBlock;
class InkButton;
class OptionChip;
class ThemeChips;

class NoteForm final : public QWidget {
  Q_OBJECT

 public:
  NoteForm(const BoardServices& services, QWidget* parent);

  /// `dueDate` is what the date starts from when "due" is switched on.
  void setDraft(const NoteDraft& draft, const QDateTime& dueDate, const std::optional<QString>& pinnedBundleID);
  [[nodiscard]] NoteDraft draft() const;
  void setBoards(const QStringList& boards) { m_boards = boards; }
  [[nodiscard]] QList<QWidget*> stops() const;
  [[nodiscard]] ChecklistEdit& text() { return *m_text; }
  /// True when the date block was open and is closed now.
  bool closeDateBlock();
  [[nodiscard]] bool isDateBlockOpen() const;
  [[nodiscard]] OptionChip& dueChip() { return *m_due; }
  [[nodiscard]] OptionChip& repeatChip() { return *m_repeat; }
  [[nodiscard]] OptionChip& stampChip() { return *m_stampChip; }
  [[nodiscard]] OptionChip& boardChip() { return *m_boardChip; }
  [[nodiscard]] AppPinChip& appChip() { return *m_app; }
  [[nodiscard]] OptionChip& privateChip() { return *m_private; }

 Q_SIGNALS:
  void changed();
  void submitted();
  void cancelled();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void layOut();
  void refresh();
  void openDateBlock();
  void popUp(class StickyMenu* menu, QWidget* under);
  void chooseRepeat();
  void chooseStamp();
  void chooseBoard();
  void choosePins();
  [[nodiscard]] QString dueText() const;
  [[nodiscard]] QRectF sheetRect() const { return {14, 54, 362, 148}; }

  const BoardServices& m_services;
  NoteDraft m_draft;
  bool m_dueEnabled = false;
  QDateTime m_dueDate;
  QStringList m_boards;
  ChecklistEdit* m_text;
  InkButton* m_checklist;
  ColorSwatches* m_colors;
  ThemeChips* m_themes;
  OptionChip* m_due;
  OptionChip* m_repeat;
  OptionChip* m_stampChip;
  OptionChip* m_boardChip;
  AppPinChip* m_app;
  OptionChip* m_private;
  DateBlock* m_dateBlock;
};

}  // namespace tarnwick
