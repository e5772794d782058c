// SPDX-License-Identifier: MIT
#include "../support/FakeMapHost.h"

#include <tessera/objects/GeoCircle.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TGeoCircle.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TRegion.h>
#include <tessera/objects/TSprite.h>
#include <tessera/objects/TText.h>

#include <gtest/gtest.h>

#include <typeinfo>

namespace tessera::test {
namespace {

template <class Kind, typename Set>
std::unique_ptr<TCustomMapObject> Made(Set set) {
  auto made = std::make_unique<Kind>();
  set(*made);
  return made;
}

std::vector<std::unique_ptr<TCustomMapObject>> OneOfEachKind() {
  std::vector<std::unique_ptr<TCustomMapObject>> all;
  const auto zigzag = [](TCustomMapObject &o) {
    AddPart(o, {{10, 10}, {50, 90}, {90, 10}, {10, 10}});
    AddPart(o, {{20, 20}, {50, 30}, {20, 20}});
  };
  all.push_back(Made<TRegion>(zigzag));
  all.push_back(Made<TPolyline>(zigzag));
  all.push_back(Made<TCircle>([](TCircle &o) { o.SetX(50), o.SetY(40), o.SetRadius(20); }));
  all.push_back(Made<TRectangle>([](TRectangle &o) { o.SetX0(5), o.SetY0(5), o.SetX1(60), o.SetY1(70); }));
  all.push_back(Made<TSymbol>([](TSymbol &o) { o.MoveTo(50, 50), o.SetShape(40); }));
  all.push_back(Made<TText>([](TText &o) {
    o.MoveTo(20, 30), o.SetWidth(50), o.SetHeight(20), o.SetAngle(30), o.SetText(QStringLiteral("text"));
  }));
  all.push_back(Made<TSprite>([](TSprite &o) {
    QImage glyph(9, 9, QImage::Format_RGB32);
    glyph.fill(Qt::green);
    glyph.setPixel(0, 8, 0xFFFF0000);
    o.GetGlyph().GetImage() = glyph;
    o.Move(40, 60);
  }));
  all.push_back(Made<TGeoCircle>([](TGeoCircle &o) { o.SetCenterX(40), o.SetCenterY(40), o.SetRadius(1e6); }));
  all.push_back(Made<geocircle::TGeoCircle>([](auto &o) { o.SetX(45), o.SetY(45), o.SetRadius(1e6); }));
  return all;
}

TEST(CloneTest, LooksAndAnswersAsItsModelAndIsItsOwn) {
  TPen pen;
  pen.SetColor(clRed);
  for (const auto &object : OneOfEachKind()) {
    SCOPED_TRACE(typeid(*object).name());
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
    EXPECT_TRUE(typeid(*clone) == typeid(*object));
    EXPECT_EQ(pictureOf(*clone), pictureOf(*object));
    EXPECT_EQ(clone->GetBounds(), object->GetBounds());
    EXPECT_EQ(clone->GetTag(), 7);
    EXPECT_EQ(clone->GetFields().GetFields(0).GetAsString(), QStringLiteral("value"));
    clone->GetParts().Clear();
    clone->GetFields().Clear();
    EXPECT_GT(object->GetParts().GetCount(), 0);
    EXPECT_EQ(object->GetFields().GetCount(), 1);
  }
}

}  // namespace
}  // namespace tessera::test
