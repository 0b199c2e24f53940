// SPDX-License-Identifier: MIT
// Pins a note to the application the user came from, or to the one it is pinned to already; and to the repository that
// is worked on there. A press toggles the application; with a repository to choose too, the form brings a menu.
#pragma once

#include "board/NoteEditing.h"
#include "board/OptionChip.h"
#include "platform/OtherWindows.h"

#include <optional>

namespace tarnwick {

class ContextEngine;
class Workspace;

class AppPinChip final : public OptionChip {
  Q_OBJECT

 public:
  enum class Pin { Off, On };

  AppPinChip(const ContextEngine& context, const Workspace& workspace, WindowSight sight, QWidget* parent = nullptr);
  /// What a note is pinned to when it is opened: both stay on offer. Nothing for a new note.
  void setPins(const std::optional<QString>& bundleID, const std::optional<RepositoryPin>& repository);
  void setPin(Pin pin);
  [[nodiscard]] Pin pin() const { return m_pin; }
  void setRepository(const std::optional<RepositoryPin>& repository);
  [[nodiscard]] const std::optional<RepositoryPin>& repository() const { return m_repository; }

  /// The application's name; empty when there is none to pin to.
  [[nodiscard]] QString applicationName() const;
  /// The note's own repository, else the one in front.
  [[nodiscard]] std::optional<RepositoryPin> offeredRepository() const;
  /// Name and path of a repository, as a choice says it.
  [[nodiscard]] static QString choiceText(const RepositoryPin& repository);

 Q_SIGNALS:
  void pinChanged();
  void choicesAsked();

 private:
  void refresh();
  [[nodiscard]] QString explanation(const QString& name, const std::optional<RepositoryPin>& offered) const;

  const ContextEngine& m_context;
  const Workspace& m_workspace;
  WindowSight m_sight;
  std::optional<QString> m_pinned;
  std::optional<RepositoryPin> m_ownRepository;
  std::optional<RepositoryPin> m_repository;
  Pin m_pin = Pin::Off;
};

}  // namespace tarnwick
