// SPDX-License-Identifier: MIT
#include "linux/atspi/AtSpiDocuments.h"

#include "linux/atspi/AtSpiReply.h"
#include "linux/atspi/AtSpiTree.h"

#include <QDBusArgument>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

namespace tarnwick {

namespace {

constexpr qsizetype kMostKnown = 32;
constexpr uint kShowing = 25;  // the state's bit
constexpr int kAll = 1;        // how the parts of a rule must hold
constexpr uint kInOrder = 1;
constexpr int kMostMatches = 1;

/// "The showing elements below this one that are documents": one call instead of a walk through the window.
QDBusMessage documentsBelow(const ElementRef& window) {
  QDBusArgument rule;
  rule.beginStructure();
  rule << QList<int>{int(1U << kShowing), 0} << kAll;
  rule.beginMap(QMetaType(QMetaType::QString), QMetaType(QMetaType::QString));
  rule.endMap();
  rule << kAll << QList<int>() << kAll << QStringList{QStringLiteral("Document")} << kAll << false;
  rule.endStructure();
  auto message = QDBusMessage::createMethodCall(window.service, window.path, QStringLiteral("org.a11y.atspi.Collection"),
                                                QStringLiteral("GetMatches"));
  message << QVariant::fromValue(rule) << kInOrder << kMostMatches << true;
  return message;
}

}  // namespace

std::optional<QString> userDocument(const QString& address, const QString& programFolder) {
  const QString path = address.startsWith(u"file:") ? QUrl(address).toLocalFile() : address;
  if (!path.startsWith(u'/')) return std::nullopt;
  if (!programFolder.isEmpty() && path.startsWith(programFolder + u'/')) return std::nullopt;
  return path;
}

std::optional<QString> AtSpiDocuments::look(qint64 pid, const QString& title) {
  if (pid < 1 || !m_tree.isOn()) return std::nullopt;
  atspi::call(m_tree.bus(), atspi::applications(), this, [this, pid, title](const QDBusMessage& reply) {
    for (const auto& application : atspi::refsFrom(reply)) {
      atspi::call(m_tree.bus(), atspi::processOf(application), this, [this, application, pid, title](const auto& owner) {
        if (atspi::processFrom(owner) == pid) askApplication(application, pid, title);
      });
    }
  });
  return known(pid, title);
}

std::optional<QString> AtSpiDocuments::known(qint64 pid, const QString& title) const {
  const auto found = m_known.constFind(pid);
  return found != m_known.constEnd() && found->title == title ? found->document : std::nullopt;
}

void AtSpiDocuments::learn(qint64 pid, const QString& title, const std::optional<QString>& document) {
  const bool isNew = known(pid, title) != document;
  if (m_known.size() >= kMostKnown) m_known.clear();
  m_known.insert(pid, {title, document});
  if (isNew) m_changed(pid);
}

void AtSpiDocuments::askApplication(const ElementRef& application, qint64 pid, const QString& title) {
  const auto children =
      QDBusMessage::createMethodCall(application.service, application.path, QStringLiteral("org.a11y.atspi.Accessible"),
                                     QStringLiteral("GetChildren"));
  atspi::call(m_tree.bus(), children, this, [this, pid, title](const QDBusMessage& reply) {
    for (const auto& window : atspi::refsFrom(reply)) {
      atspi::call(m_tree.bus(), atspi::getter(window, QStringLiteral("Name")), this,
                  [this, window, pid, title](const QDBusMessage& name) {
                    if (atspi::propertyFrom(name).toString() == title) askWindow(window, pid, title);
                  });
    }
  });
}

void AtSpiDocuments::askWindow(const ElementRef& window, qint64 pid, const QString& title) {
  atspi::call(m_tree.bus(), documentsBelow(window), this, [this, pid, title](const QDBusMessage& reply) {
    if (reply.type() != QDBusMessage::ReplyMessage) return;  // too busy to answer: it has what it had
    const auto documents = atspi::refsFrom(reply);
    if (documents.empty()) {
      learn(pid, title, std::nullopt);
    } else {
      askDocument(documents.front(), pid, title);
    }
  });
}

void AtSpiDocuments::askDocument(const ElementRef& document, qint64 pid, const QString& title) {
  auto address = QDBusMessage::createMethodCall(document.service, document.path, QStringLiteral("org.a11y.atspi.Document"),
                                                QStringLiteral("GetAttributeValue"));
  address << QStringLiteral("DocURL");
  atspi::call(m_tree.bus(), address, this, [this, pid, title](const QDBusMessage& reply) {
    if (reply.type() != QDBusMessage::ReplyMessage) return;
    const auto program = QFile::symLinkTarget(QStringLiteral("/proc/%1/exe").arg(pid));
    learn(pid, title, userDocument(reply.arguments().value(0).toString(), QFileInfo(program).path()));
  });
}

}  // namespace tarnwick
