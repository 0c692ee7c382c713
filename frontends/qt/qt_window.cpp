// SPDX-License-Identifier: MIT
#include "qt/qt_window.h"

#include "qt/controls.h"
#include "qt/units.h"

namespace chiffrolo::qt {

namespace {

std::optional<QColor> toQt(std::optional<Colour> colour) {
  return colour ? std::optional(qt::toQt(*colour)) : std::nullopt;
}

} // namespace

QtWindow::QtWindow(const ScreenLayout& layout, Events& events, HostWindow& host, FontCache& fonts,
                   Ticker& ticker)
    : layout_(layout), host_(host), fonts_(fonts), ticker_(ticker),
      page_(*new Page(layout, events, ticker, host)) {
  host_.add(page_);
  startTimersOnByDesign();
}

QtWindow::~QtWindow() {
  ticker_.stopAll(*this);
  host_.remove(page_);
}

void QtWindow::startTimersOnByDesign() {
  const Ticker::HeldInstant instant{ticker_};
  for (ControlIndex index = 0; index < layout_.controls.size(); ++index) {
    const auto& row = layout_.controls[index];
    if (row.kind == ControlKind::timer && row.enabled == Switch::on) startTimer(index, row.interval);
  }
}

void QtWindow::activate() noexcept { host_.bringForward(page_); }

Points QtWindow::width() const noexcept { return toPoints(page_.view().contentWidth()); }

Points QtWindow::textWidth(std::string_view text, const Font& font) const noexcept {
  return toPoints(fonts_.face(font).width(qt::toQt(text)));
}

Points QtWindow::lineHeight(const Font& font) const noexcept {
  return toPoints(fonts_.face(font).lineHeight());
}

Points QtWindow::averageCharacterWidth(const Font& font) const noexcept {
  return toPoints(fonts_.face(font).averageCharacterWidth());
}

void QtWindow::drawText(Point topLeft, std::string_view text, const Font& font, Colour colour) noexcept {
  page_.view().surface().drawText(toPixels(topLeft), qt::toQt(text), fonts_.face(font), qt::toQt(colour));
}

void QtWindow::drawSegment(Point from, Point to, int thickness, Colour colour) noexcept {
  page_.view().surface().drawSegment(toPixels(from), toPixels(to), thickness, qt::toQt(colour));
}

void QtWindow::drawBox(Point corner, Point opposite, int thickness, Colour outline,
                       std::optional<Colour> fill) noexcept {
  page_.view().surface().drawBox(toPixels(corner), toPixels(opposite), thickness, qt::toQt(outline),
                                 toQt(fill));
}

void QtWindow::drawEllipse(Point centre, Points radiusX, Points radiusY, int thickness, Colour outline,
                           std::optional<Colour> fill) noexcept {
  const QSizeF radii{toPixels(radiusX), toPixels(radiusY)};
  page_.view().surface().drawEllipse(toPixels(centre), radii, thickness, qt::toQt(outline), toQt(fill));
}

void QtWindow::clear(Colour background) noexcept { page_.view().surface().clear(qt::toQt(background)); }

void QtWindow::setVisible(ControlIndex control, Visibility visible) noexcept {
  page_.view().setImageVisible(control, visible);
}

void QtWindow::setCaption(ControlIndex control, std::string_view caption) noexcept {
  if (auto* const widget = page_.view().control(control)) setLabelCaption(*widget, caption);
}

void QtWindow::startTimer(ControlIndex timer, std::chrono::milliseconds interval) noexcept {
  ticker_.start({this, timer}, interval);
}

void QtWindow::stopTimer(ControlIndex timer) noexcept { ticker_.stop({this, timer}); }

void QtWindow::tick(ControlIndex timer) { page_.reportTick(timer); }

} // namespace chiffrolo::qt
