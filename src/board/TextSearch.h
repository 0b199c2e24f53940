// SPDX-License-Identifier: MIT
// Containment that ignores case by the rules of the user's language. Made once per search, asked once per note; a text of
// plain Latin letters costs little more than the library's own search.
#pragma once

#include <QLocale>
#include <QString>

namespace tarnwick {

class TextSearch final {
 public:
  TextSearch(const QString& needle, const QLocale& locale);

  /// An empty search is in every text.
  [[nodiscard]] bool isIn(const QString& text) const;

 private:
  [[nodiscard]] QString folded(const QString& text) const;

  bool m_hasDottedI = false;  // languages in which I and i are two letters
  QString m_needle;           // folded
};

}  // namespace tarnwick
