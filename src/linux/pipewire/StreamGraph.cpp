// SPDX-License-Identifier: MIT
#include "linux/pipewire/PipeWireCaptureWatch.h"

#include <algorithm>

namespace tarnwick {

void StreamGraph::addNode(quint32 id, const Properties& properties) {
  const auto mediaClass = properties.value(QStringLiteral("media.class"));
  const bool isVideo = mediaClass == u"Stream/Output/Video" || mediaClass == u"Video/Source";
  const bool isHardware = properties.contains(QStringLiteral("device.id")) ||
                          properties.contains(QStringLiteral("device.api")) ||
                          properties.value(QStringLiteral("node.name")).startsWith(u"v4l2_") ||
                          properties.value(QStringLiteral("node.name")).startsWith(u"libcamera_");
  if (isVideo && !isHardware) m_screenSources.insert(id);
}

void StreamGraph::addLink(quint32 id, quint32 outputNode) { m_links.insert(id, outputNode); }

void StreamGraph::remove(quint32 id) {
  m_screenSources.remove(id);
  m_links.remove(id);
}

bool StreamGraph::isCasting() const {
  return std::any_of(m_links.cbegin(), m_links.cend(), [this](quint32 node) { return m_screenSources.contains(node); });
}

}  // namespace tarnwick
