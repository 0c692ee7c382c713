// SPDX-License-Identifier: MIT
#pragma once

#include "exercise/exercise_screen.h"

namespace chiffrolo {

/// The timed challenge: twenty mixed operations, five of each kind, against a stopwatch that counts the whole
/// seconds of open operations. A wrong answer is corrected at once, in one step.
class RecordScreen final : public ExerciseScreen {
public:
  explicit RecordScreen(ScreenHost& host);

  void Form_Load() override;

private:
  void Minuterie1_Timer();
  /// It tests no waiting flag: the limit does not run while a correction waits.
  void Minuterie_Timer() override { judgeLateAnswer(); }

  void TirerOperation();
  void NouvelleOperation() override;
  void drawStep() override;
  void drawOperation();
  void drawCorrection();
  void leave() override { Show(ScreenName::FIN2); }

  bool isWaiting() const override { return shared.essai != 0; }
  void keyOfAnswer() override { takeKey(); }
  void keyWhileWaiting() override;
  void keyEnter() override;

  std::optional<int> expectedAnswer() const override { return resultatAttendu; }
  bool winsPoint() const override { return true; }
  void countRightAnswer() override;
  int points() const override { return shared.nbOperations; }
  void continueAfterRightAnswer() override { AfficherScore(); }
  void countWrongAnswer() override { shared.essai += 1; }
  int ligneFaux() const override { return 120; }
  bool arrowLeadsOn() const override { return shared.essai == 1; }
  void stopTimers() override;
  void endOperation() override { shared.essai = 0; }

  Timer Minuterie1{*this, "Minuterie1", [this] { Minuterie1_Timer(); }};
  SaturatingInt16 resultatAttendu;
  SaturatingInt16 typeOperation; ///< 1 to 4
};

} // namespace chiffrolo
