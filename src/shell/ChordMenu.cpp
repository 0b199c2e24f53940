// SPDX-License-Identifier: MIT
#include "shell/ChordMenu.h"

#include <QStyleOptionMenuItem>

namespace tarnwick {

QString chordText(const QKeySequence& keys) {
  static const std::pair<QString, QString> kSigns[] = {{QStringLiteral("Meta+"), QStringLiteral("⌘")},
                                                       {QStringLiteral("Ctrl+"), QStringLiteral("⌃")},
                                                       {QStringLiteral("Alt+"), QStringLiteral("⌥")},
                                                       {QStringLiteral("Shift+"), QStringLiteral("⇧")}};
  auto text = keys.toString(QKeySequence::PortableText);
  for (const auto& [name, sign] : kSigns) text.replace(name, sign);
  return text;
}

void ChordMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const {
  QMenu::initStyleOption(option, action);
  const auto tab = option->text.indexOf(u'\t');  // behind it stand the keys, in the words of the platform
  if (tab >= 0) option->text = option->text.left(tab + 1) + chordText(action->shortcut());
}

}  // namespace tarnwick
