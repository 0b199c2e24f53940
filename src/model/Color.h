// SPDX-License-Identifier: MIT
// Paper colours: parsing their stored text, the ink that is readable on them, and the palette.
#pragma once

#include <QColor>
#include <QString>

#include <array>

namespace tarnwick {

class Color {
 public:
  /// sRGB, opaque. Takes six or three hexadecimal digits with anything but letters and digits around them; any other
  /// length is white, an unreadable number black.
  [[nodiscard]] static QColor fromHex(const QString& text);
  /// The paper colour blended 78 % towards black.
  [[nodiscard]] static QColor inkOnPaper(const QString& paperHex);
  /// Component-wise blend in sRGB; 0 = from, 1 = to.
  [[nodiscard]] static QColor blend(const QColor& from, const QColor& to, double fraction);
};

/// Lemon, Coral, Apricot, Mint, Sky, Cobalt, Orchid: what composer, editor and the colour cycle offer, in order.
inline const std::array<QString, 7> kPaperPalette{
    QStringLiteral("#FFE169"), QStringLiteral("#FF7597"), QStringLiteral("#FFA647"), QStringLiteral("#06D6A0"),
    QStringLiteral("#4CC9F0"), QStringLiteral("#3A86FF"), QStringLiteral("#C77DFF")};

/// Accessible name of a palette colour; the hex text itself for others.
[[nodiscard]] QString paperColorName(const QString& paperHex);

}  // namespace tarnwick
