// SPDX-License-Identifier: MIT
#include "linux/qt/QtDownloads.h"

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPointer>

#include <utility>

namespace tarnwick {

namespace {

constexpr int kMostRedirects = 3;

QNetworkRequest networkRequest(const DownloadRequest& wanted) {
  QNetworkRequest request(wanted.url);
  request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
  request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::UserVerifiedRedirectPolicy);
  request.setMaximumRedirectsAllowed(kMostRedirects);
  request.setTransferTimeout(static_cast<int>(wanted.timeout.count()));
  request.setRawHeader("User-Agent", wanted.userAgent);
  // Left alone these two would tell the user's language, and let a small body unpack into a large one.
  request.setRawHeader("Accept-Language", "*");
  request.setRawHeader("Accept-Encoding", "identity");
  return request;
}

std::optional<QByteArray> bodyOf(QNetworkReply& reply, qint64 largest) {
  const auto code = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
  if (reply.error() != QNetworkReply::NoError || code != 200 || reply.bytesAvailable() > largest) return std::nullopt;
  return reply.readAll();
}

}  // namespace

Registration QtDownloads::fetch(const DownloadRequest& request, Done done) {
  auto* reply = m_network.get(networkRequest(request));
  auto* listener = new QObject(reply);  // stands for ours among the reply's connections, which are its own as well
  QObject::connect(reply, &QNetworkReply::readyRead, listener, [reply, largest = request.largestBody] {
    if (reply->bytesAvailable() > largest) reply->abort();
  });
  QObject::connect(reply, &QNetworkReply::redirected, listener, [reply](const QUrl& target) {
    if (target.scheme() == u"https") {
      Q_EMIT reply->redirectAllowed();
    } else {
      reply->abort();
    }
  });
  const auto finish = [reply, done = std::move(done), largest = request.largestBody] {
    reply->deleteLater();
    done(bodyOf(*reply, largest));
  };
  QObject::connect(reply, &QNetworkReply::finished, listener, finish);
  return Registration([pending = QPointer(reply), listener] {
    if (!pending) return;
    pending->disconnect(listener);
    pending->abort();
    pending->deleteLater();
  });
}

}  // namespace tarnwick
