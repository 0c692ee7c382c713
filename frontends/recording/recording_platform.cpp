// SPDX-License-Identifier: MIT
#include "recording/recording_platform.h"

#include "recording/lines.h"
#include "screen/layouts.h"
#include "screen/utf8.h"

#include <algorithm>

namespace chiffrolo {

namespace {

using std::chrono::milliseconds;

constexpr Points contentWidth = 960;

} // namespace

class RecordingWindow final : public Window, private TickReceiver {
public:
  RecordingWindow(RecordingPlatform& platform, const ScreenLayout& layout, Events& events)
      : platform_(platform), layout_(layout), events_(events) {
    print("load", nameOf(layout.name));
    for (ControlIndex row = 0; row < layout.controls.size(); ++row)
      if (layout.controls[row].enabled == Switch::on) start(row, layout.controls[row].interval);
  }

  ~RecordingWindow() override {
    if (!platform_.hasQuit()) print("unload", nameOf(layout_.name));
    platform_.timers_.stopAll(*this);
  }

  void activate() noexcept override { print("activate", nameOf(layout_.name)); }

  Points width() const noexcept override { return contentWidth; }
  Points textWidth(std::string_view words, const Font& font) const noexcept override {
    const auto blanks = static_cast<Points>(std::ranges::count(words, ' '));
    return (static_cast<Points>(characterCount(words)) - blanks / 2) * averageCharacterWidth(font);
  }
  Points lineHeight(const Font& font) const noexcept override { return font.size * 1.25F; }
  Points averageCharacterWidth(const Font& font) const noexcept override { return (font.size + 1) / 2; }

  void drawText(Point topLeft, std::string_view words, const Font& font, Colour colour) noexcept override {
    if (!platform_.records()) return;
    printEffect("text", topLeft, quoted(font.face), font.size, colour, quoted(words));
  }
  void drawSegment(Point from, Point to, int thickness, Colour colour) noexcept override {
    printEffect("segment", from, to, thickness, colour);
  }
  void drawBox(Point corner, Point opposite, int thickness, Colour outline,
               std::optional<Colour> fill) noexcept override {
    printEffect("box", corner, opposite, thickness, outline, fill);
  }
  void drawEllipse(Point centre, Points radiusX, Points radiusY, int thickness, Colour outline,
                   std::optional<Colour> fill) noexcept override {
    printEffect("ellipse", centre, radiusX, radiusY, thickness, outline, fill);
  }
  void clear(Colour) noexcept override { printEffect("clear"); }

  void setVisible(ControlIndex control, Visibility visible) noexcept override {
    printEffect(visible == Visibility::visible ? "show" : "hide", nameOfControl(control));
  }
  void setCaption(ControlIndex control, std::string_view caption) noexcept override {
    if (!platform_.records()) return;
    printEffect("caption", nameOfControl(control), quoted(caption));
  }

  void startTimer(ControlIndex timer, milliseconds interval) noexcept override {
    if (start(timer, interval))
      printEffect("timer", nameOfControl(timer), "on", static_cast<int>(interval.count()));
  }
  void stopTimer(ControlIndex timer) noexcept override {
    if (platform_.timers_.stop({this, timer})) printEffect("timer", nameOfControl(timer), "off");
  }

private:
  std::string_view nameOfControl(ControlIndex control) const { return layout_.controls[control].name; }

  void tick(ControlIndex timer) override { events_.tick(layout_.name, timer); }

  /// True if the timer was stopped.
  bool start(ControlIndex timer, milliseconds interval) {
    return platform_.timers_.start({this, timer}, interval, platform_.now_);
  }

  template <typename... Values> void print(const Values&... values) const {
    if (platform_.records()) platform_.sink_(lineOf(values...));
  }

  template <typename... Values> void printEffect(const Values&... values) const {
    print(nameOf(layout_.name), values...);
  }

  RecordingPlatform& platform_;
  const ScreenLayout& layout_;
  Events& events_;
};

RecordingPlatform::RecordingPlatform(Sink sink, std::uint64_t timeOfDay)
    : sink_(std::move(sink)), timeOfDay_(timeOfDay) {}

std::unique_ptr<Window> RecordingPlatform::createWindow(const ScreenLayout& layout, Events& events) noexcept {
  return std::make_unique<RecordingWindow>(*this, layout, events);
}

void RecordingPlatform::quit() noexcept {
  hasQuit_ = true;
  if (records()) sink_("end");
}

void RecordingPlatform::wait(milliseconds duration) {
  const Instant end = now_ + duration;
  for (auto due = timers_.nextDue(); due && *due <= end; due = timers_.nextDue()) {
    now_ = *due;
    const auto timer = timers_.takeDue(now_);
    timer->receiver->tick(timer->control);
  }
  now_ = end;
}

} // namespace chiffrolo
