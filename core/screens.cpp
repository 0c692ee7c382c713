// SPDX-License-Identifier: MIT
#include "screens.h"

#include "challenge/record.h"
#include "exercise/addition.h"
#include "home/accueil.h"
#include "home/aurevoir.h"
#include "modes/division.h"
#include "modes/multiplication.h"
#include "results/fin.h"
#include "results/fin2.h"

namespace chiffrolo {

namespace {

template <typename SomeScreen> std::shared_ptr<Screen> make(ScreenHost& host) {
  return std::make_shared<SomeScreen>(host);
}

} // namespace

/// In the order of `ScreenName`.
constinit const ScreenTable allScreens{make<AccueilScreen>,  make<AdditionScreen>, make<MultiplicationScreen>,
                                       make<DivisionScreen>, make<RecordScreen>,   make<FinScreen>,
                                       make<Fin2Screen>,     make<AurevoirScreen>};

} // namespace chiffrolo
