// SPDX-License-Identifier: MIT
#include "../support/FakeMapHost.h"

#include <tessera/formats/detail/MitabShapes.h>
#include <tessera/formats/detail/MitabText.h>
#include <tessera/objects/TRegion.h>

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace tessera::test {
namespace {

using detail::CircleThrough;
using detail::IslandsOf;
using detail::MitabText;
using detail::RoundBounds;
using detail::TextAnchor;
using detail::TextCorner;
using detail::UsualCharset;

std::vector<TMapPoint> Ring(TMapPoint center, double radiusX, double radiusY, int count) {
  std::vector<TMapPoint> points;
  for (int i = 0; i < count; ++i) {
    const double angle = 2 * std::numbers::pi * i / (count - 1);
    points.push_back({center.X + radiusX * std::cos(angle), center.Y + radiusY * std::sin(angle)});
  }
  return points;
}

TEST(CircleThroughTest, FindsCirclesAndNothingElse) {
  for (const int count : {9, 180, 182}) {
    const auto circle = CircleThrough(Ring({7500000, -3}, 250, 250, count));
    ASSERT_TRUE(circle) << count;
    EXPECT_NEAR(circle->center.X, 7500000, 1e-3);
    EXPECT_NEAR(circle->center.Y, -3, 1e-3);
    EXPECT_NEAR(circle->radius, 250, 1e-3);
  }
  EXPECT_FALSE(CircleThrough(Ring({0, 0}, 250, 249, 180)));
  EXPECT_FALSE(CircleThrough(Ring({0, 0}, 0, 0, 180)));
  EXPECT_FALSE(CircleThrough(Ring({0, 0}, 5, 5, 6)));
  EXPECT_FALSE(CircleThrough(std::vector<TMapPoint>(20, TMapPoint{1, 1})));
}

TEST(IslandsOfTest, PutsHolesToTheSmallestIslandAround) {
  TRegion region;
  const auto square = [&region](double x, double y, double size) {
    AddPart(region, {{x, y}, {x + size, y}, {x + size, y + size}, {x, y + size}, {x, y}});
  };
  square(2, 2, 6);   // 0, a hole in 1
  square(0, 0, 10);  // 1
  square(3, 3, 4);   // 2, an island in the hole
  square(4, 4, 1);   // 3, a hole in 2
  square(20, 0, 5);  // 4
  region.GetParts().Add();
  const std::vector<std::vector<int>> expected{{1, 0}, {2, 3}, {4}, {5}};
  EXPECT_EQ(IslandsOf(region.GetParts().Items()), expected);
  EXPECT_TRUE(IslandsOf({}).empty());
}

TEST(RoundBoundsTest, HoldsTheGivenWithDecimalsOnTheStepsOfIntegers) {
  const TBounds rows[] = {
      {0, 0, 0, 0}, {-180, -90, 180, 90}, {7499999.5, 5600000, 7500123, 5600001}, {-1e12, 3, 1e12, 3}};
  for (const TBounds &given : rows) {
    const TBounds bounds = RoundBounds(given);
    EXPECT_TRUE(bounds.ContainsBounds(given));
    constexpr double Steps = 2e9;
    const double step = (bounds.MaxX - bounds.MinX) / Steps;
    EXPECT_LE(step, std::max(1e-11, 3e-8 * std::max(given.MaxX - given.MinX, std::abs(given.MaxX) / 1e5)));
    EXPECT_NEAR(std::log10(step) - std::floor(std::log10(step) + 1e-9), 0, 0.7) << "one, two or five with noughts";
  }
}

TEST(TextAnchorTest, TurnsAboutTheUpperLeftCorner) {
  const TMapPoint upright = TextAnchor({10, 20}, 0, 2);
  EXPECT_NEAR(upright.X, 10, 1e-12);
  EXPECT_NEAR(upright.Y, 20, 1e-12);
  const TMapPoint turned = TextAnchor({10, 20}, 90, 2);  // the upper left corner lies to the left of the lower left one
  EXPECT_NEAR(turned.X, 8, 1e-12);
  EXPECT_NEAR(turned.Y, 18, 1e-12);
  const TMapPoint back = TextCorner(turned, 90, 2);
  EXPECT_NEAR(back.X, 10, 1e-12);
  EXPECT_NEAR(back.Y, 20, 1e-12);
}

TEST(MitabTextTest, TakesUtf8FromALibraryThatRecodesAndBytesFromOthers) {
  const struct {
    const char *charset;
    bool recodes;
    const char *bytes;
    const char *text;
    const char *written;
  } rows[] = {
      {"WindowsCyrillic", true, "Я", "Я", "Я"},
      {"WindowsCyrillic", false, "\xdf", "Я", "\xdf"},
      {"WindowsGreek", false, "\xe1", "α", "\xe1"},
      {"Neutral", true, "\xdf", "Я", "\xdf"},
      {"Neutral", true, "Я", "Я", "\xdf"},
      {"UTF-8", true, "日", "日", "?"},
      {"WindowsJapanese", false, "\x93\xfa", "日", "\x93\xfa"},
      {"WindowsCyrillic", true, "日", "日", "?"},
      {"WindowsCyrillic", true, "plain", "plain", "plain"},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(row.charset);
    MitabText text(row.charset, row.recodes);
    EXPECT_EQ(text.Decode(row.bytes).toStdString(), row.text);
    EXPECT_EQ(text.DecodeUtf8(row.bytes), row.text);
    EXPECT_EQ(text.Encode(QString::fromUtf8(row.text)).toStdString(), row.written);
    EXPECT_EQ(text.GetLostCharacters(), std::string_view(row.written) == "?" ? 1 : 0);
  }
  MitabText text(UsualCharset, true);
  EXPECT_EQ(text.Encode(QStringLiteral("a😀b")).toStdString(), "a?b");
}

}  // namespace
}  // namespace tessera::test
