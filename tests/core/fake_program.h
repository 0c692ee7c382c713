// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"

#include <functional>
#include <sstream>
#include <utility>

namespace chiffrolo::test {

/// Notes what it is told, does what a test wants it to do meanwhile, and says what it is given to say.
class FakeProgram final : public Events {
public:
  KeyUse key(int code, std::optional<char32_t> character) noexcept override {
    note() << "key " << code << '/' << (character ? static_cast<int>(*character) : -1);
    react();
    return keyUse;
  }
  void click(ControlIndex control) noexcept override {
    note() << "click " << control;
    react();
  }
  void tick(ScreenName /*screen*/, ControlIndex timer) noexcept override {
    note() << "tick " << timer;
    react();
  }
  void front(ScreenName /*screen*/) noexcept override { note() << "front"; }
  void close() noexcept override {
    note() << "close";
    react();
  }
  std::vector<SpokenText> spokenTexts(ScreenName /*screen*/) const noexcept override { return texts; }
  std::string takeAnnouncement() noexcept override { return std::exchange(announcement, {}); }

  /// What it was told since it was last asked.
  std::string told() { return std::exchange(told_, {}).str(); }

  KeyUse keyUse{KeyUse::screenStayed};
  std::function<void()> react{[] {}};
  std::vector<SpokenText> texts;
  std::string announcement;

private:
  std::ostream& note() { return told_ << (told_.view().empty() ? "" : ", "); }

  std::ostringstream told_;
};

} // namespace chiffrolo::test
