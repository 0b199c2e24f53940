// SPDX-License-Identifier: MIT
// What lies across the board for a while: the update banner under the rail and the ash ledge along the floor.
#pragma once

#include "effects/PaintedButton.h"

#include <QString>
#include <QWidget>

namespace tarnwick {

class ToolButton;

/// A newer Tarnwick is out.
class UpdateBanner final : public QWidget {
  Q_OBJECT

 public:
  explicit UpdateBanner(QWidget* parent = nullptr);
  void setVersion(const QString& version);
  [[nodiscard]] QList<QWidget*> stops() const;
  [[nodiscard]] QSize sizeHint() const override { return {390, 36}; }

 Q_SIGNALS:
  void downloadRequested();
  void dismissed();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QString m_version;
  QAbstractButton* m_get;
  ToolButton* m_close;
};

/// "2 burned last night · Revive" on its heap of ash.
class AshesStrip final : public PaintedButton {
  Q_OBJECT

 public:
  explicit AshesStrip(QWidget* parent = nullptr);
  void setCount(int count);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  [[nodiscard]] bool hitButton(const QPoint& point) const override;
};

}  // namespace tarnwick
