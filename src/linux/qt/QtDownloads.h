// SPDX-License-Identifier: MIT
// Documents through Qt's network classes.
#pragma once

#include "platform/Downloads.h"

#include <QNetworkAccessManager>

namespace tarnwick {

class QtDownloads final : public Downloads {
 public:
  [[nodiscard]] Registration fetch(const DownloadRequest& request, Done done) override;

 private:
  QNetworkAccessManager m_network;
};

}  // namespace tarnwick
