// SPDX-License-Identifier: MIT
#include "context/AppIdentity.h"

#include "fakes/FakeDesktop.h"

#include <gtest/gtest.h>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

TEST(AppIdentity, namesEveryApplicationSomehow) {
  FakeWorkspace workspace;
  workspace.applications = {{u"org.gnome.gedit"_s, 5, u"Text Editor"_s}, {u"nameless"_s, 6, u" "_s}};
  EXPECT_EQ(AppIdentity::of(workspace, u"org.gnome.gedit"_s).name, u"Text Editor"_s);
  EXPECT_EQ(AppIdentity::of(workspace, u"nameless"_s).name, u"nameless"_s);
  EXPECT_EQ(AppIdentity::of(workspace, u"not.installed"_s).name, u"not.installed"_s);
}

}  // namespace
}  // namespace tarnwick::test
