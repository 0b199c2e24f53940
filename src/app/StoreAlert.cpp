// SPDX-License-Identifier: MIT
#include "app/StoreAlert.h"

#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

namespace tarnwick {

StoreAlert::StoreAlert(Error error, const QString& storePath)
    : m_error(std::move(error)), m_box(std::make_unique<QMessageBox>()) {
  m_box->setIcon(QMessageBox::Critical);
  m_box->setWindowTitle(tr("Tarnwick"));
  m_box->setText(tr("Your notes could not be opened."));
  const QDir backups(QFileInfo(storePath).dir().filePath(QStringLiteral("backups")));
  QString details = m_error.text;
  const bool saysSoItself = m_error.kind == ErrorKind::Damaged;
  if (!saysSoItself) details += QStringLiteral("\n\n") + tr("The file was left as it is: %1").arg(storePath);
  if (!saysSoItself && !backups.entryList({QStringLiteral("Tarnwick-*.store")}).isEmpty()) {
    details += QStringLiteral("\n") + tr("Copies of earlier days are in %1").arg(backups.path());
  }
  m_box->setInformativeText(details);
  // As wide as its main text otherwise, which is a narrow column.
  m_box->setStyleSheet(QStringLiteral("QLabel#qt_msgbox_informativelabel { min-width: 380px; }"));
  auto* quit = m_box->addButton(tr("Quit Tarnwick"), QMessageBox::AcceptRole);
  connect(quit, &QPushButton::clicked, this, &StoreAlert::quitChosen);
  m_box->setModal(false);
}

StoreAlert::~StoreAlert() = default;

void StoreAlert::present() {
  m_box->show();
  m_box->raise();
  m_box->activateWindow();
}

}  // namespace tarnwick
