// SPDX-License-Identifier: MIT

/// How many key presses a second the program itself takes, on the recording platform with its transcript
/// switched off, and how many bytes its memory has grown by after them.

#include "recording/recording_platform.h"
#include "screens.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

namespace {

using namespace chiffrolo;

/// Types the shared result, submits it and goes on: right for additions and divisions, wrong for the others,
/// whose corrections follow. The score falls back before the level is passed.
class Pupil {
public:
  explicit Pupil(ScreenName screen) {
    program_.start();
    program_.Show(screen);
  }

  /// How many keys that took.
  int answer() {
    if (program_.shared().score > 8) program_.shared().score = 0;
    const std::string digits = std::to_string(program_.shared().resultat);
    for (const char digit : digits)
      program_.key(keyCode::other, static_cast<char32_t>(digit));
    program_.key(keyCode::enter, character::enter);
    program_.key(keyCode::enter, character::enter);
    return static_cast<int>(digits.size()) + 2;
  }

private:
  RecordingPlatform platform_{{}};
  Program program_{platform_, allScreens};
};

void keyPresses(benchmark::State& state, ScreenName screen) {
  Pupil pupil(screen);
  for (int warmUp = 0; warmUp < 1000; ++warmUp)
    pupil.answer();
  const auto before = mallinfo2().uordblks;
  std::int64_t keys = 0;
  for ([[maybe_unused]] const auto step : state)
    keys += pupil.answer();
  state.SetItemsProcessed(keys);
  state.counters["grown_bytes"] = static_cast<double>(mallinfo2().uordblks) - static_cast<double>(before);
}

BENCHMARK_CAPTURE(keyPresses, additions, ScreenName::addition);
BENCHMARK_CAPTURE(keyPresses, multiplications, ScreenName::multiplication);
BENCHMARK_CAPTURE(keyPresses, divisions, ScreenName::division);
BENCHMARK_CAPTURE(keyPresses, challenge, ScreenName::record);

} // namespace
