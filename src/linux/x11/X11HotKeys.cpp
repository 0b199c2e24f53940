// SPDX-License-Identifier: MIT
#include "linux/x11/X11HotKeys.h"

#include <algorithm>

namespace tarnwick {

namespace {

constexpr int kBadValue = 2;
constexpr xcb_keysym_t kNumLockKeysym = 0xff7f;
constexpr uint16_t kRealModifiers = 0xff;

}  // namespace

struct X11HotKeys::Grab {
  X11Chord chord;
  std::function<void()> work;
  uint8_t keyCode = 0;  // 0 while it is not grabbed
  bool isDown = false;
};

X11HotKeys::X11HotKeys(XcbConnection& connection)
    : m_x(connection), m_grabs(std::make_shared<std::vector<std::shared_ptr<Grab>>>()) {
  m_symbols = xcb_key_symbols_alloc(m_x.get());
  readModifiers();
  m_events = m_x.onEvent([this](const auto& event) { handle(event); });
}

X11HotKeys::~X11HotKeys() {
  for (const auto& each : *m_grabs) ungrab(*each);
  m_grabs.reset();
  if (m_symbols) xcb_key_symbols_free(m_symbols);
}

PortTraits X11HotKeys::traits() const { return PortTraits::served(QStringLiteral("x11")); }

HotKeyRegistration X11HotKeys::registerChord(const QString& text, std::function<void()> work) {
  const auto chord = x11ChordFromText(text);
  if (!chord) return {kBadValue, {}};
  auto entry = std::make_shared<Grab>(Grab{*chord, std::move(work)});
  if (const int status = grab(*entry); status != 0) return {status, {}};
  m_grabs->push_back(entry);
  return {0, Registration([this, entry, weak = std::weak_ptr(m_grabs)] {
            const auto grabs = weak.lock();
            if (!grabs) return;
            ungrab(*entry);
            std::erase(*grabs, entry);
          })};
}

void X11HotKeys::handle(const xcb_generic_event_t& event) {
  switch (eventKind(event)) {
    case XCB_KEY_PRESS: pressed(eventAs<xcb_key_press_event_t>(event)); break;
    case XCB_KEY_RELEASE: released(eventAs<xcb_key_press_event_t>(event)); break;
    case XCB_MAPPING_NOTIFY: {
      auto mapping = eventAs<xcb_mapping_notify_event_t>(event);
      if (mapping.request == XCB_MAPPING_POINTER) break;
      xcb_refresh_keyboard_mapping(m_symbols, &mapping);
      followMapping();
      break;
    }
    default: break;
  }
}

void X11HotKeys::followMapping() {
  const auto locks = lockVariants();
  readModifiers();
  const bool isSame = locks == lockVariants() && std::all_of(m_grabs->begin(), m_grabs->end(), [this](const auto& each) {
                        return each->keyCode == keyCodeOf(each->chord);
                      });
  // Mappings are announced for other keys too: a chord that is given back for a moment is lost if it is pressed just then.
  if (isSame) return;
  const auto now = std::exchange(m_numLock, locks.at(2));
  for (const auto& each : *m_grabs) ungrab(*each);
  m_numLock = now;
  for (const auto& each : *m_grabs) grab(*each);
}

void X11HotKeys::pressed(const xcb_key_press_event_t& press) {
  const auto locks = static_cast<uint16_t>(XCB_MOD_MASK_LOCK | m_numLock);
  const auto modifiers = static_cast<uint16_t>(press.state & kRealModifiers & ~locks);
  const auto grabs = *m_grabs;
  for (const auto& each : grabs) {
    if (each->keyCode != press.detail || each->chord.modifiers != modifiers) continue;
    if (std::exchange(each->isDown, true)) continue;  // the key repeats while it is held
    each->work();
  }
}

void X11HotKeys::released(const xcb_key_press_event_t& release) {
  // A repeating key reports releases as well, with the key still down.
  if (isKeyDown(release.detail)) return;
  for (const auto& each : *m_grabs) {
    if (each->keyCode == release.detail) each->isDown = false;
  }
}

int X11HotKeys::grab(Grab& entry) {
  const uint8_t code = keyCodeOf(entry.chord);
  if (code == 0) return kBadValue;
  std::vector<xcb_void_cookie_t> cookies;
  for (const uint16_t locks : lockVariants()) {
    cookies.push_back(xcb_grab_key_checked(m_x.get(), 1, m_x.root(), static_cast<uint16_t>(entry.chord.modifiers | locks),
                                           code, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
  }
  int status = 0;
  for (const auto cookie : cookies) {
    const XcbReply<xcb_generic_error_t> error(xcb_request_check(m_x.get(), cookie));
    if (error) status = error->error_code;
  }
  m_x.keepEvents();
  entry.keyCode = code;
  entry.isDown = false;
  if (status != 0) ungrab(entry);  // all variants or none
  return status;
}

void X11HotKeys::ungrab(Grab& entry) {
  if (entry.keyCode == 0) return;
  for (const uint16_t locks : lockVariants()) {
    xcb_ungrab_key(m_x.get(), entry.keyCode, m_x.root(), static_cast<uint16_t>(entry.chord.modifiers | locks));
  }
  m_x.flush();
  entry.keyCode = 0;
}

void X11HotKeys::readModifiers() {
  m_numLock = XCB_MOD_MASK_2;
  const XcbReply<xcb_keycode_t> codes(xcb_key_symbols_get_keycode(m_symbols, kNumLockKeysym));
  const XcbReply<xcb_get_modifier_mapping_reply_t> reply(
      xcb_get_modifier_mapping_reply(m_x.get(), xcb_get_modifier_mapping(m_x.get()), nullptr));
  m_x.keepEvents();
  if (!codes || !reply) return;
  const auto* map = xcb_get_modifier_mapping_keycodes(reply.get());
  for (int modifier = 0; modifier < 8; ++modifier) {
    for (int i = 0; i < reply->keycodes_per_modifier; ++i) {
      const auto code = map[modifier * reply->keycodes_per_modifier + i];
      for (const auto* each = codes.get(); *each != XCB_NO_SYMBOL; ++each) {
        if (*each == code) m_numLock = static_cast<uint16_t>(1 << modifier);
      }
    }
  }
}

std::vector<uint16_t> X11HotKeys::lockVariants() const {
  return {0, XCB_MOD_MASK_LOCK, m_numLock, static_cast<uint16_t>(XCB_MOD_MASK_LOCK | m_numLock)};
}

uint8_t X11HotKeys::keyCodeOf(const X11Chord& chord) const {
  const XcbReply<xcb_keycode_t> codes(xcb_key_symbols_get_keycode(m_symbols, chord.keysym));
  m_x.keepEvents();
  if (codes && codes.get()[0] != XCB_NO_SYMBOL) return codes.get()[0];
  return chord.physicalKey;
}

bool X11HotKeys::isKeyDown(uint8_t keyCode) const {
  const XcbReply<xcb_query_keymap_reply_t> reply(
      xcb_query_keymap_reply(m_x.get(), xcb_query_keymap(m_x.get()), nullptr));
  m_x.keepEvents();
  return reply && (reply->keys[keyCode / 8] & (1 << (keyCode % 8))) != 0;
}

}  // namespace tarnwick
