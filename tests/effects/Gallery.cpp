// SPDX-License-Identifier: MIT
// Renders contact sheets of everything the effects draw, for a look with one's own eyes: tarnwick-gallery FOLDER
#include "effects/AshLedge.h"
#include "effects/BoardSurfaceView.h"
#include "effects/Controls.h"
#include "effects/PaperSheet.h"
#include "effects/PaperShredView.h"
#include "effects/SoftShadow.h"
#include "effects/StampBadge.h"
#include "effects/Symbols.h"
#include "effects/Tokens.h"
#include "model/Color.h"

#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QPainter>
#include <QStyleOption>
#include <QTextLayout>
#include <QUuid>

#include <cmath>
#include <cstdio>

using namespace tarnwick;

namespace {

struct Sheet {
  QString folder;
  double scale;

  QPixmap start(const QSize& size) const {
    QPixmap pixmap(size * scale);
    pixmap.setDevicePixelRatio(scale);
    QPainter painter(&pixmap);
    QLinearGradient wall(0, 0, .3 * size.width(), size.height());
    wall.setColorAt(0, QColor(0x2E, 0x30, 0x39));
    wall.setColorAt(.45, QColor(0x22, 0x23, 0x2A));
    wall.setColorAt(1, QColor(0x17, 0x18, 0x1D));
    painter.fillRect(QRect(QPoint(0, 0), size), wall);
    return pixmap;
  }
  void save(const QPixmap& pixmap, const QString& name) const {
    const QString file = QStringLiteral("%1/%2@%3x.png").arg(folder, name).arg(scale);
    std::puts(qPrintable(file + (pixmap.save(file) ? QStringLiteral("") : QStringLiteral(" failed"))));
  }
};

void write(QPainter& painter, const QRectF& box, const QString& text, const QColor& ink, tokens::Type type,
           double pitch) {
  QTextLayout layout(text, tokens::font(type));
  QTextOption option;
  option.setWrapMode(QTextOption::WordWrap);
  layout.setTextOption(option);
  layout.beginLayout();
  double y = 0;
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(box.width() - (y == 0 ? 24 : 0));
    line.setPosition(QPointF(0, y));
    y += pitch;
  }
  layout.endLayout();
  painter.setPen(ink);
  layout.draw(&painter, box.topLeft());
}

struct Note {
  QString text;
  QString hex;
  PaperTheme theme = PaperTheme::plain;
  double tilt = 0;
  PaperLift lift = PaperLift::Rest;
  PaperEdge edge = PaperEdge::Clean;
  TaskStamp stamp = TaskStamp::none;
};

// A card as the board keeps it: drawn upright with its margin, then turned as a picture.
void drawCard(QPainter& painter, const QPointF& at, const Note& note, quint32 seed, double scale) {
  constexpr double kMargin = 24;
  const QSizeF size(175, 112);
  QPixmap picture((size + QSizeF(2 * kMargin, 2 * kMargin)).toSize() * scale);
  picture.setDevicePixelRatio(scale);
  picture.fill(Qt::transparent);
  {
    QPainter into(&picture);
    PaperSheet sheet;
    sheet.rect = QRectF(QPointF(kMargin, kMargin), size);
    sheet.colorHex = note.hex;
    sheet.theme = note.theme;
    sheet.lift = note.lift;
    sheet.edge = note.edge;
    sheet.seed = seed;
    sheet.paint(into);
    sheet.paintEmberGlow(into, .8);
    const bool isLined = note.theme == PaperTheme::lined;
    const bool isBoard = note.theme == PaperTheme::construction;
    const QRectF box = sheet.rect.adjusted(isLined ? 27 : isBoard ? 14 : 12, isLined ? 8 : isBoard ? 13 : 11, -11, 0);
    const QColor ink = Color::inkOnPaper(note.hex);
    write(into, box, note.text, ink, tokens::Type::CardText, isLined ? 20 : 17);
    into.setRenderHint(QPainter::Antialiasing);
    into.setBrush(tokens::white(.18));
    into.setPen(QPen(tokens::faded(ink, .72), 1.6));
    into.drawEllipse(QPointF(sheet.rect.right() - 19, sheet.rect.top() + 19), 8.2, 8.2);
    const QSizeF badge = StampBadgeView::size(note.stamp);
    StampBadgeView::paint(into, note.stamp, sheet.rect.bottomRight() - QPointF(10 + badge.width() / 2, 20), -6);
  }
  painter.save();
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  painter.translate(at + QPointF(size.width() / 2, size.height() * .4));
  painter.rotate(note.tilt);
  painter.drawPixmap(QPointF(-size.width() / 2 - kMargin, -size.height() * .4 - kMargin), picture);
  painter.restore();
}

void cards(const Sheet& sheet) {
  const QString text = QStringLiteral("Return the drill to Ola next door");
  const auto hex = [](int paper) { return kPaperPalette[static_cast<size_t>(paper)]; };
  const QList<Note> notes{
      {text, hex(3), PaperTheme::plain, -1.2, PaperLift::Rest, PaperEdge::Clean, TaskStamp::none},
      {text, hex(3), PaperTheme::plain, 0, PaperLift::Raised, PaperEdge::Clean, TaskStamp::none},
      {text, hex(0), PaperTheme::plain, 0, PaperLift::Raised, PaperEdge::Clean, TaskStamp::star},
      {text, hex(2), PaperTheme::plain, .8, PaperLift::Rest, PaperEdge::Smoldering, TaskStamp::none},
      {text, hex(6), PaperTheme::plain, -.4, PaperLift::Rest, PaperEdge::Clean, TaskStamp::approved},
      {text, hex(4), PaperTheme::graph, .4, PaperLift::Rest, PaperEdge::Clean, TaskStamp::priority},
      {text, hex(1), PaperTheme::plain, .8, PaperLift::Rest, PaperEdge::Smoldering, TaskStamp::urgent},
      {text, hex(0), PaperTheme::construction, -.4, PaperLift::Rest, PaperEdge::Clean, TaskStamp::none},
      {text, hex(6), PaperTheme::lined, .4, PaperLift::Rest, PaperEdge::Clean, TaskStamp::focus},
      {text, hex(5), PaperTheme::parchment, -.8, PaperLift::Rest, PaperEdge::Clean, TaskStamp::idea},
      {text, hex(3), PaperTheme::construction, 1.2, PaperLift::Rest, PaperEdge::Clean, TaskStamp::none},
      {text, hex(2), PaperTheme::parchment, -1.6, PaperLift::Rest, PaperEdge::Clean, TaskStamp::none}};
  QPixmap page = sheet.start(QSize(872, 480));
  QPainter painter(&page);
  for (int i = 0; i < notes.size(); ++i) {
    drawCard(painter, QPointF(22 + 210 * (i % 4), 22 + 152 * (i / 4)), notes[i], static_cast<quint32>(i) * 7 + 5,
             sheet.scale);
  }
  painter.end();
  sheet.save(page, QStringLiteral("cards"));
}

// Every paper in every theme, under every stamp.
void papers(const Sheet& sheet) {
  QPixmap page = sheet.start(QSize(1020, 966));
  QPainter painter(&page);
  quint32 number = 0;
  for (const QString& hex : kPaperPalette) {
    for (const PaperTheme theme : kPaperThemes) {
      Note note{QStringLiteral("Return the drill to Ola next door"), hex, theme};
      note.stamp = kTaskStamps[number % kTaskStamps.size()];
      const QPoint place(200 * static_cast<int>(number % kPaperThemes.size()),
                         134 * static_cast<int>(number / kPaperThemes.size()));
      drawCard(painter, QPointF(24, 24) + place, note, number, sheet.scale);
      ++number;
    }
  }
  painter.end();
  sheet.save(page, QStringLiteral("papers"));
}

void moods(const Sheet& sheet) {
  struct Surface {
    BoardMood mood;
    GlassVariant glass;
  };
  const std::vector<Surface> surfaces{
      {BoardMood::obsidian, GlassVariant::soft},  {BoardMood::corkboard, GlassVariant::soft},
      {BoardMood::drafting, GlassVariant::soft},  {BoardMood::acrylic, GlassVariant::soft},
      {BoardMood::acrylic, GlassVariant::clear}, {BoardMood::acrylic, GlassVariant::dense}};
  QPixmap page = sheet.start(QSize(872, 1294));
  QPainter painter(&page);
  QLinearGradient bright(0, 0, 872, 0);
  bright.setColorAt(0, QColor(0x6E, 0x8B, 0x90));
  bright.setColorAt(1, QColor(0xD8, 0xB4, 0x8C));
  painter.fillRect(QRect(0, 0, 872, 1294), bright);
  int i = 0;
  for (const auto& [mood, glass] : surfaces) {
    const QPointF at(30 + 422 * (i % 2), 30 + 422 * (i / 2));
    painter.drawPixmap(at, BoardSurfaceView::pixmap(mood, glass, QSize(390, 390), sheet.scale));
    const Note ferry{QStringLiteral("Book the ferry back from the island for Sunday"),
                     kPaperPalette[static_cast<size_t>(i)], PaperTheme::plain, -.8};
    const Note jars{QStringLiteral("Rinse the jars"), QStringLiteral("#4CC9F0"), PaperTheme::graph, 1.2};
    drawCard(painter, at + QPointF(14, 84), ferry, static_cast<quint32>(i), sheet.scale);
    drawCard(painter, at + QPointF(201, 84), jars, static_cast<quint32>(i), sheet.scale);
    painter.fillRect(QRectF(at + QPointF(14, 220), QSizeF(362, 60)), BoardSurfaceView::plate(mood));
    painter.setClipPath(roundedBox(QRectF(at, QSizeF(390, 390)), BoardSurfaceView::kRadius, BoardSurfaceView::kRadius));
    painter.drawPixmap(at + QPointF(0, 390 - AshLedge::kHeight - AshLedge::kRise), AshLedge::pixmap(390, sheet.scale));
    painter.setClipping(false);
    paintPaperLabel(painter, QRectF(at + QPointF(14, 12), QSizeF(46, 26)), 5, -1.2);
    painter.setFont(tokens::font(tokens::Type::RowTitle));
    painter.setPen(QColor(tokens::kOnLabel));
    painter.drawText(QRectF(at + QPointF(14, 12), QSizeF(46, 26)), Qt::AlignCenter, QStringLiteral("All"));
    painter.setPen(QColor(tokens::kText2));
    painter.drawText(QRectF(at + QPointF(70, 12), QSizeF(76, 26)), Qt::AlignCenter, QStringLiteral("General"));
    painter.setFont(tokens::font(tokens::Type::Countdown));
    painter.setPen(QColor(tokens::kAmber));
    painter.drawText(at + QPointF(34, 58), QStringLiteral("3 burn in 2h 5m"));
    ++i;
  }
  painter.end();
  sheet.save(page, QStringLiteral("moods"));
}

void tornNotes(const Sheet& sheet) {
  struct Torn {
    QString hex;
    PaperTheme theme;
    double peel;
    double tilt;
    TaskStamp stamp;
    Qt::LayoutDirection direction;
  };
  const QList<Torn> notes{
      {QStringLiteral("#FFE169"), PaperTheme::plain, 28, -.9, TaskStamp::none, Qt::LeftToRight},
      {QStringLiteral("#4CC9F0"), PaperTheme::graph, 28, .45, TaskStamp::focus, Qt::LeftToRight},
      {QStringLiteral("#06D6A0"), PaperTheme::lined, 28, -.45, TaskStamp::none, Qt::LeftToRight},
      {QStringLiteral("#FFA647"), PaperTheme::parchment, 28, .9, TaskStamp::urgent, Qt::LeftToRight},
      {QStringLiteral("#FF7597"), PaperTheme::construction, 28, .45, TaskStamp::none, Qt::LeftToRight},
      {QStringLiteral("#C77DFF"), PaperTheme::lined, 44, -.9, TaskStamp::none, Qt::LeftToRight},
      {QStringLiteral("#3A86FF"), PaperTheme::plain, 36, .45, TaskStamp::none, Qt::LeftToRight},
      {QStringLiteral("#FFE169"), PaperTheme::lined, 44, 0, TaskStamp::none, Qt::RightToLeft}};
  QPixmap page = sheet.start(QSize(1120, 620));
  QPainter painter(&page);
  painter.fillRect(QRect(0, 0, 1120, 620), QColor(0x6E, 0x8B, 0x90));
  for (int i = 0; i < notes.size(); ++i) {
    const Torn& torn = notes[i];
    const QPointF at(14 + 276 * (i % 4), 14 + 282 * (i / 4));
    PaperSheet paper;
    paper.rect = QRectF(-115, 0, 230, 196);
    paper.colorHex = torn.hex;
    paper.theme = torn.theme;
    paper.kind = PaperKind::TornNote;
    paper.peel = torn.peel;
    paper.seed = static_cast<quint32>(i) + 3;
    paper.direction = torn.direction;
    painter.save();
    painter.translate(at + QPointF(125, 16));
    painter.rotate(torn.tilt);
    paper.paint(painter);
    write(painter, paper.rect.adjusted(torn.theme == PaperTheme::lined ? 28 : 14, 22, -14, 0),
          QStringLiteral("Book the ferry back from the island for Sunday, before noon"), Color::inkOnPaper(torn.hex),
          tokens::Type::NoteText, 20);
    StampBadgeView::paint(painter, torn.stamp, QPointF(35, 170), -6);
    painter.restore();
    WashiTapeView::paint(painter, QRectF(at + QPointF(84, 3), QSizeF(82, 24)), torn.hex, static_cast<quint32>(i), -1.5);
  }
  PaperSheet tab;
  tab.rect = QRectF(20, 572, 202, 38);
  tab.colorHex = QStringLiteral("#3A86FF");
  tab.kind = PaperKind::Tab;
  tab.paint(painter);
  WashiTapeView::paint(painter, QRectF(200, 579, 26, 24), tab.colorHex, 4, 3);
  painter.end();
  sheet.save(page, QStringLiteral("torn"));
}

// Shows a control in a state without a pointer or a keyboard at hand.
QPixmap posed(QWidget& control, const Sheet& sheet, const std::function<void()>& pose) {
  QWidget ground;
  QPalette dark = ground.palette();
  dark.setColor(QPalette::Window, QColor(0x1B, 0x1C, 0x21));
  ground.setPalette(dark);
  control.setParent(&ground);
  const QSize size = control.sizeHint().expandedTo(QSize(28, 24));
  control.setGeometry(QRect(QPoint(18, 14), size));
  ground.resize(size + QSize(36, 32));
  ground.show();
  ground.activateWindow();
  QApplication::processEvents();
  pose();
  QPixmap shot(ground.size() * sheet.scale);
  shot.setDevicePixelRatio(sheet.scale);
  ground.render(&shot);
  control.setParent(nullptr);
  return shot;
}

void hover(QWidget& control) {
  QEnterEvent enter(QPointF(4, 4), QPointF(4, 4), QPointF(4, 4));
  QCoreApplication::sendEvent(&control, &enter);
  QHoverEvent over(QEvent::HoverEnter, QPointF(4, 4), QPointF(4, 4), QPointF(-1, -1));
  QCoreApplication::sendEvent(&control, &over);
}

void controls(const Sheet& sheet) {
  QPixmap page = sheet.start(QSize(900, 560));
  QPainter painter(&page);
  painter.fillRect(QRect(0, 0, 900, 560), QColor(0x1B, 0x1C, 0x21));
  double x = 10;
  double y = 8;
  const auto place = [&](const QPixmap& shot) {
    const QSizeF size = shot.deviceIndependentSize();
    if (x + size.width() > 890) {
      x = 10;
      y += 62;
    }
    painter.drawPixmap(QPointF(x, y), shot);
    x += size.width() + 8;
  };
  const auto states = [&](const std::function<QAbstractButton*()>& make) {
    const auto shoot = [&](const std::function<void(QAbstractButton&)>& pose) {
      std::unique_ptr<QAbstractButton> button(make());
      place(posed(*button, sheet, [&] { pose(*button); }));
    };
    shoot([](QAbstractButton& button) { button.clearFocus(); });
    shoot([](QAbstractButton& button) {
      button.setAttribute(Qt::WA_UnderMouse);
      hover(button);
      button.clearFocus();
    });
    shoot([](QAbstractButton& button) {
      button.clearFocus();
      button.setDown(true);
      hover(button);
    });
    shoot([](QAbstractButton& button) {
      button.window()->activateWindow();
      button.setFocus();
      QApplication::processEvents();
    });
    shoot([](QAbstractButton& button) {
      button.setCheckable(true);
      button.setChecked(true);
      button.clearFocus();
    });
    shoot([](QAbstractButton& button) { button.setEnabled(false); });
    x = 10;
    y += 62;
  };
  states([] { return new PrimaryButton(QStringLiteral("Stick Note"), QStringLiteral("pin")); });
  states([] { return new ToolButton(QStringLiteral("search"), QStringLiteral("Search")); });
  states([] {
    auto* chip = new ToolButton(QStringLiteral("calendar"), QStringLiteral("Due date"), ToolButton::Plate::Chip);
    chip->setText(QStringLiteral("Due Date"));
    return chip;
  });
  states([] { return new SwitchButton(QStringLiteral("Paper sounds")); });
  KeyCaps caps(QStringLiteral("⌘ ⇧ T ⌫ ← ↵ Ctrl").split(QLatin1Char(' ')));
  place(posed(caps, sheet, [] {}));
  PrimaryButton plus(QString(), QStringLiteral("plus"));
  place(posed(plus, sheet, [] {}));
  QMenu menu;
  styleMenu(menu);
  menu.addAction(QStringLiteral("Always on Top"));
  menu.addSeparator();
  menu.addAction(QIcon(Symbols::pixmap(QStringLiteral("gear"), 16, QColor(tokens::kText2), sheet.scale)),
                 QStringLiteral("Settings"));
  menu.addAction(QStringLiteral("Search"), QKeySequence(Qt::CTRL | Qt::Key_F), &menu, [] {});
  menu.addMenu(QStringLiteral("Boards"));
  const auto shoot = [&](QMenu& shown, QAction* active, const QPointF& at) {
    shown.setActiveAction(active);
    shown.resize(shown.sizeHint());
    QPixmap shot(shown.size() * sheet.scale);
    shot.setDevicePixelRatio(sheet.scale);
    shot.fill(Qt::transparent);
    shown.render(&shot, QPoint(), QRegion(), QWidget::DrawChildren);
    painter.drawPixmap(at, shot);
  };
  shoot(menu, menu.actions().constLast(), QPointF(420, 330));
  QMenu choices;
  styleMenu(choices);
  for (const TaskStamp stamp : kTaskStamps) {
    QAction* choice = choices.addAction(label(stamp));
    choice->setCheckable(true);
    choice->setChecked(stamp == TaskStamp::focus || stamp == TaskStamp::star);
  }
  choices.actions().at(1)->setEnabled(false);
  shoot(choices, choices.actions().at(4), QPointF(700, 330));
  painter.end();
  sheet.save(page, QStringLiteral("controls"));
}

void symbols(const Sheet& sheet) {
  const QIcon program = Symbols::applicationIcon();
  const QStringList names = QDir(QStringLiteral(":/symbols")).entryList();
  QPixmap page = sheet.start(QSize(13 * 60, 6 * 60 + 80));
  QPainter painter(&page);
  for (int i = 0; i < names.size(); ++i) {
    Symbols::paint(painter, names[i].chopped(4), QRectF(20 + 58 * (i % 13), 16 + 44 * (i / 13), 24, 24),
                   QColor(tokens::kText));
  }
  double x = 20;
  for (const int side : {16, 18, 22, 24, 32, 48, 128}) {
    painter.drawPixmap(QPointF(x, 250), program.pixmap(QSize(side, side), sheet.scale));
    const int glyph = std::min(side, 48);
    painter.drawPixmap(QPointF(x, 390), Symbols::trayIcon().pixmap(QSize(glyph, glyph), sheet.scale));
    x += side + 16;
  }
  int i = 0;
  for (const TaskStamp stamp : kTaskStamps) {
    StampBadgeView::paint(painter, stamp, QPointF(430 + 110 * (i % 3), 290 + 40 * (i / 3)), -6);
    ++i;
  }
  painter.end();
  sheet.save(page, QStringLiteral("symbols"));
}

void shred(const Sheet& sheet) {
  QPixmap note(QSize(250, 230) * sheet.scale);
  note.setDevicePixelRatio(sheet.scale);
  note.fill(Qt::transparent);
  {
    QPainter into(&note);
    PaperSheet paper;
    paper.rect = QRectF(10, 16, 230, 196);
    paper.colorHex = QStringLiteral("#FF7597");
    paper.kind = PaperKind::TornNote;
    paper.peel = 28;
    paper.hasShadow = false;
    paper.paint(into);
    write(into, QRectF(24, 38, 200, 100), QStringLiteral("Book the ferry back from the island for Sunday"),
          Color::inkOnPaper(paper.colorHex), tokens::Type::NoteText, 20);
    WashiTapeView::paint(into, QRectF(84, 3, 82, 24), paper.colorHex, 5, -1.5);
  }
  QPixmap page = sheet.start(QSize(1120, 520));
  QPainter painter(&page);
  painter.fillRect(QRect(0, 0, 1120, 520), QColor(0x6E, 0x8B, 0x90));
  const QList<double> moments{0, .06, .25, .40, .58, .66, .76, .88};
  for (int i = 0; i < moments.size(); ++i) {
    PaperShredView::paint(painter, QRectF(14 + 276 * (i % 4), 14 + 250 * (i / 4), 250, 230), note, -1.2, moments[i]);
  }
  painter.end();
  sheet.save(page, QStringLiteral("shred"));
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() != 2 || !QDir().mkpath(arguments.at(1))) {
    std::fputs("usage: tarnwick-gallery FOLDER\n", stderr);
    return 2;
  }
  for (const double scale : {1.0, 1.5, 2.0}) {
    const Sheet sheet{arguments.at(1), scale};
    cards(sheet);
    papers(sheet);
    moods(sheet);
    tornNotes(sheet);
    controls(sheet);
    symbols(sheet);
    shred(sheet);
  }
  return 0;
}
