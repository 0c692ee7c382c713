// SPDX-License-Identifier: MIT
#pragma once

#include "exercise/exercise_screen.h"

namespace chiffrolo {

/// Products of a number of two digits and one digit. A wrong answer is corrected in three guided steps: tens
/// times multiplier, units times multiplier, and the sum of the two in columns.
class MultiplicationScreen final : public ExerciseScreen {
public:
  explicit MultiplicationScreen(ScreenHost& host);

private:
  void TirerOperation();

  void NouvelleOperation() override;
  void drawOperation();
  void drawTensStep();
  void drawUnitsStep();
  void drawSumStep();
  void drawResult();

  std::optional<int> expectedAnswer() const override;
  void BonneReponse() override;
  void MauvaiseReponse() override;

  /// Where the answer of a step begins, in points, so that it ends below the end of the first step's answer.
  SaturatingInt16 colonneUnderTens(int step) const;

  std::array<SaturatingInt16, 5> resultatsEtape; ///< the right answers by step; the last step has none
};

} // namespace chiffrolo
