// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"
#include "screen/module11.h"
#include "screen/random_numbers.h"

#include <memory>

namespace chiffrolo {

/// The program, as its screens see it. It outlives them.
class ScreenHost {
public:
  ScreenHost() = default;
  ScreenHost(const ScreenHost&) = delete;
  ScreenHost& operator=(const ScreenHost&) = delete;

  /// The window of a screen with this layout, not yet visible. Never null.
  virtual std::unique_ptr<Window> createWindow(const ScreenLayout& layout) = 0;

  /// Makes a screen the active one, and loads it first if it is not loaded. Its handlers have run when this
  /// returns. Nothing happens if it is active already. The other screens stay loaded, and their timers run
  /// on.
  virtual void Show(ScreenName screen) = 0;
  /// Removes a screen; the next `Show` loads it afresh. Nothing happens if it is not loaded. If it was the
  /// active screen, no screen is active until one is shown.
  virtual void Unload(ScreenName screen) = 0;
  /// Removes all screens and ends the program.
  virtual void End() = 0;

  virtual MODULE11& shared() = 0;
  virtual RandomNumbers& randomNumbers() = 0;

protected:
  ~ScreenHost() = default;
};

} // namespace chiffrolo
