// SPDX-License-Identifier: MIT
// An icon that is drawn when it is asked for, at the size asked for: a start pays for no size that nobody shows.
#pragma once

#include <QIconEngine>
#include <QPixmap>

#include <functional>
#include <map>

namespace tarnwick {

class SvgIconEngine final : public QIconEngine {
 public:
  using Draw = std::function<QPixmap(int pixels)>;
  /// `sizes` are what window managers and trays are offered.
  SvgIconEngine(QList<QSize> sizes, Draw draw);

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
  QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override;
  [[nodiscard]] QIconEngine* clone() const override;

 private:
  QList<QSize> m_sizes;
  Draw m_draw;
  std::map<int, QPixmap> m_drawn;
};

}  // namespace tarnwick
