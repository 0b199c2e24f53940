// SPDX-License-Identifier: MIT
// Where windows go, as pure functions in desktop coordinates. Nothing here knows a window.
#pragma once

#include "platform/DesktopGeometry.h"
#include "platform/Screens.h"

#include <Qt>

#include <optional>
#include <vector>

namespace tarnwick::placement {

inline constexpr DesktopSize kNoteSize{250, 230};
inline constexpr DesktopSize kMinimumNoteSize{200, 200};
inline constexpr DesktopSize kTabSize{210, 46};
inline constexpr DesktopPoint kDefaultDockOffset{-18, -64};
/// This much of a note stays within reach, each way.
inline constexpr double kReach = 48;

/// The board hangs 6 below the anchor, 8 clear of the edges of the visible frame where there is room.
[[nodiscard]] DesktopPoint boardUnderAnchor(const DesktopRect& anchor, const DesktopRect& visible, DesktopSize board);
/// Top right, for a desktop that does not tell where the anchor is.
[[nodiscard]] DesktopPoint boardWithoutAnchor(const DesktopRect& visible, DesktopSize board);
/// Where the board's motion hangs on the anchor, from its left edge; never in the rounded corners.
[[nodiscard]] double pivotX(double anchorMidX, double boardMinX, double boardWidth);
/// A stand-in for a tray item that was clicked but does not say where it is: 22 square, centred in the panel.
[[nodiscard]] DesktopRect anchorAtPointer(DesktopPoint pointer, const ScreenFacts& screen);

/// Six steps of 28 from the top right, by the number of notes that are open already.
[[nodiscard]] DesktopPoint cascade(const DesktopRect& visible, DesktopSize note, int openCount);
/// Left of the card, or right of it where there is no room.
[[nodiscard]] DesktopPoint besideCard(const DesktopRect& card, const DesktopRect& visible, DesktopSize note);
/// A note that would lie across the edge of the visible frame, half on the next monitor, moved wholly into it.
[[nodiscard]] DesktopRect offTheBorder(const DesktopRect& note, const DesktopRect& visible);
/// A note that would cover another one exactly goes down the cascade's six steps to where the fewest lie.
[[nodiscard]] DesktopRect notUponOthers(const DesktopRect& note, const std::vector<DesktopRect>& others,
                                        const DesktopRect& visible);

/// The note's top-right corner at the target's, plus the offset, inside the visible frame.
[[nodiscard]] DesktopPoint docked(const DesktopRect& target, DesktopPoint offset, DesktopSize note,
                                  const DesktopRect& visible);
/// What puts a window where it is, relative to the target.
[[nodiscard]] DesktopPoint dockOffset(const DesktopRect& window, const DesktopRect& target);
/// Two reals, or else the default.
[[nodiscard]] DesktopPoint dockOffsetFromReals(const std::optional<std::vector<double>>& reals);
/// Visible frame of the first screen that the rectangle touches, else of the primary one; empty without screens.
[[nodiscard]] DesktopRect visibleFrameFor(const DesktopRect& rect, const std::vector<ScreenFacts>& screens);

/// Another size with the top-right corner where it was.
[[nodiscard]] DesktopRect keepingTopRight(const DesktopRect& frame, DesktopSize size);
/// The frame itself while enough of it can be seen on some screen; otherwise moved wholly into the nearest one.
[[nodiscard]] DesktopRect broughtIntoView(const DesktopRect& frame, const std::vector<ScreenFacts>& screens);
/// The frame after some of its edges were dragged by (dx to the right, dy upwards), no smaller than the minimum.
[[nodiscard]] DesktopRect resized(const DesktopRect& frame, Qt::Edges edges, double dx, double dy, DesktopSize minimum);

}  // namespace tarnwick::placement
