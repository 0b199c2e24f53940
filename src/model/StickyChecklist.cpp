// SPDX-License-Identifier: MIT
#include "model/StickyChecklist.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView kOpen("[ ]");
constexpr QLatin1StringView kDone("[x]");
constexpr QLatin1StringView kDoneUpper("[X]");
constexpr QLatin1StringView kFreshItem("- [ ] ");

/// What the newline character set holds: every one of these ends a line, so CR LF ends two.
bool isNewline(QChar character) {
  const auto code = character.unicode();
  return (code >= 0x0A && code <= 0x0D) || code == 0x85 || code == 0x2028 || code == 0x2029;
}

/// Blanks (all that Unicode counts as space between words) and tabs.
bool isBlank(QChar character) {
  return character == u'\t' || character.category() == QChar::Separator_Space;
}

QString trimmed(const QString& text) {
  qsizetype begin = 0;
  qsizetype end = text.size();
  while (begin < end && isBlank(text[begin])) ++begin;
  while (end > begin && isBlank(text[end - 1])) --end;
  return text.mid(begin, end - begin);
}

bool hasMarker(const QString& line) {
  return line.contains(kOpen) || StickyChecklist::isDoneLine(line);
}

}  // namespace

QStringList StickyChecklist::lines(const QString& text) {
  QStringList result;
  qsizetype begin = 0;
  for (qsizetype at = 0; at < text.size(); ++at) {
    if (!isNewline(text[at])) continue;
    result.append(text.mid(begin, at - begin));
    begin = at + 1;
  }
  result.append(text.mid(begin));
  return result;
}

bool StickyChecklist::hasChecklist(const QString& text) {
  const auto all = lines(text);
  return std::any_of(all.begin(), all.end(), isChecklistLine);
}

bool StickyChecklist::isChecklistLine(const QString& line) {
  return hasMarker(line);
}

bool StickyChecklist::isDoneLine(const QString& line) {
  return line.contains(kDone) || line.contains(kDoneUpper);
}

QString StickyChecklist::ensureChecklist(const QString& text) {
  if (trimmed(text).isEmpty()) return kFreshItem;
  if (hasChecklist(text)) return text + (text.endsWith(u'\n') ? QString(kFreshItem) : u'\n' + kFreshItem);
  QStringList items;
  for (const auto& line : lines(text)) {
    const auto item = trimmed(line);
    if (!item.isEmpty()) items.append(kFreshItem + item);
  }
  return items.join(u'\n');
}

QString StickyChecklist::label(const QString& line) {
  // The upper-case star form is missing on purpose: there the star stays in the label.
  static constexpr std::array kMarkers{"- [ ]", "- [x]", "- [X]", "* [ ]", "* [x]", "[ ]", "[x]", "[X]"};
  auto text = line;
  for (const auto* marker : kMarkers) text.remove(QLatin1StringView(marker));
  return trimmed(text);
}

QString StickyChecklist::toggle(const QString& text, int index) {
  auto all = lines(text);
  if (index < 0 || index >= all.size()) return text;
  auto& line = all[index];
  if (isDoneLine(line)) {
    line.replace(kDoneUpper, kOpen);
    line.replace(kDone, kOpen);
  } else {
    line.replace(kOpen, kDone);
  }
  return all.join(u'\n');
}

std::optional<StickyChecklist::Progress> StickyChecklist::progress(const QString& text) {
  Progress result;
  for (const auto& line : lines(text)) {
    if (!isChecklistLine(line)) continue;
    ++result.total;
    if (isDoneLine(line)) ++result.done;
  }
  if (result.total == 0) return std::nullopt;
  return result;
}

}  // namespace tarnwick
