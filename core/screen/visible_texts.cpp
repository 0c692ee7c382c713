// SPDX-License-Identifier: MIT
#include "screen/visible_texts.h"

#include <algorithm>
#include <cmath>

namespace chiffrolo {

namespace {

bool samePlace(const Rectangle& one, const Rectangle& other) {
  constexpr Points tolerance = 1;
  return std::abs(one.left - other.left) < tolerance && std::abs(one.top - other.top) < tolerance;
}

/// Whether the centre of each is within the height of the other. True for the low "x" between the digits of a
/// product.
bool sameLine(const Rectangle& one, const Rectangle& other) {
  const auto level = [](const Rectangle& tall, Points y) { return y > tall.top && y < tall.bottom(); };
  return level(one, other.centre().y) && level(other, one.centre().y);
}

Rectangle united(const Rectangle& one, const Rectangle& other) {
  const Points left = std::min(one.left, other.left);
  const Points top = std::min(one.top, other.top);
  return {left, top, std::max(one.right(), other.right()) - left,
          std::max(one.bottom(), other.bottom()) - top};
}

} // namespace

bool Rectangle::contains(Point point) const {
  return point.x >= left && point.x <= right() && point.y >= top && point.y <= bottom();
}

bool Rectangle::contains(const Rectangle& other) const {
  return contains(Point{other.left, other.top}) && contains(Point{other.right(), other.bottom()});
}

std::string VisibleText::text() const {
  std::string joined;
  for (const Word& word : words)
    joined += (joined.empty() ? "" : " ") + word.text;
  return joined;
}

bool VisibleTexts::Cover::hides(Point point) const {
  if (shape == Shape::box) return area.contains(point);
  const Point centre = area.centre();
  const Points x = (point.x - centre.x) / (area.width / 2);
  const Points y = (point.y - centre.y) / (area.height / 2);
  return x * x + y * y <= 1;
}

bool VisibleTexts::Cover::hides(const Cover& other) const {
  return shape == Shape::box && area.contains(other.area);
}

void VisibleTexts::print(std::string_view character, const Rectangle& place, Points size, Colour colour,
                         TextRole role) {
  std::erase_if(characters_, [&](const Character& under) {
    return under.text == character && under.size == size && samePlace(under.place, place);
  });
  const Colour ground = groundAt(place.centre());
  if (character == " " || colour == ground) return;
  characters_.push_back({std::string(character), place, size, ground, role});
}

void VisibleTexts::cover(Shape shape, const Rectangle& area, Colour colour) {
  const Cover cover{shape, area, colour};
  std::erase_if(characters_, [&](const Character& under) { return cover.hides(under.place.centre()); });
  std::erase_if(covers_, [&](const Cover& under) { return cover.hides(under); });
  covers_.push_back(cover);
}

void VisibleTexts::clear(Colour background) {
  background_ = background;
  characters_.clear();
  covers_.clear();
}

Colour VisibleTexts::groundAt(Point point) const {
  const auto topmost =
      std::find_if(covers_.rbegin(), covers_.rend(), [&](const Cover& cover) { return cover.hides(point); });
  return topmost == covers_.rend() ? background_ : topmost->colour;
}

std::vector<VisibleText> VisibleTexts::read() const {
  std::vector<VisibleText> texts;
  for (const Line& line : lines())
    appendTexts(line, texts);
  return texts;
}

std::vector<VisibleTexts::Line> VisibleTexts::lines() const {
  auto tallestFirst = characters_;
  std::ranges::stable_sort(tallestFirst, std::ranges::greater{}, &Character::size);
  std::vector<Line> lines;
  for (const Character& character : tallestFirst) {
    const auto line = std::ranges::find_if(
        lines, [&](const Line& other) { return sameLine(other.front().place, character.place); });
    if (line == lines.end())
      lines.push_back({character});
    else
      line->push_back(character);
  }
  std::ranges::stable_sort(lines, {}, [](const Line& line) { return line.front().place.centre().y; });
  for (Line& line : lines)
    std::ranges::stable_sort(line, {}, [](const Character& character) { return character.place.left; });
  return lines;
}

void VisibleTexts::appendTexts(const Line& line, std::vector<VisibleText>& texts) {
  // In font sizes. The blank of a bold serif face is 0.25 wide.
  constexpr Points thinBlank = 0.15F;
  // In font sizes: more than the blanks before a question mark, less than the gap between a remainder and the
  // quotient.
  constexpr Points farApart = 1.7F;
  const Character* previous = nullptr;
  for (const Character& character : line) {
    const Points size = previous == nullptr ? 0 : std::max(previous->size, character.size);
    const Points gap = previous == nullptr ? 0 : character.place.left - previous->place.right();
    if (previous == nullptr || gap > farApart * size || previous->ground != character.ground)
      texts.push_back({{{character.text, character.role}}, character.place});
    else {
      auto& [words, place] = texts.back();
      if (gap > thinBlank * size)
        words.push_back({character.text, character.role});
      else
        words.back().text += character.text;
      place = united(place, character.place);
    }
    previous = &character;
  }
}

} // namespace chiffrolo
