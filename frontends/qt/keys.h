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

/// Whether the native codes of key events are known. X11 and Wayland have the same scan codes, which identify
/// the physical key on any layout.
enum class NativeCodes : std::uint8_t { notKnown, ofX11 };
NativeCodes nativeCodes();

/// Translates a key press for the program; nothing for a modifier alone. Qt's key codes are not passed on:
/// Qt's code of the apostrophe is the program's code of the right arrow. The digit row and the keypad type
/// digits also without Shift, Caps Lock or Num Lock.
std::optional<KeyStroke> translateKey(const QKeyEvent& press, NativeCodes codes = nativeCodes());

} // namespace chiffrolo::qt
