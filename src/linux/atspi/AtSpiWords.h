// SPDX-License-Identifier: MIT
// What the accessibility bus says of an element, in the words by which searchers of trees know it.
#pragma once

#include <QByteArray>
#include <QString>

namespace tarnwick {

/// The kind of an element from the bus's name of its role.
[[nodiscard]] QString roleFromAtSpi(const QString& name);
/// Empty where a description would only by chance be taken for the Trash's: "combination" and "binary" have a bin inside.
[[nodiscard]] QString descriptionFromAtSpi(const QString& text);
/// Whether a process with this command line is a panel's trash plug-in, whatever language it speaks.
[[nodiscard]] bool isTrashPlugin(const QByteArray& commandLine);
/// The panel's window that holds the plug-in, as its command line says; 0 when it says none.
[[nodiscard]] quint32 socketOfPlugin(const QByteArray& commandLine);

}  // namespace tarnwick
