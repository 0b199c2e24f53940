// SPDX-License-Identifier: MIT
// Port: the accessibility tree of other programs. Answers come from what is known now; nothing blocks for long.
#pragma once

#include "platform/DesktopGeometry.h"
#include "platform/PortTraits.h"
#include "platform/Registration.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tarnwick {

enum class AccessNeed { Frames, Tree };

/// Who asks for trust: the program by itself when it starts, or the user with a button.
enum class TrustRequest { AtStart, ByUser };

/// An element of another program's interface; its meaning is the adapter's.
struct ElementRef {
  QString service;
  QString path;
  bool operator==(const ElementRef&) const = default;
};

struct ElementFacts {
  QString title;
  QString role;
  QString subrole;
  QString description;
  std::optional<DesktopRect> frame;
  std::optional<QString> document;  // URL or path of the document a window shows
};

class Accessibility {
 public:
  virtual ~Accessibility() = default;
  [[nodiscard]] virtual PortTraits traits() const = 0;
  [[nodiscard]] virtual bool isTrusted(AccessNeed need) const = 0;
  /// Lets the desktop ask for permission. Accessibility is a setting of the whole session: where we would have to switch
  /// it on ourselves, only the user's own request does.
  virtual void requestTrust(TrustRequest request) = 0;
  [[nodiscard]] virtual std::optional<ElementRef> focusedWindow(qint64 pid) const = 0;
  /// Tells when another window of a process becomes its focused one, or that window says another title or document.
  [[nodiscard]] virtual Registration onFocusedWindowChanged(qint64 pid, std::function<void()> observer) = 0;
  [[nodiscard]] virtual std::optional<ElementFacts> facts(const ElementRef& element) const = 0;
  /// Nothing when the read failed.
  [[nodiscard]] virtual std::optional<std::vector<ElementRef>> children(const ElementRef& element) const = 0;
  /// The programs whose tree may hold the Trash: panels, docks and desktops.
  [[nodiscard]] virtual std::vector<ElementRef> docks() const = 0;
};

}  // namespace tarnwick
