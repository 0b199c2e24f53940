// SPDX-License-Identifier: MIT
#include "effects/PixmapCache.h"

#include <QCoreApplication>
#include <QPaintDevice>
#include <QPainter>
#include <QThreadPool>

#include <algorithm>
#include <cmath>
#include <vector>

namespace tarnwick {

namespace {

struct Registered {
  std::mutex mutex;
  std::vector<PixmapCache*> caches;
};

Registered& registered() {
  static Registered all;
  return all;
}

// Pixmaps must not outlive the application object, static caches do.
void clearAll() {
  QThreadPool::globalInstance()->waitForDone();  // what still paints would keep one more
  const std::scoped_lock lock(registered().mutex);
  for (PixmapCache* cache : registered().caches) {
    cache->clear();
  }
}

}  // namespace

PixmapCache::PixmapCache(int kilobytes) : m_pixmaps(kilobytes) {
  const std::scoped_lock lock(registered().mutex);
  if (registered().caches.empty()) {
    qAddPostRoutine(clearAll);
  }
  registered().caches.push_back(this);
}

PixmapCache::~PixmapCache() {
  const std::scoped_lock lock(registered().mutex);
  std::erase(registered().caches, this);
}

QPixmap PixmapCache::fetch(const QString& key, const std::function<QPixmap()>& painted) {
  std::unique_lock lock(m_mutex);
  m_isPainted.wait(lock, [&] { return !m_painting.contains(key); });
  if (const QPixmap* kept = m_pixmaps.object(key)) {
    return *kept;
  }
  m_painting.insert(key);
  lock.unlock();
  QPixmap made = painted();
  lock.lock();
  const qsizetype kilobytes = qsizetype{made.width()} * made.height() / 256 + 1;
  m_pixmaps.insert(key, new QPixmap(made), kilobytes);
  m_painting.remove(key);
  lock.unlock();
  m_isPainted.notify_all();
  return made;
}

void PixmapCache::clear() {
  const std::scoped_lock lock(m_mutex);
  m_pixmaps.clear();
}

QPixmap clearPixmap(const QSizeF& size, double scale) {
  QPixmap pixmap(std::max(1, static_cast<int>(std::ceil(size.width() * scale))),
                 std::max(1, static_cast<int>(std::ceil(size.height() * scale))));
  pixmap.setDevicePixelRatio(scale);
  pixmap.fill(Qt::transparent);
  return pixmap;
}

double deviceScale(const QPainter& painter) {
  return painter.device() == nullptr ? 1.0 : painter.device()->devicePixelRatioF();
}

QPointF onPixel(const QPointF& point, const QPainter& painter) {
  const QTransform& toDevice = painter.deviceTransform();
  const QPointF device = toDevice.map(point);
  return toDevice.inverted().map(QPointF(std::round(device.x()), std::round(device.y())));
}

void paintCached(QPainter& painter, PixmapCache& cache, const QString& key, const QRectF& box,
                 const std::function<void(QPainter&)>& paint) {
  const double scale = deviceScale(painter);
  const QPixmap picture = cache.fetch(key + QLatin1Char('@') + QString::number(scale), [&] {
    QPixmap made = clearPixmap(box.size(), scale);
    QPainter inside(&made);
    inside.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    paint(inside);
    return made;
  });
  painter.drawPixmap(onPixel(box.topLeft(), painter), picture);
}

}  // namespace tarnwick
