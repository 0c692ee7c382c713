// SPDX-License-Identifier: MIT
#include "qt/arguments.h"
#include "qt/display_faults.h"
#include "qt/qt_platform.h"
#include "screens.h"

#include <algorithm>
#include <cstdio>
#include <span>
#include <utility>

namespace {

int print(const chiffrolo::qt::Arguments::Answer& answer) {
  std::fputs(answer.text.c_str(), answer.status == 0 ? stdout : stderr);
  return answer.status;
}

/// Returns the exit status of the event loop.
int play(const chiffrolo::qt::Zoom& zoom) {
  chiffrolo::qt::QtPlatform platform{zoom};
  chiffrolo::Program program{platform, chiffrolo::allScreens};
  program.start();
  return QApplication::exec();
}

} // namespace

int main(int argc, char* argv[]) {
  const auto arguments =
      chiffrolo::qt::readArguments({argv, static_cast<std::size_t>(argc)}, CHIFFROLO_VERSION);
  if (arguments.answer) return print(*arguments.answer);
  argc = std::min(argc, 1); // Qt has options of its own, for instance one for a style sheet
  QApplication::setApplicationName(QStringLiteral("Chiffrolo"));
  QApplication::setDesktopFileName(QStringLiteral("org.chiffrolo.Chiffrolo"));
  auto application = chiffrolo::qt::openDisplay(argc, argv);
  const int status = play(arguments.zoom);
  chiffrolo::qt::closeDisplay(std::move(application), status);
  return status;
}
