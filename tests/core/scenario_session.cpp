// SPDX-License-Identifier: MIT
#include "tests/core/scenario_session.h"

#include <algorithm>
#include <sstream>

namespace chiffrolo::test {

namespace {

void append(std::string& list, std::string_view separator, std::string_view item) {
  if (!list.empty()) list += separator;
  list += item;
}

} // namespace

ScenarioSession::ScenarioSession(std::string_view scenario)
    : player_([this](std::string_view line) { transcript_.emplace_back(line); }) {
  play(scenario);
}

void ScenarioSession::play(std::string_view scenario) {
  std::istringstream lines{std::string(scenario)};
  for (std::string line; std::getline(lines, line);)
    player_.play(line);
}

std::string ScenarioSession::visibleText() {
  std::string texts;
  if (const auto active = program().active())
    for (const auto& visible : program().visibleTexts(*active))
      append(texts, " | ", visible.text());
  return texts;
}

std::string ScenarioSession::spokenText() {
  std::string texts;
  if (const auto active = program().active())
    for (const auto& text : program().spokenTexts(*active))
      append(texts, " | ", text.words);
  return texts;
}

std::string ScenarioSession::takeEffects(const std::vector<std::string_view>& prefixes) {
  std::string found;
  for (const auto& line : transcript_)
    if (std::ranges::any_of(prefixes, [&](std::string_view prefix) { return line.starts_with(prefix); }))
      append(found, ", ", line);
  transcript_.clear();
  return found;
}

} // namespace chiffrolo::test
