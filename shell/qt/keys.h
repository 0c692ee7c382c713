// SPDX-License-Identifier: MIT
#pragma once

#include <QKeyEvent>

#include <optional>

namespace chiffrolo::qt {

struct KeyStroke {
  int code{};
  std::optional<char32_t> character;
  bool operator==(const KeyStroke&) const = default;
};

/// What a key press means to the program; nothing for a modifier on its own. Codes are translated, not passed
/// on: Qt's own code of the apostrophe is that of the right arrow across the boundary.
std::optional<KeyStroke> translateKey(const QKeyEvent& press);

} // namespace chiffrolo::qt
