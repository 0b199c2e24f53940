// SPDX-License-Identifier: MIT
#include "effects/PlainToolTip.h"

namespace tarnwick {

namespace {
constexpr qsizetype kLongest = 500;
}

QString plainToolTip(const QString& text) {
  if (text.isEmpty()) return text;
  QString shown = text.left(kLongest);
  if (shown.size() < text.size()) {
    if (shown.back().isHighSurrogate()) shown.chop(1);
    shown += QChar(0x2026);
  }
  // Only as markup does Qt wrap a tip, and only what is escaped stays the user's own words.
  return QStringLiteral("<p style=\"white-space:pre-wrap\">%1</p>").arg(shown.toHtmlEscaped());
}

}  // namespace tarnwick
