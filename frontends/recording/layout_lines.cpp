// SPDX-License-Identifier: MIT
#include "recording/layout_lines.h"

#include "enumerator_names.h"
#include "recording/lines.h"

namespace chiffrolo {

namespace {

std::string text(const TwipsRectangle& place) {
  return lineOf(place.left, place.top, place.width, place.height);
}

std::string text(const Font& font) {
  const std::string_view style = font.slant == Slant::italic   ? "italic"
                                 : font.weight == Weight::bold ? "bold"
                                                               : "regular";
  return lineOf(quoted(font.face), font.size, style);
}

/// What follows the name of the control.
std::string properties(const ControlLayout& row) {
  switch (row.kind) {
  case ControlKind::label:
    return lineOf(text(row.place), quoted(row.caption), text(row.font), row.foreground, row.background,
                  nameOf(row.alignment), nameOf(row.border));
  case ControlKind::button:
    return lineOf(text(row.place), quoted(row.caption), text(row.font), quoted(row.tooltip));
  case ControlKind::image: return lineOf(text(row.place), nameOf(row.picture), nameOf(row.visible));
  case ControlKind::line: return lineOf(text(row.place), row.foreground);
  case ControlKind::shape: return lineOf(text(row.place), row.foreground, row.background);
  case ControlKind::pictureBox: return lineOf(text(row.place), nameOf(row.picture), row.background);
  case ControlKind::timer: break;
  }
  return lineOf(nameOf(row.enabled), static_cast<int>(row.interval.count()));
}

} // namespace

std::vector<std::string> layoutLines(std::string_view screen, const ScreenLayout& layout) {
  std::vector<std::string> lines;
  lines.push_back(lineOf("layout", screen, "screen", quoted(layout.caption), nameOf(layout.frame),
                         text(layout.font), layout.background));
  for (const ControlLayout& row : layout.controls)
    lines.push_back(lineOf("layout", screen, nameOf(row.kind), row.name, properties(row)));
  return lines;
}

} // namespace chiffrolo
