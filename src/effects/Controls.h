// SPDX-License-Identifier: MIT
// The small controls that every screen shares: buttons, chips, switches, key caps. Each paints itself from the tokens,
// takes keyboard focus with a visible ring, and carries its accessible name.
#pragma once

#include <QAbstractButton>
#include <QString>
#include <QStringList>

namespace tarnwick {

/// A filled paper button with a word and an optional symbol before it.
class PrimaryButton final : public QAbstractButton {
  Q_OBJECT
 public:
  explicit PrimaryButton(const QString& text, const QString& symbol = {}, QWidget* parent = nullptr);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString m_symbol;
};

/// A word, a symbol or both on a quiet plate; a paper label while checked.
class ToolButton final : public QAbstractButton {
  Q_OBJECT
 public:
  enum class Plate { None, Chip };
  ToolButton(const QString& symbol, const QString& accessibleName, Plate plate = Plate::None, QWidget* parent = nullptr);
  void setSymbol(const QString& symbol);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString m_symbol;
  Plate m_plate;
};

class SwitchButton final : public QAbstractButton {
  Q_OBJECT
 public:
  explicit SwitchButton(const QString& accessibleName, QWidget* parent = nullptr);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// A row of rounded key glyphs.
class KeyCaps final : public QWidget {
  Q_OBJECT
 public:
  explicit KeyCaps(const QStringList& keys, QWidget* parent = nullptr);
  void setKeys(const QStringList& keys);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QStringList m_keys;
};

/// The ring around what has the keyboard.
void paintFocusRing(QPainter& painter, const QRectF& rect, double radius);
/// The cream label under a selected tab or a tool that is on.
void paintPaperLabel(QPainter& painter, const QRectF& rect, double radius, double angle = 0);
/// A dark rounded menu in the program's style.
void styleMenu(class QMenu& menu);

}  // namespace tarnwick
