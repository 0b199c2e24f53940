// SPDX-License-Identifier: MIT
// Stand-ins for what the board calls: the flight, the desktop's notes, git.
#pragma once

#include "board/TornNotes.h"
#include "context/GitRunner.h"
#include "effects/CrushFlight.h"

#include <QStringList>

#include <map>
#include <set>

namespace tarnwick::test {

class FakeCrushFlight final : public CrushFlight {
 public:
  struct Play {
    DesktopRect from;
    QColor paper;
    QImage picture;
    Motion motion;
    std::function<void()> completion;
  };
  std::vector<Play> plays;
  bool landsAtOnce = false;

  int takenBack = 0;

  [[nodiscard]] Registration play(const DesktopRect& from, const QColor& paper, const QImage& picture, Motion motion,
                                  std::function<void()> completion) override {
    if (landsAtOnce) {
      completion();
      return {};
    }
    plays.push_back({from, paper, picture, motion, std::move(completion)});
    return Registration([this] { ++takenBack; });
  }
  /// The oldest flight reaches the Trash.
  void land() {
    auto first = std::move(plays.front());
    plays.erase(plays.begin());
    first.completion();
  }
};

class FakeTornNotes final : public TornNotes {
 public:
  std::set<QUuid> open;
  std::map<QUuid, std::optional<DesktopRect>> nearRects;
  int boardHides = 0;
  DesktopRect board{875, 374, 390, 390};

  void tearOffTask(const TaskPtr& task, const std::optional<DesktopRect>& near) override {
    open.insert(task->id());
    nearRects[task->id()] = near;
    task->set(&TaskRecord::isTornOff, true);
  }
  void closePanel(const QUuid& id) override { open.erase(id); }
  void redockTask(const TaskPtr& task) override {
    open.erase(task->id());
    task->set(&TaskRecord::isTornOff, false);
  }
  [[nodiscard]] bool isOpen(const QUuid& id) const override { return open.contains(id); }
  [[nodiscard]] DesktopRect boardFrame() const override { return board; }
  void hideBoard() override { ++boardHides; }
};

/// Answers by the arguments joined with blanks; what is not there fails.
class FakeGitRunner final : public GitRunner {
 public:
  std::map<QString, QString> answers;
  QStringList calls;
  bool answersAtOnce = true;
  std::vector<std::function<void()>> waiting;

  void run(const QStringList& arguments, Answer answer) override {
    const auto call = arguments.join(QLatin1Char(' '));
    calls.append(call);
    std::optional<QString> text;
    if (const auto found = answers.find(call); found != answers.end()) text = found->second;
    if (answersAtOnce) {
      answer(text);
    } else {
      waiting.push_back([answer = std::move(answer), text] { answer(text); });
    }
  }
};

}  // namespace tarnwick::test
