// SPDX-License-Identifier: MIT
#include "home/accueil.h"

#include "screen/layouts.h"

#include <array>

namespace chiffrolo {

using enum ScreenName;

AccueilScreen::AccueilScreen(ScreenHost& host) : Screen(host, layoutOf(accueil)) {}

void AccueilScreen::Form_KeyDown(int code) {
  if (code == keyCode::right) OuvrirEcran();
}

void AccueilScreen::Form_KeyPress(char32_t typed) {
  if (typed == character::escape)
    Show(Aurevoir);
  else
    OuvrirEcran();
}

void AccueilScreen::OuvrirEcran() {
  static constexpr std::array inTurn{addition, multiplication, division, record, Aurevoir};
  constexpr int last = inTurn.size();
  if (shared.essai >= 1 && shared.essai <= last) Show(inTurn[static_cast<std::size_t>(shared.essai - 1)]);
  // Loading a screen may have changed `essai`.
  shared.essai += 1;
  if (shared.essai == last + 1) shared.essai = 1;
}

} // namespace chiffrolo
