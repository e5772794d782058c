// SPDX-License-Identifier: MIT
#include "../support/FakeMapHost.h"

#include <tessera/base/DebugTrace.h>
#include <tessera/base/Exceptions.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRegion.h>

#include <gtest/gtest.h>

namespace tessera {
namespace {

using test::AddPart;
using test::TFakeMapHost;

constexpr TColor Fill = RGB(255, 200, 0);
constexpr TColor Line = RGB(0, 100, 255);

/// A closed square ring in client pixels; the map is as high as the client.
void AddSquare(TCustomMapObject &object, int left, int top, int right, int bottom) {
  const double low = 100 - bottom;
  const double high = 100 - top;
  AddPart(
      object,
      {{double(left), low}, {double(left), high}, {double(right), high}, {double(right), low}, {double(left), low}});
}

void GiveTools(TCustomMapObject &object, TMapHost &host) {
  TPen pen;
  pen.SetColor(Line);
  TBrush brush;
  brush.SetColor(Fill);
  object.SetPen(pen);
  object.SetBrush(brush);
  object.SetMap(&host);
}

/// A region on a map of 100 by 100 pixels.
class TRegionTest : public testing::Test {
 protected:
  TRegionTest() { GiveTools(region, host); }

  struct Pixel {
    int x, y;
    TColor color;
  };
  void ExpectPixels(std::initializer_list<Pixel> pixels) {
    for (const Pixel &pixel : pixels) EXPECT_EQ(host.At(pixel.x, pixel.y), pixel.color) << pixel.x << ' ' << pixel.y;
  }
  void ExpectNothingDrawn() {
    QImage blank = host.picture.GetImage().copy();
    blank.fill(Qt::white);
    EXPECT_EQ(host.picture.GetImage(), blank);
  }

  TFakeMapHost host;
  TRegion region;
};

TEST_F(TRegionTest, LeavesHolesAndFillsIslands) {
  AddSquare(region, 10, 10, 90, 90);
  AddSquare(region, 30, 30, 70, 70);
  AddSquare(region, 45, 45, 55, 55);
  AddSquare(region, 93, 93, 98, 98);
  region.Paint();
  ExpectPixels({{20, 50, Fill},
                {50, 80, Fill},
                {35, 50, clWhite},
                {50, 65, clWhite},
                {50, 50, Fill},
                {95, 95, Fill},
                {5, 50, clWhite},
                {10, 50, Line},
                {30, 50, Line},
                {50, 90, Line}});
  EXPECT_TRUE(host.displayed.Holds(region));
}

TEST_F(TRegionTest, LeavesWhereRingsOverlapUnfilled) {
  AddSquare(region, 10, 10, 60, 60);
  AddSquare(region, 40, 40, 90, 90);
  region.Paint();
  ExpectPixels({{20, 20, Fill}, {80, 80, Fill}, {50, 50, clWhite}});
}

TEST_F(TRegionTest, FillsTheLoopsOfARingByTheWindingRule) {
  // Twice around in one turn: the inner square is encircled twice.
  AddPart(region, {{10, 10}, {10, 90}, {90, 90}, {90, 10}, {30, 10}, {30, 70}, {70, 70}, {70, 30}, {10, 30}, {10, 10}});
  region.Paint();
  ExpectPixels({{50, 50, Fill}, {20, 20, Fill}, {80, 80, Fill}, {20, 80, clWhite}, {5, 5, clWhite}});
}

TEST_F(TRegionTest, ClosesItsOutlineOnlyWhereTheRingDoes) {
  AddPart(region, {{10, 10}, {10, 90}, {90, 90}, {90, 10}});
  region.Paint();
  ExpectPixels({{10, 50, Line}, {50, 10, Line}, {90, 50, Line}, {50, 90, clWhite}, {50, 88, Fill}});
}

TEST_F(TRegionTest, ShowsTheBackgroundColorThroughAHatch) {
  AddSquare(region, 10, 10, 90, 90);
  TBrush hatch;
  hatch.SetColor(clRed);
  hatch.SetStyle(TBrushStyle::bsHorizontal);
  region.SetBrush(hatch);
  region.SetBGColor(RGB(0, 255, 0));
  for (const bool usesBackground : {false, true}) {
    region.SetUseBGColor(usesBackground);
    host.ClearPicture();
    region.Paint();
    int hatched = 0;
    int background = 0;
    for (int y = 40; y < 48; ++y) {
      hatched += host.At(50, y) == clRed ? 1 : 0;
      background += host.At(50, y) == (usesBackground ? RGB(0, 255, 0) : clWhite) ? 1 : 0;
    }
    EXPECT_EQ(hatched, 1);
    EXPECT_EQ(background, 7);
    EXPECT_EQ(host.canvas.Brush(), hatch);
    EXPECT_EQ(host.canvas.Pen().GetStyle(), TPenStyle::psSolid);
  }
}

TEST_F(TRegionTest, IsFilledWithThePatternWhenSelectedInThePicture) {
  AddSquare(region, 10, 10, 90, 90);
  region.SetUseBGColor(true);
  region.Select();
  host.ClearPicture();
  region.Paint();
  ExpectPixels({{50, 50, Fill}, {10, 50, Line}});
  host.flags.FastSelection = false;
  region.Paint();
  ExpectPixels({{50, 50, TFakeMapHost::PatternColor}, {10, 50, clNavy}});
}

TEST_F(TRegionTest, AcceptsOnlyPartsOfOnePointInTheFastMode) {
  host.flags.FastDraw = true;
  region.Paint();
  AddPart(region, {{50, 50}});
  AddPart(region, {});
  EXPECT_NO_THROW(region.Paint());
  AddSquare(region, 10, 10, 90, 90);
  EXPECT_THROW(region.Paint(), ERangeError);
  ExpectNothingDrawn();
}

/// Hands over what is traced in its scope.
class TTraceRecorder {
 public:
  TTraceRecorder()
      : m_before(SetDebugTraceSink([this](const QString &format, std::initializer_list<QString> arguments) {
          texts += FormatMessage(format, arguments);
        })) {}
  ~TTraceRecorder() { SetDebugTraceSink(m_before); }
  TTraceRecorder(const TTraceRecorder &) = delete;
  TTraceRecorder &operator=(const TTraceRecorder &) = delete;

  QStringList texts;

 private:
  TTraceSink m_before;
};

TEST_F(TRegionTest, TracesWhatCombiningItsRingsCameTo) {
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
  EXPECT_EQ(trace.texts,
            (QStringList{QStringLiteral("The region is a single rectangle."),
                         QStringLiteral("The region is more than a single rectangle."),
                         QStringLiteral("The region is a single rectangle."), QStringLiteral("The region is empty.")}));
}

TEST_F(TRegionTest, IsNotFilledWithoutAFirstRing) {
  TTraceRecorder trace;
  AddPart(region, {});
  AddSquare(region, 10, 10, 90, 90);
  region.Paint();
  EXPECT_EQ(trace.texts, QStringList(QStringLiteral("No region is created.")));
  ExpectPixels({{50, 50, clWhite}, {10, 50, Line}});
}

TEST_F(TRegionTest, DrawsWhatIsInViewOfALargeRing) {
  AddSquare(region, -100000, -100000, 50, 50);
  region.Paint();
  ExpectPixels({{0, 0, Fill}, {49, 49, Fill}, {50, 20, Line}, {0, 60, clWhite}});
}

TEST(TPolylineTest, DrawsEachPartAsALineOfItsOwn) {
  TFakeMapHost host;
  TPolyline line;
  GiveTools(line, host);
  AddPart(line, {{10, 90}, {50, 90}, {50, 50}});
  AddPart(line, {{80, 50}, {80, 10}});
  AddPart(line, {});
  line.Paint();
  for (const TPoint &pixel : {TPoint(30, 10), TPoint(50, 30), TPoint(80, 70)}) {
    EXPECT_EQ(host.At(pixel.x(), pixel.y()), Line) << pixel.x() << ' ' << pixel.y();
  }
  for (const TPoint &pixel : {TPoint(65, 50), TPoint(30, 30), TPoint(45, 40)}) {
    EXPECT_EQ(host.At(pixel.x(), pixel.y()), clWhite) << pixel.x() << ' ' << pixel.y();
  }
}

template <class Kind>
class HighlightTest : public testing::Test {};

using Kinds = testing::Types<TPolyline, TRegion>;
TYPED_TEST_SUITE(HighlightTest, Kinds);

TYPED_TEST(HighlightTest, RestoresThePictureWhenDrawnTwice) {
  TFakeMapHost host;
  TypeParam object;
  object.Draw();
  GiveTools(object, host);
  AddSquare(object, 20, 20, 150, 80);
  AddSquare(object, 30, 30, 60, 90);
  AddPart(object, {{5, 5}, {95, 95}, {5, 95}, {95, 5}});
  TPen pen = object.GetPen();
  for (const int width : {1, 5}) {
    for (const TPenStyle style : {TPenStyle::psSolid, TPenStyle::psDashDot}) {
      for (const bool usesBackground : {false, true}) {
        pen.SetWidth(width);
        pen.SetStyle(style);
        object.SetPen(pen);
        object.SetUseBGColor(usesBackground);
        object.Paint();
        const QImage before = host.picture.GetImage().copy();
        object.DrawSelection();
        EXPECT_NE(host.picture.GetImage(), before);
        object.DrawSelection();
        EXPECT_EQ(host.picture.GetImage(), before) << width << ' ' << int(style) << ' ' << usesBackground;
        host.flags.ShowSelection = false;
        object.DrawSelection();
        EXPECT_EQ(host.picture.GetImage(), before);
        host.flags.ShowSelection = true;
      }
    }
  }
}

}  // namespace
}  // namespace tessera
