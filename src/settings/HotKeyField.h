// SPDX-License-Identifier: MIT
// Shows a chord as key caps and records another one: the next chord typed while it listens.
#pragma once

#include <QKeySequence>
#include <QWidget>

namespace tarnwick {

class KeyCaps;
class LinkButton;
class SettingsText;

class HotKeyField final : public QWidget {
  Q_OBJECT

 public:
  explicit HotKeyField(QWidget* parent = nullptr);

  /// Portable text, "Meta+Shift+T".
  [[nodiscard]] QString chord() const { return m_chord; }
  void setChord(const QString& chord);
  [[nodiscard]] bool isRecording() const { return m_isRecording; }

  static const QString kDefaultChord;
  /// What the button's focus ring needs beside the key caps.
  static constexpr int kOverhang = 4;
  /// The glyphs of a chord's keys, in the order in which the texts name them.
  [[nodiscard]] static QStringList capsOf(const QString& chord);
  /// The chord of a key press in portable text; empty when it is none that can be taken from every program: its key
  /// must be a plain one, and Shift alone would take that key from typing.
  [[nodiscard]] static QString chordOf(int key, Qt::KeyboardModifiers modifiers);

 Q_SIGNALS:
  void recorded(const QString& chord);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  enum class Hint { None, Press, Rejected };

  void setRecording(bool isRecording);
  void showHint(Hint hint);
  [[nodiscard]] bool takeKey(int key, Qt::KeyboardModifiers modifiers);

  QString m_chord = kDefaultChord;
  bool m_isRecording = false;
  KeyCaps* m_caps = nullptr;
  SettingsText* m_hint = nullptr;
  LinkButton* m_change = nullptr;
};

}  // namespace tarnwick
