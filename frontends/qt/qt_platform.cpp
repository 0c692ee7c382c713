// SPDX-License-Identifier: MIT
#include "qt/qt_platform.h"

#include "qt/qt_window.h"

#include <QCoreApplication>

#include <chrono>

namespace chiffrolo::qt {

// To find the faces takes longest at a start: another core does it while the window opens.
QtPlatform::QtPlatform() {
  makeSurfacesReadable();
  faceSearch_ = std::jthread(findFaces);
}

std::unique_ptr<Window> QtPlatform::createWindow(const ScreenLayout& layout, Events& events) noexcept {
  if (!events_) events_.emplace(events, host_);
  return std::make_unique<QtWindow>(layout, *events_, host_, fonts_, ticker_);
}

std::uint64_t QtPlatform::timeOfDay() const noexcept {
  return static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
}

void QtPlatform::quit() noexcept {
  ticker_.shutDown();
  host_.hide();
  // Not QCoreApplication::quit(): it asks the windows first, and ours does not close by itself. Queued, so
  // that it works before the event loop runs, too.
  QMetaObject::invokeMethod(
      qApp, [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
}

} // namespace chiffrolo::qt
