// SPDX-License-Identifier: MIT
#include "platform/DesktopGeometry.h"

#include <QRegularExpression>

#include <algorithm>

namespace tarnwick {

DesktopRect DesktopRect::intersected(const DesktopRect& other) const {
  const double left = std::max(minX(), other.minX());
  const double bottom = std::max(minY(), other.minY());
  const double right = std::min(maxX(), other.maxX());
  const double top = std::min(maxY(), other.maxY());
  if (right <= left || top <= bottom) return {};
  return {left, bottom, right - left, top - bottom};
}

QString toText(const DesktopRect& rect) {
  const auto number = [](double value) { return QString::number(value, 'g', 12); };
  return QStringLiteral("{{%1, %2}, {%3, %4}}")
      .arg(number(rect.x), number(rect.y), number(rect.width), number(rect.height));
}

std::optional<DesktopRect> rectFromText(const QString& text) {
  static const QRegularExpression form(
      QStringLiteral(R"(^\s*\{\s*\{\s*([^,{}]+),\s*([^,{}]+)\}\s*,\s*\{\s*([^,{}]+),\s*([^,{}]+)\}\s*\}\s*$)"));
  const auto match = form.match(text);
  if (!match.hasMatch()) return std::nullopt;
  double values[4] = {};
  for (int i = 0; i < 4; ++i) {
    bool isNumber = false;
    values[i] = match.captured(i + 1).trimmed().toDouble(&isNumber);
    if (!isNumber || !qIsFinite(values[i])) return std::nullopt;
  }
  return DesktopRect{values[0], values[1], values[2], values[3]};
}

}  // namespace tarnwick
