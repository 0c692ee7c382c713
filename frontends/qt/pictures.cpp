// SPDX-License-Identifier: MIT
#include "qt/pictures.h"

#include <array>

namespace chiffrolo::qt {

namespace {

struct Files {
  const char* designed;
  const char* large;
};

/// By `Picture`.
constexpr std::array<Files, 4> files{{
    {"", ""},
    {":/fleche.png", ":/fleche-grande.png"},
    {":/arret.png", ":/arret-grand.png"},
    {":/aurevoir.jpg", ":/aurevoir-grand.png"},
}};

const Files& filesOf(Picture picture) { return files.at(static_cast<std::size_t>(picture)); }

/// The format is given because Qt 6.4 otherwise loads all image plugins to detect it.
QPixmap load(const QString& file) {
  const QByteArray format = file.section(u'.', -1).toLatin1();
  return QPixmap{file, format.constData()};
}

} // namespace

ScaledPicture::ScaledPicture(Picture picture)
    : large_(filesOf(picture).large), designed_(load(QString::fromLatin1(filesOf(picture).designed))) {}

const QPixmap& ScaledPicture::ofSize(QSize size) {
  if (size == designed_.size()) return designed_;
  if (size != scaled_.size())
    scaled_ = load(QString::fromLatin1(large_)).scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  return scaled_;
}

const QPixmap& ScaledPicture::atScale(qreal ratio) {
  return ofSize((QSizeF{designed_.size()} * ratio).toSize());
}

} // namespace chiffrolo::qt
