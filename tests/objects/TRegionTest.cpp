// SPDX-License-Identifier: MIT
#include "../support/ObjectChecks.h"
#include "../support/TraceRecorder.h"

#include <tessera/base/Exceptions.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRegion.h>

#include <gtest/gtest.h>

namespace tessera::test {
namespace {

/// A closed square ring in client pixels; the map is as high as the client.
void AddSquare(TCustomMapObject &object, double left, double top, double right, double bottom) {
  const double low = 100 - bottom;
  const double high = 100 - top;
  AddPart(object, {{left, low}, {left, high}, {right, high}, {right, low}, {left, low}});
}

/// A region on a map of 100 by 100 pixels.
class TRegionTest : public testing::Test {
 protected:
  TRegionTest() { GiveTools(region, host); }

  TFakeMapHost host;
  TRegion region;
};

TEST_F(TRegionTest, LeavesHolesAndOverlapsAndFillsIslands) {
  AddSquare(region, 10, 10, 90, 90);
  AddSquare(region, 30, 30, 70, 70);
  AddSquare(region, 45, 45, 55, 55);
  AddSquare(region, 80, 80, 98, 98);
  region.Paint();
  ExpectPixels(host, {{20, 50, FillColor}, {50, 75, FillColor}, {50, 50, FillColor}, {95, 95, FillColor}});
  ExpectPixels(host, {{35, 50, clWhite}, {50, 65, clWhite}, {5, 50, clWhite}, {85, 85, clWhite}});
  ExpectPixels(host, {{10, 50, LineColor}, {30, 50, LineColor}, {50, 90, LineColor}});
  EXPECT_TRUE(host.displayed.Holds(&region));
}

TEST_F(TRegionTest, FillsTheLoopsOfARingByTheWindingRule) {
  // Twice around in one turn: the inner square is encircled twice.
  AddPart(region, {{10, 10}, {10, 90}, {90, 90}, {90, 10}, {30, 10}, {30, 70}, {70, 70}, {70, 30}, {10, 30}, {10, 10}});
  region.Paint();
  ExpectPixels(host, {{50, 50, FillColor}, {20, 20, FillColor}, {80, 80, FillColor}, {20, 80, clWhite}});
}

TEST_F(TRegionTest, ClosesItsOutlineOnlyWhereTheRingDoes) {
  AddPart(region, {{10, 10}, {10, 90}, {90, 90}, {90, 10}});
  region.Paint();
  ExpectPixels(host, {{10, 50, LineColor}, {50, 10, LineColor}, {90, 50, LineColor}, {50, 90, clWhite}});
  EXPECT_EQ(host.At(50, 88), FillColor);
}

TEST_F(TRegionTest, ShowsTheBackgroundColorThroughAHatch) {
  AddSquare(region, 10, 10, 90, 90);
  GiveTools(region, host, TBrushStyle::bsHorizontal);
  region.SetBGColor(clBlue);
  for (const bool usesBackground : {false, true}) {
    region.SetUseBGColor(usesBackground);
    host.ClearPicture();
    region.Paint();
    int hatched = 0;
    for (int y = 40; y < 48; ++y) hatched += host.At(50, y) == FillColor ? 1 : 0;
    EXPECT_EQ(hatched, 1);
    EXPECT_EQ(host.At(50, 46), usesBackground ? clBlue : clWhite);
    EXPECT_EQ(host.canvas.Brush(), region.GetBrush());
    EXPECT_EQ(host.canvas.Pen().GetStyle(), TPenStyle::psSolid);
  }
}

TEST_F(TRegionTest, IsFilledWithThePatternWhenSelectedInThePicture) {
  AddSquare(region, 10, 10, 90, 90);
  region.SetUseBGColor(true);
  region.Select();
  host.ClearPicture();
  region.Paint();
  ExpectPixels(host, {{50, 50, FillColor}, {10, 50, LineColor}});
  host.flags.FastSelection = false;
  region.Paint();
  ExpectPixels(host, {{50, 50, TFakeMapHost::PatternColor}, {10, 50, clNavy}});
}

TEST_F(TRegionTest, AcceptsOnlyPartsOfOnePointInTheFastMode) {
  host.flags.FastDraw = true;
  region.Paint();
  AddPart(region, {{50, 50}});
  AddPart(region, {});
  EXPECT_NO_THROW(region.Paint());
  AddSquare(region, 10, 10, 90, 90);
  EXPECT_THROW(region.Paint(), ERangeError);
  EXPECT_TRUE(InkOf(host).isNull());
}

TEST_F(TRegionTest, TracesWhatCombiningItsRingsCameToAndNeedsAFirstOne) {
  TTraceRecorder trace;
  AddSquare(region, 10, 10, 90, 90);
  region.Paint();
  EXPECT_EQ(trace.texts, QStringList());
  AddPart(region, {{5, 5}});
  AddSquare(region, 20, 20, 80, 80);
  AddSquare(region, 20, 20, 80, 80);
  AddPart(region, {});
  AddSquare(region, 10, 10, 90, 90);
  region.Paint();
  host.ClearPicture();
  region.GetParts().Clear();
  AddPart(region, {});
  AddSquare(region, 10, 10, 90, 90);
  region.Paint();
  EXPECT_EQ(trace.texts.join(u' '),
            u"The region is a single rectangle. The region is more than a single rectangle. "
            u"The region is a single rectangle. The region is empty. No region is created.");
  ExpectPixels(host, {{50, 50, clWhite}, {10, 50, LineColor}});
}

TEST(TPolylineTest, DrawsEachPartAsALineOfItsOwn) {
  TFakeMapHost host;
  TPolyline line;
  line.Draw();
  GiveTools(line, host);
  AddPart(line, {{10, 90}, {50, 90}, {50, 50}});
  AddPart(line, {{80, 50}, {80, 10}});
  AddPart(line, {});
  line.Paint();
  ExpectPixels(host, {{30, 10, LineColor}, {50, 30, LineColor}, {80, 70, LineColor}});
  ExpectPixels(host, {{65, 50, clWhite}, {30, 30, clWhite}, {45, 40, clWhite}});
}

TEST_F(TRegionTest, RestoresThePictureWhenItsHighlightIsDrawnTwiceAsALineDoes) {
  TPolyline line;
  for (TCustomMapObject *object : std::initializer_list<TCustomMapObject *>{&line, &region}) {
    GiveTools(*object, host);
    AddSquare(*object, 20, 20, 150, 80);
    AddSquare(*object, 30, 30, 60, 90);
    AddPart(*object, {{5, 5}, {95, 95}, {5, 95}, {95, 5}});
    TPen pen = object->GetPen();
    for (const int width : {1, 5}) {
      pen.SetWidth(width);
      pen.SetStyle(width == 1 ? TPenStyle::psDashDot : TPenStyle::psSolid);
      object->SetPen(pen);
      for (const bool usesBackground : {false, true}) {
        object->SetUseBGColor(usesBackground);
        ExpectTwoHighlightsCancel(host, *object);
      }
    }
  }
}

}  // namespace
}  // namespace tessera::test
