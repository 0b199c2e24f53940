// SPDX-License-Identifier: MIT
#include "board/TextSearch.h"

namespace tarnwick {

namespace {

constexpr char16_t kDotlessSmallI = 0x0131;
constexpr char16_t kDottedCapitalI = 0x0130;
constexpr char16_t kSharpS = 0x00DF;

bool isAscii(const QString& text) {
  char16_t seen = 0;
  for (const QChar unit : text) seen |= unit.unicode();
  return seen < 0x80;
}

}  // namespace

TextSearch::TextSearch(const QString& needle, const QLocale& locale)
    : m_hasDottedI(locale.language() == QLocale::Turkish || locale.language() == QLocale::Azerbaijani),
      m_needle(folded(needle)) {}

bool TextSearch::isIn(const QString& text) const {
  if (m_needle.isEmpty()) return true;
  if (!isAscii(text)) return folded(text).contains(m_needle);
  m_scratch.resize(text.size());
  QChar* to = m_scratch.data();
  const char16_t smallI = m_hasDottedI ? kDotlessSmallI : u'i';
  for (const QChar from : text) {
    const char16_t unit = from.unicode();
    const bool isCapital = unit >= u'A' && unit <= u'Z';
    *to++ = QChar(unit == u'I' ? smallI : static_cast<char16_t>(isCapital ? unit + 0x20 : unit));
  }
  return m_scratch.contains(m_needle);
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
