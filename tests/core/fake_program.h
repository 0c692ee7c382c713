// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"

#include <functional>
#include <sstream>
#include <utility>

namespace chiffrolo::test {

/// Records the events that it receives, runs `react` during all but `front`, and returns the texts that a
/// test has set.
class FakeProgram final : public Events {
public:
  KeyUse key(int code, std::optional<char32_t> character) noexcept override {
    record() << "key " << code << '/' << (character ? static_cast<int>(*character) : -1);
    react();
    return KeyUse::screenStayed;
  }
  void click(ControlIndex control) noexcept override {
    record() << "click " << control;
    react();
  }
  void tick(ScreenName /*screen*/, ControlIndex timer) noexcept override {
    record() << "tick " << timer;
    react();
  }
  void front(ScreenName /*screen*/) noexcept override { record() << "front"; }
  void close() noexcept override {
    record() << "close";
    react();
  }
  std::vector<SpokenText> spokenTexts(ScreenName /*screen*/) const noexcept override { return texts; }
  std::string takeAnnouncement() noexcept override { return std::exchange(announcement, {}); }

  /// The events since the last call.
  std::string takeEvents() { return std::exchange(events_, {}).str(); }

  std::function<void()> react{[] {}};
  std::vector<SpokenText> texts;
  std::string announcement;

private:
  std::ostream& record() { return events_ << (events_.view().empty() ? "" : ", "); }

  std::ostringstream events_;
};

} // namespace chiffrolo::test
