// SPDX-License-Identifier: MIT
#pragma once

#include "exercise/exercise_screen.h"

namespace chiffrolo {

/// Additions of two numbers of two digits, and subtractions with the same numbers. A wrong answer is
/// corrected in two guided steps: the tens of the second number, then its units.
class AdditionScreen final : public ExerciseScreen {
public:
  explicit AdditionScreen(ScreenHost& host);

private:
  void TirerOperation();

  void NouvelleOperation() override;
  void drawOperation();
  void drawTensStep();
  void drawUnitsStep();
  void drawResult();

  std::optional<int> expectedAnswer() const override;
  void BonneReponse() override;
  void MauvaiseReponse() override;

  SaturatingInt16 resultatPartiel; ///< the right answer to the first guided step
};

} // namespace chiffrolo
