// SPDX-License-Identifier: MIT

/// Plays whatever bytes the fuzzer thinks of as a scenario. Whatever they are, no sanitizer may complain, and
/// - what is printed and what is said must be well-formed text;
/// - a line that is refused must have done nothing, and what was said is not said again;
/// - the same scenario without the refused lines, and with nobody listening, must give the same transcript.

#include "recording/player.h"
#include "screen/utf8.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

namespace chiffrolo::test {

namespace {

using Lines = std::vector<std::string>;

void expect(bool condition, std::string_view what, std::string_view where) {
  if (condition) return;
  std::cerr << what << ": " << where << '\n';
  std::abort(); // which the fuzzer takes for a crash, so that it keeps the input
}

void expectText(std::string_view text) {
  constexpr char32_t firstPrintable = 32;
  const auto isPrintable = [](std::string_view bytes) {
    const auto code = codePoint(bytes);
    return code && *code >= firstPrintable;
  };
  expect(std::ranges::all_of(characters(text), isPrintable), "not a text", text);
}

Lines linesOf(std::string_view scenario) {
  Lines lines;
  while (!scenario.empty()) {
    const auto length = std::min(scenario.find('\n'), scenario.size());
    lines.emplace_back(scenario.substr(0, length));
    scenario.remove_prefix(std::min(length + 1, scenario.size()));
  }
  return lines;
}

void listen(Program& program) {
  expectText(program.takeAnnouncement());
  expect(program.takeAnnouncement().empty(), "said twice", "");
}

void readAloud(const Program& program) {
  if (const auto active = program.active())
    for (const auto& text : program.spokenTexts(*active))
      expectText(text.words);
}

struct Run {
  Lines accepted;
  Lines transcript;
};

Run playAttentively(const Lines& lines) {
  Run run;
  Player player([&](std::string_view line) {
    expectText(line);
    run.transcript.emplace_back(line);
  });
  for (const auto& line : lines) {
    if (player.hasEnded()) break;
    const auto before = run.transcript.size();
    try {
      player.play(line);
      run.accepted.push_back(line);
    } catch (const ScenarioError&) {
      expect(run.transcript.size() == before, "refused, and yet it did something", line);
    }
    listen(player.program());
  }
  readAloud(player.program());
  return run;
}

Lines playDeaf(const Lines& lines) {
  Lines transcript;
  Player player([&](std::string_view line) { transcript.emplace_back(line); });
  for (const auto& line : lines)
    player.play(line);
  return transcript;
}

void expectSame(const Lines& one, const Lines& other) {
  const auto [in, inOther] = std::ranges::mismatch(one, other);
  expect(in == one.end(), "not in the second run", in == one.end() ? "" : *in);
  expect(inOther == other.end(), "in the second run only", inOther == other.end() ? "" : *inOther);
}

} // namespace

} // namespace chiffrolo::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace chiffrolo::test;
  const auto run = playAttentively(linesOf(std::string(data, data + size)));
  expectSame(run.transcript, playDeaf(run.accepted));
  return 0;
}
