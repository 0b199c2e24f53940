// SPDX-License-Identifier: MIT
#include "settings/SoundPane.h"

#include "effects/SoundEngine.h"
#include "model/SettingsKeys.h"
#include "settings/SettingsGroup.h"
#include "settings/SoundPreviewButton.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tarnwick {

SoundPane::SoundPane(const SettingsServices& services, QWidget* parent) : SettingsPane(services, parent) {
  addSwitchOn(*addGroup(), keys::kSoundEffectsEnabled, {tr("Paper sounds"), tr("Stick, tear and crush foley.")});
  addHeading(tr("Preview"));
  auto* group = addGroup();
  auto* row = new QWidget(group);
  auto* line = new QHBoxLayout(row);
  line->setContentsMargins(9, 5, 9, 5);
  line->setSpacing(4);
  auto& sound = services.sound;
  const auto addButton = [&](const QString& text, std::vector<double> bars, auto play) {
    auto* button = new SoundPreviewButton(text, std::move(bars), row);
    button->setAccessibleName(tr("Play %1", "name of a sound").arg(text));
    line->addWidget(button, 1);
    connect(button, &QPushButton::clicked, this, [&sound, play] { (sound.*play)(); });
  };
  addButton(tr("Stick"), {6, 4, 2.5, 1.5, 1, .6, .4, .3, .2}, &SoundEngine::playStick);
  addButton(tr("Tear"), {.5, 2, 3.5, 5, 5.5, 5, 3.5, 2, .6}, &SoundEngine::playTear);
  addButton(tr("Crush"), {5.5, 3, 5, 2, 4, 1.5, 2, .8, .4}, &SoundEngine::playCrush);
  group->addRow(row);
  column().addStretch();
}

}  // namespace tarnwick
