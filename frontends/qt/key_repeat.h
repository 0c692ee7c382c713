// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"

#include <cstdint>
#include <map>
#include <optional>

namespace chiffrolo::qt {

/// Lets a held key act on the screen where it was freshly pressed only, lest a child who holds Enter a little
/// too long runs through the next screen without having seen it.
class KeyRepeatFilter {
public:
  using ScanCode = std::uint32_t;
  using Milliseconds = std::uint64_t; ///< time stamps of the window system, from any origin
  static constexpr Milliseconds unknown = 0;

  enum class Origin : std::uint8_t { hand, autoRepeat };
  enum class Verdict : std::uint8_t { counts, dropped };

  Verdict press(ScanCode key, Milliseconds time, Origin origin, ScreenName activeScreen);
  void release(ScanCode key, Milliseconds time, Origin origin);
  /// None of the key's repeats counts until it is freshly pressed again.
  void dropRepeats(ScanCode key) { keys_.erase(key); }

private:
  struct HeldKey {
    std::optional<ScreenName> pressedOn;
    std::optional<Milliseconds> released;
  };

  std::map<ScanCode, HeldKey> keys_;
};

} // namespace chiffrolo::qt
