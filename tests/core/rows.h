// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace chiffrolo::test {

/// One row of a parameterized test: the scenario to play and the expected result.
struct Row {
  const char* name;
  const char* scenario;
  const char* expected;
};

inline void PrintTo(const Row& row, std::ostream* out) { *out << row.scenario; }

inline std::string nameOfRow(const testing::TestParamInfo<Row>& info) { return info.param.name; }

} // namespace chiffrolo::test

/// Runs `suite`, a `testing::TestWithParam<Row>`, with each of the given rows.
#define ROWS(suite, ...)                                                                                     \
  INSTANTIATE_TEST_SUITE_P(Rows, suite, testing::ValuesIn(std::vector<chiffrolo::test::Row>{__VA_ARGS__}),   \
                           chiffrolo::test::nameOfRow)
