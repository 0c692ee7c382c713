// SPDX-License-Identifier: MIT
#include "recording/recording_platform.h"
#include "screen/layouts.h"
#include "screen/screen.h"
#include "screens.h"

#include <gtest/gtest.h>

namespace chiffrolo::test {

namespace {

/// A screen whose handler unloads it and then continues to draw.
class SelfUnloadingScreen final : public Screen {
public:
  explicit SelfUnloadingScreen(ScreenHost& host) : Screen(host, layoutOf(ScreenName::addition)) {}

  void Form_KeyPress(char32_t /*character*/) override {
    Unload(ScreenName::accueil); // this screen: the program created it as `accueil`
    bringToFront();
    Cls();
    Print("47", Then::nextZone);
    Print("35", Then::newLine);
    Line({1, 2}, {3, 4}, ForeColor, Form::filledBox);
    Line({1, 2}, {3, 4});
    Circle({5, 5}, 4, ForeColor, 0.5F);
    flèche.show();
    titre.setCaption("47");
    Minuterie.turnOff();
    Minuterie.turnOn();
    EXPECT_EQ(ScaleWidth(), 0);
  }

private:
  Image flèche{*this, "flèche"};
  Label titre{*this, "titre"};
  Timer Minuterie{*this, "Minuterie"};
};

TEST(Screen, hasNoEffectsAfterItWasUnloaded) {
  std::vector<std::string> effects;
  RecordingPlatform platform([&](std::string_view line) { effects.emplace_back(line); });
  Program program(platform, {[](ScreenHost& host) -> std::shared_ptr<Screen> {
                    return std::make_shared<SelfUnloadingScreen>(host);
                  }});
  program.start();
  effects.clear();
  program.key(keyCode::other, U'7');
  platform.wait(std::chrono::minutes(1));
  EXPECT_EQ(effects, std::vector<std::string>{"unload addition"});
}

} // namespace

} // namespace chiffrolo::test
