// SPDX-License-Identifier: MIT
// The three pages that greet a new user: how to open the board, how to crush a note, how a note finds the Trash.
#pragma once

#include "settings/WelcomeWindowController.h"

#include "platform/Registration.h"

#include <QPixmap>
#include <QPoint>
#include <QSize>
#include <QWidget>

#include <array>
#include <chrono>
#include <functional>
#include <optional>

namespace tarnwick {

class WelcomeButton;
class WelcomePrimaryButton;

class WelcomeView final : public QWidget {
  Q_OBJECT

 public:
  using Ports = WelcomeWindowController::Ports;
  static constexpr QSize kSize{440, 400};
  static constexpr int kPageCount = 3;

  WelcomeView(const Ports& ports, std::function<void()> onFinish, QWidget* parent = nullptr);
  ~WelcomeView() override;

  [[nodiscard]] int page() const { return m_page; }
  /// Whether other programs' trees can be read, as last polled.
  [[nodiscard]] bool isTrusted() const { return m_isTrusted; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void goTo(int page);
  void forward();
  void startSlide();
  void stepSlide(std::chrono::nanoseconds mediaTime);
  void readTrust();
  void openAccessibilitySettings();
  void refreshControls();
  void placeControls();

  void paintBackdrop(QPainter& painter) const;
  void paintPage(QPainter& painter, int page);
  void paintTrustLine(QPainter& painter) const;
  void paintMarks(QPainter& painter) const;
  [[nodiscard]] const QPixmap& picture(int page);

  Ports m_ports;
  std::function<void()> m_onFinish;
  int m_page = 0;
  bool m_isTrusted = false;

  // Positions are in pages: 0 is the first, 2 the last.
  double m_position = 0;
  double m_velocity = 0;  // pages per second
  double m_slideFrom = 0;
  double m_slideVelocity = 0;  // when the present turn began: a turn taken in flight keeps its speed
  std::optional<std::chrono::nanoseconds> m_slideStart;
  Registration m_slide;
  Registration m_poll;
  std::optional<QPoint> m_dragOffset;
  std::array<QPixmap, kPageCount> m_pictures;

  WelcomeButton* m_back = nullptr;
  WelcomeButton* m_openSettings = nullptr;
  WelcomePrimaryButton* m_forward = nullptr;
};

}  // namespace tarnwick
