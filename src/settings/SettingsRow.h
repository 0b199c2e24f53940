// SPDX-License-Identifier: MIT
// One line of a group: a bold title with grey help under it, a symbol before, a control behind.
#pragma once

#include <QColor>
#include <QWidget>

class QHBoxLayout;
class QVBoxLayout;

namespace tarnwick {

class SettingsText;

class SettingsRow final : public QWidget {
  Q_OBJECT

 public:
  explicit SettingsRow(const QString& title, const QString& help = {}, QWidget* parent = nullptr);

  void setSymbol(const QString& symbol, QRgb color);
  /// `overhang`: how far the control reaches into the trailing margin, as room for its focus ring.
  void setControl(QWidget* control, int overhang = 0);
  /// A further line under the help text.
  SettingsText* addLine(const QString& text, QRgb color);

 private:
  QHBoxLayout* m_row;
  QVBoxLayout* m_lines;
};

}  // namespace tarnwick
