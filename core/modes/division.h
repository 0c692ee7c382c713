// SPDX-License-Identifier: MIT
#pragma once

#include "exercise/exercise_screen.h"
#include "modes/long_division.h"

namespace chiffrolo {

/// Exact divisions by one digit. A wrong answer is corrected by the long division, which reveals one digit
/// per key: in blue if the key was that digit, in light red otherwise.
class DivisionScreen final : public ExerciseScreen {
public:
  explicit DivisionScreen(ScreenHost& host);

  void Form_Load() override;

private:
  struct Place {
    int colonne;
    int ligne;
  };

  void TirerOperation();
  void NouvelleOperation() override;
  void drawStep() override;
  void drawQuestion();

  void drawCorrectionStep();
  void drawLayout();
  void revealQuotientDigit(int k);
  void revealRemainder(int k);
  void bringDown(int k);
  void endCorrection();

  static Place quotientPlace(int k);
  Place remainderPlace(int k) const;
  /// Prints one text, in blue.
  void write(Place place, std::string_view text);
  /// Wipes the "?" at its place and prints the digit there, if there is one, in the colour that `touche`
  /// earns.
  void reveal(Place place, std::string_view digit);

  void writeAnswer() override { Ecrire(shared.reponse); }
  std::optional<int> expectedAnswer() const override { return shared.resultat; }
  bool winsPoint() const override { return true; }
  void continueAfterRightAnswer() override { AfficherScore(); }
  void countWrongAnswer() override;
  int ligneFaux() const override { return 120; }
  bool arrowLeadsOn() const override { return true; }
  void endOperation() override { Minuterie.turnOff(); }

  bool isWaiting() const override { return enCorrection != 0; }
  void keyWhileWaiting() override;
  void keyEnter() override;

  Label titre{*this, "titre"};
  LongDivision division;
  SaturatingInt16 enCorrection; ///< 1 from a wrong answer until its correction ends
  SaturatingInt16
      etapeReste; ///< 0 while a digit of the quotient is to be revealed next, 1 while a remainder is
};

} // namespace chiffrolo
