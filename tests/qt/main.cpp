// SPDX-License-Identifier: MIT
#include "qt/fonts.h"

#include <QApplication>
#include <QTemporaryFile>

#include <gtest/gtest.h>

namespace {

/// From left to right, with one dot to a pixel, one and a half, and two.
constexpr const char* screens = R"({"synchronousWindowSystemEvents": false, "screens": [
  {"name": "1", "x": 0, "y": 0, "width": 1280, "height": 1024, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
  {"name": "1.5", "x": 1280, "y": 0, "width": 1280, "height": 1024, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1.5},
  {"name": "2", "x": 2560, "y": 0, "width": 1280, "height": 1024, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 2}]})";

} // namespace

/// Without a display, so that the tests run anywhere and no hand or window manager has a part in them.
int main(int argc, char* argv[]) {
  testing::InitGoogleTest(&argc, argv);
  QTemporaryFile configuration;
  if (!configuration.open()) return EXIT_FAILURE;
  configuration.write(screens);
  configuration.flush();
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + configuration.fileName().toUtf8());
  const QApplication application{argc, argv};
  return RUN_ALL_TESTS();
}
