// SPDX-License-Identifier: MIT
#include "shell/program.h"

#include "challenge/record.h"
#include "exercise/addition.h"
#include "modes/division.h"
#include "modes/multiplication.h"
#include "results/fin.h"
#include "results/fin2.h"
#include "shell/accueil.h"
#include "shell/aurevoir.h"
#include "shell/layouts.h"
#include "shell/screen.h"

#include <utility>

namespace chiffrolo {

namespace {

template <typename SomeScreen> std::shared_ptr<Screen> make(Program& program) {
  return std::make_shared<SomeScreen>(program);
}

/// By number of the screen.
constexpr std::array creators{make<AccueilScreen>,  make<AdditionScreen>, make<MultiplicationScreen>,
                              make<DivisionScreen>, make<RecordScreen>,   make<FinScreen>,
                              make<Fin2Screen>,     make<AurevoirScreen>};
static_assert(creators.size() == screenCount);

} // namespace

Program::Program(Platform& platform)
    : platform_(platform), randomNumbers_([&platform] { return platform.timeOfDay(); }) {}

Program::~Program() = default;

/// Screen readers read out a window that opens by themselves.
void Program::start() {
  Show(ScreenName::accueil);
  told_ = contents();
}

Events::KeyUse Program::key(int code, std::optional<char32_t> character) noexcept {
  const auto screen = activeScreen();
  if (screen == nullptr) return KeyUse::screenStayed;
  screen->Form_KeyDown(code);
  // The character of a key that has led to another screen is meant for neither of the two.
  if (character && screen == activeScreen()) screen->Form_KeyPress(*character);
  return screen == activeScreen() ? KeyUse::screenStayed : KeyUse::screenChanged;
}

void Program::click(ControlIndex control) noexcept {
  if (const auto screen = activeScreen()) screen->react(control);
}

void Program::tick(ScreenName screen, ControlIndex timer) noexcept {
  if (const auto held = slot(screen)) held->react(timer);
}

void Program::front(ScreenName screen) noexcept {
  if (slot(screen) != nullptr) Show(screen);
}

void Program::close() noexcept {
  const auto closed = active_;
  if (!closed) return;
  if (*closed == ScreenName::accueil) return End();
  Show(ScreenName::accueil);
  Unload(*closed);
}

std::vector<SpokenText> Program::spokenTexts(ScreenName screen) const noexcept {
  std::vector<SpokenText> texts;
  for (const auto& text : visibleTexts(screen)) {
    const Rectangle& place = text.place;
    texts.push_back({spoken(text), {place.left, place.top}, {place.right(), place.bottom()}});
  }
  return texts;
}

std::string Program::takeNews() noexcept {
  const auto before = std::exchange(told_, contents());
  return news(before, told_);
}

Contents Program::contents() const {
  const auto screen = activeScreen();
  if (screen == nullptr) return {};
  return {active_, std::string(screen->layout().accessibleName), screen->labelCaptions(),
          screen->visibleTexts()};
}

void Program::Show(ScreenName screen) {
  auto held = slot(screen);
  if (held == nullptr) {
    held = slot(screen) = create(screen);
    held->Form_Load();
  }
  if (active_ == screen) return;
  active_ = screen;
  held->bringToFront();
  held->Form_Activate();
}

void Program::Unload(ScreenName screen) {
  const auto held = std::exchange(slot(screen), nullptr);
  if (held == nullptr) return;
  if (active_ == screen) active_.reset();
  held->close();
}

void Program::End() {
  platform_.quit();
  active_.reset();
  screens_.fill(nullptr);
}

std::vector<VisibleText> Program::visibleTexts(ScreenName screen) const {
  const auto& held = screens_[static_cast<std::size_t>(screen)];
  return held == nullptr ? std::vector<VisibleText>{} : held->visibleTexts();
}

const ScreenLayout* Program::activeLayout() const { return active_ ? &layoutOf(*active_) : nullptr; }

Program::HeldScreen& Program::slot(ScreenName screen) { return screens_[static_cast<std::size_t>(screen)]; }

Program::HeldScreen Program::activeScreen() const {
  return active_ ? screens_[static_cast<std::size_t>(*active_)] : nullptr;
}

Program::HeldScreen Program::create(ScreenName screen) {
  return creators[static_cast<std::size_t>(screen)](*this);
}

} // namespace chiffrolo
