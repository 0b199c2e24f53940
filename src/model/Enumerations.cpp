// SPDX-License-Identifier: MIT
#include "model/Enumerations.h"

#include "model/Color.h"

#include <QCoreApplication>

#include <algorithm>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

template <typename E>
struct Names;

template <>
struct Names<TaskTag> {
  static constexpr auto& kCases = kTaskTags;
  static constexpr std::array kRaw{"none", "red", "orange", "yellow", "green", "blue", "pink"};
};
template <>
struct Names<Recurrence> {
  static constexpr auto& kCases = kRecurrences;
  static constexpr std::array kRaw{"none", "daily", "weekdays", "weekly", "every3Days", "monthly"};
};
template <>
struct Names<PaperTheme> {
  static constexpr auto& kCases = kPaperThemes;
  static constexpr std::array kRaw{"plain", "graph", "lined", "parchment", "construction"};
};
template <>
struct Names<TaskStamp> {
  static constexpr auto& kCases = kTaskStamps;
  static constexpr std::array kRaw{"none", "urgent", "focus", "priority", "star", "idea", "approved"};
};
template <>
struct Names<NoteDisplayMode> {
  static constexpr auto& kCases = kNoteDisplayModes;
  static constexpr std::array kRaw{"alwaysOnTop", "desktop", "mouseThrough"};
};
template <>
struct Names<BoardMood> {
  static constexpr auto& kCases = kBoardMoods;
  static constexpr std::array kRaw{"obsidian", "corkboard", "drafting", "acrylic"};
};

template <typename E>
QString rawValueOf(E value) {
  static_assert(Names<E>::kCases.size() == Names<E>::kRaw.size());
  return QString::fromLatin1(Names<E>::kRaw.at(static_cast<std::size_t>(value)));
}

}  // namespace

QString rawValue(TaskTag tag) {
  return rawValueOf(tag);
}
QString rawValue(Recurrence recurrence) {
  return rawValueOf(recurrence);
}
QString rawValue(PaperTheme theme) {
  return rawValueOf(theme);
}
QString rawValue(TaskStamp stamp) {
  return rawValueOf(stamp);
}
QString rawValue(NoteDisplayMode mode) {
  return rawValueOf(mode);
}
QString rawValue(BoardMood mood) {
  return rawValueOf(mood);
}

template <typename E>
std::optional<E> fromRawValue(const QString& raw) {
  const auto& names = Names<E>::kRaw;
  const auto found =
      std::find_if(names.begin(), names.end(), [&](const char* name) { return raw == QLatin1StringView(name); });
  if (found == names.end()) return std::nullopt;
  return Names<E>::kCases.at(static_cast<std::size_t>(found - names.begin()));
}

template std::optional<TaskTag> fromRawValue(const QString&);
template std::optional<Recurrence> fromRawValue(const QString&);
template std::optional<PaperTheme> fromRawValue(const QString&);
template std::optional<TaskStamp> fromRawValue(const QString&);
template std::optional<NoteDisplayMode> fromRawValue(const QString&);
template std::optional<BoardMood> fromRawValue(const QString&);

std::optional<GlassVariant> glassVariantFromRawValue(int raw) {
  for (const auto variant : {GlassVariant::soft, GlassVariant::clear, GlassVariant::dense}) {
    if (static_cast<int>(variant) == raw) return variant;
  }
  return std::nullopt;
}

QString label(Recurrence recurrence) {
  switch (recurrence) {
    case Recurrence::none:
      return QCoreApplication::translate("Recurrence", "Does not repeat");
    case Recurrence::daily:
      return QCoreApplication::translate("Recurrence", "Every day");
    case Recurrence::weekdays:
      return QCoreApplication::translate("Recurrence", "Every weekday");
    case Recurrence::weekly:
      return QCoreApplication::translate("Recurrence", "Every week");
    case Recurrence::every3Days:
      return QCoreApplication::translate("Recurrence", "Every 3 days");
    case Recurrence::monthly:
      return QCoreApplication::translate("Recurrence", "Every month");
  }
  return {};
}

QString label(PaperTheme theme) {
  switch (theme) {
    case PaperTheme::plain:
      return QCoreApplication::translate("PaperTheme", "Plain Paper");
    case PaperTheme::graph:
      return QCoreApplication::translate("PaperTheme", "Graph Paper");
    case PaperTheme::lined:
      return QCoreApplication::translate("PaperTheme", "Lined Notebook");
    case PaperTheme::parchment:
      return QCoreApplication::translate("PaperTheme", "Parchment");
    case PaperTheme::construction:
      return QCoreApplication::translate("PaperTheme", "Dark Craft");
  }
  return {};
}

QString label(TaskStamp stamp) {
  switch (stamp) {
    case TaskStamp::none:
      return QCoreApplication::translate("TaskStamp", "No Stamp");
    case TaskStamp::urgent:
      return QCoreApplication::translate("TaskStamp", "URGENT");
    case TaskStamp::focus:
      return QCoreApplication::translate("TaskStamp", "FOCUS");
    case TaskStamp::priority:
      return QCoreApplication::translate("TaskStamp", "PRIORITY");
    case TaskStamp::star:
      return QCoreApplication::translate("TaskStamp", "STAR");
    case TaskStamp::idea:
      return QCoreApplication::translate("TaskStamp", "IDEA");
    case TaskStamp::approved:
      return QCoreApplication::translate("TaskStamp", "APPROVED");
  }
  return {};
}

QString label(NoteDisplayMode mode) {
  switch (mode) {
    case NoteDisplayMode::alwaysOnTop:
      return QCoreApplication::translate("NoteDisplayMode", "Always on Top");
    case NoteDisplayMode::desktop:
      return QCoreApplication::translate("NoteDisplayMode", "Desktop");
    case NoteDisplayMode::mouseThrough:
      return QCoreApplication::translate("NoteDisplayMode", "Ghost");
  }
  return {};
}

QString description(NoteDisplayMode mode) {
  switch (mode) {
    case NoteDisplayMode::alwaysOnTop:
      return QCoreApplication::translate("NoteDisplayMode", "Floats above all apps, including fullscreen");
    case NoteDisplayMode::desktop:
      return QCoreApplication::translate("NoteDisplayMode", "Sits on wallpaper, below other windows");
    case NoteDisplayMode::mouseThrough:
      return QCoreApplication::translate("NoteDisplayMode",
                                         "See-through for you, invisible in screenshots and screen shares. Clicks pass "
                                         "through; hold ⌥ to grab.");
  }
  return {};
}

QColor tintColor(TaskStamp stamp) {
  switch (stamp) {
    case TaskStamp::none:
      return QColor(0, 0, 0, 0);
    case TaskStamp::urgent:
      return Color::fromHex(u"#B91C1C"_s);
    case TaskStamp::focus:
      return Color::fromHex(u"#1E3A8A"_s);
    case TaskStamp::priority:
      return Color::fromHex(u"#92400E"_s);
    case TaskStamp::star:
      return Color::fromHex(u"#6B21A8"_s);
    case TaskStamp::idea:
      return Color::fromHex(u"#7C2D12"_s);
    case TaskStamp::approved:
      return Color::fromHex(u"#14532D"_s);
  }
  return QColor(0, 0, 0, 0);
}

}  // namespace tarnwick
