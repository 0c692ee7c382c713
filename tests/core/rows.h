// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace chiffrolo::test {

/// One row of a table of like cases: what is played, and what must come of it.
struct Row {
  const char* name;
  const char* scenario;
  const char* expected;
};

inline void PrintTo(const Row& row, std::ostream* out) { *out << row.scenario; }

inline std::string nameOfRow(const testing::TestParamInfo<Row>& info) { return info.param.name; }

} // namespace chiffrolo::test

/// The rows that follow run as tests of `suite`, a `testing::TestWithParam<Row>`.
#define ROWS(suite, ...)                                                                                     \
  INSTANTIATE_TEST_SUITE_P(Rows, suite, testing::ValuesIn(std::vector<chiffrolo::test::Row>{__VA_ARGS__}),   \
                           chiffrolo::test::nameOfRow)
