// SPDX-License-Identifier: MIT
// The wall as assistive technology sees it: a list of notes, each with its crush control and tools.
// Items are made when they are asked for; the wall itself is asked for everything they say.
#pragma once

#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>
#include <QUuid>

namespace tarnwick {

class NoteWall;

class NoteWallAccessible final : public QAccessibleWidget {
 public:
  explicit NoteWallAccessible(NoteWall* wall);
  ~NoteWallAccessible() override;
  /// Makes walls known to the accessibility framework; once is enough.
  static void install();
  static void notesChanged(NoteWall& wall);
  static void selectionChanged(NoteWall& wall, int index);

  [[nodiscard]] int childCount() const override;
  [[nodiscard]] QAccessibleInterface* child(int index) const override;
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
  [[nodiscard]] QAccessibleInterface* focusChild() const override;

 private:
  [[nodiscard]] NoteWall* wall() const;
  void forget();
  void forgetGone();

  mutable QHash<QUuid, QAccessible::Id> m_items;
};

}  // namespace tarnwick
