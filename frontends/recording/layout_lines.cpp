// SPDX-License-Identifier: MIT
#include "recording/layout_lines.h"

#include "recording/lines.h"

#include <array>

namespace chiffrolo {

namespace {

/// By enumerator.
template <typename Enumeration, std::size_t count>
std::string_view nameIn(const std::array<std::string_view, count>& names, Enumeration value) {
  return names.at(static_cast<std::size_t>(value));
}

constexpr std::array<std::string_view, 2> frames{"frameless", "toolWindow"};
constexpr std::array<std::string_view, 7> kinds{"label", "button",     "image", "line",
                                                "shape", "pictureBox", "timer"};
constexpr std::array<std::string_view, 2> alignments{"left", "centred"};
constexpr std::array<std::string_view, 2> borders{"none", "thin"};
constexpr std::array<std::string_view, 2> visibilities{"hidden", "visible"};
constexpr std::array<std::string_view, 2> switches{"off", "on"};
constexpr std::array<std::string_view, 4> pictures{"none", "arrow", "stop", "farewell"};

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
                  nameIn(alignments, row.alignment), nameIn(borders, row.border));
  case ControlKind::button:
    return lineOf(text(row.place), quoted(row.caption), text(row.font), quoted(row.tooltip));
  case ControlKind::image:
    return lineOf(text(row.place), nameIn(pictures, row.picture), nameIn(visibilities, row.visible));
  case ControlKind::line: return lineOf(text(row.place), row.foreground);
  case ControlKind::shape: return lineOf(text(row.place), row.foreground, row.background);
  case ControlKind::pictureBox: return lineOf(text(row.place), nameIn(pictures, row.picture), row.background);
  case ControlKind::timer: break;
  }
  return lineOf(nameIn(switches, row.enabled), static_cast<int>(row.interval.count()));
}

} // namespace

std::vector<std::string> layoutLines(std::string_view screen, const ScreenLayout& layout) {
  std::vector<std::string> lines;
  lines.push_back(lineOf("layout", screen, "screen", quoted(layout.caption), nameIn(frames, layout.frame),
                         text(layout.font), layout.background));
  for (const ControlLayout& row : layout.controls)
    lines.push_back(lineOf("layout", screen, nameIn(kinds, row.kind), row.name, properties(row)));
  return lines;
}

} // namespace chiffrolo
