// SPDX-License-Identifier: MIT
#include "screen/surface.h"

#include "screen/utf8.h"

#include <cmath>
#include <utility>

namespace chiffrolo {

namespace {

/// Null object: stands in for the window of a screen that was unloaded from inside its own handler.
class ClosedWindow final : public Window {
public:
  void activate() noexcept override {}
  Points width() const noexcept override { return 0; }
  Points textWidth(std::string_view, const Font&) const noexcept override { return 0; }
  Points lineHeight(const Font&) const noexcept override { return 0; }
  Points averageCharacterWidth(const Font&) const noexcept override { return 1; }
  void drawText(Point, std::string_view, const Font&, Colour) noexcept override {}
  void drawSegment(Point, Point, int, Colour) noexcept override {}
  void drawBox(Point, Point, int, Colour, std::optional<Colour>) noexcept override {}
  void drawEllipse(Point, Points, Points, int, Colour, std::optional<Colour>) noexcept override {}
  void clear(Colour) noexcept override {}
  void setVisible(ControlIndex, Visibility) noexcept override {}
  void setCaption(ControlIndex, std::string_view) noexcept override {}
  void startTimer(ControlIndex, std::chrono::milliseconds) noexcept override {}
  void stopTimer(ControlIndex) noexcept override {}
};

Rectangle between(Point corner, Point opposite) {
  return {std::min(corner.x, opposite.x), std::min(corner.y, opposite.y), std::abs(opposite.x - corner.x),
          std::abs(opposite.y - corner.y)};
}

} // namespace

Surface::Surface(std::unique_ptr<Window> window, const ScreenLayout& layout)
    : FontName(layout.font.face), FontSize(layout.font.size), BackColor(layout.background),
      window_(std::move(window)), weight_(layout.font.weight), texts_(layout.background) {}

void Surface::Print(std::string_view text, Then then) {
  if (!text.empty()) {
    window_->drawText({CurrentX, CurrentY}, text, font(), ForeColor);
    noteCharacters(text);
  }
  moveOn(TextWidth(text), then);
}

void Surface::Print(SaturatingInt16 number, Then then) { Print(numberText(number) + " ", then); }

void Surface::noteCharacters(std::string_view text) {
  const Points height = window_->lineHeight(font());
  Points left = CurrentX;
  for (const auto character : characters(text)) {
    const Points width = TextWidth(character);
    texts_.print(character, {left, CurrentY, width, height}, FontSize, ForeColor, textRole);
    left += width;
  }
}

void Surface::moveOn(Points width, Then then) {
  constexpr Points zoneColumns = 14;
  CurrentX += width;
  if (then == Then::nextZone) {
    const Points zone = zoneColumns * window_->averageCharacterWidth(font());
    CurrentX = (std::floor(CurrentX / zone) + 1) * zone;
  } else if (then == Then::newLine) {
    CurrentX = 0;
    CurrentY += window_->lineHeight(font());
  }
}

void Surface::Line(Point from, Point to, Colour colour, Form form) {
  if (form == Form::segment) {
    window_->drawSegment(from, to, DrawWidth, colour);
    return;
  }
  const auto inside = form == Form::filledBox ? colour : fill();
  window_->drawBox(from, to, DrawWidth, colour, inside);
  if (inside) texts_.cover(VisibleTexts::Shape::box, between(from, to), *inside);
}

void Surface::Line(Point from, Point to) { Line(from, to, ForeColor); }

void Surface::Circle(Point centre, Points radius, Colour colour, float aspect) {
  const Point radii{radius, aspect * radius};
  window_->drawEllipse(centre, radii.x, radii.y, DrawWidth, colour, fill());
  if (FillStyle == Fill::transparent) return;
  const Rectangle area{centre.x - radii.x, centre.y - radii.y, 2 * radii.x, 2 * radii.y};
  texts_.cover(VisibleTexts::Shape::ellipse, area, FillColor);
}

void Surface::Cls() {
  window_->clear(BackColor);
  texts_.clear(BackColor);
  CurrentX = 0;
  CurrentY = 0;
}

void Surface::closeWindow() { window_ = std::make_unique<ClosedWindow>(); }

std::optional<Colour> Surface::fill() const {
  return FillStyle == Fill::solid ? std::optional(FillColor) : std::nullopt;
}

} // namespace chiffrolo
