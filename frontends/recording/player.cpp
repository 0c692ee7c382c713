// SPDX-License-Identifier: MIT
#include "recording/player.h"

#include "recording/layout_lines.h"
#include "screen/layouts.h"
#include "screen/utf8.h"
#include "shared_variables.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace chiffrolo {

namespace {

// ---- Arguments ---------------------------------------------------------------------------------------

std::vector<std::string_view> wordsOf(std::string_view line) {
  constexpr std::string_view blanks = " \t\r";
  std::vector<std::string_view> words;
  for (auto begin = line.find_first_not_of(blanks); begin != std::string_view::npos;) {
    const auto end = std::min(line.find_first_of(blanks, begin), line.size());
    words.push_back(line.substr(begin, end - begin));
    begin = line.find_first_not_of(blanks, end);
  }
  return words;
}

[[noreturn]] void refuse(std::string_view what, std::string_view word) {
  throw ScenarioError(std::string(what) + " \"" + std::string(word) + "\"");
}

void expectCount(std::span<const std::string_view> arguments, std::size_t count) {
  if (arguments.size() < count) throw ScenarioError("missing argument");
  if (arguments.size() > count) refuse("surplus argument", arguments[count]);
}

template <typename Number> Number number(std::string_view word) {
  Number value{};
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
  if (error != std::errc{} || end != word.data() + word.size()) refuse("not a number:", word);
  return value;
}

int wholeNumber(std::string_view word, int lowest, int highest) {
  const int value = number<int>(word);
  if (value < lowest || value > highest) refuse("number out of range:", word);
  return value;
}

// ---- Keys --------------------------------------------------------------------------------------------

struct Key {
  std::string_view name;
  int code;
  std::optional<char32_t> character;
};

constexpr std::array namedKeys{
    Key{"Enter", keyCode::enter, character::enter}, Key{"Escape", 27, character::escape},
    Key{"Backspace", 8, character::backspace},      Key{"Space", 32, U' '},
    Key{"Right", keyCode::right, std::nullopt},     Key{"Left", 37, std::nullopt},
};

/// The key that types a character has the code of its digit or capital letter, and none of its own otherwise.
int codeOfKeyFor(char32_t character) {
  if (isDigit(character) || (character >= U'A' && character <= U'Z')) return static_cast<int>(character);
  if (character >= U'a' && character <= U'z') return static_cast<int>(character - U'a' + U'A');
  return keyCode::other;
}

Key keyNamed(std::string_view name) {
  const auto found = std::ranges::find(namedKeys, name, &Key::name);
  if (found != namedKeys.end()) return *found;
  const auto character = codePoint(name);
  if (!character || *character < 33 || *character > 65535) refuse("unknown key", name);
  return {name, codeOfKeyFor(*character), character};
}

// ---- Variables ---------------------------------------------------------------------------------------

Counters countersFrom(std::span<const std::string_view> words) {
  expectCount(words, 4);
  Counters counters{};
  for (std::size_t kind = 1; kind < counters.size(); ++kind)
    counters[kind] = wholeNumber(words[kind - 1], 0, SaturatingInt16::highest);
  return counters;
}

/// The number of controls if there is none of that name: a click there has no effect.
ControlIndex controlNamed(const ScreenLayout& layout, std::string_view name) {
  const auto row = std::ranges::find(layout.controls, name, &ControlLayout::name);
  return static_cast<ControlIndex>(row - layout.controls.begin());
}

ScreenName onlyScreen(std::span<const std::string_view> names) {
  expectCount(names, 1);
  const auto screen = screenNamed(names[0]);
  if (!screen) refuse("unknown screen", names[0]);
  return *screen;
}

} // namespace

Player::Player(RecordingPlatform::Sink sink)
    : sink_(std::move(sink)), platform_([this](std::string_view line) { sink_(line); }),
      program_(platform_, allScreens) {
  program_.start();
}

Player::~Player() { platform_.stopRecording(); }

void Player::play(std::string_view line) {
  struct Command {
    std::string_view name;
    void (Player::*carryOut)(Arguments);
  };
  static constexpr std::array<Command, 9> commands{{
      {"rnd", &Player::rnd},
      {"key", &Player::key},
      {"click", &Player::click},
      {"front", &Player::front},
      {"close", &Player::close},
      {"wait", &Player::wait},
      {"set", &Player::set},
      {"state", &Player::state},
      {"layout", &Player::layout},
  }};
  const auto words = wordsOf(line);
  if (words.empty() || line.front() == '#') return;
  const auto command = std::ranges::find(commands, words.front(), &Command::name);
  if (command == commands.end()) refuse("unknown command", words.front());
  (this->*command->carryOut)(Arguments(words).subspan(1));
}

void Player::rnd(Arguments numbers) {
  if (numbers.empty()) throw ScenarioError("missing argument");
  std::vector<double> values;
  for (const auto word : numbers) {
    values.push_back(number<double>(word));
    if (!(values.back() >= 0 && values.back() < 1)) refuse("number out of range:", word);
  }
  for (const double value : values)
    program_.randomNumbers().give(value);
}

void Player::key(Arguments names) {
  expectCount(names, 1);
  const Key pressed = keyNamed(names[0]);
  program_.key(pressed.code, pressed.character);
}

void Player::click(Arguments controls) {
  expectCount(controls, 1);
  if (const auto active = program_.active()) program_.click(controlNamed(layoutOf(*active), controls[0]));
}

void Player::front(Arguments screens) { program_.front(onlyScreen(screens)); }

void Player::close(Arguments none) {
  expectCount(none, 0);
  program_.close();
}

void Player::wait(Arguments durations) {
  constexpr int oneDay = 86400000;
  expectCount(durations, 1);
  platform_.wait(std::chrono::milliseconds(wholeNumber(durations[0], 0, oneDay)));
}

void Player::set(Arguments nameAndValues) {
  if (nameAndValues.empty()) throw ScenarioError("missing argument");
  const auto name = nameAndValues[0];
  const auto values = nameAndValues.subspan(1);
  auto& shared = program_.shared();
  if (const auto row = std::ranges::find(assignableVariables, name, &AssignableVariable::name);
      row != assignableVariables.end()) {
    expectCount(values, 1);
    shared.*row->variable = wholeNumber(values[0], 0, row->highest);
  } else if (const auto array = std::ranges::find(counterArrays, name, &CounterArray::name);
             array != counterArrays.end()) {
    shared.*array->counters = countersFrom(values);
  } else {
    refuse("unknown variable", name);
  }
}

void Player::state(Arguments none) {
  expectCount(none, 0);
  sink_(stateLine(program_));
}

void Player::layout(Arguments screens) {
  const ScreenName screen = onlyScreen(screens);
  for (const auto& line : layoutLines(nameOf(screen), layoutOf(screen)))
    sink_(line);
}

} // namespace chiffrolo
