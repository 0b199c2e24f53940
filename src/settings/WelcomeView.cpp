// SPDX-License-Identifier: MIT
#include "settings/WelcomeView.h"

#include "effects/Symbols.h"
#include "effects/Tokens.h"
#include "model/Color.h"
#include "settings/SettingsText.h"
#include "settings/WelcomeArt.h"
#include "settings/WelcomeButton.h"
#include "settings/WelcomePrimaryButton.h"

#include <QFontMetricsF>
#include <QKeyEvent>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <QUrl>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr double kRadius = 26;
constexpr int kEdge = 24;
constexpr int kButtonTop = 342;
constexpr int kTrustTop = 296;
constexpr int kTrustHeight = 32;
constexpr QRectF kTitle{30, 192, 380, 28};
constexpr QRectF kBody{44, 225, 352, 66};
constexpr double kMarksY = 360;

constexpr double kResponse = .4;  // seconds
constexpr double kDamping = .85;  // of critical
/// Below this a turn is over: less than a fifth of a pixel.
constexpr double kSettled = .0004;

struct Page {
  QString title;
  QString body;
  void (*paint)(QPainter&);
};

Page pageAt(int index) {
  switch (index) {
    case 0:
      return {WelcomeView::tr("Stick a thought, anywhere"),
              WelcomeView::tr("Press this from any app to open your board. The Tarnwick icon in the menu bar works too."),
              WelcomeArt::paintShortcut};
    case 1:
      return {WelcomeView::tr("Done? Crush it."),
              WelcomeView::tr("Click the circle on a note and it crumples into your Dock's Trash. Keyboard: arrow keys "
                              "to pick a note, ⌘⌫ to crush. ⌘Z undoes."),
              WelcomeArt::paintCrush};
    default:
      return {WelcomeView::tr("Let notes find the Trash"),
              WelcomeView::tr("Accessibility lets Tarnwick see where your Dock's Trash is, so the paper ball lands "
                              "inside it. Nothing is read from your apps or sent anywhere."),
              WelcomeArt::paintAccessibility};
  }
}

constexpr int kLastPage = WelcomeView::kPageCount - 1;

}  // namespace

WelcomeView::WelcomeView(const Ports& ports, std::function<void()> onFinish, QWidget* parent)
    : QWidget(parent),
      m_ports(ports),
      m_onFinish(std::move(onFinish)),
      m_isTrusted(ports.accessibility.isTrusted(AccessNeed::Tree)),
      m_back(new WelcomeButton(tr("Back"), {}, 36, this)),
      m_openSettings(new WelcomeButton(tr("Open Accessibility Settings"), u"hand"_s, kTrustHeight, this)),
      m_forward(new WelcomePrimaryButton(this)) {
  setFixedSize(kSize);
  setWindowTitle(tr("Tarnwick"));
  setObjectName(u"welcome"_s);
  setFocusPolicy(Qt::ClickFocus);
  connect(m_back, &QAbstractButton::clicked, this, [this] { goTo(m_page - 1); });
  connect(m_openSettings, &QAbstractButton::clicked, this, &WelcomeView::openAccessibilitySettings);
  connect(m_forward, &QAbstractButton::clicked, this, &WelcomeView::forward);
  setTabOrder(m_openSettings, m_back);
  setTabOrder(m_back, m_forward);
  refreshControls();
  // The view itself has the keyboard until Tab is pressed, and takes Return and Space for the forward button: no ring
  // greets who comes by the pointer.
  for (QWidget* button : {static_cast<QWidget*>(m_openSettings), static_cast<QWidget*>(m_back),
                          static_cast<QWidget*>(m_forward)}) {
    button->setFocusPolicy(Qt::TabFocus);
  }
  setFocus();
}

WelcomeView::~WelcomeView() = default;

void WelcomeView::forward() {
  if (m_page < kLastPage) {
    goTo(m_page + 1);
  } else {
    m_onFinish();
  }
}

void WelcomeView::goTo(int page) {
  m_page = std::clamp(page, 0, kLastPage);
  refreshControls();
  if (isVisible() && !m_ports.workspace.isMotionReduced()) {
    startSlide();
    return;
  }
  m_slide.cancel();
  m_position = m_page;
  m_velocity = 0;
  placeControls();
  update();
}

void WelcomeView::startSlide() {
  m_slideFrom = m_position;
  m_slideVelocity = m_velocity;
  m_slideStart.reset();
  m_slide = m_ports.scheduler.frames([this](std::chrono::nanoseconds mediaTime) { stepSlide(mediaTime); });
}

void WelcomeView::stepSlide(std::chrono::nanoseconds mediaTime) {
  if (!m_slideStart) m_slideStart = mediaTime;
  const double t = std::chrono::duration<double>(mediaTime - *m_slideStart).count();
  // A damped spring pulls the position to the page: x is the distance that is left.
  const double natural = 2 * std::numbers::pi / kResponse;
  const double damped = natural * std::sqrt(1 - kDamping * kDamping);
  const double decay = kDamping * natural;
  const double x0 = m_slideFrom - m_page;
  const double swing = (m_slideVelocity + decay * x0) / damped;
  const double fading = std::exp(-decay * t);
  const double cosine = std::cos(damped * t);
  const double sine = std::sin(damped * t);
  const double x = fading * (x0 * cosine + swing * sine);
  m_velocity = fading * ((swing * damped - decay * x0) * cosine - (x0 * damped + decay * swing) * sine);
  m_position = m_page + x;
  if (t > 0 && std::abs(x) < kSettled && std::abs(m_velocity) < 60 * kSettled) {
    m_position = m_page;
    m_velocity = 0;
    m_slide.cancel();
  }
  placeControls();
  update();
}

void WelcomeView::readTrust() {
  const bool isTrusted = m_ports.accessibility.isTrusted(AccessNeed::Tree);
  if (isTrusted == m_isTrusted) return;
  m_isTrusted = isTrusted;
  refreshControls();
  update();
}

void WelcomeView::openAccessibilitySettings() {
  m_ports.accessibility.requestTrust(TrustRequest::ByUser);
  // Where nothing opens such an address, the request was all there is to do.
  m_ports.workspace.openUrl(QUrl(u"x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility"_s));
}

void WelcomeView::refreshControls() {
  const auto page = pageAt(m_page);
  setAccessibleName(page.title);
  setAccessibleDescription(m_page == kLastPage && m_isTrusted ? page.body + u' ' + tr("Accessibility is on")
                                                              : page.body);
  const auto word = m_page == kLastPage ? tr("Start sticking") : tr("Next");
  m_forward->setText(word);
  m_forward->setAccessibleName(word);
  const bool mayAsk = m_page == kLastPage && !m_isTrusted && m_ports.accessibility.traits().isAvailable;
  // A hidden widget loses the keyboard: hand it on before.
  if ((m_page == 0 && m_back->hasFocus()) || (!mayAsk && m_openSettings->hasFocus())) m_forward->setFocus();
  m_back->setVisible(m_page > 0);
  m_openSettings->setVisible(mayAsk);
  placeControls();
}

void WelcomeView::placeControls() {
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const auto place = [&](QWidget& widget, int x, int y) {
    const auto size = widget.sizeHint();
    widget.setGeometry(isMirrored ? width() - x - size.width() : x, y, size.width(), size.height());
  };
  place(*m_back, kEdge, kButtonTop);
  place(*m_forward, width() - kEdge - m_forward->sizeHint().width(), kButtonTop);
  const double offset = (kLastPage - m_position) * width();
  place(*m_openSettings, (width() - m_openSettings->sizeHint().width()) / 2 + static_cast<int>(std::lround(offset)),
        kTrustTop);
}

void WelcomeView::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  readTrust();
  m_poll = m_ports.scheduler.every(1000ms, [this] { readTrust(); });
}

void WelcomeView::hideEvent(QHideEvent* event) {
  m_poll.cancel();
  m_slide.cancel();
  m_position = m_page;
  m_velocity = 0;
  QWidget::hideEvent(event);
}

void WelcomeView::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space: forward(); return;
    default: break;
  }
  QWidget::keyPressEvent(event);
}

void WelcomeView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  // Where in the window, not how far from pos(): the window manager may have moved it without telling yet.
  m_dragOffset = event->position().toPoint();
}

void WelcomeView::mouseMoveEvent(QMouseEvent* event) {
  if (m_dragOffset) window()->move(event->globalPosition().toPoint() - *m_dragOffset);
}

void WelcomeView::mouseReleaseEvent(QMouseEvent* /*event*/) { m_dragOffset.reset(); }

const QPixmap& WelcomeView::picture(int page) {
  auto& pixmap = m_pictures[static_cast<std::size_t>(page)];
  const double scale = devicePixelRatioF();
  if (pixmap.isNull() || !qFuzzyCompare(pixmap.devicePixelRatio(), scale)) {
    pixmap = QPixmap((WelcomeArt::kSize * scale).toSize());
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    pageAt(page).paint(painter);
  }
  return pixmap;
}

void WelcomeView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  paintBackdrop(painter);
  painter.save();
  // Pages that pass the edge stay inside the rim.
  QPainterPath inside;
  inside.addRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kRadius - 1, kRadius - 1);
  painter.setClipPath(inside);
  const double direction = layoutDirection() == Qt::RightToLeft ? -1 : 1;
  for (int page = 0; page < kPageCount; ++page) {
    const double offset = (page - m_position) * width() * direction;
    if (std::abs(offset) >= width()) continue;
    painter.save();
    painter.translate(offset, 0);
    paintPage(painter, page);
    painter.restore();
  }
  painter.restore();
  paintMarks(painter);
}

void WelcomeView::paintBackdrop(QPainter& painter) const {
  const QRectF box(rect());
  // A mask has whole pixels only: those that the outline cuts show this.
  if (!testAttribute(Qt::WA_TranslucentBackground)) painter.fillRect(box, QColor(Qt::black));
  QPainterPath outline;
  outline.addRoundedRect(box, kRadius, kRadius);
  QLinearGradient wall(box.topLeft(), QPointF(box.left() + box.width() * .3, box.bottom()));
  wall.setColorAt(0, QColor(0xFF2E3039));
  wall.setColorAt(.5, QColor(0xFF22232A));
  wall.setColorAt(1, QColor(0xFF17181D));
  painter.fillPath(outline, wall);
  QRadialGradient lamp(QPointF(box.width() * .5, box.height() * .22), box.width() * .62);
  lamp.setColorAt(0, tokens::white(.10));
  lamp.setColorAt(1, tokens::white(0));
  painter.fillPath(outline, lamp);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(tokens::black(.55), 1));
  painter.drawRoundedRect(box.adjusted(.5, .5, -.5, -.5), kRadius - .5, kRadius - .5);
  painter.setPen(QPen(tokens::white(.16), 1));
  painter.drawRoundedRect(box.adjusted(1.5, 1.5, -1.5, -1.5), kRadius - 1.5, kRadius - 1.5);
}

void WelcomeView::paintPage(QPainter& painter, int page) {
  const auto texts = pageAt(page);
  painter.drawPixmap(QPointF(0, 0), picture(page));
  painter.setPen(QColor(tokens::kText));
  paintParagraph(painter, kTitle, texts.title, tokens::Type::WelcomeTitle, Qt::AlignHCenter);
  painter.setPen(QColor(tokens::kText2));
  const double bodyWidth = balancedWidth(texts.body, tokens::Type::Body, kBody.width());
  paintParagraph(painter, QRectF(kBody.center().x() - bodyWidth / 2, kBody.top(), bodyWidth, kBody.height()), texts.body,
                 tokens::Type::Body, Qt::AlignHCenter);
  if (page == kLastPage) paintTrustLine(painter);
}

void WelcomeView::paintTrustLine(QPainter& painter) const {
  constexpr double kTick = 15;
  constexpr double kGap = 6;
  const QRectF line(0, kTrustTop, width(), kTrustHeight);
  if (!m_isTrusted) {
    if (m_ports.accessibility.traits().isAvailable) return;  // the button stands here
    painter.setPen(QColor(tokens::kText3));
    painter.setFont(tokens::font(tokens::Type::Help));
    painter.drawText(line, static_cast<int>(Qt::AlignCenter),
                     tr("Not available on this desktop: the ball aims by estimate."));
    return;
  }
  const auto words = tr("Accessibility is on");
  auto face = tokens::font(tokens::Type::Body);
  face.setWeight(QFont::DemiBold);
  const double width = QFontMetricsF(face).horizontalAdvance(words) + kTick + kGap;
  const QRectF content(line.center().x() - width / 2, line.top(), width, line.height());
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  Symbols::paint(painter, u"check"_s,
                 QRectF(isMirrored ? content.right() - kTick : content.left(), content.center().y() - kTick / 2, kTick, kTick),
                 QColor(tokens::kOk));
  painter.setFont(face);
  painter.setPen(QColor(tokens::kOk));
  painter.drawText(content, static_cast<int>(Qt::AlignVCenter | Qt::AlignAbsolute |
                                             (isMirrored ? Qt::AlignLeft : Qt::AlignRight)),
                   words);
}

void WelcomeView::paintMarks(QPainter& painter) const {
  constexpr double kMark = 7;
  constexpr double kLong = 9;  // what the mark of the present page is longer
  constexpr double kGap = 7;
  double x = (width() - kPageCount * kMark - (kPageCount - 1) * kGap - kLong) / 2;
  painter.setPen(Qt::NoPen);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  for (int i = 0; i < kPageCount; ++i) {
    const int page = isMirrored ? kLastPage - i : i;
    const double nearness = std::clamp(1 - std::abs(m_position - page), 0.0, 1.0);
    const double length = kMark + kLong * nearness;
    painter.save();
    painter.translate(x + length / 2, kMarksY);
    painter.rotate(8 * (1 - nearness));
    auto color = Color::blend(QColor(Qt::white), QColor(tokens::kAccent), nearness);
    color.setAlphaF(static_cast<float>(.28 + .72 * nearness));
    painter.setBrush(color);
    painter.drawRoundedRect(QRectF(-length / 2, -kMark / 2, length, kMark), 2, 2);
    painter.restore();
    x += length + kGap;
  }
}

}  // namespace tarnwick
