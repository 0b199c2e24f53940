// SPDX-License-Identifier: MIT
// A bare Qt program in the place of the whole one: empty windows, toggled and added by the same command over the same bus
// and by the same chord. What it takes is the floor.
#include "linux/dbus/DBusInstance.h"
#include "linux/x11/X11HotKeys.h"

#include <QApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QWidget>

#include <memory>
#include <vector>

namespace {

using namespace Qt::StringLiterals;

class BareWindow final : public QWidget {
 public:
  explicit BareWindow(const QRect& place)
      : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint) {
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowTitle(u"Bare"_s);
    setGeometry(place);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xFF, 0xE1, 0x69));
    painter.drawRoundedRect(rect().adjusted(36, 36, -36, -36), 12, 12);
  }
};

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORMTHEME", "generic");
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  BareWindow board(QRect(400, 60, 462, 462));
  std::vector<std::unique_ptr<BareWindow>> notes;
  const auto toggle = [&board] {
    board.setVisible(!board.isVisible());
    if (!board.isVisible()) return;
    board.raise();
    board.activateWindow();
  };
  const auto add = [&notes] {
    notes.push_back(std::make_unique<BareWindow>(QRect(200, 200, 322, 302)));
    notes.back()->setAttribute(Qt::WA_ShowWithoutActivating);
    notes.back()->show();
  };

  tarnwick::DBusInstance instance;
  tarnwick::InstanceHandlers handlers;
  handlers.storePath = QString::fromLocal8Bit(argc > 1 ? argv[1] : "");
  handlers.command = [&](const tarnwick::CommandCall& call) -> tarnwick::CommandReply {
    const auto verb = call.arguments.value(0);
    if (verb == u"toggle") toggle();
    if (verb == u"add") add();
    if (verb == u"quit") QCoreApplication::exit(0);
    return {0, {}, {}};
  };
  if (instance.acquire(std::move(handlers)) == tarnwick::InstanceRole::Second) return 1;
  tarnwick::XcbConnection server;
  tarnwick::X11HotKeys keys(server);
  const auto chord = keys.registerChord(u"Meta+Shift+T"_s, toggle);
  return QApplication::exec();
}
