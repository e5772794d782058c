// SPDX-License-Identifier: MIT
#include "../support/FourCuts.h"
#include "../support/Printers.h"
#include "../support/RandomShapes.h"

#include <tessera/objects/detail/ScreenOutliner.h>

#include <gtest/gtest.h>

namespace tessera::test {
namespace {

using Outline = std::vector<TPoint>;
using Points = std::vector<TMapPoint>;

TViewport ViewOf(int width, int height) {
  return {0, 0, double(width), double(height), width / 2.0, height / 2.0, 1, width, height};
}

TBounds BoundsOf(const Points &points) {
  TBounds bounds = TBounds::Empty();
  for (const TMapPoint &point : points) bounds.Widen(point.X, point.Y);
  return bounds;
}

Outline OutlineOf(detail::ScreenOutliner &outliner, const Points &points) {
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
  for (const TMapPoint &point : FourCuts({low.X, low.Y, high.X, high.Y}, points)) {
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

TEST(ScreenOutlinerTest, CutsTwoPixelsBeyondTheViewAndKeepsThePartsOwnCountWithoutThinning) {
  TViewFlags flags;
  flags.UseGeneralization = false;
  detail::ScreenOutliner outliner(ViewOf(100, 60), flags);
  EXPECT_EQ(OutlineOf(outliner, {{10, 50}, {110, 50}, {120, 55}, {130, 50}, {110, 45}, {10, 40}}),
            (Outline{{10, 10}, {102, 10}, {102, 15}, {10, 20}, {10, 20}, {10, 20}}));
  EXPECT_TRUE(OutlineOf(outliner, {}).empty());
}

TEST(ScreenOutlinerTest, DoesNotTrustBoundsThatAreTooSmall) {
  TViewFlags flags;
  flags.UseGeneralization = false;
  detail::ScreenOutliner outliner(ViewOf(100, 100), flags);
  for (double x = 99; x < 105; x += 0.25) {
    const Points points{{50, 50}, {x, 50}, {50, 70}};
    Outline outline;
    outliner.PartToScreen(points, {50, 50, 60, 60}, outline);
    EXPECT_EQ(outline, PlainOutline(ViewOf(100, 100), flags, points)) << x;
  }
}

TEST(ScreenOutlinerTest, IsForTheViewItWasMadeFor) {
  const TViewport view = ViewOf(100, 100);
  TViewport moved = view;
  moved.CenterX += 1;
  TViewFlags flags;
  const detail::ScreenOutliner outliner(view, flags);
  EXPECT_TRUE(outliner.IsFor(view, flags));
  EXPECT_FALSE(outliner.IsFor(moved, flags));
  flags.FastDraw = true;
  EXPECT_TRUE(outliner.IsFor(view, flags));
  flags.GeneralizationLevel = 3;
  EXPECT_FALSE(outliner.IsFor(view, flags));
}

/// Compares outlines in one random view; counts those wholly in view and the others.
void CompareOutlines(TRandomShapes &random, double origin, const TViewFlags &flags, int &whole, int &cut) {
  TViewport view = ViewOf(random.Whole(1, 900), random.Whole(1, 700));
  view.Zoom = std::exp2(random.Real(-6, 10));
  view.CenterX = origin + random.Real(-100, 100);
  view.CenterY = -origin + random.Real(-100, 100);
  const TBounds shown = view.GetViewBounds();
  const double width = shown.MaxX - shown.MinX;
  const double height = shown.MaxY - shown.MinY;
  detail::ScreenOutliner outliner(view, flags);
  const double reach = random.Real(0.01, 1);
  const TMapPoint centre{view.CenterX + width * random.Real(-1, 1), view.CenterY + height * random.Real(-1, 1)};
  const TBounds about{centre.X - width * reach, centre.Y - height * reach, centre.X + width * reach,
                      centre.Y + height * reach};
  const Points shapes[] = {
      random.Tangle(about, random.Whole(1, 9)), random.Ring(centre, width * reach, random.Whole(3, 1500)),
      random.OnGrid(shown, 4, random.Whole(1, 40)), random.Ring({view.CenterX, view.CenterY}, width * 0.3, 1100)};
  for (const Points &points : shapes) {
    ASSERT_EQ(OutlineOf(outliner, points), PlainOutline(view, flags, points));
    (shown.ContainsBounds(BoundsOf(points)) ? whole : cut) += 1;
  }
}

TEST(ScreenOutlinerTest, GivesTheOutlineOfThePlainSteps) {
  struct Row {
    bool thins;
    int level;
  };
  for (const auto &[thins, level] : {Row{false, 1}, {true, 0}, {true, 1}, {true, 7}, {true, -1}}) {
    TViewFlags flags;
    flags.UseGeneralization = thins;
    flags.GeneralizationLevel = level;
    TRandomShapes random(2024);
    int whole = 0;
    int cut = 0;
    for (int i = 0; i < 300; ++i) {
      SCOPED_TRACE(testing::Message() << "thins " << thins << " level " << level << " view " << i);
      ASSERT_NO_FATAL_FAILURE(CompareOutlines(random, i % 3 == 0 ? 4.5e8 : 0, flags, whole, cut));
    }
    EXPECT_GT(whole, 150);
    EXPECT_GT(cut, 150);
  }
}

}  // namespace
}  // namespace tessera::test
