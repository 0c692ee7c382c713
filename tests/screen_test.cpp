// SPDX-License-Identifier: MIT
#include "shell/layouts.h"
#include "shell/program.h"
#include "shell/recording/recording_platform.h"
#include "shell/screen.h"

#include <gtest/gtest.h>

namespace chiffrolo::test {

namespace {

/// A screen whose handler goes on as if nothing had happened after its screen was unloaded.
class Tireless final : public Screen {
public:
  explicit Tireless(Program& program) : Screen(program, layoutOf(ScreenName::addition)) {}

  void goOn() {
    bringToFront();
    Cls();
    Print("47", Then::nextZone);
    Print("35", Then::newLine);
    Line({1, 2}, {3, 4}, ForeColor, Form::filledBox);
    Line({1, 2}, {3, 4});
    Circle({5, 5}, 4, ForeColor, 0.5F);
    arret.show();
    titre.setCaption("47");
    Minuterie.turnOff();
    Minuterie.turnOn();
  }

  Image arret{*this, "arret"};
  Label titre{*this, "titre"};
  Timer Minuterie{*this, "Minuterie"};
};

TEST(Screen, hasNoEffectOnceUnloaded) {
  std::vector<std::string> effects;
  RecordingPlatform platform([&](std::string_view line) { effects.emplace_back(line); });
  Program program(platform);
  Tireless screen(program);
  screen.close();
  ASSERT_EQ(effects.back(), "unload addition");
  effects.clear();
  screen.goOn();
  platform.wait(std::chrono::minutes(1));
  EXPECT_EQ(effects, std::vector<std::string>{});
  EXPECT_EQ(screen.ScaleWidth(), 0);
  platform.stopRecording();
}

} // namespace

} // namespace chiffrolo::test
