// SPDX-License-Identifier: MIT
#include "linux/x11/Chord.h"

#include <QKeySequence>

#include <xcb/xproto.h>

#include <array>
#include <utility>

namespace tarnwick {

namespace {

// Key codes of A to Z: kernel key numbers of a US keyboard plus the X server's offset of eight.
constexpr std::array<uint8_t, 26> kLetterKeys = {38, 56, 54, 40, 26, 41, 42, 43, 31, 44, 45, 46, 58,
                                                 57, 32, 33, 24, 27, 39, 28, 30, 55, 25, 53, 29, 52};

constexpr std::array kNamedKeys = {
    std::pair(Qt::Key_Space, 0x0020U),    std::pair(Qt::Key_Escape, 0xff1bU), std::pair(Qt::Key_Tab, 0xff09U),
    std::pair(Qt::Key_Return, 0xff0dU),   std::pair(Qt::Key_Enter, 0xff8dU),  std::pair(Qt::Key_Backspace, 0xff08U),
    std::pair(Qt::Key_Insert, 0xff63U),   std::pair(Qt::Key_Delete, 0xffffU), std::pair(Qt::Key_Home, 0xff50U),
    std::pair(Qt::Key_End, 0xff57U),      std::pair(Qt::Key_PageUp, 0xff55U), std::pair(Qt::Key_PageDown, 0xff56U),
    std::pair(Qt::Key_Left, 0xff51U),     std::pair(Qt::Key_Up, 0xff52U),     std::pair(Qt::Key_Right, 0xff53U),
    std::pair(Qt::Key_Down, 0xff54U),     std::pair(Qt::Key_Print, 0xff61U),  std::pair(Qt::Key_Pause, 0xff13U),
};

uint32_t keysymOf(Qt::Key key) {
  if (key >= Qt::Key_A && key <= Qt::Key_Z) return static_cast<uint32_t>(key) + 0x20;  // the unshifted letter
  if (key > Qt::Key_Space && key <= Qt::Key_AsciiTilde) return static_cast<uint32_t>(key);
  if (key >= Qt::Key_F1 && key <= Qt::Key_F35) return 0xffbeU + static_cast<uint32_t>(key - Qt::Key_F1);
  for (const auto& [named, keysym] : kNamedKeys) {
    if (named == key) return keysym;
  }
  return 0;
}

}  // namespace

std::optional<X11Chord> x11ChordFromText(const QString& text) {
  const auto sequence = QKeySequence::fromString(text, QKeySequence::PortableText);
  if (sequence.count() != 1) return std::nullopt;
  const auto key = sequence[0].key();
  X11Chord chord;
  chord.keysym = keysymOf(key);
  if (chord.keysym == 0) return std::nullopt;
  if (key >= Qt::Key_A && key <= Qt::Key_Z) chord.physicalKey = kLetterKeys[static_cast<size_t>(key - Qt::Key_A)];
  const auto modifiers = sequence[0].keyboardModifiers();
  if (modifiers.testFlag(Qt::ShiftModifier)) chord.modifiers |= XCB_MOD_MASK_SHIFT;
  if (modifiers.testFlag(Qt::ControlModifier)) chord.modifiers |= XCB_MOD_MASK_CONTROL;
  if (modifiers.testFlag(Qt::AltModifier)) chord.modifiers |= XCB_MOD_MASK_1;
  if (modifiers.testFlag(Qt::MetaModifier)) chord.modifiers |= XCB_MOD_MASK_4;
  return chord;
}

}  // namespace tarnwick
