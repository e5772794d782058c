// SPDX-License-Identifier: MIT
#include "MitabFixture.h"

#include <random>

namespace tessera::test {
namespace {

/// What a TAB file consists of.
constexpr const char *Endings[] = {"tab", "dat", "map", "id"};

class TMitabDamageTest : public TMitabTest {
 protected:
  /// A table with some objects of every kind that can be written.
  void WriteTable() {
    const mitab_handle file = Create("tab");
    mitab_c_add_field(file, "Name", TABFT_Char, 20, 0, 0, 0);
    mitab_c_add_field(file, "Size", TABFT_Decimal, 10, 2, 0, 0);
    for (int i = 0; i < 20; ++i) {
      for (const int kind : {TABFC_NoGeom, TABFC_Point, TABFC_FontPoint, TABFC_Text, TABFC_Polyline, TABFC_Region}) {
        const TMitabFeature feature = New(file, kind);
        const double x = i;
        SetPart(feature.get(), 0, {{x, 0}, {x + 1, 0}, {x + 1, 2}, {x, 0}});
        mitab_c_set_font(feature.get(), "Arial");
        mitab_c_set_text_display(feature.get(), 30, 1, 1, -1, -1, -1, -1, -1);
        mitab_c_set_field(feature.get(), 0, "name");
        EXPECT_EQ(mitab_c_write_feature(file, feature.get()), 1);
      }
    }
    mitab_c_close(file);
    for (const char *ending : Endings) files.push_back(ReadFile(std::string("a.") + ending));
  }
  /// Reads all that can be read; a file that cannot be opened is fine as well.
  void ReadDamaged(std::size_t damaged, const QByteArray &bytes) {
    for (std::size_t i = 0; i < files.size(); ++i) {
      WriteFile(std::string("b.") + Endings[i], i == damaged ? bytes : files[i]);
    }
    const mitab_handle file = Open("b.tab");
    if (file == nullptr) return;
    for (const TMitabFeature &feature : ReadAll(file)) {
      for (int part = 0; part < mitab_c_get_parts(feature.get()); ++part) points += PartOf(feature.get(), part).size();
      static_cast<void>(mitab_c_get_field_as_string(feature.get(), 0));
    }
    mitab_c_close(file);
  }

  std::vector<QByteArray> files;
  std::size_t points = 0;
};

TEST_F(TMitabDamageTest, SurvivesFilesThatAreCutShortOrScrambled) {
  WriteTable();
  std::mt19937 random(20240229);
  for (int run = 0; run < 200; ++run) {
    const std::size_t which = random() % files.size();
    QByteArray bytes = files[which];
    if (run % 2 == 0) {
      bytes.truncate(qsizetype(random() % std::size_t(bytes.size())));
    } else {
      for (int i = 0; i < 4; ++i) bytes[qsizetype(random() % std::size_t(bytes.size()))] = char(random());
    }
    ReadDamaged(which, bytes);
  }
  EXPECT_GT(points, 0U);
}

TEST_F(TMitabDamageTest, OpensNothingThatIsNoTable) {
  WriteFile("empty.tab", "");
  WriteFile("other.tab", "a\tb\n1\t2\n");
  WriteFile("raster.tab",
            "!table\n!version 300\n!charset WindowsLatin1\n\nDefinition Table\n  File \"a.tif\"\n  Type \"RASTER\"\n");
  WriteFile("noparts.tab", "!table\n!version 300\n\nDefinition Table\n  Type NATIVE\n  Fields 1\n    A Integer ;\n");
  WriteFile("endless.tab",
            "!table\n!version 300\n\nDefinition Table\n  Type NATIVE\n  Fields 2000000000\n    A Integer ;\n");
  WriteFile("odd.mif", "Version 300\nColumns -5\nData\nPline -1\n");
  for (const char *name :
       {"missing.tab", "empty.tab", "other.tab", "raster.tab", "noparts.tab", "endless.tab", "odd.mif", ".", ""}) {
    EXPECT_EQ(Open(name), nullptr) << name;
  }
}

}  // namespace
}  // namespace tessera::test
