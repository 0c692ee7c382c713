// SPDX-License-Identifier: MIT
#pragma once

#include "qt/zoom.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace chiffrolo::qt {

/// What the command line asks for.
struct Arguments {
  /// Is printed instead of starting the game: on standard output if `status` is 0, else on standard error.
  struct Answer {
    int status{};
    std::string text;
    bool operator==(const Answer&) const = default;
  };

  Zoom zoom; ///< to start with
  std::optional<Answer> answer;
};

/// `arguments` begin with the name of the program. The first one that has an answer or a fault decides.
Arguments readArguments(std::span<const char* const> arguments, std::string_view version);

} // namespace chiffrolo::qt
