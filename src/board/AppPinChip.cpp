// SPDX-License-Identifier: MIT
#include "board/AppPinChip.h"

#include "context/ContextEngine.h"
#include "platform/Workspace.h"

#include <QDir>

namespace tarnwick {
namespace {

QString repositoryName(const RepositoryPin& repository) { return QDir(repository.path).dirName(); }

QString shownPath(const RepositoryPin& repository) {
  const QString home = QDir::homePath();
  if (repository.path != home && !repository.path.startsWith(home + u'/')) return repository.path;
  return u'~' + repository.path.mid(home.size());
}

}  // namespace

AppPinChip::AppPinChip(const ContextEngine& context, const Workspace& workspace, WindowSight sight, QWidget* parent)
    : OptionChip(parent), m_context(context), m_workspace(workspace), m_sight(sight) {
  setCheckable(true);
  connect(&context, &ContextEngine::lastExternalAppChanged, this, &AppPinChip::refresh);
  connect(&context, &ContextEngine::snapshotChanged, this, &AppPinChip::refresh);
  connect(this, &QAbstractButton::clicked, this, [this] {
    if (offeredRepository()) {
      refresh();  // the press has turned the check mark, which is the choice's to turn
      Q_EMIT choicesAsked();
      return;
    }
    setPin(m_pin == Pin::On ? Pin::Off : Pin::On);
    Q_EMIT pinChanged();
  });
  refresh();
}

void AppPinChip::setPins(const std::optional<QString>& bundleID, const std::optional<RepositoryPin>& repository) {
  m_pinned = bundleID;
  m_ownRepository = repository;
  m_repository = repository;
  refresh();
}

void AppPinChip::setPin(Pin pin) {
  m_pin = pin;
  refresh();
}

void AppPinChip::setRepository(const std::optional<RepositoryPin>& repository) {
  m_repository = repository;
  refresh();
}

QString AppPinChip::applicationName() const {
  if (m_pinned && !m_pinned->isEmpty()) return m_workspace.identity(*m_pinned).first;
  const auto& app = m_context.lastExternalApp();
  return app && !app->bundleID.isEmpty() ? app->name : QString();
}

std::optional<RepositoryPin> AppPinChip::offeredRepository() const {
  if (m_ownRepository) return m_ownRepository;
  if (m_repository) return m_repository;
  const auto& snapshot = m_context.snapshot();
  if (!snapshot.gitRoot) return std::nullopt;
  return RepositoryPin{*snapshot.gitRoot, snapshot.gitBranch};
}

QString AppPinChip::choiceText(const RepositoryPin& repository) {
  return tr("Repository %1 (%2)").arg(repositoryName(repository), shownPath(repository));
}

QString AppPinChip::explanation(const QString& name, const std::optional<RepositoryPin>& offered) const {
  QStringList lines;
  if (m_repository && m_pin == Pin::On) {
    lines << tr("Show this note only while %1 is in front with a file of the repository %2 (%3)")
                 .arg(name, repositoryName(*m_repository), shownPath(*m_repository));
  } else if (m_repository) {
    lines << tr("Show this note only while an editor is in front with a file of the repository %1 (%2)")
                 .arg(repositoryName(*m_repository), shownPath(*m_repository));
  } else {
    lines << (name.isEmpty() ? tr("Switch to an app first, then pin a note to it")
                             : tr("Show this note only while %1 is in front, docked to its window").arg(name));
    if (offered) lines << tr("Or pin it to the repository %1 (%2)").arg(repositoryName(*offered), shownPath(*offered));
  }
  if (m_sight == WindowSight::None) {
    lines = {tr("This desktop does not tell which app is in front: pinned notes cannot follow one here")};
  } else if (m_sight == WindowSight::SomePrograms) {
    lines << tr("On this desktop only apps that run through XWayland can be seen");
  }
  return lines.join(u'\n');
}

void AppPinChip::refresh() {
  const QString name = applicationName();
  const auto offered = offeredRepository();
  const bool hasApp = m_pin == Pin::On;
  const bool isOn = hasApp || m_repository;
  const QString appText = name.isEmpty() ? tr("Pin to an app") : name;
  setChecked(isOn);
  setLook(isOn ? Look::On : Look::Off);
  setTail(offered ? QStringLiteral("chevron") : QString());
  if (m_repository) {
    setText(hasApp ? tr("%1 · %2").arg(repositoryName(*m_repository), appText) : repositoryName(*m_repository));
  } else {
    setText(appText);
  }
  const QString repository = offered ? repositoryName(*offered) : QString();
  if (offered) {
    setAccessibleName(name.isEmpty() ? tr("Pin to the repository %1").arg(repository)
                                     : tr("Pin to %1 or the repository %2").arg(name, repository));
  } else {
    setAccessibleName(name.isEmpty() ? tr("Pin to an app") : tr("Pin to %1").arg(name));
  }
  setSymbol(m_repository ? QStringLiteral("branch") : QStringLiteral("app"));
  const auto& last = m_context.lastExternalApp();
  const QString bundleID = m_pinned && !m_pinned->isEmpty() ? *m_pinned : last ? last->bundleID : QString();
  setAppIcon(bundleID.isEmpty() || m_repository ? QIcon() : m_workspace.identity(bundleID).second);
  setToolTip(explanation(name, offered));
  setAccessibleDescription(toolTip());
  setEnabled(m_sight != WindowSight::None || isOn);
}

}  // namespace tarnwick
