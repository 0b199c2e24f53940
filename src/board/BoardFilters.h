// SPDX-License-Identifier: MIT
// The two filters under the rail: the search field and the row of tag flags.
#pragma once

#include "board/ChoiceRow.h"
#include "model/Enumerations.h"
#include "platform/Registration.h"

#include <QWidget>

class QLineEdit;

namespace tarnwick {

class ToolButton;

class SearchField final : public QWidget {
  Q_OBJECT

 public:
  explicit SearchField(QWidget* parent = nullptr);
  [[nodiscard]] QString text() const;
  void setText(const QString& text);
  [[nodiscard]] QLineEdit& edit() { return *m_edit; }
  [[nodiscard]] QSize sizeHint() const override { return {362, 30}; }

 Q_SIGNALS:
  void textChanged(const QString& text);
  void closeRequested();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLineEdit* m_edit;
  ToolButton* m_close;
};

class TagRow final : public ChoiceRow {
  Q_OBJECT

 public:
  explicit TagRow(QWidget* parent = nullptr);
  [[nodiscard]] TaskTag tag() const { return kTaskTags[static_cast<std::size_t>(current())]; }
  [[nodiscard]] int count() const override { return static_cast<int>(kTaskTags.size()); }
  [[nodiscard]] QString itemName(int index) const override;
  [[nodiscard]] QRectF itemRect(int index) const override;

 protected:
  void paintItem(QPainter& painter, int index, const ItemState& state) override;
};

}  // namespace tarnwick
