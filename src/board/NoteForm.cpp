// SPDX-License-Identifier: MIT
#include "board/NoteForm.h"

#include "board/AppPinChip.h"
#include "board/CardRules.h"
#include "board/CaretRest.h"
#include "board/ChecklistEdit.h"
#include "board/DateBlock.h"
#include "board/InkButton.h"
#include "board/OptionChip.h"
#include "board/PaperSwatches.h"
#include "board/StickyMenu.h"
#include "effects/PaperSheet.h"
#include "effects/StampBadge.h"
#include "effects/Tokens.h"
#include "model/Color.h"
#include "platform/Clock.h"

#include <QPainter>
#include <QSignalBlocker>

namespace tarnwick {
namespace {

constexpr quint32 kSheetSeed = 3;
constexpr double kStampScale = 1.15;
constexpr int kLongestChoice = 440;  // a menu may be wider than the board

}  // namespace

NoteForm::NoteForm(const BoardServices& services, QWidget* parent)
    : QWidget(parent),
      m_services(services),
      m_text(new ChecklistEdit(this)),
      m_checklist(new InkButton(QStringLiteral("checklist"), tr("Checklist"), InkButton::Plate::Chip, this)),
      m_colors(new ColorSwatches(this)),
      m_themes(new ThemeChips(this)),
      m_due(new OptionChip(this)),
      m_repeat(new OptionChip(this)),
      m_stampChip(new OptionChip(this)),
      m_boardChip(new OptionChip(this)),
      m_app(new AppPinChip(services.context, services.workspace, services.sight, this)),
      m_private(new OptionChip(this)),
      m_dateBlock(new DateBlock(services.clock, this)) {
  const auto* caret = new CaretRest(services.clock, services.scheduler, m_text);
  m_text->setCaretSource([caret] { return caret->isCaretOn(); });
  m_text->setHint(tr("Write note on wall..."));
  m_text->setAccessibleName(tr("Note"));
  m_checklist->setToolTip(tr("Turn lines into tap-to-check boxes"));
  m_due->setSymbol(QStringLiteral("calendar"));
  m_repeat->setSymbol(QStringLiteral("repeat"));
  m_repeat->setTail(QStringLiteral("chevron"));
  m_stampChip->setSymbol(QStringLiteral("seal"));
  m_stampChip->setTail(QStringLiteral("chevron"));
  m_boardChip->setSymbol(QStringLiteral("board"));
  m_boardChip->setTail(QStringLiteral("chevron"));
  m_private->setCheckable(true);
  m_dateBlock->hide();

  connect(m_text, &QTextEdit::textChanged, this, [this] {
    const bool hasBoxes = m_text->hasBoxes();
    m_checklist->setText(hasBoxes ? tr("Add item") : tr("Checklist"));
    m_checklist->setAccessibleName(m_checklist->text());
    m_checklist->setSymbol(hasBoxes ? QStringLiteral("plus") : QStringLiteral("checklist"));
    layOut();
    Q_EMIT changed();
  });
  connect(m_text, &ChecklistEdit::submitted, this, &NoteForm::submitted);
  connect(m_text, &ChecklistEdit::cancelled, this, &NoteForm::cancelled);
  connect(m_checklist, &QAbstractButton::clicked, this, [this] {
    m_text->ensureChecklist();
    m_text->setFocus();
  });
  connect(m_colors, &ChoiceRow::chosen, this, [this] {
    m_draft.colorHex = m_colors->colorHex();
    refresh();
  });
  connect(m_themes, &ChoiceRow::chosen, this, [this] {
    m_draft.paperTheme = m_themes->theme();
    refresh();
  });
  connect(m_due, &QAbstractButton::clicked, this, [this] {
    if (!closeDateBlock()) openDateBlock();
  });
  connect(m_due, &OptionChip::tailClicked, m_dateBlock, &DateBlock::cleared);
  connect(m_dateBlock, &DateBlock::dateChanged, this, [this](const QDateTime& moment) {
    m_dueDate = moment;
    refresh();
  });
  connect(m_dateBlock, &DateBlock::cleared, this, [this] {
    m_dueEnabled = false;
    closeDateBlock();
    refresh();
  });
  connect(m_dateBlock, &DateBlock::closed, this, &NoteForm::closeDateBlock);
  connect(m_repeat, &QAbstractButton::clicked, this, &NoteForm::chooseRepeat);
  connect(m_stampChip, &QAbstractButton::clicked, this, &NoteForm::chooseStamp);
  connect(m_boardChip, &QAbstractButton::clicked, this, &NoteForm::chooseBoard);
  connect(m_app, &AppPinChip::pinChanged, this, [this] {
    m_draft.isPinnedToApp = m_app->pin() == AppPinChip::Pin::On;
    refresh();
  });
  connect(m_app, &AppPinChip::choicesAsked, this, &NoteForm::choosePins);
  connect(m_private, &QAbstractButton::clicked, this, [this] {
    m_draft.isPrivate = !m_draft.isPrivate;
    refresh();
  });
}

QList<QWidget*> NoteForm::stops() const {
  return {m_text, m_checklist, m_colors, m_themes, m_due, m_repeat, m_stampChip, m_boardChip, m_app, m_private};
}

void NoteForm::setDraft(const NoteDraft& draft, const QDateTime& dueDate,
                        const std::optional<QString>& pinnedBundleID) {
  m_draft = draft;
  m_dueEnabled = draft.dueDate.has_value();
  // A time that is picked is a whole minute, also where it is the proposed one.
  m_dueDate = draft.dueDate.value_or(dueDate.addMSecs(-(dueDate.toMSecsSinceEpoch() % 60000)));
  m_app->setPins(pinnedBundleID, draft.repository);
  m_dateBlock->hide();
  m_text->setNoteText(draft.text);
  refresh();
}

NoteDraft NoteForm::draft() const {
  NoteDraft draft = m_draft;
  draft.text = m_text->noteText();
  draft.dueDate = m_dueEnabled ? std::optional(m_dueDate) : std::nullopt;
  return draft;
}

QString NoteForm::dueText() const {
  const Calendar calendar = Calendar::of(m_services.clock);
  const QDateTime local = calendar.local(m_dueDate);
  // Seen from long before, a date reads as a date, never as today.
  const QString day = dueLabel(m_dueDate, m_dueDate.addDays(-40), calendar);
  if (local.time().hour() == 0 && local.time().minute() == 0) return day;  // a date without a time
  return QStringLiteral("%1, %2").arg(day, calendar.locale().toString(local.time(), QLocale::ShortFormat));
}

void NoteForm::refresh() {
  m_colors->setColorHex(m_draft.colorHex);
  m_themes->setTheme(m_draft.paperTheme);
  m_themes->setColorHex(m_draft.colorHex);
  const QColor ink = Color::inkOnPaper(m_draft.colorHex);
  m_text->setInk(ink);
  m_checklist->setInk(ink);

  m_due->setText(m_dueEnabled ? dueText() : tr("Due Date"));
  m_due->setAccessibleName(m_dueEnabled ? tr("Due Date: %1").arg(dueText()) : tr("Due Date"));
  m_due->setLook(m_dueEnabled ? OptionChip::Look::On : OptionChip::Look::Off);
  m_due->setTail(m_dueEnabled ? QStringLiteral("close") : QStringLiteral("plus"));

  const Recurrence recurrence = fromRawValue<Recurrence>(m_draft.recurrenceRaw).value_or(Recurrence::none);
  m_repeat->setText(label(recurrence));
  m_repeat->setAccessibleName(tr("Repeat: %1").arg(label(recurrence)));
  m_repeat->setLook(recurrence == Recurrence::none ? OptionChip::Look::Rest : OptionChip::Look::On);

  m_stampChip->setText(label(m_draft.stamp));
  m_stampChip->setAccessibleName(tr("Stamp: %1").arg(label(m_draft.stamp)));
  m_stampChip->setLook(m_draft.stamp == TaskStamp::none ? OptionChip::Look::Rest : OptionChip::Look::On);

  m_boardChip->setText(m_draft.board);
  m_boardChip->setAccessibleName(tr("Board: %1").arg(m_draft.board));

  m_app->setPin(m_draft.isPinnedToApp ? AppPinChip::Pin::On : AppPinChip::Pin::Off);
  m_app->setRepository(m_draft.repository);

  m_private->setText(tr("Private"));
  m_private->setAccessibleName(tr("Private"));
  m_private->setSymbol(m_draft.isPrivate ? QStringLiteral("lock") : QStringLiteral("lockOpen"));
  m_private->setLook(m_draft.isPrivate ? OptionChip::Look::On : OptionChip::Look::Off);
  m_private->setChecked(m_draft.isPrivate);
  m_private->setToolTip(m_draft.isPrivate ? tr("Private: hidden from screen sharing, screenshots and recordings")
                                          : tr("Make private: hide from screen sharing, screenshots and recordings"));
  m_private->setAccessibleDescription(m_private->toolTip());
  layOut();
  update();
}

void NoteForm::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  layOut();
}

void NoteForm::layOut() {
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const auto place = [&](QWidget* widget, double x, double y, double w, double h) {
    widget->setGeometry(QRectF(isMirrored ? width() - x - w : x, y, w, h).toRect());
  };
  const QRectF sheet = sheetRect();
  const bool isLined = m_draft.paperTheme == PaperTheme::lined;
  const bool isMounted = m_draft.paperTheme == PaperTheme::construction;
  const double lead = isLined ? 29 : 16;
  const double top = isLined ? 9 : 13;
  place(m_text, sheet.left() + lead, sheet.top() + top, sheet.width() - lead - 14, 100);
  const QSize chip = m_checklist->sizeHint();
  place(m_checklist,
        sheet.left() + (isLined     ? 26
                        : isMounted ? 15
                                    : 11),
        sheet.bottom() - (isMounted ? 14 : 10) - 24, chip.width(), 24);
  const QSize colors = m_colors->sizeHint();
  const QSize themes = m_themes->sizeHint();
  const int margin = ColorSwatches::kMargin;
  place(m_colors, 14 - margin, 215 - margin, colors.width(), colors.height());
  place(m_themes, width() - 14 + margin - themes.width(), 215 - margin, themes.width(), themes.height());
  QWidget* const chips[] = {m_due, m_repeat, m_stampChip, m_boardChip, m_app, m_private};
  for (int i = 0; i < 6; ++i) place(chips[i], i % 2 ? 199 : 14, 252 + 43 * (i / 2), 177, 36);
  place(m_dateBlock, 14 - DateBlock::kMargin, 58 - DateBlock::kMargin, m_dateBlock->width(), m_dateBlock->height());
}

void NoteForm::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  PaperSheet sheet;
  sheet.rect = sheetRect();
  sheet.colorHex = m_draft.colorHex;
  sheet.theme = m_draft.paperTheme;
  sheet.kind = PaperKind::EditorSheet;
  sheet.lift = PaperLift::Raised;
  sheet.seed = kSheetSeed;
  sheet.direction = layoutDirection();
  sheet.paint(painter);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  if (m_draft.stamp != TaskStamp::none) {
    const QSizeF badge = StampBadgeView::size(m_draft.stamp) * kStampScale;
    const double x =
        isMirrored ? sheet.rect.left() + 16 + badge.width() / 2 : sheet.rect.right() - 16 - badge.width() / 2;
    painter.save();
    painter.translate(x, sheet.rect.bottom() - 16 - badge.height() / 2);
    painter.scale(kStampScale, kStampScale);
    StampBadgeView::paint(painter, m_draft.stamp, {0, 0}, -6);
    painter.restore();
  }
  painter.fillRect(QRectF(isMirrored ? width() - 223 : 222, 217, 1, 18), tokens::white(0.16));
}

void NoteForm::openDateBlock() {
  if (!m_dueEnabled) {
    m_dueEnabled = true;
    refresh();
    Q_EMIT changed();
  }
  m_dateBlock->setDate(m_dueDate);
  m_dateBlock->show();
  m_dateBlock->raise();
  if (m_due->hasFocus()) m_dateBlock->takeFocus();
}

bool NoteForm::isDateBlockOpen() const {
  return !m_dateBlock->isHidden();
}

bool NoteForm::closeDateBlock() {
  if (!isDateBlockOpen()) return false;
  const QWidget* focused = focusWidget();
  const bool hadFocus = focused && m_dateBlock->isAncestorOf(focused);
  m_dateBlock->hide();
  if (hadFocus) m_due->setFocus();
  return true;
}

void NoteForm::popUp(StickyMenu* menu, QWidget* under) {
  closeDateBlock();
  const QSize size = menu->sizeHint();
  // Above the chip where below it the board ends.
  const QPoint below = under->mapToGlobal(QPoint(0, under->height() + 4));
  const bool fitsBelow = under->y() + under->height() + 4 + size.height() <= height() + 60;
  const QPoint above = under->mapToGlobal(QPoint(0, -4 - size.height()));
  menu->popup(fitsBelow ? below : above);
}

void NoteForm::chooseRepeat() {
  auto* menu = new StickyMenu(this);
  menu->setHeading(tr("Repeat"), QStringLiteral("repeat"));
  const auto current = fromRawValue<Recurrence>(m_draft.recurrenceRaw).value_or(Recurrence::none);
  for (const Recurrence recurrence : kRecurrences) {
    connect(menu->addChoice(label(recurrence), recurrence == current), &QAction::triggered, this, [this, recurrence] {
      m_draft.recurrenceRaw = rawValue(recurrence);
      refresh();
    });
  }
  popUp(menu, m_repeat);
}

void NoteForm::chooseStamp() {
  auto* menu = new StickyMenu(this);
  menu->setHeading(tr("Stamp"), QStringLiteral("seal"));
  for (const TaskStamp stamp : kTaskStamps) {
    connect(menu->addStamp(stamp, stamp == m_draft.stamp), &QAction::triggered, this, [this, stamp] {
      m_draft.stamp = stamp;
      refresh();
    });
  }
  popUp(menu, m_stampChip);
}

void NoteForm::chooseBoard() {
  auto* menu = new StickyMenu(this);
  menu->setHeading(tr("Board"), QStringLiteral("board"));
  QStringList names = m_boards;
  if (!names.contains(m_draft.board)) names.append(m_draft.board);
  for (const QString& name : names) {
    connect(menu->addChoice(name, name == m_draft.board), &QAction::triggered, this, [this, name] {
      m_draft.board = name;
      refresh();
    });
  }
  popUp(menu, m_boardChip);
}

void NoteForm::choosePins() {
  const auto offered = m_app->offeredRepository();
  if (!offered) return;
  auto* menu = new StickyMenu(this);
  menu->setHeading(tr("Show only with"), QStringLiteral("pin"));
  if (const QString name = m_app->applicationName(); !name.isEmpty()) {
    connect(menu->addChoice(name, m_draft.isPinnedToApp), &QAction::triggered, this, [this] {
      m_draft.isPinnedToApp = !m_draft.isPinnedToApp;
      refresh();
    });
  }
  const QString choice = menu->fontMetrics().elidedText(AppPinChip::choiceText(*offered), Qt::ElideMiddle, kLongestChoice);
  connect(menu->addChoice(choice, m_draft.repository.has_value()), &QAction::triggered, this, [this, offered] {
    m_draft.repository = m_draft.repository ? std::nullopt : offered;
    refresh();
  });
  popUp(menu, m_app);
}

}  // namespace tarnwick
