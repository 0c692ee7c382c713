// SPDX-License-Identifier: MIT
#pragma once

#include <QKeyEvent>

#include <cstdint>
#include <optional>

namespace chiffrolo::qt {

struct KeyStroke {
  int code{};
  std::optional<char32_t> character;
  bool operator==(const KeyStroke&) const = default;
};

/// What the native codes of a key event tell: those of X11, which Wayland has taken over, tell the place of
/// the key on the keyboard, whatever its layout makes of it; those of other platforms are not looked at.
enum class NativeCodes : std::uint8_t { notKnown, ofX11 };
NativeCodes nativeCodes();

/// What a key press means to the program; nothing for a modifier on its own. Codes are translated, not passed
/// on: Qt's own code of the apostrophe is that of the right arrow across the boundary. The digit row and the
/// keypad type digits without Shift, Caps Lock or Num Lock, too.
std::optional<KeyStroke> translateKey(const QKeyEvent& press, NativeCodes codes = nativeCodes());

} // namespace chiffrolo::qt
