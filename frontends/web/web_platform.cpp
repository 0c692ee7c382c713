// SPDX-License-Identifier: MIT
#include "web/web_platform.h"

#include "web/numbers.h"

namespace chiffrolo::web {

namespace {

std::int32_t fillNumber(std::optional<Colour> fill) {
  return fill ? static_cast<std::int32_t>(colourNumber(*fill)) : -1;
}

} // namespace

class WebWindow final : public Window, private TickReceiver {
public:
  WebWindow(WebPlatform& platform, const ScreenLayout& layout, Events& events)
      : platform_(platform), layout_(layout), events_(events) {
    page::createWindow(game(), screen());
    for (ControlIndex row = 0; row < layout.controls.size(); ++row)
      if (layout.controls[row].enabled == Switch::on) start(row, layout.controls[row].interval);
  }

  ~WebWindow() override {
    page::destroyWindow(game(), screen());
    platform_.timers_.stopAll(*this);
  }

  void activate() noexcept override { page::activate(game(), screen()); }
  Points width() const noexcept override { return page::contentWidth(game(), screen()); }

  Points textWidth(std::string_view text, const Font& font) const noexcept override {
    return page::textWidth(game(), text.data(), text.size(), font.face.data(), font.face.size(), font.size,
                           styleNumber(font));
  }
  Points lineHeight(const Font& font) const noexcept override {
    return page::lineHeight(game(), font.face.data(), font.face.size(), font.size, styleNumber(font));
  }
  Points averageCharacterWidth(const Font& font) const noexcept override {
    return page::averageCharacterWidth(game(), font.face.data(), font.face.size(), font.size,
                                       styleNumber(font));
  }

  void drawText(Point topLeft, std::string_view text, const Font& font, Colour colour) noexcept override {
    page::drawText(game(), screen(), topLeft.x, topLeft.y, text.data(), text.size(), font.face.data(),
                   font.face.size(), font.size, styleNumber(font), colourNumber(colour));
  }
  void drawSegment(Point from, Point to, int thickness, Colour colour) noexcept override {
    page::drawSegment(game(), screen(), from.x, from.y, to.x, to.y, thickness, colourNumber(colour));
  }
  void drawBox(Point corner, Point opposite, int thickness, Colour outline,
               std::optional<Colour> fill) noexcept override {
    page::drawBox(game(), screen(), corner.x, corner.y, opposite.x, opposite.y, thickness,
                  colourNumber(outline), fillNumber(fill));
  }
  void drawEllipse(Point centre, Points radiusX, Points radiusY, int thickness, Colour outline,
                   std::optional<Colour> fill) noexcept override {
    page::drawEllipse(game(), screen(), centre.x, centre.y, radiusX, radiusY, thickness,
                      colourNumber(outline), fillNumber(fill));
  }
  void clear(Colour background) noexcept override { page::clear(game(), screen(), colourNumber(background)); }

  void setVisible(ControlIndex control, Visibility visible) noexcept override {
    page::setVisible(game(), screen(), control, visible);
  }
  void setCaption(ControlIndex control, std::string_view caption) noexcept override {
    page::setCaption(game(), screen(), control, caption.data(), caption.size());
  }

  void startTimer(ControlIndex timer, std::chrono::milliseconds interval) noexcept override {
    if (start(timer, interval))
      page::timerStarted(game(), screen(), timer, static_cast<std::int32_t>(interval.count()));
  }
  void stopTimer(ControlIndex timer) noexcept override {
    if (platform_.timers_.stop({this, timer})) page::timerStopped(game(), screen(), timer);
  }

private:
  page::GameNumber game() const { return platform_.game_; }
  ScreenName screen() const { return layout_.name; }

  void tick(ControlIndex timer) override { events_.tick(screen(), timer); }

  /// True if the timer was stopped.
  bool start(ControlIndex timer, std::chrono::milliseconds interval) {
    return platform_.timers_.start({this, timer}, interval, platform_.now_);
  }

  WebPlatform& platform_;
  const ScreenLayout& layout_;
  Events& events_;
};

std::unique_ptr<Window> WebPlatform::createWindow(const ScreenLayout& layout, Events& events) noexcept {
  return std::make_unique<WebWindow>(*this, layout, events);
}

void WebPlatform::quit() noexcept { page::quit(game_); }

void WebPlatform::deliverDueTicks() {
  while (const auto due = timers_.takeDue(now_))
    due->receiver->tick(due->control);
}

} // namespace chiffrolo::web
