// SPDX-License-Identifier: MIT
// The design tokens: colours, type roles, radii. Every screen takes them from here.
#pragma once

#include <QColor>
#include <QFont>

namespace tarnwick::tokens {

inline constexpr QRgb kText = 0xFFF4F1EA;
inline constexpr QRgb kText2 = 0xFFC9C5BD;
inline constexpr QRgb kText3 = 0xFFB9B5AD;
inline constexpr QRgb kAccent = 0xFFFFE169;
inline constexpr QRgb kAccentPressed = 0xFFF0CF50;
inline constexpr QRgb kOnAccent = 0xFF383217;
inline constexpr QRgb kLabelTop = 0xFFFBF3DF;
inline constexpr QRgb kLabelBottom = 0xFFEADFC4;
inline constexpr QRgb kOnLabel = 0xFF2A251C;
inline constexpr QRgb kOnLabel2 = 0xFF5E5648;
inline constexpr QRgb kAmber = 0xFFFFA647;
inline constexpr QRgb kWarning = 0xFFFF7A6B;
inline constexpr QRgb kEmber = 0xFFFF6B4A;
inline constexpr QRgb kOverdue = 0xFFA3171E;
inline constexpr QRgb kOk = 0xFF06D6A0;
inline constexpr QRgb kPrivate = 0xFFB79CFF;
inline constexpr QRgb kErrorText = 0xFFFF8A80;
inline constexpr QRgb kWindow = 0xFF1F2026;
inline constexpr QRgb kGroup = 0xFF2A2B32;
inline constexpr QRgb kField = 0xFF3A3B44;
inline constexpr QRgb kPopup = 0xFF22232A;

/// White or black at an opacity.
[[nodiscard]] inline QColor white(double alpha) { return QColor::fromRgbF(1, 1, 1, static_cast<float>(alpha)); }
[[nodiscard]] inline QColor black(double alpha) { return QColor::fromRgbF(0, 0, 0, static_cast<float>(alpha)); }
[[nodiscard]] inline QColor faded(QColor color, double alpha) {
  color.setAlphaF(static_cast<float>(alpha));
  return color;
}

enum class Type {
  WelcomeTitle, NudgeTitle, PanelTitle, StatsNumber, RowTitle, Primary, Body, Help, CardText, NoteText, Placeholder,
  DueLabel, Countdown, Stamp, Kicker
};
/// Lists the installed fonts, which every font waits for otherwise: milliseconds at a start. From any thread.
void findFamily();
/// The face of a role: size in device-independent pixels, weight and spacing as the look has them.
[[nodiscard]] QFont font(Type role);
/// Distance of two lines of a role.
[[nodiscard]] double lineHeight(Type role);

}  // namespace tarnwick::tokens
