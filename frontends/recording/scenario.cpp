// SPDX-License-Identifier: MIT

/// `scenario`: plays the scenario on standard input and prints every effect that the program has. Exit status
/// 2 means a malformed line, which standard error names by its number.

#include "recording/player.h"

#include <iostream>

int main() {
  using chiffrolo::Player;
  std::ios::sync_with_stdio(false);
  Player player([](std::string_view line) { std::cout << line << '\n'; });
  std::string line;
  for (int number = 1; !player.hasEnded() && std::getline(std::cin, line); ++number) {
    try {
      player.play(line);
    } catch (const chiffrolo::ScenarioError& error) {
      std::cout.flush();
      std::cerr << "line " << number << ": " << error.what() << '\n';
      return 2;
    }
  }
  return 0;
}
