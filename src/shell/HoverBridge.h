// SPDX-License-Identifier: MIT
// What a note's window tells the note view inside it.
#pragma once

#include <QObject>

namespace tarnwick {

class HoverBridge final : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  [[nodiscard]] bool isHovered() const { return m_isHovered; }
  [[nodiscard]] bool isTucked() const { return m_isTucked; }
  void setHovered(bool isHovered) { set(m_isHovered, isHovered); }  // NOLINT: a property
  void setTucked(bool isTucked) { set(m_isTucked, isTucked); }      // NOLINT: a property

 Q_SIGNALS:
  void changed();

 private:
  void set(bool& member, bool value) {
    if (member == value) return;
    member = value;
    Q_EMIT changed();
  }

  bool m_isHovered = false;
  bool m_isTucked = false;
};

}  // namespace tarnwick
