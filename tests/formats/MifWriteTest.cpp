// SPDX-License-Identifier: MIT
#include "../base/LocaleGuard.h"
#include "MifFixture.h"

#include <tessera/base/Exceptions.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TText.h>

#include <limits>
#include <tuple>

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
  static TBrush BrushOf(TBrushStyle style, TColor color) {
    TBrush brush;
    brush.SetStyle(style);
    brush.SetColor(color);
    return brush;
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
    rectangle->SetBrush(BrushOf(style, clWhite));
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
  const std::tuple<TPenStyle, const char *, TBrushStyle, const char *> rows[] = {
      {psSolid, "2", bsSolid, "2"},       {psDash, "12", bsClear, "1"},           {psDot, "9", bsHorizontal, "3"},
      {psDashDot, "14", bsVertical, "4"}, {psDashDotDot, "20", bsFDiagonal, "6"}, {psClear, "1", bsBDiagonal, "5"},
      {psInsideFrame, "2", bsCross, "7"}, {psSolid, "2", bsDiagCross, "8"}};
  for (const auto &[penStyle, penPattern, brushStyle, brushPattern] : rows) {
    layer.DeleteObjects();
    auto *region = layer.NewObject<TRegion>();
    TPen pen;
    pen.SetStyle(penStyle);
    pen.SetWidth(3);
    pen.SetColor(RGB(1, 2, 3));
    region->SetPen(pen);
    region->SetBrush(BrushOf(brushStyle, RGB(3, 2, 1)));
    Save();
    EXPECT_EQ(Shapes(),
              std::string("Region 0\r\nPen (3,") + penPattern + ",66051)\r\nBrush (" + brushPattern + ",197121)\r\n");
  }
}

TEST_F(MifWriteTest, QuotesTextsAndLeavesOtherValuesAlone) {
  using enum TDataType;
  for (const auto type : {dtString, dtFloat, dtInteger, dtBoolean}) layer.GetFields().Add({}, type, 20);
  TDataFields &values = layer.NewObject<TSymbol>()->GetFields();
  values.GetFields(0).SetAsString(QStringLiteral("O'Neil Ж"));
  values.GetFields(1).SetAsFloat(0.1);
  values.GetFields(2).SetAsInteger(-7);
  values.GetFields(3).SetValue(true);
  layer.NewObject<TSymbol>();
  TDataFields &odd = layer.NewObject<TSymbol>()->GetFields();
  odd.GetFields(0).SetAsInteger(5);
  odd.GetFields(1).SetAsString(QStringLiteral("1,5"));
  odd.GetFields(2).SetAsString(QString::fromUcs4(U"\U0001F600\u0416\u03C0", 3));
  Save();
  EXPECT_EQ(Mid(), "'O''Neil \xC6',0.1,-7,True\r\n'',,,\r\n'5',1,5,?\xC6?,\r\n");
  EXPECT_EQ(Losses(),
            "characters that the character set lacks, written as question marks: 2; "
            "values with a comma or a line end, which will not be read back as they are: 1; "
            "columns whose names or types will not be read back: 2");
}

TEST_F(MifWriteTest, WritesNumbersWithTheSeparatorOfTheProcessAndReadsThemBack) {
  const test::TLocaleGuard locale(test::Russian());
  AddPart(*layer.NewObject<TPolyline>(), {{1.5, -2.25}});
  layer.NewObject<TSymbol>()->MoveTo(0.5, 7);
  Save();
  EXPECT_NE(Shapes().find("1,500000 -2,250000\r\n"), std::string::npos);
  layer.DeleteObjects();
  provider.Load(&layer, PathOf(QStringLiteral("b.mif")));
  EXPECT_EQ(VerticesOf(0, 0), (TVertices{{1.5, -2.25}}));
  EXPECT_EQ(VerticesOf(1, 0), (TVertices{{0.5, 7}}));
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
  char expected[200];
  std::snprintf(
      expected, sizeof expected,
      "Text\r\n\"Say \"\xC6\xF3\xEA\"\"\r\n10.000000 20.000000 %.6f %.6f\r\nFont (\"DejaVu Sans\",2,31,66051)\r\n",
      10 + extent.width() / 2.0, 20 - extent.height() / 2.0);
  EXPECT_EQ(Shapes(), expected);
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
  EXPECT_EQ(VerticesOf(3, 0), (TVertices{{6, 7}}));
  EXPECT_EQ(ValueOf(3, 0), "3");  // the line of the text, which is not read
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
  again.SetMap(nullptr);
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

TEST_F(MifWriteTest, ThrowsWithTheOldPairLeftWhenAFileCannotBeCreatedOrAnObjectLacksAColumn) {
  WriteFile(QStringLiteral("b.mif"), "old");
  EXPECT_THROW(provider.Save(&layer, PathOf(QStringLiteral("missing/b.mif"))), EInOutError);
  EXPECT_THROW(provider.Save(&layer, QString()), EInOutError);
  EXPECT_THROW(provider.Save(&layer, PathOf(QStringLiteral("b.mid"))), EInOutError);
  EXPECT_EQ(map.TakeEvents(), (std::vector<std::string>(3, "StopProgress")));
  layer.NewObject<TSymbol>();
  layer.GetFields().Add({}, TDataType::dtInteger, 0);
  EXPECT_THROW(Save(), ERangeError);
  EXPECT_EQ(Mif(), "old");
  EXPECT_EQ(Files(), QStringList{QStringLiteral("b.mif")});
}

TEST_F(MifWriteTest, AcceptsFilesByTheirExtension) {
  for (const auto &[name, accepted] : {std::pair("/x.y/A.MIF", true),
                                       {".mif", true},
                                       {"mif", false},
                                       {"a.mif/b", false},
                                       {"a.mif.txt", false},
                                       {"", false}}) {
    EXPECT_EQ(provider.CanProcessFile(QString::fromLatin1(name)), accepted) << name;
  }
}

}  // namespace
}  // namespace tessera
