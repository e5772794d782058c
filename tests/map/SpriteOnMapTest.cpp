// SPDX-License-Identifier: MIT
#include "MapFixture.h"

#include <tessera/objects/TSprite.h>
#include <tessera/objects/TText.h>

#include <random>

namespace tessera::test {
namespace {

class SpriteOnMapTest : public MapFixture {
 protected:
  /// Squares and a label, and a sprite of an odd size in the layer above them.
  SpriteOnMapTest() {
    TMapLayer *ground = AddLayer();
    for (int i = 0; i < 20; ++i) AddSquare(ground, i * 10, i * 4, 7, i % 2 ? clRed : clBlue);
    auto *text = ground->NewObject<TText>();
    text->SetText(QStringLiteral("Map"));
    text->MoveTo(40, 30);
    text->SetWidth(80);
    text->SetHeight(30);
    QImage glyph(13, 9, QImage::Format_RGB32);
    glyph.fill(ToRgb(clNavy));
    glyph.setPixel(0, 8, ToRgb(clWhite));
    sprite = AddLayer()->NewObject<TSprite>();
    sprite->SetGlyph(TBitmap(glyph));
    sprite->Move(100, 50);
    map.DoUpdate(true);
  }

  TSprite *sprite;
};

TEST_F(SpriteOnMapTest, ShowsAtOnceWhatAFreshPaintWouldShow) {
  const QImage start = Shown();
  std::mt19937 random(5);
  const auto wander = [&] {
    for (int i = 0; i < 1000; ++i) sprite->Move(double(random() % 260) - 30, double(random() % 160) - 30);
  };
  wander();
  // Where its point is in view a fresh paint draws it, also across the border.
  for (const TMapPoint &end : {TMapPoint{57, 43}, {2, 1}, {199, 98}}) {
    sprite->Move(end.X, end.Y);
    const QImage moved = Shown();
    ASSERT_NE(moved, start);
    ASSERT_EQ(moved, Repainted()) << end.X;
    wander();
  }
  sprite->Move(100, 50);
  EXPECT_EQ(Shown(), start);
  sprite->SetVisible(false);
  EXPECT_EQ(Shown(), Repainted());
}

TEST_F(SpriteOnMapTest, StaysSoundWhenTheViewChangesUnderIt) {
  Shown();
  sprite->Move(195, 50);
  map.SetCenterX(150);
  sprite->Move(60, 50);
  EXPECT_EQ(Shown(), Repainted());
  map.SetZoom(2);
  Shown();
  sprite->Move(140, 40);
  EXPECT_EQ(Shown(), Repainted());
}

TEST_F(SpriteOnMapTest, LetsTextsGrowWithTheZoom) {
  const auto *text = static_cast<TText *>(map.GetLayers()->First()->Last());
  Shown();
  const int size = text->GetFont().GetSize();
  LookAt(60, 40, 2);
  Shown();
  EXPECT_GT(text->GetFont().GetSize(), 1.8 * size);
  EXPECT_FALSE(map.GetTextSizingGuard());
}

}  // namespace
}  // namespace tessera::test
