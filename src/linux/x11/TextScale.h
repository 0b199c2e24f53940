// SPDX-License-Identifier: MIT
// How much larger than usual the desktop's letters are. A point of ours grows by it, so that every letter does and
// nothing around it gets too small. Denser screens are no matter of this: Qt follows those itself.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace tarnwick {

class XcbLink;

/// From 1, which is a font of the usual size, to 1.75. Asks what the X server publishes, else the desktop's files.
[[nodiscard]] double desktopTextScale(const XcbLink& server);

/// The same for a font as desktops write it: "Cantarell Bold 13", "Noto Sans,13,-1,5,50". Nothing where no size is named.
[[nodiscard]] std::optional<double> textScaleOf(const QString& font);
/// A text among the settings that an X server publishes.
[[nodiscard]] std::optional<QString> xSetting(const QByteArray& published, const QByteArray& name);

}  // namespace tarnwick
