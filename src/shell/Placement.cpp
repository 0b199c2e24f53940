// SPDX-License-Identifier: MIT
#include "shell/Placement.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tarnwick::placement {

namespace {

constexpr double kAnchorGap = 6;
constexpr double kEdgeGap = 8;
constexpr double kCornerGap = 28;
constexpr double kPivotInset = 40;
constexpr double kTrayItem = 22;
constexpr double kCascadeStep = 28;
constexpr int kCascadeSteps = 6;
constexpr double kCardGap = 16;
constexpr double kNoteEdgeGap = 12;

double squaredDistance(DesktopPoint point, const DesktopRect& rect) {
  const double dx = std::max({rect.minX() - point.x, 0.0, point.x - rect.maxX()});
  const double dy = std::max({rect.minY() - point.y, 0.0, point.y - rect.maxY()});
  return dx * dx + dy * dy;
}

DesktopPoint clamped(DesktopPoint origin, DesktopSize size, const DesktopRect& visible) {
  return {std::min(std::max(visible.minX(), origin.x), visible.maxX() - size.width),
          std::min(std::max(visible.minY(), origin.y), visible.maxY() - size.height)};
}

}  // namespace

DesktopPoint boardUnderAnchor(const DesktopRect& anchor, const DesktopRect& visible, DesktopSize board) {
  const double top = std::min(anchor.minY(), visible.maxY());
  const double x = std::max(visible.minX() + kEdgeGap, anchor.midX() - board.width / 2);
  return {std::min(visible.maxX() - board.width - kEdgeGap, x),
          std::max(visible.minY() + kEdgeGap, top - board.height - kAnchorGap)};
}

DesktopPoint boardWithoutAnchor(const DesktopRect& visible, DesktopSize board) {
  return {visible.maxX() - board.width - kCornerGap, visible.maxY() - board.height - kCornerGap};
}

double pivotX(double anchorMidX, double boardMinX, double boardWidth) {
  return std::min(std::max(kPivotInset, anchorMidX - boardMinX), boardWidth - kPivotInset);
}

DesktopRect anchorAtPointer(DesktopPoint pointer, const ScreenFacts& screen) {
  const auto& frame = screen.frame;
  const auto& visible = screen.visibleFrame;
  DesktopPoint center = pointer;
  if (pointer.y >= visible.maxY()) {
    center.y = (visible.maxY() + frame.maxY()) / 2;
  } else if (pointer.y < visible.minY()) {
    center.y = (visible.minY() + frame.minY()) / 2;
  } else if (pointer.x >= visible.maxX()) {
    center.x = (visible.maxX() + frame.maxX()) / 2;
  } else if (pointer.x < visible.minX()) {
    center.x = (visible.minX() + frame.minX()) / 2;
  }
  return {center.x - kTrayItem / 2, center.y - kTrayItem / 2, kTrayItem, kTrayItem};
}

DesktopPoint cascade(const DesktopRect& visible, DesktopSize note, int openCount) {
  const double off = (openCount % kCascadeSteps) * kCascadeStep;
  return {std::max(visible.minX(), visible.maxX() - note.width - 100 - off),
          std::max(visible.minY(), visible.maxY() - note.height - 20 - off)};
}

DesktopPoint besideCard(const DesktopRect& card, const DesktopRect& visible, DesktopSize note) {
  double x = card.minX() - note.width - kCardGap;
  if (x < visible.minX() + kNoteEdgeGap) {
    x = std::min(card.maxX() + kCardGap, visible.maxX() - note.width - kNoteEdgeGap);
  }
  const double y = card.midY() - note.height / 2;
  return {x, std::min(std::max(visible.minY() + kNoteEdgeGap, y), visible.maxY() - note.height - kNoteEdgeGap)};
}

DesktopRect offTheBorder(const DesktopRect& note, const DesktopRect& visible) {
  const double seen = note.intersected(visible).width;
  if (seen <= 0 || seen >= note.width || note.width > visible.width) return note;
  const double x = std::min(std::max(visible.minX() + kNoteEdgeGap, note.x), visible.maxX() - note.width - kNoteEdgeGap);
  return {x, note.y, note.width, note.height};
}

DesktopRect notUponOthers(const DesktopRect& note, const std::vector<DesktopRect>& others, const DesktopRect& visible) {
  DesktopRect best = note;
  auto fewest = std::count(others.begin(), others.end(), note);
  for (int step = 1; step < kCascadeSteps && fewest > 0; ++step) {
    const double off = step * kCascadeStep;
    const DesktopRect place{std::max(visible.minX(), note.x - off), std::max(visible.minY(), note.y - off), note.width,
                            note.height};
    const auto here = std::count(others.begin(), others.end(), place);
    if (here >= fewest) continue;
    fewest = here;
    best = place;
  }
  return best;
}

DesktopPoint docked(const DesktopRect& target, DesktopPoint offset, DesktopSize note, const DesktopRect& visible) {
  return clamped({target.maxX() + offset.x - note.width, target.maxY() + offset.y - note.height}, note, visible);
}

DesktopPoint dockOffset(const DesktopRect& window, const DesktopRect& target) {
  return {window.maxX() - target.maxX(), window.maxY() - target.maxY()};
}

DesktopPoint dockOffsetFromReals(const std::optional<std::vector<double>>& reals) {
  if (!reals || reals->size() != 2) return kDefaultDockOffset;
  return {reals->at(0), reals->at(1)};
}

DesktopRect visibleFrameFor(const DesktopRect& rect, const std::vector<ScreenFacts>& screens) {
  for (const auto& screen : screens) {
    if (screen.frame.intersects(rect)) return screen.visibleFrame;
  }
  return screens.empty() ? DesktopRect{} : screens.front().visibleFrame;
}

DesktopRect keepingTopRight(const DesktopRect& frame, DesktopSize size) {
  return {frame.maxX() - size.width, frame.maxY() - size.height, size.width, size.height};
}

DesktopRect broughtIntoView(const DesktopRect& frame, const std::vector<ScreenFacts>& screens) {
  if (screens.empty()) return frame;
  const double neededWidth = std::min(kReach, frame.width);
  const double neededHeight = std::min(kReach, frame.height);
  const ScreenFacts* nearest = nullptr;
  double nearestDistance = std::numeric_limits<double>::infinity();
  for (const auto& screen : screens) {
    const auto seen = frame.intersected(screen.visibleFrame);
    if (seen.width >= neededWidth && seen.height >= neededHeight) return frame;
    const double distance = squaredDistance(frame.center(), screen.visibleFrame);
    if (distance < nearestDistance) {
      nearestDistance = distance;
      nearest = &screen;
    }
  }
  // The top edge holds the controls: on a screen too small for the note it is the bottom that stays outside.
  const auto& visible = nearest->visibleFrame;
  const double x = std::max(visible.minX(), std::min(frame.x, visible.maxX() - frame.width));
  const double y = std::min(std::max(visible.minY(), frame.y), visible.maxY() - frame.height);
  return {x, y, frame.width, frame.height};
}

DesktopRect resized(const DesktopRect& frame, Qt::Edges edges, double dx, double dy, DesktopSize minimum) {
  double left = frame.minX();
  double right = frame.maxX();
  double bottom = frame.minY();
  double top = frame.maxY();
  if (edges & Qt::LeftEdge) left = std::min(left + dx, right - minimum.width);
  if (edges & Qt::RightEdge) right = std::max(right + dx, left + minimum.width);
  if (edges & Qt::BottomEdge) bottom = std::min(bottom + dy, top - minimum.height);
  if (edges & Qt::TopEdge) top = std::max(top + dy, bottom + minimum.height);
  return {left, bottom, right - left, top - bottom};
}

}  // namespace tarnwick::placement
