// SPDX-License-Identifier: MIT
#include "../support/FakeMapHost.h"

#include <apps/common/MifScan.h>
#include <apps/common/TMapInfoFiles.h>
#include <tessera/layers/TMapLayer.h>

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <random>

namespace tessera::test {
namespace {

using apps::HoldsOnlyPlainShapes;
using apps::TMapInfoFiles;

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

/// HoldsOnlyPlainShapes, line by line.
bool IsPlainLineByLine(const QByteArray &mif, const QByteArray &mid) {
  bool isInHeader = true;
  bool endsInPoint = false;
  for (const QByteArray &whole : mif.split('\n')) {
    const QByteArray line = whole.trimmed();
    if (line.isEmpty()) continue;
    endsInPoint = !isInHeader && line.toLower().startsWith("po");
    if (!isInHeader && QByteArray("0123456789-+.").contains(line[0])) continue;
    if (!apps::IsPlainMifLine(line.toStdString(), isInHeader)) return false;
    if (line.toLower() == "data") isInHeader = false;
  }
  for (const QByteArray &line : mid.split('\n')) {
    const QList<QByteArray> pieces = line.split('"');
    if (pieces.size() % 2 == 0) return false;
    for (qsizetype i = 1; i < pieces.size(); i += 2) {
      const bool isDoubled = i + 2 < pieces.size() && pieces[i + 1].isEmpty();
      if (isDoubled || pieces[i].contains(',') || pieces[i].contains(';') || pieces[i].contains('\t')) return false;
    }
  }
  return !isInHeader && !endsInPoint;
}

TEST_F(TMapInfoFilesTest, TellsRandomFilesApartAsLineByLine) {
  std::mt19937 random(17);
  const char *lines[] = {"Pline 2\n",     "1 2\n",         "\t-3 4e5\r\n", "region   12\n", "POINT 1  2\n",
                         "Center 0 0\n",  "Pen (1,2,5)\n", "\n",           "5.5 (6\n",      "point a b c\n",
                         "pLine 12x\n",   "Pen (2,2,5)\n", "(1 2)\n",      "Point 1\n",     "Region\n",
                         "\x1fpline 5\n", "pointy 1 2\n",  "Smooth\n",     "Data\n"};
  const char *values[] = {"\"a\",1\n", "1,\"\"\n",     "\n",    "\"b\"\r\n",
                          "\"a;b\"\n", "\"a\"\"b\"\n", "\"a\n", "a\"b\"c\n"};
  int plainCount = 0;
  for (int i = 0; i < 1000; ++i) {
    QByteArray mif(random() % 20 == 0 ? "Data" : Header);
    QByteArray mid;
    for (std::size_t k = random() % 12; k > 0; --k) {
      mif += lines[random() % (i % 2 == 0 ? 8 : std::size(lines))];
      if (random() % 4 == 0) mif += QByteArray("10.25 -20.5\n").repeated(int(random() % 30));
      mid += values[random() % (i % 3 == 0 ? std::size(values) : 4)];
    }
    if (random() % 8 == 0) mif.chop(1);
    Write(mif, mid);
    const bool isPlain = IsPlainLineByLine(mif, mid);
    ASSERT_EQ(HoldsOnlyPlainShapes(Mif(), Mid()), isPlain) << mif.toStdString() << mid.toStdString();
    plainCount += isPlain ? 1 : 0;
  }
  EXPECT_GT(plainCount, 150);
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
