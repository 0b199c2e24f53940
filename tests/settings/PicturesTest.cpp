// SPDX-License-Identifier: MIT
// Paints every pane and page at one and two device pixels per point; with TARNWICK_PICTURES set to a folder the pictures
// are kept there to be looked at.
#include "SettingsFixture.h"

#include "settings/WelcomeView.h"

#include <QImage>
#include <QMenu>
#include <QPainter>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

QImage painted(QWidget& widget, double scale) {
  QImage image((QSizeF(widget.size()) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(scale);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  widget.render(&painter, {}, {}, QWidget::DrawWindowBackground | QWidget::DrawChildren);
  return image;
}

void keep(QWidget& widget, const QString& name) {
  QCoreApplication::processEvents();
  const auto folder = qEnvironmentVariable("TARNWICK_PICTURES");
  for (const int scale : {1, 2}) {
    const auto image = painted(widget, scale);
    EXPECT_EQ(image.size(), widget.size() * scale);
    EXPECT_TRUE(folder.isEmpty() || image.save(u"%1/%2@%3x.png"_s.arg(folder, name).arg(scale)));
  }
}

/// Different colours of a picture: a pane that paints nothing has one.
int colorCount(QWidget& widget) {
  const auto image = painted(widget, 1);
  QSet<QRgb> colors;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) colors.insert(image.pixel(x, y));
  }
  return static_cast<int>(colors.size());
}

class Pictures : public SettingsFixture {};

TEST_F(Pictures, everyPaneIsPaintedAtItsWidth) {
  const std::pair<SettingsView::Pane, QString> panes[]{{SettingsView::Pane::General, u"general"_s},
                                                       {SettingsView::Pane::Notes, u"notes"_s},
                                                       {SettingsView::Pane::Sound, u"sound"_s},
                                                       {SettingsView::Pane::About, u"about"_s}};
  for (const auto& [pane, name] : panes) {
    auto& window = open(pane);
    EXPECT_EQ(window.width(), 440);
    EXPECT_GT(colorCount(window), 40) << qPrintable(name);
    keep(window, name);
  }
}

TEST_F(Pictures, theSayingsOfTheUpdateControl) {
  server.answer(u"200 OK"_s, R"({"version":"1.5","url":"https://tarnwick.app/get"})");
  auto& window = open(SettingsView::Pane::About);
  updates.check();
  keep(window, u"about-checking"_s);
  ASSERT_TRUE(QTest::qWaitFor([&] { return updates.status() == UpdateChecker::Status::available; }));
  keep(window, u"about-available"_s);
  server.answer(u"500 Oops"_s, {});
  updates.check();
  ASSERT_TRUE(QTest::qWaitFor([&] { return updates.status() == UpdateChecker::Status::failed; }));
  keep(window, u"about-failed"_s);
  server.answer(u"200 OK"_s, R"({"version":"1.4","url":"https://tarnwick.app/get"})");
  updates.check();
  ASSERT_TRUE(QTest::qWaitFor([&] { return updates.status() == UpdateChecker::Status::upToDate; }));
  keep(window, u"about-current"_s);
}

TEST_F(Pictures, aRefusedLoginItemMakesRoomForItsText) {
  loginItem.refusal = u"The autostart folder is not writable."_s;
  auto& window = open(SettingsView::Pane::General);
  click(u"Launch at login"_s);
  QCoreApplication::processEvents();
  keep(window, u"general-refused"_s);
  click(u"Change the shortcut, now ⌘ ⇧ T"_s);
  QCoreApplication::processEvents();
  keep(window, u"general-recording"_s);
}

TEST_F(Pictures, theMenuOfAPickerAndTheRingOfTheKeyboard) {
  auto& window = open(SettingsView::Pane::Notes);
  click(u"New note texture: Plain Paper"_s);
  for (auto* menu : window.findChildren<QMenu*>()) {
    if (menu->isVisible()) keep(*menu, u"menu"_s);
    menu->close();
  }
  button(u"When you complete a note: Crush into Trash"_s).setFocus();
  keep(window, u"notes-picker-focus"_s);
  button(u"Ghost"_s).setFocus();
  keep(window, u"notes-mode-focus"_s);
  window.selectPane(SettingsView::Pane::Sound);
  button(u"Play Tear"_s).setFocus();
  keep(window, u"sound-focus"_s);
}

TEST_F(Pictures, panesReadFromTheRight) {
  QApplication::setLayoutDirection(Qt::RightToLeft);
  for (const auto& [pane, name] : {std::pair{SettingsView::Pane::General, u"rtl-general"_s},
                                   {SettingsView::Pane::Notes, u"rtl-notes"_s},
                                   {SettingsView::Pane::About, u"rtl-about"_s}}) {
    keep(open(pane), name);
  }
  open(SettingsView::Pane::Notes);
  const auto& row = button(u"Ghost"_s);
  const int left = row.mapTo(view.get(), QPoint()).x();
  EXPECT_EQ(left, 440 - left - row.width()) << "the scroll bar takes its room from its own side";
  open(SettingsView::Pane::General);
  const auto& control = button(u"Daily Burn"_s);
  EXPECT_LT(control.mapTo(view.get(), QPoint()).x(), 100) << "switches stand at the left";
  QApplication::setLayoutDirection(Qt::LeftToRight);
}

class WelcomePictures : public testing::Test {
 protected:
  ManualTime time;
  FakeAccessibility accessibility;
  FakeWorkspace workspace;
  FakeWindowServer windowServer;
  FakeScreens screens;
};

TEST_F(WelcomePictures, everyPageAndATurnHalfWay) {
  accessibility.hasTree = false;
  WelcomeView view({accessibility, time, workspace, windowServer, screens}, [] {});
  view.setAttribute(Qt::WA_TranslucentBackground);
  view.show();
  const auto forward = [&] { QTest::keyClick(view.focusWidget(), Qt::Key_Return); };
  for (int page = 0; page < WelcomeView::kPageCount; ++page) {
    EXPECT_GT(colorCount(view), 200);
    keep(view, u"welcome-%1"_s.arg(page + 1));
    if (page == WelcomeView::kPageCount - 1) break;
    forward();
    time.advance(std::chrono::milliseconds(110));
    keep(view, u"welcome-%1-turning"_s.arg(page + 1));
    time.advance(std::chrono::seconds(2));
  }
  accessibility.hasTree = true;
  time.advance(std::chrono::seconds(1));
  keep(view, u"welcome-3-on"_s);
}

}  // namespace
}  // namespace tarnwick::test
