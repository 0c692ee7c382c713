// SPDX-License-Identifier: MIT
#pragma once

#include "shell/module11.h"
#include "shell/platform.h"
#include "shell/random_numbers.h"
#include "shell/speech.h"
#include "shell/visible_texts.h"

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace chiffrolo {

class Screen;

/// One run of the program: its shared variables, its random numbers and its screens, of which each exists at
/// most once. Programs are independent of each other; several may live in one process.
class Program final : public Events {
public:
  /// `platform` outlives the program.
  explicit Program(Platform& platform);
  ~Program() override;

  /// Shows the home screen. Once, before any event.
  void start();

  KeyUse key(int code, std::optional<char32_t> character) noexcept override;
  void click(ControlIndex control) noexcept override;
  void tick(ScreenName screen, ControlIndex timer) noexcept override;
  void front(ScreenName screen) noexcept override;
  void close() noexcept override;
  std::vector<SpokenText> spokenTexts(ScreenName screen) const noexcept override;
  std::string takeNews() noexcept override;

  /// Loads the screen if need be and makes it the active one; its handlers have run when this returns.
  /// Nothing happens to the active screen. The screens beneath stay loaded, with their running timers.
  void Show(ScreenName screen);
  /// The screen is gone, and the next `Show` loads it afresh. On a screen that is not loaded: nothing. When
  /// it was the active screen, none is active until one is shown.
  void Unload(ScreenName screen);
  /// Every screen closes; no further event reaches any.
  void End();

  MODULE11& shared() { return shared_; }
  RandomNumbers& randomNumbers() { return randomNumbers_; }
  Platform& platform() { return platform_; }

  std::optional<ScreenName> active() const { return active_; }
  /// What can be read on the surface of a screen; nothing if it is not loaded. Its labels are not on it.
  std::vector<VisibleText> visibleTexts(ScreenName screen) const;
  /// The layout of the active screen; null when none is active.
  const ScreenLayout* activeLayout() const;

private:
  // A handler that runs may unload its own screen, so whoever calls one holds the screen.
  using HeldScreen = std::shared_ptr<Screen>;

  HeldScreen& slot(ScreenName screen);
  HeldScreen activeScreen() const;
  HeldScreen create(ScreenName screen);
  Contents contents() const;

  Platform& platform_;
  MODULE11 shared_;
  RandomNumbers randomNumbers_;
  std::array<HeldScreen, screenCount> screens_;
  std::optional<ScreenName> active_;
  Contents told_; // what was there when the news were last taken
};

} // namespace chiffrolo
