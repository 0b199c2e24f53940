// SPDX-License-Identifier: MIT
// One note on the wall, made while it is visible: its rules, its picture, its crush, and what lies where on it.
#pragma once

#include "board/BoardServices.h"
#include "board/CardFace.h"
#include "board/Glide.h"
#include "board/NoteCrush.h"
#include "effects/Ahead.h"
#include "model/Task.h"
#include "platform/DesktopGeometry.h"

#include <QObject>

#include <functional>
#include <memory>

namespace tarnwick {

/// What a press on a card meets.
enum class CardPart { None, Paper, Circle, Box, Edit, ChangeColor, Daily3, TearOff };

class TaskStickyCard final : public QObject {
  Q_OBJECT

 public:
  /// How the board shows its cards now.
  struct Appearance {
    QString mark;  // what the search found
    Qt::LayoutDirection direction = Qt::LeftToRight;
    bool hasMoreContrast = false;
    bool operator==(const Appearance&) const = default;
  };
  struct Hit {
    CardPart part = CardPart::None;
    int line = -1;  // of the text, for a box
  };

  TaskStickyCard(const BoardServices& services, TaskPtr task, std::function<DesktopRect()> screenFrame,
                 QObject* parent = nullptr);

  [[nodiscard]] const TaskPtr& task() const { return m_task; }
  [[nodiscard]] double naturalAngle() const;
  [[nodiscard]] bool isSmoldering() const;
  [[nodiscard]] bool isOverdue(const QDateTime& due) const;
  [[nodiscard]] double hoursUntilMidnight() const;
  [[nodiscard]] QString dueLabel(const QDateTime& date) const;
  void toggleDaily3();
  void cycleColor();
  void setTag(TaskTag tag);
  void toggleLine(int line);
  /// Begins the crush, or aborts the one that runs.
  void crush() { m_crush.crush(); }
  void abortCrush();
  [[nodiscard]] bool isCrushing() const { return m_crush.isCrushing(); }

  void setAppearance(const Appearance& appearance);
  /// Reads note, settings and clock anew; true when the picture is another.
  bool refresh();
  [[nodiscard]] const CardFace& face() const { return m_face; }
  /// Cached per lift and scale.
  [[nodiscard]] const QPixmap& pixmap(PaperLift lift, double scale);
  /// A card at rest as it hangs on the wall, turned about `pivot()` by degrees; its corner in the card's own coordinates.
  struct Posed {
    QPixmap pixmap;
    QPointF corner;
    double angle = 0;
    double scale = 0;
  };
  /// Cached per angle and scale.
  [[nodiscard]] const Posed& posed(double angle, double scale);
  /// Work for another thread, after which `posed()` is ready; empty when there is none, or none that other threads can do.
  [[nodiscard]] std::function<void()> poseAhead(double angle, double scale);
  /// Where the pin is that a card turns about.
  [[nodiscard]] static QPointF pivot() { return {CardFace::kWidth * 0.5, CardFace::kHeight * 0.4}; }
  /// A point in the card's own coordinates, upright.
  [[nodiscard]] Hit hit(const QPointF& point) const;
  [[nodiscard]] QString accessibleName() const;
  /// What the bar's tool says: "Edit", "Change colour", ...
  [[nodiscard]] QString partName(CardPart part) const;

  // Moved by the wall.
  Glide lift{0};
  Glide tools{0};
  Glide opacity{1};

 Q_SIGNALS:
  void crushingChanged();
  void crushAborted();

 private:
  [[nodiscard]] CardFace currentFace() const;
  [[nodiscard]] QImage paper() const;
  void save();

  const BoardServices& m_services;
  TaskPtr m_task;
  NoteCrush m_crush;
  Appearance m_appearance;
  CardFace m_face;
  QString m_faceKey;
  mutable std::unique_ptr<StickyChecklistBody> m_body;  // for hits; made at the first
  struct Cached {
    QPixmap pixmap;
    double scale = 0;
  };
  Cached m_rest;
  Cached m_raised;
  Posed m_posed;
  struct PosedAhead {
    double angle = 0;
    double scale = 0;
    std::shared_ptr<Ahead<Posed>> picture;
  };
  PosedAhead m_posedAhead;
};

}  // namespace tarnwick
