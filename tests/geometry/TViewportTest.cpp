// SPDX-License-Identifier: MIT
#include "../support/Printers.h"
#include "../support/RandomShapes.h"

#include <tessera/base/Exceptions.h>
#include <tessera/geometry/TViewport.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace tessera::test {
namespace {

constexpr int Lowest = std::numeric_limits<int>::min();
constexpr int Highest = std::numeric_limits<int>::max();
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

TViewport ViewOf(int width, int height) {
  TViewport view;
  view.ClientWidth = width;
  view.ClientHeight = height;
  return view;
}

/// A point on the map and the pixel that shows it.
struct Row {
  double mx, my;
  QPoint pixel;
};

TEST(TViewportTest, TakesTheScaleOfBothAxesFromTheWidth) {
  EXPECT_EQ(ViewOf(100, 100).ScreenToMap(0, 0), (TMapPoint{-180, 180}));
  const TViewport zoomed{-180, -90, 180, 90, 10, -20, 2, 100, 50};
  EXPECT_EQ(zoomed.GetViewBounds(), (TBounds{-80, -65, 100, 25}));
  EXPECT_EQ(zoomed.MapToScreen(10, -20), QPoint(50, 25));
}

TEST(TViewportTest, RoundsHalvesToEvenAndPinsPixelsBeyond32Bits) {
  const TViewport view = ViewOf(360, 360);  // one pixel a map unit, the origin at (180, 180)
  for (const Row &row : {Row{0.5, 0.5, {180, 180}}, Row{1.5, 1.5, {182, 178}}, Row{-0.5, -0.5, {180, 180}},
                         Row{0.5000001, 0.4999999, {181, 180}}, Row{1e300, -1e300, {Highest, Highest}},
                         Row{-Infinity, Infinity, {Lowest, Lowest}}, Row{NaN, 0, {Lowest, 180}}}) {
    EXPECT_EQ(view.MapToScreen(row.mx, row.my), row.pixel) << row.mx << ' ' << row.my;
  }
}

TEST(TViewportTest, PinsPointsOutOfViewBesideTheClient) {
  const TViewport view = ViewOf(360, 180);
  for (const Row &row : {Row{-180, 90, {0, 0}}, Row{180, -90, {360, 180}}, Row{-180.1, 1e300, {-1, -1}}}) {
    EXPECT_EQ(view.MapToScreenClipped(row.mx, row.my), row.pixel) << row.mx << ' ' << row.my;
  }
  EXPECT_THROW(static_cast<void>(view.MapToScreenClipped(NaN, 0)), ERangeError);
}

TEST(TViewportTest, RefusesAScaleThatIsZeroOrUndefined) {
  EXPECT_THROW(static_cast<void>(TViewport{5, -90, 5, 90, 0, 0, 1, 100, 100}.MapToScreen(0, 0)), EZeroDivide);
  EXPECT_THROW(static_cast<void>(TViewport{-180, 5, 180, 5, 0, 0, 1, 100, 100}.ScreenToMap(0, 0)), EZeroDivide);
  EXPECT_THROW(static_cast<void>(TViewport{-180, -90, 180, 90, 0, 0, 0, 100, 100}.GetViewBounds()), EZeroDivide);
  EXPECT_THROW(static_cast<void>(ViewOf(0, 100).MapToScreenClipped(0, 0)), EZeroDivide);
}

TEST(TViewportTest, GivesThePixelOfWhatItSaysAPixelShows) {
  TRandomShapes random(11);
  for (int i = 0; i < 2000; ++i) {
    TViewport view = ViewOf(random.Whole(1, 4000), random.Whole(1, 4000));
    view.Zoom = random.Real(0.001, 5000);
    view.CenterX = random.Real(-1e6, 1e6);
    view.CenterY = random.Real(-1e6, 1e6);
    const QPoint pixel(random.Whole(-9999, 9999), random.Whole(-9999, 9999));
    const TMapPoint shown = view.ScreenToMap(pixel.x(), pixel.y());
    ASSERT_EQ(view.MapToScreen(shown.X, shown.Y), pixel);
  }
}

/// Points about a view whose conversion as an array is compared with that of single points.
class TViewportArrayTest : public testing::Test {
 protected:
  /// The double nearest to where the position on the screen lies on the map, or a neighbour of it.
  double Near(long double position, int clientSize, long double scale, double center) {
    const auto exact = double((position - clientSize / 2.0L) / scale + center);
    const int side = m_random.Whole(-1, 1);
    return side == 0 ? exact : std::nextafter(exact, side * Infinity);
  }
  /// Points of all sorts: in and about the view, on the middle between two pixels, beside it, and beyond all bounds.
  std::vector<TMapPoint> PointsAbout(const TViewport &view) {
    const TViewport::Scale scale = view.GetScale();
    std::vector<TMapPoint> points;
    for (int i = 0; i < 20000; ++i) {
      const long double tie = m_random.Whole(-3000, 3000) + 0.5L;
      points.push_back(
          {Near(tie, view.ClientWidth, scale.Kx, view.CenterX), Near(tie, view.ClientHeight, -scale.Ky, view.CenterY)});
      points.push_back({Near(m_random.Real(-3e6, 3e6), view.ClientWidth, scale.Kx, view.CenterX),
                        Near(m_random.Real(-100, 100), view.ClientHeight, -scale.Ky, view.CenterY)});
    }
    const double odd[] = {0, -0.0, NaN, Infinity, -Infinity, 1e308, -1.7e308, 5e-324, 1e15, -4e9, view.CenterX};
    for (const double x : odd) {
      for (const double y : odd) points.push_back({x, y});
    }
    std::shuffle(points.begin(), points.end(), std::mt19937(5));
    return points;
  }

  TRandomShapes m_random{20240};
};

TEST_F(TViewportArrayTest, ConvertsToThePixelsOfTheSinglePoints) {
  const std::pair<const char *, TViewport> cases[] = {
      {"four pixels a unit", {-512, -512, 512, 512, 3.25, -7.5, 4, 1024, 768}},
      {"far from the origin", {-180, -90, 180, 90, 4.5e8 + 1 / 3.0, -7.1e8, 1234.5, 1921, 1079}},
      {"mirrored", {-180, -90, 180, 90, 30, 60, -2.5, 800, 600}},
      {"of a huge picture", {-180, -90, 180, 90, 0.1, 0.2, 1, 2'000'000'001, 2'000'000'001}},
      {"without zoom", {-180, -90, 180, 90, 0.1, 0.2, 0, 801, 600}},
      {"zoomed beyond all measure", {-180, -90, 180, 90, 0.1, 0.2, 1e300, 801, 600}}};
  for (const auto &[name, view] : cases) {
    const std::vector<TMapPoint> points = PointsAbout(view);
    std::vector<QPoint> pixels(points.size());
    view.MapToScreen(points, pixels.data());
    for (std::size_t i = 0; i < points.size(); ++i) {
      const QPoint expected = view.MapToScreen(points[i].X, points[i].Y);
      ASSERT_EQ(pixels[i], expected) << name << testing::PrintToString(points[i]);
      // Points are converted in blocks, where one that is hard to round makes the whole block slow and exact.
      QPoint alone;
      view.MapToScreen(std::span(points).subspan(i, 1), &alone);
      ASSERT_EQ(alone, expected) << name << testing::PrintToString(points[i]);
    }
  }
}

}  // namespace
}  // namespace tessera::test
