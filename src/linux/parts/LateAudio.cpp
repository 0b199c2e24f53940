// SPDX-License-Identifier: MIT
#include "linux/parts/LateAudio.h"

#include "linux/parts/LatePart.h"
#include "platform/Unavailable.h"

namespace tarnwick {

Audio& LateAudio::part() const {
  if (!m_part) m_part = loadPart<Audio>(QStringLiteral("tarnwick-audio.so"));
  if (!m_part) m_part = std::make_unique<UnavailableAudio>(QCoreApplication::translate("Audio", "no sound library"));
  return *m_part;
}

}  // namespace tarnwick
