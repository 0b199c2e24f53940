// SPDX-License-Identifier: MIT
#include "linux/pipewire/PipeWireCaptureWatch.h"

#include "platform/Scheduler.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLibrary>
#include <QSocketNotifier>

// The library's headers are macros that call through tables: its style is not ours.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpedantic"
#pragma GCC diagnostic ignored "-Wold-style-cast"
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wshadow"
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"
#include <pipewire/pipewire.h>

namespace tarnwick {

namespace {

// Resolved at run time: a desktop without PipeWire lacks the library, and nobody else should pay for loading it.
struct Library {
  QLibrary file{QStringLiteral("pipewire-0.3"), 0};
  decltype(&pw_init) init = nullptr;
  decltype(&pw_loop_new) loopNew = nullptr;
  decltype(&pw_loop_destroy) loopDestroy = nullptr;
  decltype(&pw_context_new) contextNew = nullptr;
  decltype(&pw_context_destroy) contextDestroy = nullptr;
  decltype(&pw_context_connect) contextConnect = nullptr;
  decltype(&pw_core_disconnect) coreDisconnect = nullptr;
  decltype(&pw_proxy_destroy) proxyDestroy = nullptr;

  bool load() {
    if (!file.load()) return false;
    const auto resolve = [this](auto& function, const char* name) {
      function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(file.resolve(name));
      return function != nullptr;
    };
    return resolve(init, "pw_init") && resolve(loopNew, "pw_loop_new") && resolve(loopDestroy, "pw_loop_destroy") &&
           resolve(contextNew, "pw_context_new") && resolve(contextDestroy, "pw_context_destroy") &&
           resolve(contextConnect, "pw_context_connect") && resolve(coreDisconnect, "pw_core_disconnect") &&
           resolve(proxyDestroy, "pw_proxy_destroy");
  }
};

// A socket is bound a moment before somebody listens to it, and one that a daemon left behind never answers.
constexpr std::chrono::milliseconds kUntilItListens(300);
constexpr int kTries = 4;

/// Where the library would look for the daemon; empty when there is no such place.
QString socketPath() {
  auto name = qEnvironmentVariable("PIPEWIRE_REMOTE");
  if (name.isEmpty()) name = QStringLiteral("pipewire-0");
  if (QDir::isAbsolutePath(name)) return name;
  for (const char* folder : {"PIPEWIRE_RUNTIME_DIR", "XDG_RUNTIME_DIR"}) {
    if (const auto path = qEnvironmentVariable(folder); !path.isEmpty()) return QDir(path).filePath(name);
  }
  return QDir(QStringLiteral("/run/pipewire")).filePath(name);
}

StreamGraph::Properties propertiesOf(const spa_dict* dict) {
  StreamGraph::Properties properties;
  const spa_dict_item* item = nullptr;
  if (dict) {
    spa_dict_for_each(item, dict) { properties.insert(QString::fromUtf8(item->key), QString::fromUtf8(item->value)); }
  }
  return properties;
}

}  // namespace

struct PipeWireCaptureWatch::Connection {
  PipeWireCaptureWatch* owner = nullptr;
  Library library;
  pw_loop* loop = nullptr;
  pw_context* context = nullptr;
  pw_core* core = nullptr;
  pw_registry* registry = nullptr;
  spa_hook coreHook = {};
  spa_hook registryHook = {};
  pw_core_events coreEvents = {};
  pw_registry_events registryEvents = {};
  std::unique_ptr<QSocketNotifier> notifier;

  bool open() {
    if (!library.load()) return false;
    library.init(nullptr, nullptr);
    loop = library.loopNew(nullptr);
    if (!loop) return false;
    pw_loop_enter(loop);
    context = library.contextNew(loop, nullptr, 0);
    if (!context) return false;
    core = library.contextConnect(context, nullptr, 0);
    if (!core) return false;
    coreEvents.version = PW_VERSION_CORE_EVENTS;
    coreEvents.error = [](void* self, uint32_t id, int, int, const char*) {
      if (id != PW_ID_CORE) return;
      auto* connection = static_cast<Connection*>(self);
      if (connection->notifier) connection->notifier->setEnabled(false);
      // Not from within its own loop.
      QMetaObject::invokeMethod(
          connection->owner, [owner = connection->owner] { owner->daemonLeft(); }, Qt::QueuedConnection);
    };
    pw_core_add_listener(core, &coreHook, &coreEvents, this);
    registry = pw_core_get_registry(core, PW_VERSION_REGISTRY, 0);
    if (!registry) return false;
    registryEvents.version = PW_VERSION_REGISTRY_EVENTS;
    registryEvents.global = &Connection::added;
    registryEvents.global_remove = &Connection::removed;
    pw_registry_add_listener(registry, &registryHook, &registryEvents, this);
    notifier = std::make_unique<QSocketNotifier>(pw_loop_get_fd(loop), QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, owner, [this] { pw_loop_iterate(loop, 0); });
    pw_loop_iterate(loop, 0);  // sends what was queued
    return true;
  }

  ~Connection() {
    notifier.reset();
    if (registry) library.proxyDestroy(reinterpret_cast<pw_proxy*>(registry));
    if (core) library.coreDisconnect(core);
    if (context) library.contextDestroy(context);
    if (loop) {
      pw_loop_leave(loop);
      library.loopDestroy(loop);
    }
  }

  static void added(void* self, uint32_t id, uint32_t, const char* type, uint32_t, const spa_dict* dict) {
    auto* watch = static_cast<Connection*>(self)->owner;
    const auto properties = propertiesOf(dict);
    if (qstrcmp(type, PW_TYPE_INTERFACE_Node) == 0) {
      watch->m_graph.addNode(id, properties);
    } else if (qstrcmp(type, PW_TYPE_INTERFACE_Link) == 0) {
      watch->m_graph.addLink(id, properties.value(QStringLiteral("link.output.node")).toUInt());
    }
    watch->graphChanged();
  }
  static void removed(void* self, uint32_t id) {
    auto* watch = static_cast<Connection*>(self)->owner;
    watch->m_graph.remove(id);
    watch->graphChanged();
  }
};

PipeWireCaptureWatch::PipeWireCaptureWatch(Scheduler& scheduler) : m_scheduler(scheduler) {
  const auto folder = QFileInfo(socketPath()).path();
  if (QFileInfo(folder).isDir()) m_socketFolder.addPath(folder);
  connect(&m_socketFolder, &QFileSystemWatcher::directoryChanged, this, [this] {
    if (!m_connection) lookAgain(kUntilItListens);
  });
  lookForDaemon();
}

PipeWireCaptureWatch::~PipeWireCaptureWatch() = default;

void PipeWireCaptureWatch::lookAgain(std::chrono::milliseconds delay) {
  m_triesLeft = kTries;
  m_look = m_scheduler.after(delay, [this] { lookForDaemon(); });
}

void PipeWireCaptureWatch::lookForDaemon() {
  if (m_connection || !QFileInfo::exists(socketPath())) return;
  m_connection = std::make_unique<Connection>();
  m_connection->owner = this;
  if (m_connection->open()) {
    m_changed.notify();
    return;
  }
  m_connection.reset();
  if (--m_triesLeft > 0) m_look = m_scheduler.after(kUntilItListens, [this] { lookForDaemon(); });
}

void PipeWireCaptureWatch::daemonLeft() {
  m_connection.reset();
  m_graph = {};
  m_isCasting = false;
  m_changed.notify();
  lookAgain(kUntilItListens);
}

PortTraits PipeWireCaptureWatch::traits() const {
  return m_connection ? PortTraits::served(QStringLiteral("pipewire"))
                      : PortTraits::unavailable(QGuiApplication::tr("no PipeWire in this session"));
}

CaptureExclusion PipeWireCaptureWatch::exclusion() const {
  return m_connection ? CaptureExclusion::HiddenWhileSharing : CaptureExclusion::NotAvailable;
}

void PipeWireCaptureWatch::graphChanged() {
  const bool isCasting = m_graph.isCasting();
  if (std::exchange(m_isCasting, isCasting) != isCasting) m_changed.notify();
}

}  // namespace tarnwick
#pragma GCC diagnostic pop
