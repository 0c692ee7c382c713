// SPDX-License-Identifier: MIT
#include "program.h"

#include <utility>

namespace chiffrolo {

Program::Program(Platform& platform, const ScreenTable& creators)
    : platform_(platform), creators_(creators), randomNumbers_([&platform] { return platform.timeOfDay(); }) {
}

Program::~Program() = default;

/// Screen readers announce a new window themselves, so the first screen is not announced.
void Program::start() {
  Show(ScreenName::accueil);
  lastReported_ = contents();
}

Events::KeyUse Program::key(int code, std::optional<char32_t> character) noexcept {
  const auto screen = activeScreen();
  if (screen == nullptr) return KeyUse::screenStayed;
  screen->Form_KeyDown(code);
  // If the key has led to another screen, its character is dropped.
  if (character && screen == activeScreen()) screen->Form_KeyPress(*character);
  return screen == activeScreen() ? KeyUse::screenStayed : KeyUse::screenChanged;
}

void Program::click(ControlIndex control) noexcept {
  if (const auto screen = activeScreen()) screen->click(control);
}

void Program::tick(ScreenName screen, ControlIndex timer) noexcept {
  if (const auto held = slot(screen)) held->tick(timer);
}

void Program::front(ScreenName screen) noexcept {
  if (slot(screen) != nullptr) Show(screen);
}

void Program::close() noexcept {
  const auto closed = activeScreen();
  if (closed == nullptr) return;
  if (closed->layout().closing == Closing::endsProgram) return End();
  Show(ScreenName::accueil);
  Unload(closed->layout().name);
}

std::vector<SpokenText> Program::spokenTexts(ScreenName screen) const noexcept {
  std::vector<SpokenText> texts;
  for (const auto& text : visibleTexts(screen)) {
    const Rectangle& place = text.place;
    texts.push_back({spoken(text), {place.left, place.top}, {place.right(), place.bottom()}});
  }
  return texts;
}

std::string Program::takeAnnouncement() noexcept {
  const auto before = std::exchange(lastReported_, contents());
  return announcement(before, lastReported_);
}

std::unique_ptr<Window> Program::createWindow(const ScreenLayout& layout) {
  return platform_.createWindow(layout, *this);
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
    held = slot(screen) = creators_[static_cast<std::size_t>(screen)](*this);
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

/// Quits first: the windows that are destroyed then are not reported as unloaded.
void Program::End() {
  platform_.quit();
  active_.reset();
  screens_.fill(nullptr);
}

std::vector<VisibleText> Program::visibleTexts(ScreenName screen) const {
  const auto& held = screens_[static_cast<std::size_t>(screen)];
  return held == nullptr ? std::vector<VisibleText>{} : held->visibleTexts();
}

Program::HeldScreen& Program::slot(ScreenName screen) { return screens_[static_cast<std::size_t>(screen)]; }

Program::HeldScreen Program::activeScreen() const {
  return active_ ? screens_[static_cast<std::size_t>(*active_)] : nullptr;
}

} // namespace chiffrolo
