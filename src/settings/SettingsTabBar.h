// SPDX-License-Identifier: MIT
// The row of pane tabs: a symbol over a word, the selected one on a paper label.
#pragma once

#include <QTabBar>

#include <vector>

namespace tarnwick {

class SettingsTabBar final : public QTabBar {
  Q_OBJECT

 public:
  explicit SettingsTabBar(QWidget* parent = nullptr);
  void addPane(const QString& symbol, const QString& label);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  [[nodiscard]] QSize tabSizeHint(int index) const override;
  [[nodiscard]] QSize minimumTabSizeHint(int index) const override { return tabSizeHint(index); }

 private:
  void paintTab(QPainter& painter, int index) const;

  std::vector<QString> m_symbols;
  int m_hovered = -1;
};

}  // namespace tarnwick
