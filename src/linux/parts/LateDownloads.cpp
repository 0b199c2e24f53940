// SPDX-License-Identifier: MIT
#include "linux/parts/LateDownloads.h"

#include "linux/parts/LatePart.h"
#include "platform/Scheduler.h"
#include "platform/Unavailable.h"

#include <utility>

namespace tarnwick {

Registration LateDownloads::fetch(const DownloadRequest& request, Done done) {
  if (m_part) return m_part->fetch(request, std::move(done));
  const auto step = std::make_shared<Registration>();
  *step = m_scheduler.after(kLoadingDelay, [this, request, done = std::move(done), weak = std::weak_ptr(step)] {
    auto download = part().fetch(request, done);
    if (const auto held = weak.lock()) *held = std::move(download);
  });
  return Registration([step] { step->cancel(); });
}

Downloads& LateDownloads::part() {
  if (!m_part) m_part = loadPart<Downloads>(QStringLiteral("tarnwick-downloads.so"));
  if (!m_part) m_part = std::make_unique<UnavailableDownloads>();
  return *m_part;
}

}  // namespace tarnwick
