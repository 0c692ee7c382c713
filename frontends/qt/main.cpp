// SPDX-License-Identifier: MIT
#include "qt/display_faults.h"
#include "qt/qt_platform.h"
#include "screens.h"

#include <utility>

namespace {

/// Returns the exit status of the event loop.
int play() {
  chiffrolo::qt::QtPlatform platform;
  chiffrolo::Program program{platform, chiffrolo::allScreens};
  program.start();
  return QApplication::exec();
}

} // namespace

int main(int argc, char* argv[]) {
  QApplication::setApplicationName(QStringLiteral("Chiffrolo"));
  QApplication::setDesktopFileName(QStringLiteral("org.chiffrolo.Chiffrolo"));
  auto application = chiffrolo::qt::openDisplay(argc, argv);
  const int status = play();
  chiffrolo::qt::closeDisplay(std::move(application), status);
  return status;
}
