// SPDX-License-Identifier: MIT
#include "qt/key_repeat.h"

namespace chiffrolo::qt {

namespace {

/// X11 sends auto-repeat as pairs of a release and a press with equal timestamps. On a busy machine, Qt 6.4
/// receives the two too far apart to mark them as auto-repeat. A finger is slower than that.
constexpr KeyRepeatFilter::Milliseconds repeatGap = 1;

bool isAtOnce(KeyRepeatFilter::Milliseconds press, std::optional<KeyRepeatFilter::Milliseconds> release) {
  return press != KeyRepeatFilter::unknown && release && press - *release <= repeatGap;
}

} // namespace

KeyRepeatFilter::Verdict KeyRepeatFilter::press(ScanCode key, Milliseconds time, Origin origin,
                                                ScreenName activeScreen) {
  auto& held = keys_[key];
  if (!isRepeat(key, time, origin)) held.pressedOn = activeScreen;
  return held.pressedOn == activeScreen ? Verdict::counts : Verdict::dropped;
}

bool KeyRepeatFilter::isRepeat(ScanCode key, Milliseconds time, Origin origin) const {
  const auto held = keys_.find(key);
  return origin == Origin::autoRepeat || (held != keys_.end() && isAtOnce(time, held->second.released));
}

void KeyRepeatFilter::release(ScanCode key, Milliseconds time, Origin origin) {
  if (origin == Origin::hand) keys_[key].released = time;
}

} // namespace chiffrolo::qt
