// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"
#include "screen/values.h"
#include "screen/visible_texts.h"

#include <memory>
#include <string>

namespace chiffrolo {

/// Where `Print` goes on after an item.
enum class Then : std::uint8_t {
  sameLine, ///< right behind it
  nextZone, ///< at the next print zone of the line; zones are 14 average characters wide
  newLine,  ///< at the left edge, one line lower
};

enum class Form : std::uint8_t { segment, box, filledBox };
enum class Fill : std::uint8_t { solid, transparent };

/// The drawing surface of a screen: retained, white or as designed, in points from its top left corner. It
/// owns the window that it draws on.
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
  TextRole textRole{};               ///< of printed text, for those who do not see it
  int DrawWidth{1};                  ///< of segments and outlines, in pixels at 96 dots per inch

  /// The right edge of the content area, in points.
  Points ScaleWidth() const { return window_->width(); }

  /// Draws an item at the current position, on whatever lies there, and moves the position on.
  void Print(std::string_view text, Then then);
  /// A number comes with a blank (or its minus sign) before it and a blank behind it.
  void Print(SaturatingInt16 number, Then then);

  void Line(Point from, Point to, Colour colour, Form form = Form::segment);
  /// A segment in `ForeColor`.
  void Line(Point from, Point to);
  /// An ellipse as wide as a circle of `radius` points; `aspect`, at most 1, is its height over its width.
  void Circle(Point centre, Points radius, Colour colour, float aspect);
  /// Clears the whole surface; the current position goes back to the top left corner.
  void Cls();

  /// The width that `Print` would give `text` in the current font, in points.
  Points TextWidth(std::string_view text) const { return window_->textWidth(text, font()); }

  /// What can be read on the surface now.
  std::vector<VisibleText> visibleTexts() const { return texts_.read(); }

protected:
  Window& window() const { return *window_; }
  /// The window goes at once, and drawing has no effect any more.
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
