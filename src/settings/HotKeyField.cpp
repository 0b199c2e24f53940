// SPDX-License-Identifier: MIT
#include "settings/HotKeyField.h"

#include "effects/Controls.h"
#include "settings/LinkButton.h"
#include "settings/SettingsText.h"

#include <QFocusEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

bool isModifierKey(int key) {
  switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Meta:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Hyper_L:
    case Qt::Key_Hyper_R:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_unknown:
    case 0: return true;
    default: return false;
  }
}

/// Keys that every layout has in one place, or that carry no character at all.
bool isPlainKey(int key) {
  return (key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9) ||
         (key >= Qt::Key_F1 && key <= Qt::Key_F35) || (key >= Qt::Key_Home && key <= Qt::Key_PageDown) ||
         key == Qt::Key_Space || key == Qt::Key_Insert;
}

QString capOf(const QString& part) {
  if (part == u"Meta") return u"⌘"_s;
  if (part == u"Alt") return u"⌥"_s;
  if (part == u"Shift") return u"⇧"_s;
  if (part == u"Left") return u"←"_s;
  if (part == u"Up") return u"↑"_s;
  if (part == u"Right") return u"→"_s;
  if (part == u"Down") return u"↓"_s;
  return part;
}

}  // namespace

const QString HotKeyField::kDefaultChord = u"Meta+Shift+T"_s;

HotKeyField::HotKeyField(QWidget* parent)
    : QWidget(parent),
      m_caps(new KeyCaps(capsOf(kDefaultChord), this)),
      m_hint(new SettingsText({}, tokens::Type::Help, tokens::kAccent, this)),
      m_change(new LinkButton(tr("Change…"), {}, this)) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(2);
  for (auto* upper : {static_cast<QWidget*>(m_caps), static_cast<QWidget*>(m_hint)}) {
    auto* line = new QHBoxLayout;
    line->setContentsMargins(0, 0, kOverhang, 0);
    line->addStretch();
    line->addWidget(upper);
    column->addLayout(line);
  }
  column->addWidget(m_change, 0, Qt::AlignTrailing);
  m_hint->setFixedWidth(132);
  m_hint->setAlignment(Qt::AlignTrailing);
  m_change->installEventFilter(this);
  connect(m_change, &QPushButton::clicked, this, [this] { setRecording(!m_isRecording); });
  showHint(Hint::None);
  setChord(kDefaultChord);
}

void HotKeyField::setChord(const QString& chord) {
  m_chord = chord.isEmpty() ? kDefaultChord : chord;
  const auto caps = capsOf(m_chord);
  m_caps->setKeys(caps);
  m_caps->updateGeometry();
  m_caps->setAccessibleName(caps.join(u' '));
  if (!m_isRecording) m_change->setAccessibleName(tr("Change the shortcut, now %1").arg(caps.join(u' ')));
}

QStringList HotKeyField::capsOf(const QString& chord) {
  static const QStringList kOrder{u"Meta"_s, u"Ctrl"_s, u"Alt"_s, u"Shift"_s};
  const auto parts = chord.split(u'+', Qt::SkipEmptyParts);
  QStringList caps;
  for (const auto& modifier : kOrder) {
    if (parts.contains(modifier)) caps.append(capOf(modifier));
  }
  for (const auto& part : parts) {
    if (!kOrder.contains(part)) caps.append(capOf(part));
  }
  return caps;
}

QString HotKeyField::chordOf(int key, Qt::KeyboardModifiers modifiers) {
  modifiers &= Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  if (!isPlainKey(key) || (modifiers & ~Qt::KeyboardModifiers(Qt::ShiftModifier)) == Qt::NoModifier) return {};
  return QKeySequence(QKeyCombination(modifiers, static_cast<Qt::Key>(key))).toString(QKeySequence::PortableText);
}

bool HotKeyField::takeKey(int key, Qt::KeyboardModifiers modifiers) {
  if (isModifierKey(key)) return true;
  if (key == Qt::Key_Escape) {
    setRecording(false);
    return true;
  }
  // The way on for the keyboard stays open.
  if (key == Qt::Key_Tab || key == Qt::Key_Backtab) return false;
  const auto typed = key == Qt::Key_Backspace || key == Qt::Key_Delete ? kDefaultChord : chordOf(key, modifiers);
  if (typed.isEmpty()) {
    showHint(Hint::Rejected);
    return true;
  }
  setChord(typed);
  setRecording(false);
  Q_EMIT recorded(typed);
  return true;
}

bool HotKeyField::eventFilter(QObject* watched, QEvent* event) {
  if (watched != m_change || !m_isRecording) return QWidget::eventFilter(watched, event);
  switch (event->type()) {
    case QEvent::ShortcutOverride: event->accept(); return true;
    case QEvent::KeyPress: {
      const auto& press = static_cast<QKeyEvent&>(*event);
      return press.isAutoRepeat() || takeKey(press.key(), press.modifiers());
    }
    case QEvent::KeyRelease: return true;
    case QEvent::FocusOut: setRecording(false); break;
    default: break;
  }
  return QWidget::eventFilter(watched, event);
}

void HotKeyField::setRecording(bool isRecording) {
  m_isRecording = isRecording;
  showHint(isRecording ? Hint::Press : Hint::None);
  m_change->setText(isRecording ? tr("Cancel") : tr("Change…"));
  m_change->setAccessibleName(isRecording ? tr("Press the new shortcut")
                                          : tr("Change the shortcut, now %1").arg(capsOf(m_chord).join(u' ')));
  m_change->updateGeometry();
  if (isRecording) m_change->setFocus(Qt::OtherFocusReason);
}

void HotKeyField::showHint(Hint hint) {
  m_caps->setVisible(hint == Hint::None);
  m_hint->setVisible(hint != Hint::None);
  m_hint->setText(hint == Hint::Rejected ? tr("Hold ⌘, Ctrl or ⌥ with a letter, digit or F key.")
                                         : tr("Press the new keys.\n⌫ restores ⌘⇧T."));
}

}  // namespace tarnwick
