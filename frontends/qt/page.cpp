// SPDX-License-Identifier: MIT
#include "qt/page.h"

#include "qt/controls.h"
#include "qt/host_window.h"
#include "qt/units.h"

#include <QPainter>
#include <QToolButton>

namespace chiffrolo::qt {

namespace {

// The frame of a tool window, in pixels.
constexpr int frameThickness = 1;
constexpr int titleHeight = 24;
constexpr int titleIndent = 8;

/// A letter, not the style's close icon: in Qt 6.4 that icon is 10 pixels wide at any pixel ratio, and its
/// grey can hardly be seen on a dark title bar. Never takes the focus.
QToolButton* createCloseBox(QWidget& page) {
  auto* const box = new QToolButton(&page);
  QFont large = box->font();
  large.setPixelSize(titleHeight);
  box->setFont(large);
  box->setText(QStringLiteral("×"));
  box->setAutoRaise(true);
  box->setFocusPolicy(Qt::NoFocus);
  box->setAccessibleName(QStringLiteral("Fermer"));
  box->setToolTip(QStringLiteral("Fermer"));
  return box;
}

} // namespace

Page::Page(const ScreenLayout& layout, Events& events, Ticker& ticker, HostWindow& host)
    : QWidget(&host), layout_(layout), events_(&events), ticker_(ticker), host_(host),
      view_(new View(
          layout, [this](ControlIndex control) { reportClick(control); }, this)) {
  if (layout.frame == Frame::toolWindow) {
    closeBox_ = createCloseBox(*this);
    connect(closeBox_, &QToolButton::clicked, this, [this] { reportClose(); });
    endPressWhenHidden(*closeBox_);
  }
  setAccessibleName(toQt(layout.accessibleName));
  hide();
}

void Page::fill(QSize host) {
  setGeometry({{}, host});
  view_->setGeometry(contentArea());
  if (closeBox_ == nullptr) return;
  const QRect bar = titleBar();
  closeBox_->setGeometry(bar.right() + 1 - titleHeight, bar.top(), titleHeight, titleHeight);
}

void Page::takeFocus() {
  if (QWidget* const last = focusWidget())
    last->setFocus();
  else
    (hasButtons() ? view_->firstButton() : this)->setFocus();
}

void Page::retire() {
  events_ = nullptr;
  hide();
  deleteLater();
}

std::vector<SpokenText> Page::spokenTexts() const {
  return events_ == nullptr ? std::vector<SpokenText>{} : events_->spokenTexts(layout_.name);
}

std::string Page::takeAnnouncement() {
  return events_ == nullptr ? std::string{} : events_->takeAnnouncement();
}

QRect Page::onDisplay(Point topLeft, Point bottomRight) const {
  const DrawingSurface& surface = view_->surface();
  const QRectF area{toPixels(topLeft) * surface.scale(), toPixels(bottomRight) * surface.scale()};
  return area.translated(surface.mapToGlobal(QPoint{})).toAlignedRect();
}

/// Stops the clock meanwhile, so that all timers that the event starts start at the same instant.
template <typename Event> void Page::report(Event event) {
  const Ticker::HeldInstant instant{ticker_};
  if (events_ == nullptr) return;
  event(*events_);
  host_.announceSoon();
}

Events::KeyUse Page::reportKey(const KeyStroke& stroke) {
  auto use = Events::KeyUse::screenChanged;
  report([&](Events& events) { use = events.key(stroke.code, stroke.character); });
  return use;
}

/// A screen reader may click a hidden control.
void Page::reportClick(ControlIndex control) {
  if (view_->control(control)->isVisible()) report([&](Events& events) { events.click(control); });
}

/// The event may destroy the window, but not the page.
void Page::reportTick(ControlIndex timer) {
  report([&](Events& events) { events.tick(layout_.name, timer); });
  view_->ignoreWhatWasDrawn();
}

void Page::reportClose() {
  if (isVisible()) report([](Events& events) { events.close(); });
}

void Page::paintEvent(QPaintEvent* /*event*/) {
  if (layout_.frame == Frame::frameless) return;
  QPainter painter{this};
  painter.fillRect(rect(), palette().color(QPalette::Dark));
  const QRect bar = titleBar();
  painter.fillRect(bar, palette().color(QPalette::Button));
  painter.setPen(palette().color(QPalette::ButtonText));
  painter.drawText(bar.adjusted(titleIndent, 0, -titleHeight, 0), Qt::AlignVCenter, toQt(layout_.caption));
}

QRect Page::titleBar() const {
  return {frameThickness, frameThickness, width() - 2 * frameThickness, titleHeight};
}

QRect Page::contentArea() const {
  if (layout_.frame == Frame::frameless) return rect();
  const int top = 2 * frameThickness + titleHeight;
  return rect().adjusted(frameThickness, top, -frameThickness, -frameThickness);
}

} // namespace chiffrolo::qt
