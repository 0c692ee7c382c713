// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <random>

namespace chiffrolo {

/// The random numbers of one program. Numbers that were given come first, in order, so that a run can be
/// replayed; then those of a generator.
class RandomNumbers {
public:
  /// `timeOfDay` is called by each `Randomize`.
  explicit RandomNumbers(std::function<std::uint64_t()> timeOfDay);

  /// The next number, uniform in [0, 1).
  double Rnd();

  /// Mixes the time of day into the state of the generator. The state is not replaced, so that reseeding
  /// twice at the same instant does not repeat numbers. Given numbers are not affected.
  void Randomize();

  /// Int(span × Rnd + base): a whole number, uniform from `base` to `base` + `span` - 1.
  int whole(int span, int base);

  /// Appends a number in [0, 1) to the given numbers.
  void give(double number);
  std::size_t givenNumbersLeft() const { return given_.size(); }

private:
  std::function<std::uint64_t()> timeOfDay_;
  std::mt19937_64 generator_;
  std::deque<double> given_;
};

} // namespace chiffrolo
