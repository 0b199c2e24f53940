// SPDX-License-Identifier: MIT
// The closed sets a note and the settings draw from. Raw values are stored and never change.
#pragma once

#include <QColor>
#include <QString>

#include <array>
#include <optional>

namespace tarnwick {

enum class TaskTag { none, red, orange, yellow, green, blue, pink };
enum class Recurrence { none, daily, weekdays, weekly, every3Days, monthly };
enum class PaperTheme { plain, graph, lined, parchment, construction };
enum class TaskStamp { none, urgent, focus, priority, star, idea, approved };
enum class NoteDisplayMode { alwaysOnTop, desktop, mouseThrough };
enum class BoardMood { obsidian, corkboard, drafting, acrylic };
enum class GlassVariant { soft = 11, clear = 2, dense = 7 };

inline constexpr std::array kTaskTags{TaskTag::none,  TaskTag::red,  TaskTag::orange, TaskTag::yellow,
                                      TaskTag::green, TaskTag::blue, TaskTag::pink};
inline constexpr std::array kRecurrences{Recurrence::none,   Recurrence::daily,      Recurrence::weekdays,
                                         Recurrence::weekly, Recurrence::every3Days, Recurrence::monthly};
inline constexpr std::array kPaperThemes{PaperTheme::plain, PaperTheme::graph, PaperTheme::lined, PaperTheme::parchment,
                                         PaperTheme::construction};
inline constexpr std::array kTaskStamps{TaskStamp::none, TaskStamp::urgent, TaskStamp::focus,   TaskStamp::priority,
                                        TaskStamp::star, TaskStamp::idea,   TaskStamp::approved};
inline constexpr std::array kNoteDisplayModes{NoteDisplayMode::alwaysOnTop, NoteDisplayMode::desktop,
                                              NoteDisplayMode::mouseThrough};
inline constexpr std::array kBoardMoods{BoardMood::obsidian, BoardMood::corkboard, BoardMood::drafting,
                                        BoardMood::acrylic};

[[nodiscard]] QString rawValue(TaskTag tag);
[[nodiscard]] QString rawValue(Recurrence recurrence);
[[nodiscard]] QString rawValue(PaperTheme theme);
[[nodiscard]] QString rawValue(TaskStamp stamp);
[[nodiscard]] QString rawValue(NoteDisplayMode mode);
[[nodiscard]] QString rawValue(BoardMood mood);

/// Nothing when the text is no raw value of the set; the reader applies its own fallback.
template <typename E>
[[nodiscard]] std::optional<E> fromRawValue(const QString& raw);
[[nodiscard]] std::optional<GlassVariant> glassVariantFromRawValue(int raw);

/// The words shown in menus.
[[nodiscard]] QString label(Recurrence recurrence);
[[nodiscard]] QString label(PaperTheme theme);
[[nodiscard]] QString label(TaskStamp stamp);
[[nodiscard]] QString label(NoteDisplayMode mode);
/// The line under the picker in the settings.
[[nodiscard]] QString description(NoteDisplayMode mode);
/// Colour of a stamp's badge; fully transparent for none.
[[nodiscard]] QColor tintColor(TaskStamp stamp);

}  // namespace tarnwick
