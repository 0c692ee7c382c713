// SPDX-License-Identifier: MIT
#include "shell/program.h"
#include "shell/qt/display_faults.h"
#include "shell/qt/qt_platform.h"

int main(int argc, char* argv[]) {
  QApplication::setApplicationName(QStringLiteral("Chiffrolo"));
  QApplication::setDesktopFileName(QStringLiteral("org.chiffrolo.Chiffrolo"));
  const auto application = chiffrolo::qt::openDisplay(argc, argv);
  chiffrolo::qt::QtPlatform platform;
  chiffrolo::Program program{platform};
  program.start();
  return QApplication::exec();
}
