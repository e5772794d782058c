// SPDX-License-Identifier: MIT
#include "MapFixture.h"

#include <tessera/base/Exceptions.h>
#include <tessera/map/TSubstrates.h>

#include <QTemporaryDir>

namespace tessera::test {
namespace {

constexpr TColor UpperLeft = RGB(200, 0, 0);
constexpr TColor UpperRight = RGB(0, 200, 0);
constexpr TColor LowerLeft = RGB(0, 0, 200);
constexpr TColor LowerRight = RGB(200, 200, 0);

/// A map of one layer with pictures to lay under it.
class TSubstratesTest : public MapFixture {
 protected:
  /// The file of a picture of 2 x 2 pixels.
  QString FourPixels(const char *format = "png") {
    QImage image(2, 2, QImage::Format_RGB32);
    image.setPixel(0, 0, Pixel(UpperLeft));
    image.setPixel(1, 0, Pixel(UpperRight));
    image.setPixel(0, 1, Pixel(LowerLeft));
    image.setPixel(1, 1, Pixel(LowerRight));
    return Saved(image, format);
  }
  QString OnePixel(TColor color) {
    QImage image(1, 1, QImage::Format_RGB32);
    image.fill(Pixel(color));
    return Saved(image, "png");
  }
  QString Saved(const QImage &image, const char *format) {
    const QString name = directory.filePath(QString::number(++saved) + u'.' + QString::fromLatin1(format));
    EXPECT_TRUE(image.save(name, format));
    return name;
  }

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
    const TSubstrate *substrate = substrates.LoadFromFile(FourPixels(format), x, y, width, height);
    EXPECT_EQ(substrates.GetSubstrate(0), substrate);
    EXPECT_EQ(substrate->GetMap(), &map);
    const QImage picture = Shown();
    const std::pair<QPoint, TColor> pixels[] = {{{21, 41}, UpperLeft},  {{20, 40}, UpperLeft},  {{79, 40}, UpperRight},
                                                {{20, 79}, LowerLeft},  {{79, 79}, LowerRight}, {{49, 59}, UpperLeft},
                                                {{50, 60}, LowerRight}, {{19, 50}, clWhite},    {{80, 50}, clWhite},
                                                {{50, 39}, clWhite},    {{50, 80}, clWhite}};
    for (const auto &[at, color] : pixels) EXPECT_EQ(picture.pixel(at), Pixel(color)) << at.x() << ' ' << at.y();
  }
}

TEST_F(TSubstratesTest, GoWhereTheSharedRectangleGoes) {
  auto rect = std::make_shared<TRectangle>();
  rect->SetX1(10);
  rect->SetY1(10);
  const TSubstrate *substrate = substrates.LoadFromFile(OnePixel(clRed), rect);
  EXPECT_EQ(substrate->GetRect(), rect);
  EXPECT_EQ(Shown().pixel(5, 95), Pixel(clRed));
  rect->SetX1(100);
  EXPECT_EQ(Repainted().pixel(95, 95), Pixel(clRed));
  substrates.Clear();
  EXPECT_EQ(rect->GetX1(), 100) << "the caller's rectangle lives on";
}

TEST_F(TSubstratesTest, LieOneOverTheOtherInTheirOrderUnderTheLayers) {
  substrates.LoadFromFile(OnePixel(clRed), 0, 0, 100, 100);
  substrates.LoadFromFile(OnePixel(clBlue), 50, 0, 100, 100);
  AddSquare(layer, 60, 50, 5, clNavy);
  const QImage picture = Shown();
  EXPECT_EQ(picture.pixel(25, 50), Pixel(clRed));
  EXPECT_EQ(picture.pixel(75, 50), Pixel(clBlue));
  EXPECT_EQ(picture.pixel(125, 50), Pixel(clBlue));
  EXPECT_EQ(picture.pixel(62, 48), Pixel(clNavy));
}

TEST_F(TSubstratesTest, ShowOnlyWithALayer) {
  map.GetLayers()->Delete(0);
  substrates.LoadFromFile(OnePixel(clRed), 0, 0, 100, 100);
  EXPECT_EQ(Shown().pixel(50, 50), Pixel(clWhite));
  AddLayer();
  EXPECT_EQ(Repainted().pixel(50, 50), Pixel(clRed));
}

TEST_F(TSubstratesTest, AreHandedBackWhenRemovedOrExchangedAndGoneWhenCleared) {
  substrates.LoadFromFile(OnePixel(clRed), 0, 0, 100, 100);
  TSubstrate *upper = substrates.LoadFromFile(OnePixel(clBlue), 0, 0, 100, 100);
  std::unique_ptr<TSubstrate> removed = substrates.Remove(upper);
  EXPECT_EQ(removed.get(), upper);
  EXPECT_EQ(removed->GetMap(), nullptr);
  EXPECT_EQ(substrates.Remove(upper), nullptr);
  EXPECT_EQ(Shown().pixel(50, 50), Pixel(clRed));
  EXPECT_EQ(substrates.Add(std::move(removed)), upper);
  EXPECT_EQ(Shown().pixel(50, 50), Pixel(clBlue));

  auto other = std::make_unique<TSubstrate>();
  other->LoadFromFile(OnePixel(clNavy), 0, 0, 100, 100);
  const std::unique_ptr<TSubstrate> exchanged = substrates.SetSubstrate(1, std::move(other));
  EXPECT_EQ(exchanged.get(), upper);
  EXPECT_EQ(exchanged->GetMap(), nullptr);
  EXPECT_EQ(Shown().pixel(50, 50), Pixel(clNavy));
  for (const int index : {-1, 2}) EXPECT_THROW(static_cast<void>(substrates.GetSubstrate(index)), ERangeError);

  substrates.Clear();
  EXPECT_EQ(substrates.GetCount(), 0);
  EXPECT_EQ(Shown().pixel(50, 50), Pixel(clWhite));
}

TEST_F(TSubstratesTest, TellWhichFileCannotBeRead) {
  const QString missing = directory.filePath(QStringLiteral("missing.png"));
  try {
    substrates.LoadFromFile(missing, 0, 0, 1, 1);
    ADD_FAILURE() << "a missing file was loaded";
  } catch (const EInOutError &error) {
    EXPECT_TRUE(MessageOf(error).contains(missing));
  }
  EXPECT_EQ(substrates.GetCount(), 0);
}

TEST_F(TSubstratesTest, DrawNothingWithoutWhatTheyNeed) {
  TSubstrate *bare = substrates.Add(std::make_unique<TSubstrate>());
  bare->SetRect(std::make_shared<TRectangle>());
  EXPECT_EQ(Shown().pixel(50, 50), Pixel(clWhite)) << "no picture";
  bare->LoadFromFile(OnePixel(clRed), nullptr);
  EXPECT_EQ(Repainted().pixel(50, 50), Pixel(clWhite)) << "no rectangle";
  bare->SetRect(std::make_shared<TRectangle>());
  EXPECT_EQ(Repainted().pixel(0, 99), Pixel(clWhite)) << "a rectangle without extent";
}

TEST_F(TSubstratesTest, ReachFarBeyondTheView) {
  substrates.LoadFromFile(FourPixels(), 100 - 1e7, 50 - 1e7, 2e7, 2e7);
  const QImage picture = Shown();
  EXPECT_EQ(picture.pixel(0, 0), Pixel(UpperLeft));
  EXPECT_EQ(picture.pixel(199, 0), Pixel(UpperRight));
  EXPECT_EQ(picture.pixel(99, 99), Pixel(LowerLeft));
  EXPECT_EQ(picture.pixel(100, 50), Pixel(LowerRight));
  substrates.LoadFromFile(OnePixel(clRed), 1e7, 1e7, 100, 100);
  EXPECT_EQ(Shown(), picture) << "outside the view";
}

TEST_F(TSubstratesTest, MoveToAnotherMapAsAWhole) {
  auto others = std::make_unique<TSubstrates>();
  TSubstrate *substrate = others->LoadFromFile(OnePixel(clRed), 0, 0, 100, 100);
  EXPECT_EQ(substrate->GetMap(), nullptr);
  const std::unique_ptr<TSubstrates> previous = map.SetSubstrates(std::move(others));
  EXPECT_EQ(previous->GetMap(), nullptr);
  EXPECT_EQ(substrate->GetMap(), &map);
  EXPECT_EQ(Repainted().pixel(50, 50), Pixel(clRed));
}

}  // namespace
}  // namespace tessera::test
