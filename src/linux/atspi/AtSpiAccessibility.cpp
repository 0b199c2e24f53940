// SPDX-License-Identifier: MIT
#include "linux/atspi/AtSpiAccessibility.h"

#include "linux/x11/NativeSpace.h"

namespace tarnwick {

namespace {

const QString kWindowService = QStringLiteral("x11-window");
const QString kPlankService = QStringLiteral("plank");
const QString kPlankTrash = QStringLiteral("trash");

}  // namespace

AtSpiAccessibility::AtSpiAccessibility(XcbConnection& connection, PlankDock& plank)
    : m_x(connection),
      m_plank(plank),
      m_clients(connection),
      m_focus(connection),
      m_tree({[this] { return pidsOfDocks(); },
              [this](quint32 window) -> std::optional<DesktopRect> {
                const auto frame = m_x.geometry(window);
                return frame ? std::optional(desktopFromNative(*frame)) : std::nullopt;
              }}),
      m_documents(m_tree, [this](qint64 pid) { m_focus.tell(pid); }) {
  m_rootChanges = m_x.select(m_x.root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
  m_events = m_x.onEvent([this](const xcb_generic_event_t& event) {
    if (eventKind(event) != XCB_PROPERTY_NOTIFY) return;
    const auto& change = eventAs<xcb_property_notify_event_t>(event);
    // Panels come, go and change their size by reserving another area.
    if (change.window == m_x.root() && change.atom == m_x.atom("_NET_WORKAREA")) m_tree.refresh();
  });
}

AtSpiAccessibility::~AtSpiAccessibility() = default;

PortTraits AtSpiAccessibility::traits() const {
  return PortTraits::served(m_tree.isOn() ? QStringLiteral("x11, at-spi") : QStringLiteral("x11"));
}

bool AtSpiAccessibility::isTrusted(AccessNeed need) const { return need == AccessNeed::Frames || m_tree.isOn(); }

std::optional<ElementRef> AtSpiAccessibility::focusedWindow(qint64 pid) const {
  if (pid < 1) return std::nullopt;
  const auto window = m_clients.focusedOf(pid);
  if (window == XCB_NONE) return std::nullopt;
  return ElementRef{kWindowService, QString::number(window)};
}

std::optional<ElementFacts> AtSpiAccessibility::facts(const ElementRef& element) const {
  if (element.service == kWindowService) return windowFacts(element.path.toUInt());
  if (element.service == kPlankService) {
    ElementFacts facts;
    if (element.path != kPlankTrash) return facts;
    facts.title = QStringLiteral("Trash");
    facts.subrole = QStringLiteral("AXTrashDockItem");
    if (const auto icon = m_plank.trash(plankWindows())) facts.frame = desktopFromNative(*icon);
    return facts;
  }
  if (const auto* node = m_tree.node(element)) return node->facts;
  return std::nullopt;
}

std::optional<std::vector<ElementRef>> AtSpiAccessibility::children(const ElementRef& element) const {
  if (element.service == kWindowService) return std::vector<ElementRef>();
  if (element.service == kPlankService) {
    if (element.path == kPlankTrash) return std::vector<ElementRef>();
    return std::vector{ElementRef{kPlankService, kPlankTrash}};
  }
  if (const auto* node = m_tree.node(element)) return node->children;
  return std::nullopt;
}

std::vector<ElementRef> AtSpiAccessibility::docks() const {
  std::vector<ElementRef> docks;
  if (m_plank.hasTrash()) docks.push_back({kPlankService, QString()});
  const auto& read = m_tree.reading().docks;
  docks.insert(docks.end(), read.begin(), read.end());
  m_tree.refresh();
  m_plank.refresh();
  return docks;
}

QSet<qint64> AtSpiAccessibility::pidsOfDocks() const {
  QSet<qint64> pids;
  for (const auto window : m_x.cardinals(m_x.root(), "_NET_CLIENT_LIST")) {
    const auto kind = m_clients.kindOf(window);
    if (kind != ClientKind::Dock && kind != ClientKind::Desktop) continue;
    if (const auto pid = m_clients.pidOf(window); pid > 0) pids.insert(pid);
  }
  return pids;
}

std::vector<QRect> AtSpiAccessibility::plankWindows() const {
  std::vector<QRect> windows;
  for (const auto window : m_x.cardinals(m_x.root(), "_NET_CLIENT_LIST")) {
    if (m_clients.classOf(window).instance != u"plank") continue;
    if (const auto frame = m_x.geometry(window)) windows.push_back(*frame);
  }
  return windows;
}

std::optional<ElementFacts> AtSpiAccessibility::windowFacts(xcb_window_t window) const {
  const auto frame = m_x.frame(window);
  if (!frame) return std::nullopt;
  ElementFacts facts;
  facts.title = m_clients.titleOf(window);
  facts.role = QStringLiteral("AXWindow");
  facts.frame = desktopFromNative(*frame);
  facts.document = m_documents.look(m_clients.pidOf(window), facts.title);
  return facts;
}

}  // namespace tarnwick
