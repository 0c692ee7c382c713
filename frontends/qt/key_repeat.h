// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"

#include <cstdint>
#include <map>
#include <optional>

namespace chiffrolo::qt {

/// Drops auto-repeat of a key that was pressed on another screen: a child who holds Enter too long must not
/// skip the next screen.
class KeyRepeatFilter {
public:
  using ScanCode = std::uint32_t;
  using Milliseconds = std::uint64_t; ///< timestamps of the window system, from any origin
  static constexpr Milliseconds unknown = 0;

  enum class Origin : std::uint8_t { hand, autoRepeat };
  enum class Verdict : std::uint8_t { counts, dropped };

  Verdict press(ScanCode key, Milliseconds time, Origin origin, ScreenName activeScreen);
  /// Whether such a press, which was not given to `press`, is auto-repeat.
  bool isRepeat(ScanCode key, Milliseconds time, Origin origin) const;
  void release(ScanCode key, Milliseconds time, Origin origin);
  /// Drops the auto-repeat of the key until it is pressed again.
  void dropRepeats(ScanCode key) { keys_.erase(key); }

private:
  struct HeldKey {
    std::optional<ScreenName> pressedOn;
    std::optional<Milliseconds> released;
  };

  std::map<ScanCode, HeldKey> keys_;
};

} // namespace chiffrolo::qt
