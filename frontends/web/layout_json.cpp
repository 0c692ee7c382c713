// SPDX-License-Identifier: MIT
#include "web/layout_json.h"

#include "enumerator_names.h"
#include "web/numbers.h"

namespace chiffrolo::web {

namespace {

std::string json(int number) { return std::to_string(number); }
std::string json(std::uint32_t number) { return std::to_string(number); }

/// Sizes are multiples of 0.01.
std::string json(Points size) { return std::to_string(static_cast<int>(size * 100)) + "e-2"; }

std::string json(std::string_view text) {
  std::string quoted = "\"";
  for (const char character : text) {
    if (character == '"' || character == '\\') quoted += '\\';
    quoted += character;
  }
  return quoted + "\"";
}

template <typename Enumeration>
requires std::is_enum_v<Enumeration> std::string json(Enumeration value) { return json(nameOf(value)); }

std::string json(const Font& font);
std::string json(const TwipsRectangle& place);

/// Names and values in turn.
template <typename... Rest>
std::string members(std::string_view name, const auto& value, const Rest&... rest) {
  std::string text = json(name) + ":" + json(value);
  if constexpr (sizeof...(rest) > 0) text += "," + members(rest...);
  return text;
}

std::string json(const Font& font) {
  return "{" + members("face", font.face, "size", font.size, "style", styleNumber(font)) + "}";
}

std::string json(const TwipsRectangle& place) {
  return "{" + members("left", place.left, "top", place.top, "width", place.width, "height", place.height) +
         "}";
}

std::string json(const ControlLayout& row) {
  return "{" +
         members("kind", row.kind, "name", row.name, "place", row.place, "caption", row.caption, "tooltip",
                 row.tooltip, "font", row.font, "foreground", colourNumber(row.foreground), "background",
                 colourNumber(row.background), "alignment", row.alignment, "border", row.border,
                 "accessibleName", row.accessibleName, "picture", row.picture, "visible", row.visible,
                 "enabled", row.enabled, "interval", static_cast<int>(row.interval.count())) +
         "}";
}

} // namespace

std::string layoutJson(const ScreenLayout& layout) {
  std::string rows;
  for (const auto& row : layout.controls)
    rows += (rows.empty() ? "" : ",") + json(row);
  return "{" +
         members("caption", layout.caption, "accessibleName", layout.accessibleName, "frame", layout.frame,
                 "font", layout.font, "background", colourNumber(layout.background), "typing", layout.typing,
                 "closing", layout.closing) +
         ",\"controls\":[" + rows + "]}";
}

} // namespace chiffrolo::web
