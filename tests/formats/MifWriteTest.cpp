// SPDX-License-Identifier: MIT
#include "../base/LocaleGuard.h"
#include "MifFixture.h"

#include <tessera/base/Exceptions.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TText.h>

#include <limits>

namespace tessera {
namespace {

using test::TVertices;

class MifWriteTest : public test::TMifTest {
 protected:
  [[nodiscard]] QByteArray Mif() const { return ReadFile(QStringLiteral("b.mif")); }
  [[nodiscard]] QByteArray Mid() const { return ReadFile(QStringLiteral("b.mid")); }
  /// What follows the header of a layer without columns.
  [[nodiscard]] std::string Shapes() const {
    const QByteArray mif = Mif();
    return mif.mid(mif.indexOf("Data\r\n") + 6).toStdString();
  }
  static void AddPart(TCustomMapObject &object, const TVertices &vertices) {
    TPart &part = object.GetParts().Add();
    for (const auto &[x, y] : vertices) part.GetPoints().Add(x, y);
  }
};

constexpr char Header[] =
    "Version 300\r\nCharset \"WindowsCyrillic\"\r\nDelimiter \",\"\r\nCoordSys Earth Projection 1, 0\r\n";

TEST_F(MifWriteTest, WritesAColumnLineForEachType) {
  using enum TDataType;
  const std::pair<const char *, TDataType> columns[] = {{"Имя", dtString}, {"B", dtFloat},    {"C", dtDecimal},
                                                        {"D", dtInteger},  {"E", dtSmallInt}, {"F", dtDateTime},
                                                        {"G", dtDate},     {"H", dtTime},     {"I", dtBoolean}};
  for (const auto &[name, type] : columns) layer.GetFields().Add(QString::fromUtf8(name), type, 12);
  Save();
  EXPECT_EQ(Mif(), QByteArray(Header) +
                       "Columns 9\r\n\xC8\xEC\xFF Char(12)\r\n%S Float\r\nC Decimal(9, 2)\r\nD Integer\r\n"
                       "E SmalInt\r\nDate\r\nDate\r\nDate\r\nData\r\n");
  EXPECT_EQ(Mid(), "");
}

TEST_F(MifWriteTest, WritesRegionsWithAllPartsAndPolylinesWithTheFirst) {
  auto *region = layer.NewObject<TRegion>();
  auto *line = layer.NewObject<TPolyline>();
  AddPart(*region, {{0, 0}, {1.5, -2.25}, {1e7, 0.0000005}});
  AddPart(*region, {{3, 4}});
  AddPart(*layer.NewObject<TRegion>(), {});
  AddPart(*line, {{5, std::numeric_limits<double>::infinity()}});
  AddPart(*line, {{2, 2}});
  layer.NewObject<TPolyline>();
  Save();
  EXPECT_EQ(Shapes(),
            "Region 2\r\n3\r\n0.000000 0.000000\r\n1.500000 -2.250000\r\n10000000.000000 0.000000\r\n1\r\n"
            "3.000000 4.000000\r\nPen (1,2,0)\r\nBrush (2,16777215)\r\nPline 1\r\n5.000000 inf\r\n"
            "Pen (1,2,0)\r\nRegion 1\r\n0\r\nPen (1,2,0)\r\nBrush (2,16777215)\r\nPline 0\r\nPen (1,2,0)\r\n");
  EXPECT_EQ(Mid(), "\r\n\r\n\r\n\r\n");
  EXPECT_EQ(Losses(),
            "parts of polylines beyond the first, not written: 1; "
            "coordinates that are no numbers and will not be read back: 1");
}

TEST_F(MifWriteTest, WritesRectanglesAsRegionsAndTheBackgroundUnlessTheBrushIsClear) {
  for (const TBrushStyle style : {TBrushStyle::bsCross, TBrushStyle::bsClear}) {
    auto *rectangle = layer.NewObject<TRectangle>();
    rectangle->SetX0(30);
    rectangle->SetY1(20.5);
    TBrush brush;
    brush.SetStyle(style);
    rectangle->SetBrush(brush);
    rectangle->SetUseBGColor(true);
    rectangle->SetBGColor(clRed);
  }
  Save();
  const std::string shape =
      "Region 1\r\n5\r\n0.000000 0.000000\r\n30.000000 0.000000\r\n30.000000 20.500000\r\n0.000000 20.500000\r\n"
      "0.000000 0.000000\r\nPen (1,2,0)\r\nBrush (";
  EXPECT_EQ(Shapes(), shape + "7,16777215,16711680)\r\n" + shape + "1,16777215)\r\n");
}

TEST_F(MifWriteTest, WritesSymbolsWithTheirFont) {
  auto *symbol = layer.NewObject<TSymbol>();
  symbol->SetX(37.5);
  symbol->SetY(-55.125);
  symbol->SetShape(65);
  TFont font(QStringLiteral("Знаки"), 24, clRed);
  font.SetStyle(TFontStyle::fsBold | TFontStyle::fsUnderline | TFontStyle::fsStrikeOut);
  symbol->SetFont(font);
  Save();
  EXPECT_EQ(Shapes(), "Point 37.500000 -55.125000\r\nSymbol (65,16711680,24,\"\xC7\xED\xE0\xEA\xE8\",5,0)\r\n");
}

TEST_F(MifWriteTest, WritesPatternsOfPensAndBrushes) {
  using enum TPenStyle;
  using enum TBrushStyle;
  const std::pair<TPenStyle, int> pens[] = {{psSolid, 2},       {psDash, 12}, {psDot, 9},         {psDashDot, 14},
                                            {psDashDotDot, 20}, {psClear, 1}, {psInsideFrame, 2}, {psSolid, 2}};
  const std::pair<TBrushStyle, int> brushes[] = {{bsSolid, 2},    {bsClear, 1},     {bsHorizontal, 3},
                                                 {bsVertical, 4}, {bsFDiagonal, 6}, {bsBDiagonal, 5},
                                                 {bsCross, 7},    {bsDiagCross, 8}};
  std::string expected;
  for (std::size_t i = 0; i < std::size(pens); ++i) {
    auto *region = layer.NewObject<TRegion>();
    TPen pen;
    pen.SetStyle(pens[i].first);
    pen.SetWidth(3);
    pen.SetColor(RGB(1, 2, 3));
    TBrush brush;
    brush.SetStyle(brushes[i].first);
    brush.SetColor(RGB(3, 2, 1));
    region->SetPen(pen);
    region->SetBrush(brush);
    expected += "Region 0\r\nPen (3," + std::to_string(pens[i].second) + ",66051)\r\nBrush (" +
                std::to_string(brushes[i].second) + ",197121)\r\n";
  }
  Save();
  EXPECT_EQ(Shapes(), expected);
}

TEST_F(MifWriteTest, QuotesTextsAndLeavesOtherValuesAlone) {
  using enum TDataType;
  layer.GetFields().Add(QStringLiteral("A"), dtString, 20);
  layer.GetFields().Add(QStringLiteral("B"), dtFloat, 0);
  layer.GetFields().Add(QStringLiteral("C"), dtInteger, 0);
  layer.GetFields().Add(QStringLiteral("D"), dtBoolean, 0);
  TDataFields &values = layer.NewObject<TSymbol>()->GetFields();
  values.GetFields(0).SetAsString(QStringLiteral("O'Neil Ж"));
  values.GetFields(1).SetAsFloat(0.1);
  values.GetFields(2).SetAsInteger(-7);
  values.GetFields(3).SetValue(true);
  layer.NewObject<TSymbol>();
  TDataFields &odd = layer.NewObject<TSymbol>()->GetFields();
  odd.GetFields(0).SetAsInteger(5);
  odd.GetFields(1).SetAsString(QStringLiteral("1,5"));
  odd.GetFields(2).SetAsString(QStringLiteral("π"));
  Save();
  EXPECT_EQ(Mid(), "'O''Neil \xC6',0.1,-7,True\r\n'',,,\r\n'5',1,5,?,\r\n");
  EXPECT_EQ(Losses(),
            "characters that the character set lacks, written as question marks: 1; "
            "values with a comma or a line end, which will not be read back as they are: 1; "
            "columns whose names or types will not be read back: 2");
}

TEST_F(MifWriteTest, WritesDatesAsTheLocaleDoes) {
  layer.GetFields().Add(QStringLiteral("A"), TDataType::dtDate, 0);
  TDataField field = layer.NewObject<TSymbol>()->GetFields().GetFields(0);
  field.SetAsDate(36526);
  Save();
  EXPECT_EQ(Mid().trimmed().toStdString(), field.GetAsString().toStdString());
  // A day that is kept as text is still a day.
  layer.GetObjects(0)->GetFields().GetFields(0).SetAsString(QStringLiteral("36526"));
  Save();
  EXPECT_EQ(Mid().trimmed().toStdString(), field.GetAsString().toStdString());
}

TEST_F(MifWriteTest, WritesNumbersWithTheSeparatorOfTheProcessAndReadsThemBack) {
  const test::TLocaleGuard locale(test::Russian());
  AddPart(*layer.NewObject<TPolyline>(), {{1.5, -2.25}});
  Save();
  EXPECT_NE(Shapes().find("1,500000 -2,250000\r\n"), std::string::npos);
  layer.DeleteObjects();
  provider.Load(&layer, PathOf(QStringLiteral("b.mif")));
  EXPECT_EQ(VerticesOf(0, 0), (TVertices{{1.5, -2.25}}));
}

TEST_F(MifWriteTest, MeasuresTextsWithTheFontThatTheCanvasHas) {
  auto *text = layer.NewObject<TText>();
  text->MoveTo(10, 20);
  text->SetText(QString::fromUtf8("Say \"Жук\""));
  TFont font(QStringLiteral("DejaVu Sans"), 31, RGB(1, 2, 3));
  font.SetStyle(TFontStyle::fsItalic);
  text->SetFont(font);
  map.viewport.Zoom = 2;
  map.canvas.Font() = TFont(QStringLiteral("Liberation Serif"), 9);
  const QSize extent = map.canvas.TextExtent(text->GetText());
  Save();
  EXPECT_EQ(
      Shapes(),
      QStringLiteral("Text\r\n\"Say \"%1\"\"\r\n10.000000 20.000000 %2 %3\r\nFont (\"DejaVu Sans\",2,31,66051)\r\n")
          .arg(QString::fromLatin1("\xC6\xF3\xEA"))
          .arg(10 + extent.width() / 2.0, 0, 'f', 6)
          .arg(20 - extent.height() / 2.0, 0, 'f', 6)
          .toLatin1()
          .toStdString());
  EXPECT_EQ(Losses(), "texts with a quotation mark or a line end, which programs may misread: 1");
}

TEST_F(MifWriteTest, ReadsBackAllShapesThatTheFormatHas) {
  layer.GetFields().Add(QStringLiteral("A"), TDataType::dtInteger, 0);
  AddPart(*layer.NewObject<TRegion>(), {{0, 0}, {1, 0}, {1, 1}});
  AddPart(*layer.NewObject<TPolyline>(), {{5, 6}, {7, 8}});
  layer.NewObject<TRectangle>();
  layer.NewObject<TText>()->SetText(QStringLiteral("label"));
  layer.NewObject<TCircle>();
  layer.NewObject<TSymbol>()->MoveTo(6, 7);
  for (int i = 0; i < layer.GetObjectCount(); ++i) ObjectAt(i).GetFields().GetFields(0).SetAsInteger(i);
  Save();
  EXPECT_EQ(provider.GetReport().Summary().toStdString(),
            "5 objects (1 Pline, 1 Point, 1 Rectangle, 1 Region, 1 Text)");
  EXPECT_EQ(Losses(), "rectangles, written as regions: 1; objects of kinds that are written without their shape: 1");
  EXPECT_EQ(provider.TrySave(layer).losses, provider.GetReport().losses) << "foretold and true";
  layer.DeleteObjects();
  provider.Load(&layer, PathOf(QStringLiteral("b.mif")));
  ASSERT_EQ(layer.GetObjectCount(), 4);
  EXPECT_NE(As<TRegion>(2), nullptr);
  EXPECT_EQ(VerticesOf(1, 0), (TVertices{{5, 6}, {7, 8}}));
  EXPECT_EQ(VerticesOf(3, 0), (TVertices{{6, 7}}));
  EXPECT_EQ(ValueOf(3, 0), "3");  // the line of the text, which is not read
  EXPECT_EQ(Warnings(),
            "the data file has more lines than objects were read, so values may stand with the wrong objects");
}

TEST_F(MifWriteTest, WritesWhatItReadTheSameAgain) {
  LoadData(QStringLiteral("town"));
  Save();
  const QByteArray mif = Mif();
  const QByteArray mid = Mid();
  TMapLayer again;
  again.SetMap(&map);
  provider.Load(&again, PathOf(QStringLiteral("b.mif")));
  ASSERT_EQ(again.GetObjectCount(), 4);
  provider.Save(&again, PathOf(QStringLiteral("c.mif")));
  // A date column has lost its name and type.
  EXPECT_EQ(ReadFile(QStringLiteral("c.mif")), QByteArray(mif).replace("\r\nDate\r\n", "\r\n%S Float\r\n"));
  // An apostrophe is doubled each time.
  EXPECT_EQ(ReadFile(QStringLiteral("c.mid")), QByteArray(mid).replace("''", "''''"));
}

TEST_F(MifWriteTest, NamesTheLayerAndBracketsTheSaveWithProgress) {
  EXPECT_FALSE(layer.SaveToFile(PathOf(QStringLiteral("b.mif"))));
  EXPECT_EQ(layer.GetFileName(), PathOf(QStringLiteral("b.mif")));
  EXPECT_EQ(map.TakeEvents(), (std::vector<std::string>{"StartProgress 0 0 Saving...", "StopProgress"}));
  EXPECT_EQ(Files(), (QStringList{QStringLiteral("b.mid"), QStringLiteral("b.mif")}));
}

TEST_F(MifWriteTest, ThrowsWhenAFileCannotBeCreated) {
  EXPECT_THROW(provider.Save(&layer, PathOf(QStringLiteral("missing/b.mif"))), EInOutError);
  EXPECT_THROW(provider.Save(&layer, QString()), EInOutError);
  EXPECT_THROW(provider.Save(&layer, PathOf(QStringLiteral("b.mid"))), EInOutError);
  EXPECT_EQ(map.TakeEvents(), (std::vector<std::string>(3, "StopProgress")));
  EXPECT_FALSE(provider.GetReport().ok());
  EXPECT_EQ(Files(), QStringList());
}

TEST_F(MifWriteTest, LeavesTheOldPairWhenAnObjectLacksAColumn) {
  WriteFile(QStringLiteral("b.mif"), "old");
  WriteFile(QStringLiteral("b.mid"), "old");
  layer.NewObject<TSymbol>();
  layer.GetFields().Add(QStringLiteral("A"), TDataType::dtInteger, 0);
  EXPECT_THROW(Save(), ERangeError);
  EXPECT_EQ(Mif(), "old");
  EXPECT_EQ(Mid(), "old");
  EXPECT_EQ(Files().size(), 2);
}

TEST_F(MifWriteTest, SavesALayerThatIsOnNoMap) {
  TMapLayer loose;
  loose.NewObject<TRegion>();
  provider.Save(&loose, PathOf(QStringLiteral("b.mif")));
  EXPECT_NE(Shapes().find("Region 0"), std::string::npos);
}

TEST_F(MifWriteTest, AcceptsFilesByTheirExtension) {
  for (const char *name : {"a.mif", "/x.y/A.MIF", "a.b.Mif", ".mif"}) {
    EXPECT_TRUE(provider.CanProcessFile(QString::fromLatin1(name))) << name;
  }
  for (const char *name : {"a.mid", "mif", "a.mif/b", "a.mif.txt", ""}) {
    EXPECT_FALSE(provider.CanProcessFile(QString::fromLatin1(name))) << name;
  }
}

}  // namespace
}  // namespace tessera
