// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace chiffrolo {

/// The digits of an exact division as it is worked out on paper.
class LongDivision {
public:
  LongDivision() = default;
  /// `quotient` is 1 or more, `divisor` from 1 to 9.
  LongDivision(int quotient, int divisor);

  int divisor() const { return diviseur_; }
  int dividend() const { return dividende_; }

  int quotientDigits() const { return static_cast<int>(chiffresQuotient_.size()); }
  int dividendDigits() const { return static_cast<int>(chiffresDividende_.size()); }

  /// Digits are counted from 1, the most significant first; beyond either end, the text is empty. There is
  /// one remainder per digit of the quotient; the last one is 0.
  std::string_view quotientDigit(int index) const { return digit(chiffresQuotient_, index); }
  std::string_view dividendDigit(int index) const { return digit(chiffresDividende_, index); }
  std::string_view remainder(int index) const { return digit(restes_, index); }
  /// The digit of the dividend that is brought down next to a remainder.
  std::string_view broughtDown(int index) const;

private:
  static std::string_view digit(const std::string& digits, int index);

  int diviseur_{};
  int dividende_{};
  std::string chiffresQuotient_;
  std::string chiffresDividende_;
  std::string restes_;
};

} // namespace chiffrolo
