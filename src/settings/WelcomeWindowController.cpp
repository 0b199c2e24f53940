// SPDX-License-Identifier: MIT
#include "settings/WelcomeWindowController.h"

#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"
#include "settings/WelcomeView.h"

#include <QPainterPath>
#include <QRegion>
#include <QWindow>

#include <utility>

namespace tarnwick {

namespace {

constexpr double kRadius = 26;

/// The middle of what panels leave of the primary screen, as Qt's top-left position.
QPoint centered(const Screens& screens, const QSize& size) {
  const auto all = screens.all();
  if (all.empty()) return {};
  const auto room = screens.space().toQt(all.front().visibleFrame);
  return (room.center() - QPointF(size.width(), size.height()) / 2).toPoint();
}

}  // namespace

WelcomeWindowController::WelcomeWindowController(Ports ports, UserDefaults& defaults)
    : m_ports(ports), m_defaults(defaults) {}

WelcomeWindowController::~WelcomeWindowController() = default;

void WelcomeWindowController::show(std::function<void()> onFinish) {
  m_onFinish = std::move(onFinish);
  if (!isVisible()) {
    m_view = std::make_unique<WelcomeView>(m_ports, [this] { finish(); });
    m_view->setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    if (m_ports.screens.isComposited()) {
      m_view->setAttribute(Qt::WA_TranslucentBackground);
    } else {
      QPainterPath outline;
      outline.addRoundedRect(QRectF(m_view->rect()), kRadius, kRadius);
      m_view->setMask(QRegion(outline.toFillPolygon().toPolygon()));
    }
    m_view->move(centered(m_ports.screens, m_view->size()));
    m_view->show();
  }
  if (auto* handle = m_view->windowHandle()) m_ports.windowServer.activate(*handle);
}

bool WelcomeWindowController::isVisible() const { return m_view && m_view->isVisible(); }

QWidget* WelcomeWindowController::window() const { return m_view.get(); }

void WelcomeWindowController::finish() {
  // Should the write fail, the flow shows once more at the next launch.
  static_cast<void>(m_defaults.setBoolean(keys::kHasSeenWelcome, true));
  m_view->hide();
  if (const auto action = std::exchange(m_onFinish, nullptr)) action();
}

}  // namespace tarnwick
