// SPDX-License-Identifier: MIT
#pragma once

/// Whole numbers, conversions between numbers and texts, and colours.

#include "platform.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace chiffrolo {

/// A whole number from -32768 to 32767. Values beyond either end become that end.
class SaturatingInt16 {
public:
  constexpr SaturatingInt16(int value = 0) : value_(std::clamp(value, lowest, highest)) {}
  constexpr operator int() const { return value_; }
  constexpr SaturatingInt16& operator+=(int step) { return *this = value_ + step; }
  constexpr SaturatingInt16& operator-=(int step) { return *this = value_ - step; }

  static constexpr int lowest = -32768;
  static constexpr int highest = 32767;

private:
  int value_;
};

/// The nearest whole number; halves are rounded to the even neighbour: 2.5 gives 2, 3.5 gives 4.
SaturatingInt16 CInt(double value);

/// The largest whole number not above `value`, which must fit in an `int`: -0.5 gives -1.
int Int(double value);

/// The decimal digits of a number, after a blank or its minus sign: 15 gives " 15".
std::string numberText(int number);

/// The number at the start of `text`, 0 if there is none. Digits after the ninth are ignored.
int numberOf(std::string_view text);

constexpr bool isDigit(char32_t character) { return character >= U'0' && character <= U'9'; }

/// Colour `index`, 0 to 15, of the classic palette of sixteen.
Colour QBColor(int index);

} // namespace chiffrolo
