// SPDX-License-Identifier: MIT
#include "app/ImportWindow.h"

#include "app/NoteImport.h"
#include "board/BoardServices.h"
#include "effects/PrimaryButton.h"
#include "effects/Tokens.h"
#include "platform/Clock.h"
#include "settings/PlateButton.h"
#include "settings/SettingsText.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 440;
constexpr QMargins kMargins{22, 20, 22, 18};

}  // namespace

ImportWindow::ImportWindow(const BoardServices& services, QString home) : m_services(services), m_home(std::move(home)) {
  setWindowTitle(tr("Import notes"));
  setObjectName(u"import"_s);
  setAccessibleName(tr("Import notes"));
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void ImportWindow::choose() {
  startPage(tr("Where are your notes?"));
  addText(tr("They are only read there. You see what would come before anything is imported."), tokens::kText2);
  for (const auto& place : importPlaces(m_home)) {
    addChoice(place.program, [this, path = place.path] { preview({path}); });
  }
  addChoice(tr("A file…"), [this] { pick(Kind::File); });
  addChoice(tr("A folder…"), [this] { pick(Kind::Folder); });
  endPage();
}

void ImportWindow::pick(Kind kind) {
  auto* dialog = new QFileDialog(this, windowTitle(), m_home);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setFileMode(kind == Kind::Folder ? QFileDialog::Directory : QFileDialog::ExistingFiles);
  // Other notes programs keep theirs where names begin with a dot.
  dialog->setFilter(dialog->filter() | QDir::Hidden);
  connect(dialog, &QFileDialog::filesSelected, this, &ImportWindow::preview);
  dialog->open();
}

void ImportWindow::preview(const QStringList& paths) {
  m_contents.clear();
  startPage(tr("Import notes"));
  int fresh = 0;
  for (const auto& path : paths) {
    auto content = readImport(path, Calendar::of(m_services.clock), m_services.clock.now());
    if (!content) {
      addText(tr("%1: %2").arg(QFileInfo(path).fileName(), content.error().text), tokens::kErrorText);
      continue;
    }
    const auto counts = previewOf(m_services.container, content.value());
    fresh += counts.notes - counts.existing;
    addText(previewText(content.value(), counts), tokens::kText);
    m_contents.push_back(content.take());
  }
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  auto* cancel = new PlateButton(fresh > 0 ? tr("Cancel") : tr("Close"), m_page);
  connect(cancel, &QPushButton::clicked, this, &QWidget::close);
  buttons->addWidget(cancel);
  if (fresh > 0) {
    auto* import = new PrimaryButton(tr("Import %1").arg(fresh), {}, m_page);
    connect(import, &QAbstractButton::clicked, this, &ImportWindow::importAll);
    buttons->addWidget(import);
    import->setFocus();
  }
  m_column->addSpacing(10);
  m_column->addLayout(buttons);
  endPage();
}

void ImportWindow::importAll() {
  ImportCount sum;
  QString error;
  for (const auto& content : m_contents) {
    const auto count = takeIn(content.notes, m_services);
    if (!count) {
      error = count.error().text;
      break;
    }
    sum.imported += count.value().imported;
    sum.skipped += count.value().skipped;
    sum.added.insert(sum.added.end(), count.value().added.begin(), count.value().added.end());
  }
  m_contents.clear();
  m_added.clear();
  for (const auto& task : sum.added) m_added.push_back(task->record());
  startPage(error.isEmpty() ? tr("Imported") : tr("Not everything was imported"));
  if (!error.isEmpty()) addText(error, tokens::kErrorText);
  addText(tr("New on the board: %1. Left as they were: %2.").arg(sum.imported).arg(sum.skipped), tokens::kText);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  if (!m_added.empty()) {
    auto* back = new PlateButton(tr("Take back"), m_page);
    connect(back, &QPushButton::clicked, this, &ImportWindow::takeAllBack);
    buttons->addWidget(back);
  }
  addClose(*buttons);
  endPage();
}

void ImportWindow::takeAllBack() {
  const auto asTheyCame = std::exchange(m_added, {});
  const auto gone = takeBack(asTheyCame, m_services);
  startPage(gone ? tr("Taken back") : tr("Nothing was taken back"));
  if (gone) {
    const auto kept = static_cast<int>(asTheyCame.size()) - gone.value();
    addText(tr("Gone from the board: %1. Changed since, and kept: %2.").arg(gone.value()).arg(kept), tokens::kText);
  } else {
    addText(gone.error().text, tokens::kErrorText);
  }
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  addClose(*buttons);
  endPage();
}

void ImportWindow::startPage(const QString& title) {
  // A button of the page may be what brings us here.
  if (m_page) {
    m_page->hide();
    m_page->deleteLater();
  }
  m_page = new QWidget(this);
  m_column = new QVBoxLayout(m_page);
  m_column->setContentsMargins(kMargins);
  m_column->setSpacing(8);
  m_column->addWidget(new SettingsText(title, tokens::Type::PanelTitle, tokens::kText, m_page));
}

void ImportWindow::addText(const QString& text, QRgb color) {
  m_column->addWidget(new SettingsText(text, tokens::Type::Help, color, m_page));
}

void ImportWindow::addChoice(const QString& text, const std::function<void()>& action) {
  auto* button = new PlateButton(text, m_page);
  connect(button, &QPushButton::clicked, this, action);
  m_column->addWidget(button);
}

/// The last of the buttons below a page.
void ImportWindow::addClose(QHBoxLayout& buttons) {
  auto* button = new PlateButton(tr("Close"), m_page);
  connect(button, &QPushButton::clicked, this, &QWidget::close);
  buttons.addWidget(button);
  m_column->addSpacing(10);
  m_column->addLayout(&buttons);
  button->setFocus();
}

void ImportWindow::endPage() {
  setFixedSize(kWidth, m_column->totalHeightForWidth(kWidth));
  m_page->setGeometry(rect());
  m_page->show();
  show();
  raise();
  activateWindow();
}

void ImportWindow::paintEvent(QPaintEvent* /*event*/) { QPainter(this).fillRect(rect(), QColor(tokens::kWindow)); }

void ImportWindow::keyPressEvent(QKeyEvent* event) {
  const bool hasCommand = event->modifiers() & (Qt::ControlModifier | Qt::MetaModifier);
  if (event->key() == Qt::Key_Escape || (hasCommand && event->key() == Qt::Key_W)) {
    close();
    return;
  }
  QWidget::keyPressEvent(event);
}

}  // namespace tarnwick
