// SPDX-License-Identifier: MIT
#pragma once

#include "platform.h"
#include "qt/fonts.h"
#include "qt/host_window.h"
#include "qt/ticker.h"

#include <thread>

namespace chiffrolo::qt {

/// Needs a QApplication. All windows are destroyed before the platform.
class QtPlatform final : public Platform {
public:
  /// Starts with `zoom`.
  explicit QtPlatform(const Zoom& zoom = {});

  std::unique_ptr<Window> createWindow(const ScreenLayout& layout, Events& events) noexcept override;
  std::uint64_t timeOfDay() const noexcept override;
  void quit() noexcept override;

private:
  std::jthread faceSearch_;
  Ticker ticker_;
  FontCache fonts_;
  HostWindow host_;
};

} // namespace chiffrolo::qt
