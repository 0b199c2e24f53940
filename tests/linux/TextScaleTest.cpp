// SPDX-License-Identifier: MIT
#include "linux/x11/TextScale.h"

#include <gtest/gtest.h>

#include <QtEndian>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

/// Settings as their manager publishes them, in either order of bytes.
class Published {
 public:
  explicit Published(bool isBig, quint32 count) : m_isBig(isBig) {
    m_bytes = QByteArray(isBig ? "\1\0\0\0" : "\0\0\0\0", 4);
    number<quint32>(7);
    number<quint32>(count);
  }
  Published& integer(const QByteArray& name, quint32 value) {
    head(0, name);
    number<quint32>(value);
    return *this;
  }
  Published& text(const QByteArray& name, const QByteArray& value) {
    head(1, name);
    number<quint32>(static_cast<quint32>(value.size()));
    m_bytes += value;
    pad();
    return *this;
  }
  Published& color(const QByteArray& name) {
    head(2, name);
    m_bytes += "12345678";
    return *this;
  }
  [[nodiscard]] const QByteArray& bytes() const { return m_bytes; }

 private:
  void head(char kind, const QByteArray& name) {
    m_bytes += kind;
    m_bytes += '\0';
    number<quint16>(static_cast<quint16>(name.size()));
    m_bytes += name;
    pad();
    number<quint32>(3);
  }
  template <typename T>
  void number(T value) {
    value = m_isBig ? qToBigEndian(value) : qToLittleEndian(value);
    m_bytes += QByteArray(reinterpret_cast<const char*>(&value), sizeof value);
  }
  void pad() {
    while (m_bytes.size() % 4 != 0) m_bytes += '\0';
  }

  QByteArray m_bytes;
  bool m_isBig;
};

TEST(TextScale, isReadAmongAllOtherSettingsInBothOrdersOfBytes) {
  for (const bool isBig : {false, true}) {
    const auto bytes = Published(isBig, 4)
                           .integer("Xft/DPI", 98304)
                           .color("Gtk/Color")
                           .text("Net/ThemeName", "Paper")
                           .text("Gtk/FontName", "Cantarell Bold 13")
                           .bytes();
    EXPECT_EQ(xSetting(bytes, "Gtk/FontName"), u"Cantarell Bold 13"_s);
    EXPECT_EQ(xSetting(bytes, "Net/ThemeName"), u"Paper"_s);
    EXPECT_EQ(xSetting(bytes, "Xft/DPI"), std::nullopt) << "a number is no text";
    for (qsizetype size = 0; size < bytes.size(); ++size) {
      const auto cut = xSetting(bytes.first(size), "Gtk/FontName").value_or(QString());
      EXPECT_TRUE(u"Cantarell Bold 13"_s.startsWith(cut)) << size;
    }
  }
  EXPECT_EQ(xSetting(QByteArray(4000, '\xff'), "Gtk/FontName"), std::nullopt);
}

TEST(TextScale, growsWithAFontThatIsLargerThanUsual) {
  const struct {
    QString font;
    std::optional<double> scale;
  } rows[]{
      {u"Sans 10"_s, 1},       {u"Cantarell 11"_s, 1},         {u"Sans 8"_s, 1},
      {u"Sans Bold 13"_s, 1.3}, {u"Noto Sans, Condensed 12.5"_s, 1.25}, {u"Noto Sans,13,-1,5,50,0,0,0,0,0"_s, 1.3},
      {u"Sans 96"_s, 1.75},    {u"Sans"_s, std::nullopt},      {u"Sans 13px"_s, std::nullopt},
      {{}, std::nullopt},      {u"Sans -3"_s, std::nullopt},   {u"Sans nan"_s, std::nullopt},
  };
  for (const auto& row : rows) EXPECT_EQ(textScaleOf(row.font), row.scale) << qPrintable(row.font);
}

}  // namespace
}  // namespace tarnwick::test
