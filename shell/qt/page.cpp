// SPDX-License-Identifier: MIT
#include "shell/qt/page.h"

#include "shell/qt/close_box.h"
#include "shell/qt/controls.h"
#include "shell/qt/units.h"

#include <QPainter>
#include <QPushButton>

namespace chiffrolo::qt {

namespace {

// The frame of a tool window, in pixels.
constexpr int frameThickness = 1;
constexpr int titleHeight = 24;
constexpr int titleIndent = 8;

} // namespace

Page::Page(const ScreenLayout& layout, Events& events, Ticker& ticker, QWidget* host)
    : QWidget(host), layout_(layout), events_(&events), ticker_(ticker),
      surface_(new DrawingSurface(toQt(layout.background), this)) {
  if (layout.frame == Frame::toolWindow) {
    closeBox_ = new CloseBox(this);
    connect(closeBox_, &CloseBox::clicked, this, [this] { close(); });
  }
  setAccessibleName(toQt(layout.accessibleName));
  createControls();
  hide();
}

void Page::createControls() {
  for (ControlIndex index = 0; index < layout_.controls.size(); ++index) {
    auto* const control = createControl(layout_.controls[index], surface_, [this, index] { click(index); });
    controls_.push_back(control);
    if (!hasButtons() && qobject_cast<QPushButton*>(control) != nullptr) firstButton_ = control;
  }
}

void Page::fill(QSize host) {
  setGeometry({{}, host});
  surface_->setGeometry(innerArea());
  if (closeBox_ == nullptr) return;
  const QRect bar = titleBar();
  closeBox_->setGeometry(bar.right() + 1 - titleHeight, bar.top(), titleHeight, titleHeight);
}

void Page::takeFocus() {
  if (QWidget* const last = focusWidget())
    last->setFocus();
  else
    (hasButtons() ? firstButton_ : this)->setFocus();
}

void Page::retire() {
  events_ = nullptr;
  hide();
  deleteLater();
}

std::vector<SpokenText> Page::spokenTexts() const {
  return events_ == nullptr ? std::vector<SpokenText>{} : events_->spokenTexts(layout_.name);
}

QRect Page::onDisplay(Point topLeft, Point bottomRight) const {
  const QRect area = QRectF{toPixels(topLeft), toPixels(bottomRight)}.toAlignedRect();
  return {surface_->mapToGlobal(area.topLeft()), area.size()};
}

Events::KeyUse Page::pressKey(const KeyStroke& stroke) {
  const Ticker::HeldInstant instant{ticker_};
  return events_ == nullptr ? Events::KeyUse::screenChanged : events_->key(stroke.code, stroke.character);
}

void Page::click(ControlIndex control) {
  const Ticker::HeldInstant instant{ticker_};
  if (events_ != nullptr) events_->click(control);
}

void Page::close() {
  const Ticker::HeldInstant instant{ticker_};
  if (events_ != nullptr) events_->close();
}

void Page::paintEvent(QPaintEvent* /*event*/) {
  if (layout_.frame == Frame::frameless) return;
  QPainter painter{this};
  painter.fillRect(rect(), palette().color(QPalette::Dark));
  const QRect bar = titleBar();
  painter.fillRect(bar, palette().color(QPalette::Window));
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(bar.adjusted(titleIndent, 0, -titleHeight, 0), Qt::AlignVCenter, toQt(layout_.caption));
}

QRect Page::titleBar() const {
  return {frameThickness, frameThickness, width() - 2 * frameThickness, titleHeight};
}

QRect Page::innerArea() const {
  if (layout_.frame == Frame::frameless) return rect();
  const int top = 2 * frameThickness + titleHeight;
  return rect().adjusted(frameThickness, top, -frameThickness, -frameThickness);
}

} // namespace chiffrolo::qt
