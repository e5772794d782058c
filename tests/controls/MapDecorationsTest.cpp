// SPDX-License-Identifier: MIT
#include "ControlFixture.h"

#include <tessera/controls/TMapLegend.h>
#include <tessera/controls/TScaleBar.h>
#include <tessera/geometry/Geodesy.h>
#include <tessera/objects/TMapScopes.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TText.h>

#include <QPainter>

namespace tessera::test {
namespace {

/// A map of 360 x 180 pixels that shows the earth, one degree a pixel.
class MapDecorationsTest : public ControlFixture {
 protected:
  MapDecorationsTest() {
    map->resize(360, 180);
    map->show();
    Settle();
  }
  template <class Kind>
  Kind *Add(TMapLayer &layer, TColor color) {
    auto *object = layer.NewObject<Kind>();
    TPen pen;
    pen.SetColor(color);
    object->SetPen(pen);
    return object;
  }
  static QImage Picture(const std::function<void(QPainter &)> &draw) {
    QImage image(360, 180, QImage::Format_RGB32);
    image.fill(Qt::yellow);
    QPainter painter(&image);
    draw(painter);
    return image;
  }
  static bool IsBlank(const QImage &image, const QRect &rect) {
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
      for (int x = rect.left(); x <= rect.right(); ++x) {
        if (image.pixelColor(x, y) != QColor(Qt::yellow)) return false;
      }
    }
    return true;
  }
  std::unique_ptr<TScaleBar> bar = std::make_unique<TScaleBar>();
  TMapLegend legend;
};

TEST_F(MapDecorationsTest, ScaleBarShowsTheLongestRoundDistanceThatFits) {
  EXPECT_EQ(bar->GetText(), QString());
  bar->SetMap(map.get());
  EXPECT_EQ(bar->GetText(), QStringLiteral("100"));
  EXPECT_DOUBLE_EQ(bar->GetLengthPx(), 100);
  bar->SetMaxLengthPx(80);
  EXPECT_EQ(bar->GetText(), QStringLiteral("50"));
  TMapMeasure measure;
  measure.Unit = TMapMeasure::muKilometre;
  measure.MetresPerUnit = 30;
  bar->SetMeasure(measure);
  EXPECT_EQ(bar->GetText(), QStringLiteral("2 km"));
  EXPECT_DOUBLE_EQ(bar->GetLengthPx(), 2000 / 30.0);
  bar->SetGeodetic(true);
  bar->SetUnit(TMapMeasure::muMetre);
  EXPECT_EQ(bar->GetDistance(), 5e6);
  EXPECT_DOUBLE_EQ(bar->GetLengthPx(), 5e6 / LengthOfDegree(0));
}

TEST_F(MapDecorationsTest, ScaleBarFollowsTheViewOfItsMapAndTheEndOfIt) {
  bar->SetMap(map.get());
  bar->SetUnit(TMapMeasure::muKilometre);
  bar->SetGeodetic(true);
  map->SetCenterY(60);
  map->SetZoom(10);
  Settle();
  EXPECT_DOUBLE_EQ(bar->GetLengthPx(), 500 * 1000 / (LengthOfDegree(60) / 10));
  map->SetCenterY(91);
  Settle();
  EXPECT_EQ(bar->GetText(), QString()) << "beyond the pole";
  map->SetCenterY(0);
  map->SetMaxX(map->GetMinX());
  Settle();
  EXPECT_EQ(bar->GetText(), QString()) << "a view without extent";
  map.reset();
  EXPECT_EQ(bar->GetMap(), nullptr);
  EXPECT_EQ(bar->GetText(), QString());
  TTessera other;
  bar->SetMap(&other);
  bar->SetMap(nullptr);
  EXPECT_EQ(other.GetDataLinks()->GetCount(), 0);
}

TEST_F(MapDecorationsTest, StandInTheirCornersOfPicturesThatAskForThem) {
  AddLayer(QStringLiteral("a layer"));
  bar->SetMap(map.get());
  legend.SetMap(map.get());
  const auto decorate = [&](QPainter &painter) { map->GetPainting()->Decorate(painter, {0, 0, 360, 180}); };
  EXPECT_TRUE(IsBlank(Picture(decorate), {0, 0, 360, 180})) << "off at first";
  bar->SetInPictures(true);
  legend.SetInPictures(true);
  const QImage both = Picture(decorate);
  const QRect bottomLeft(8, 179 - 8 - bar->sizeHint().height() + 1, bar->sizeHint().width(), bar->sizeHint().height());
  const QRect topRight(359 - 8 - legend.sizeHint().width() + 1, 8, legend.sizeHint().width(),
                       legend.sizeHint().height());
  EXPECT_FALSE(IsBlank(both, bottomLeft));
  EXPECT_FALSE(IsBlank(both, topRight));
  const QImage elsewhere = Picture([&](QPainter &painter) {
    decorate(painter);
    painter.fillRect(bottomLeft, Qt::yellow);
    painter.fillRect(topRight, Qt::yellow);
  });
  EXPECT_TRUE(IsBlank(elsewhere, {0, 0, 360, 180}));
  bar->SetTransparent(false);
  EXPECT_EQ(Picture(decorate).pixelColor(bottomLeft.topLeft()), bar->palette().color(QPalette::Window));
  bar.reset();
  legend.SetMap(nullptr);
  EXPECT_TRUE(IsBlank(Picture(decorate), {0, 0, 360, 180}));
}

QString Told(const TMapLegend &legend) {
  QStringList lines;
  for (const TMapLegend::TEntry &entry : legend.GetEntries()) {
    QString line = entry.name;
    for (const TStyleSample &style : entry.styles) line += QStringLiteral(" lAS").mid(1 + style.kind, 1);
    lines << line;
  }
  return lines.join(u'/');
}

TEST_F(MapDecorationsTest, LegendShowsVisibleLayersWithTheDifferentLooksOfTheirObjects) {
  TMapLayer &below = *AddLayer(QStringLiteral("below "));
  legend.SetMap(map.get());
  for (const TColor color : {clRed, clBlue, clRed}) Add<TPolyline>(below, color);
  Add<TRegion>(below, clRed);
  Add<TText>(below, clBlack)->SetText(QStringLiteral("text"));
  auto *symbol = Add<TSymbol>(below, clRed);
  symbol->SetShape(40);
  AddLayer(QStringLiteral("above"));
  Settle();
  EXPECT_EQ(Told(legend), QStringLiteral("above/below llAS"));
  below.GetObjects(0)->SetPen(below.GetObjects(1)->GetPen());
  below.GetObjects(2)->SetPen(below.GetObjects(1)->GetPen());
  symbol->SetShape(TSymbol::NoShape);
  below.TakeObject(below.GetObjects(3));
  Settle();
  EXPECT_EQ(Told(legend), QStringLiteral("above/below l"));
  below.SetName(QStringLiteral("under "));
  map->GetLayers()->Exchange(0, 1);
  Settle();
  EXPECT_EQ(Told(legend), QStringLiteral("under l/above"));
  below.SetMaxZoom(0.5);
  below.SetMinZoom(0.1);
  Settle();
  EXPECT_EQ(Told(legend), QStringLiteral("above"));
  map->GetLayers()->Clear();
  Settle();
  EXPECT_EQ(Told(legend), QString());
  AddLayer(QStringLiteral("last"));
  map.reset();
  Settle();
  EXPECT_EQ(Told(legend), QString());
}

TEST_F(MapDecorationsTest, LooksAtABoundedNumberOfObjectsAndStylesSpreadOverTheLayer) {
  TMapLayer &layer = *AddLayer(QStringLiteral("many "));
  {
    const TUpdateScope once(*map);
    for (int i = 0; i < 10000; ++i) Add<TPolyline>(layer, TColor(i < 9000 ? 1 : i));
  }
  legend.SetMap(map.get());
  EXPECT_EQ(Told(legend), QStringLiteral("many llllllll"));
  legend.SetMaxStyles(3);
  ASSERT_EQ(Told(legend), QStringLiteral("many lll"));
  // Of 10000 objects 4096 are looked at.
  EXPECT_EQ(legend.GetEntries()[0].styles[1].style.pen.GetColor(), TColor(9001));
}

TEST_F(MapDecorationsTest, LegendPaintsSamplesAsTheObjectsLook) {
  TMapLayer &layer = *AddLayer(QString());
  auto *region = Add<TRegion>(layer, clRed);
  TBrush brush;
  brush.SetColor(clBlue);
  region->SetBrush(brush);
  Add<TPolyline>(layer, clBlack);
  legend.SetMap(map.get());
  const QImage image = Picture([&](QPainter &painter) { legend.PaintTo(painter, {0, 0, 200, 100}); });
  const int top = legend.sizeHint().height() - 4 - 4 - 14;  // of the samples: above a gap and the margin
  EXPECT_EQ(image.pixel(4 + 12, top + 7), ToRgb(clBlue));
  const auto hasColor = [&](int x, TColor color) {
    for (int y = top; y < top + 14; ++y) {
      if (image.pixel(x, y) == ToRgb(color)) return true;
    }
    return false;
  };
  // A line that lies between two rows of pixels is a mixture.
  EXPECT_FALSE(hasColor(4 + 24 + 4 + 12, clBlue));
  EXPECT_FALSE(IsBlank(image, {4 + 24 + 4 + 12, top, 1, 14}));
}

}  // namespace
}  // namespace tessera::test
