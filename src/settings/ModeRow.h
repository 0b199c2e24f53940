// SPDX-License-Identifier: MIT
// One choice of a picker whose choices each need a symbol and a sentence: a radio button as a row of its group.
#pragma once

#include <QRadioButton>

namespace tarnwick {

class ModeRow final : public QRadioButton {
  Q_OBJECT

 public:
  ModeRow(const QString& symbol, const QString& title, const QString& help, QWidget* parent = nullptr);

  [[nodiscard]] int heightForWidth(int width) const override;
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  [[nodiscard]] bool hitButton(const QPoint& position) const override;

 private:
  QString m_symbol;
  QString m_help;
};

}  // namespace tarnwick
