// SPDX-License-Identifier: MIT
// Paints notes of the desktop in every state; with TARNWICK_PICTURES set to a folder the pictures are kept there to be
// looked at.
#include "ShellWorld.h"
#include "shell/NoteSpots.h"
#include "board/ChecklistEdit.h"
#include "shell/NoteEditPlate.h"

#include <QImage>
#include <QPainter>
#include <QSet>

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

class NotePictures : public ShellWorld {
 protected:
  QImage painted(QWidget& widget, double scale = 2) {
    QCoreApplication::processEvents();
    QImage image((QSizeF(widget.size()) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    widget.render(&painter, {}, {}, QWidget::DrawChildren);
    return image;
  }
  /// On a wallpaper like the one it will lie on.
  void keep(QWidget& widget, const QString& name) {
    const auto pictures = qEnvironmentVariable("TARNWICK_PICTURES");
    if (pictures.isEmpty()) return;
    auto image = painted(widget);
    QImage sheet(image.size() + QSize(40, 40), QImage::Format_RGB32);
    sheet.setDevicePixelRatio(2);
    sheet.fill(QColor(0xFF55727A));
    QPainter painter(&sheet);
    painter.drawImage(QPointF(10, 10), image);
    painter.end();
    EXPECT_TRUE(sheet.save(u"%1/%2.png"_s.arg(pictures, name)));
  }
  TornNotePanel& sheet(const QString& text, const QString& color, PaperTheme theme,
                       const std::function<void(TaskRecord&)>& change = {}) {
    return torn(note([&](TaskRecord& record) {
      record.text = text;
      record.colorHex = color;
      record.paperThemeRaw = rawValue(theme);
      if (change) change(record);
    }));
  }
  static double alphaAt(const QImage& image, QPointF point) {
    return QColor::fromRgba(image.pixel((point * image.devicePixelRatio()).toPoint())).alphaF();
  }
};

TEST_F(NotePictures, theWindowsMarginHoldsOnlyShadowAndTape) {
  auto& note = sheet(u"Book the ferry back from the island for Sunday, before noon"_s, u"#FFE169"_s, PaperTheme::plain,
                     [this](TaskRecord& record) { record.dueDate = time.now().addSecs(3600); });
  const auto image = painted(note);
  EXPECT_LT(alphaAt(image, {2, 2}), 0.02);
  EXPECT_LT(alphaAt(image, {248, 10}), 0.05);
  EXPECT_GT(alphaAt(image, {125, 110}), 0.99);
  EXPECT_GT(alphaAt(image, {125, 8}), 0.5);  // the tape
  EXPECT_GT(alphaAt(image, {125, 219}), 0.1);
  keep(note, u"plain"_s);
}

TEST_F(NotePictures, aStampLeavesAFullFootReadable) {
  for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
    for (const auto theme : {PaperTheme::plain, PaperTheme::construction}) {
      TornNoteFace face;
      face.colorHex = u"#FFE169"_s;
      face.theme = theme;
      face.direction = direction;
      face.due = CardParts::DueLabel{u"Tomorrow"_s, false, true};
      face.counter = u"0/3"_s;
      face.isPrivate = true;
      const auto foot = [](const TornNoteFace& shown) {
        QImage image(shown.size.toSize(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        shown.paintFoot(painter, 0);
        painter.end();
        return image.copy(shown.footRect().toAlignedRect());
      };
      const QImage plain = foot(face);
      face.stamp = TaskStamp::priority;
      EXPECT_EQ(foot(face), plain);
      EXPECT_LT(face.textRect().bottom(), face.footRect().top() - 20);
    }
  }
}

TEST_F(NotePictures, everyThemeAndState) {
  const auto tomorrow = time.now().addDays(1);
  keep(sheet(u"- [x] Rinse the jars\n- [ ] Label the lids\n- [ ] Ask Ines for salt"_s, u"#4CC9F0"_s, PaperTheme::graph), u"graph"_s);
  keep(sheet(u"Water bill, second reminder came Tuesday"_s, u"#FFA647"_s, PaperTheme::parchment,
             [&](TaskRecord& record) {
               record.dueDate = time.now().addDays(-3);
               record.stampRaw = u"urgent"_s;
             }),
       u"parchment-overdue"_s);
  keep(sheet(u"Frame for the print, 30 × 40, oak if they have it"_s, u"#FF7597"_s, PaperTheme::construction,
             [&](TaskRecord& record) {
               record.dueDate = tomorrow;
               record.recurrenceRaw = u"daily"_s;
             }),
       u"construction"_s);
  keep(sheet(u"Chapter 4: cut the dream scene, keep the boat"_s, u"#C77DFF"_s, PaperTheme::lined,
             [&](TaskRecord& record) {
               record.dueDate = tomorrow.addDays(5);
               record.isPrivate = true;
             }),
       u"lined-private"_s);
  QString lines;
  for (int i = 1; i < 14; ++i) lines += u"Line %1 of a long note that wraps now and then\n"_s.arg(i);
  keep(sheet(lines, u"#3A86FF"_s, PaperTheme::plain), u"long"_s);
  auto& wide = sheet(u"Wide"_s, u"#06D6A0"_s, PaperTheme::plain);
  wide.setFrame({100, 100, 420, 300});
  keep(wide, u"wide"_s);
}

TEST_F(NotePictures, theRingShowsOnlyWhereTheKeyboardCameByKeys) {
  auto& note = sheet(u"Book the ferry"_s, u"#FFE169"_s, PaperTheme::plain);
  note.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&note));
  auto* text = note.findChild<NoteTextSpot*>();
  text->setFocus();
  const auto clicked = painted(note);
  QTest::keyClick(text, Qt::Key_Meta);  // the beginning of a chord for somebody else
  EXPECT_EQ(painted(note), clicked);
  QTest::keyClick(text, Qt::Key_Tab);
  EXPECT_NE(painted(note), clicked);
  keep(note, u"keyboard"_s);
}

TEST_F(NotePictures, theBarFadesInAMomentAfterThePointerCame) {
  auto& note = sheet(u"- [x] Rinse the jars\n- [ ] Label the lids"_s, u"#4CC9F0"_s, PaperTheme::graph);
  const auto bar = note.noteView().face().hoverBarRect().center() - QPointF(0, 12);
  const auto before = painted(note).pixelColor((bar * 2).toPoint());
  hover(note, true);
  pass(200ms);
  EXPECT_EQ(painted(note).pixelColor((bar * 2).toPoint()), before);
  pass(300ms);
  EXPECT_LT(painted(note).pixelColor((bar * 2).toPoint()).lightness(), before.lightness() / 2);
  EXPECT_EQ(time.repeatingCount(), 0);
  keep(note, u"hovered"_s);
}

TEST_F(NotePictures, anEditorThatCouldNotSaveSaysSo) {
  auto& note = sheet(u"Eleven chairs"_s, u"#06D6A0"_s, PaperTheme::lined);
  auto& view = note.noteView();
  view.beginEditing();
  view.editPlate().editor().setNoteText(u"Eleven chairs, two long tables, the small projector"_s);
  keep(note, u"editing"_s);
  breakStore();
  view.saveEdit();
  const auto plate = view.face().paperRect().bottomLeft() + QPointF(200, -58);
  EXPECT_EQ(painted(note).pixelColor((plate * 2).toPoint()), QColor(0xFFA3171E));
  keep(note, u"editing-failed"_s);
}

TEST_F(NotePictures, aTabKeepsItsLineBetweenTileAndTape) {
  workspace.front = kBrowser;
  otherWindows.move(kEditor.pid, DesktopRect{100, 100, 800, 600});
  auto& note = torn(this->note([](TaskRecord& record) {
    record.text = u"Rebase the parser branch before Friday"_s;
    record.colorHex = u"#3A86FF"_s;
    record.pinnedBundleID = kEditor.bundleID;
    record.isPrivate = true;
  }));
  workspace.activate(kEditor);
  ASSERT_EQ(note.size(), QSize(210, 46));
  const auto image = painted(note);
  EXPECT_LT(alphaAt(image, {1, 44}), 0.3);
  EXPECT_GT(alphaAt(image, {105, 23}), 0.99);
  keep(note, u"tab"_s);
}

TEST_F(NotePictures, withoutACompositorNothingIsOutsideTheMask) {
  screens.hasCompositor = false;
  auto& note = sheet(u"No transparency here"_s, u"#FFE169"_s, PaperTheme::plain);
  EXPECT_FALSE(note.mask().contains(QPoint(3, 120)));
  EXPECT_TRUE(note.mask().contains(QPoint(125, 120)));
  EXPECT_TRUE(note.mask().contains(QPoint(90, 8)));
  EXPECT_FALSE(note.mask().contains(QPoint(86, 8))) << "between the tape's teeth would be black";
  keep(note, u"masked"_s);
}

TEST_F(NotePictures, theSheetThatIsCrushedIsAllPaperWithTheWordsWhereTheyWere) {
  auto& note = sheet(u"Book the ferry back from the island"_s, u"#FFE169"_s, PaperTheme::plain);
  hover(note, true);
  pass(600ms);
  note.noteView().crush();
  ASSERT_EQ(flight.plays.size(), 1u);
  const auto& picture = flight.plays[0].picture;
  ASSERT_FALSE(picture.isNull());
  for (const QPoint edge : {QPoint(4, 100), QPoint(245, 100), QPoint(125, 4), QPoint(125, 225)}) {
    EXPECT_GT(alphaAt(picture, edge), 0.99) << "paper up to the edge of the window";
  }
  const auto lightness = [&](QPointF point) {
    return picture.pixelColor((point * picture.devicePixelRatio()).toPoint()).lightnessF();
  };
  EXPECT_GT(lightness({125, 10}), 0.6) << "the tape stays behind";
  const auto bar = note.noteView().face().hoverBarRect();
  EXPECT_GT(lightness({bar.left() + 8, bar.center().y()}), 0.6) << "and the tools";
  int dark = 0;
  for (int x = 20; x < 200; ++x) dark += lightness(QPointF(x, 48)) < 0.4 ? 1 : 0;
  EXPECT_GT(dark, 5) << "the words are on it";
}

TEST_F(NotePictures, aShredEndsInNothing) {
  setText(keys::kCompletionEffect, u"shred"_s);
  auto& note = sheet(u"Book the ferry back from the island"_s, u"#FFE169"_s, PaperTheme::plain);
  note.noteView().crush();
  pass(400ms);
  keep(note, u"shred-400"_s);
  pass(350ms);
  keep(note, u"shred-750"_s);
  pass(230ms);
  const auto image = painted(note);
  EXPECT_LT(alphaAt(image, {125, 60}), 0.05);
}

TEST_F(NotePictures, rightToLeftTheCircleStandsAtTheLeft) {
  auto& note = sheet(u"שלום עולם"_s, u"#C77DFF"_s, PaperTheme::lined,
                     [this](TaskRecord& record) { record.dueDate = time.now().addSecs(3600); });
  note.setLayoutDirection(Qt::RightToLeft);
  EXPECT_LT(note.noteView().face().circleCenter().x(), 60);
  EXPECT_LT(note.noteView().face().textRect().left(), 40);
  keep(note, u"rtl"_s);
}

}  // namespace
}  // namespace tarnwick::test
