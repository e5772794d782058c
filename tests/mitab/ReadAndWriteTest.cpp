// SPDX-License-Identifier: MIT
#include "MitabFixture.h"

#include <QDir>
#include <QProcess>

#include <clocale>
#include <functional>

namespace tessera::test {
namespace {

/// Rounded as a TAB file within the fixture's bounds rounds.
constexpr double CoordinateTolerance = 1e-6;

/// Puts a locale in force in which C writes a half as 0,5.
class TCommaLocale {
 public:
  explicit TCommaLocale(const std::string &folder) : m_before(std::setlocale(LC_NUMERIC, nullptr)) {
    QDir().mkpath(QString::fromStdString(folder));
    const QString made = QString::fromStdString(folder + "/de_DE.UTF-8");
    QProcess::execute(QStringLiteral("localedef"),
                      {QStringLiteral("--no-archive"), QStringLiteral("-i"), QStringLiteral("de_DE"),
                       QStringLiteral("-f"), QStringLiteral("UTF-8"), made});
    qputenv("LOCPATH", QByteArray::fromStdString(folder));
    m_isInForce = std::setlocale(LC_NUMERIC, "de_DE.UTF-8") != nullptr && std::localeconv()->decimal_point[0] == ',';
  }
  ~TCommaLocale() {
    std::setlocale(LC_NUMERIC, m_before.c_str());
    qunsetenv("LOCPATH");
  }
  TCommaLocale(const TCommaLocale &) = delete;
  TCommaLocale &operator=(const TCommaLocale &) = delete;
  [[nodiscard]] bool IsInForce() const { return m_isInForce; }

 private:
  std::string m_before;
  bool m_isInForce = false;
};

class TMitabFileTest : public TMitabTest, public testing::WithParamInterface<const char *> {
 protected:
  [[nodiscard]] std::string Name() const { return std::string("a.") + GetParam(); }
  [[nodiscard]] mitab_handle Begin() const {
    const mitab_handle file = Create(GetParam());
    EXPECT_EQ(mitab_c_add_field(file, "Id", TABFT_Integer, 0, 0, 0, 0), 0);
    return file;
  }
  /// Writes an object that `fill` has completed and checks what comes back.
  void CheckRoundTrip(int kind, const std::function<void(mitab_feature)> &fill,
                      const std::function<void(mitab_feature)> &check) {
    const mitab_handle file = Begin();
    const TMitabFeature feature = New(file, kind);
    fill(feature.get());
    mitab_c_set_field(feature.get(), 0, "42");
    EXPECT_EQ(mitab_c_write_feature(file, feature.get()), 1) << mitab_c_getlasterrormsg();
    mitab_c_close(file);
    const mitab_handle again = Open(Name());
    const auto read = ReadAll(again);
    EXPECT_EQ(mitab_c_getlasterrorno(), 0) << mitab_c_getlasterrormsg();
    ASSERT_EQ(read.size(), 1U);
    EXPECT_STREQ(mitab_c_get_field_as_string(read[0].get(), 0), "42");
    check(read[0].get());
    mitab_c_close(again);
  }
  static void ExpectPoints(mitab_feature feature, int part, const TCoordinates &expected) {
    const TCoordinates points = PartOf(feature, part);
    ASSERT_EQ(points.size(), expected.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
      EXPECT_NEAR(points[i].first, expected[i].first, CoordinateTolerance);
      EXPECT_NEAR(points[i].second, expected[i].second, CoordinateTolerance);
    }
  }
};

TEST_P(TMitabFileTest, KeepsTheThreeKindsOfSymbols) {
  const struct {
    int kind;
    int number;
    const char *font;
  } rows[] = {
      {TABFC_Point, 41, ""}, {TABFC_FontPoint, 58, "MapInfo Cartographic"}, {TABFC_CustomPoint, 0, "CAMP1-32.BMP"}};
  for (const auto &row : rows) {
    CheckRoundTrip(
        row.kind,
        [&](mitab_feature point) {
          SetPart(point, 0, {{1.5, -2.25}});
          mitab_c_set_symbol(point, row.number, 14, 0xff8000);
          mitab_c_set_font(point, row.font);
        },
        [&](mitab_feature point) {
          EXPECT_EQ(mitab_c_get_type(point), row.kind);
          ExpectPoints(point, 0, {{1.5, -2.25}});
          EXPECT_EQ(mitab_c_get_symbol_size(point), 14);
          EXPECT_STREQ(mitab_c_get_font(point), row.font);
          if (row.kind == TABFC_CustomPoint) return;
          EXPECT_EQ(mitab_c_get_symbol_no(point), row.number);
          EXPECT_EQ(mitab_c_get_symbol_color(point), 0xff8000);
        });
  }
}

TEST_P(TMitabFileTest, KeepsLinesOfSeveralPartsWithTheirPens) {
  CheckRoundTrip(
      TABFC_Polyline,
      [](mitab_feature line) {
        SetPart(line, 0, {{0, 0}, {1.25, 1}, {2, 0}});
        SetPart(line, 1, {{5, 5}, {6, 6.5}});
        mitab_c_set_pen(line, 3, 26, 0x0000aa);
      },
      [](mitab_feature line) {
        EXPECT_EQ(mitab_c_get_type(line), TABFC_Polyline);
        ASSERT_EQ(mitab_c_get_parts(line), 2);
        ExpectPoints(line, 0, {{0, 0}, {1.25, 1}, {2, 0}});
        ExpectPoints(line, 1, {{5, 5}, {6, 6.5}});
        EXPECT_EQ(mitab_c_get_pen_width(line), 3);
        EXPECT_EQ(mitab_c_get_pen_pattern(line), 26);
        EXPECT_EQ(mitab_c_get_pen_color(line), 0x0000aa);
      });
}

TEST_P(TMitabFileTest, KeepsAnArcAsTheLineItIsDrawnBy) {
  CheckRoundTrip(
      TABFC_Arc, [](mitab_feature arc) { mitab_c_set_arc(arc, 10, 20, 5, 5, 350, 30); },
      [](mitab_feature line) {
        EXPECT_EQ(mitab_c_get_type(line), TABFC_Polyline);
        const TCoordinates points = PartOf(line, 0);
        ASSERT_EQ(points.size(), 21U);
        EXPECT_NEAR(points[5].first, 15, CoordinateTolerance);
        EXPECT_NEAR(points[5].second, 20, CoordinateTolerance);
      });
}

TEST_P(TMitabFileTest, KeepsBrushesWithAndWithoutABackground) {
  for (const int transparent : {0, 1}) {
    CheckRoundTrip(
        TABFC_Region,
        [&](mitab_feature region) {
          SetPart(region, 0, {{0, 0}, {5, 0}, {5, 5}, {0, 0}});
          mitab_c_set_brush(region, 0x123456, 0x00ff00, 12, transparent);
          mitab_c_set_pen(region, 1, 1, 0);
        },
        [&](mitab_feature region) {
          EXPECT_EQ(mitab_c_get_brush_fgcolor(region), 0x123456);
          EXPECT_EQ(mitab_c_get_brush_pattern(region), 12);
          EXPECT_EQ(mitab_c_get_brush_transparent(region), transparent);
          EXPECT_EQ(mitab_c_get_brush_bgcolor(region), transparent == 1 ? 0xffffff : 0x00ff00);
          EXPECT_EQ(mitab_c_get_pen_pattern(region), 1);
        });
  }
}

TEST_P(TMitabFileTest, KeepsTheLookOfTexts) {
  const char *const texts[] = {"Hello", "two\nlines"};
  for (const char *text : texts) {
    CheckRoundTrip(
        TABFC_Text,
        [&](mitab_feature label) {
          SetPart(label, 0, {{4, 2}});
          mitab_c_set_text(label, text);
          mitab_c_set_font(label, "Courier New");
          mitab_c_set_text_display(label, 0, 1.5, 9, 0x112233, 0xffff00, TABTJ_Center, TABTS_Single, TABTL_NoLine);
        },
        [&](mitab_feature label) {
          EXPECT_EQ(mitab_c_get_type(label), TABFC_Text);
          ExpectPoints(label, 0, {{4, 2}});
          EXPECT_STREQ(mitab_c_get_text(label), text);
          EXPECT_STREQ(mitab_c_get_font(label), "Courier New");
          EXPECT_NEAR(mitab_c_get_text_height(label), 1.5, 1e-4);
          EXPECT_GT(mitab_c_get_text_width(label), 0);
          EXPECT_EQ(mitab_c_get_text_fgcolor(label), 0x112233);
          EXPECT_EQ(mitab_c_get_text_bgcolor(label), 0xffff00);
          EXPECT_EQ(mitab_c_get_text_justification(label), TABTJ_Center);
        });
  }
}

TEST_P(TMitabFileTest, KeepsTurnedTextsInPlace) {
  for (const double angleDeg : {30.0, 90.0, 120.0, 200.0, 300.0}) {
    SCOPED_TRACE(angleDeg);
    CheckRoundTrip(
        TABFC_Text,
        [&](mitab_feature label) {
          SetPart(label, 0, {{4, 2}});
          mitab_c_set_text(label, "Hello");
          mitab_c_set_text_display(label, angleDeg, 1.5, 0, -1, -1, -1, -1, -1);
        },
        [&](mitab_feature label) {
          EXPECT_EQ(mitab_c_get_text_angle(label), angleDeg);
          EXPECT_NEAR(mitab_c_get_text_height(label), 1.5, 1e-4);
          EXPECT_NEAR(mitab_c_get_vertex_x(label, 0, 0), 4, 1e-4);
          EXPECT_NEAR(mitab_c_get_vertex_y(label, 0, 0), 2, 1e-4);
        });
  }
}

TEST_P(TMitabFileTest, KeepsTheValuesOfAllTypesOfColumns) {
  const struct {
    const char *name;
    int type;
    int width;
    int precision;
    const char *value;
    const char *read;
  } rows[] = {
      {"C", TABFT_Char, 20, 0, " two, \"words\" ", " two, \"words\" "},
      {"I", TABFT_Integer, 0, 0, "-2000000000", "-2000000000"},
      {"S", TABFT_SmallInt, 0, 0, "-32768", "-32768"},
      {"D", TABFT_Decimal, 12, 3, "-12.345", "     -12.345"},
      {"F", TABFT_Float, 0, 0, "1.25e+100", "1.25e+100"},
      {"Da", TABFT_Date, 0, 0, "20240229", "20240229"},
      {"L", TABFT_Logical, 0, 0, "T", "T"},
      {"T", TABFT_Time, 0, 0, "101112345", "101112345"},
      {"DT", TABFT_DateTime, 0, 0, "20240229235959001", "20240229235959001"},
      {"L2", TABFT_Logical, 0, 0, "F", "F"},
      {"S2", TABFT_SmallInt, 0, 0, "70000", "4464"},
      {"Empty", TABFT_Date, 0, 0, "", ""},
  };
  const mitab_handle file = Create(GetParam());
  int index = 0;
  for (const auto &row : rows) {
    EXPECT_EQ(mitab_c_add_field(file, row.name, row.type, row.width, row.precision, 0, 0), index++);
  }
  const TMitabFeature feature = New(file, TABFC_NoGeom);
  for (int i = 0; i < index; ++i) mitab_c_set_field(feature.get(), i, rows[i].value);
  EXPECT_EQ(mitab_c_write_feature(file, feature.get()), 1);
  EXPECT_EQ(mitab_c_add_field(file, "Late", TABFT_Integer, 0, 0, 0, 0), -1);
  mitab_c_close(file);

  const mitab_handle again = Open(Name());
  ASSERT_EQ(mitab_c_get_field_count(again), index);
  const auto read = ReadAll(again);
  ASSERT_EQ(read.size(), 1U);
  EXPECT_EQ(mitab_c_get_type(read[0].get()), TABFC_NoGeom);
  for (int i = 0; i < index; ++i) {
    EXPECT_STREQ(mitab_c_get_field_name(again, i), rows[i].name);
    EXPECT_STREQ(mitab_c_get_field_as_string(read[0].get(), i), rows[i].read);
    EXPECT_EQ(mitab_c_get_field_type(again, i), rows[i].type) << rows[i].name;
  }
  EXPECT_EQ(mitab_c_get_field_width(again, 0), 20);
  EXPECT_EQ(mitab_c_get_field_precision(again, 3), 3);
  EXPECT_EQ(mitab_c_get_field_as_double(read[0].get(), 3), -12.345);
  mitab_c_close(again);
}

TEST_P(TMitabFileTest, KeepsTheCharacterSetOfAFile) {
  const auto setCharset =
      reinterpret_cast<int (*)(mitab_handle, const char *)>(detail::FindMitabEntry("tessera_mitab_set_charset"));
  ASSERT_NE(setCharset, nullptr);
  const mitab_handle file = Create(GetParam());
  EXPECT_EQ(setCharset(file, "Klingon"), -1);
  EXPECT_EQ(setCharset(file, "WindowsCyrillic"), 0);
  ASSERT_EQ(mitab_c_add_field(file, "Поле", TABFT_Char, 10, 0, 0, 0), 0);
  const TMitabFeature label = New(file, TABFC_Text);
  SetPart(label.get(), 0, {{1, 1}});
  mitab_c_set_text(label.get(), "Надпись");
  mitab_c_set_text_display(label.get(), 0, 1, 1, -1, -1, -1, -1, -1);
  mitab_c_set_field(label.get(), 0, "Значение!!");
  ASSERT_EQ(mitab_c_write_feature(file, label.get()), 1);
  mitab_c_close(file);
  EXPECT_TRUE(ReadFile(Name()).contains("\xcf\xee\xeb\xe5"));
  EXPECT_TRUE(ReadFile(Name()).contains("WindowsCyrillic"));

  const mitab_handle again = Open(Name());
  EXPECT_STREQ(mitab_c_get_field_name(again, 0), "Поле");
  const auto read = ReadAll(again);
  ASSERT_EQ(read.size(), 1U);
  EXPECT_STREQ(mitab_c_get_text(read[0].get()), "Надпись");
  EXPECT_STREQ(mitab_c_get_field_as_string(read[0].get(), 0), "Значение!!");
  mitab_c_close(again);
}

TEST_P(TMitabFileTest, KeepsTheCoordSys) {
  for (const char *coordSys :
       {"Earth Projection 8, 1001, \"m\", 39, 0, 1, 7500000, 0", "Earth Projection 1, 104", "NonEarth Units \"m\""}) {
    const mitab_handle file = Create(GetParam(), (std::string("CoordSys ") + coordSys).c_str());
    ASSERT_EQ(mitab_c_add_field(file, "A", TABFT_Integer, 0, 0, 0, 0), 0);
    const TMitabFeature point = New(file, TABFC_Point);
    SetPart(point.get(), 0, {{1, 1}});
    ASSERT_EQ(mitab_c_write_feature(file, point.get()), 1);
    mitab_c_close(file);
    const mitab_handle again = Open(Name());
    EXPECT_STREQ(mitab_c_get_mif_coordsys(again), coordSys);
    mitab_c_close(again);
  }
}

TEST_P(TMitabFileTest, ForgetsTheErrorsOfOtherFilesAndObjects) {
  EXPECT_EQ(Open("missing.tab"), nullptr);
  const mitab_handle file = Begin();
  const TMitabFeature bad = New(file, TABFC_Polyline);
  SetPart(bad.get(), 0, {{1, 1}});
  EXPECT_EQ(mitab_c_write_feature(file, bad.get()), 0) << "a line of one point";
  const TMitabFeature good = New(file, TABFC_Point);
  SetPart(good.get(), 0, {{1, 1}});
  EXPECT_EQ(mitab_c_write_feature(file, good.get()), 1);
  mitab_c_close(file);
  const mitab_handle again = Open(Name());
  EXPECT_EQ(mitab_c_get_feature_count(again), 1) << "nothing of the bad object is in the file";
  EXPECT_EQ(ReadAll(again).size(), 1U);
  mitab_c_close(again);
}

TEST_P(TMitabFileTest, ReadsObjectsByTheirIdsInAnyOrder) {
  const mitab_handle file = Begin();
  for (const char *value : {"7", "8", "9"}) {
    const TMitabFeature point = New(file, TABFC_Point);
    SetPart(point.get(), 0, {{1, 1}});
    mitab_c_set_field(point.get(), 0, value);
    ASSERT_EQ(mitab_c_write_feature(file, point.get()), 1);
  }
  mitab_c_close(file);
  const mitab_handle again = Open(Name());
  EXPECT_EQ(mitab_c_next_feature_id(again, 1), 2);
  for (const int id : {3, 3, 1, 2, 2}) {
    const TMitabFeature point(mitab_c_read_feature(again, id), mitab_c_destroy_feature);
    EXPECT_EQ(mitab_c_get_field_as_double(point.get(), 0), id + 6);
  }
  EXPECT_EQ(mitab_c_read_feature(again, 4), nullptr);
  EXPECT_EQ(mitab_c_next_feature_id(again, 3), -1);
  EXPECT_EQ(mitab_c_next_feature_id(again, -1), 1);
  mitab_c_close(again);
}

TEST_P(TMitabFileTest, WritesNumbersWithAPointInALocaleOfCommas) {
  const TCommaLocale locale(PathOf("locales"));
  if (!locale.IsInForce()) GTEST_SKIP() << "no such locale can be made on this system";
  CheckRoundTrip(
      TABFC_Text,
      [](mitab_feature label) {
        SetPart(label, 0, {{1.5, 2.25}});
        mitab_c_set_text(label, "x");
        mitab_c_set_text_display(label, 0, 1.5, 2.5, -1, -1, -1, -1, -1);
      },
      [](mitab_feature label) {
        ExpectPoints(label, 0, {{1.5, 2.25}});
        EXPECT_NEAR(mitab_c_get_text_height(label), 1.5, 1e-4);
      });
}

INSTANTIATE_TEST_SUITE_P(InBothFormats, TMitabFileTest, testing::Values("tab", "mif"),
                         [](const auto &param) { return std::string(param.param); });

using TMitabLibraryTest = TMitabTest;

TEST_F(TMitabLibraryTest, HasEveryEntryPoint) {
  for (const detail::MitabEntry &entry : detail::MitabEntries()) {
    EXPECT_NE(detail::FindMitabEntry(entry.name), nullptr) << entry.name;
  }
  for (const char *name :
       {"mitab_c_get_extended_mif_coordsys_vb", "mitab_c_set_symbol_angle", "mitab_c_get_symbol_angle"}) {
    EXPECT_NE(detail::FindMitabEntry(name), nullptr) << name;
  }
}

TEST_F(TMitabLibraryTest, AnswersTheFailureValueForWhatIsNotThere) {
  EXPECT_EQ(mitab_c_open(nullptr), nullptr);
  EXPECT_EQ(mitab_c_create(PathOf("no/such/folder.tab").c_str(), "tab", "", 0, 0, 0, 0), nullptr);
  EXPECT_EQ(mitab_c_get_parts(nullptr), 0);
  EXPECT_EQ(mitab_c_get_field_as_double(nullptr, 0), -1e30);
  EXPECT_EQ(mitab_c_next_feature_id(nullptr, -1), -1);
  mitab_c_destroy_feature(nullptr);
  mitab_c_close(nullptr);
  const mitab_handle file = Create("tab");
  EXPECT_EQ(mitab_c_get_projinfo(file), nullptr);
  EXPECT_EQ(mitab_c_set_projinfo(file, nullptr), -1);
  EXPECT_EQ(mitab_c_get_affine_params(nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(mitab_c_create_feature(file, 12), nullptr);
  EXPECT_EQ(mitab_c_add_field(file, "A", 10, 0, 0, 0, 0), -1);
  EXPECT_EQ(mitab_c_set_quick_spatial_index_mode(file), 0);
  const TMitabFeature line = New(file, TABFC_Polyline);
  SetPart(line.get(), 0, {{0, 0}, {1, 1}});
  EXPECT_EQ(mitab_c_get_vertex_count(line.get(), 1), 0);
  EXPECT_EQ(mitab_c_get_vertex_x(line.get(), 0, 2), 0);
  EXPECT_EQ(mitab_c_get_vertex_x(line.get(), 0, -1), 0);
  EXPECT_EQ(mitab_c_get_symbol_size(line.get()), 1);
  EXPECT_EQ(mitab_c_get_brush_pattern(line.get()), 1);
  EXPECT_STREQ(mitab_c_get_text(line.get()), "");
  EXPECT_STREQ(mitab_c_get_field_as_string(line.get(), 5), "");
  mitab_c_close(file);
}

TEST_F(TMitabLibraryTest, WritesTheMembersOfCollectionsToATableAsObjectsOfTheirOwn) {
  const mitab_handle file = Create("tab");
  ASSERT_EQ(mitab_c_add_field(file, "A", TABFT_Integer, 0, 0, 0, 0), 0);
  const TMitabFeature collection = New(file, TABFC_Collection);
  const TMitabFeature line = New(file, TABFC_Polyline);
  SetPart(line.get(), 0, {{0, 0}, {1, 1}});
  const TMitabFeature points = New(file, TABFC_MultiPoint);
  SetPart(points.get(), 0, {{2, 2}, {3, 3}});
  EXPECT_EQ(mitab_c_set_collection_polyline(collection.get(), line.get(), 1), 0);
  EXPECT_EQ(mitab_c_set_collection_multipoint(collection.get(), points.get(), 1), 0);
  EXPECT_EQ(mitab_c_set_collection_region(collection.get(), line.get(), 1), -1) << "that is no region";
  EXPECT_EQ(mitab_c_get_type(mitab_c_get_collection_polyline_ref(collection.get())), TABFC_Polyline);
  EXPECT_EQ(mitab_c_get_collection_region_ref(collection.get()), nullptr);
  EXPECT_EQ(mitab_c_write_feature(file, collection.get()), 1);
  mitab_c_close(file);
  const mitab_handle again = Open("a.tab");
  std::vector<int> kinds;
  for (const TMitabFeature &each : ReadAll(again)) kinds.push_back(mitab_c_get_type(each.get()));
  EXPECT_EQ(kinds, (std::vector<int>{TABFC_Polyline, TABFC_Point, TABFC_Point}));
  mitab_c_close(again);
}

TEST_F(TMitabLibraryTest, ReadsWhatOnlyTheTextOfAFileTells) {
  WriteFile("a.mif",
            "Version 450\nCharset \"WindowsLatin1\"\nDelimiter \",\"\nUnique 2\nIndex 1,2\n"
            "CoordSys Earth Projection 1, 104 Bounds (-180, -90) (180, 90)\n"
            "Columns 3\n  N Char(8)\n  S SmallInt\n  L Logical\nData\n\n"
            "Multipoint 2\n1 1\n2 2\n    Symbol (40,255,9)\n"
            "Collection 2\nPline 2\n0 0\n1 1\n    Pen (2,2,255)\nMultipoint 1\n5 5\n    Symbol (35,0,12)\n");
  WriteFile("a.mid", "\"a\",7,T\n\"b\",8,F\n");
  const mitab_handle file = Open("a.mif");
  ASSERT_NE(file, nullptr);
  EXPECT_STREQ(mitab_c_get_mif_coordsys(file), "Earth Projection 1, 104");
  EXPECT_EQ(mitab_c_get_field_type(file, 1), TABFT_SmallInt);
  EXPECT_EQ(mitab_c_get_field_type(file, 2), TABFT_Logical);
  EXPECT_EQ(mitab_c_is_field_indexed(file, 0), 1);
  EXPECT_EQ(mitab_c_is_field_unique(file, 0), 0);
  EXPECT_EQ(mitab_c_is_field_unique(file, 1), 1);
  EXPECT_EQ(mitab_c_is_field_indexed(file, 2), 0);
  const auto read = ReadAll(file);
  ASSERT_EQ(read.size(), 2U);
  EXPECT_EQ(mitab_c_get_type(read[0].get()), TABFC_MultiPoint);
  EXPECT_EQ(PartOf(read[0].get(), 0), (TCoordinates{{1, 1}, {2, 2}}));
  EXPECT_EQ(mitab_c_get_symbol_no(read[0].get()), 40);
  EXPECT_STREQ(mitab_c_get_field_as_string(read[1].get(), 2), "F");
  EXPECT_EQ(mitab_c_get_type(read[1].get()), TABFC_Collection);
  EXPECT_EQ(mitab_c_get_parts(read[1].get()), 0);
  EXPECT_EQ(PartOf(mitab_c_get_collection_polyline_ref(read[1].get()), 0), (TCoordinates{{0, 0}, {1, 1}}));
  EXPECT_EQ(PartOf(mitab_c_get_collection_multipoint_ref(read[1].get()), 0), (TCoordinates{{5, 5}}));
  mitab_c_close(file);
}

}  // namespace
}  // namespace tessera::test
