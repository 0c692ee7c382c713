// SPDX-License-Identifier: MIT

/// Plays the fuzzer's input as a scenario, under the sanitizers, and checks that
/// - every transcript line, announcement and spoken text is well-formed and printable;
/// - a rejected line has no effect, and no change is announced twice;
/// - the accepted lines alone, played without a screen reader's queries, give the same transcript.

#include "recording/player.h"
#include "screen/utf8.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <sstream>

namespace chiffrolo::test {

namespace {

using Lines = std::vector<std::string>;

void expect(bool condition, std::string_view what, std::string_view where) {
  if (condition) return;
  std::cerr << what << ": " << where << '\n';
  std::abort(); // the fuzzer saves an input that crashes
}

void expectPrintable(std::string_view text) {
  constexpr char32_t firstPrintable = 32;
  const auto isPrintable = [](std::string_view bytes) {
    const auto code = codePoint(bytes);
    return code && *code >= firstPrintable;
  };
  expect(std::ranges::all_of(characters(text), isPrintable), "not printable text", text);
}

Lines linesOf(const std::string& scenario) {
  Lines lines;
  std::istringstream input(scenario);
  for (std::string line; std::getline(input, line);)
    lines.push_back(line);
  return lines;
}

void checkAnnouncement(Program& program) {
  expectPrintable(program.takeAnnouncement());
  expect(program.takeAnnouncement().empty(), "announced twice", "");
}

void checkSpokenTexts(const Program& program) {
  if (const auto active = program.active())
    for (const auto& text : program.spokenTexts(*active))
      expectPrintable(text.words);
}

struct Run {
  Lines accepted;
  Lines transcript;
};

Run playWithScreenReader(const Lines& lines) {
  Run run;
  Player player([&](std::string_view line) {
    expectPrintable(line);
    run.transcript.emplace_back(line);
  });
  for (const auto& line : lines) {
    if (player.hasEnded()) break;
    const auto before = run.transcript.size();
    try {
      player.play(line);
      run.accepted.push_back(line);
    } catch (const ScenarioError&) {
      expect(run.transcript.size() == before, "rejected, but it had an effect", line);
    }
    checkAnnouncement(player.program());
  }
  checkSpokenTexts(player.program());
  return run;
}

Lines playWithoutScreenReader(const Lines& lines) {
  Lines transcript;
  Player player([&](std::string_view line) { transcript.emplace_back(line); });
  for (const auto& line : lines)
    player.play(line);
  return transcript;
}

} // namespace

} // namespace chiffrolo::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace chiffrolo::test;
  const auto run = playWithScreenReader(linesOf(std::string(data, data + size)));
  expect(run.transcript == playWithoutScreenReader(run.accepted), "not as without a screen reader", "");
  return 0;
}
