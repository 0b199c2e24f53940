// SPDX-License-Identifier: MIT
// Another program of the desktop, driven by lines on standard input; it says what happens to it on standard output.
//   window X Y W H TITLE | dock X Y W H STRUT-TOP | move X Y | resize W H | minimize | restore | front | close | quit
//   another X Y W H CLASS (a second window, of another application by its class) | title TEXT
//   claim PID (what the window says of its process; 0: nothing) | acquire | forward WORD... | chord TEXT
#include "linux/dbus/DBusInstance.h"
#include "linux/x11/X11HotKeys.h"
#include "linux/x11/XcbConnection.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPushButton>
#include <QSocketNotifier>
#include <QTextStream>
#include <QWidget>

#include <unistd.h>

namespace tarnwick {
namespace {

void say(const QString& line) { QTextStream(stdout) << line << Qt::endl; }

class Pane final : public QWidget {
 protected:
  void mousePressEvent(QMouseEvent*) override { say(QStringLiteral("pressed")); }
  void closeEvent(QCloseEvent*) override { say(QStringLiteral("closed")); }
  void changeEvent(QEvent* event) override {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) say(QStringLiteral("active"));
  }
};

class Peer final {
 public:
  void obey(const QString& line) {
    const auto words = line.split(u' ', Qt::SkipEmptyParts);
    const auto verb = words.value(0);
    const auto number = [&](int i) { return words.value(i).toInt(); };
    if (verb == u"window") {
      m_pane = std::make_unique<Pane>();
      m_pane->setWindowTitle(words.mid(5).join(u' '));
      m_pane->setGeometry(number(1), number(2), number(3), number(4));
      m_pane->show();
      m_pane->activateWindow();
    } else if (verb == u"another") {
      m_second = std::make_unique<Pane>();
      m_second->setGeometry(number(1), number(2), number(3), number(4));
      call(*m_second, words.value(5).toLatin1());
      m_second->show();
      m_second->activateWindow();
    } else if (verb == u"title") {
      m_pane->setWindowTitle(words.mid(1).join(u' '));
    } else if (verb == u"dock") {
      m_pane = std::make_unique<Pane>();
      m_pane->setGeometry(number(1), number(2), number(3), number(4));
      auto* button = new QPushButton(m_pane.get());
      button->setGeometry(10, 0, 30, number(4));
      button->setAccessibleName(QStringLiteral("Trash"));
      becomePanel(static_cast<uint32_t>(number(5)));
      m_pane->show();
    } else if (verb == u"move") {
      m_pane->move(number(1), number(2));
    } else if (verb == u"resize") {
      m_pane->resize(number(1), number(2));
    } else if (verb == u"minimize") {
      m_pane->showMinimized();
    } else if (verb == u"restore") {
      m_pane->showNormal();
    } else if (verb == u"front") {
      m_x.sendToRoot(static_cast<xcb_window_t>(m_pane->winId()), "_NET_ACTIVE_WINDOW", {2, 0, 0});
    } else if (verb == u"claim") {
      claim(static_cast<uint32_t>(number(1)));
    } else if (verb == u"close") {
      m_pane.reset();
    } else if (verb == u"quit") {
      qApp->quit();
    } else if (verb == u"acquire") {
      acquire();
    } else if (verb == u"forward") {
      const auto reply = m_instance.forward({words.mid(1), "in", QStringLiteral("/tmp")});
      say(QStringLiteral("reply %1 %2%3").arg(reply.exitStatus).arg(QString::fromUtf8(reply.output), QString::fromUtf8(reply.error)).trimmed());
    } else if (verb == u"chord") {
      auto result = m_keys.registerChord(words.value(1), [] { say(QStringLiteral("fired")); });
      say(QStringLiteral("status %1").arg(result.status));
      m_chord = std::move(result.handle);
    }
  }

 private:
  void acquire() {
    InstanceHandlers handlers;
    handlers.sessionEnds = [] { say(QStringLiteral("ends")); };
    handlers.reopen = [] { say(QStringLiteral("reopen")); };
    handlers.action = [](const QString& action) { say(QStringLiteral("action ") + action); };
    handlers.command = [](const CommandCall& call) {
      say(QStringLiteral("command ") + call.arguments.join(u' '));
      return CommandReply{3, "out", "err"};
    };
    switch (m_instance.acquire(std::move(handlers))) {
      case InstanceRole::First: say(QStringLiteral("role first")); break;
      case InstanceRole::Second: say(QStringLiteral("role second")); break;
      case InstanceRole::NoBus: say(QStringLiteral("role nobus")); break;
    }
  }
  void claim(uint32_t pid) {
    const auto window = static_cast<xcb_window_t>(m_pane->winId());
    const auto property = m_x.atom("_NET_WM_PID");
    if (pid == 0) {
      xcb_delete_property(m_x.get(), window, property);
    } else {
      xcb_change_property(m_x.get(), XCB_PROP_MODE_REPLACE, window, property, XCB_ATOM_CARDINAL, 32, 1, &pid);
    }
    m_x.flush();
    say(QStringLiteral("claimed"));
  }
  void call(QWidget& pane, const QByteArray& name) {
    const QByteArray names = name + '\0' + name + '\0';
    const auto window = static_cast<xcb_window_t>(pane.winId());
    QGuiApplication::sync();  // two connections: the one that makes it first, then the one that names it
    xcb_change_property(m_x.get(), XCB_PROP_MODE_REPLACE, window, m_x.atom("WM_CLASS"), XCB_ATOM_STRING, 8,
                        static_cast<uint32_t>(names.size()), names.constData());
    (void)m_x.property(window, "WM_CLASS");
  }
  void becomePanel(uint32_t depth) {
    const uint32_t strut[12] = {0, 0, depth, 0, 0, 0, 0, 0, 0, static_cast<uint32_t>(m_pane->width() - 1), 0, 0};
    xcb_change_property(m_x.get(), XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(m_pane->winId()),
                        m_x.atom("_NET_WM_STRUT_PARTIAL"), XCB_ATOM_CARDINAL, 32, 12, strut);
    const uint32_t type = m_x.atom("_NET_WM_WINDOW_TYPE_DOCK");
    xcb_change_property(m_x.get(), XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(m_pane->winId()),
                        m_x.atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM, 32, 1, &type);
    m_x.flush();
  }

  XcbConnection m_x;
  X11HotKeys m_keys{m_x};
  DBusInstance m_instance;
  Registration m_chord;
  std::unique_ptr<Pane> m_pane;
  std::unique_ptr<Pane> m_second;
};

}  // namespace
}  // namespace tarnwick

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  tarnwick::Peer peer;
  QByteArray buffer;
  QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, [&] {
    char bytes[4096];
    const auto got = read(STDIN_FILENO, bytes, sizeof bytes);
    if (got <= 0) {
      QApplication::quit();
      return;
    }
    buffer.append(bytes, got);
    for (qsizetype end = 0; (end = buffer.indexOf('\n')) >= 0;) {
      const auto line = QString::fromUtf8(buffer.left(end));
      buffer.remove(0, end + 1);
      peer.obey(line);
    }
  });
  return QApplication::exec();
}
