// SPDX-License-Identifier: MIT
// Pins a note to the application the user came from, or to the one it is pinned to already.
#pragma once

#include "board/OptionChip.h"

#include <optional>

namespace tarnwick {

class ContextEngine;
class Workspace;

class AppPinChip final : public OptionChip {
  Q_OBJECT

 public:
  enum class Pin { Off, On };

  AppPinChip(const ContextEngine& context, const Workspace& workspace, QWidget* parent = nullptr);
  /// The application a note is pinned to; nothing for a new note.
  void setPinnedBundleID(const std::optional<QString>& bundleID);
  void setPin(Pin pin);
  [[nodiscard]] Pin pin() const { return m_pin; }

 Q_SIGNALS:
  void pinChanged();

 private:
  void refresh();

  const ContextEngine& m_context;
  const Workspace& m_workspace;
  std::optional<QString> m_pinned;
  Pin m_pin = Pin::Off;
};

}  // namespace tarnwick
