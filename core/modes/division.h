// SPDX-License-Identifier: MIT
#pragma once

#include "exercise/exercise_screen.h"
#include "modes/long_division.h"

namespace chiffrolo {

/// Exact divisions by one digit. A wrong answer is corrected by the long division. Each key reveals one digit
/// of it, in blue if the key was that digit, else in light red.
class DivisionScreen final : public ExerciseScreen {
public:
  explicit DivisionScreen(ScreenHost& host);

  void Form_Load() override;
  void Form_KeyPress(char32_t typed) override;

private:
  struct Place {
    int colonne;
    int ligne;
  };

  void TirerOperation();

  void NouvelleOperation() override;
  void drawQuestion();

  void drawCorrectionStep();
  void drawLayout();
  void revealQuotientDigit(int k);
  void revealRemainder(int k);
  void bringDown(int k);
  void endCorrection();

  static Place quotientPlace(int k);
  Place remainderPlace(int k) const;
  /// Prints one text in blue.
  void write(Place place, std::string_view text);
  /// Erases the "?" at its place and prints the digit there, if there is one: in blue if `touche` is that
  /// digit, else in light red.
  void reveal(Place place, std::string_view digit);

  /// The limit does not run while a correction is shown.
  void Minuterie_Timer() override { judgeLateAnswer(); }
  std::optional<int> expectedAnswer() const override { return shared.resultat; }
  void BonneReponse() override;
  void MauvaiseReponse() override;
  void AfficherScore() override;

  Label titre{*this, "titre"};
  LongDivision division;
  SaturatingInt16 enCorrection; ///< 1 from a wrong answer until its correction ends
  SaturatingInt16 etapeReste;   ///< 0 if a digit of the quotient is revealed next, 1 if a remainder is
};

} // namespace chiffrolo
