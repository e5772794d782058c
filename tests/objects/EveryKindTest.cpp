// SPDX-License-Identifier: MIT
#include "../support/ObjectChecks.h"
#include "../support/RandomShapes.h"

#include <tessera/objects/GeoCircle.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TGeoCircle.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TRegion.h>
#include <tessera/objects/TSprite.h>
#include <tessera/objects/TText.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <typeinfo>

namespace tessera::test {
namespace {

const std::type_info &ClassOf(const TCustomMapObject &object) {
  return typeid(object);
}

using Objects = std::vector<std::unique_ptr<TCustomMapObject>>;

template <class Kind, typename Set>
void Make(Objects &objects, Set set) {
  auto made = std::make_unique<Kind>();
  set(*made);
  objects.push_back(std::move(made));
}

/// Objects `size` map units wide, their lower left corner or their middle at the point.
Objects EveryKindAt(const TMapPoint &at, double size) {
  Objects all;
  const auto bend = [&](TCustomMapObject &o) {
    AddPart(o, {at, {at.X + size, at.Y}, {at.X, at.Y + size}});
    AddPart(o, {{at.X + size, at.Y + size}, at, {at.X + size, at.Y + size}});
  };
  Make<TRegion>(all, bend);
  Make<TPolyline>(all, bend);
  Make<TCircle>(all, [&](auto &o) { o.SetX(at.X), o.SetY(at.Y), o.SetRadius(size / 2); });
  Make<TRectangle>(all, [&](auto &o) { o.SetX0(at.X), o.SetY0(at.Y), o.SetX1(at.X + size), o.SetY1(at.Y + size); });
  Make<TSymbol>(all, [&](auto &o) { o.SetShape('A'), o.MoveTo(at.X, at.Y); });
  Make<TText>(all, [&](auto &o) {
    o.MoveTo(at.X, at.Y), o.SetText(QStringLiteral("far")), o.SetWidth(size), o.SetHeight(size), o.SetAngle(30);
  });
  Make<TSprite>(all, [&](auto &o) {
    QImage glyph(9, 9, QImage::Format_RGB32);
    glyph.fill(Qt::green);
    glyph.setPixel(0, 8, 0xFFFF0000);
    o.SetGlyph(TBitmap(glyph)), o.SetX(at.X), o.SetY(at.Y);
  });
  return all;
}

TEST(CloneTest, LooksAndAnswersAsItsModelAndIsItsOwn) {
  Objects all = EveryKindAt({20, 30}, 40);
  Make<TGeoCircle>(all, [](auto &o) { o.SetCenterX(40), o.SetCenterY(40), o.SetRadius(1e6); });
  Make<geocircle::TGeoCircle>(all, [](auto &o) { o.SetX(45), o.SetY(45), o.SetRadius(1e6); });
  TPen pen;
  pen.SetColor(clRed);
  for (const auto &object : all) {
    SCOPED_TRACE(ClassOf(*object).name());
    TFakeMapHost host;
    object->SetPen(pen);
    object->SetTag(7);
    object->GetFields().Add(QStringLiteral("Name"), TDataType::dtString, 9).SetAsString(QStringLiteral("value"));
    const std::unique_ptr<TCustomMapObject> clone = object->Clone();
    const auto pictureOf = [&](TCustomMapObject &drawn) {
      host.ClearPicture();
      drawn.SetMap(&host);
      drawn.Paint();
      drawn.SetMap(nullptr);
      return host.picture.GetImage().copy();
    };
    EXPECT_TRUE(ClassOf(*clone) == ClassOf(*object));
    EXPECT_EQ(pictureOf(*clone), pictureOf(*object));
    EXPECT_EQ(clone->GetBounds(), object->GetBounds());
    EXPECT_EQ(clone->GetTag(), 7);
    EXPECT_EQ(clone->GetFields().GetFields(0).GetAsString(), QStringLiteral("value"));
    clone->GetParts().Clear();
    clone->GetFields().Clear();
    EXPECT_TRUE(object->GetParts().GetCount() > 0 && object->GetFields().GetCount() == 1);
  }
}

/// What a transform may change, rounded.
std::string Figure(const TCustomMapObject &object) {
  const bool isPoint = dynamic_cast<const TSprite *>(&object) != nullptr;  // whose bounds stay behind
  const TMapPoint place = object.GetParts().GetFirst().GetPoints().GetPoint(0);
  const TBounds box = isPoint ? TBounds{place.X, place.Y, place.X, place.Y} : object.GetBounds();
  QString text = QString::asprintf("%.3f,%.3f %.3f,%.3f", box.MinX, box.MinY, box.MaxX, box.MaxY);
  if (const auto *label = dynamic_cast<const TText *>(&object)) {
    text += QString::asprintf(" %.3f x %.3f at %.1f", label->GetWidth(), label->GetHeight(), label->GetAngle());
  }
  return text.replace(QStringLiteral(".000"), QString())
      .replace(QStringLiteral("-0,"), QStringLiteral("0,"))
      .toStdString();
}

TEST(TransformTest, MovesScalesAndTurnsEachKindAsItCan) {
  const TMapPoint at{20, 30};
  struct Case {
    TMapTransform transform;
    /// Of region and polyline, circle, rectangle, symbol, text and sprite.
    std::vector<std::string> figures;
  };
  const Case cases[] = {
      {TMapTransform::Translation(5, -5),
       {"25,25 65,65", "25,25 65,65", "5,5 45,45", "25,25 65,65", "25,25 25,25", "25,25 25,25 40 x 40 at 0.0",
        "25,25 25,25"}},
      {TMapTransform::Scaling(4, 1, at),
       {"20,30 180,70", "20,30 180,70", "-20,-10 60,70", "20,30 180,70", "20,30 20,30", "20,30 20,30 160 x 40 at 0.0",
        "20,30 20,30"}},
      {TMapTransform::Scaling(-1, 1, at),
       {"-20,30 20,70", "-20,30 20,70", "0,10 40,50", "-20,30 20,70", "20,30 20,30", "-20,30 -20,30 40 x 40 at 0.0",
        "20,30 20,30"}},
      {TMapTransform::Rotation(-270, {0, 30}),
       {"-40,50 0,90", "-40,50 0,90", "-20,30 20,70", "-40,50 0,90", "0,50 0,50", "-40,10 -40,10 40 x 40 at 90.0",
        "0,50 0,50"}},
      {TMapTransform::Rotation(45, {40, 50}),
       {"11.716,21.716 68.284,78.284", "11.716,21.716 68.284,78.284", "20,1.716 60,41.716", "20,30 60,70",
        "40,21.716 40,21.716", "11.716,10 11.716,10 40 x 40 at 45.0", "40,21.716 40,21.716"}},
      {TMapTransform::Scaling(0, 0, at),
       {"20,30 20,30", "20,30 20,30", "20,30 20,30", "20,30 20,30", "20,30 20,30", "20,30 20,30 0 x 0 at 0.0",
        "20,30 20,30"}}};
  for (const Case &one : cases) {
    const Objects all = EveryKindAt(at, 40);
    static_cast<TText &>(*all[5]).SetAngle(0);
    std::vector<std::string> figures;
    for (const auto &object : all) {
      object->Transform(one.transform);
      figures.push_back(Figure(*object));
    }
    EXPECT_EQ(figures, one.figures);
  }
}

TEST(TransformTest, MovesTheCentresOfCirclesOnTheGroundAndScalesTheirRadii) {
  TGeoCircle ring;
  ring.SetCenterX(20), ring.SetCenterY(30);
  geocircle::TGeoCircle alone;
  alone.SetX(20), alone.SetY(30);
  for (const auto &transform : {TMapTransform::Scaling(4, -1, {10, 30}), TMapTransform::Rotation(90, {40, 30})}) {
    ring.Transform(transform);
    alone.Transform(transform);
  }
  EXPECT_EQ((TMapPoint{ring.GetCenterX(), ring.GetCenterY()}), (TMapPoint{40, 40}));
  EXPECT_EQ((TMapPoint{alone.GetX(), alone.GetY()}), (TMapPoint{40, 40}));
  EXPECT_EQ(ring.GetRadius(), 2 * TGeoCircle::DefaultRadius);
  EXPECT_EQ(alone.GetRadius(), 2 * TGeoCircle::DefaultRadius);
  EXPECT_TRUE(ring.ContainsPoint(40, 41.7));
  EXPECT_TRUE(alone.ContainsPoint(40, 41.7));
}

/// A map whose picture is white.
class FarOffTest : public testing::Test {
 protected:
  FarOffTest() { host.ClearPicture(); }

  /// Paints the object as a selected one, with a wide pen, and highlights it.
  void DrawInEveryWay(TCustomMapObject &object, int penWidth) {
    GiveTools(object, host);
    TPen pen = object.GetPen();
    pen.SetWidth(penWidth);
    object.SetPen(pen);
    object.Select();
    for (const bool isFast : {false, true}) {
      host.flags.FastSelection = isFast;
      object.Paint();
      object.DrawSelection();
    }
    if (auto *sprite = dynamic_cast<TSprite *>(&object)) sprite->Show();
    host.selection.Clear();
  }

  TFakeMapHost host;
};

TEST_F(FarOffTest, NothingIsDrawnOfWhatLiesFarFromTheView) {
  TRandomShapes random(5);
  const QImage blank = host.picture.GetImage().copy();
  for (const double zoom : {1e3, 1e7, 1e9, 1e12}) {
    // The widest pen paints a million pixels.
    const int widestPen = zoom < 1e7 ? 9 : std::numeric_limits<int>::max();
    for (int round = 0; round < 24; ++round) {
      const TMapPoint centre = random.Tangle({-1e5, -1e5, 1e5, 1e5}, 1)[0];
      host.viewport = {0, 0, 100, 100, centre.X, centre.Y, zoom, 100, 100};
      const double away = random.Real(3, 5000) * (round % 2 ? 1 : -1);
      const bool isBeside = round % 4 < 2;
      for (const auto &object : EveryKindAt({centre.X + (isBeside ? away : 0), centre.Y + (isBeside ? 0 : away)}, 1)) {
        DrawInEveryWay(*object, round % 3 ? 9 : widestPen);
        ASSERT_EQ(host.picture.GetImage(), blank)
            << ClassOf(*object).name() << " at zoom " << zoom << ", " << away << " units from the middle";
      }
    }
  }
}

TEST_F(FarOffTest, ACircleIsThatOfItsCentreHoweverFarThatLies) {
  constexpr double Radius = 1.9e9;
  for (const TMapPoint &direction : {TMapPoint{-1, 0}, {1, 0}, {-0.6, 0.8}, {-0.8, -0.6}, {0.28, 0.96}}) {
    // The rim runs through the middle of the view.
    const TMapPoint centre{50 + std::round(Radius * direction.X), 50 + std::round(Radius * direction.Y)};
    TCircle circle;
    circle.SetX(centre.X), circle.SetY(centre.Y), circle.SetRadius(Radius);
    GiveTools(circle, host);
    host.ClearPicture();
    circle.Paint();
    for (int i = 0; i < 144; ++i) {
      const int x = i % 12 * 9;
      const int y = i / 12 * 9;
      const double beyond = std::hypot(x - centre.X, 100 - y - centre.Y) - Radius;
      if (std::abs(beyond) < 3) continue;
      EXPECT_EQ(host.At(x, y), beyond < 0 ? FillColor : clWhite) << x << ' ' << y;
    }
  }
}

}  // namespace
}  // namespace tessera::test
