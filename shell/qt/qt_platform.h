// SPDX-License-Identifier: MIT
#pragma once

#include "shell/platform.h"
#include "shell/qt/accessibility.h"
#include "shell/qt/fonts.h"
#include "shell/qt/host_window.h"
#include "shell/qt/ticker.h"

#include <optional>
#include <thread>

namespace chiffrolo::qt {

/// Needs a QApplication. All windows are destroyed before the platform.
class QtPlatform final : public Platform {
public:
  QtPlatform();

  std::unique_ptr<Window> createWindow(const ScreenLayout& layout, Events& events) noexcept override;
  std::uint64_t timeOfDay() const noexcept override;
  void quit() noexcept override;

private:
  std::jthread faceSearch_;
  Ticker ticker_;
  FontCache fonts_;
  HostWindow host_;
  std::optional<SpeakingEvents> events_; // from the first window on
};

} // namespace chiffrolo::qt
