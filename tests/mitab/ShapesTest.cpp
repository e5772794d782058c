// SPDX-License-Identifier: MIT
#include "MitabFixture.h"

#include <cmath>
#include <numbers>

namespace tessera::test {
namespace {

class TMitabShapesTest : public TMitabTest, public testing::WithParamInterface<const char *> {
 protected:
  /// The kind that an area with this ring is read back as.
  int KindOf(const TCoordinates &ring) {
    const mitab_handle file = Create(GetParam());
    EXPECT_EQ(mitab_c_add_field(file, "A", TABFT_Integer, 0, 0, 0, 0), 0);
    const TMitabFeature region = New(file, TABFC_Region);
    SetPart(region.get(), 0, ring);
    EXPECT_EQ(mitab_c_write_feature(file, region.get()), 1);
    return KindWritten(file);
  }
  /// Closes the file, and answers the kind of its object.
  int KindWritten(mitab_handle file) {
    mitab_c_close(file);
    const mitab_handle again = Open(std::string("a.") + GetParam());
    read = ReadAll(again);
    mitab_c_close(again);
    return read.size() == 1 ? mitab_c_get_type(read[0].get()) : -1;
  }
  std::vector<TMitabFeature> read;
};

TEST_P(TMitabShapesTest, RecognisesARectangleFromAnyCornerButNothingElse) {
  const struct {
    TCoordinates ring;
    int kind;
  } rows[] = {
      {{{0, 0}, {4, 0}, {4, 3}, {0, 3}, {0, 0}}, TABFC_Rectangle},
      {{{4, 3}, {4, 0}, {0, 0}, {0, 3}, {4, 3}}, TABFC_Rectangle},
      {{{0, 0}, {4, 0}, {4, 3}, {0, 3.001}, {0, 0}}, TABFC_Region},
      {{{0, 0}, {4, 1}, {3, 4}, {-1, 3}, {0, 0}}, TABFC_Region},
      {{{0, 0}, {4, 0}, {4, 3}, {0, 0}}, TABFC_Region},
      {{{0, 0}, {4, 0}, {4, 3}, {2, 3}, {0, 3}, {0, 0}}, TABFC_Region},
  };
  for (const auto &row : rows) EXPECT_EQ(KindOf(row.ring), row.kind);
}

TEST_P(TMitabShapesTest, RecognisesTheEllipseThatItHasSampled) {
  const struct {
    double centerX, centerY, radiusX, radiusY;
  } rows[] = {{10, -20, 5, 2}, {0, 0, 900, 900}, {-999, 999, 0.5, 0.25}};
  for (const auto &row : rows) {
    const mitab_handle file = Create(GetParam());
    ASSERT_EQ(mitab_c_add_field(file, "A", TABFT_Integer, 0, 0, 0, 0), 0);
    const TMitabFeature ellipse = New(file, TABFC_Ellipse);
    mitab_c_set_arc(ellipse.get(), row.centerX, row.centerY, row.radiusX, row.radiusY, 0, 360);
    ASSERT_EQ(mitab_c_write_feature(file, ellipse.get()), 1);
    EXPECT_EQ(KindWritten(file), TABFC_Ellipse);
    const TCoordinates ring = PartOf(read.at(0).get(), 0);
    ASSERT_EQ(ring.size(), 180U);
    EXPECT_NEAR(ring[0].first, row.centerX + row.radiusX, 1e-6);
    EXPECT_NEAR(ring[0].second, row.centerY, 1e-6);
  }
}

TEST_P(TMitabShapesTest, TakesNoOtherRoundRingForAnEllipse) {
  const auto ring = [](int count, double startDeg, double direction, double bulge) {
    TCoordinates points;
    for (int i = 0; i < count; ++i) {
      const double angle = (startDeg + direction * 360.0 * (i % (count - 1)) / (count - 1)) * std::numbers::pi / 180;
      const double radius = 5 + (i == count / 3 ? bulge : 0);
      points.emplace_back(radius * std::cos(angle), radius * std::sin(angle));
    }
    return points;
  };
  EXPECT_EQ(KindOf(ring(180, 0, 1, 0)), TABFC_Ellipse);
  EXPECT_EQ(KindOf(ring(181, 0, 1, 0)), TABFC_Region);
  EXPECT_EQ(KindOf(ring(180, 10, 1, 0)), TABFC_Region);
  EXPECT_EQ(KindOf(ring(180, 0, -1, 0)), TABFC_Region);
  EXPECT_EQ(KindOf(ring(180, 0, 1, 0.001)), TABFC_Region);
}

TEST_P(TMitabShapesTest, KeepsTheIslandsAndHolesOfARegion) {
  const mitab_handle file = Create(GetParam());
  ASSERT_EQ(mitab_c_add_field(file, "A", TABFT_Integer, 0, 0, 0, 0), 0);
  const TMitabFeature region = New(file, TABFC_Region);
  SetPart(region.get(), 0, {{0, 0}, {10, 0}, {10, 10}, {0, 11}, {0, 0}});
  SetPart(region.get(), 1, {{2, 2}, {4, 2}, {4, 4}, {2, 2}});
  SetPart(region.get(), 2, {{6, 6}, {8, 6}, {8, 8}, {6, 6}});
  SetPart(region.get(), -1, {{20, 0}, {30, 0}, {30, 10}, {20, 0}});
  ASSERT_EQ(mitab_c_write_feature(file, region.get()), 1);
  ASSERT_EQ(KindWritten(file), TABFC_Region);
  const mitab_feature again = read[0].get();
  ASSERT_EQ(mitab_c_get_parts(again), 4);
  int holes = 0;
  for (int part = 0; part < 4; ++part) {
    const bool isSmall = mitab_c_get_vertex_x(again, part, 1) - mitab_c_get_vertex_x(again, part, 0) < 5;
    if (mitab_c_is_interior_ring(again, part) == 1) ++holes;
    if (mitab_c_get_vertex_count(again, part) == 4 && isSmall && mitab_c_get_vertex_x(again, part, 0) < 10) {
      EXPECT_EQ(mitab_c_is_interior_ring(again, part), 1) << part;
    }
  }
  EXPECT_EQ(holes, 2);
}

INSTANTIATE_TEST_SUITE_P(InBothFormats, TMitabShapesTest, testing::Values("tab", "mif"),
                         [](const auto &param) { return std::string(param.param); });

}  // namespace
}  // namespace tessera::test
