// SPDX-License-Identifier: MIT
#include "qt/arguments.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace chiffrolo::qt {

namespace {

using namespace std::string_literals;
using std::string_view;

constexpr string_view help =
    R"(Usage : chiffrolo [OPTION]

Chiffrolo entraîne les enfants au calcul mental.

Options :
  --zoom fill       agrandit les écrans autant que l’affichage le permet
  --zoom NOMBRE     agrandit les écrans à ce pourcentage, de 100 à 300
  --help            affiche cette aide
  --version         affiche la version

Touches :
  F11               agrandit les écrans autant que possible, ou revient au zoom d’avant
  Ctrl et +, -, 0   agrandit, réduit, revient à 100 %
)";

constexpr string_view faultOfZoom = "après « --zoom », il faut « fill » ou un nombre entier de 100 à 300";

/// X11: Qt 6.4 gives session managers a command that restarts the program with this option and a name. The
/// program has nothing to restore.
constexpr string_view sessionOption = "-session";

/// A control character would end the line or control the terminal.
bool isControl(char character) { return static_cast<unsigned char>(character) < ' ' || character == '\x7f'; }

Arguments fault(std::string text) {
  constexpr int usageFault = 2;
  std::ranges::replace_if(text, isControl, '?');
  return {{}, Arguments::Answer{usageFault, "Chiffrolo : " + text + ".\n"}};
}

Arguments refuse(string_view argument) {
  const auto* const reason = argument.starts_with('-') ? "option inconnue" : "argument inattendu";
  return fault(reason + " « "s + std::string(argument) + " », voir « chiffrolo --help »");
}

Arguments answer(string_view text) { return {{}, Arguments::Answer{0, std::string(text)}}; }

/// Returns the first of `rest` and removes it; an empty text if there is none.
string_view take(std::span<const char* const>& rest) {
  if (rest.empty()) return {};
  const string_view first = rest.front();
  rest = rest.subspan(1);
  return first;
}

/// Nothing if `argument` is another option.
std::optional<string_view> valueOfZoom(string_view argument, std::span<const char* const>& rest) {
  constexpr string_view option = "--zoom";
  constexpr string_view optionWithValue = "--zoom=";
  if (argument == option) return take(rest);
  if (argument.starts_with(optionWithValue)) return argument.substr(optionWithValue.size());
  return std::nullopt;
}

std::optional<Zoom> parseZoom(string_view value) {
  constexpr int least = 100;
  constexpr int most = 300;
  if (value == "fill") return Zoom::filling();
  int percent{};
  const char* const end = value.data() + value.size();
  const auto [parsed, error] = std::from_chars(value.data(), end, percent);
  if (error != std::errc{} || parsed != end || percent < least || percent > most) return std::nullopt;
  return Zoom{percent / 100.0};
}

} // namespace

Arguments readArguments(std::span<const char* const> arguments, string_view version) {
  Arguments read;
  take(arguments);
  while (!arguments.empty()) {
    const auto argument = take(arguments);
    if (argument == "--help") return answer(help);
    if (argument == "--version") return answer("Chiffrolo "s.append(version).append("\n"));
    if (argument == sessionOption) {
      take(arguments);
    } else if (const auto value = valueOfZoom(argument, arguments)) {
      const auto zoom = parseZoom(*value);
      if (!zoom) return fault(std::string(faultOfZoom));
      read.zoom = *zoom;
    } else {
      return refuse(argument);
    }
  }
  return read;
}

} // namespace chiffrolo::qt
