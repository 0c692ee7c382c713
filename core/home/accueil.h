// SPDX-License-Identifier: MIT
#pragma once

#include "screen/screen.h"

namespace chiffrolo {

/// The home screen. Buttons open the five activities; keys open them in turn. It is loaded once, when the
/// program starts: nothing is to be reset then.
class AccueilScreen final : public Screen {
public:
  explicit AccueilScreen(ScreenHost& host);

  void Form_KeyDown(int code) override;
  void Form_KeyPress(char32_t typed) override;

private:
  void Commande1_Click() { Show(ScreenName::addition); }
  void Commande2_Click() { Show(ScreenName::multiplication); }
  void Commande3_Click() { Show(ScreenName::division); }
  void Commande4_Click() { Show(ScreenName::record); }
  void Commande5_Click() { Show(ScreenName::Aurevoir); }

  /// Opens the screen with the number `essai`, if that is 1 to 5, and advances `essai`.
  void OuvrirEcran();

  Button Commande1{*this, "Commande1", [this] { Commande1_Click(); }};
  Button Commande2{*this, "Commande2", [this] { Commande2_Click(); }};
  Button Commande3{*this, "Commande3", [this] { Commande3_Click(); }};
  Button Commande4{*this, "Commande4", [this] { Commande4_Click(); }};
  Button Commande5{*this, "Commande5", [this] { Commande5_Click(); }};
};

} // namespace chiffrolo
