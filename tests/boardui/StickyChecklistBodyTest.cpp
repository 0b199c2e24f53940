// SPDX-License-Identifier: MIT
#include "board/StickyChecklistBody.h"

#include "board/CardFace.h"
#include "effects/Tokens.h"
#include "support/Desk.h"

namespace tarnwick::test {
namespace {

using namespace Qt::StringLiterals;

StickyChecklistBody::Style style() {
  StickyChecklistBody::Style style;
  style.font = tokens::font(tokens::Type::CardText);
  style.ink = Qt::black;
  style.width = 150;
  return style;
}

QImage painted(const StickyChecklistBody& body) {
  QImage image(160, 120, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::white);
  QPainter painter(&image);
  body.paint(painter, {4, 4});
  return image;
}

/// Darkest pixel of a line of text.
int darkest(const QImage& image, int line) {
  int value = 255;
  for (int y = 4 + line * 17; y < 4 + (line + 1) * 17; ++y) {
    for (int x = 30; x < image.width(); ++x) value = std::min(value, qGray(image.pixel(x, y)));
  }
  return value;
}

}  // namespace

TEST(ChecklistBody, tellsTheLineOfTheTextUnderAPoint) {
  const StickyChecklistBody body(u"Shopping\n- [ ] Milk\n\n- [x] Salt"_s, style());
  EXPECT_EQ(body.checklistLineAt({5, 8}), -1);
  EXPECT_EQ(body.checklistLineAt({5, 17 + 8}), 1);
  EXPECT_EQ(body.checklistLineAt({35, 17 + 8}), 1);
  EXPECT_EQ(body.checklistLineAt({140, 17 + 8}), -1) << "beyond the words there is only paper";
  EXPECT_EQ(body.checklistLineAt({5, 2 * 17 + 8}), -1);
  EXPECT_EQ(body.checklistLineAt({5, 3 * 17 + 8}), 3);
  EXPECT_EQ(body.checklistLineAt({5, 4 * 17 + 8}), -1);
}

TEST(ChecklistBody, findsTheBoxOnTheOtherSideOfAMirroredNote) {
  auto mirrored = style();
  mirrored.direction = Qt::RightToLeft;
  const StickyChecklistBody body(u"- [ ] Milk"_s, mirrored);
  EXPECT_EQ(body.checklistLineAt({145, 8}), 0);
  EXPECT_EQ(body.checklistLineAt({5, 8}), -1);
}

TEST(ChecklistBody, fadesDoneItemsMostAndKeepsAPlainNoteInFullInk) {
  const QImage list = painted(StickyChecklistBody(u"- [x] mmmmmm\n- [ ] mmmmmm"_s, style()));
  const QImage plain = painted(StickyChecklistBody(u"     mmmmmm"_s, style()));
  EXPECT_GT(darkest(list, 0), darkest(list, 1) + 60);
  EXPECT_NEAR(darkest(list, 1), 255 * 0.12, 12);
  EXPECT_LT(darkest(plain, 0), 10);
}

TEST(ChecklistBody, elidesTheLastOfTheLinesItMayUse) {
  auto four = style();
  four.maxLines = 4;
  EXPECT_FALSE(StickyChecklistBody(u"one\ntwo\nthree\nfour"_s, four).isElided());
  EXPECT_TRUE(StickyChecklistBody(u"one\ntwo\nthree\nfour\nfive"_s, four).isElided());
  const StickyChecklistBody longWord(QString(400, QLatin1Char('w')), four);
  EXPECT_TRUE(longWord.isElided());
  EXPECT_DOUBLE_EQ(longWord.height(), 4 * 17);
}

TEST(ChecklistBody, costsNoMoreForATextWithoutAnEnd) {
  auto four = style();
  four.maxLines = 4;
  struct Row {
    const char* name;
    QString text;
  };
  const Row rows[] = {
      {"one word", QString(100'000, u'i')},
      {"words", u"wall "_s.repeated(20'000)},
      {"lines", u"- [ ] x\n"_s.repeated(10'000)},
      {"accents", u'a' + QString(100'000, QChar(0x0301))},
      {"both ways", u"שלום hello "_s.repeated(10'000)},
  };
  for (const auto& row : rows) {
    const StickyChecklistBody body(row.text, four);
    EXPECT_LE(body.height(), 4 * 17) << row.name;
    EXPECT_GT(body.height(), 0) << row.name;
  }
  const StickyChecklistBody whole(rows[0].text, style());
  EXPECT_EQ(whole.shownText().remove(QChar(0x200B)), rows[0].text) << "on the desktop all of it is there";
}

TEST(ChecklistBody, cutsBetweenWhatPeopleSeeAsCharacters) {
  auto one = style();
  one.maxLines = 1;
  // A family, a flag, a letter with its accents: no half of one may be left before the dots.
  for (const QString& character : {u"👨‍👩‍👧"_s, u"🇩🇪"_s, u"e\u0301\u0323"_s}) {
    for (double width = 60; width < 80; width += 1) {
      one.width = width;
      const QString shown = StickyChecklistBody(character.repeated(60), one).shownText();
      EXPECT_TRUE(shown.endsWith(QChar(0x2026)));
      EXPECT_EQ(shown.chopped(1), character.repeated((shown.size() - 1) / character.size())) << width;
    }
  }
}

TEST(ChecklistBody, leavesTheFirstLineRoomForTheCircle) {
  auto narrow = style();
  narrow.firstLineInset = 60;
  // Fits into one line of the full width, and into two when the first is shorter.
  const QString words = u"Return the drill to"_s;
  EXPECT_DOUBLE_EQ(StickyChecklistBody(words, style()).height(), 17);
  EXPECT_DOUBLE_EQ(StickyChecklistBody(words, narrow).height(), 2 * 17);
}

TEST(ChecklistBody, countsWithoutBlanks) {
  EXPECT_EQ(StickyChecklistBody::counter(u"- [x] a\n- [ ] b\nc"_s), u"1/2"_s);
  EXPECT_EQ(StickyChecklistBody::counter(u"a"_s), QString());
}

TEST(ChecklistBody, aTappedRowIsWrittenToTheStore) {
  Desk desk;
  const auto task = desk.add(u"- [ ] Milk\n- [ ] Salt"_s);
  StickyChecklistBody::toggleLine(*task, 1, desk.notes());
  EXPECT_EQ(desk.stored(task->id())->text, u"- [ ] Milk\n- [x] Salt"_s);
}

TEST(ChecklistBody, aParagraphBeginsAtTheSideFromWhichItIsRead) {
  for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
    auto asked = style();
    asked.direction = direction;
    asked.firstLineInset = 24;
    const QImage image = painted(StickyChecklistBody(u"Milk\nחלב"_s, asked));
    const auto span = [&](int line) {
      QRect ink;
      for (int y = 4 + line * 17; y < 4 + (line + 1) * 17; ++y) {
        for (int x = 0; x < image.width(); ++x) {
          if (qGray(image.pixel(x, y)) < 128) ink |= QRect(x, y, 1, 1);
        }
      }
      return ink;
    };
    EXPECT_NEAR(span(0).left(), direction == Qt::RightToLeft ? 4 + 24 : 4, 3);
    EXPECT_NEAR(span(1).right(), 4 + 150, 3);
  }
}

TEST(CardPicture, itsWordsEndBeforeItsStamp) {
  for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
    for (const bool isPrivate : {false, true}) {
      for (const bool isSmoldering : {false, true}) {
        CardFace face;
        face.text = u"gj gj gj gj gj gj gj gj gj gj gj gj gj gj gj gj gj gj gj gj gj gj gj gj gj gj gj gj"_s;
        if (direction == Qt::RightToLeft) face.text.replace(u"gj"_s, u"קץ"_s);
        face.colorHex = u"#FFE169"_s;
        face.direction = direction;
        face.isPrivate = isPrivate;  // its lock lifts the stamp
        face.isSmoldering = isSmoldering;
        const QImage bare = face.pixmap(PaperLift::Rest, 2).toImage();
        face.stamp = TaskStamp::approved;
        const QImage stamped = face.pixmap(PaperLift::Rest, 2).toImage();
        CardFace wordless = face;
        wordless.text.clear();
        const QImage stamp = wordless.pixmap(PaperLift::Rest, 2).toImage();
        int collisions = 0;
        for (int y = 0; y < stamped.height(); ++y) {
          for (int x = 0; x < stamped.width(); ++x) {
            const QColor label = stamp.pixelColor(x, y);
            collisions += label.blue() > 180 && stamped.pixelColor(x, y).blue() < label.blue() - 6;
          }
        }
        EXPECT_EQ(collisions, 0) << direction << isPrivate << isSmoldering;
        EXPECT_NE(bare, stamped);
      }
    }
  }
}

TEST(CardPicture, differsForEverythingThatLiesOnTheCard) {
  CardFace plain;
  plain.text = u"Note"_s;
  plain.colorHex = u"#FFE169"_s;
  const auto differs = [&](const std::function<void(CardFace&)>& change) {
    CardFace other = plain;
    change(other);
    return other.key() != plain.key() &&
           other.pixmap(PaperLift::Rest, 1).toImage() != plain.pixmap(PaperLift::Rest, 1).toImage();
  };
  EXPECT_TRUE(differs([](auto& f) { f.text = u"Other"_s; }));
  EXPECT_TRUE(differs([](auto& f) { f.colorHex = u"#4CC9F0"_s; }));
  EXPECT_TRUE(differs([](auto& f) { f.theme = PaperTheme::lined; }));
  EXPECT_TRUE(differs([](auto& f) { f.stamp = TaskStamp::idea; }));
  EXPECT_TRUE(differs([](auto& f) { f.tag = TaskTag::blue; }));
  EXPECT_TRUE(differs([](auto& f) { f.due = CardParts::DueLabel{u"Today"_s, false, false}; }));
  EXPECT_TRUE(differs([](auto& f) { f.appID = u"org.app"_s; }));
  EXPECT_TRUE(differs([](auto& f) { f.repository = u"parser"_s; }));
  EXPECT_TRUE(differs([](auto& f) { f.isPrivate = true; }));
  EXPECT_TRUE(differs([](auto& f) { f.isDaily3 = true; }));
  EXPECT_TRUE(differs([](auto& f) { f.isSmoldering = true; }));
  EXPECT_TRUE(differs([](auto& f) { f.mark = u"ot"_s; }));
}

TEST(CardPicture, isLargeEnoughForItsShadow) {
  for (const auto lift : {PaperLift::Rest, PaperLift::Raised}) {
    for (const auto theme : {PaperTheme::plain, PaperTheme::construction}) {
      CardFace face;
      face.colorHex = u"#FFE169"_s;
      face.theme = theme;
      face.tag = TaskTag::blue;
      face.isDaily3 = true;
      const QImage image = face.pixmap(lift, 1).toImage();
      int strongest = 0;
      for (int x = 0; x < image.width(); ++x) {
        strongest = std::max({strongest, qAlpha(image.pixel(x, 0)), qAlpha(image.pixel(x, image.height() - 1))});
      }
      for (int y = 0; y < image.height(); ++y) {
        strongest = std::max({strongest, qAlpha(image.pixel(0, y)), qAlpha(image.pixel(image.width() - 1, y))});
      }
      EXPECT_LE(strongest, 2) << "a hard edge where the shadow should run out";
    }
  }
}

TEST(CardPicture, keepsItsFootBelowTheToolsThatCoverIt) {
  for (const auto theme : {PaperTheme::plain, PaperTheme::construction}) {
    for (const bool isSmoldering : {false, true}) {
      CardFace open;
      open.colorHex = u"#FFE169"_s;
      open.theme = theme;
      open.isSmoldering = isSmoldering;
      CardFace locked = open;
      locked.isPrivate = true;
      const QImage without = open.pixmap(PaperLift::Rest, 1).toImage();
      const QImage with = locked.pixmap(PaperLift::Rest, 1).toImage();
      const QRectF bar = locked.hoverBarRect().translated(CardFace::kRestMargin, CardFace::kRestMargin);
      int covered = 0;
      int uncovered = 0;
      for (int y = 0; y < with.height(); ++y) {
        for (int x = 0; x < with.width(); ++x) {
          if (with.pixel(x, y) != without.pixel(x, y)) ++(bar.contains(QPointF(x, y)) ? covered : uncovered);
        }
      }
      EXPECT_GT(covered, 0);
      EXPECT_EQ(uncovered, 0);
    }
  }
}

TEST(CardPicture, showsAnOverdueDateOnAFilledPlate) {
  const auto plateOf = [](bool isOverdue) {
    CardFace face;
    face.text = u"Bill"_s;
    face.colorHex = u"#FFE169"_s;
    face.due = CardParts::DueLabel{u"Nov 12"_s, isOverdue, false};
    const QImage image = face.pixmap(PaperLift::Rest, 1).toImage();
    return image.pixelColor(static_cast<int>(CardFace::kRestMargin) + 14,
                            static_cast<int>(CardFace::kRestMargin + CardFace::kHeight) - 12);
  };
  EXPECT_EQ(plateOf(true).name(), u"#a3171e"_s);
  EXPECT_GT(plateOf(false).lightness(), 180);
}

}  // namespace tarnwick::test
