// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"
#include "screen/module11.h"
#include "screen/random_numbers.h"
#include "screen/screen.h"
#include "screen/screen_host.h"
#include "screen/speech.h"

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace chiffrolo {

/// How each screen is created, by `ScreenName`.
using ScreenTable = std::array<ScreenCreator, screenCount>;

/// One run of the program: its shared variables, its random numbers and its screens, each of which exists at
/// most once. Programs are independent of each other; several may run in one process.
class Program final : public Events, private ScreenHost {
public:
  /// `platform` outlives the program.
  Program(Platform& platform, const ScreenTable& creators);
  ~Program() override;

  /// Shows the home screen. Call it once, before any event.
  void start();

  KeyUse key(int code, std::optional<char32_t> character) noexcept override;
  void click(ControlIndex control) noexcept override;
  void tick(ScreenName screen, ControlIndex timer) noexcept override;
  void front(ScreenName screen) noexcept override;
  void close() noexcept override;
  std::vector<SpokenText> spokenTexts(ScreenName screen) const noexcept override;
  std::string takeAnnouncement() noexcept override;

  void Show(ScreenName screen) override;
  MODULE11& shared() override { return shared_; }
  RandomNumbers& randomNumbers() override { return randomNumbers_; }

  /// Nothing while no screen is active.
  std::optional<ScreenName> active() const { return active_; }
  /// The texts that are visible on the surface of a screen; none if it is not loaded. Labels are not
  /// included.
  std::vector<VisibleText> visibleTexts(ScreenName screen) const;

private:
  // Whoever calls a handler holds the screen, because the handler may unload it.
  using HeldScreen = std::shared_ptr<Screen>;

  std::unique_ptr<Window> createWindow(const ScreenLayout& layout) override;
  void Unload(ScreenName screen) override;
  void End() override;

  HeldScreen& slot(ScreenName screen);
  HeldScreen activeScreen() const;
  Contents contents() const;

  Platform& platform_;
  ScreenTable creators_;
  MODULE11 shared_;
  RandomNumbers randomNumbers_;
  std::array<HeldScreen, screenCount> screens_;
  std::optional<ScreenName> active_;
  Contents lastReported_; // when an announcement was last taken
};

} // namespace chiffrolo
