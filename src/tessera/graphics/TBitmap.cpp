// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/graphics/TBitmap.h>

#include <QImageReader>

#include <algorithm>
#include <cmath>

namespace tessera {

namespace {

QImage ToDrawable(QImage image) {
  if (!image.isNull()) {
    image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
  }
  return image;
}

/// Lets pictures of up to `limitMb` megabytes be read as long as it lives; the limit of Qt holds for the whole process.
class ReadingLimit {
 public:
  explicit ReadingLimit(int limitMb) {
    constexpr int Unlimited = 0;
    if (m_previousMb != Unlimited) QImageReader::setAllocationLimit(std::max(m_previousMb, limitMb));
  }
  ~ReadingLimit() { QImageReader::setAllocationLimit(m_previousMb); }
  ReadingLimit(const ReadingLimit &) = delete;
  ReadingLimit &operator=(const ReadingLimit &) = delete;

 private:
  int m_previousMb = QImageReader::allocationLimit();
};

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
  constexpr double Largest = 32767;
  const bool possible = deviceWidth >= 1 && deviceHeight >= 1 && deviceWidth <= Largest && deviceHeight <= Largest &&
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
  // Scanned sheets exceed the 256 MB that Qt allows; a few bytes that claim to hold a huge picture are still refused.
  constexpr int LargestMb = 2048;
  const ReadingLimit limit(LargestMb);
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
