// SPDX-License-Identifier: MIT
#include "qt/qt_platform.h"

#include "qt/accessibility.h"
#include "qt/qt_window.h"

#include <QCoreApplication>

#include <chrono>

namespace chiffrolo::qt {

// Finding the faces takes the largest part of the start, so another thread does it while the window opens.
QtPlatform::QtPlatform(const Zoom& zoom) : host_(zoom) {
  makeSurfacesReadable();
  faceSearch_ = std::jthread(findFaces);
}

std::unique_ptr<Window> QtPlatform::createWindow(const ScreenLayout& layout, Events& events) noexcept {
  return std::make_unique<QtWindow>(layout, events, host_, fonts_, ticker_);
}

std::uint64_t QtPlatform::timeOfDay() const noexcept {
  return static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
}

void QtPlatform::quit() noexcept {
  ticker_.shutDown();
  host_.hide();
  // Not QCoreApplication::quit(): that sends close events, which the host refuses. Queued, so that it also
  // works before the event loop runs.
  QMetaObject::invokeMethod(
      qApp, [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
}

} // namespace chiffrolo::qt
