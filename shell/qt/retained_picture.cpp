// SPDX-License-Identifier: MIT
#include "shell/qt/retained_picture.h"

#include <QPainter>

#include <cmath>

namespace chiffrolo::qt {

namespace {

QSize scaled(QSize size, qreal scale) {
  const auto length = [scale](int unscaled) { return static_cast<int>(std::ceil(unscaled * scale)); };
  return {length(size.width()), length(size.height())};
}

} // namespace

void RetainedPicture::fit(QSize size, qreal ratio) {
  if (ratio != ratio_) scaleTo(ratio);
  dots_ = scaled(size, ratio).expandedTo(dots_);
}

void RetainedPicture::clear(QColor background) {
  background_ = background;
  image_.fill(background);
}

QImage& RetainedPicture::image() {
  if (image_.size() != dots_) growTo(dots_);
  return image_;
}

void RetainedPicture::paint(QPainter& painter) const {
  if (image_.size() != dots_) painter.fillRect(QRectF{{}, QSizeF{dots_} / ratio_}, background_);
  painter.drawImage(QPointF{}, image_);
}

void RetainedPicture::scaleTo(qreal ratio) {
  const qreal factor = ratio / ratio_;
  ratio_ = ratio;
  dots_ = scaled(dots_, factor);
  if (image_.isNull()) return;
  image_ = image_.scaled(scaled(image_.size(), factor), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  image_.setDevicePixelRatio(ratio);
}

void RetainedPicture::growTo(QSize dots) {
  QImage larger{dots, QImage::Format_RGB32};
  larger.fill(background_);
  image_.setDevicePixelRatio(1);
  QPainter{&larger}.drawImage(0, 0, image_);
  image_ = std::move(larger);
  image_.setDevicePixelRatio(ratio_);
}

} // namespace chiffrolo::qt
