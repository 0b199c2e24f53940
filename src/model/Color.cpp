// SPDX-License-Identifier: MIT
#include "model/Color.h"

#include <QCoreApplication>
#include <QList>

namespace tarnwick {

namespace {

constexpr double kInkFraction = 0.78;

bool isAlphanumeric(char32_t character) {
  return QChar::isLetterOrNumber(character) || QChar::isMark(character);
}

int hexDigit(char32_t character) {
  if (character >= U'0' && character <= U'9') return static_cast<int>(character - U'0');
  if (character >= U'a' && character <= U'f') return static_cast<int>(character - U'a') + 10;
  if (character >= U'A' && character <= U'F') return static_cast<int>(character - U'A') + 10;
  return -1;
}

/// Reads as far as there are digits, behind an optional "0x"; nothing readable is 0.
unsigned scanHex(const QList<uint>& text) {
  qsizetype at = 0;
  if (text.size() > 2 && text[0] == U'0' && (text[1] == U'x' || text[1] == U'X') && hexDigit(text[2]) >= 0) at = 2;
  unsigned value = 0;
  for (; at < text.size(); ++at) {
    const int digit = hexDigit(text[at]);
    if (digit < 0) break;
    value = value * 16 + static_cast<unsigned>(digit);
  }
  return value;
}

QColor fromComponents(unsigned red, unsigned green, unsigned blue) {
  return QColor(static_cast<int>(red), static_cast<int>(green), static_cast<int>(blue));
}

}  // namespace

QColor Color::fromHex(const QString& text) {
  auto characters = text.toUcs4();
  while (!characters.isEmpty() && !isAlphanumeric(characters.last())) characters.removeLast();
  qsizetype leading = 0;
  while (leading < characters.size() && !isAlphanumeric(characters[leading])) ++leading;
  characters.remove(0, leading);

  if (characters.size() == 6) {
    const auto value = scanHex(characters);
    return fromComponents(value >> 16, (value >> 8) & 255, value & 255);
  }
  if (characters.size() == 3) {
    const auto value = scanHex(characters);
    return fromComponents((value >> 8) * 17, ((value >> 4) & 15) * 17, (value & 15) * 17);
  }
  return QColor(255, 255, 255);
}

QColor Color::inkOnPaper(const QString& paperHex) {
  return blend(fromHex(paperHex), QColor(0, 0, 0), kInkFraction);
}

QColor Color::blend(const QColor& from, const QColor& to, double fraction) {
  const auto mix = [fraction](float a, float b) {
    return static_cast<float>(static_cast<double>(a) * (1 - fraction) + static_cast<double>(b) * fraction);
  };
  return QColor::fromRgbF(mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()), mix(from.blueF(), to.blueF()),
                          mix(from.alphaF(), to.alphaF()));
}

QString paperColorName(const QString& paperHex) {
  static constexpr std::array kNames{
      QT_TRANSLATE_NOOP("PaperColor", "Lemon"),   QT_TRANSLATE_NOOP("PaperColor", "Coral"),
      QT_TRANSLATE_NOOP("PaperColor", "Apricot"), QT_TRANSLATE_NOOP("PaperColor", "Mint"),
      QT_TRANSLATE_NOOP("PaperColor", "Sky"),     QT_TRANSLATE_NOOP("PaperColor", "Cobalt"),
      QT_TRANSLATE_NOOP("PaperColor", "Orchid")};
  for (std::size_t i = 0; i < kPaperPalette.size(); ++i) {
    if (Color::fromHex(paperHex) == Color::fromHex(kPaperPalette[i]))
      return QCoreApplication::translate("PaperColor", kNames[i]);
  }
  return paperHex;
}

}  // namespace tarnwick
