// SPDX-License-Identifier: MIT
#pragma once

/// The variables that all screens of one program share. They live as long as the program; every screen may
/// read and assign them.

#include "shell/values.h"

#include <array>
#include <string>

namespace chiffrolo {

struct MODULE11 {
  char32_t touche{};     ///< the character typed last on an exercise screen
  std::string texte;     ///< scratch text of one printed line
  Integer couleur;       ///< colour index of the next text, 0 to 15
  Integer ligne;         ///< top of the next text, in points
  Integer colonne;       ///< left end of the next text and of the answer, in points
  std::string reponse;   ///< the digits typed so far, at most four
  Integer chrono;        ///< stopwatch of the challenge, in seconds
  std::string consigne;  ///< instruction line under the feedback, or empty
  Integer score;         ///< progress of a level, 0 to 10
  Integer essai;         ///< step of the current operation; at home, the number of the next screen
  Integer enAttente;     ///< 1 while a correction waits for the learner to go on
  Integer nbOperations;  ///< right answers in the challenge, 0 to 20
  std::string operation; ///< the current operation as printed
  std::array<std::string, 13> termes; ///< texts of the guided steps, at 2 and 3
  Integer resultat;                   ///< expected answer of an addition, subtraction or division
  std::array<Integer, 5> reussies;    ///< right answers per kind of challenge operation, 1 to 4
  std::array<Integer, 5> effectuees;  ///< operations drawn per kind of challenge operation, 1 to 4
};

} // namespace chiffrolo
