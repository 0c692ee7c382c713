// SPDX-License-Identifier: MIT

/// Sends a million random events to two programs under the address and undefined-behaviour sanitizers, and
/// checks after each event that the shared variables are valid. Now and then, most answers are right for a
/// while.

#include "recording/recording_platform.h"
#include "screen/layouts.h"
#include "screens.h"
#include "tests/core/operation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <numeric>
#include <optional>
#include <random>

namespace chiffrolo::test {

namespace {

using Generator = std::mt19937;

int randomBelow(Generator& generator, int limit) {
  return static_cast<int>(generator() % static_cast<unsigned>(limit));
}

/// What the random play has reached.
struct Reached {
  std::map<ScreenName, int> screens; ///< how often each screen became the active one
  int completeChallenges{};
};

/// Sends random events to a program, and restarts the program when it has ended.
class RandomPlayer {
public:
  explicit RandomPlayer(Reached& reached) : reached_(reached) { restart(); }

  void playEvent(Generator& generator) {
    if (!charactersToType_.empty()) return typeNextCharacter();
    if (randomBelow(generator, 5000) == 0) rightAnswersLeft_ = 100;
    if (rightAnswersLeft_ > 0 && randomBelow(generator, 500) != 0 && prepareRightAnswer()) return;
    // Of all screens and controls, whether or not they are loaded, visible or running.
    const auto screen = static_cast<ScreenName>(randomBelow(generator, screenCount));
    const auto control = static_cast<ControlIndex>(randomBelow(generator, 10));
    if (randomBelow(generator, 300) == 0) return program_->close();
    switch (randomBelow(generator, 14)) {
    case 0: return program_->click(control);
    case 1: return program_->tick(screen, control);
    case 2: return program_->front(screen);
    case 3: return platform_->wait(std::chrono::milliseconds(randomBelow(generator, 40000)));
    default: return pressAnyKey(generator);
    }
  }

  void checkVariables() {
    if (platform_->hasQuit()) return restart();
    const auto& shared = program_->shared();
    ASSERT_TRUE(program_->active().has_value());
    noteScreen();
    ASSERT_GE(shared.score, 0);
    ASSERT_LE(shared.reponse.size(), 4U);
    ASSERT_EQ(shared.reponse.find_first_not_of("0123456789"), std::string::npos);
    ASSERT_EQ(shared.nbOperations, std::accumulate(shared.reussies.begin(), shared.reussies.end(), 0));
    for (std::size_t kind = 1; kind < shared.reussies.size(); ++kind) {
      ASSERT_LE(shared.reussies[kind], 5);
      ASSERT_LE(shared.reussies[kind], shared.effectuees[kind]);
    }
  }

  /// No spoken text is empty, erased texts do not pile up, and no change is announced twice.
  void checkSpeech() {
    const auto texts = program_->spokenTexts(active());
    // A learner who answers wrongly after the last step has "FAUX" printed ever lower, also below the screen.
    constexpr Points contentHeight = 720;
    ASSERT_LT(std::ranges::count_if(texts, [](const auto& text) { return text.topLeft.y < contentHeight; }),
              100);
    for (const auto& text : texts)
      ASSERT_NE(text.words, "");
    program_->takeAnnouncement();
    ASSERT_EQ(program_->takeAnnouncement(), "");
  }

private:
  void restart() {
    program_.reset();
    platform_.emplace(RecordingPlatform::Sink{});
    program_.emplace(*platform_, allScreens);
    program_->start();
  }

  ScreenName active() const { return *program_->active(); }

  void noteScreen() {
    if (active() == previousScreen_) return;
    previousScreen_ = active();
    ++reached_.screens[active()];
    if (active() == ScreenName::FIN2 && program_->shared().nbOperations == 20) ++reached_.completeChallenges;
  }

  void type(char32_t typed) {
    program_->key(typed == character::enter ? keyCode::enter : keyCode::other, typed);
  }

  void pressAnyKey(Generator& generator) {
    constexpr std::u32string_view characters = U"00112233445566778899\r\r\r\r\r\r\33\33\b\b  ==xxéé''";
    constexpr int keysWithoutCharacter = 6;
    constexpr int keys = static_cast<int>(characters.size()) + keysWithoutCharacter;
    const auto key = static_cast<std::size_t>(randomBelow(generator, keys));
    if (key < characters.size()) return type(characters[key]);
    program_->key(key % 2 == 0 ? keyCode::right : keyCode::other, std::nullopt);
  }

  /// False if the screen asks no question. Enter follows the answer twice: to submit it, and to go on.
  bool prepareRightAnswer() {
    for (const auto& visible : program_->visibleTexts(active()))
      if (const auto text = visible.text(); text.ends_with("= ?"))
        charactersToType_ = std::to_string(parsed(text).result()) + "\r\r";
    rightAnswersLeft_ -= charactersToType_.empty() ? 0 : 1;
    return !charactersToType_.empty();
  }

  void typeNextCharacter() {
    type(static_cast<char32_t>(charactersToType_.front()));
    charactersToType_.erase(0, 1);
  }

  std::optional<RecordingPlatform> platform_;
  std::optional<Program> program_;
  std::string charactersToType_;
  int rightAnswersLeft_{};
  std::optional<ScreenName> previousScreen_;
  Reached& reached_;
};

TEST(RandomEvents, keepTheVariablesOfTwoProgramsValid) {
  constexpr int events = 1'000'000;
  Generator generator(20260101);
  Reached reached;
  std::array<RandomPlayer, 2> players{RandomPlayer(reached), RandomPlayer(reached)};
  for (int event = 0; event < events; ++event) {
    RandomPlayer& player = players[static_cast<std::size_t>(randomBelow(generator, 2))];
    player.playEvent(generator);
    ASSERT_NO_FATAL_FAILURE(player.checkVariables()) << "event " << event;
    if (event % 100 != 0) continue;
    ASSERT_NO_FATAL_FAILURE(player.checkSpeech()) << "event " << event;
  }
  EXPECT_EQ(reached.screens.size(), screenCount);
  EXPECT_GE(reached.screens[ScreenName::FIN], 100) << "levels passed";
  EXPECT_GE(reached.completeChallenges, 20);
}

} // namespace

} // namespace chiffrolo::test
