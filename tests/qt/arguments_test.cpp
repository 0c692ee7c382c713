// SPDX-License-Identifier: MIT
#include "qt/arguments.h"

#include <gtest/gtest.h>

#include <vector>

namespace chiffrolo::qt {

namespace {

using Texts = std::vector<const char*>;

Arguments read(Texts arguments) {
  arguments.insert(arguments.begin(), "chiffrolo");
  return readArguments(arguments, "1.2.3");
}

TEST(Arguments, setTheZoom) {
  EXPECT_EQ(read({}).zoom, Zoom{});
  EXPECT_EQ(read({"--zoom", "150"}).zoom, Zoom{1.5});
  EXPECT_EQ(read({"--zoom=100", "--zoom=300"}).zoom, Zoom{3});
  EXPECT_EQ(read({"--zoom", "fill"}).zoom, Zoom::filling());
}

TEST(Arguments, helpIsPrintedInsteadOfAGame) {
  EXPECT_NE(read({"--zoom", "150", "--help"}).answer.value().text.find("--zoom"), std::string::npos);
}

TEST(Arguments, faultsArePrintedInOneLineWithStatus2) {
  for (const auto& arguments : {Texts{"--zoom"}, Texts{"--zoom", "99"}, Texts{"--zoom", "301"},
                                Texts{"--zoom", "150%"}, Texts{"--zoom="}, Texts{"-stylesheet", "dark.qss"},
                                Texts{"--verbose"}, Texts{"lines\nin a name"}, Texts{""}}) {
    const auto answer = read(arguments).answer;
    ASSERT_TRUE(answer.has_value()) << arguments.front();
    EXPECT_EQ(answer->status, 2);
    EXPECT_EQ(answer->text.find('\n'), answer->text.size() - 1) << answer->text;
    EXPECT_TRUE(answer->text.starts_with("Chiffrolo\u00A0: ")) << answer->text;
  }
}

} // namespace

} // namespace chiffrolo::qt
