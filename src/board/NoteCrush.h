// SPDX-License-Identifier: MIT
// The crush of one note, seen from the card or the torn note that shows it. Sound and tap come at once, the record
// changes when the paper has landed; a second request before that aborts. Whoever goes takes its running crush along.
#pragma once

#include "board/BoardServices.h"
#include "model/Task.h"
#include "platform/DesktopGeometry.h"
#include "platform/Registration.h"
#include "platform/Result.h"

#include <QImage>
#include <QObject>

#include <functional>
#include <optional>
#include <variant>

namespace tarnwick {

class NoteCrush final : public QObject {
  Q_OBJECT

 public:
  /// What a card on the board gives. `picture` may be left out.
  struct Card {
    std::function<DesktopRect()> screenFrame;
    std::function<QImage()> picture;
  };
  /// What a note on the desktop gives. `picture` may be left out.
  struct TornNote {
    /// Nothing when the note has no window.
    std::function<std::optional<DesktopRect>()> windowFrame;
    std::function<DesktopPoint()> pointer;
    std::function<QImage()> picture;
    /// Closes the note's window after a crush that finished it.
    std::function<void()> onRedock;
    /// Makes the window fully transparent; called when the flying sheet lies over it.
    std::function<void()> hideWindow = {};
  };

  NoteCrush(const BoardServices& services, TaskPtr task, Card card, QObject* parent = nullptr);
  NoteCrush(const BoardServices& services, TaskPtr task, TornNote torn, QObject* parent = nullptr);

  [[nodiscard]] bool isCrushing() const { return m_isCrushing; }
  /// A torn note that is shredded in place instead of flown.
  [[nodiscard]] bool isShredding() const { return m_isCrushing && m_isShredding; }
  /// What the crush control and the keyboard call: begins, or aborts what runs.
  void crush();
  void begin();
  /// The note stays as it is, what still flies goes from the screen, and a window that the crush had closed opens again.
  void abort();

 Q_SIGNALS:
  void isCrushingChanged();
  /// The user took the crush back while it ran; the view fades the note in again within 0.2 s.
  void aborted();

 private:
  void beginCard(const Card& card);
  void beginTorn(const TornNote& torn);
  void fly(const DesktopRect& from, const QImage& picture, std::function<void()> landed);
  /// The callback, unless the crush was aborted or this object is gone by then.
  [[nodiscard]] std::function<void()> ifStillWanted(std::function<void()> work);
  /// Finished, burned or deleted by something else while the paper flew.
  [[nodiscard]] bool isOver() const;
  void finishCard(bool wasTornOff, const std::optional<QDateTime>& previousDueDate);
  void finishTorn(const std::function<void()>& onRedock);
  void setCrushing(bool isCrushing);

  const BoardServices& m_services;
  TaskPtr m_task;
  std::variant<Card, TornNote> m_view;
  bool m_isCrushing = false;
  bool m_isShredding = false;
  bool m_hasClosedWindow = false;  // of the note on the desktop
  quint64 m_generation = 0;  // of the crush under way
  Registration m_crushWorkItem;
  Registration m_flight;
};

/// The same crush without sound, tap and flight, for the command line; true when a repeating note was moved on. After a
/// failed save the note is as it was and nothing was told.
Result<bool> crushAtOnce(const BoardServices& services, Task& task);

}  // namespace tarnwick
