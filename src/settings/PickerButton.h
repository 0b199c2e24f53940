// SPDX-License-Identifier: MIT
// A plate that shows the chosen one of a few values and opens a menu with the others.
#pragma once

#include "settings/PlateButton.h"

#include <QString>
#include <QWheelEvent>

#include <functional>
#include <vector>

class QMenu;

namespace tarnwick {

class PickerButton final : public PlateButton {
  Q_OBJECT

 public:
  struct Option {
    QString value;
    QString label;
    std::function<void(QPainter& painter, const QRectF& box)> picture;
  };

  PickerButton(const QString& name, std::vector<Option> options, QWidget* parent = nullptr);

  [[nodiscard]] QString value() const { return m_options[m_current].value; }
  /// A value that is no option leaves the first one shown.
  void setValue(const QString& value);

 Q_SIGNALS:
  /// The user chose.
  void picked(const QString& value);

 protected:
  [[nodiscard]] QSizeF leadingSize() const override { return {20, 18}; }
  [[nodiscard]] QSizeF trailingSize() const override { return {12, 12}; }
  void paintLeading(QPainter& painter, const QRectF& box) const override;
  void paintTrailing(QPainter& painter, const QRectF& box) const override;
  [[nodiscard]] QString word() const override { return m_options[m_current].label; }
  [[nodiscard]] int sidePadding() const override { return 10; }
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }

 private:
  void open();
  void choose(std::size_t index);

  QString m_name;
  std::vector<Option> m_options;
  std::size_t m_current = 0;
  QMenu* m_menu;
};

}  // namespace tarnwick
