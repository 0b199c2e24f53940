// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QLocale>
#include <QStandardPaths>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  QStandardPaths::setTestModeEnabled(true);
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("tarnwick-test"));
  QApplication::setQuitOnLastWindowClosed(false);
  QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
  return RUN_ALL_TESTS();
}
