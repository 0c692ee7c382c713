// SPDX-License-Identifier: MIT
#pragma once

#include "tests/core/scenario_session.h"

#include <gtest/gtest.h>

namespace chiffrolo::test {

/// One row of a table of tests: the scenario to play and what the learner perceives of its last line.
struct Row {
  const char* name;
  std::string scenario;
  std::string expected;
};

inline void PrintTo(const Row& row, std::ostream* out) { *out << row.scenario; }

inline std::string nameOfRow(const testing::TestParamInfo<Row>& info) { return info.param.name; }

/// The function of `ScenarioSession` that returns what the learner perceives.
using Perception = std::string (ScenarioSession::*)();

/// The result of `perception` after the last line of the scenario. What it returns for the lines before that
/// one is dropped.
inline std::string perceived(const Row& row, Perception perception) {
  const auto last = row.scenario.rfind('\n') + 1; // 0 if there is only one line
  ScenarioSession session(row.scenario.substr(0, last));
  (session.*perception)();
  session.play(row.scenario.substr(last));
  return (session.*perception)();
}

/// The transcript lines of the last line of the scenario that begin with `prefix`, joined by ", ".
inline std::string lastEffects(const std::string& scenario, std::string_view prefix) {
  const auto last = scenario.rfind('\n') + 1;
  ScenarioSession session(scenario.substr(0, last));
  session.takeEffects({});
  session.play(scenario.substr(last));
  return session.takeEffects({prefix});
}

} // namespace chiffrolo::test

/// Defines one test for each of the given rows. `perception` is the name of a function of `ScenarioSession`.
#define ROWS(suite, perception, ...)                                                                         \
  class suite : public testing::TestWithParam<Row> {};                                                       \
  TEST_P(suite, perception) {                                                                                \
    EXPECT_EQ(perceived(GetParam(), &ScenarioSession::perception), GetParam().expected);                     \
  }                                                                                                          \
  INSTANTIATE_TEST_SUITE_P(Rows, suite, testing::ValuesIn(std::vector<Row>{__VA_ARGS__}), nameOfRow)
