// SPDX-License-Identifier: MIT
#pragma once

#include "screen/screen.h"

#include <optional>

namespace chiffrolo {

/// How `EcrireExpression` spaces the characters of an operation: a blank around each one that is not a digit,
/// or just the blanks that the text has.
enum class Spacing : std::uint8_t { aroundSigns, asWritten };

/// The values in which the exercise screens differ. Positions are in points.
struct ExerciseValues {
  int feedbackCentre;       ///< x on which "Bravo" and the score box are centred
  int ligneBravo;           ///< top of "Bravo"; its ellipse and the score box keep their distance to it
  int colonneConsigneBravo; ///< left end of the instruction line after a right answer
  /// the instruction line after the first point
  std::string_view objective{" Tu dois réussir 10 opérations sans te tromper "};
  int dropOfTimes{}; ///< how far below `ligne` the sign "x" is printed
  Spacing spacing{Spacing::aroundSigns};
  int eraserMargin{2};                        ///< how far left of `colonne` an answer is erased
  std::string_view firstDigits{"0123456789"}; ///< the digits that an answer may begin with
};

/// The cycle that all exercise screens run: an operation is drawn, the learner types the answer, it is
/// judged, and then follows the next operation or, after a wrong answer, a guided correction.
///
/// The cycle stands here in the order in which it happens, as the additions run it. The functions named as
/// variation points are what other screens do differently.
class ExerciseScreen : public Screen {
public:
  void Form_Load() override;
  void Form_Activate() override { NouvelleOperation(); }
  void Form_KeyDown(int code) override;
  void Form_KeyPress(char32_t typed) override;

protected:
  static constexpr std::chrono::milliseconds answerLimit{30000};

  /// `values` live as long as the screen.
  ExerciseScreen(ScreenHost& host, const ScreenLayout& layout, const ExerciseValues& values);

  void flèche_Click() { NouvelleOperation(); }
  void arret_Click() { leave(); }
  virtual void Minuterie_Timer();

  // ---- The next operation or step --------------------------------------------------------------------

  /// Starts the next operation or step, or leaves for the next screen when the objective is reached.
  virtual void NouvelleOperation();
  /// Variation point: draws the operation or step that is next, by `essai`; an unknown number draws nothing.
  virtual void drawStep() = 0;
  bool levelIsPassed() const;
  /// Wipes the feedback and what was typed.
  void beginStep();
  /// Variation point: where giving up leads.
  virtual void leave();

  // ---- The answer ------------------------------------------------------------------------------------

  /// Takes `touche` into the answer, or submits the answer on Enter and "=".
  void SaisirChiffre();
  void EffacerReponse();
  /// Variation point: a key typed while an answer is awaited, or after an operation that ended well.
  virtual void keyOfAnswer();
  void takeKey();
  /// Variation point: Enter submits an answer, or asks again when there is none.
  virtual void keyEnter();
  /// Variation point: a key typed while a correction waits.
  virtual void keyWhileWaiting();
  /// Variation point: whether a correction waits for the learner to go on.
  virtual bool isWaiting() const { return shared.enAttente != 0; }
  /// Variation point: prints the answer at its place.
  virtual void writeAnswer() { EcrireExpression(shared.reponse); }
  /// The answer and the question mark behind it, in blue, in place of what stands there.
  void redrawAnswer();

  // ---- The judgement ---------------------------------------------------------------------------------

  void Corriger();
  void BonneReponse();
  void MauvaiseReponse();
  /// Ends the operation with the score box.
  void AfficherScore();

  /// Judges what has been typed when the time is up, with the line that says so.
  void judgeLateAnswer();
  /// Variation point: what the current step asks for; nothing when no answer can be right.
  virtual std::optional<int> expectedAnswer() const = 0;
  /// Variation point: whether a right answer now wins a point.
  virtual bool winsPoint() const { return shared.essai == 0; }
  virtual void countRightAnswer() { shared.score += 1; }
  /// Variation point: the counter that the score box shows and that the objective line follows.
  virtual int points() const { return shared.score; }
  /// Variation point: a right answer has been acknowledged.
  virtual void continueAfterRightAnswer() = 0;
  /// Variation point: moves on to the correction of a wrong answer.
  virtual void countWrongAnswer();
  void losePoint();
  /// Variation point: the row that "FAUX" marks, in points, once the wrong answer is counted.
  virtual int ligneFaux() const = 0;
  /// Variation point: whether the arrow leads on to the correction; otherwise only a key does.
  virtual bool arrowLeadsOn() const = 0;
  /// Variation point: stops what measures the time of an answer.
  virtual void stopTimers() { Minuterie.turnOff(); }
  /// Variation point: what the end of an operation resets.
  virtual void endOperation();

  // ---- Printing --------------------------------------------------------------------------------------

  /// Prints at (`colonne`, `ligne`) in `couleur`, in the current font. Neither printer moves that position.
  void Ecrire(std::string_view text);
  void Ecrire(SaturatingInt16 number);
  /// The same character by character in Times New Roman 28, the sign "x" smaller and lower.
  void EcrireExpression(std::string_view expression);
  void EcrireExpression(SaturatingInt16 number) { EcrireExpression(std::to_string(number)); }

  /// Sets the position at which the printers print.
  void moveTo(SaturatingInt16 colonne, SaturatingInt16 ligne);
  void setFont(std::string_view face, Points size);
  /// A white box from a corner to the right edge.
  void erase(Point topLeft, Points bottom);

  Image flèche{*this, "flèche", [this] { flèche_Click(); }};
  Image arret{*this, "arret", [this] { arret_Click(); }};
  Timer Minuterie{*this, "Minuterie", [this] { Minuterie_Timer(); }};
  SaturatingInt16 colonneConsigne; ///< left end of the instruction line, in points

private:
  void beginPrinting();
  void drawBravo();
  void drawFaux(int ligne);
  void printConsigne();
  void printCharacter(std::string_view character, std::string_view previous);

  const ExerciseValues& values_;
};

} // namespace chiffrolo
