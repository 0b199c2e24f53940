// SPDX-License-Identifier: MIT
#include "board/TaskStickyCard.h"

#include "board/CardRules.h"
#include "effects/PixmapCache.h"
#include "effects/SoundEngine.h"
#include "model/Color.h"
#include "model/StickyChecklist.h"
#include "model/store/ModelContainer.h"
#include "platform/Clock.h"
#include "platform/Workspace.h"

#include <QDir>
#include <QImage>
#include <QPainter>

#include <cmath>
#include <utility>

namespace tarnwick {

namespace {

// From any thread.
TaskStickyCard::Posed pose(const CardFace& shown, double angle, double scale) {
  const QPointF pivot = TaskStickyCard::pivot();
  QTransform turn;
  turn.translate(pivot.x(), pivot.y());
  turn.rotate(angle);
  turn.translate(-pivot.x(), -pivot.y());
  constexpr double kMargin = CardFace::kRestMargin;
  const QRectF face(-kMargin, -kMargin, CardFace::kWidth + 2 * kMargin, CardFace::kHeight + 2 * kMargin);
  const QRect bounds = turn.mapRect(face).toAlignedRect();
  TaskStickyCard::Posed posed{clearPixmap(bounds.size(), scale), bounds.topLeft(), angle, scale};
  QPainter painter(&posed.pixmap);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.translate(-bounds.topLeft());
  painter.setTransform(turn, true);
  painter.drawPixmap(face.topLeft(), shown.pixmap(PaperLift::Rest, scale));  // nothing is at its edges to be smoothed
  painter.setRenderHint(QPainter::Antialiasing);
  CardParts::paintCrushCircle(painter, shown.circleCenter(), CardFace::kCircleDiameter, shown.ink(), CircleState::Rest);
  return posed;
}

}  // namespace

TaskStickyCard::TaskStickyCard(const BoardServices& services, TaskPtr task, std::function<DesktopRect()> screenFrame,
                               QObject* parent)
    : QObject(parent),
      m_services(services),
      m_task(std::move(task)),
      m_crush(services, m_task, NoteCrush::Card{std::move(screenFrame), [this] { return paper(); }}) {
  connect(&m_crush, &NoteCrush::isCrushingChanged, this, &TaskStickyCard::crushingChanged);
  connect(&m_crush, &NoteCrush::aborted, this, &TaskStickyCard::crushAborted);
  m_face = currentFace();
  m_faceKey = m_face.key();
}

QImage TaskStickyCard::paper() const {
  const double margin = CardFace::margin(m_raised.pixmap.isNull() ? PaperLift::Rest : PaperLift::Raised);
  QPixmap face = m_raised.pixmap.isNull() ? m_rest.pixmap : m_raised.pixmap;
  if (face.isNull() && !m_posed.pixmap.isNull()) face = m_face.pixmap(PaperLift::Rest, m_posed.scale);
  if (face.isNull()) return {};
  const double scale = face.devicePixelRatio();
  const QRectF sheet(margin * scale, margin * scale, CardFace::kWidth * scale, CardFace::kHeight * scale);
  QImage image = face.toImage().copy(sheet.toRect());
  image.setDevicePixelRatio(scale);
  QPainter painter(&image);
  CardParts::paintCrushCircle(painter, m_face.circleCenter(), CardFace::kCircleDiameter, m_face.ink(), CircleState::Rest);
  return image;
}

double TaskStickyCard::naturalAngle() const {
  return tarnwick::naturalAngle(m_task->id());
}

bool TaskStickyCard::isSmoldering() const {
  return tarnwick::isSmoldering(*m_task, dailyBurn(m_services.defaults), m_services.clock.now(),
                                Calendar::of(m_services.clock));
}

bool TaskStickyCard::isOverdue(const QDateTime& due) const {
  return tarnwick::isOverdue(*m_task, due, m_services.clock.now(), Calendar::of(m_services.clock));
}

double TaskStickyCard::hoursUntilMidnight() const {
  return tarnwick::hoursUntilMidnight(m_services.clock.now(), Calendar::of(m_services.clock));
}

QString TaskStickyCard::dueLabel(const QDateTime& date) const {
  return tarnwick::dueLabel(date, m_services.clock.now(), Calendar::of(m_services.clock));
}

void TaskStickyCard::toggleDaily3() {
  tarnwick::toggleDaily3(*m_task);
  save();
  m_services.sound.playStick();
}

void TaskStickyCard::cycleColor() {
  tarnwick::cycleColor(*m_task);
  save();
  m_services.sound.playStick();
}

void TaskStickyCard::setTag(TaskTag tag) {
  m_task->set(&TaskRecord::tagRaw, rawValue(tag));
  save();
}

void TaskStickyCard::toggleLine(int line) {
  StickyChecklistBody::toggleLine(*m_task, line, m_services.container.mainContext());
}

void TaskStickyCard::save() {
  (void)m_services.container.mainContext().save();  // unwritten changes go with the next save
}

void TaskStickyCard::abortCrush() {
  if (m_crush.isCrushing()) m_crush.abort();
}

void TaskStickyCard::setAppearance(const Appearance& appearance) {
  if (appearance == m_appearance) return;
  m_appearance = appearance;
  refresh();
}

CardFace TaskStickyCard::currentFace() const {
  CardFace face;
  const Task& task = *m_task;
  face.text = task.text();
  face.colorHex = task.colorHex();
  face.theme = task.paperTheme();
  face.stamp = task.stamp();
  face.tag = task.tag();
  if (const auto& due = task.dueDate()) {
    face.due = CardParts::DueLabel{dueLabel(*due), isOverdue(*due), task.recurrence() != Recurrence::none};
  }
  if (const auto& app = task.record().pinnedBundleID; app && !app->isEmpty()) {
    face.appID = *app;
    face.appIcon = m_services.workspace.identity(*app).second;
  }
  if (const auto& repository = task.record().gitRepoPath) face.repository = QDir(*repository).dirName();
  face.isPrivate = task.isPrivate();
  face.isDaily3 = task.isDaily3();
  face.isSmoldering = isSmoldering();
  face.seed = paperSeed(task.id());
  face.mark = m_appearance.mark;
  face.direction = m_appearance.direction;
  face.hasMoreContrast = m_appearance.hasMoreContrast;
  return face;
}

bool TaskStickyCard::refresh() {
  CardFace face = currentFace();
  QString key = face.key();
  if (key == m_faceKey) return false;
  m_face = std::move(face);
  m_faceKey = std::move(key);
  m_rest = {};
  m_raised = {};
  m_posed = {};
  m_posedAhead = {};
  m_body.reset();
  return true;
}

const QPixmap& TaskStickyCard::pixmap(PaperLift paperLift, double scale) {
  Cached& cached = paperLift == PaperLift::Raised ? m_raised : m_rest;
  if (cached.pixmap.isNull() || cached.scale != scale) cached = {m_face.pixmap(paperLift, scale), scale};
  return cached.pixmap;
}

const TaskStickyCard::Posed& TaskStickyCard::posed(double angle, double scale) {
  if (!m_posed.pixmap.isNull() && m_posed.angle == angle && m_posed.scale == scale) return m_posed;
  const auto ahead = std::exchange(m_posedAhead, {});
  const bool isMeant = ahead.picture && ahead.angle == angle && ahead.scale == scale;
  m_posed = isMeant ? ahead.picture->take() : pose(m_face, angle, scale);
  return m_posed;
}

std::function<void()> TaskStickyCard::poseAhead(double angle, double scale) {
  // Icons are drawn by whatever serves their format, which knows the main thread alone.
  if (!m_posed.pixmap.isNull() || !m_face.appIcon.isNull()) return {};
  auto picture = std::make_shared<Ahead<Posed>>([face = m_face, angle, scale] { return pose(face, angle, scale); });
  m_posedAhead = {angle, scale, picture};
  return [picture] { picture->make(); };
}

TaskStickyCard::Hit TaskStickyCard::hit(const QPointF& point) const {
  if (!QRectF(0, 0, CardFace::kWidth, CardFace::kHeight).contains(point)) return {};
  if (m_face.circleHitRect().contains(point)) return {CardPart::Circle};
  if (tools.target() > 0) {
    static constexpr std::array kTools{CardPart::Edit, CardPart::ChangeColor, CardPart::Daily3, CardPart::TearOff};
    const QRectF bar = m_face.hoverBarRect();
    if (bar.contains(point)) {
      // The slots share the bar without gaps, so that no press falls between two tools.
      const int count = static_cast<int>(kTools.size());
      int index = std::clamp(static_cast<int>((point.x() - bar.left()) / bar.width() * count), 0, count - 1);
      if (m_face.direction == Qt::RightToLeft) index = count - 1 - index;
      return {kTools[static_cast<std::size_t>(index)]};
    }
  }
  if (StickyChecklist::hasChecklist(m_face.text)) {
    if (!m_body) m_body = std::make_unique<StickyChecklistBody>(m_face.body());
    const int line = m_body->checklistLineAt(point - m_face.bodyOrigin());
    if (line >= 0) return {CardPart::Box, line};
  }
  return {CardPart::Paper};
}

QString TaskStickyCard::accessibleName() const {
  QStringList words;
  QStringList lines;
  for (const QString& line : StickyChecklist::lines(m_face.text)) {
    const QString label = StickyChecklist::isChecklistLine(line) ? StickyChecklist::label(line) : line.trimmed();
    if (!label.isEmpty()) lines << label;
  }
  words << lines.join(QStringLiteral("; ")) << paperColorName(m_face.colorHex);
  if (m_face.due) {
    words << tr("due %1").arg(m_face.due->text);
    if (m_face.due->isOverdue) words << tr("overdue");
  }
  if (const auto progress = StickyChecklist::progress(m_face.text)) {
    words << tr("%1 of %2 done").arg(progress->done).arg(progress->total);
  }
  if (!m_face.repository.isEmpty()) words << tr("repository %1").arg(m_face.repository);
  if (m_face.isPrivate) words << tr("private");
  if (m_face.isDaily3) words << tr("daily three");
  if (m_face.isSmoldering) words << tr("burns tonight");
  return words.join(QStringLiteral(", "));
}

QString TaskStickyCard::partName(CardPart part) const {
  switch (part) {
    case CardPart::Circle:
      return tr("Crush note");
    case CardPart::Edit:
      return tr("Edit");
    case CardPart::ChangeColor:
      return tr("Change colour");
    case CardPart::Daily3:
      return tr("Add to daily three");
    case CardPart::TearOff:
      return tr("Tear off");
    case CardPart::None:
    case CardPart::Paper:
    case CardPart::Box:
      break;
  }
  return {};
}

}  // namespace tarnwick
