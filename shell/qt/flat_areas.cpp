// SPDX-License-Identifier: MIT
#include "shell/qt/flat_areas.h"

#include <algorithm>

namespace chiffrolo::qt {

namespace {

/// The screens erase fewer bands than that over and over again.
constexpr std::size_t mostAreas = 8;

} // namespace

bool FlatAreas::has(QRect dots, QRgb colour) const {
  return std::ranges::any_of(
      areas_, [&](const Area& area) { return area.colour == colour && area.dots.contains(dots); });
}

void FlatAreas::fill(QRect dots, QRgb colour) {
  std::erase_if(areas_, [&](const Area& area) {
    return area.colour == colour ? dots.contains(area.dots) : area.dots.intersects(dots);
  });
  if (areas_.size() == mostAreas) areas_.erase(areas_.begin());
  areas_.push_back({dots, colour});
}

void FlatAreas::disturb(QRect dots) {
  std::erase_if(areas_, [&](const Area& area) { return area.dots.intersects(dots); });
}

} // namespace chiffrolo::qt
