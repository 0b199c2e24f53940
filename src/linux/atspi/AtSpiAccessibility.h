// SPDX-License-Identifier: MIT
// Other programs' windows from the window system (frames and titles are always there) and the trees of panels and
// desktops from the accessibility bus. Everything is answered at once from what is known.
#pragma once

#include "linux/atspi/AtSpiDocuments.h"
#include "linux/atspi/AtSpiTree.h"
#include "linux/dbus/PlankDock.h"
#include "linux/x11/X11FocusWatch.h"
#include "platform/Accessibility.h"

#include <memory>

namespace tarnwick {

class AtSpiAccessibility final : public Accessibility {
 public:
  AtSpiAccessibility(XcbConnection& connection, PlankDock& plank);
  ~AtSpiAccessibility() override;

  [[nodiscard]] PortTraits traits() const override;
  [[nodiscard]] bool isTrusted(AccessNeed need) const override;
  /// No desktop of this kind has a question of its own to show.
  void requestTrust(TrustRequest request) override {
    if (request == TrustRequest::ByUser) m_tree.switchOn();
  }
  [[nodiscard]] std::optional<ElementRef> focusedWindow(qint64 pid) const override;
  [[nodiscard]] Registration onFocusedWindowChanged(qint64 pid, std::function<void()> observer) override {
    return m_focus.add(pid, std::move(observer));
  }
  [[nodiscard]] std::optional<ElementFacts> facts(const ElementRef& element) const override;
  [[nodiscard]] std::optional<std::vector<ElementRef>> children(const ElementRef& element) const override;
  /// Also starts a new reading, for the next time.
  [[nodiscard]] std::vector<ElementRef> docks() const override;

  [[nodiscard]] const AtSpiTree& tree() const { return m_tree; }

 private:
  [[nodiscard]] QSet<qint64> pidsOfDocks() const;
  [[nodiscard]] std::vector<QRect> plankWindows() const;
  [[nodiscard]] std::optional<ElementFacts> windowFacts(xcb_window_t window) const;

  XcbConnection& m_x;
  PlankDock& m_plank;
  X11Clients m_clients;
  X11FocusWatch m_focus;
  mutable AtSpiTree m_tree;
  mutable AtSpiDocuments m_documents;
  Registration m_rootChanges;
  Registration m_events;
};

}  // namespace tarnwick
