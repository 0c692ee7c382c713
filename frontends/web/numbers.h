// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"

namespace chiffrolo::web {

/// 0xRRGGBB.
constexpr std::uint32_t colourNumber(Colour colour) {
  return std::uint32_t{colour.red} << 16U | std::uint32_t{colour.green} << 8U | colour.blue;
}

/// 1 for bold plus 2 for italic.
constexpr int styleNumber(const Font& font) {
  return (font.weight == Weight::bold ? 1 : 0) + (font.slant == Slant::italic ? 2 : 0);
}

} // namespace chiffrolo::web
