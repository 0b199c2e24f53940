// SPDX-License-Identifier: MIT
// Keeps pictures that were painted once, bounded by their memory, until the application object goes. From any thread.
#pragma once

#include <QCache>
#include <QPixmap>
#include <QSet>
#include <QString>

#include <condition_variable>
#include <functional>
#include <mutex>

class QPainter;

namespace tarnwick {

class PixmapCache {
 public:
  explicit PixmapCache(int kilobytes);
  PixmapCache(const PixmapCache&) = delete;
  PixmapCache& operator=(const PixmapCache&) = delete;
  ~PixmapCache();

  /// The picture of the key, not to be changed: other threads may be reading it. Painted now when it is not there; whoever
  /// comes while another thread paints it waits for that.
  [[nodiscard]] QPixmap fetch(const QString& key, const std::function<QPixmap()>& painted);
  void clear();

 private:
  std::mutex m_mutex;
  std::condition_variable m_isPainted;
  QSet<QString> m_painting;
  QCache<QString, QPixmap> m_pixmaps;
};

/// An empty picture of a size in device-independent pixels.
[[nodiscard]] QPixmap clearPixmap(const QSizeF& size, double scale);
/// Device pixels per device-independent pixel of what is painted on.
[[nodiscard]] double deviceScale(const QPainter& painter);

/// A point of the painter moved onto the nearest device pixel: a picture drawn between two is blurred.
[[nodiscard]] QPointF onPixel(const QPointF& point, const QPainter& painter);
/// Draws what fills a box: painted once per key and scale, with the box's corner as its origin, and one ready picture from
/// then on. For a painter that is neither turned nor scaled.
void paintCached(QPainter& painter, PixmapCache& cache, const QString& key, const QRectF& box,
                 const std::function<void(QPainter&)>& paint);

}  // namespace tarnwick
