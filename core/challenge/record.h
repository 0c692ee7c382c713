// SPDX-License-Identifier: MIT
#pragma once

#include "exercise/exercise_screen.h"

namespace chiffrolo {

/// The timed challenge: twenty mixed operations, five of each kind. The stopwatch counts whole seconds while
/// an operation awaits its answer. A wrong answer is corrected in one step.
class RecordScreen final : public ExerciseScreen {
public:
  explicit RecordScreen(ScreenHost& host);

  void Form_Load() override;
  void Form_KeyPress(char32_t typed) override;

private:
  void Minuterie1_Timer();
  /// The limit does not run while a correction waits.
  void Minuterie_Timer() override { judgeLateAnswer(); }

  void TirerOperation();

  void NouvelleOperation() override;
  void drawOperation();
  void drawCorrection();
  void leave() override { Show(ScreenName::FIN2); }

  void stopTimers() override;
  std::optional<int> expectedAnswer() const override { return resultatAttendu; }
  void BonneReponse() override;
  void MauvaiseReponse() override;
  void AfficherScore() override;

  Timer Minuterie1{*this, "Minuterie1", [this] { Minuterie1_Timer(); }};
  SaturatingInt16 resultatAttendu;
  SaturatingInt16 typeOperation; ///< 1 to 4
};

} // namespace chiffrolo
