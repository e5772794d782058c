// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/graphics/TCanvas.h>

#include <random>

namespace tessera::test {

/// A picture with a canvas on it.
struct Board {
  explicit Board(int width = 40, int height = 30, qreal ratio = 1) {
    bitmap.SetSize(width, height, ratio);
    canvas.Brush().SetStyle(TBrushStyle::bsClear);
  }

  /// Fills figures with a colour.
  void FillWith(TColor color) {
    canvas.Brush().SetStyle(TBrushStyle::bsSolid);
    canvas.Brush().SetColor(color);
  }
  /// The colour of a device pixel.
  [[nodiscard]] TColor At(int x, int y) const { return FromQColor(bitmap.GetImage().pixelColor(x, y)); }
  /// How many device pixels have a colour.
  [[nodiscard]] int Count(TColor color) const {
    int count = 0;
    for (int y = 0; y < bitmap.GetImage().height(); ++y) {
      for (int x = 0; x < bitmap.GetImage().width(); ++x) count += At(x, y) == color ? 1 : 0;
    }
    return count;
  }

  TBitmap bitmap;
  TCanvas canvas{&bitmap};
};

/// Gives every pixel a random colour.
inline void FillWithNoise(TBitmap &bitmap) {
  std::mt19937 random(1);
  QImage &image = bitmap.GetImage();
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) image.setPixel(x, y, QRgb(random()) | 0xFF000000U);
  }
}

}  // namespace tessera::test
