// SPDX-License-Identifier: MIT
#pragma once

/// The names of the enumerators of a layout, as texts for people and other programs.

#include "platform.h"

#include <array>
#include <string_view>

namespace chiffrolo {

template <std::size_t count, typename Enumeration>
constexpr std::string_view nameIn(const std::array<std::string_view, count>& names, Enumeration value) {
  return names.at(static_cast<std::size_t>(value));
}

constexpr std::string_view nameOf(Frame frame) {
  return nameIn(std::array<std::string_view, 2>{"frameless", "toolWindow"}, frame);
}
constexpr std::string_view nameOf(ControlKind kind) {
  return nameIn(
      std::array<std::string_view, 7>{"label", "button", "image", "line", "shape", "pictureBox", "timer"},
      kind);
}
constexpr std::string_view nameOf(Alignment alignment) {
  return nameIn(std::array<std::string_view, 2>{"left", "centred"}, alignment);
}
constexpr std::string_view nameOf(Border border) {
  return nameIn(std::array<std::string_view, 2>{"none", "thin"}, border);
}
constexpr std::string_view nameOf(Visibility visible) {
  return nameIn(std::array<std::string_view, 2>{"hidden", "visible"}, visible);
}
constexpr std::string_view nameOf(Switch state) {
  return nameIn(std::array<std::string_view, 2>{"off", "on"}, state);
}
constexpr std::string_view nameOf(Typing typing) {
  return nameIn(std::array<std::string_view, 2>{"none", "answer"}, typing);
}
constexpr std::string_view nameOf(Closing closing) {
  return nameIn(std::array<std::string_view, 3>{"showsHome", "endsProgram", "endsChallenge"}, closing);
}
constexpr std::string_view nameOf(Picture picture) {
  return nameIn(std::array<std::string_view, 4>{"none", "arrow", "stop", "farewell"}, picture);
}

} // namespace chiffrolo
