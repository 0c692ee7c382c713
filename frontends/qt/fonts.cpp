// SPDX-License-Identifier: MIT
#include "qt/fonts.h"

#include "qt/units.h"

#include <QFontDatabase>
#include <QPainter>

#include <algorithm>
#include <array>

namespace chiffrolo::qt {

namespace {

enum class Slanting : std::uint8_t { asAsked, never };

struct Face {
  const char* asked{}; // in lower case
  const char* family{};
  const char* standIn{};
  QFont::StyleHint kind{QFont::AnyStyle}; // used if neither family is installed
  Slanting slanting{Slanting::asAsked};
};

/// `never`: a script face that is slanted by design. Slanted once more, it would be hard to read.
constexpr std::array faces{
    Face{"times new roman", "Times New Roman", "Liberation Serif", QFont::Serif},
    Face{"times", "Times New Roman", "Liberation Serif", QFont::Serif},
    Face{"arial", "Arial", "Liberation Sans", QFont::SansSerif},
    Face{"ms sans serif", "MS Sans Serif", "Liberation Sans", QFont::SansSerif},
    Face{"tahoma", "Tahoma", "Liberation Sans", QFont::SansSerif},
    Face{"brush script mt", "Brush Script MT", "Kaushan Script", QFont::Cursive, Slanting::never},
};

const Face* knownFace(const QString& name) {
  const QString wanted = name.toLower();
  const auto* const found =
      std::ranges::find_if(faces, [&](const Face& face) { return wanted == QLatin1StringView(face.asked); });
  return found == faces.end() ? nullptr : found;
}

const QStringList& installedFamilies() {
  static const QStringList families = QFontDatabase::families();
  return families;
}

/// Checked first, because Qt searches all fonts of the system for a substitute if a family is not installed.
QString installedFamily(const Face& face) {
  const QString family = QString::fromLatin1(face.family);
  const bool isInstalled = installedFamilies().contains(family, Qt::CaseInsensitive);
  return isInstalled ? family : QString::fromLatin1(face.standIn);
}

QFont makeFont(const Font& font, int multiple) {
  const QString asked = toQt(font.face);
  const Face* const known = knownFace(asked);
  QFont made{known == nullptr ? asked : installedFamily(*known)};
  if (known != nullptr) made.setStyleHint(known->kind);
  made.setPixelSize(std::max(1, qRound(toPixels(font.size) * multiple)));
  made.setBold(font.weight == Weight::bold);
  made.setItalic(font.slant == Slant::italic && (known == nullptr || known->slanting == Slanting::asAsked));
  made.setHintingPreference(QFont::PreferNoHinting);
  // No font merging: one face has all letters of French, and searching for fallback faces delays the start.
  made.setStyleStrategy(static_cast<QFont::StyleStrategy>(QFont::PreferAntialias |
                                                          QFont::NoSubpixelAntialias | QFont::NoFontMerging));
  return made;
}

bool fits(const QFont& font, const QString& caption, QSize room) {
  const QRect area = QFontMetrics{font}.boundingRect({{}, room}, Qt::TextWordWrap, caption);
  return area.width() <= room.width() && area.height() <= room.height();
}

/// With kerning, some faces draw "11" narrower than other digits, and columns of digits would not align.
QFont withoutKerning(QFont font) {
  font.setKerning(false);
  return font;
}

} // namespace

void findFaces() { installedFamilies(); }

QFont captionFont(const Font& font) { return makeFont(font, 1); }

QFont fittingFont(const Font& font, const QString& caption, QSize room) {
  constexpr int smallestSize = 6; // pixels; smaller text cannot be read
  QFont fitting = captionFont(font);
  while (fitting.pixelSize() > smallestSize && !fits(fitting, caption, room))
    fitting.setPixelSize(fitting.pixelSize() - 1);
  return fitting;
}

TextFace::TextFace(const Font& font) : font_(withoutKerning(makeFont(font, multiple_))), metrics_(font_) {}

/// The sum of the characters' widths, which is exact without kerning. Measured once per character, because
/// QFontMetricsF lays out the text in each call.
qreal TextFace::width(const QString& text) const {
  qreal sum = 0;
  for (const QChar character : text)
    sum += cell(character).width;
  return sum;
}

QRectF TextFace::inkArea(const QString& text) const {
  QRectF area;
  qreal left = 0;
  for (const QChar character : text) {
    const auto& [width, ink] = cell(character);
    area |= ink.translated(left, 0);
    left += width;
  }
  return area;
}

const TextFace::Cell& TextFace::cell(QChar character) const {
  const auto [known, isNew] = cells_.try_emplace(character);
  if (!isNew) return known->second;
  const QRectF ink = metrics_.boundingRect(character).translated(0, metrics_.ascent());
  known->second = {metrics_.horizontalAdvance(character) * scale_,
                   {ink.topLeft() * scale_, ink.size() * scale_}};
  return known->second;
}

void TextFace::draw(QPainter& painter, QPointF topLeft, const QString& text) const {
  painter.save();
  painter.translate(topLeft);
  painter.scale(scale_, scale_);
  painter.setFont(font_);
  painter.drawText(QPointF{0, metrics_.ascent()}, text);
  painter.restore();
}

const TextFace& FontCache::face(const Font& font) {
  const Key key{font.face, font.size, font.weight, font.slant};
  return faces_.try_emplace(key, font).first->second;
}

} // namespace chiffrolo::qt
