// SPDX-License-Identifier: MIT
#include "qt/key_repeat.h"

namespace chiffrolo::qt {

namespace {

/// X11 repeats a held key as pairs of a release and a press with one time stamp, and on a busy machine Qt
/// sees the two too far apart to mark them as a repeat. No finger is that fast.
constexpr KeyRepeatFilter::Milliseconds repeatGap = 1;

bool isAtOnce(KeyRepeatFilter::Milliseconds press, std::optional<KeyRepeatFilter::Milliseconds> release) {
  return press != KeyRepeatFilter::unknown && release && press - *release <= repeatGap;
}

} // namespace

KeyRepeatFilter::Verdict KeyRepeatFilter::press(ScanCode key, Milliseconds time, Origin origin,
                                                ScreenName activeScreen) {
  auto& held = keys_[key];
  const bool repeated = origin == Origin::autoRepeat || isAtOnce(time, held.released);
  if (!repeated) held.pressedOn = activeScreen;
  return held.pressedOn == activeScreen ? Verdict::counts : Verdict::dropped;
}

void KeyRepeatFilter::release(ScanCode key, Milliseconds time, Origin origin) {
  if (origin == Origin::hand) keys_[key].released = time;
}

} // namespace chiffrolo::qt
