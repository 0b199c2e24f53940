// SPDX-License-Identifier: MIT
#include "settings/CrushTargetField.h"

#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"
#include "platform/DockPreferences.h"
#include "settings/CrushTargetPicker.h"
#include "settings/LinkButton.h"
#include "settings/PlateButton.h"

#include <QHBoxLayout>

namespace tarnwick {

namespace {

constexpr double kUsualTile = 48;
const QString kAutomatic = QStringLiteral("automatic");

}  // namespace

CrushTargetField::CrushTargetField(UserDefaults& defaults, const Screens& screens, const DockPreferences& dock,
                                   QWidget* parent)
    : QWidget(parent), m_defaults(defaults), m_screens(screens), m_dock(dock) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(6);
  m_automatic = new LinkButton(tr("Automatic"), {}, this);
  m_automatic->setAccessibleName(tr("Let Tarnwick find the Trash"));
  auto* choose = new PlateButton(tr("Pick…"), this);
  choose->setAccessibleName(tr("Pick where crushed notes land"));
  row->addWidget(m_automatic);
  row->addWidget(choose);
  connect(m_automatic, &QAbstractButton::clicked, this,
          [this] { static_cast<void>(m_defaults.setText(keys::kCrushTarget, kAutomatic)); });
  connect(choose, &QAbstractButton::clicked, this, &CrushTargetField::pick);
  refresh();
}

CrushTargetField::~CrushTargetField() = default;

void CrushTargetField::refresh() {
  m_automatic->setVisible(rectFromText(m_defaults.text(keys::kCrushTarget).value_or(QString())).has_value());
}

void CrushTargetField::pick() {
  m_picker = std::make_unique<CrushTargetPicker>(m_screens, m_dock.read().tileSize.value_or(kUsualTile));
  connect(m_picker.get(), &CrushTargetPicker::picked, this, [this](const DesktopRect& target) {
    static_cast<void>(m_defaults.setText(keys::kCrushTarget, toText(target)));
  });
  m_picker->begin();
}

}  // namespace tarnwick
