// SPDX-License-Identifier: MIT
#pragma once

/// The lines of a transcript: values as text, separated by blanks.

#include "platform.h"

#include <string>

namespace chiffrolo {

/// As C's %g prints it.
std::string text(Points number);
std::string text(int number);
std::string text(Colour colour);
/// "-" for no fill.
std::string text(std::optional<Colour> fill);
std::string text(Point point);
std::string text(std::string_view words);
std::string quoted(std::string_view words);

template <typename... Values> std::string lineOf(const Values&... values) {
  std::string line;
  ((line += line.empty() ? text(values) : " " + text(values)), ...);
  return line;
}

} // namespace chiffrolo
