// SPDX-License-Identifier: MIT
#include "recording/lines.h"

#include <array>
#include <cstdio>

namespace chiffrolo {

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

} // namespace chiffrolo
