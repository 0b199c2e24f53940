// SPDX-License-Identifier: MIT
#include "shell/ChordMenu.h"

#include "effects/Symbols.h"
#include "effects/Tokens.h"

#include <QPainter>
#include <QStyleOptionMenuItem>

namespace tarnwick {

namespace {
constexpr double kMark = 14;
constexpr double kMarkInset = 14;
}  // namespace

QString chordText(const QKeySequence& keys) {
  static const std::pair<QString, QString> kSigns[] = {{QStringLiteral("Meta+"), QStringLiteral("⌘")},
                                                       {QStringLiteral("Ctrl+"), QStringLiteral("⌃")},
                                                       {QStringLiteral("Alt+"), QStringLiteral("⌥")},
                                                       {QStringLiteral("Shift+"), QStringLiteral("⇧")}};
  auto text = keys.toString(QKeySequence::PortableText);
  for (const auto& [name, sign] : kSigns) text.replace(name, sign);
  return text;
}

void ChordMenu::paintEvent(QPaintEvent* event) {
  QMenu::paintEvent(event);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  for (auto* action : actions()) {
    // Where there is a symbol the style leaves the mark out; at the other end it would tell the keys.
    if (!action->isChecked() || action->icon().isNull()) continue;
    const QRectF row(actionGeometry(action));
    const double x = layoutDirection() == Qt::RightToLeft ? row.left() + kMarkInset : row.right() - kMarkInset - kMark;
    Symbols::paint(painter, QStringLiteral("check"), {x, row.center().y() - kMark / 2, kMark, kMark},
                   QColor::fromRgb(action == activeAction() ? tokens::kOnAccent : tokens::kText));
  }
}

void ChordMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const {
  QMenu::initStyleOption(option, action);
  const auto tab = option->text.indexOf(u'\t');  // behind it stand the keys, in the words of the platform
  if (tab >= 0) option->text = option->text.left(tab + 1) + chordText(action->shortcut());
}

}  // namespace tarnwick
