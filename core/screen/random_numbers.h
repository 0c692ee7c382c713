// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <random>

namespace chiffrolo {

/// The random numbers of one program. Numbers that were given come first, in order, so that a run can be
/// replayed; behind them stands a generator.
class RandomNumbers {
public:
  /// `timeOfDay` is asked at each `Randomize`.
  explicit RandomNumbers(std::function<std::uint64_t()> timeOfDay);

  /// The next number, uniform in [0, 1).
  double Rnd();

  /// Mixes the time of day into the generator's state. It does not replace the state: reseeding again within
  /// the same instant must not repeat the numbers drawn before. Given numbers stay as they are.
  void Randomize();

  /// Int(span × Rnd + base): a whole number, uniform from `base` to `base` + `span` - 1.
  int whole(int span, int base);

  /// Appends a number in [0, 1) to those that come first.
  void give(double number);
  std::size_t givenNumbersLeft() const { return given_.size(); }

private:
  std::function<std::uint64_t()> timeOfDay_;
  std::mt19937_64 generator_;
  std::deque<double> given_;
};

} // namespace chiffrolo
