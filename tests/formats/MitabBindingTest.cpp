// SPDX-License-Identifier: MIT
#include <tessera/formats/detail/MitabEntries.h>
#include <tessera/formats/mitab_dyn.h>

#include <gtest/gtest.h>

namespace tessera::test {
namespace {

/// Puts the binding back to what it was.
class TMitabBindingTest : public testing::Test {
 public:
  ~TMitabBindingTest() override {
    LibPath = m_before;
    MITAB_load();
  }

 protected:
  static void Load(const char *library) {
    LibPath = QString::fromUtf8(library);
    MITAB_load();
  }

 private:
  QString m_before = LibPath;
};

TEST_F(TMitabBindingTest, TakesOnlyALibraryOfTheRightVersion) {
  const struct {
    const char *library;
    int error;
  } rows[] = {
      {"no-such-library.so", -2}, {STAND_IN_SILENT, -3}, {STAND_IN_OLDER, -4},
      {STAND_IN_NEWER, -4},       {STAND_IN_RIGHT, 0},   {"no-such-library.so", -2},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(row.library);
    Load(row.library);
    EXPECT_EQ(MITAB_LoadErr, row.error);
    EXPECT_EQ(MITAB_LibOK(), row.error == 0);
    EXPECT_EQ(mitab_c_getlibversion != nullptr, row.error == 0);
    EXPECT_EQ(mitab_c_getlasterrorno != nullptr, row.error == 0) << "nothing of the library before stays";
  }
}

TEST_F(TMitabBindingTest, BindsWhatALibraryHasAndLeavesTheRestNull) {
  Load(STAND_IN_RIGHT);
  ASSERT_TRUE(MITAB_LibOK());
  EXPECT_EQ(mitab_c_getlasterrorno(), 77);
  EXPECT_EQ(mitab_c_set_quick_spatial_index_mode(nullptr), 78) << "the last of the list";
  EXPECT_EQ(mitab_c_open, nullptr);
  EXPECT_EQ(mitab_c_set_affine_params, nullptr);
  const auto extra = reinterpret_cast<int (*)()>(detail::FindMitabEntry("mitab_c_of_some_builds"));
  ASSERT_NE(extra, nullptr);
  EXPECT_EQ(extra(), 79);
  EXPECT_EQ(detail::FindMitabEntry("mitab_c_of_no_build"), nullptr);
  Load("no-such-library.so");
  EXPECT_EQ(detail::FindMitabEntry("mitab_c_of_some_builds"), nullptr);
}

TEST_F(TMitabBindingTest, LooksForTheUsualLibraryWhereThePlatformDoes) {
  EXPECT_EQ(LibPath.toStdString(), "libmitab.so");
}

TEST(MitabEntriesTest, AreNamedInBindingOrderWithTheBytesOfTheirArguments) {
  const auto entries = detail::MitabEntries();
  ASSERT_EQ(entries.size(), 81U);
  const struct {
    std::size_t index;
    const char *decorated;
  } rows[] = {
      {0, "_mitab_c_getlibversion@0"},
      {1, "_mitab_c_add_field@28"},
      {2, "_mitab_c_close@4"},
      {3, "_mitab_c_create@44"},
      {13, "_mitab_c_get_extended_mif_coordsys@4"},
      {54, "_mitab_c_read_feature@8"},
      {55, "_mitab_c_set_arc@52"},
      {60, "_mitab_c_set_points@20"},
      {64, "_mitab_c_set_text_display@48"},
      {72, "_mitab_c_get_projection_info@20"},
      {75, "_mitab_c_set_datum_info@32"},
      {80, "_mitab_c_set_quick_spatial_index_mode@4"},
  };
  for (const auto &row : rows) EXPECT_EQ(entries[row.index].DecoratedName().toStdString(), row.decorated);
}

}  // namespace
}  // namespace tessera::test
