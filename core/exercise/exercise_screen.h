// SPDX-License-Identifier: MIT
#pragma once

#include "screen/screen.h"

#include <optional>

namespace chiffrolo {

/// How `EcrireExpression` spaces the characters of an operation.
enum class Spacing : std::uint8_t {
  aroundSigns, ///< a blank on each side of a character that is not a digit
  asWritten,   ///< only the blanks of the text itself
};

/// How an answer is printed: by `EcrireExpression`, or as one text in the current font.
enum class AnswerStyle : std::uint8_t { expression, plainText };

/// The values that differ between the exercise screens. Positions are in points.
struct ExerciseValues {
  int feedbackCentre;       ///< x of the centre of "Bravo" and of the score box
  int ligneBravo;           ///< top of "Bravo"; its ellipse and the score box keep their distance from it
  int colonneConsigneBravo; ///< left end of the instruction line after a right answer
  /// The instruction line after the first point.
  std::string_view objective{" Tu dois réussir 10 opérations sans te tromper "};
  /// The counter that the score box shows; the objective is printed when it becomes 1.
  SaturatingInt16 MODULE11::*points{&MODULE11::score};
  int dropOfTimes{}; ///< how far below `ligne` the sign "x" is printed
  Spacing spacing{Spacing::aroundSigns};
  AnswerStyle answerStyle{AnswerStyle::expression};
  int eraserMargin{2};                        ///< how far left of `colonne` the erasing of an answer begins
  std::string_view firstDigits{"0123456789"}; ///< the digits that an answer may begin with
};

/// The cycle that all exercise screens run: an operation is drawn, the learner types the answer, the answer
/// is judged, and then follows the next operation or, after a wrong answer, a guided correction.
///
/// The functions stand in the order in which they run. A *variation point* is a virtual function that a
/// screen fills in, or overrides where it differs from the additions, whose rules stand here. Values that
/// differ are in `ExerciseValues`.
class ExerciseScreen : public Screen {
public:
  /// Variation point: what is reset when the screen is loaded.
  void Form_Load() override;
  void Form_Activate() override { NouvelleOperation(); }
  void Form_KeyDown(int code) override;
  /// Variation point: what a typed character does. `Form_KeyDown` has handled the same key before.
  void Form_KeyPress(char32_t typed) override;

protected:
  static constexpr std::chrono::milliseconds answerLimit{30000};

  /// `values` live as long as the screen.
  ExerciseScreen(ScreenHost& host, const ScreenLayout& layout, const ExerciseValues& values);

  void flèche_Click() { NouvelleOperation(); }
  void arret_Click() { leave(); }
  /// Variation point: whether the end of the time limit counts.
  virtual void Minuterie_Timer();

  // ---- The next operation or step --------------------------------------------------------------------

  /// Variation point: shows the results when the objective is reached; else draws the operation or the step
  /// of its correction that is next, and sets the place of its answer.
  virtual void NouvelleOperation() = 0;
  /// The beginning of `NouvelleOperation` on screens with guided steps. False if it has shown the next
  /// screen.
  bool beginGuidedStep();
  bool levelIsPassed() const;
  /// Erases the feedback and the typed answer, and hides the images.
  void beginStep();
  /// Variation point: gives up.
  virtual void leave();

  // ---- The answer ------------------------------------------------------------------------------------

  /// Enter: submits the answer, or asks again if nothing was typed.
  void submitOrAskAgain();
  /// Adds the digit `touche` to the answer, removes the last one on Backspace, or submits the answer on Enter
  /// and "=".
  void SaisirChiffre();
  void EffacerReponse();
  /// Prints the answer and a question mark, in blue, over the previous ones.
  void redrawAnswer();

  // ---- The judgement ---------------------------------------------------------------------------------

  /// Stops the timers, and compares the answer with the expected one.
  void Corriger();
  /// Judges the answer at the end of the time limit, with the line that says so.
  void judgeLateAnswer();
  /// Variation point: stops the timers that run while an answer is awaited.
  virtual void stopTimers() { Minuterie.turnOff(); }
  /// Variation point: the right answer to the current step; nothing if no answer is right.
  virtual std::optional<int> expectedAnswer() const = 0;

  /// Variation point: what a right answer earns, and what follows. It has been printed again already.
  virtual void BonneReponse() = 0;
  /// Prints "Bravo", and the objective after the first point.
  void showBravo();

  /// Variation point: what a wrong answer costs, and what follows.
  virtual void MauvaiseReponse() = 0;
  void losePoint();
  /// Moves on to the next guided step, and waits for the learner to go on.
  void waitForNextStep();
  /// Prints the wrong answer again, "FAUX" beside it at the row `ligne` (points) unless nothing was typed,
  /// and the instruction line.
  void showFaux(int ligne);

  /// Variation point: ends the operation. Resets its progress, and shows the score.
  virtual void AfficherScore();
  /// Prints the score box and shows the images.
  void showScore();

  // ---- Printing --------------------------------------------------------------------------------------

  /// Prints at (`colonne`, `ligne`) in `couleur`, in the current font. No printer changes `colonne` or
  /// `ligne`.
  void Ecrire(std::string_view text);
  void Ecrire(SaturatingInt16 number);
  /// The same character by character in Times New Roman 28; the sign "x" is smaller and lower.
  void EcrireExpression(std::string_view expression);
  void EcrireExpression(SaturatingInt16 number) { EcrireExpression(std::to_string(number)); }

  /// Sets the position at which the printers print.
  void moveTo(SaturatingInt16 colonne, SaturatingInt16 ligne);
  void setFont(std::string_view face, Points size);
  /// Draws a white box from a corner to the right edge.
  void erase(Point topLeft, Points bottom);

  Image flèche{*this, "flèche", [this] { flèche_Click(); }};
  Image arret{*this, "arret", [this] { arret_Click(); }};
  Timer Minuterie{*this, "Minuterie", [this] { Minuterie_Timer(); }};
  SaturatingInt16 colonneConsigne; ///< left end of the instruction line, in points

private:
  SaturatingInt16 points() const { return shared.*values_.points; }
  void writeAnswer();
  void drawBravo();
  void drawFaux(int ligne);
  void printConsigne();
  void beginPrinting();
  void printCharacter(std::string_view character, std::string_view previous);

  const ExerciseValues& values_;
};

} // namespace chiffrolo
