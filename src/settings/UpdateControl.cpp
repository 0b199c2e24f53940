// SPDX-License-Identifier: MIT
#include "settings/UpdateControl.h"

#include "effects/Controls.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"
#include "settings/PlateButton.h"
#include "settings/SettingsText.h"
#include "settings/Spinner.h"
#include "settings/UpdateChecker.h"

#include <QHBoxLayout>
#include <QPainter>

namespace tarnwick {

namespace {
constexpr int kHeight = 40;
constexpr int kTick = 14;
}  // namespace

UpdateControl::UpdateControl(UpdateChecker& updates, Scheduler& scheduler, const Workspace& workspace, QWidget* parent)
    : QWidget(parent),
      m_updates(updates),
      m_check(new PlateButton(tr("Check Now"), this)),
      m_spinner(new Spinner(scheduler, workspace, this)),
      m_answer(new SettingsText(tr("Up to date"), tokens::Type::RowTitle, tokens::kOk, this)),
      m_failure(new SettingsText(tr("Couldn't reach server"), tokens::Type::RowTitle, tokens::kErrorText, this)),
      m_get(new PrimaryButton({}, {}, this)),
      m_absence(new SettingsText(tr("This build looks for no updates."), tokens::Type::Help, tokens::kText3, this)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(10);
  row->addStretch();
  for (auto* text : {m_answer, m_failure, m_absence}) {
    text->setWordWrap(false);
    text->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  }
  for (QWidget* part : {static_cast<QWidget*>(m_spinner), static_cast<QWidget*>(m_answer),
                        static_cast<QWidget*>(m_failure), static_cast<QWidget*>(m_check), static_cast<QWidget*>(m_get),
                        static_cast<QWidget*>(m_absence)}) {
    row->addWidget(part, 0, Qt::AlignVCenter);
  }
  row->addStretch();
  setFixedHeight(kHeight);

  connect(m_check, &QPushButton::clicked, this, [this] {
    m_returnsFocus = m_check->hasFocus();
    m_updates.check();
  });
  connect(m_get, &QAbstractButton::clicked, this, [this] { m_updates.openDownload(); });
  connect(&m_updates, &UpdateChecker::changed, this, &UpdateControl::refresh);
  refresh();
}

void UpdateControl::refresh() {
  using Status = UpdateChecker::Status;
  const auto status = m_updates.status();
  m_spinner->setVisible(status == Status::checking);
  m_answer->setVisible(status == Status::upToDate);
  m_failure->setVisible(status == Status::failed);
  const bool mayCheck = status == Status::idle || status == Status::upToDate || status == Status::failed;
  m_check->setVisible(m_updates.hasFeed() && mayCheck);
  m_absence->setVisible(!m_updates.hasFeed());
  m_get->setVisible(status == Status::available);
  if (const auto& release = m_updates.release()) {
    m_get->setText(tr("Get %1").arg(release->version));
    m_get->setAccessibleName(m_get->text());
    m_get->updateGeometry();
  }
  if (m_returnsFocus && status != Status::checking) {
    // The button that was pressed went while the answer was awaited: give the keyboard back to what stands there now.
    m_returnsFocus = false;
    (status == Status::available ? static_cast<QWidget*>(m_get) : m_check)->setFocus();
  }
  update();
}

void UpdateControl::paintEvent(QPaintEvent* /*event*/) {
  if (!m_answer->isVisible()) return;
  QPainter painter(this);
  const auto words = m_answer->geometry();
  const int x = layoutDirection() == Qt::RightToLeft ? words.right() + 5 : words.left() - kTick - 5;
  Symbols::paint(painter, QStringLiteral("check"), QRectF(x, words.center().y() - kTick / 2.0 + 1, kTick, kTick),
                 QColor(tokens::kOk));
}

}  // namespace tarnwick
