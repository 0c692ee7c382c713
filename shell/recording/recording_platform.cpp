// SPDX-License-Identifier: MIT
#include "shell/recording/recording_platform.h"

#include "shell/layouts.h"
#include "shell/utf8.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace chiffrolo {

namespace {

using std::chrono::milliseconds;

constexpr Points innerWidth = 960;

/// A number as C's %g writes it.
std::string text(Points number) {
  std::array<char, 32> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "%g", static_cast<double>(number));
  return buffer.data();
}

std::string text(int number) { return std::to_string(number); }

std::string text(Colour colour) {
  std::array<char, 8> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "#%02x%02x%02x", colour.red, colour.green, colour.blue);
  return buffer.data();
}

std::string text(std::optional<Colour> fill) { return fill ? text(*fill) : "-"; }
std::string text(Point point) { return text(point.x) + " " + text(point.y); }
std::string text(std::string_view words) { return std::string(words); }
std::string quoted(std::string_view words) { return "\"" + std::string(words) + "\""; }

} // namespace

class RecordingWindow final : public Window {
public:
  RecordingWindow(RecordingPlatform& platform, const ScreenLayout& layout, Events& events)
      : platform_(platform), layout_(layout), events_(events) {
    tell("load", nameOf(layout.name));
    for (ControlIndex row = 0; row < layout.controls.size(); ++row)
      if (layout.controls[row].enabled == Switch::on) run(row, layout.controls[row].interval);
  }

  ~RecordingWindow() override {
    if (!platform_.hasQuit()) tell("unload", nameOf(layout_.name));
    std::erase_if(platform_.timers_, [this](const auto& timer) { return timer.window == this; });
  }

  void activate() noexcept override { tell("activate", nameOf(layout_.name)); }

  Points width() const noexcept override { return innerWidth; }
  Points textWidth(std::string_view words, const Font& font) const noexcept override {
    return static_cast<Points>(characterCount(words)) * averageCharacterWidth(font);
  }
  Points lineHeight(const Font& font) const noexcept override { return font.size * 1.25F; }
  Points averageCharacterWidth(const Font& font) const noexcept override { return (font.size + 1) / 2; }

  void drawText(Point topLeft, std::string_view words, const Font& font, Colour colour) noexcept override {
    if (!platform_.records()) return;
    tellOfScreen("text", topLeft, quoted(font.face), font.size, colour, quoted(words));
  }
  void drawSegment(Point from, Point to, int thickness, Colour colour) noexcept override {
    tellOfScreen("segment", from, to, thickness, colour);
  }
  void drawBox(Point corner, Point opposite, int thickness, Colour outline,
               std::optional<Colour> fill) noexcept override {
    tellOfScreen("box", corner, opposite, thickness, outline, fill);
  }
  void drawEllipse(Point centre, Points radiusX, Points radiusY, int thickness, Colour outline,
                   std::optional<Colour> fill) noexcept override {
    tellOfScreen("ellipse", centre, radiusX, radiusY, thickness, outline, fill);
  }
  void clear(Colour) noexcept override { tellOfScreen("clear"); }

  void setVisible(ControlIndex control, Visibility visible) noexcept override {
    tellOfScreen(visible == Visibility::visible ? "show" : "hide", nameOfControl(control));
  }
  void setCaption(ControlIndex control, std::string_view caption) noexcept override {
    if (!platform_.records()) return;
    tellOfScreen("caption", nameOfControl(control), quoted(caption));
  }

  void startTimer(ControlIndex timer, milliseconds interval) noexcept override {
    if (run(timer, interval))
      tellOfScreen("timer", nameOfControl(timer), "on", static_cast<int>(interval.count()));
  }
  void stopTimer(ControlIndex timer) noexcept override {
    const auto* running = platform_.find(*this, timer);
    if (running == nullptr) return;
    platform_.timers_.erase(platform_.timers_.begin() + (running - platform_.timers_.data()));
    tellOfScreen("timer", nameOfControl(timer), "off");
  }

  void tick(ControlIndex timer) const { events_.tick(layout_.name, timer); }

private:
  std::string_view nameOfControl(ControlIndex control) const { return layout_.controls[control].name; }

  /// True if the timer was at rest; one that runs keeps its place among those that are due together.
  bool run(ControlIndex timer, milliseconds interval) {
    const milliseconds due = platform_.now_ + interval;
    if (auto* running = platform_.find(*this, timer)) {
      running->due = due;
      running->interval = interval;
      return false;
    }
    platform_.timers_.push_back({this, timer, due, interval});
    return true;
  }

  template <typename... Values> void tell(const Values&... values) const {
    if (!platform_.records()) return;
    std::string line;
    ((line += line.empty() ? text(values) : " " + text(values)), ...);
    platform_.sink_(line);
  }

  template <typename... Values> void tellOfScreen(const Values&... values) const {
    tell(nameOf(layout_.name), values...);
  }

  RecordingPlatform& platform_;
  const ScreenLayout& layout_;
  Events& events_;
};

RecordingPlatform::RecordingPlatform(Sink sink) : sink_(std::move(sink)) {}

std::unique_ptr<Window> RecordingPlatform::createWindow(const ScreenLayout& layout, Events& events) noexcept {
  return std::make_unique<RecordingWindow>(*this, layout, events);
}

void RecordingPlatform::quit() noexcept {
  hasQuit_ = true;
  if (records()) sink_("end");
}

RecordingPlatform::RunningTimer* RecordingPlatform::find(const RecordingWindow& window,
                                                         ControlIndex control) {
  const auto found = std::ranges::find_if(timers_, [&](const RunningTimer& timer) {
    return timer.window == &window && timer.control == control;
  });
  return found == timers_.end() ? nullptr : &*found;
}

void RecordingPlatform::wait(milliseconds duration) {
  const milliseconds end = now_ + duration;
  while (true) {
    const auto next =
        std::ranges::min_element(timers_, {}, &RunningTimer::due); // the first of those due together
    if (next == timers_.end() || next->due > end) break;
    now_ = next->due;
    next->due += next->interval;
    const RunningTimer ticking = *next; // its handler may stop it
    ticking.window->tick(ticking.control);
  }
  now_ = end;
}

} // namespace chiffrolo
