// SPDX-License-Identifier: MIT
// Where crushed paper lands: found by Tarnwick, or picked once on the screen.
#pragma once

#include "platform/DesktopGeometry.h"

#include <QWidget>

#include <memory>

class QAbstractButton;

namespace tarnwick {

class CrushTargetPicker;
class DockPreferences;
class Screens;
class UserDefaults;

class CrushTargetField final : public QWidget {
  Q_OBJECT

 public:
  CrushTargetField(UserDefaults& defaults, const Screens& screens, const DockPreferences& dock,
                   QWidget* parent = nullptr);
  ~CrushTargetField() override;

  /// Shows what the settings hold.
  void refresh();

 private:
  void pick();

  UserDefaults& m_defaults;
  const Screens& m_screens;
  const DockPreferences& m_dock;
  QAbstractButton* m_automatic;
  std::unique_ptr<CrushTargetPicker> m_picker;
};

}  // namespace tarnwick
