// SPDX-License-Identifier: MIT
// A rounded plate of rows with hairlines between them.
#pragma once

#include <QWidget>

class QVBoxLayout;

namespace tarnwick {

class SettingsGroup final : public QWidget {
  Q_OBJECT

 public:
  explicit SettingsGroup(QWidget* parent = nullptr);
  void addRow(QWidget* row);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QVBoxLayout* m_rows;
};

}  // namespace tarnwick
