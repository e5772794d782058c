// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/graphics/TCanvas.h>

#include <functional>
#include <random>
#include <string>

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

/// A drawing by name, for tests that hold for each of them.
struct Operation {
  std::string name;
  std::function<void(TCanvas &)> draw;
};

inline void PrintTo(const Operation &operation, std::ostream *stream) {
  *stream << operation.name;
}

/// Every drawing that follows the pen's mode, with figures that overlap themselves and reach over the border.
inline std::vector<Operation> ModalOperations() {
  using Points = std::vector<TPoint>;
  const Points crossing{{5, 5}, {35, 25}, {35, 5}, {5, 25}, {5, 5}, {35, 25}, {60, 10}};
  return {
      {"Rectangle", [](TCanvas &canvas) { canvas.Rectangle(30, 25, 6, 4); }},
      {"Ellipse", [](TCanvas &canvas) { canvas.Ellipse(4, 3, 33, 24); }},
      {"FlatEllipse", [](TCanvas &canvas) { canvas.Ellipse(-20, 10, 34, 13); }},
      {"Polygon", [crossing](TCanvas &canvas) { canvas.Polygon(crossing); }},
      {"Polyline", [crossing](TCanvas &canvas) { canvas.Polyline(crossing); }},
      {"LineTo",
       [crossing](TCanvas &canvas) {
         canvas.MoveTo(2, 2);
         for (const TPoint &point : crossing) canvas.LineTo(point.x(), point.y());
       }},
      {"PaintRgn",
       [crossing](TCanvas &canvas) {
         TRgn region;
         canvas.CreatePolygonRgn(crossing, TFillMode::Winding, region);
         canvas.PaintRgn(region);
       }},
      {"TextOutOfOneCharacter", [](TCanvas &canvas) { canvas.TextOut(10, 5, QStringLiteral("@")); }},
      {"TextOut", [](TCanvas &canvas) { canvas.TextOut(3, 5, QStringLiteral("Wqgj@@")); }},
      {"TurnedTextOut",
       [](TCanvas &canvas) {
         canvas.SetFontEscapement(300);
         canvas.TextOut(3, 22, QStringLiteral("Wqgj@"));
         canvas.SetFontEscapement(0);
       }},
  };
}

}  // namespace tessera::test
