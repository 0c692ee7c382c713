// SPDX-License-Identifier: MIT
#pragma once

#include "exercise/exercise_screen.h"

namespace chiffrolo {

/// Products of a number of two digits and one of one digit. A wrong answer is corrected in three guided
/// steps: tens times multiplier, units times multiplier, and the column sum of the two.
class MultiplicationScreen final : public ExerciseScreen {
public:
  explicit MultiplicationScreen(ScreenHost& host);

private:
  void TirerOperation();

  void drawStep() override;
  void drawOperation();
  void drawTensStep();
  void drawUnitsStep();
  void drawSumStep();
  void drawResult();

  std::optional<int> expectedAnswer() const override;
  void continueAfterRightAnswer() override;
  int ligneFaux() const override;
  bool arrowLeadsOn() const override { return shared.essai < 4; }

  /// The place at which the answer of a step ends where the one of the first step ends, in the current font.
  SaturatingInt16 colonneUnderTens(int step) const;

  std::array<SaturatingInt16, 5> resultatsEtape; ///< expected answers by step; the last step asks for none
};

} // namespace chiffrolo
