// SPDX-License-Identifier: MIT
#pragma once

/// The shared variables of a program, for the tools that play scenarios: which can be assigned, and the line
/// that shows them all.

#include "program.h"

#include <array>
#include <string>

namespace chiffrolo {

/// A variable to which a scenario may assign a whole number from 0 to `highest`.
struct AssignableVariable {
  std::string_view name;
  SaturatingInt16 MODULE11::*variable;
  int highest{SaturatingInt16::highest};
};

inline constexpr std::array assignableVariables{
    AssignableVariable{"couleur", &MODULE11::couleur, 15},
    AssignableVariable{"ligne", &MODULE11::ligne},
    AssignableVariable{"colonne", &MODULE11::colonne},
    AssignableVariable{"chrono", &MODULE11::chrono},
    AssignableVariable{"score", &MODULE11::score},
    AssignableVariable{"essai", &MODULE11::essai},
    AssignableVariable{"enAttente", &MODULE11::enAttente, 1},
    AssignableVariable{"nbOperations", &MODULE11::nbOperations},
    AssignableVariable{"resultat", &MODULE11::resultat},
};

using Counters = std::array<SaturatingInt16, 5>;

/// Counters by kind of operation, 1 to 4, each from 0 to 32767.
struct CounterArray {
  std::string_view name;
  Counters MODULE11::*counters;
};

inline constexpr std::array counterArrays{
    CounterArray{"reussies", &MODULE11::reussies},
    CounterArray{"effectuees", &MODULE11::effectuees},
};

/// "state", the active screen, and each variable as NAME=VALUE.
std::string stateLine(Program& program);

} // namespace chiffrolo
