// SPDX-License-Identifier: MIT
#include "screen/values.h"

#include <array>
#include <cassert>
#include <charconv>
#include <cmath>

namespace chiffrolo {

SaturatingInt16 CInt(double value) {
  const double inRange = std::clamp<double>(value, SaturatingInt16::lowest, SaturatingInt16::highest);
  return static_cast<int>(std::nearbyint(inRange)); // the default rounding mode: halves to even
}

int Int(double value) { return static_cast<int>(std::floor(value)); }

std::string numberText(int number) { return (number < 0 ? "" : " ") + std::to_string(number); }

int numberOf(std::string_view text) {
  constexpr std::size_t mostDigits = 9;
  int number = 0;
  const auto digits = text.substr(0, mostDigits);
  if (digits.empty() || !isDigit(static_cast<unsigned char>(digits.front()))) return 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

Colour QBColor(int index) {
  static constexpr std::array<Colour, 16> palette{{
      {0, 0, 0},       // black
      {0, 0, 128},     // blue
      {0, 128, 0},     // green
      {0, 128, 128},   // cyan
      {128, 0, 0},     // red
      {128, 0, 128},   // magenta
      {128, 128, 0},   // yellow
      {192, 192, 192}, // white
      {128, 128, 128}, // grey
      {0, 0, 255},     // light blue
      {0, 255, 0},     // light green
      {0, 255, 255},   // light cyan
      {255, 0, 0},     // light red
      {255, 0, 255},   // light magenta
      {255, 255, 0},   // light yellow
      {255, 255, 255}, // bright white
  }};
  assert(index >= 0 && index < static_cast<int>(palette.size()));
  return palette[static_cast<std::size_t>(index)];
}

} // namespace chiffrolo
