// SPDX-License-Identifier: MIT
#include "shell/StatusBarController.h"

#include "effects/Controls.h"
#include "effects/SvgIconEngine.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"
#include "model/AppNotesPrefs.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"
#include "shell/ChordMenu.h"
#include "shell/FloatingPanel.h"
#include "shell/Placement.h"

#include <QAction>
#include <QCursor>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

#include <algorithm>
#include <functional>

namespace tarnwick {

namespace {

constexpr std::chrono::milliseconds kMenuDelay(150);

// A session's panel may come up well after what it starts.
constexpr std::chrono::seconds kPresenceDelay(8);

// The item comes up when the panel gets to it; nobody tells when.
constexpr std::chrono::seconds kInkDelays[] = {std::chrono::seconds(1), std::chrono::seconds(5), kPresenceDelay};
constexpr QRgb kDarkInk = 0xFF22232A;
constexpr QRgb kInkForAnyMenu = 0xFF85817A;
constexpr qreal kLightPanel = 0.5;
constexpr int kPixelsOfRim = 22;  // one for each

/// Of the tray's glyph, drawn at the sizes that are asked for.
QIcon glyph(const std::function<void(QPainter&, const QPixmap& pale, int pixels)>& paint) {
  const QIcon pale = Symbols::trayIcon();
  return QIcon(new SvgIconEngine(pale.availableSizes(), [pale, paint](int pixels) {
    const QSize size(pixels, pixels);
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(painter, pale.pixmap(size, 1), pixels);
    return pixmap;
  }));
}

QPixmap darkened(const QPixmap& pale) {
  QPixmap pixmap = pale;
  QPainter painter(&pixmap);
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.fillRect(pixmap.rect(), QColor::fromRgba(kDarkInk));
  return pixmap;
}

QIcon darkGlyph() {
  return glyph([](QPainter& painter, const QPixmap& pale, int) { painter.drawPixmap(0, 0, darkened(pale)); });
}

/// Light with a dark rim, for a panel that does not show where the item is: it reads on light and on dark ones.
QIcon rimmedGlyph() {
  return glyph([](QPainter& painter, const QPixmap& pale, int pixels) {
    const QPixmap dark = darkened(pale);
    const int rim = std::max(1, pixels / kPixelsOfRim);
    for (const int dx : {-rim, 0, rim}) {
      for (const int dy : {-rim, 0, rim}) painter.drawPixmap(dx, dy, dark);
    }
    painter.drawPixmap(0, 0, pale);
  });
}

/// How light the panel is at the corners of the item, which the glyph leaves free; nothing where it cannot be seen.
std::optional<qreal> lightnessAround(const QRect& item) {
  auto* screen = QGuiApplication::screenAt(item.center());
  if (!screen || item.isEmpty()) return std::nullopt;
  const QPoint corner = item.topLeft() - screen->geometry().topLeft();
  const auto picture = screen->grabWindow(0, corner.x(), corner.y(), item.width(), item.height()).toImage();
  if (picture.isNull()) return std::nullopt;
  const int right = picture.width() - 1;
  const int bottom = picture.height() - 1;
  qreal sum = 0;
  for (const QPoint& point : {QPoint(0, 0), QPoint(right, 0), QPoint(0, bottom), QPoint(right, bottom)}) {
    sum += picture.pixelColor(point).lightnessF();
  }
  return sum / 4;
}

QIcon symbol(const QString& name, QRgb ink) {
  QIcon icon(Symbols::pixmap(name, 16, QColor::fromRgb(ink), 2));
  icon.addPixmap(Symbols::pixmap(name, 16, QColor::fromRgb(tokens::kOnAccent), 2), QIcon::Active);
  return icon;
}

}  // namespace

StatusBarController::StatusBarController(FloatingPanel& panel, Services services, Actions actions)
    : m_panel(panel),
      m_services(std::move(services)),
      m_actions(std::move(actions)),
      m_menu(std::make_unique<ChordMenu>()) {
  m_menu->setTitle(tr("Tarnwick"));
  connect(m_menu.get(), &QMenu::aboutToShow, this, &StatusBarController::buildMenu);
  m_item.setIcon(rimmedGlyph());
  m_item.setToolTip(tr("Tarnwick — ⌘⇧T"));
  m_item.setContextMenu(m_menu.get());
  connect(&m_item, &QSystemTrayIcon::activated, this, &StatusBarController::statusItemPressed);
  m_panel.setAnchorSource([this] { return anchor(); });
}

StatusBarController::~StatusBarController() { m_panel.setAnchorSource({}); }

void StatusBarController::start() {
  m_item.show();
  // A tray that draws the menu itself asks for it before it ever shows one; nobody opens it that quickly.
  m_menuWork = m_services.scheduler.after(kMenuDelay, [this] { buildMenu(); });
  for (const auto delay : kInkDelays) m_inkChecks.push_back(m_services.scheduler.after(delay, [this] { applyInk(); }));
  if (m_services.isTrayPresent()) return;
  m_presenceCheck = m_services.scheduler.after(kPresenceDelay, [this] {
    if (!m_services.isTrayPresent()) Q_EMIT trayMissing();
  });
}

void StatusBarController::applyInk() {
  const auto lightness = lightnessAround(m_item.geometry());
  const auto panel = lightness ? std::optional(*lightness > kLightPanel) : std::nullopt;
  if (panel == m_isOnLightPanel) return;
  m_isOnLightPanel = panel;
  m_item.setIcon(!panel ? rimmedGlyph() : *panel ? darkGlyph() : Symbols::trayIcon());
}

void StatusBarController::buildMenu() {
  m_menuWork.cancel();
  if (m_menu->styleSheet().isEmpty()) styleMenu(*m_menu);
  m_menu->clear();
  // A panel that hides the item's place draws the menu as well, light or dark.
  const QRgb ink = m_item.geometry().isEmpty() ? kInkForAnyMenu : tokens::kText2;
  const auto add = [this, ink](const QString& title, const QString& symbolName, const QKeySequence& keys,
                          void (StatusBarController::*action)()) {
    auto* item = m_menu->addAction(title, this, action);
    if (!symbolName.isEmpty()) item->setIcon(symbol(symbolName, ink));
    item->setShortcut(keys);
    item->setShortcutVisibleInContextMenu(true);
    return item;
  };
  add(tr("Open Board"), QStringLiteral("board"), QKeySequence(Qt::META | Qt::SHIFT | Qt::Key_T),
      &StatusBarController::toggleDesk);
  add(tr("New Note"), QStringLiteral("plus"), QKeySequence(Qt::META | Qt::Key_N), &StatusBarController::newNoteAction);
  m_menu->addSeparator();
  auto* privacy = add(tr("Hide Notes from Screen Sharing"), QStringLiteral("eyeSlash"), {},
                      &StatusBarController::togglePrivacy);
  privacy->setCheckable(true);
  privacy->setChecked(m_services.prefs.hideFromCapture());
  add(tr("Settings…"), QStringLiteral("gear"), QKeySequence(Qt::META | Qt::Key_Comma),
      &StatusBarController::openSettings);
  add(tr("Quit Tarnwick"), {}, QKeySequence(Qt::META | Qt::Key_Q), &StatusBarController::quit);
}

void StatusBarController::statusItemPressed(QSystemTrayIcon::ActivationReason reason) {
  // Of two quick clicks the second comes as a double click, in place of a click of its own.
  if (reason != QSystemTrayIcon::Trigger && reason != QSystemTrayIcon::DoubleClick) return;
  rememberPointer();
  applyInk();
  toggleDesk();
}

void StatusBarController::rememberPointer() {
  const auto pointer = m_services.screens.space().fromQt(QPointF(QCursor::pos()));
  m_clickedAnchor = placement::anchorAtPointer(pointer, m_services.screens.screenAt(pointer));
}

std::optional<DesktopRect> StatusBarController::anchor() const {
  const QRect item = m_item.geometry();
  if (item.isValid() && !item.isEmpty()) return m_services.screens.space().fromQt(QRectF(item));
  return m_clickedAnchor;
}

void StatusBarController::toggleDesk() { m_panel.toggle(); }

void StatusBarController::newNoteAction() {
  if (m_actions.addTask) m_actions.addTask();
}

void StatusBarController::togglePrivacy() {
  m_services.prefs.setHideFromCapture(!m_services.prefs.hideFromCapture());
}

void StatusBarController::openSettings() {
  if (m_actions.openSettings) m_actions.openSettings();
}

void StatusBarController::quit() {
  if (m_actions.quit) m_actions.quit();
}

}  // namespace tarnwick
