// SPDX-License-Identifier: MIT
// Global chords through the desktop portal, for Wayland sessions, where a grab of keys reaches X11 programs only. The
// desktop may ask the user and may bind another chord; whether it binds at all shows in the traits a moment later.
#pragma once

#include "platform/HotKeys.h"

#include <QObject>
#include <QVariantMap>

#include <map>
#include <memory>

class QDBusMessage;

namespace tarnwick {

/// "LOGO+SHIFT+t" for "Meta+Shift+T"; empty when the text is no chord.
[[nodiscard]] QString portalTrigger(const QString& chord);

class PortalHotKeys final : public QObject, public HotKeys {
  Q_OBJECT
 public:
  PortalHotKeys();
  ~PortalHotKeys() override;

  [[nodiscard]] PortTraits traits() const override;
  [[nodiscard]] HotKeyRegistration registerChord(const QString& chord, std::function<void()> work) override;

 private Q_SLOTS:
  void sessionAnswered(uint response, const QVariantMap& results);
  void bindAnswered(uint response, const QVariantMap& results);
  void activated(const QDBusMessage& message);

 private:
  /// Calls a method whose answer comes as a signal of a request object.
  void request(const QString& method, QVariantList arguments, QVariantMap options, const char* answerSlot);
  void createSession();
  void closeSession();
  void bind();
  void fail(const QString& reason);

  using Works = std::map<QString, std::function<void()>>;  // chord -> work
  std::shared_ptr<Works> m_works;
  QString m_session;  // object path, empty until there is one
  bool m_isAsking = false;  // for a session
  bool m_hasBus = false;
  QString m_failure;
  int m_serial = 0;
};

}  // namespace tarnwick
