// SPDX-License-Identifier: MIT

/// A million random events on all screens of two programs, built with the address and undefined-behaviour
/// sanitizers: whatever is pressed, clicked or awaited, the program stays sound.

#include "recording/recording_platform.h"
#include "screen/layouts.h"
#include "screens.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <optional>
#include <random>
#include <set>

namespace chiffrolo::test {

namespace {

using Generator = std::mt19937;

int drawn(Generator& generator, int below) {
  return static_cast<int>(generator() % static_cast<unsigned>(below));
}

/// A program that starts anew whenever it has ended.
class Restless {
public:
  Restless() { restart(); }

  void act(Generator& generator) {
    if (!toType_.empty()) return type();
    switch (drawn(generator, 16)) {
    case 0: return click(generator);
    case 1: return program_->front(static_cast<ScreenName>(drawn(generator, screenCount)));
    case 2: return platform_->wait(std::chrono::milliseconds(drawn(generator, 40000)));
    case 3: return rarely(generator);
    case 4: return knowTheAnswer();
    case 5: return comeFar();
    default: return press(generator);
    }
  }

  void check() {
    if (platform_->hasQuit()) return restart();
    const auto& shared = program_->shared();
    ASSERT_TRUE(program_->active().has_value());
    ASSERT_GE(shared.score, 0);
    ASSERT_LE(shared.reponse.size(), 4U);
    ASSERT_EQ(shared.reponse.find_first_not_of("0123456789"), std::string::npos);
    ASSERT_TRUE(shared.couleur >= 0 && shared.couleur <= 15) << shared.couleur;
    checkChallenge(shared);
  }

  ScreenName active() const { return *program_->active(); }
  /// What was said is not said again, and what is said can be read.
  void checkSpeech() {
    const auto texts = program_->spokenTexts(active());
    ASSERT_LT(texts.size(), 100U);
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
    chrono_ = 0;
  }

  void checkChallenge(const MODULE11& shared) {
    const int right = std::accumulate(shared.reussies.begin(), shared.reussies.end(), 0);
    const int drawnOperations = std::accumulate(shared.effectuees.begin(), shared.effectuees.end(), 0);
    ASSERT_EQ(shared.nbOperations, right);
    for (std::size_t kind = 1; kind < shared.reussies.size(); ++kind) {
      ASSERT_LE(shared.reussies[kind], 5);
      ASSERT_LE(shared.reussies[kind], shared.effectuees[kind]);
    }
    const bool challengeHasBegun = shared.chrono == 0 && drawnOperations == 1;
    ASSERT_TRUE(shared.chrono >= chrono_ || challengeHasBegun);
    chrono_ = shared.chrono;
  }

  void press(Generator& generator) {
    static constexpr std::array<char32_t, 10> characters{13, 13, 13, 27, 8, U' ', U'=', U'x', U'é', U'\''};
    if (drawn(generator, 8) == 0) {
      program_->key(drawn(generator, 2) == 0 ? keyCode::right : keyCode::other, std::nullopt);
    } else {
      const bool digit = drawn(generator, 2) == 0;
      const auto number = static_cast<std::size_t>(drawn(generator, 10));
      const char32_t typed = digit ? U'0' + static_cast<char32_t>(number) : characters[number];
      program_->key(typed == character::enter ? keyCode::enter : keyCode::other, typed);
    }
  }

  void knowTheAnswer() { toType_ = std::to_string(program_->shared().resultat) + '\r'; }

  /// Chance alone passes no level.
  void comeFar() { program_->shared().score = 9; }

  void type() {
    const auto typed = static_cast<char32_t>(toType_.front());
    toType_.erase(0, 1);
    program_->key(typed == character::enter ? keyCode::enter : keyCode::other, typed);
  }

  void click(Generator& generator) { program_->click(static_cast<ControlIndex>(drawn(generator, 10))); }

  void rarely(Generator& generator) {
    if (drawn(generator, 20) == 0) return program_->close();
    // A stray tick of any control of any screen, on time or not.
    program_->tick(static_cast<ScreenName>(drawn(generator, screenCount)),
                   static_cast<ControlIndex>(drawn(generator, 10)));
  }

  std::optional<RecordingPlatform> platform_;
  std::optional<Program> program_;
  std::string toType_;
  int chrono_{};
};

TEST(RandomEvents, keepTwoProgramsSound) {
  constexpr int events = 1'000'000;
  Generator generator(20260101);
  std::array<Restless, 2> runs;
  std::set<ScreenName> seen;
  for (int event = 0; event < events; ++event) {
    Restless& run = runs[static_cast<std::size_t>(drawn(generator, 2))];
    run.act(generator);
    ASSERT_NO_FATAL_FAILURE(run.check()) << "event " << event;
    seen.insert(run.active());
    if (event % 100 != 0) continue;
    ASSERT_NO_FATAL_FAILURE(run.checkSpeech()) << "event " << event;
  }
  EXPECT_EQ(seen.size(), screenCount);
}

} // namespace

} // namespace chiffrolo::test
