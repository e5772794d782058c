// SPDX-License-Identifier: MIT
#include "../support/FakeMapHost.h"

#include <apps/common/MifScan.h>
#include <apps/common/TMapInfoFiles.h>
#include <tessera/layers/TMapLayer.h>

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace tessera::test {
namespace {

using namespace apps;

constexpr const char *Header =
    "Version 300\nCharset \"WindowsCyrillic\"\nDelimiter \",\"\nCoordSys Earth Projection 1, 0\n"
    "Columns 2\n  N Char(8)\n  V Float\nData\n\n";

class TMapInfoFilesTest : public testing::Test {
 protected:
  void Write(const QByteArray &mif, const QByteArray &mid) const {
    for (const auto &[name, bytes] : {std::pair(Mif(), mif), std::pair(Mid(), mid)}) {
      QFile file(name);
      ASSERT_TRUE(file.open(QIODevice::WriteOnly));
      file.write(bytes);
    }
  }
  [[nodiscard]] QString Mif() const { return m_folder.filePath(QStringLiteral("a.mif")); }
  [[nodiscard]] QString Mid() const { return m_folder.filePath(QStringLiteral("a.mid")); }

 private:
  QTemporaryDir m_folder;
};

TEST_F(TMapInfoFilesTest, TellsFilesOfPlainShapesFromOthers) {
  const struct {
    const char *shapes;
    const char *values;
    bool isPlain;
  } rows[] = {
      {"Point 1 2\n    Symbol (40,255,12)\n", "\"a\",1\n", true},
      {"Region 1\n  3\n0 0\n1 1\n-1 1\n    Pen (1,2,0)\n    Brush (2,255,16777215)\n    Center 0 0.5\n", "", true},
      {"PLINE 2\n0 0\n1 1\n", "", true},
      {"Point 1 2\nPoint 3 4\n", "", false},  // the last line of a file is not read
      {"Point 1 2\nPoint 3 4\n\nLine 0 0 1 1\n", "", false},
      {"Pline Multiple 2\n2\n0 0\n1 1\n2\n2 2\n3 3\n", "", false},
      {"Text\n\"x\"\n0 0 1 1\n", "", false},
      {"Arc 0 0 1 1\n 0 90\n", "", false},
      {"None\n", "", false},
      {"Pline 2\n0 0\n1 1\n    Pen (2,2,0)\n", "", false},
      {"Pline 2\n0 0\n1 1\n    Smooth\n", "", false},
      {"Region 1\n  3\n0 0\n1 1\n-1 1\n    Brush (5,255)\n", "", false},
      {"Point 1 2\n    Symbol (\"CAMP.BMP\",255,12,0)\n", "", false},
      {"Pline 2\n0 0\n1 1\n", "\"a, b\",1\n", false},
      {"Pline 2\n0 0\n1 1\n", "\"a \"\"b\"\"\",1\n", false},
      {"Pline 2\n0 0\n1 1\n", "\"two\nlines\",1\n", false},
  };
  for (const auto &row : rows) {
    Write(QByteArray(Header) + row.shapes, row.values);
    EXPECT_EQ(HoldsOnlyPlainShapes(Mif(), Mid()), row.isPlain) << row.shapes << row.values;
  }
  Write(QByteArray(Header).replace("Cyrillic", "Greek") + "Pline 2\n0 0\n1 1\n", "");
  EXPECT_FALSE(HoldsOnlyPlainShapes(Mif(), Mid()));
  Write(QByteArray(Header).replace("Float", "Date") + "Pline 2\n0 0\n1 1\n", "");
  EXPECT_FALSE(HoldsOnlyPlainShapes(Mif(), Mid()));
  Write("Version 300\nColumns 0\n", "");
  EXPECT_FALSE(HoldsOnlyPlainShapes(Mif(), Mid()));
  EXPECT_FALSE(HoldsOnlyPlainShapes(Mif() + u'x', Mid()));
}

TEST_F(TMapInfoFilesTest, GivesTheSameForPlainShapesTheFastWay) {
  Write(QByteArray(Header) +
            "Region 1\n  4\n0 0\n9 0\n9 9\n0 0\n    Pen (1,2,255)\n    Brush (2,65280)\n"
            "Pline 3\n0 0\n5.5 5.25\n10 0\n    Pen (1,2,16711680)\n"
            "Point -1.5 2\n    Symbol (40,255,14)\n\n",
        "\"left\",100\n\"\xea\",-0.5\n\"\",1e10\n");
  ASSERT_TRUE(HoldsOnlyPlainShapes(Mif(), Mid()));
  TFakeMapHost map;
  TMapLayer fast;
  TMapLayer plain;
  for (TMapLayer *layer : {&fast, &plain}) layer->SetMap(&map);
  TMapInfoFiles files;
  EXPECT_TRUE(files.Load(&fast, Mif()));
  EXPECT_TRUE(files.TMapInfoFormatProvider::Load(&plain, Mif()));
  ASSERT_EQ(fast.GetObjectCount(), 3);
  ASSERT_EQ(plain.GetObjectCount(), 3);
  for (int i = 0; i < 3; ++i) {
    const TCustomMapObject &one = *fast.GetObjects(i);
    const TCustomMapObject &other = *plain.GetObjects(i);
    EXPECT_TRUE(typeid(one) == typeid(other));
    EXPECT_EQ(one.GetBounds(), other.GetBounds());
    EXPECT_EQ(one.GetPen(), other.GetPen());
    EXPECT_EQ(one.GetBrush(), other.GetBrush());
    EXPECT_EQ(one.GetFont(), other.GetFont());
    EXPECT_EQ(one.GetFields().GetFields(0).GetAsString(), other.GetFields().GetFields(0).GetAsString());
    EXPECT_EQ(one.GetFields().GetFields(1).GetAsDecimal(), other.GetFields().GetFields(1).GetAsDecimal());
  }
}

}  // namespace
}  // namespace tessera::test
