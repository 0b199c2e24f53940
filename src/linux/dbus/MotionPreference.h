// SPDX-License-Identifier: MIT
// Whether the user wants less motion: asked of the settings portal and of the desktop's own file, in the background.
#pragma once

#include <QDBusVariant>
#include <QObject>

namespace tarnwick {

class MotionPreference final : public QObject {
  Q_OBJECT
 public:
  MotionPreference();

  /// What is known now; motion is wanted until somebody answers otherwise.
  [[nodiscard]] bool isReduced() const { return m_isReduced || !m_hasAnimations; }

 private Q_SLOTS:
  void changed(const QString& space, const QString& key, const QDBusVariant& value);

 private:
  void ask(const QString& space, const QString& key);

  bool m_isReduced = false;     // org.freedesktop.appearance reduced-motion
  bool m_hasAnimations = true;  // the desktop's older switch
};

}  // namespace tarnwick
