// SPDX-License-Identifier: MIT
// Every screen of the board, rendered. With TARNWICK_PICTURES set to a folder, the pictures are kept there;
// QT_SCALE_FACTOR=2 renders them for a dense screen.
#include "BoardHarness.h"

#include "board/AddTaskView.h"
#include "board/AppPinChip.h"
#include "board/BoardFilters.h"
#include "effects/BoardSurfaceView.h"

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class BoardPictures : public BoardHarness {
 protected:
  BoardPictures() { desk.time.setLocal(u"2026-11-13T21:55:00"_s); }

  /// The board at the platform's scale; the corners must stay clear and the middle be covered.
  void pictures(const QString& name) {
    settle();
    ContentView& board = open();
    const double scale = board.devicePixelRatioF();
    QImage image(board.size() * scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    board.render(&image, {}, {}, QWidget::DrawChildren);
    if (const auto folder = qEnvironmentVariable("TARNWICK_PICTURES"); !folder.isEmpty()) {
      image.save(QStringLiteral("%1/%2@%3x.png").arg(folder, name).arg(scale));
    }
    const QPoint last(image.width() - 1, image.height() - 1);
    for (const QPoint corner : {QPoint(0, 0), QPoint(last.x(), 0), QPoint(0, last.y()), last}) {
      EXPECT_EQ(qAlpha(image.pixel(corner)), 0) << name.toStdString();
    }
    EXPECT_GT(qAlpha(image.pixel(image.rect().center())), 225) << name.toStdString();
    // Whatever the screen, something stands on it: a bare surface has far fewer colours.
    QSet<QRgb> colors;
    for (int y = 0; y < image.height(); y += 2) {
      for (int x = 0; x < image.width(); x += 2) colors.insert(image.pixel(x, y) & 0xF0F0F0);
    }
    EXPECT_GT(colors.size(), 40) << name.toStdString();
  }
  TaskPtr note(const QString& text, const QString& color, const std::function<void(TaskRecord&)>& change = {}) {
    desk.time.jump(-1s);  // each one older than the one before
    return desk.add(text, [&](TaskRecord& r) {
      r.colorHex = color;
      if (change) change(r);
    });
  }
  void usualNotes() {
    note(u"Book the ferry back from the island for Sunday"_s, u"#FFE169"_s, [&](auto& r) {
      r.isDaily3 = true;
      r.dueDate = desk.at(u"2026-11-13T23:00:00"_s);
    });
    note(u"- [x] Rinse the jars\n- [ ] Label the lids\n- [ ] Ask Ines for salt"_s, u"#4CC9F0"_s, [](auto& r) {
      r.paperThemeRaw = u"graph"_s;
      r.pinnedBundleID = u"org.mail"_s;
      r.tagRaw = u"blue"_s;
    });
    note(u"Return the drill to Ola next door"_s, u"#FF7597"_s, [](auto& r) { r.stampRaw = u"urgent"_s; });
    note(u"Chapter 4: cut the dream scene, keep the boat"_s, u"#C77DFF"_s, [&](auto& r) {
      r.paperThemeRaw = u"lined"_s;
      r.isPrivate = true;
      r.dueDate = desk.at(u"2026-11-15T09:00:00"_s);
    });
    note(u"Frame for the print, 30 × 40, oak if they have it"_s, u"#06D6A0"_s, [&](auto& r) {
      r.paperThemeRaw = u"construction"_s;
      r.recurrenceRaw = u"weekly"_s;
      r.dueDate = desk.at(u"2026-11-13T20:00:00"_s);
      r.pinnedBundleID = u"org.draw"_s;
    });
    note(u"Water bill, second reminder came Tuesday"_s, u"#FFA647"_s, [&](auto& r) {
      r.paperThemeRaw = u"parchment"_s;
      r.stampRaw = u"priority"_s;
      r.dueDate = desk.at(u"2026-11-11T10:00:00"_s);
    });
    note(u"Rebase the parser branch"_s, u"#3A86FF"_s, [](auto& r) {
      r.boardRaw = u"Work"_s;
      r.tagRaw = u"pink"_s;
    });
    note(u"Collect everything for the trip: charts, the blue rope, spare batteries, two flares and the old lamp"_s,
         u"#4CC9F0"_s);
    desk.time.setLocal(u"2026-11-13T21:55:00"_s);
  }
};

}  // namespace

TEST_F(BoardPictures, wallInEveryMood) {
  usualNotes();
  open();
  for (const BoardMood mood : kBoardMoods) {
    (void)desk.defaults.setText(keys::kBoardMood, rawValue(mood));
    pictures(u"wall-"_s + rawValue(mood));
  }
}

TEST_F(BoardPictures, selectedHoveredAndAshes) {
  usualNotes();
  note(u"Old"_s, u"#FFE169"_s, [&](auto& r) {
    r.isBurned = true;
    r.burnedAt = desk.time.now();
  });
  open();
  key(Qt::Key_Right);
  key(Qt::Key_Right);
  key(Qt::Key_Right);
  key(Qt::Key_Right);
  const auto hovered = wall().notes()[0];
  hover(hovered, {60, 50});
  settle();
  pictures(u"wall-states"_s);
  hover(hovered, {CardFace::kWidth - 19, 19});
  Q_EMIT desk.center.crushDidComplete();
  settle();
  pictures(u"wall-circle-toast"_s);
}

TEST_F(BoardPictures, stampsBesideWords) {
  const QString words = u"Collect everything for the trip: charts, the blue rope, spare batteries and two flares"_s;
  const auto stamped = [&](const QString& color, const QString& theme, const QString& stamp, bool isPrivate) {
    note(words, color, [&](auto& r) {
      r.paperThemeRaw = theme;
      r.stampRaw = stamp;
      r.isPrivate = isPrivate;
      if (theme != u"parchment") r.dueDate = desk.at(u"2026-11-15T10:00:00"_s);
    });
  };
  stamped(u"#FFE169"_s, u"plain"_s, u"approved"_s, true);
  stamped(u"#4CC9F0"_s, u"graph"_s, u"star"_s, false);
  stamped(u"#C77DFF"_s, u"lined"_s, u"priority"_s, true);
  stamped(u"#FFA647"_s, u"parchment"_s, u"urgent"_s, true);
  open();
  pictures(u"wall-stamps"_s);
}

TEST_F(BoardPictures, searchTagsAndStats) {
  usualNotes();
  note(u"Order paper for the press, 120 g, cream"_s, u"#FFA647"_s, [](auto& r) { r.paperThemeRaw = u"lined"_s; });
  note(u"Ask about the paper round for Leo"_s, u"#06D6A0"_s);
  note(u"- [ ] Wrapping paper\n- [x] String"_s, u"#FF7597"_s, [](auto& r) { r.paperThemeRaw = u"graph"_s; });
  open();
  click(u"Search"_s);
  type(u"paper"_s);
  click(u"Tags"_s);
  pictures(u"search-tags"_s);
  click(u"Search"_s);
  click(u"Tags"_s);
  click(u"Stats"_s);
  pictures(u"stats"_s);
}

TEST_F(BoardPictures, nudgeThroughTheDay) {
  open();
  const std::pair<QString, BoardMood> hours[] = {{u"08:00"_s, BoardMood::obsidian},
                                                 {u"14:00"_s, BoardMood::corkboard},
                                                 {u"19:00"_s, BoardMood::acrylic},
                                                 {u"23:00"_s, BoardMood::drafting}};
  for (const auto& [hour, mood] : hours) {
    desk.time.setLocal(u"2026-11-13T"_s + hour + u":00"_s);
    (void)desk.defaults.setText(keys::kBoardMood, rawValue(mood));
    pictures(u"nudge-"_s + QString(hour).remove(QLatin1Char(':')));
  }
}

TEST_F(BoardPictures, composerAndEditor) {
  desk.workspace.applications.push_back({u"org.term"_s, 7, u"Terminal"_s});
  usualNotes();
  open();
  open().showComposer();
  pictures(u"composer-empty"_s);
  type(u"Passport photos"_s);
  key(Qt::Key_Return);
  type(u"Form, both pages"_s);
  QTest::mouseClick(button(u"Checklist"_s), Qt::LeftButton);
  form().setDraft(
      [&] {
        auto draft = form().draft();
        draft.colorHex = u"#4CC9F0"_s;
        draft.paperTheme = PaperTheme::graph;
        draft.stamp = TaskStamp::priority;
        draft.dueDate = desk.at(u"2026-11-15T09:00:00"_s);
        draft.recurrenceRaw = u"weekly"_s;
        draft.board = u"Work"_s;
        draft.isPinnedToApp = true;
        draft.isPrivate = true;
        return draft;
      }(),
      desk.time.now(), u"org.term"_s);
  pictures(u"composer-filled"_s);
  open().showList();
  open().showEditor(wall().notes()[3]);
  settle();
  QTest::mouseClick(&form().dueChip(), Qt::LeftButton, {}, QPoint(20, 18));
  pictures(u"editor-date"_s);
  QTest::mouseClick(&form().dueChip(), Qt::LeftButton, {}, QPoint(20, 18));
  QTest::mouseClick(&form().stampChip(), Qt::LeftButton, {}, QPoint(20, 18));
  if (auto* menu = QApplication::activePopupWidget()) {
    QTest::keyClick(menu, Qt::Key_Up);
    if (const auto folder = qEnvironmentVariable("TARNWICK_PICTURES"); !folder.isEmpty())
      menu->grab().save(folder + u"/menu-stamp.png"_s);
    menu->close();
  } else {
    ADD_FAILURE() << "the stamp menu did not open";
  }
}

TEST_F(BoardPictures, ashes) {
  open().showAshes();
  pictures(u"ashes-empty"_s);
  const std::pair<QString, QString> notes[] = {
      {u"Sort the photos from the coast walk"_s, u"#FFE169"_s},
      {u"Ring the library about the atlas and the two maps that came with it"_s, u"#4CC9F0"_s},
      {u"Sharpen the plane"_s, u"#FF7597"_s},
      {u"Empty the shoebox"_s, u"#06D6A0"_s}};
  for (const auto& [text, color] : notes) {
    note(text, color, [&](auto& r) {
      r.isBurned = true;
      r.burnedAt = desk.time.now();
    });
  }
  pictures(u"ashes"_s);
}

TEST_F(BoardPictures, rightToLeft) {
  usualNotes();
  QApplication::setLayoutDirection(Qt::RightToLeft);
  note(u"לקנות נייר לבית הדפוס, 120 גרם"_s, u"#FF7597"_s, [](auto& r) {
    r.isPrivate = true;
    r.isDaily3 = true;
  });
  open();
  pictures(u"rtl"_s);
  open().showComposer();
  pictures(u"rtl-composer"_s);
  QApplication::setLayoutDirection(Qt::LeftToRight);
}

}  // namespace tarnwick::test
