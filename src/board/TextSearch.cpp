// SPDX-License-Identifier: MIT
#include "board/TextSearch.h"

#include <algorithm>

namespace tarnwick {

namespace {

constexpr char16_t kDotlessSmallI = 0x0131;
constexpr char16_t kDottedCapitalI = 0x0130;
constexpr char16_t kSharpS = 0x00DF;

// Letters that fold to one letter each and have nothing to compose: Latin up to the first combining accent, without the
// four whose folding is longer than themselves, and general punctuation with the currency signs.
constexpr bool isPlain(char16_t unit) {
  constexpr char16_t kPrecededN = 0x0149;
  constexpr char16_t kCaronJ = 0x01F0;
  if (unit < 0x0300) return unit != kSharpS && unit != kDottedCapitalI && unit != kPrecededN && unit != kCaronJ;
  return unit >= 0x2010 && unit < 0x20D0;
}

bool isPlain(const QString& text) {
  return std::ranges::all_of(text, [](QChar unit) { return isPlain(unit.unicode()); });
}

}  // namespace

TextSearch::TextSearch(const QString& needle, const QLocale& locale)
    : m_hasDottedI(locale.language() == QLocale::Turkish || locale.language() == QLocale::Azerbaijani),
      m_needle(folded(needle)) {}

bool TextSearch::isIn(const QString& text) const {
  if (m_needle.isEmpty()) return true;
  if (!m_hasDottedI && isPlain(text)) return text.contains(m_needle, Qt::CaseInsensitive);
  return folded(text).contains(m_needle);
}

QString TextSearch::folded(const QString& text) const {
  // Composed first: an accent typed as a character of its own is still the same letter.
  QString composed = text.normalized(QString::NormalizationForm_C);
  if (m_hasDottedI) {
    composed.replace(QChar(u'I'), QChar(kDotlessSmallI));
    composed.replace(QChar(kDottedCapitalI), QChar(u'i'));
  }
  composed = composed.toCaseFolded();
  // The one letter in common use whose capitals are two.
  composed.replace(QChar(kSharpS), QStringLiteral("ss"));
  return composed;
}

}  // namespace tarnwick
