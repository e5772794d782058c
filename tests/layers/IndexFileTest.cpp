// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/layers/TMapLayer.h>
#include <tessera/objects/TSymbol.h>

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <random>

namespace tessera::test {
namespace {

/// The bytes of the doubles in these files.
const QByteArray Zero = "0000000000000000";
const QByteArray One = "000000000000f03f";
const QByteArray Two = "0000000000000040";
const QByteArray ZeroBounds = Zero + Zero + Zero + Zero;

QByteArray Bytes(const QByteArray &hex) {
  return QByteArray::fromHex(hex);
}

QByteArray Written(const TIndexCell &cell) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  cell.WriteIndex(buffer);
  return buffer.data();
}

void Read(TIndexCell &cell, QByteArray bytes) {
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::ReadOnly);
  cell.ReadIndex(buffer);
}

QString ErrorOf(TIndexCell &cell, const QByteArray &bytes) {
  try {
    Read(cell, bytes);
  } catch (const EInOutError &error) {
    return MessageOf(error);
  }
  return {};
}

void AddSymbol(TMapLayer &layer, double x, double y) {
  layer.NewObject<TSymbol>()->MoveTo(x, y);
}

/// The tree of three places in the lower left corner and four in the upper right one.
QByteArray RecordsOfFilled() {
  return Bytes(Zero + Two + Zero + Two + "00000000" + "02000000") +
         Bytes(Zero + One + Zero + One + "03000000" + "000000000100000002000000" + "00000000") +
         Bytes(One + Two + One + Two + "04000000" + "03000000040000000500000006000000" + "00000000");
}

TEST(IndexFileTest, WritesTheHeaderAndTheCellsInOrderAndNeverAcceptsThem) {
  TMapLayer layer;
  for (int i = 0; i < 7; ++i) AddSymbol(layer, i < 3 ? 0 : 2, i < 3 ? 0 : 2);
  layer.SetUseIndex2D(true);
  const QTemporaryDir directory;
  const QString path = directory.filePath(QStringLiteral("places.idx"));
  EXPECT_TRUE(layer.GetIndex2D()->SaveToFile(path));
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll().toHex(), ("540065007300730065007200610020004900" + RecordsOfFilled().toHex()));
  EXPECT_FALSE(TIndexCell::LoadFromToFile(path));
  EXPECT_FALSE(TIndexCell::LoadFromToFile(directory.filePath(QStringLiteral("none.idx"))));
  // So a layer beside its stored index builds the tree from what it holds.
  TMapLayer other;
  other.SetFileName(directory.filePath(QStringLiteral("places.mif")));
  AddSymbol(other, 9, 9);
  other.SetUseIndex2D(true);
  EXPECT_EQ(other.GetIndex2D()->GetBounds(), (TCellBounds{9, 9, 9, 9}));
}

TEST(IndexFileTest, GivesEveryCellTheRootAsItsParent) {
  TIndexCell root;
  Read(root,
       Bytes(ZeroBounds + "0000000001000000" + ZeroBounds + "0000000001000000" + ZeroBounds + "0000000000000000"));
  const TIndexCell *deep = root.GetCell(0)->GetCell(0);
  EXPECT_EQ(deep->GetParent(), &root);
  EXPECT_EQ(deep->GetLevel(), 1);
}

TEST(IndexFileTest, ReadsWhatItWritesAndAppendsItToWhatIsThere) {
  TIndexCell root;
  Read(root, RecordsOfFilled());
  EXPECT_EQ(Written(root), RecordsOfFilled());
  Read(root, RecordsOfFilled());
  EXPECT_EQ(root.GetCount(), 4);
  Read(root, Bytes(Two + Two + Two + Two + "010000000900000000000000"));
  EXPECT_EQ(root.GetIdsCount(), 1);
  EXPECT_EQ(root.GetBounds(), (TCellBounds{2, 2, 2, 2}));
}

TEST(IndexFileTest, LeavesTheTreeAloneWhenARecordIsCutOff) {
  const QByteArray whole = RecordsOfFilled();
  for (qsizetype size = 0; size < whole.size(); ++size) {
    TIndexCell cell;
    cell.SetBounds({1, 2, 3, 4});
    EXPECT_FALSE(ErrorOf(cell, whole.first(size)).isEmpty()) << size;
    EXPECT_EQ(cell.GetCount(), 0);
    EXPECT_EQ(cell.GetBounds(), (TCellBounds{1, 2, 3, 4}));
  }
}

TEST(IndexFileTest, RefusesCountsBeyondTheRestOfTheFileAndCellsThatLieTooDeep) {
  struct Row {
    QByteArray hex;
    const char *error;
  };
  for (const Row &row :
       {Row{ZeroBounds + "ffffffff00000000", "Damaged index at byte 36: no room for 4294967295 ids"},
        {ZeroBounds + "0000000002000000" + ZeroBounds + "0000000000000000",
         "Damaged index at byte 40: no room for 2 cells"},
        {QByteArray(ZeroBounds + "0000000001000000").repeated(5000), "cells lie too deep in each other"}}) {
    TIndexCell cell;
    EXPECT_TRUE(ErrorOf(cell, Bytes(row.hex)).endsWith(QString::fromLatin1(row.error))) << row.error;
  }
}

TEST(IndexFileTest, AnswersQueriesWithIdsThatNoLayerHas) {
  TIndexCell cell;
  Read(cell, Bytes(Zero + Two + Zero + Two + "03000000" + "fffffffffeffffffffffffff" + "00000000"));
  TCardinalArray ids;
  EXPECT_TRUE(cell.GetAllIdsInRect({1, 1, 1, 1}, ids));
  EXPECT_EQ(std::vector(ids.Ids().begin(), ids.Ids().end()), (std::vector{0xffffffffu, 0xfffffffeu}));
}

TEST(IndexFileTest, SurvivesAnyDamagedByte) {
  const QByteArray whole = RecordsOfFilled();
  std::mt19937 engine(7);
  for (int run = 0; run < 2000; ++run) {
    QByteArray bytes = whole;
    for (int i = 0; i < 3; ++i) bytes[qsizetype(engine() % unsigned(bytes.size()))] = char(engine());
    TIndexCell cell;
    TCardinalArray ids;
    if (ErrorOf(cell, bytes).isEmpty()) cell.GetAllIdsInRect({0, 2, 0, 2}, ids);
    EXPECT_LE(ids.GetCount(), int(whole.size() / 4));
  }
}

}  // namespace
}  // namespace tessera::test
