// SPDX-License-Identifier: MIT
#include "screen/layouts.h"

#include <algorithm>
#include <array>

namespace chiffrolo {

namespace {

using namespace std::chrono_literals;
using std::string_view;
using enum Visibility;

// Fixed, because the drawn texts would be unreadable on the window colours of a dark desktop.
constexpr Colour windowBackground{255, 255, 255};
constexpr Colour windowText{0, 0, 0};
constexpr Colour white{255, 255, 255};
constexpr Colour red{255, 0, 0};
constexpr Colour darkRed{128, 0, 0};
constexpr Colour darkBlue{0, 0, 128};
constexpr Colour lightYellow{255, 255, 224};

constexpr Font timesBold(Points size) { return {"Times New Roman", size, Weight::bold}; }
constexpr Font arialBold(Points size) { return {"Arial", size, Weight::bold}; }

// ---- One function per kind of control; each row below is one call ------------------------------------

constexpr ControlLayout label(string_view name, string_view caption, TwipsRectangle place, Font font,
                              Colour text, Colour background, Alignment alignment, Border border) {
  return {.kind = ControlKind::label,
          .name = name,
          .place = place,
          .caption = caption,
          .font = font,
          .foreground = text,
          .background = background,
          .alignment = alignment,
          .border = border};
}

constexpr ControlLayout titleLabel(string_view name, string_view caption, TwipsRectangle place, Font font,
                                   Border border) {
  return label(name, caption, place, font, darkRed, lightYellow, Alignment::centred, border);
}

constexpr ControlLayout button(string_view name, string_view caption, TwipsRectangle place,
                               string_view tooltip = {}) {
  return {.kind = ControlKind::button,
          .name = name,
          .place = place,
          .caption = caption,
          .tooltip = tooltip,
          .font = timesBold(18)};
}

constexpr ControlLayout image(string_view name, string_view accessibleName, Picture picture, Twips left,
                              Twips top, Visibility visible) {
  constexpr Twips side = 480; // 32 pixels
  return {.kind = ControlKind::image,
          .name = name,
          .place = {left, top, side, side},
          .accessibleName = accessibleName,
          .picture = picture,
          .visible = visible};
}

constexpr ControlLayout timer(string_view name, Switch enabled, std::chrono::milliseconds interval) {
  return {.kind = ControlKind::timer, .name = name, .enabled = enabled, .interval = interval};
}

constexpr ControlLayout shape(string_view name, TwipsRectangle place, Colour outline, Colour inside) {
  return {
      .kind = ControlKind::shape, .name = name, .place = place, .foreground = outline, .background = inside};
}

constexpr ControlLayout line(string_view name, TwipsRectangle place, Colour colour) {
  return {.kind = ControlKind::line, .name = name, .place = place, .foreground = colour};
}

constexpr ControlLayout pictureBox(string_view name, string_view accessibleName, Picture picture,
                                   TwipsRectangle place) {
  return {.kind = ControlKind::pictureBox,
          .name = name,
          .place = place,
          .background = windowBackground,
          .accessibleName = accessibleName,
          .picture = picture};
}

// ---- The controls, screen by screen: places are left, top, width, height -----------------------------

constexpr std::array accueilControls{
    titleLabel("titre", "Chiffrolo", {6120, 360, 4455, 615}, arialBold(24), Border::thin),
    shape("Forme1", {6120, 2400, 4455, 3015}, darkBlue, white),
    label("Etiquette1", "Entrainement", {6240, 2280, 1575, 255}, {"MS Sans Serif", 8.25F, Weight::bold},
          darkBlue, windowBackground, Alignment::centred, Border::none),
    button("Commande1", "additions-soustractions", {6360, 2640, 3975, 615}),
    button("Commande2", "multiplications", {6360, 3600, 3975, 615}),
    button("Commande3", "divisions", {6360, 4560, 3975, 615}),
    button("Commande4", "Record", {2160, 3600, 2295, 735},
           "Réussir 20 calculs dans le moins de temps possible"),
    line("Ligne1", {4440, 3960, 1680, 0}, darkBlue),
    button("Commande5", "Quitter", {7680, 7320, 1335, 615}),
};

/// The three exercise screens have the same controls at different places.
constexpr auto exerciseControls(TwipsRectangle title, Twips arrowLeft) {
  return std::array{
      titleLabel("titre", "Chiffrolo", title, timesBold(18), Border::thin),
      image("arret", "Arrêter", Picture::stop, 120, 6600, hidden),
      image("flèche", "Continuer", Picture::arrow, arrowLeft, 6600, hidden),
      timer("Minuterie", Switch::on, 20000ms),
  };
}

constexpr std::array additionControls = exerciseControls({3720, 240, 5295, 495}, 12840);
constexpr std::array multiplicationControls = exerciseControls({2160, 240, 5295, 495}, 9000);
constexpr std::array divisionControls = exerciseControls({3480, 240, 3135, 495}, 9000);

constexpr std::array recordControls{
    timer("Minuterie1", Switch::off, 1000ms),
    timer("Minuterie", Switch::off, 32000ms),
    image("arret", "Arrêter", Picture::stop, 120, 6600, hidden),
    image("flèche", "Continuer", Picture::arrow, 9000, 6600, hidden),
};

constexpr std::array finControls{
    titleLabel("texte2", "Félicitations", {5880, 1680, 3975, 1935}, timesBold(30), Border::thin),
    titleLabel("Etiquette1", "Tu as passé ce niveau avec succés ", {6120, 2520, 3495, 975}, timesBold(18),
               Border::none),
    image("flèche", "Continuer", Picture::arrow, 7680, 5880, visible),
};

constexpr std::array fin2Controls{
    image("flèche", "Continuer", Picture::arrow, 8640, 6360, visible),
};

constexpr std::array aurevoirControls{
    pictureBox("Picture1", "Chiffrolo", Picture::farewell, {7560, 7920, 495, 495}),
    image("flèche", "Quitter", Picture::arrow, 11280, 4200, visible),
    label("Label2", "Au revoir", {7440, 3960, 3015, 1095},
          {"Brush Script MT", 36, Weight::regular, Slant::italic}, red, windowBackground, Alignment::left,
          Border::none),
    label("mail", CHIFFROLO_CONTACT, {8760, 8040, 3075, 285}, {"Tahoma", 12}, windowText, windowBackground,
          Alignment::left, Border::none),
};

// ---- The screens -------------------------------------------------------------------------------------

using enum ScreenName;
using enum Frame;

/// By `ScreenName`.
constexpr std::array<ScreenLayout, screenCount> layouts{{
    {accueil, "accueil", "Accueil", frameless, timesBold(24), white, accueilControls, Typing::none,
     Closing::endsProgram},
    {addition, "", "Additions et soustractions", toolWindow, timesBold(24), white, additionControls,
     Typing::answer},
    {multiplication, "", "Multiplications", toolWindow, timesBold(24), white, multiplicationControls,
     Typing::answer},
    {division, "", "Divisions", toolWindow, timesBold(24), white, divisionControls, Typing::answer},
    {record, "", "Record", toolWindow, timesBold(24), white, recordControls, Typing::answer,
     Closing::endsChallenge},
    {FIN, "FIN", "Niveau réussi", frameless, timesBold(36), white, finControls},
    {FIN2, "FIN2", "Résultats", toolWindow, timesBold(36), white, fin2Controls},
    {Aurevoir, "", "Au revoir", toolWindow, {"Arial", 15.75F}, windowBackground, aurevoirControls},
}};

/// By `ScreenName`.
constexpr std::array<string_view, screenCount> names{"accueil", "addition", "multiplication", "division",
                                                     "record",  "FIN",      "FIN2",           "Aurevoir"};

} // namespace

const ScreenLayout& layoutOf(ScreenName screen) { return layouts[static_cast<std::size_t>(screen)]; }

string_view nameOf(ScreenName screen) { return names[static_cast<std::size_t>(screen)]; }

std::optional<ScreenName> screenNamed(string_view name) {
  const auto found = std::ranges::find(names, name);
  if (found == names.end()) return std::nullopt;
  return static_cast<ScreenName>(found - names.begin());
}

} // namespace chiffrolo
