// SPDX-License-Identifier: MIT
#include "linux/atspi/AtSpiWords.h"

#include <QRegularExpression>

namespace tarnwick {

QString roleFromAtSpi(const QString& name) {
  // An icon view says of itself that it is a layered pane.
  if (name == u"list" || name == u"list box" || name == u"tool bar" || name == u"layered pane") {
    return QStringLiteral("AXList");
  }
  if (name == u"panel" || name == u"filler" || name == u"grouping") return QStringLiteral("AXGroup");
  if (name == u"push button" || name == u"button") return QStringLiteral("AXButton");
  if (name == u"icon" || name == u"image") return QStringLiteral("AXImage");
  if (name == u"frame" || name == u"window") return QStringLiteral("AXWindow");
  return name;
}

QString descriptionFromAtSpi(const QString& text) {
  static const QRegularExpression word(QStringLiteral("\\bbin\\b"), QRegularExpression::CaseInsensitiveOption |
                                                                        QRegularExpression::UseUnicodePropertiesOption);
  const bool isByChance = text.contains(u"bin", Qt::CaseInsensitive) && !text.contains(u"trash", Qt::CaseInsensitive) &&
                          !text.contains(word);
  return isByChance ? QString() : text;
}

bool isTrashPlugin(const QByteArray& commandLine) {
  return commandLine.contains("libthunar-tpa.so") || commandLine.contains("mate-panel/trashapplet");
}

quint32 socketOfPlugin(const QByteArray& commandLine) {
  // wrapper, library, number of the plug-in, window
  const auto words = commandLine.split('\0');
  return words.size() > 3 && words[0].endsWith("/wrapper-2.0") ? words[3].toUInt() : 0;
}

}  // namespace tarnwick
