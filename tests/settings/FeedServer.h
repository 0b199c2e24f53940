// SPDX-License-Identifier: MIT
// A web server on this machine that answers each path with the bytes that a test gave it, and keeps what it was asked.
#pragma once

#include <QHostAddress>
#include <QMap>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

namespace tarnwick::test {

class FeedServer final : public QObject {
 public:
  FeedServer() {
    m_server.listen(QHostAddress::LocalHost);
    connect(&m_server, &QTcpServer::newConnection, this, [this] {
      while (auto* socket = m_server.nextPendingConnection()) serve(*socket);
    });
  }

  [[nodiscard]] QUrl url(const QString& path = QStringLiteral("/version.json")) const {
    return QUrl(QStringLiteral("http://127.0.0.1:%1%2").arg(m_server.serverPort()).arg(path));
  }
  /// What the path gives; a path that was given nothing never answers.
  void answer(const QString& status, const QByteArray& body, const QByteArray& headers = {},
              const QString& path = QStringLiteral("/version.json")) {
    m_answers[path] = "HTTP/1.1 " + status.toUtf8() + "\r\nConnection: close\r\nContent-Type: application/json\r\n" +
                      "Content-Length: " + QByteArray::number(body.size()) + "\r\n" + headers + "\r\n" + body;
  }
  void answerRaw(const QByteArray& bytes) { m_answers[QStringLiteral("/version.json")] = bytes; }

  /// Of whom an answer is being waited for.
  [[nodiscard]] qsizetype connections() const { return m_server.findChildren<QTcpSocket*>().size(); }

  QList<QByteArray> requests;

 private:
  void serve(QTcpSocket& socket) {
    connect(&socket, &QTcpSocket::disconnected, &socket, &QObject::deleteLater);
    connect(&socket, &QTcpSocket::readyRead, this, [this, &socket] {
      auto& text = m_pending[&socket];
      text += socket.readAll();
      if (!text.endsWith("\r\n\r\n")) return;
      requests.append(text);
      const auto path = QString::fromLatin1(text.split(' ').value(1));
      text.clear();
      if (!m_answers.contains(path)) return;
      socket.write(m_answers[path]);
      socket.disconnectFromHost();
    });
  }

  QTcpServer m_server;
  QMap<QString, QByteArray> m_answers;
  QMap<QTcpSocket*, QByteArray> m_pending;
};

}  // namespace tarnwick::test
