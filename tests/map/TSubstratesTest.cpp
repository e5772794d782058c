// SPDX-License-Identifier: MIT
#include "MapFixture.h"

#include <tessera/base/Exceptions.h>
#include <tessera/map/TSubstrates.h>

#include <QTemporaryDir>

namespace tessera::test {
namespace {

/// A map of one layer with pictures to lay under it.
class TSubstratesTest : public MapFixture {
 protected:
  /// The file of a picture of 2 x 2 pixels: red and lime over blue and yellow.
  QString FourPixels(const char *format = "png") {
    QImage image(2, 2, QImage::Format_RGB32);
    for (int i = 0; i < 4; ++i) image.setPixel(i % 2, i / 2, Pixel(Colors[i]));
    return Saved(image, format);
  }
  QString OnePixel(TColor color) {
    QImage image(1, 1, QImage::Format_RGB32);
    image.fill(Pixel(color));
    return Saved(image, "png");
  }
  QString Saved(const QImage &image, const char *format) {
    QString name = directory.filePath(QString::number(++saved) + u'.' + QString::fromLatin1(format));
    EXPECT_TRUE(image.save(name, format));
    return name;
  }

  static constexpr TColor Colors[] = {RGB(255, 0, 0), RGB(0, 255, 0), RGB(0, 0, 255), RGB(255, 255, 0)};
  TMapLayer *layer = AddLayer();
  QTemporaryDir directory;
  int saved = 0;
  TSubstrates &substrates = *map.GetSubstrates();
};

TEST_F(TSubstratesTest, AreStretchedOverTheirRectangleWhateverItsSignsAndTheFormat) {
  struct LoadCase {
    const char *format;
    double x, y, width, height;
  };
  for (const auto &[format, x, y, width, height] :
       {LoadCase{"bmp", 20, 20, 60, 40}, LoadCase{"png", 80, 60, -60, -40}, LoadCase{"ppm", 20, 60, 60, -40}}) {
    SCOPED_TRACE(format);
    substrates.Clear();
    substrates.LoadFromFile(FourPixels(format), x, y, width, height);
    const QImage picture = Shown();
    const std::pair<QPoint, TColor> pixels[] = {{{20, 40}, Colors[0]}, {{79, 40}, Colors[1]}, {{20, 79}, Colors[2]},
                                                {{79, 79}, Colors[3]}, {{49, 59}, Colors[0]}, {{50, 60}, Colors[3]},
                                                {{19, 50}, clWhite},   {{80, 50}, clWhite},   {{50, 39}, clWhite},
                                                {{50, 80}, clWhite}};
    for (const auto &[at, color] : pixels) EXPECT_EQ(picture.pixel(at), Pixel(color)) << at.x() << ' ' << at.y();
  }
}

TEST_F(TSubstratesTest, LieOneOverTheOtherUnderTheLayersWhereTheirRectanglesGo) {
  auto rect = std::make_shared<TRectangle>();
  rect->SetX1(100);
  rect->SetY1(100);
  substrates.LoadFromFile(OnePixel(clRed), 0, 0, 100, 100);
  EXPECT_EQ(substrates.LoadFromFile(OnePixel(clBlue), rect)->GetRect(), rect);
  AddSquare(layer, 60, 50, 5, clNavy);
  EXPECT_EQ(Shown().pixel(25, 50), Pixel(clBlue));
  rect->SetX0(50);
  rect->SetX1(150);
  const QImage picture = Repainted();
  EXPECT_EQ(picture.pixel(25, 50), Pixel(clRed));
  EXPECT_EQ(picture.pixel(125, 50), Pixel(clBlue));
  EXPECT_EQ(picture.pixel(62, 48), Pixel(clNavy));
  map.GetLayers()->Delete(0);
  EXPECT_EQ(Repainted().pixel(25, 50), Pixel(clWhite)) << "they show only with a layer";
}

TEST_F(TSubstratesTest, AreHandedBackWhenRemovedOrExchangedAndGoneWhenCleared) {
  substrates.LoadFromFile(OnePixel(clRed), 0, 0, 100, 100);
  TSubstrate *upper = substrates.LoadFromFile(OnePixel(clBlue), 0, 0, 100, 100);
  std::unique_ptr<TSubstrate> removed = substrates.Remove(upper);
  EXPECT_EQ(removed.get(), upper);
  EXPECT_EQ(removed->GetMap(), nullptr);
  EXPECT_EQ(Shown().pixel(50, 50), Pixel(clRed));
  substrates.Add(std::move(removed));
  EXPECT_EQ(Shown().pixel(50, 50), Pixel(clBlue));
  EXPECT_EQ(substrates.SetSubstrate(1, std::make_unique<TSubstrate>())->GetMap(), nullptr);
  EXPECT_EQ(Shown().pixel(50, 50), Pixel(clRed));
  for (const int index : {-1, 2}) EXPECT_THROW(static_cast<void>(substrates.GetSubstrate(index)), ERangeError);
  substrates.Clear();
  EXPECT_EQ(Shown().pixel(50, 50), Pixel(clWhite));
}

TEST_F(TSubstratesTest, DrawNothingWithoutWhatTheyNeed) {
  EXPECT_THROW(substrates.LoadFromFile(directory.filePath(QStringLiteral("missing.png")), 0, 0, 1, 1), EInOutError);
  EXPECT_EQ(substrates.GetCount(), 0);
  TSubstrate *bare = substrates.Add(std::make_unique<TSubstrate>());
  bare->SetRect(std::make_shared<TRectangle>());
  EXPECT_EQ(Shown().pixel(0, 99), Pixel(clWhite)) << "no picture";
  bare->LoadFromFile(OnePixel(clRed), nullptr);
  EXPECT_EQ(Repainted().pixel(0, 99), Pixel(clWhite)) << "no rectangle";
  bare->SetRect(std::make_shared<TRectangle>());
  EXPECT_EQ(Repainted().pixel(0, 99), Pixel(clWhite)) << "a rectangle without extent";
}

TEST_F(TSubstratesTest, ReachFarBeyondTheView) {
  substrates.LoadFromFile(FourPixels(), 100 - 1e7, 50 - 1e7, 2e7, 2e7);
  const QImage picture = Shown();
  const QPoint corners[] = {{0, 0}, {199, 0}, {99, 99}, {100, 50}};
  for (int i = 0; i < 4; ++i) EXPECT_EQ(picture.pixel(corners[i]), Pixel(Colors[i]));
  substrates.LoadFromFile(OnePixel(clRed), 1e7, 1e7, 100, 100);
  EXPECT_EQ(Shown(), picture) << "outside the view";
}

TEST_F(TSubstratesTest, MoveToAnotherMapAsAWhole) {
  auto others = std::make_unique<TSubstrates>();
  const TSubstrate *substrate = others->LoadFromFile(OnePixel(clRed), 0, 0, 100, 100);
  EXPECT_EQ(map.SetSubstrates(std::move(others))->GetMap(), nullptr);
  EXPECT_EQ(substrate->GetMap(), &map);
  EXPECT_EQ(Repainted().pixel(50, 50), Pixel(clRed));
}

}  // namespace
}  // namespace tessera::test
