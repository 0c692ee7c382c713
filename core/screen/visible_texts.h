// SPDX-License-Identifier: MIT
#pragma once

/// The texts that are visible on a drawing surface.

#include "platform.h"

#include <string>
#include <vector>

namespace chiffrolo {

/// From the top left corner of the content area, in points.
struct Rectangle {
  Points left{};
  Points top{};
  Points width{};
  Points height{};

  Points right() const { return left + width; }
  Points bottom() const { return top + height; }
  Point centre() const { return {left + width / 2, top + height / 2}; }
  bool contains(Point point) const;
  bool contains(const Rectangle& other) const;
};

/// What the colour or the place of a printed text means.
enum class TextRole : std::uint8_t {
  plain,
  rightGuess,
  wrongGuess, ///< the text is the right digit, shown after a wrong guess
  stopwatch,
};

struct Word {
  std::string text;
  TextRole role{};
  bool operator==(const Word&) const = default;
};

/// Words that are next to each other on one line.
struct VisibleText {
  std::vector<Word> words;
  Rectangle place;

  /// The words, separated by single blanks.
  std::string text() const;
};

/// Records the characters that are printed on a surface. A character is removed when a filled shape covers
/// its centre, or when the same character is printed over it in the background colour.
class VisibleTexts {
public:
  explicit VisibleTexts(Colour background) : background_(background) {}

  enum class Shape : std::uint8_t { box, ellipse };

  /// `character` is one character in UTF-8, `place` its cell, `size` its font size in points.
  void print(std::string_view character, const Rectangle& place, Points size, Colour colour,
             TextRole role = TextRole::plain);
  /// Records a shape filled with `colour`.
  void cover(Shape shape, const Rectangle& area, Colour colour);
  void clear(Colour background);

  /// The texts in reading order, line by line. A gap wider than a thin blank separates words. A gap of almost
  /// two font sizes, or a change of the background, separates texts.
  std::vector<VisibleText> read() const;

private:
  struct Character {
    std::string text;
    Rectangle place;
    Points size;
    Colour ground;
    TextRole role;
  };
  struct Cover {
    Shape shape{};
    Rectangle area;
    Colour colour;

    bool hides(Point point) const;
    bool hides(const Cover& other) const;
  };
  using Line = std::vector<Character>;

  Colour groundAt(Point point) const;
  std::vector<Line> lines() const;
  static void appendTexts(const Line& line, std::vector<VisibleText>& texts);

  Colour background_;
  std::vector<Character> characters_;
  std::vector<Cover> covers_; // in drawing order, without those that are hidden
};

} // namespace chiffrolo
