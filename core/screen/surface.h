// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"
#include "screen/values.h"
#include "screen/visible_texts.h"

#include <memory>
#include <string>

namespace chiffrolo {

/// Where `Print` puts the current position after an item.
enum class Then : std::uint8_t {
  sameLine, ///< at the end of the item
  nextZone, ///< at the next print zone of the line; zones are 14 average characters wide
  newLine,  ///< at the left edge, one line lower
};

enum class Form : std::uint8_t { segment, box, filledBox };
enum class Fill : std::uint8_t { solid, transparent };

/// The drawing surface of a screen. It owns the window that it draws on. Positions are in points from the top
/// left corner.
class Surface {
public:
  Surface(std::unique_ptr<Window> window, const ScreenLayout& layout);

  Points CurrentX{}; ///< left end of the next item that `Print` draws
  Points CurrentY{}; ///< top of the next item that `Print` draws
  std::string FontName;
  Points FontSize{};
  Colour ForeColor{}; ///< of printed text, and of segments drawn without a colour
  Colour BackColor{}; ///< `Cls` clears to it
  Colour FillColor{};
  Fill FillStyle{Fill::transparent}; ///< whether box outlines and circles are filled with `FillColor`
  TextRole textRole{};               ///< of printed text, for screen readers
  int DrawWidth{1};                  ///< of segments and outlines, in pixels of the layout

  /// The right edge of the content area, in points.
  Points ScaleWidth() const { return window_->width(); }

  /// Draws a text at the current position without erasing what is there, and moves the position.
  void Print(std::string_view text, Then then);
  /// Draws a number with a blank (or its minus sign) before it and a blank after it.
  void Print(SaturatingInt16 number, Then then);

  void Line(Point from, Point to, Colour colour, Form form = Form::segment);
  /// A segment in `ForeColor`.
  void Line(Point from, Point to);
  /// An ellipse of width 2 × `radius`; `aspect`, at most 1, is its height divided by its width.
  void Circle(Point centre, Points radius, Colour colour, float aspect);
  /// Clears the whole surface, and moves the current position to the top left corner.
  void Cls();

  /// The width that `Print` would give `text` in the current font, in points.
  Points TextWidth(std::string_view text) const { return window_->textWidth(text, font()); }

  /// The texts that are visible now, in reading order.
  std::vector<VisibleText> visibleTexts() const { return texts_.read(); }

protected:
  Window& window() const { return *window_; }
  /// Destroys the window. Drawing has no effect from now on.
  void closeWindow();

private:
  Font font() const { return {FontName, FontSize, weight_}; }
  std::optional<Colour> fill() const;
  void noteCharacters(std::string_view text);
  void moveOn(Points width, Then then);

  std::unique_ptr<Window> window_;
  Weight weight_;
  VisibleTexts texts_;
};

} // namespace chiffrolo
