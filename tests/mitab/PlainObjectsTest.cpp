// SPDX-License-Identifier: MIT
#include "MitabFixture.h"

#include <cmath>
#include <functional>
#include <random>

namespace tessera::test {
namespace {

/// Tables are read the fast way where they can be. The same files under a type that is left to GDAL are the plain one.
class TPlainObjectsTest : public TMitabTest {
 protected:
  /// Points, lines and areas with few styles and many values, and every seventh object one that is left to GDAL.
  void WriteTable(int count, const char *charset) {
    const mitab_handle file =
        mitab_c_create(PathOf("a.tab").c_str(), "tab", "NonEarth Units \"m\"", 5e5, -5e5, 5e5, -5e5);
    const auto setCharset =
        reinterpret_cast<int (*)(mitab_handle, const char *)>(detail::FindMitabEntry("tessera_mitab_set_charset"));
    ASSERT_EQ(setCharset(file, charset), 0);
    const int types[] = {TABFT_Char, TABFT_Integer, TABFT_SmallInt, TABFT_Decimal, TABFT_Float, TABFT_Logical};
    for (const int type : types) mitab_c_add_field(file, ("F" + std::to_string(type)).c_str(), type, 20, 4, 0, 0);
    for (int i = 0; i < count; ++i) {
      const TMitabFeature feature = New(file, KindFor(i));
      Shape(feature.get(), i);
      mitab_c_set_pen(feature.get(), 1 + Below(3), 2, Below(2) * 255);
      mitab_c_set_brush(feature.get(), 0xff00, 0, 2 + Below(2), Below(2));
      mitab_c_set_symbol(feature.get(), 33 + Below(4), 12, 255);
      Fill(feature.get());
      EXPECT_EQ(mitab_c_write_feature(file, feature.get()), 1) << mitab_c_getlasterrormsg();
    }
    mitab_c_close(file);
  }
  static int KindFor(int i) {
    constexpr int Kinds[] = {TABFC_Region, TABFC_Polyline, TABFC_Point,  TABFC_Region,
                             TABFC_Point,  TABFC_NoGeom,   TABFC_Ellipse};
    constexpr int OfGdal[] = {TABFC_Text, TABFC_FontPoint};
    return i % 14 == 13 ? OfGdal[i / 14 % 2] : Kinds[i % 7];
  }
  void Shape(mitab_feature feature, int i) {
    const int kind = mitab_c_get_type(feature);
    mitab_c_set_text_display(feature, 0, 1, 1, 0, -1, -1, -1, -1);
    mitab_c_set_arc(feature, Place(), Place(), 50, 50, 0, 360);
    const bool isArea = kind == TABFC_Region;
    if (!isArea && kind != TABFC_Polyline) {
      if (kind != TABFC_Ellipse) SetPart(feature, 0, {{Place(), Place()}});
      return;
    }
    // Far apart and close together, from one block to many, and beyond what a short count can tell.
    const double reach = i % 3 == 0 ? 1e5 : 20;
    const int parts = i % 5 == 0 ? 1 + Below(4) : 1;
    for (int part = 0; part < parts; ++part) {
      const bool isIsland = isArea && part > 0 && Below(2) == 0;
      SetPart(feature, isIsland ? -1 : part, Ring(i == 49 ? 40000 : 3 + Below(i % 11 == 0 ? 900 : 12), reach, isArea));
    }
  }
  TCoordinates Ring(int count, double radius, bool isClosed) {
    TCoordinates points;
    const double x = Place() / 2;
    const double y = Place() / 2;
    for (int i = 0; i < count; ++i) {
      points.emplace_back(x + radius * std::cos(i * 6.28 / count), y + radius * std::sin(i * 6.28 / count));
    }
    if (isClosed) points.push_back(points.front());
    return points;
  }
  void Fill(mitab_feature feature) {
    const char *const words[] = {"", "plain", "Слово", " blanks at both ends ", "as long as the column"};
    mitab_c_set_field(feature, 0, words[Below(5)]);
    for (int field = 1; field < 5; ++field) mitab_c_set_field(feature, field, std::to_string(Place()).c_str());
    mitab_c_set_field(feature, 5, Below(2) == 0 ? "T" : "F");
  }
  /// The table under another name, changed; the same for the fast and the plain way but for its type.
  void CopyTable(const std::string &name, const std::function<void(std::string, QByteArray &)> &change) const {
    for (const std::string ending : {"tab", "dat", "map", "id"}) {
      QByteArray bytes = ReadFile("a." + ending);
      change(ending, bytes);
      std::string file = name;
      file.append(".").append(ending);
      WriteFile(file, bytes);
    }
  }
  static void ExpectSame(mitab_feature one, mitab_feature other) {
    ASSERT_EQ(mitab_c_get_type(one), mitab_c_get_type(other));
    ASSERT_EQ(mitab_c_get_parts(one), mitab_c_get_parts(other));
    for (int part = 0; part < mitab_c_get_parts(one); ++part) {
      ASSERT_EQ(PartOf(one, part), PartOf(other, part));
      EXPECT_EQ(mitab_c_is_interior_ring(one, part), mitab_c_is_interior_ring(other, part));
    }
    for (const auto tell :
         {mitab_c_get_pen_width, mitab_c_get_pen_pattern, mitab_c_get_pen_color, mitab_c_get_brush_fgcolor,
          mitab_c_get_brush_bgcolor, mitab_c_get_brush_pattern, mitab_c_get_brush_transparent, mitab_c_get_symbol_no,
          mitab_c_get_symbol_size, mitab_c_get_symbol_color}) {
      EXPECT_EQ(tell(one), tell(other));
    }
    for (int field = 0; field < 7; ++field) {
      EXPECT_STREQ(mitab_c_get_field_as_string(one, field), mitab_c_get_field_as_string(other, field));
      EXPECT_EQ(mitab_c_get_field_as_double(one, field), mitab_c_get_field_as_double(other, field));
    }
  }
  void ExpectSameBothWays(int expectedCount) const {
    CopyTable("plain", [this](const std::string &ending, QByteArray &bytes) {
      bytes = ReadFile("fast." + ending);
      if (ending == "tab") bytes.replace("Type NATIVE", "Type LINKED");
    });
    const mitab_handle fastFile = Open("fast.tab");
    const mitab_handle plainFile = Open("plain.tab");
    const auto fast = ReadAll(fastFile);
    const auto plain = ReadAll(plainFile);
    EXPECT_EQ(int(fast.size()), expectedCount);
    ASSERT_EQ(fast.size(), plain.size());
    for (std::size_t i = 0; i < fast.size() && !HasFailure(); ++i) {
      SCOPED_TRACE(i);
      ExpectSame(fast[i].get(), plain[i].get());
    }
    mitab_c_close(fastFile);
    mitab_c_close(plainFile);
  }

  double Place() { return (double(m_random()) / double(std::mt19937::max()) - 0.5) * 6e5; }
  int Below(int count) { return int(m_random() % unsigned(count)); }

 private:
  std::mt19937 m_random{20240401};
};

TEST_F(TPlainObjectsTest, AreTheSameAsGdalReadsThem) {
  constexpr int Count = 700;
  for (const char *charset : {"WindowsCyrillic", "Neutral"}) {
    WriteTable(Count, charset);
    // The quadrant in which coordinates count as positive.
    for (const char quadrant : {'\1', '\2', '\3', '\4', '\0'}) {
      CopyTable("fast", [quadrant](const std::string &ending, QByteArray &bytes) {
        constexpr qsizetype QuadrantAt = 353;
        if (ending == "map") bytes[QuadrantAt] = quadrant;
      });
      ExpectSameBothWays(Count);
    }
  }
}

TEST_F(TPlainObjectsTest, AreSkippedWhenTheyAreDeleted) {
  constexpr int Count = 60;
  WriteTable(Count, "Neutral");
  CopyTable("fast", [](const std::string &ending, QByteArray &bytes) {
    if (ending != "dat") return;
    const auto *header = reinterpret_cast<const unsigned char *>(bytes.constData());
    const int headerSize = header[8] + 256 * header[9];
    const int recordSize = header[10] + 256 * header[11];
    for (const int deleted : {5, 19, 33}) bytes[headerSize + deleted * recordSize] = '*';  // they have no shape
  });
  ExpectSameBothWays(Count - 3);
}

}  // namespace
}  // namespace tessera::test
