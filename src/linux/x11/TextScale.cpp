// SPDX-License-Identifier: MIT
#include "linux/x11/TextScale.h"

#include "linux/x11/XcbLink.h"

#include <QSettings>
#include <QStandardPaths>
#include <QtEndian>

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

/// Desktops come with fonts of 10 or 11 points; both read alike.
constexpr double kUsual = 10;
constexpr double kLargestUsual = 11;
constexpr double kMost = 1.75;  // beyond, a board is higher than the lowest screens

/// Reads numbers and padded texts one after the other; past the end nothing but zeros.
class Reader {
 public:
  explicit Reader(const QByteArray& bytes) : m_bytes(bytes), m_isBig(bytes.startsWith('\1')) {}

  [[nodiscard]] bool isAtEnd() const { return m_at >= m_bytes.size(); }
  void skip(qsizetype count) { m_at = count > m_bytes.size() - m_at ? m_bytes.size() : m_at + count; }
  template <typename T>
  T number() {
    const auto at = m_at;
    skip(sizeof(T));
    if (m_at - at < static_cast<qsizetype>(sizeof(T))) return 0;
    return m_isBig ? qFromBigEndian<T>(m_bytes.constData() + at) : qFromLittleEndian<T>(m_bytes.constData() + at);
  }
  QByteArray text(qsizetype size) {
    const auto at = m_at;
    skip(size);
    const auto result = m_bytes.mid(at, m_at - at);
    skip((4 - size % 4) % 4);
    return result;
  }

 private:
  QByteArray m_bytes;
  qsizetype m_at = 0;
  bool m_isBig;
};

template <typename T>
std::unique_ptr<T, decltype(&std::free)> kept(T* reply) {
  return {reply, &std::free};
}

QByteArray publishedSettings(const XcbLink& server) {
  const auto selection = "_XSETTINGS_S" + QByteArray::number(server.screenNumber());
  const QByteArray settings("_XSETTINGS_SETTINGS");
  const auto ask = [&](const QByteArray& name) {
    return xcb_intern_atom(server.get(), 1, static_cast<uint16_t>(name.size()), name.constData());
  };
  const auto selectionCookie = ask(selection);
  const auto settingsCookie = ask(settings);
  const auto selectionAtom = kept(xcb_intern_atom_reply(server.get(), selectionCookie, nullptr));
  const auto settingsAtom = kept(xcb_intern_atom_reply(server.get(), settingsCookie, nullptr));
  if (!selectionAtom || !settingsAtom || selectionAtom->atom == XCB_NONE || settingsAtom->atom == XCB_NONE) return {};
  const auto owner = kept(
      xcb_get_selection_owner_reply(server.get(), xcb_get_selection_owner(server.get(), selectionAtom->atom), nullptr));
  if (!owner || owner->owner == XCB_NONE) return {};
  constexpr uint32_t kMostWords = 65536;
  const auto reply = kept(xcb_get_property_reply(
      server.get(),
      xcb_get_property(server.get(), 0, owner->owner, settingsAtom->atom, XCB_GET_PROPERTY_TYPE_ANY, 0, kMostWords),
      nullptr));
  if (!reply) return {};
  return {static_cast<const char*>(xcb_get_property_value(reply.get())), xcb_get_property_value_length(reply.get())};
}

QString fontInFiles() {
  const auto folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  if (qEnvironmentVariable("XDG_CURRENT_DESKTOP").contains("KDE"_L1)) {
    return QSettings(folder + u"/kdeglobals"_s, QSettings::IniFormat).value(u"font"_s).toStringList().join(u',');
  }
  return QSettings(folder + u"/gtk-3.0/settings.ini"_s, QSettings::IniFormat).value(u"Settings/gtk-font-name"_s).toString();
}

}  // namespace

std::optional<QString> xSetting(const QByteArray& published, const QByteArray& name) {
  enum Kind { Integer = 0, Text = 1, Color = 2 };
  Reader reader(published);
  reader.skip(8);
  for (auto left = reader.number<quint32>(); left > 0 && !reader.isAtEnd(); --left) {
    const auto kind = reader.number<quint8>();
    reader.skip(1);
    const auto found = reader.text(reader.number<quint16>());
    reader.skip(4);
    if (kind == Text) {
      const auto value = reader.text(reader.number<quint32>());
      if (found == name) return QString::fromUtf8(value);
    } else if (kind == Integer || kind == Color) {
      reader.skip(kind == Integer ? 4 : 8);
    } else {
      return std::nullopt;
    }
  }
  return std::nullopt;
}

std::optional<double> textScaleOf(const QString& font) {
  bool isNumber = false;
  const auto style = (font.contains(u',') ? font.section(u',', 1, 1) : font).trimmed();
  const double points = style.section(u' ', -1).toDouble(&isNumber);
  if (!isNumber || !(points > 0)) return std::nullopt;
  return points <= kLargestUsual ? 1 : std::min(points / kUsual, kMost);
}

double desktopTextScale(const XcbLink& server) {
  // For those who enlarge the letters of this toolkit alone.
  if (const int dots = qEnvironmentVariableIntValue("QT_FONT_DPI"); dots > 0) return std::clamp(dots / 96.0, 1.0, kMost);
  auto font = server.isUsable() ? xSetting(publishedSettings(server), "Gtk/FontName") : std::nullopt;
  if (!font) font = fontInFiles();
  return textScaleOf(*font).value_or(1);
}

}  // namespace tarnwick
