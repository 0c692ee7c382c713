// SPDX-License-Identifier: MIT
#pragma once

/// What can be read on a drawing surface at this moment.

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

/// What a printed text means beyond its characters, where the eye takes it from their colour or place.
enum class TextRole : std::uint8_t {
  plain,
  rightGuess,
  wrongGuess, ///< the text is what would have been right
  stopwatch,
};

struct Word {
  std::string text;
  TextRole role{};
  bool operator==(const Word&) const = default;
};

/// A run of words that belong together on one line.
struct VisibleText {
  std::vector<Word> words;
  Rectangle place;

  /// The words with single blanks between them.
  std::string text() const;
};

/// Follows a surface drawing by drawing. A character is gone when something filled covers its middle, or when
/// the same character is printed over it in the colour that lies beneath.
class VisibleTexts {
public:
  explicit VisibleTexts(Colour background) : background_(background) {}

  enum class Shape : std::uint8_t { box, ellipse };

  /// `character` is one character in UTF-8, `place` its cell, `size` its font size in points.
  void print(std::string_view character, const Rectangle& place, Points size, Colour colour,
             TextRole role = TextRole::plain);
  /// Something filled with `colour` now lies over all that was there within `area`.
  void cover(Shape shape, const Rectangle& area, Colour colour);
  void clear(Colour background);

  /// The texts in reading order, line by line. Words are apart where a gap wider than a thin blank lies
  /// between their characters, and texts where the gap is wider than two characters are high or the ground
  /// changes.
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
  std::vector<Cover> covers_; // in drawing order, without those that a later one hides
};

} // namespace chiffrolo
