// SPDX-License-Identifier: MIT
#pragma once

#include <sstream>
#include <string>

namespace chiffrolo::test {

/// An operation as it is printed.
struct Operation {
  int left{};
  char sign{};
  int right{};

  /// 0 if there is no operation.
  int result() const {
    switch (sign) {
    case '+': return left + right;
    case '-': return left - right;
    case 'x': return left * right;
    case ':': return right == 0 ? 0 : left / right;
    default: return 0;
    }
  }
};

/// The operation at the start of `text`; blanks are ignored, also within a number: "1 234 : 2 = ?".
inline Operation parsed(std::string text) {
  std::erase(text, ' ');
  Operation operation;
  std::istringstream(text) >> operation.left >> operation.sign >> operation.right;
  return operation;
}

} // namespace chiffrolo::test
