// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/graphics/TBitmap.h>

#include <QImageReader>

#include <cmath>

namespace tessera {

namespace {

QImage ToDrawable(QImage image) {
  if (!image.isNull()) {
    image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
  }
  return image;
}

int ClientSize(int devicePx, qreal ratio) {
  return int(std::lround(devicePx / ratio));
}

}  // namespace

TBitmap::TBitmap(QImage image) : m_image(ToDrawable(std::move(image))) {}

int TBitmap::GetWidth() const {
  return ClientSize(m_image.width(), m_image.devicePixelRatio());
}

int TBitmap::GetHeight() const {
  return ClientSize(m_image.height(), m_image.devicePixelRatio());
}

void TBitmap::SetSize(int width, int height, qreal devicePixelRatio) {
  const double deviceWidth = std::round(width * devicePixelRatio);
  const double deviceHeight = std::round(height * devicePixelRatio);
  // QPainter draws on no wider or higher picture; the comparison also refuses a ratio that is not a number.
  constexpr double kLargest = 32767;
  const bool possible = deviceWidth >= 1 && deviceHeight >= 1 && deviceWidth <= kLargest && deviceHeight <= kLargest &&
                        devicePixelRatio > 0;
  if (!possible) {
    m_image = QImage();
    return;
  }
  const QSize size{int(deviceWidth), int(deviceHeight)};
  if (m_image.size() != size || m_image.format() != QImage::Format_RGB32) {
    m_image = QImage(size, QImage::Format_RGB32);
  }
  if (!m_image.isNull()) {
    m_image.setDevicePixelRatio(devicePixelRatio);
    m_image.fill(Qt::white);
  }
}

void TBitmap::LoadFromFile(const QString &fileName) {
  QImageReader reader(fileName);
  reader.setAutoTransform(true);
  QImage image;
  if (!reader.read(&image)) {
    throw EInOutError(QStringLiteral("Cannot read the picture %1: %2").arg(fileName, reader.errorString()));
  }
  m_image = ToDrawable(std::move(image));
}

TColor TBitmap::GetTransparentColor() const {
  if (m_transparentColor) return *m_transparentColor;
  return m_image.isNull() ? clWhite : FromQColor(m_image.pixelColor(0, m_image.height() - 1));
}

bool TBitmap::operator==(const TBitmap &other) const {
  return m_transparent == other.m_transparent && m_transparentColor == other.m_transparentColor &&
         m_image == other.m_image;
}

}  // namespace tessera
