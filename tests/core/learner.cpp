// SPDX-License-Identifier: MIT
#include "tests/core/learner.h"

#include <algorithm>
#include <sstream>

namespace chiffrolo::test {

namespace {

void append(std::string& list, std::string_view separator, std::string_view item) {
  if (!list.empty()) list += separator;
  list += item;
}

} // namespace

Learner::Learner(std::string_view scenario)
    : player_([this](std::string_view line) { transcript_.emplace_back(line); }) {
  play(scenario);
}

void Learner::play(std::string_view scenario) {
  std::istringstream lines{std::string(scenario)};
  for (std::string line; std::getline(lines, line);)
    player_.play(line);
}

std::string Learner::reads() {
  std::string seen;
  if (const auto active = program().active())
    for (const auto& visible : program().visibleTexts(*active))
      append(seen, " | ", visible.text());
  return seen;
}

std::string Learner::effects(const std::vector<std::string_view>& words) {
  std::string found;
  for (const auto& line : transcript_)
    if (std::ranges::any_of(words, [&](std::string_view word) { return line.starts_with(word); }))
      append(found, ", ", line);
  transcript_.clear();
  return found;
}

} // namespace chiffrolo::test
