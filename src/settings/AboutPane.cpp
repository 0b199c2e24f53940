// SPDX-License-Identifier: MIT
#include "settings/AboutPane.h"

#include "effects/Controls.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"
#include "model/SettingsKeys.h"
#include "settings/LinkButton.h"
#include "settings/SettingsGroup.h"
#include "settings/SettingsRow.h"
#include "settings/SettingsText.h"
#include "settings/UpdateChecker.h"
#include "settings/UpdateControl.h"

#include <QLabel>
#include <QPainter>
#include <QUrl>
#include <QVBoxLayout>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

class ApplicationIcon final : public QWidget {
 public:
  explicit ApplicationIcon(QWidget* parent) : QWidget(parent) { setFixedSize(96, 96); }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    Symbols::applicationIcon().paint(&painter, rect());
  }
};

QLabel* centeredLabel(const QString& text, int pixelSize, QFont::Weight weight, QRgb color, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  auto face = tokens::font(tokens::Type::Help);
  face.setPixelSize(pixelSize);
  face.setWeight(weight);
  label->setFont(face);
  label->setAlignment(Qt::AlignCenter);
  auto colors = label->palette();
  colors.setColor(QPalette::WindowText, QColor(color));
  label->setPalette(colors);
  return label;
}

}  // namespace

AboutPane::AboutPane(const SettingsServices& services, QWidget* parent) : SettingsPane(services, parent) {
  addHead();
  if (services.updates.hasFeed()) {
    addSwitchOn(*addGroup(), keys::kAutoCheckUpdates,
                {tr("Check for updates automatically"),
                 tr("Reads one small version file. Nothing about you or your notes is sent.")});
  }
  addKeyboard();
  addLink();
  column().addStretch();
}

void AboutPane::addHead() {
  column().addSpacing(4);
  column().addWidget(new ApplicationIcon(this), 0, Qt::AlignHCenter);
  column().addSpacing(6);
  column().addWidget(centeredLabel(tr("Tarnwick"), 19, QFont::Bold, tokens::kText, this));
  column().addSpacing(2);
  column().addWidget(
      centeredLabel(tr("Version %1").arg(UpdateChecker::currentVersion()), 13, QFont::Normal, tokens::kText3, this));
  column().addSpacing(8);
  column().addWidget(new UpdateControl(services().updates, services().scheduler, services().workspace, this));
  column().addSpacing(10);
}

void AboutPane::addKeyboard() {
  addHeading(tr("Keyboard"));
  auto* group = addGroup();
  const auto addKeys = [&](const QString& title, const QStringList& caps) {
    auto* row = new SettingsRow(title, {}, group);
    auto* keys = new KeyCaps(caps, row);
    keys->setAccessibleName(caps.join(u' '));
    row->setControl(keys);
    group->addRow(row);
  };
  addKeys(tr("Pick a note"), {u"←"_s, u"↑"_s, u"↓"_s, u"→"_s});
  addKeys(tr("Edit selected note"), {u"⏎"_s});
  addKeys(tr("Crush selected note"), {u"⌘"_s, u"⌫"_s});
  addKeys(tr("Undo crush"), {u"⌘"_s, u"Z"_s});
  column().addSpacing(10);
  auto* legend = new SettingsText(tr("⌘ is Super or Ctrl, ⌥ is Alt, ⇧ is Shift."), tokens::Type::Help, tokens::kText3, this);
  legend->setAlignment(Qt::AlignHCenter);
  column().addWidget(legend);
}

void AboutPane::addLink() {
  column().addSpacing(6);
  auto* link = new LinkButton(tr("Web site"), u"link"_s, this);
  column().addWidget(link, 0, Qt::AlignHCenter);
  connect(link, &QPushButton::clicked, this, [this] { services().workspace.openUrl(QUrl(u"https://tarnwick.app/"_s)); });
}

}  // namespace tarnwick
