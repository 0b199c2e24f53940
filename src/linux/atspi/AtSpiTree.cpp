// SPDX-License-Identifier: MIT
#include "linux/atspi/AtSpiTree.h"

#include "linux/atspi/AtSpiReply.h"
#include "linux/atspi/AtSpiWords.h"
#include "linux/dbus/BusCall.h"
#include "linux/x11/NativeSpace.h"
#include "linux/xdg/ProcessFiles.h"

#include <QDBusArgument>
#include <QDBusMessage>

#include <unistd.h>

namespace tarnwick {

namespace {

using atspi::getter;
using atspi::kMostChildren;
using atspi::propertyFrom;
using atspi::refsFrom;

const QString kBusService = QStringLiteral("org.a11y.Bus");
const QString kBusPath = QStringLiteral("/org/a11y/bus");
const QString kStatus = QStringLiteral("org.a11y.Status");
const QString kProperties = QStringLiteral("org.freedesktop.DBus.Properties");
const QString kAccessible = QStringLiteral("org.a11y.atspi.Accessible");
const QString kComponent = QStringLiteral("org.a11y.atspi.Component");
const QString kConnectionName = QStringLiteral("tarnwick-accessibility");

constexpr int kDeepest = 8;       // levels below an application that anybody looks at
constexpr int kMostNodes = 1500;
constexpr int kMostSilences = 3;  // unanswered calls after which a program is left alone

QString keyOf(const ElementRef& element) { return element.service + element.path; }

std::optional<DesktopRect> frameFrom(const QDBusMessage& reply) {
  const auto values = reply.arguments();
  if (values.isEmpty() || !values.front().canConvert<QDBusArgument>()) return std::nullopt;
  const auto argument = values.front().value<QDBusArgument>();
  if (argument.currentType() != QDBusArgument::StructureType) return std::nullopt;
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  argument.beginStructure();
  argument >> x >> y >> width >> height;
  argument.endStructure();
  if (width <= 0 || height <= 0) return std::nullopt;
  return desktopFromNative(QRect(x, y, width, height));
}

}  // namespace

struct AtSpiTree::Job {
  AccessibleReading reading;
  QSet<qint64> docks;
  QHash<QString, int> silences;
  QHash<QString, quint32> trashPlugins;  // services whose buttons are the Trash, and the windows that hold them
  int open = 0;  // calls under way
};

AtSpiTree::AtSpiTree(Windows windows) : m_windows(std::move(windows)), m_bus(kConnectionName) {
  auto session = QDBusConnection::sessionBus();
  if (!session.isConnected()) return;
  session.connect(kBusService, kBusPath, kProperties, QStringLiteral("PropertiesChanged"), this,
                  SLOT(statusChanged(QString, QVariantMap, QStringList)));
  session.connect(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
                  QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameOwnerChanged"), {kBusService}, QString(),
                  this, SLOT(busServiceChanged(QString, QString, QString)));
  readStatus();
}

AtSpiTree::~AtSpiTree() { QDBusConnection::disconnectFromBus(kConnectionName); }

const AccessibleNode* AtSpiTree::node(const ElementRef& element) const {
  const auto found = m_reading.nodes.constFind(keyOf(element));
  return found == m_reading.nodes.constEnd() ? nullptr : &*found;
}

void AtSpiTree::call(const QDBusConnection& bus, const QDBusMessage& message, Answer answer) {
  atspi::call(bus, message, this, std::move(answer));
}

void AtSpiTree::readStatus() {
  auto message = QDBusMessage::createMethodCall(kBusService, kBusPath, kProperties, QStringLiteral("Get"));
  message.setAutoStartService(false);  // looking must not start it
  message << kStatus << QStringLiteral("IsEnabled");
  call(QDBusConnection::sessionBus(), message, [this](const QDBusMessage& reply) {
    m_isEnabled = reply.type() == QDBusMessage::ReplyMessage && propertyFrom(reply).toBool();
    if (m_isEnabled) connectToBus();
  });
}

void AtSpiTree::switchOn() {
  auto message = QDBusMessage::createMethodCall(kBusService, kBusPath, kProperties, QStringLiteral("Set"));
  message << kStatus << QStringLiteral("IsEnabled") << QVariant::fromValue(QDBusVariant(true));
  ask(QDBusConnection::sessionBus(), message, this, [this](const QDBusMessage&) { readStatus(); });
}

void AtSpiTree::connectToBus() {
  if (m_bus.isConnected()) {
    refresh();
    return;
  }
  const auto message = QDBusMessage::createMethodCall(kBusService, kBusPath, kBusService, QStringLiteral("GetAddress"));
  call(QDBusConnection::sessionBus(), message, [this](const QDBusMessage& reply) {
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) return;
    QDBusConnection::disconnectFromBus(kConnectionName);
    m_bus = QDBusConnection::connectToBus(reply.arguments().front().toString(), kConnectionName);
    refresh();
  });
}

void AtSpiTree::statusChanged(const QString& interface, const QVariantMap& values, const QStringList&) {
  const auto value = values.constFind(QStringLiteral("IsEnabled"));
  if (interface != kStatus || value == values.constEnd()) return;
  m_isEnabled = value->toBool();
  if (m_isEnabled) connectToBus();
}

void AtSpiTree::busServiceChanged(const QString&, const QString&, const QString& newOwner) {
  if (newOwner.isEmpty()) {
    m_isEnabled = false;
  } else {
    readStatus();
  }
}

void AtSpiTree::refresh() {
  if (m_job || !isOn()) return;
  m_job = std::make_shared<Job>();
  m_job->docks = m_windows.pidsOfDocks();
  if (m_job->docks.isEmpty()) {
    m_reading = {};
    m_job.reset();
    return;
  }
  ++m_job->open;
  call(m_bus, atspi::applications(), [this](const QDBusMessage& reply) {
    for (const auto& application : refsFrom(reply)) readApplication(application);
    --m_job->open;
    finishIfDone();
  });
}

void AtSpiTree::readApplication(const ElementRef& application) {
  ++m_job->open;
  call(m_bus, atspi::processOf(application), [this, application](const QDBusMessage& reply) {
    const qint64 pid = atspi::processFrom(reply);
    if (pid > 0 && pid != getpid() && m_job->docks.contains(pid)) {
      m_job->reading.docks.push_back(application);
      readNode(application, -1);
    } else if (const auto line = processFile(pid, "cmdline"); isTrashPlugin(line)) {
      m_job->trashPlugins.insert(application.service, socketOfPlugin(line));
    }
    --m_job->open;
    finishIfDone();
  });
}

// `depth` counts as the searchers do: children of the application are at 0.
void AtSpiTree::readNode(const ElementRef& element, int depth) {
  const auto key = keyOf(element);
  auto& nodes = m_job->reading.nodes;
  if (nodes.contains(key) || nodes.size() >= kMostNodes) return;
  if (m_job->silences.value(element.service) >= kMostSilences) return;
  nodes.insert(key, {});
  using Use = std::function<void(const QDBusMessage&, AccessibleNode&)>;
  const auto ask = [this, key, service = element.service](const QDBusMessage& message, Use use) {
    ++m_job->open;
    call(m_bus, message, [this, key, service, use = std::move(use)](const QDBusMessage& reply) {
      if (reply.type() == QDBusMessage::ReplyMessage) {
        use(reply, m_job->reading.nodes[key]);
      } else if (reply.errorName() == u"org.freedesktop.DBus.Error.NoReply") {
        ++m_job->silences[service];
      }
      --m_job->open;
      finishIfDone();
    });
  };
  const auto method = [&element](const QString& interface, const QString& name) {
    return QDBusMessage::createMethodCall(element.service, element.path, interface, name);
  };
  ask(getter(element, QStringLiteral("Name")),
      [](const auto& reply, auto& node) { node.facts.title = propertyFrom(reply).toString(); });
  ask(getter(element, QStringLiteral("Description")),
      [](const auto& reply, auto& node) {
        node.facts.description = descriptionFromAtSpi(propertyFrom(reply).toString());
      });
  ask(method(kAccessible, QStringLiteral("GetRoleName")), [](const auto& reply, auto& node) {
    node.facts.role = roleFromAtSpi(reply.arguments().value(0).toString());
  });
  if (depth >= 0) {
    auto extents = method(kComponent, QStringLiteral("GetExtents"));
    extents << 0U;  // screen coordinates
    ask(extents, [](const auto& reply, auto& node) { node.facts.frame = frameFrom(reply); });
  }
  if (depth + 1 >= kDeepest) return;
  ask(method(kAccessible, QStringLiteral("GetChildren")), [this, element, depth, ask](const auto& reply, auto& node) {
    const auto children = refsFrom(reply);
    node.children = children;  // before the next line: reading on moves the nodes
    for (const auto& child : children) readNode(child, depth + 1);
    if (!children.empty()) return;
    // A plug-in of another process hides from the list, and is found by its index.
    ask(getter(element, QStringLiteral("ChildCount")), [this, element, depth, ask](const auto& count, auto&) {
      for (int i = 0; i < std::min(propertyFrom(count).toInt(), kMostChildren); ++i) {
        auto message = QDBusMessage::createMethodCall(element.service, element.path, kAccessible,
                                                      QStringLiteral("GetChildAtIndex"));
        message << i;
        ask(message, [this, depth](const auto& found, auto& parent) {
          const auto plugged = refsFrom(found);
          parent.children.insert(parent.children.end(), plugged.begin(), plugged.end());
          for (const auto& child : plugged) readNode(child, depth + 1);
        });
      }
    });
  });
}

void AtSpiTree::addTrashPlugins() {
  auto& reading = m_job->reading;
  QSet<QString> reached;
  for (auto node = reading.nodes.begin(); node != reading.nodes.end(); ++node) {
    const auto service = node.key().section(u'/', 0, 0);
    if (!m_job->trashPlugins.contains(service) || node->facts.role != u"AXButton") continue;
    node->facts.subrole = QStringLiteral("AXTrashDockItem");
    reached.insert(service);
  }
  // A plug-in that started while its panel was busy is never joined to the panel's tree.
  for (auto plugin = m_job->trashPlugins.cbegin(); plugin != m_job->trashPlugins.cend(); ++plugin) {
    const auto frame = plugin.value() > 0 ? m_windows.frameOf(plugin.value()) : std::nullopt;
    if (reached.contains(plugin.key()) || !frame) continue;
    const ElementRef root{plugin.key(), QStringLiteral("/")};
    const ElementRef button{plugin.key(), QStringLiteral("/socket")};
    reading.docks.push_back(root);
    reading.nodes.insert(keyOf(root), {{}, {button}});
    auto& facts = reading.nodes[keyOf(button)].facts;
    facts.subrole = QStringLiteral("AXTrashDockItem");
    facts.frame = frame;
  }
}

void AtSpiTree::finishIfDone() {
  if (!m_job || m_job->open > 0) return;
  addTrashPlugins();
  m_reading = std::move(m_job->reading);
  m_job.reset();
}

}  // namespace tarnwick
