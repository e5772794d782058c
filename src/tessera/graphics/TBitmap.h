// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TColor.h>

#include <QImage>

#include <optional>

namespace tessera {

/// A raster picture, implicitly shared. Sizes are client pixels (the image's size divided by its device pixel ratio).
///
/// The pixels are kept as QImage::Format_RGB32, or as Format_ARGB32_Premultiplied when the picture has see-through
/// parts: the two formats that are drawn, and drawn on, without conversion.
class TESSERA_CORE_EXPORT TBitmap {
 public:
  TBitmap() = default;
  /// Takes the picture over, converted to one of the two formats.
  explicit TBitmap(QImage image);

  [[nodiscard]] bool IsEmpty() const { return m_image.isNull(); }
  [[nodiscard]] int GetWidth() const;
  [[nodiscard]] int GetHeight() const;
  /// Makes the picture `width` x `height` white client pixels (Format_RGB32) at the given device pixel ratio.
  /// A size of 0 or less, above 32767 device pixels, or one that cannot be allocated leaves it empty.
  void SetSize(int width, int height, qreal devicePixelRatio = 1.0);

  /// Reads any image format Qt knows, up to 2 GB of pixels. @throws EInOutError with file name and reason; the picture
  /// is then unchanged.
  void LoadFromFile(const QString &fileName);

  /// Whether pixels of the transparent colour are left out when the picture is drawn.
  [[nodiscard]] bool GetTransparent() const { return m_transparent; }
  void SetTransparent(bool transparent) { m_transparent = transparent; }
  /// The transparent colour; when none was set it is that of the bottom left pixel ("automatic").
  [[nodiscard]] TColor GetTransparentColor() const;
  /// Whether a colour is left out: a transparent picture that is see-through by itself has none but the one that was
  /// set.
  [[nodiscard]] bool HasTransparentColor() const {
    return m_transparent && (m_transparentColor || !m_image.hasAlphaChannel());
  }
  void SetTransparentColor(std::optional<TColor> color) { m_transparentColor = color; }

  [[nodiscard]] const QImage &GetImage() const { return m_image; }
  /// The pixels themselves, for a canvas to draw on.
  [[nodiscard]] QImage &GetImage() { return m_image; }

  bool operator==(const TBitmap &other) const;

 private:
  QImage m_image;
  std::optional<TColor> m_transparentColor;
  bool m_transparent = false;
};

}  // namespace tessera
