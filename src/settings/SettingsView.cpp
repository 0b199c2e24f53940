// SPDX-License-Identifier: MIT
#include "settings/SettingsView.h"

#include "effects/Tokens.h"
#include "settings/AboutPane.h"
#include "settings/GeneralPane.h"
#include "settings/NotesPane.h"
#include "settings/SettingsTabBar.h"
#include "settings/SoundPane.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLinearGradient>
#include <QPainter>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

constexpr int kWidth = 440;
constexpr int kTabRow = 72;
constexpr int kScrollBar = 8;
constexpr QMargins kMargins{18, 14, 18, 18};
/// What a title bar and a panel's shadow take of the screen beside the pane itself.
constexpr int kScreenReserve = 56;

QScrollArea* scrolled(SettingsPane* pane, QWidget* parent) {
  auto* area = new QScrollArea(parent);
  area->setWidget(pane);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setFocusPolicy(Qt::NoFocus);
  area->viewport()->setAutoFillBackground(false);
  pane->setAutoFillBackground(false);
  area->verticalScrollBar()->setStyleSheet(
      u"QScrollBar{background:transparent;width:8px;margin:2px}"
      "QScrollBar::handle{background:rgba(255,255,255,60);border-radius:2px;min-height:24px}"
      "QScrollBar::add-line,QScrollBar::sub-line{height:0}"
      "QScrollBar::add-page,QScrollBar::sub-page{background:transparent}"_s);
  area->hide();
  return area;
}

}  // namespace

struct SettingsView::Content {
  SettingsTabBar* tabs = nullptr;
  std::array<SettingsPane*, 4> panes{};
  std::array<QScrollArea*, 4> areas{};
  Pane current = Pane::General;

  [[nodiscard]] std::size_t index() const { return static_cast<std::size_t>(current); }
};

SettingsView::SettingsView(const SettingsServices& services, QWidget* parent)
    : QWidget(parent), m_content(std::make_unique<Content>()) {
  setWindowTitle(tr("Tarnwick"));
  setObjectName(u"settings"_s);
  setAccessibleName(tr("Settings"));
  setAttribute(Qt::WA_OpaquePaintEvent);
  // The window itself has the keyboard until Tab is pressed: no ring greets who came by the pointer.
  setFocusPolicy(Qt::ClickFocus);
  setFocus();

  auto& content = *m_content;
  content.tabs = new SettingsTabBar(this);
  content.tabs->addPane(u"gear"_s, tr("General"));
  content.tabs->addPane(u"note"_s, tr("Notes"));
  content.tabs->addPane(u"speaker"_s, tr("Sound"));
  content.tabs->addPane(u"info"_s, tr("About"));
  content.tabs->setAccessibleName(tr("Settings panes"));
  auto* notes = new NotesPane(services, this);
  connect(notes, &NotesPane::importRequested, this, &SettingsView::importRequested);
  content.panes = {new GeneralPane(services, this), notes, new SoundPane(services, this), new AboutPane(services, this)};

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(content.tabs, 0, Qt::AlignHCenter);
  for (std::size_t i = 0; i < content.panes.size(); ++i) {
    content.areas[i] = scrolled(content.panes[i], this);
    column->addWidget(content.areas[i], 1);
    content.panes[i]->installEventFilter(this);
  }
  connect(content.tabs, &QTabBar::currentChanged, this, [this](int index) { selectPane(static_cast<Pane>(index)); });
  selectPane(Pane::General);
}

SettingsView::~SettingsView() {
  // Panes outlive the content they report to while the base class takes them down.
  for (auto* pane : m_content->panes) pane->removeEventFilter(this);
}

void SettingsView::selectPane(Pane pane) {
  m_content->current = pane;
  m_content->tabs->setCurrentIndex(static_cast<int>(pane));
  for (std::size_t i = 0; i < m_content->areas.size(); ++i) m_content->areas[i]->setVisible(i == m_content->index());
  fitHeight();
}

SettingsView::Pane SettingsView::pane() const { return m_content->current; }

void SettingsView::fitHeight() {
  const auto* pane = m_content->panes[m_content->index()];
  auto& column = *pane->layout();
  column.setContentsMargins(kMargins);
  const int wanted = kTabRow + column.totalHeightForWidth(kWidth);
  const auto* screen = this->screen();
  const int most = std::max(screen ? screen->availableGeometry().height() - kScreenReserve : wanted, 2 * kTabRow);
  // Where everything fits there is no bar, not even while the layout is on its way: it would narrow the rows.
  m_content->areas[m_content->index()]->setVerticalScrollBarPolicy(wanted > most ? Qt::ScrollBarAsNeeded
                                                                                 : Qt::ScrollBarAlwaysOff);
  // The bar takes its room from the margin: the rows stay as wide and as high as they are without it.
  const auto bar = isRightToLeft() ? QMargins(kScrollBar, 0, 0, 0) : QMargins(0, 0, kScrollBar, 0);
  if (wanted > most) column.setContentsMargins(kMargins - bar);
  setFixedSize(kWidth, std::min(wanted, most));
}

void SettingsView::showEvent(QShowEvent* event) {
  // The screen may be another one than last time.
  fitHeight();
  QWidget::showEvent(event);
}

bool SettingsView::eventFilter(QObject* watched, QEvent* event) {
  const bool isCurrent = watched == m_content->panes[m_content->index()];
  // A line came or went, the login item's error for one.
  if (isCurrent && event->type() == QEvent::LayoutRequest) fitHeight();
  return QWidget::eventFilter(watched, event);
}

void SettingsView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(tokens::kWindow));
  const QRectF row(0, 0, width(), kTabRow);
  QLinearGradient shade(row.topLeft(), row.bottomLeft());
  shade.setColorAt(0, QColor(0xFF2A2B33));
  shade.setColorAt(1, QColor(0xFF24252C));
  painter.fillRect(row, shade);
  painter.fillRect(QRectF(0, kTabRow - 1, width(), 1), tokens::black(.5));
  painter.fillRect(QRectF(0, kTabRow, width(), 1), tokens::white(.05));
}

void SettingsView::keyPressEvent(QKeyEvent* event) {
  const bool hasCommand = event->modifiers() & (Qt::ControlModifier | Qt::MetaModifier);
  if (event->key() == Qt::Key_Escape || (hasCommand && event->key() == Qt::Key_W)) {
    close();
    return;
  }
  if (hasCommand && (event->key() == Qt::Key_PageDown || event->key() == Qt::Key_PageUp)) {
    const int count = static_cast<int>(m_content->panes.size());
    const int step = event->key() == Qt::Key_PageDown ? 1 : count - 1;
    selectPane(static_cast<Pane>((static_cast<int>(m_content->current) + step) % count));
    return;
  }
  QWidget::keyPressEvent(event);
}

}  // namespace tarnwick
