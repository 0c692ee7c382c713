// SPDX-License-Identifier: MIT
#include "screen/random_numbers.h"

#include "screen/values.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace chiffrolo {

RandomNumbers::RandomNumbers(std::function<std::uint64_t()> timeOfDay) : timeOfDay_(std::move(timeOfDay)) {}

double RandomNumbers::Rnd() {
  if (!given_.empty()) {
    const double number = given_.front();
    given_.pop_front();
    return number;
  }
  constexpr int mantissaBits = 53; // of a double, so that the result stays below 1
  return static_cast<double>(generator_() >> (64 - mantissaBits)) / static_cast<double>(1ULL << mantissaBits);
}

void RandomNumbers::Randomize() { generator_.seed(generator_() ^ timeOfDay_()); }

// The sum is rounded, and would be `base` + `span` for the largest numbers below 1.
int RandomNumbers::whole(int span, int base) { return std::min(Int(span * Rnd() + base), base + span - 1); }

void RandomNumbers::give(double number) {
  assert(number >= 0 && number < 1);
  given_.push_back(number);
}

} // namespace chiffrolo
