// SPDX-License-Identifier: MIT
#include "board/UndoKeyMonitor.h"

#include "board/BoardKeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextDocument>
#include <QTextEdit>

namespace tarnwick {
namespace {

bool hasTypingToUndo(QWidget* widget) {
  if (const auto* line = qobject_cast<QLineEdit*>(widget)) return line->isUndoAvailable();
  if (const auto* text = qobject_cast<QTextEdit*>(widget)) return text->document()->isUndoAvailable();
  if (const auto* text = qobject_cast<QPlainTextEdit*>(widget)) return text->document()->isUndoAvailable();
  return false;
}

}  // namespace

UndoKeyView::UndoKeyView(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::NoFocus);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  resize(0, 0);
}

bool UndoKeyView::event(QEvent* event) {
  if (!m_monitor &&
      (event->type() == QEvent::Polish || event->type() == QEvent::ParentChange || event->type() == QEvent::Show)) {
    m_monitor = new UndoKeyMonitor(this);
  }
  return QWidget::event(event);
}

UndoKeyMonitor::UndoKeyMonitor(UndoKeyView* view) : QObject(view), m_view(view) {
  qApp->installEventFilter(this);
}

bool UndoKeyMonitor::eventFilter(QObject* watched, QEvent* event) {
  // A key reaches widgets only after an offer as a shortcut; taken there, no field and no menu sees it first.
  if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride) return false;
  if (!watched->isWidgetType()) return false;
  const auto* key = static_cast<QKeyEvent*>(event);
  if (!isUndoKey(static_cast<Qt::Key>(key->key()), key->modifiers())) return false;
  const bool isOnlyControl = !key->modifiers().testFlag(Qt::MetaModifier);
  if (isOnlyControl && hasTypingToUndo(QApplication::focusWidget())) return false;
  if (event->type() == QEvent::ShortcutOverride) {
    event->accept();
    return true;
  }
  if (m_view->onUndo) m_view->onUndo();
  return true;
}

}  // namespace tarnwick
