// SPDX-License-Identifier: MIT
// Port: small documents of the web.
#pragma once

#include "platform/Registration.h"

#include <QByteArray>
#include <QUrl>

#include <chrono>
#include <functional>
#include <optional>

namespace tarnwick {

struct DownloadRequest {
  QUrl url;
  QByteArray userAgent;
  std::chrono::milliseconds timeout;  // of a connection on which nothing moves
  qint64 largestBody = 0;             // bytes; a longer answer is none
};

class Downloads {
 public:
  using Done = std::function<void(const std::optional<QByteArray>& body)>;

  virtual ~Downloads() = default;
  /// Calls once, perhaps before it returns, with nothing unless the whole document came. Only secure redirections are
  /// followed.
  [[nodiscard]] virtual Registration fetch(const DownloadRequest& request, Done done) = 0;
};

}  // namespace tarnwick
