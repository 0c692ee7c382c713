// SPDX-License-Identifier: MIT
#include "results/fin.h"

#include "screen/layouts.h"

namespace chiffrolo {

FinScreen::FinScreen(ScreenHost& host) : Screen(host, layoutOf(ScreenName::FIN)) {}

void FinScreen::Form_Load() {
  shared.score = 0;
  Unload(ScreenName::addition);
}

void FinScreen::flèche_Click() {
  shared.score = 0;
  Show(ScreenName::accueil);
}

void FinScreen::Form_KeyDown(int code) {
  if (code == keyCode::right) flèche_Click();
}

void FinScreen::Form_KeyPress(char32_t typed) {
  shared.score = 0;
  if (typed == character::enter || typed == character::escape) Show(ScreenName::accueil);
}

} // namespace chiffrolo
