// SPDX-License-Identifier: MIT
// The floor of a start: a program that links what Tarnwick uses and does nothing but show a tray icon and a window.
#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QSystemTrayIcon>
#include <QWidget>

namespace {

class BareWindow final : public QWidget {
 public:
  BareWindow() : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint) {
    setAttribute(Qt::WA_TranslucentBackground);
    setGeometry(400, 60, 462, 462);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(QColor(0xFF, 0xE1, 0x69));
    painter.drawRoundedRect(rect().adjusted(36, 36, -36, -36), 12, 12);
  }
};

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORMTHEME", "generic");
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QPixmap picture(22, 22);
  picture.fill(QColor(0xFF, 0xE1, 0x69));
  QSystemTrayIcon tray{QIcon(picture)};
  tray.show();
  BareWindow window;
  window.show();
  return QApplication::exec();
}
