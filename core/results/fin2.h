// SPDX-License-Identifier: MIT
#pragma once

#include "screen/screen.h"

namespace chiffrolo {

/// The results of a challenge: its time, if it was completed, and a table of the answers. Drawn once, when
/// the screen is loaded, from the shared variables.
class Fin2Screen final : public Screen {
public:
  explicit Fin2Screen(ScreenHost& host);

  void Form_Load() override;
  void Form_KeyDown(int code) override;
  void Form_KeyPress(char32_t typed) override;

private:
  void flèche_Click();

  void drawTime();
  void drawHeader();
  void drawKinds();
  void drawTotal();
  void drawGrid();

  void printAt(Points x, Points y, std::string_view text);
  void printCentred(Points centre, Points y, std::string_view text, std::string_view printed);
  /// Prints one row of the table: operations presented, operations answered rightly, and their rate.
  void printFigures(Points y, int presented, int succeeded);

  Image flèche{*this, "flèche", [this] { flèche_Click(); }};
};

} // namespace chiffrolo
