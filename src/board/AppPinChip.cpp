// SPDX-License-Identifier: MIT
#include "board/AppPinChip.h"

#include "context/ContextEngine.h"
#include "platform/Workspace.h"

namespace tarnwick {

AppPinChip::AppPinChip(const ContextEngine& context, const Workspace& workspace, QWidget* parent)
    : OptionChip(parent), m_context(context), m_workspace(workspace) {
  setSymbol(QStringLiteral("app"));
  setCheckable(true);
  connect(&context, &ContextEngine::lastExternalAppChanged, this, &AppPinChip::refresh);
  connect(this, &QAbstractButton::clicked, this, [this] {
    setPin(m_pin == Pin::On ? Pin::Off : Pin::On);
    Q_EMIT pinChanged();
  });
  refresh();
}

void AppPinChip::setPinnedBundleID(const std::optional<QString>& bundleID) {
  m_pinned = bundleID;
  refresh();
}

void AppPinChip::setPin(Pin pin) {
  m_pin = pin;
  refresh();
}

void AppPinChip::refresh() {
  QString name;
  QString bundleID;
  if (m_pinned && !m_pinned->isEmpty()) {
    bundleID = *m_pinned;
    name = m_workspace.identity(bundleID).first;
  } else if (const auto& app = m_context.lastExternalApp(); app && !app->bundleID.isEmpty()) {
    bundleID = app->bundleID;
    name = app->name;
  }
  setChecked(m_pin == Pin::On);
  setLook(m_pin == Pin::On ? Look::On : Look::Off);
  setText(name.isEmpty() ? tr("Pin to an app") : name);
  setAccessibleName(name.isEmpty() ? tr("Pin to an app") : tr("Pin to %1").arg(name));
  setAppIcon(bundleID.isEmpty() ? QIcon() : m_workspace.identity(bundleID).second);
  setToolTip(name.isEmpty() ? tr("Switch to an app first, then pin a note to it")
                            : tr("Show this note only while %1 is in front, docked to its window").arg(name));
  setAccessibleDescription(toolTip());
}

}  // namespace tarnwick
