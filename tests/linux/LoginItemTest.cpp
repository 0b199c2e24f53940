// SPDX-License-Identifier: MIT
// The same rules for the autostart entry and for the stand-in.
#include "fakes/FakeServices.h"
#include "linux/xdg/XdgAutostartLoginItem.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

class ConfigFolder {
 public:
  ConfigFolder() : m_before(qgetenv("XDG_CONFIG_HOME")) { qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8()); }
  ~ConfigFolder() { qputenv("XDG_CONFIG_HOME", m_before); }
  [[nodiscard]] QString entry() const {
    return m_folder.filePath(QStringLiteral("autostart/app.tarnwick.Tarnwick.desktop"));
  }

 private:
  QTemporaryDir m_folder;
  QByteArray m_before;
};

struct Autostart {
  ConfigFolder config;
  XdgAutostartLoginItem item{QStringLiteral("/opt/a b/tarnwick")};
};
struct Fake {
  test::FakeLoginItem item;
};

template <typename T>
class ALoginItem : public testing::Test {
 protected:
  T made;
};
using Items = testing::Types<Autostart, Fake>;
TYPED_TEST_SUITE(ALoginItem, Items);

TYPED_TEST(ALoginItem, IsOffUntilItIsRegistered) {
  auto& item = this->made.item;
  EXPECT_EQ(item.status(), LoginItemStatus::NotRegistered);
  ASSERT_TRUE(item.registerItem());
  EXPECT_EQ(item.status(), LoginItemStatus::Enabled);
  ASSERT_TRUE(item.registerItem()) << "twice does no harm";
  ASSERT_TRUE(item.unregisterItem());
  EXPECT_EQ(item.status(), LoginItemStatus::NotRegistered);
  EXPECT_TRUE(item.unregisterItem()) << "twice does no harm";
}

class TheAutostartEntry : public testing::Test {
 protected:
  Autostart made;
};

TEST_F(TheAutostartEntry, StartsTheQuotedCommandInTheBackground) {
  ASSERT_TRUE(made.item.registerItem());
  QFile file(made.config.entry());
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_TRUE(file.readAll().contains("\nExec=\"/opt/a b/tarnwick\" --background\n"));
}

TEST_F(TheAutostartEntry, ThatTheSessionSwitchedOffCountsAsOff) {
  ASSERT_TRUE(made.item.registerItem());
  QFile file(made.config.entry());
  ASSERT_TRUE(file.open(QIODevice::Append));
  file.write("Hidden=true\n");
  file.close();
  EXPECT_EQ(made.item.status(), LoginItemStatus::NotRegistered);
}

TEST_F(TheAutostartEntry, SaysWhyItCannotBeWritten) {
  QDir().mkpath(QFileInfo(made.config.entry()).path());
  QDir().mkpath(made.config.entry());  // a folder in the entry's place
  const auto result = made.item.registerItem();
  ASSERT_FALSE(result);
  EXPECT_FALSE(result.error().text.isEmpty());
}

}  // namespace
}  // namespace tarnwick
