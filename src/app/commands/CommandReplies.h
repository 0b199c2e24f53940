// SPDX-License-Identifier: MIT
// The three ways in which a command ends.
#pragma once

#include "platform/Instance.h"

namespace tarnwick::replies {

[[nodiscard]] inline CommandReply done(const QByteArray& output = {}) { return {0, output, {}}; }

/// One line, whatever the text.
[[nodiscard]] inline CommandReply ended(int exitStatus, const QString& text) {
  return {exitStatus, {}, "tarnwick: " + text.simplified().toUtf8() + '\n'};
}
/// It could not be done.
[[nodiscard]] inline CommandReply failed(const QString& text) { return ended(1, text); }
/// The words are wrong.
[[nodiscard]] inline CommandReply wrong(const QString& text) { return ended(2, text); }

}  // namespace tarnwick::replies
