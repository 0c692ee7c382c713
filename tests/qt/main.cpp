// SPDX-License-Identifier: MIT

#include <QApplication>
#include <QTemporaryFile>

#include <gtest/gtest.h>

namespace {

/// Two screens, from left to right, with pixel ratios of 1 and 2.
constexpr const char* screens = R"({"synchronousWindowSystemEvents": false, "screens": [
  {"name": "1", "x": 0, "y": 0, "width": 1280, "height": 1024, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
  {"name": "2", "x": 1280, "y": 0, "width": 1280, "height": 1024, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 2}]})";

} // namespace

/// The tests use the offscreen platform: they need no display, and no user or window manager affects them.
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
