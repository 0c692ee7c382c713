// SPDX-License-Identifier: MIT

/// Measures the key presses per second of the core on the recording platform without a transcript, and the
/// growth of its heap in bytes.

#include "recording/recording_platform.h"
#include "screens.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

namespace {

using namespace chiffrolo;

/// Answers operations with the shared variable `resultat`. That is the right answer for additions and
/// divisions, and a wrong one, followed by a correction, for the others. Resets the score before the level is
/// complete.
class AnsweringPlayer {
public:
  explicit AnsweringPlayer(ScreenName screen) {
    program_.start();
    program_.Show(screen);
  }

  /// Returns the number of keys pressed.
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
  AnsweringPlayer player(screen);
  for (int warmUp = 0; warmUp < 1000; ++warmUp)
    player.answer();
  const auto before = mallinfo2().uordblks;
  std::int64_t keys = 0;
  for ([[maybe_unused]] const auto step : state)
    keys += player.answer();
  state.SetItemsProcessed(keys);
  state.counters["grown_bytes"] = static_cast<double>(mallinfo2().uordblks) - static_cast<double>(before);
}

BENCHMARK_CAPTURE(keyPresses, additions, ScreenName::addition);
BENCHMARK_CAPTURE(keyPresses, multiplications, ScreenName::multiplication);
BENCHMARK_CAPTURE(keyPresses, divisions, ScreenName::division);
BENCHMARK_CAPTURE(keyPresses, challenge, ScreenName::record);

} // namespace
