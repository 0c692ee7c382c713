// SPDX-License-Identifier: MIT
#include "shared_variables.h"

#include "screen/layouts.h"

namespace chiffrolo {

namespace {

std::string listed(const Counters& counters) {
  std::string list;
  for (std::size_t kind = 1; kind < counters.size(); ++kind)
    list += (list.empty() ? "" : ",") + std::to_string(counters[kind]);
  return list;
}

} // namespace

std::string stateLine(Program& program) {
  const auto& shared = program.shared();
  const auto active = program.active();
  std::string line = "state";
  const auto add = [&](std::string_view name, const std::string& value) {
    line += " " + std::string(name) + "=" + value;
  };
  const auto quoted = [](const std::string& text) { return "\"" + text + "\""; };
  const auto whole = [](int value) { return std::to_string(value); };
  add("active", active ? std::string(nameOf(*active)) : "-");
  add("touche", whole(static_cast<int>(shared.touche)));
  add("texte", quoted(shared.texte));
  add("couleur", whole(shared.couleur));
  add("ligne", whole(shared.ligne));
  add("colonne", whole(shared.colonne));
  add("reponse", quoted(shared.reponse));
  add("chrono", whole(shared.chrono));
  add("consigne", quoted(shared.consigne));
  add("score", whole(shared.score));
  add("essai", whole(shared.essai));
  add("enAttente", whole(shared.enAttente));
  add("nbOperations", whole(shared.nbOperations));
  add("operation", quoted(shared.operation));
  add("termes2", quoted(shared.termes[2]));
  add("termes3", quoted(shared.termes[3]));
  add("resultat", whole(shared.resultat));
  add("reussies", listed(shared.reussies));
  add("effectuees", listed(shared.effectuees));
  add("rnd", std::to_string(program.randomNumbers().givenNumbersLeft()));
  return line;
}

} // namespace chiffrolo
