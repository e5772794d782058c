// SPDX-License-Identifier: MIT
#include "../support/FourCuts.h"
#include "../support/Printers.h"
#include "../support/RandomShapes.h"

#include <tessera/objects/PartToScreen.h>

#include <gtest/gtest.h>

#include <string>

namespace tessera {
namespace {

using Outline = std::vector<TPoint>;
using Points = std::vector<TMapPoint>;

TViewport ViewOf(int width, int height) {
  TViewport view{0, 0, double(width), double(height), width / 2.0, height / 2.0, 1, width, height};
  return view;
}

TBounds BoundsOf(const Points &points) {
  TBounds bounds = TBounds::Empty();
  for (const TMapPoint &point : points) bounds.Widen(point.X, point.Y);
  return bounds;
}

Outline OutlineOf(TScreenOutliner &outliner, const Points &points) {
  Outline outline{{-77, -77}};
  const std::size_t count = outliner.PartToScreen(points, BoundsOf(points), outline);
  EXPECT_EQ(count, outline.size() - 1);
  EXPECT_EQ(outline[0], TPoint(-77, -77));
  return {outline.begin() + 1, outline.end()};
}

/// The outline step by step: the enlarged view, four cuts, one conversion after the other, thinning.
Outline PlainOutline(const TViewport &view, const TViewFlags &flags, const Points &points) {
  if (points.empty()) return {};
  const TBounds shown = view.GetViewBounds();
  const TPoint first = view.MapToScreen(shown.MinX, shown.MinY) + TPoint(-2, 2);
  const TPoint second = view.MapToScreen(shown.MaxX, shown.MaxY) + TPoint(2, -2);
  const TMapPoint low = view.ScreenToMap(first.x(), first.y());
  const TMapPoint high = view.ScreenToMap(second.x(), second.y());
  Outline outline;
  for (const TMapPoint &point : test::FourCuts({low.X, low.Y, high.X, high.Y}, points)) {
    const TPoint pixel = view.MapToScreen(point.X, point.Y);
    const int level = flags.GeneralizationLevel;
    if (!flags.UseGeneralization || outline.empty() || std::abs(std::int64_t(pixel.x()) - outline.back().x()) > level ||
        std::abs(std::int64_t(pixel.y()) - outline.back().y()) > level) {
      outline.push_back(pixel);
    }
  }
  if (!flags.UseGeneralization) {
    const TPoint last = outline.back();
    outline.resize(points.size(), last);
  }
  return outline;
}

TEST(PartToScreenTest, ThinsPointsThatLieNear) {
  TViewFlags flags;
  flags.GeneralizationLevel = 2;
  TScreenOutliner outliner(ViewOf(100, 100), flags);
  EXPECT_EQ(OutlineOf(outliner, {{10, 50}, {11, 50}, {12, 50}, {13, 50}}), (Outline{{10, 50}, {13, 50}}));
  EXPECT_EQ(OutlineOf(outliner, {{10, 50}, {12, 52}, {10, 53}, {11, 54}}), (Outline{{10, 50}, {10, 47}}));
}

TEST(PartToScreenTest, CutsTwoPixelsBeyondTheView) {
  TViewFlags flags;
  flags.UseGeneralization = false;
  TScreenOutliner outliner(ViewOf(100, 60), flags);
  EXPECT_EQ(OutlineOf(outliner, {{-50, -50}, {-50, 150}, {150, 150}, {150, -50}}),
            (Outline{{-2, 62}, {-2, -2}, {102, -2}, {102, 62}}));
}

TEST(PartToScreenTest, KeepsThePartsOwnCountWithoutThinning) {
  TViewFlags flags;
  flags.UseGeneralization = false;
  TScreenOutliner outliner(ViewOf(100, 100), flags);
  EXPECT_EQ(OutlineOf(outliner, {{10, 50}, {110, 50}, {120, 55}, {130, 50}, {110, 45}, {10, 40}}),
            (Outline{{10, 50}, {102, 50}, {102, 55}, {10, 60}, {10, 60}, {10, 60}}));
  EXPECT_EQ(OutlineOf(outliner, {{50, 50}, {160, 160}, {50, -60}}).size(), 3U);
  EXPECT_TRUE(OutlineOf(outliner, {}).empty());
}

TEST(PartToScreenTest, DoesNotTrustBoundsThatAreTooSmall) {
  TViewFlags flags;
  flags.UseGeneralization = false;
  TScreenOutliner outliner(ViewOf(100, 100), flags);
  for (double x = 99; x < 105; x += 0.25) {
    const Points points{{50, 50}, {x, 50}, {50, 70}};
    Outline outline;
    outliner.PartToScreen(points, {50, 50, 60, 60}, outline);
    EXPECT_EQ(outline, PlainOutline(ViewOf(100, 100), flags, points)) << x;
  }
}

TEST(PartToScreenTest, IsForTheViewItWasMadeFor) {
  const TViewport view = ViewOf(100, 100);
  TViewport moved = view;
  moved.CenterX += 1;
  TViewFlags flags;
  const TScreenOutliner outliner(view, flags);
  EXPECT_TRUE(outliner.IsFor(view, flags));
  EXPECT_FALSE(outliner.IsFor(moved, flags));
  flags.FastDraw = true;
  EXPECT_TRUE(outliner.IsFor(view, flags));
  flags.GeneralizationLevel = 3;
  EXPECT_FALSE(outliner.IsFor(view, flags));
}

struct FlagsCase {
  std::string name;
  bool thins;
  int level;
};

void PrintTo(const FlagsCase &row, std::ostream *stream) {
  *stream << row.name;
}

class PartToScreenRandomTest : public testing::TestWithParam<FlagsCase> {};

TEST_P(PartToScreenRandomTest, GivesTheOutlineOfThePlainSteps) {
  TViewFlags flags;
  flags.UseGeneralization = GetParam().thins;
  flags.GeneralizationLevel = GetParam().level;
  test::TRandomShapes random(2024);
  int whole = 0;
  int cut = 0;
  for (int i = 0; i < 600; ++i) {
    TViewport view = ViewOf(random.Whole(1, 900), random.Whole(1, 700));
    view.Zoom = std::exp2(random.Real(-6, 10));
    const double origin = i % 3 == 0 ? 4.5e8 : 0;
    view.CenterX = origin + random.Real(-100, 100);
    view.CenterY = -origin + random.Real(-100, 100);
    const TBounds shown = view.GetViewBounds();
    const double width = shown.MaxX - shown.MinX;
    const double height = shown.MaxY - shown.MinY;
    TScreenOutliner outliner(view, flags);
    const double reach = random.Real(0.01, 1);
    const TMapPoint centre{view.CenterX + width * random.Real(-1, 1), view.CenterY + height * random.Real(-1, 1)};
    const TBounds about{centre.X - width * reach, centre.Y - height * reach, centre.X + width * reach,
                        centre.Y + height * reach};
    const Points shapes[] = {
        random.Tangle(about, random.Whole(1, 9)), random.Ring(centre, width * reach, random.Whole(3, 1500)),
        random.OnGrid(shown, 4, random.Whole(1, 40)), random.Ring({view.CenterX, view.CenterY}, width * 0.3, 1100)};
    for (const Points &points : shapes) {
      const Outline outline = OutlineOf(outliner, points);
      ASSERT_EQ(outline, PlainOutline(view, flags, points)) << "view " << i;
      const TBounds bounds = BoundsOf(points);
      (shown.ContainsBounds(bounds) ? whole : cut) += 1;
    }
  }
  EXPECT_GT(whole, 300);
  EXPECT_GT(cut, 300);
}

INSTANTIATE_TEST_SUITE_P(Flags, PartToScreenRandomTest,
                         testing::Values(FlagsCase{"Unthinned", false, 1}, FlagsCase{"Level0", true, 0},
                                         FlagsCase{"Level1", true, 1}, FlagsCase{"Level7", true, 7},
                                         FlagsCase{"BelowZero", true, -1}),
                         [](const auto &row) { return row.param.name; });

}  // namespace
}  // namespace tessera
