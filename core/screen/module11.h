// SPDX-License-Identifier: MIT
#pragma once

/// The variables that all screens of one program share, read and assign. They exist as long as the program.

#include "screen/values.h"

#include <array>
#include <string>

namespace chiffrolo {

struct MODULE11 {
  char32_t touche{};         ///< the last character typed on an exercise screen
  std::string texte;         ///< scratch text of one printed line
  SaturatingInt16 couleur;   ///< colour index of the next text, 0 to 15
  SaturatingInt16 ligne;     ///< top of the next text, in points
  SaturatingInt16 colonne;   ///< left end of the next text and of the answer, in points
  std::string reponse;       ///< the digits typed so far, at most four
  SaturatingInt16 chrono;    ///< stopwatch of the challenge, in seconds
  std::string consigne;      ///< instruction line under the feedback, or empty
  SaturatingInt16 score;     ///< progress of a level, 0 to 10
  SaturatingInt16 essai;     ///< step of the current operation; on `accueil`, the number of the next screen
  SaturatingInt16 enAttente; ///< 1 while a correction waits for the learner to go on
  SaturatingInt16 nbOperations;              ///< right answers in the challenge, 0 to 20
  std::string operation;                     ///< the current operation as printed
  std::array<std::string, 13> termes;        ///< texts of the guided steps, at 2 and 3
  SaturatingInt16 resultat;                  ///< the right answer of an addition, subtraction or division
  std::array<SaturatingInt16, 5> reussies;   ///< right answers per kind of challenge operation, 1 to 4
  std::array<SaturatingInt16, 5> effectuees; ///< operations drawn per kind of challenge operation, 1 to 4
};

} // namespace chiffrolo
