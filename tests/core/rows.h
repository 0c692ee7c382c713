// SPDX-License-Identifier: MIT
#pragma once

#include "recording/player.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace chiffrolo::test {

/// What the learner perceives of a scenario. Lists are joined: "47 + 35 = ? | Score = 1".
class PlayedScenario {
public:
  /// Plays `scenario`, one command per line.
  explicit PlayedScenario(const std::string& scenario) {
    std::istringstream lines(scenario);
    for (std::string line; std::getline(lines, line);) {
      announcement(); // forgets the changes of the lines before
      effects_.clear();
      player_.play(line);
    }
  }

  /// The visible texts of the active screen.
  std::string visibleText() {
    std::vector<std::string> texts;
    for (const auto& visible : program().visibleTexts(program().active().value()))
      texts.push_back(visible.text());
    return joined(texts, " | ");
  }

  /// What a screen reader reads of the active screen: "47 plus 35 égale ? | Score égale 1".
  std::string spokenText() {
    std::vector<std::string> texts;
    for (const auto& text : program().spokenTexts(program().active().value()))
      texts.push_back(text.words);
    return joined(texts, " | ");
  }

  /// What a screen reader announces of the last line.
  std::string announcement() { return program().takeAnnouncement(); }

  /// The transcript lines of the last line that begin with one of `prefixes`.
  std::string effects(const std::vector<std::string_view>& prefixes) const {
    std::vector<std::string> found;
    std::ranges::copy_if(effects_, std::back_inserter(found), [&](const std::string& effect) {
      return std::ranges::any_of(prefixes, [&](auto prefix) { return effect.starts_with(prefix); });
    });
    return joined(found, ", ");
  }

  /// The screens that the last line loads, activates and unloads, and the end of the program.
  std::string screenChanges() const { return effects({"load ", "activate ", "unload ", "end"}); }

private:
  static std::string joined(const std::vector<std::string>& items, const std::string& separator) {
    std::string list;
    for (const auto& item : items)
      list += (list.empty() ? "" : separator) + item;
    return list;
  }

  Program& program() { return player_.program(); }

  std::vector<std::string> effects_;
  Player player_{[this](std::string_view line) { effects_.emplace_back(line); }};
};

/// One row of a table of tests.
struct Row {
  const char* name;
  std::string scenario;
  std::string expected;
};

inline void PrintTo(const Row& row, std::ostream* out) { *out << row.scenario; }

inline std::string nameOfRow(const testing::TestParamInfo<Row>& info) { return info.param.name; }

} // namespace chiffrolo::test

/// Defines one test for each of the given rows. `perception` is the name of a function of `PlayedScenario`.
#define ROWS(suite, perception, ...)                                                                         \
  class suite : public testing::TestWithParam<Row> {};                                                       \
  TEST_P(suite, perception) {                                                                                \
    EXPECT_EQ(PlayedScenario(GetParam().scenario).perception(), GetParam().expected);                        \
  }                                                                                                          \
  INSTANTIATE_TEST_SUITE_P(Rows, suite, testing::ValuesIn(std::vector<Row>{__VA_ARGS__}), nameOfRow)

// ---- The beginnings of scenarios: the first operation of each activity -------------------------------

#define ADDITION "rnd 0.1 0.7 0.4 0.3 0.5\nclick Commande1\n"  // 47 + 35
#define MULTIPLICATION "rnd 0 0 0.12 0 0.5\nclick Commande2\n" // 12 x 4
#define DIVISION "rnd 0.1517 0\nclick Commande3\n"             // 48 : 2
#define LONG_DIVISION DIVISION "key 9\nkey Enter\nkey x\n"
#define CHALLENGE "rnd 0 0.11 0.7 0.4\nclick Commande4\n" // 20 + 47
