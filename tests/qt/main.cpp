// SPDX-License-Identifier: MIT
#include "shell/qt/fonts.h"

#include <QApplication>

#include <gtest/gtest.h>

/// Without a display, so that the tests run anywhere and no hand or window manager has a part in them.
int main(int argc, char* argv[]) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application{argc, argv};
  chiffrolo::qt::substituteFonts();
  return RUN_ALL_TESTS();
}
