// SPDX-License-Identifier: MIT
// A row of rounded key glyphs.
#pragma once

#include <QStringList>
#include <QWidget>

namespace tarnwick {

class KeyCaps final : public QWidget {
  Q_OBJECT
 public:
  explicit KeyCaps(const QStringList& keys, QWidget* parent = nullptr);
  void setKeys(const QStringList& keys);
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] double capWidth(const QString& key) const;

  QStringList m_keys;
};

}  // namespace tarnwick
