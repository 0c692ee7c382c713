// SPDX-License-Identifier: MIT
#include "modes/long_division.h"

namespace chiffrolo {

LongDivision::LongDivision(int quotient, int divisor)
    : diviseur_(divisor), dividende_(quotient * divisor), chiffresQuotient_(std::to_string(quotient)),
      chiffresDividende_(std::to_string(dividende_)) {
  // Each remainder is that of the leading digits of the dividend that were brought down so far.
  int power = 1;
  for (int index = quotientDigits(); index >= 1; --index, power *= 10)
    restes_.insert(0, std::to_string(dividende_ / power % diviseur_));
}

std::string_view LongDivision::broughtDown(int index) const {
  return dividendDigit(dividendDigits() - quotientDigits() + index + 1);
}

std::string_view LongDivision::digit(const std::string& digits, int index) {
  if (index < 1 || index > static_cast<int>(digits.size())) return {};
  return std::string_view(digits).substr(static_cast<std::size_t>(index - 1), 1);
}

} // namespace chiffrolo
