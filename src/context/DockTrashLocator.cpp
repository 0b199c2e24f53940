// SPDX-License-Identifier: MIT
#include "context/DockTrashLocator.h"

#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"

#include <algorithm>

namespace tarnwick {

namespace {

constexpr int kDeepestLevel = 7;
constexpr double kSmallestEdge = 8;   // a frame must be larger than this
constexpr double kDockThreshold = 6;  // a strip thinner than this is no dock
constexpr double kUsualTile = 48;

bool isBottomDock(const ScreenFacts& screen) {
  return screen.frame.minY() + kDockThreshold < screen.visibleFrame.minY();
}

bool isTrash(const ElementFacts& facts) {
  const auto title = facts.title.trimmed();
  return facts.subrole == QLatin1StringView("AXTrashDockItem") ||
         title.compare(QLatin1StringView("Trash"), Qt::CaseInsensitive) == 0 ||
         title.compare(QLatin1StringView("Bin"), Qt::CaseInsensitive) == 0 ||
         facts.description.contains(QLatin1StringView("trash"), Qt::CaseInsensitive) ||
         facts.description.contains(QLatin1StringView("bin"), Qt::CaseInsensitive);
}

/// The Trash sits at the far end of a dock's list: found after one step.
bool isSearchedFromItsEnd(const QString& role) {
  return role == QLatin1StringView("AXList") || role == QLatin1StringView("AXGroup") ||
         role.contains(QLatin1StringView("Dock"));
}

}  // namespace

DesktopRect DockTrashLocator::trashFrame(const std::optional<ScreenFacts>& screen) {
  const auto screens = m_ports.screens.all();
  const ScreenFacts chosen = screen ? *screen : screens.empty() ? ScreenFacts{} : screens.front();

  if (const auto picked = pickedTarget(screens)) return *picked;
  if (const auto found = axTrashFrame()) {
    const auto text = toText(*found);
    if (m_defaults.text(keys::kDockTrashFrame) != text) {
      // A frame that cannot be written is found again next time.
      [[maybe_unused]] const auto written = m_defaults.setText(keys::kDockTrashFrame, text);
    }
    return *found;
  }
  if (const auto cached = rectFromText(m_defaults.text(keys::kDockTrashFrame).value_or(QString()))) {
    if (cached->width > kSmallestEdge && chosen.frame.contains(cached->center())) return *cached;
  }
  return estimatedFrame(chosen);
}

std::optional<DesktopRect> DockTrashLocator::pickedTarget(const std::vector<ScreenFacts>& screens) const {
  const auto picked = rectFromText(m_defaults.text(keys::kCrushTarget).value_or(QString()));
  if (!picked || picked->isEmpty()) return std::nullopt;
  // A monitor that is unplugged takes the spot picked on it along.
  const bool isReachable = std::any_of(screens.begin(), screens.end(), [&](const auto& screen) {
    return screen.frame.contains(picked->center());
  });
  return isReachable ? picked : std::nullopt;
}

std::optional<DesktopRect> DockTrashLocator::axTrashFrame() const {
  for (const auto& dock : m_ports.accessibility.docks()) {
    const auto children = m_ports.accessibility.children(dock);
    if (!children) continue;
    for (const auto& child : *children) {
      if (const auto found = find(child, 0)) return found;
    }
  }
  return std::nullopt;
}

std::optional<DesktopRect> DockTrashLocator::find(const ElementRef& element, int depth) const {
  if (depth > kDeepestLevel) return std::nullopt;
  const auto facts = m_ports.accessibility.facts(element).value_or(ElementFacts{});
  if (isTrash(facts) && facts.frame && facts.frame->width > kSmallestEdge && facts.frame->height > kSmallestEdge) {
    return facts.frame;
  }
  auto children = m_ports.accessibility.children(element);
  if (!children) return std::nullopt;
  if (isSearchedFromItsEnd(facts.role)) std::reverse(children->begin(), children->end());
  for (const auto& child : *children) {
    if (const auto found = find(child, depth + 1)) return found;
  }
  return std::nullopt;
}

DesktopPoint DockTrashLocator::geometricFallback(const ScreenFacts& screen) const {
  const auto& frame = screen.frame;
  const auto& visible = screen.visibleFrame;
  const double inset = m_ports.dock.read().tileSize.value_or(kUsualTile) * 0.55;
  if (isBottomDock(screen)) {
    return {visible.maxX() - inset, frame.minY() + (visible.minY() - frame.minY()) * 0.5};
  }
  if (visible.maxX() < frame.maxX() - kDockThreshold) {
    return {frame.maxX() - (frame.maxX() - visible.maxX()) * 0.5, visible.minY() + inset};
  }
  if (frame.minX() + kDockThreshold < visible.minX()) {
    return {frame.minX() + (visible.minX() - frame.minX()) * 0.5, visible.minY() + inset};
  }
  return {visible.maxX() - 40, frame.minY() + 36};
}

DesktopRect DockTrashLocator::estimatedFrame(const ScreenFacts& screen) const {
  const auto dock = m_ports.dock.read();
  const double tile = dock.tileSize.value_or(kUsualTile);
  const auto& frame = screen.frame;
  if (!isBottomDock(screen)) {
    const auto point = geometricFallback(screen);
    return {point.x - tile / 2, point.y - tile / 2, tile, tile};
  }

  const auto pinned = dock.persistentApps.size();
  const auto applications = m_ports.workspace.running();
  const auto unpinned = std::count_if(applications.begin(), applications.end(), [&](const auto& application) {
    return application.isRegular && !dock.persistentApps.contains(application.bundleID);
  });
  auto extra = unpinned;
  int separators = 1;
  if (dock.isShowingRecents.value_or(true)) {
    extra = std::max<decltype(extra)>(unpinned, dock.recentApps);
    if (extra > 0) separators = 2;
  }
  // The last tile is the Trash itself.
  const auto tiles = static_cast<double>(pinned + extra + dock.persistentOthers + 1);
  const double width = tile * tiles + tile * separators * 0.45 + tile * 0.2;
  const double left = std::min(frame.midX() + width * 0.5 - 0.1 * tile - tile, frame.maxX() - tile);
  const double band = screen.visibleFrame.minY() - frame.minY();
  return {left, frame.minY() + (band - tile) * 0.5, tile, tile};
}

}  // namespace tarnwick
