// SPDX-License-Identifier: MIT
#include "MapInfoFixture.h"

#include <tessera/base/Exceptions.h>
#include <tessera/formats/mitab_dyn.h>
#include <tessera/objects/GeoCircle.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TGeoCircle.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TRegion.h>
#include <tessera/objects/TSprite.h>
#include <tessera/objects/TText.h>

#include <QCoreApplication>

#include <stdexcept>

namespace tessera::test {
namespace {

/// A step of the integers in which a TAB file keeps coordinates, for maps of some tens of units.
constexpr double Tolerance = 1e-6;

class TMapInfoFilesTest : public TMapInfoTest, public testing::WithParamInterface<const char *> {
 protected:
  [[nodiscard]] QString Name() const { return QStringLiteral("a.") + QString::fromLatin1(GetParam()); }
};

TPen Pen(int widthPx, TPenStyle style, TColor color) {
  TPen pen;
  pen.SetWidth(widthPx);
  pen.SetStyle(style);
  pen.SetColor(color);
  return pen;
}

void ExpectPart(const TCustomMapObject &object, int part, std::initializer_list<TMapPoint> expected) {
  const auto points = object.GetParts().GetItems(part).GetPoints().Points();
  ASSERT_EQ(points.size(), expected.size());
  std::size_t i = 0;
  for (const TMapPoint &point : expected) {
    EXPECT_NEAR(points[i].X, point.X, Tolerance);
    EXPECT_NEAR(points[i++].Y, point.Y, Tolerance);
  }
}

TEST_P(TMapInfoFilesTest, KeepsEveryKindWithItsRow) {
  layer.GetFields().Add(QStringLiteral("Kind"), TDataType::dtString, 20);
  const auto add = []<class Kind>(Kind *object, const char *name) {
    object->GetFields().GetFields(0).SetValue(QString::fromLatin1(name));
    return object;
  };
  add(layer.NewObject<TCustomMapObject>(), "none");
  auto *symbol = add(layer.NewObject<TSymbol>(), "symbol");
  symbol->MoveTo(1.5, 2.25);
  symbol->SetShape(40);
  symbol->SetFont(TFont(QStringLiteral("MapInfo Symbol"), 14, clRed));
  auto *character = add(layer.NewObject<TSymbol>(), "character");
  character->MoveTo(-3, 4);
  character->SetShape(65);
  character->SetFont(TFont(QStringLiteral("Arial"), 9, clNavy));
  auto *line = add(layer.NewObject<TPolyline>(), "line");
  AddPart(*line, {{0, 0}, {1, 1}, {2, 0}});
  AddPart(*line, {{5, 5}, {6, 7}});
  line->SetPen(Pen(3, TPenStyle::psDash, RGB(1, 2, 3)));
  auto *region = add(layer.NewObject<TRegion>(), "region");
  AddPart(*region, {{0, 0}, {10, 0}, {10, 11}, {0, 10}, {0, 0}});
  AddPart(*region, {{2, 2}, {4, 2}, {4, 4}, {2, 2}});
  AddPart(*region, {{20, 0}, {30, 0}, {30, 10}, {20, 0}});
  TBrush hatch;
  hatch.SetColor(clBlue);
  hatch.SetStyle(TBrushStyle::bsCross);
  region->SetBrush(hatch);
  region->SetUseBGColor(true);
  region->SetBGColor(RGB(9, 8, 7));
  auto *rectangle = add(layer.NewObject<TRectangle>(), "rectangle");
  rectangle->SetX0(1);
  rectangle->SetY0(2);
  rectangle->SetX1(3);
  rectangle->SetY1(5);
  auto *circle = add(layer.NewObject<TCircle>(), "circle");
  circle->SetX(7);
  circle->SetY(-8);
  circle->SetRadius(2.5);

  RoundTrip(Name());
  EXPECT_EQ(saveLosses, "");
  EXPECT_EQ(Losses(), "");
  ASSERT_EQ(read.GetObjectCount(), 7);
  const char *const kinds[] = {"none", "symbol", "character", "line", "region", "rectangle", "circle"};
  for (int i = 0; i < 7; ++i) EXPECT_EQ(ValueOf(i, 0), kinds[i]);
  EXPECT_EQ(read.GetObjects(0)->GetParts().GetCount(), 0);
  for (const int i : {1, 2}) {
    const auto *expected = dynamic_cast<TSymbol *>(layer.GetObjects(i));
    ASSERT_NE(As<TSymbol>(i), nullptr);
    ExpectPart(*As<TSymbol>(i), 0, {expected->GetPosition()});
    EXPECT_EQ(As<TSymbol>(i)->GetShape(), expected->GetShape());
    EXPECT_EQ(As<TSymbol>(i)->GetFont(), expected->GetFont());
  }
  ASSERT_NE(As<TPolyline>(3), nullptr);
  ExpectPart(*As<TPolyline>(3), 0, {{0, 0}, {1, 1}, {2, 0}});
  ExpectPart(*As<TPolyline>(3), 1, {{5, 5}, {6, 7}});
  EXPECT_EQ(As<TPolyline>(3)->GetPen(), line->GetPen());
  ASSERT_NE(As<TRegion>(4), nullptr);
  EXPECT_EQ(As<TRegion>(4)->GetParts().GetCount(), 3);
  EXPECT_EQ(As<TRegion>(4)->GetBrush(), hatch);
  EXPECT_TRUE(As<TRegion>(4)->GetUseBGColor());
  EXPECT_EQ(As<TRegion>(4)->GetBGColor(), RGB(9, 8, 7));
  ASSERT_NE(As<TRectangle>(5), nullptr);
  EXPECT_NEAR(As<TRectangle>(5)->GetY1(), 5, Tolerance);
  EXPECT_NEAR(As<TRectangle>(5)->GetX0(), 1, Tolerance);
  ASSERT_NE(As<TCircle>(6), nullptr);
  EXPECT_NEAR(As<TCircle>(6)->GetX(), 7, Tolerance);
  EXPECT_NEAR(As<TCircle>(6)->GetY(), -8, Tolerance);
  EXPECT_NEAR(As<TCircle>(6)->GetRadius(), 2.5, Tolerance);
}

TEST_P(TMapInfoFilesTest, KeepsTheValuesOfEveryType) {
  const struct {
    const char *name;
    TDataType type;
    TDataValue value;
    const char *read;
  } rows[] = {
      {"Text", TDataType::dtString, QStringLiteral("Поле \"x\", y"), "Поле \"x\", y"},
      {"Float", TDataType::dtFloat, 1.25e100, "1.25E100"},
      {"Decimal", TDataType::dtDecimal, -12.375, "-12.375"},
      {"Integer", TDataType::dtInteger, -2000000000, "-2000000000"},
      {"Small", TDataType::dtSmallInt, -32768, "-32768"},
      {"DateTime", TDataType::dtDateTime, TDateTime{45351.5}, nullptr},
      {"Date", TDataType::dtDate, 45351.0, nullptr},
      {"Time", TDataType::dtTime, 0.75, nullptr},
      {"Yes", TDataType::dtBoolean, true, "True"},
      {"No", TDataType::dtBoolean, false, "False"},
      {"NoDate", TDataType::dtDate, {}, ""},
      {"TextInNumber", TDataType::dtInteger, QStringLiteral("17"), "17"},
  };
  for (const auto &row : rows) layer.GetFields().Add(QString::fromLatin1(row.name), row.type, 0);
  auto *symbol = layer.NewObject<TSymbol>();
  symbol->SetFont(TFont(QStringLiteral("MapInfo Symbol"), 12));
  int index = 0;
  for (const auto &row : rows) symbol->GetFields().GetFields(index++).SetValue(row.value);
  RoundTrip(Name());
  ASSERT_EQ(read.GetFields().GetCount(), index);
  for (int i = 0; i < index; ++i) {
    SCOPED_TRACE(rows[i].name);
    EXPECT_EQ(read.GetFields().GetFields(i).GetName().toStdString(), rows[i].name);
    const std::string expected =
        rows[i].read != nullptr ? rows[i].read : symbol->GetFields().GetFields(i).GetAsString().toStdString();
    EXPECT_EQ(ValueOf(0, i), expected);
    EXPECT_EQ(read.GetFields().GetFields(i).GetDataType(), rows[i].type);
  }
  EXPECT_EQ(saveLosses, "");
  EXPECT_EQ(read.GetFields().GetFields(0).GetSize(), 254);
}

TEST_P(TMapInfoFilesTest, KeepsATurnedTextWhereItIs) {
  auto *text = layer.NewObject<TText>();
  text->SetText(QStringLiteral("Caption"));
  text->SetFont(TFont(QStringLiteral("Courier New"), 12, clRed));
  text->AutoSizeText();
  const double width = 2 * text->GetWidth() / text->GetHeight();
  text->SetHeight(2);
  text->SetWidth(width);
  text->MoveTo(10, 20);
  text->SetAngle(30);
  RoundTrip(Name());
  EXPECT_EQ(saveLosses, "");
  ASSERT_EQ(read.GetObjectCount(), 1);
  auto *again = As<TText>(0);
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(again->GetText(), text->GetText());
  EXPECT_EQ(again->GetFont().GetName(), text->GetFont().GetName());
  EXPECT_EQ(again->GetFont().GetColor(), clRed);
  EXPECT_EQ(again->GetAngle(), text->GetAngle());
  EXPECT_NEAR(again->GetHeight(), 2, 1e-4);
  EXPECT_NEAR(again->GetWidth(), width, 0.05 * width) << "that of its letters";
  EXPECT_NEAR(again->GetX(), 10, 1e-4);
  EXPECT_NEAR(again->GetY(), 20, 1e-4);
}

TEST_P(TMapInfoFilesTest, WritesTextsWithoutLettersBetweenOthers) {
  AddPart(*layer.NewObject<TPolyline>(), {{0, 0}, {1, 1}});
  for (int i = 1; i < 40; ++i) {
    auto *text = layer.NewObject<TText>();
    text->MoveTo(i, 1);
    if (i % 6 != 0) continue;
    text->SetText(QStringLiteral("12"));
    text->SetHeight(2);
  }
  RoundTrip(Name());
  ASSERT_EQ(read.GetObjectCount(), layer.GetObjectCount());
  for (int i = 1; i < 40; ++i) {
    ASSERT_NE(As<TText>(i), nullptr) << i;
    EXPECT_EQ(As<TText>(i)->GetText(), i % 6 == 0 ? u"12" : u"") << i;
    EXPECT_NEAR(As<TText>(i)->GetX(), i, 1e-4);
  }
}

TEST_P(TMapInfoFilesTest, TellsWhatAFileCannotHold) {
  layer.GetFields().Add(QStringLiteral("Bad name!"), TDataType::dtInteger, 0);
  auto *bold = layer.NewObject<TSymbol>();
  TFont font(QStringLiteral("Arial"), 12);
  font.SetStyle(TFontStyle::fsBold);
  bold->SetFont(font);
  bold->GetFields().GetFields(0).SetValue(QStringLiteral("no number"));
  layer.NewObject<TGeoCircle>();
  layer.NewObject<geocircle::TGeoCircle>();
  layer.NewObject<TSprite>();
  layer.NewObject<TRegion>();  // without a point
  auto *far = layer.NewObject<TPolyline>();
  AddPart(*far, {{0, 0}, {std::numeric_limits<double>::quiet_NaN(), 1}});
  auto *single = layer.NewObject<TPolyline>();
  AddPart(*single, {{3, 4}});
  auto *text = layer.NewObject<TText>();
  text->SetText(QStringLiteral("日"));
  text->SetHeight(1);
  text->SetWidth(50);
  RoundTrip(Name());
  EXPECT_EQ(saveLosses,
            "characters that the character set lacks, written as question marks: 1; "
            "shapes without points or with coordinates that are no numbers, not written: 2; "
            "widths of text boxes that are not those of the letters: 1; "
            "geodesic circles and the like, written as plain regions: 2; "
            "pictures of sprites, written as symbols: 1; "
            "names of columns that the format does not allow, changed: 1; "
            "values that do not fit the type of their column, left out: 1; "
            "numbers without a value, which become 0: 7; "
            "styles of fonts, such as bold: 1");
  EXPECT_EQ(read.GetObjectCount(), layer.GetObjectCount());
  ExpectPart(*read.GetObjects(6), 0, {{3, 4}, {3, 4}});
  EXPECT_EQ(provider.TrySave(layer).losses.join(QStringLiteral("; ")).toStdString(), saveLosses);
}

TEST_P(TMapInfoFilesTest, KeepsProjectionAndCharacterSetOfTheFileItReplaces) {
  const QByteArray coordSys = "Earth Projection 8, 1001, \"m\", 39, 0, 1, 7500000, 0";
  WriteFile(QStringLiteral("source.mif"), "Version 300\nCharset \"WindowsGreek\"\nDelimiter \",\"\nCoordSys " +
                                              coordSys +
                                              "\nColumns 1\n  A Char(9)\nData\n\nPoint 7500000.5 5600000.25\n");
  WriteFile(QStringLiteral("source.mid"), "\"\xe1\xe2\xe3\"\n");
  ASSERT_TRUE(provider.Load(&layer, PathOf(QStringLiteral("source.mif"))));
  EXPECT_EQ(layer.GetObjects(0)->GetFields().GetFields(0).GetAsString().toStdString(), "αβγ");
  layer.SetSource({PathOf(QStringLiteral("source.mif")), {}});
  RoundTrip(Name());
  EXPECT_EQ(ValueOf(0, 0), "αβγ");
  EXPECT_NEAR(As<TSymbol>(0)->GetX(), 7500000.5, 1e-3);
  EXPECT_NEAR(As<TSymbol>(0)->GetY(), 5600000.25, 1e-3);
  // And now from the file that was written.
  TMapLayer again;
  again.SetMap(&map);
  ASSERT_TRUE(provider.Load(&again, PathOf(Name())));
  again.SetSource({PathOf(Name()), {}});
  ASSERT_TRUE(provider.Save(&again, PathOf(QStringLiteral("b.mif"))));
  EXPECT_TRUE(ReadFile(QStringLiteral("b.mif")).contains(coordSys)) << ReadFile(QStringLiteral("b.mif")).constData();
  EXPECT_TRUE(ReadFile(QStringLiteral("b.mif")).contains("WindowsGreek"));
}

TEST_P(TMapInfoFilesTest, LeavesTheLayerAsItWasWhenAHandlerCancels) {
  layer.GetFields().Add(QStringLiteral("A"), TDataType::dtInteger, 0);
  for (int i = 0; i < 10; ++i) layer.NewObject<TSymbol>();
  ASSERT_TRUE(provider.Save(&layer, PathOf(Name())));
  read.GetFields().Add(QStringLiteral("Own"), TDataType::dtString, 5);
  const auto *own = read.NewObject<TSymbol>();
  int shown = 0;
  map.onShowProgress = [&shown] {
    if (++shown == 5) throw std::runtime_error("enough");
  };
  EXPECT_THROW(static_cast<void>(provider.Load(&read, PathOf(Name()))), std::runtime_error);
  EXPECT_EQ(Error(), "enough");
  EXPECT_EQ(read.GetObjectCount(), 1);
  EXPECT_EQ(read.GetObjects(0), own);
  EXPECT_EQ(read.GetFields().GetFields(0).GetName().toStdString(), "Own");
  EXPECT_FALSE(map.isLoading);
  // A save that is cancelled leaves the files.
  const QStringList files = Files();
  const QByteArray before = ReadFile(Name());
  shown = 0;
  layer.NewObject<TSymbol>();
  EXPECT_THROW(static_cast<void>(provider.Save(&layer, PathOf(Name()))), std::runtime_error);
  EXPECT_EQ(Files(), files);
  EXPECT_EQ(ReadFile(Name()), before);
}

TEST_P(TMapInfoFilesTest, EndsWhenAHandlerDeletesTheLayer) {
  for (int i = 0; i < 10; ++i) layer.NewObject<TSymbol>();
  ASSERT_TRUE(provider.Save(&layer, PathOf(Name())));
  auto doomed = std::make_unique<TMapLayer>();
  doomed->SetMap(&map);
  map.onShowProgress = [&doomed] { doomed.reset(); };
  EXPECT_THROW(static_cast<void>(provider.Load(doomed.get(), PathOf(Name()))), EInOutError);
  doomed = std::make_unique<TMapLayer>();
  doomed->SetMap(&map);
  doomed->NewObject<TSymbol>();
  EXPECT_THROW(static_cast<void>(provider.Save(doomed.get(), PathOf(Name()))), EInOutError);
}

INSTANTIATE_TEST_SUITE_P(InBothFormats, TMapInfoFilesTest, testing::Values("tab", "mif"),
                         [](const auto &param) { return std::string(param.param); });

using TMapInfoProviderTest = TMapInfoTest;

TEST_F(TMapInfoProviderTest, IsWhatProgramsKnowItBy) {
  EXPECT_EQ(provider.GetDescription().toStdString(), "MapInfo Format Provider (mif, tab)");
  EXPECT_EQ(provider.GetFilter().toStdString(), "MapInfo Files (*.mif; *.tab)|*.mif; *.tab");
  EXPECT_EQ(provider.GetGUID().toString().toUpper().toStdString(), "{4AC2894A-85A3-4613-80D2-27DDCDFEA816}");
  const struct {
    const char *name;
    bool isAccepted;
  } rows[] = {{"a.tab", true}, {"A.TAB", true}, {"b.c.Mif", true}, {"a.tab.bak", false}, {"tab", false}, {"", false}};
  for (const auto &row : rows)
    EXPECT_EQ(provider.CanProcessFile(QString::fromLatin1(row.name)), row.isAccepted) << row.name;
}

TEST_F(TMapInfoProviderTest, RefusesToWorkWithoutALibrary) {
  const QString before = LibPath;
  LibPath = QStringLiteral("no-such-library.so");
  MITAB_load();
  const auto loadIt = [this] { static_cast<void>(provider.Load(&read, PathOf(QStringLiteral("a.tab")))); };
  try {
    loadIt();
    ADD_FAILURE() << "nothing was thrown";
  } catch (const EInOutError &error) {
    EXPECT_EQ(MessageOf(error).toStdString(), "MITAB.DLL not fond! Please place DLL to /usr/lib or " +
                                                  QCoreApplication::applicationDirPath().toStdString() + " directory!");
  }
  EXPECT_THROW(static_cast<void>(provider.Save(&layer, PathOf(QStringLiteral("a.tab")))), EInOutError);
  LibPath = before;
  MITAB_load();
  EXPECT_NO_THROW(loadIt());
}

TEST_F(TMapInfoProviderTest, ReadsObjectsOfManyPartsAsSeveralWithTheSameRow) {
  WriteFile(QStringLiteral("a.mif"),
            "Version 450\nCharset \"Neutral\"\nDelimiter \",\"\nColumns 1\n  N Char(8)\nData\n\n"
            "Multipoint 2\n1 1\n2 2\n    Symbol (40,255,9)\n"
            "Collection 2\nPline 2\n0 0\n1 1\n    Pen (2,2,255)\nMultipoint 1\n5 5\n    Symbol (35,0,12)\n"
            "Arc 0 0 4 4\n 0 90\nNone\nEllipse 0 0 4 2\nRoundrect 0 0 9 9 2\n");
  WriteFile(QStringLiteral("a.mid"), "\"m\"\n\"c\"\n\"a\"\n\"n\"\n\"e\"\n\"r\"\n");
  ASSERT_TRUE(provider.Load(&read, PathOf(QStringLiteral("a.mif")))) << Error();
  std::string rows;
  for (int i = 0; i < read.GetObjectCount(); ++i) rows += ValueOf(i, 0);
  EXPECT_EQ(rows, "mmccaner");
  EXPECT_EQ(As<TSymbol>(1)->GetX(), 2);
  EXPECT_EQ(As<TSymbol>(1)->GetShape(), 40);
  EXPECT_NE(As<TPolyline>(2), nullptr);
  EXPECT_NE(As<TPolyline>(4), nullptr);
  EXPECT_NE(As<TRegion>(6), nullptr) << "an ellipse that is no circle";
  EXPECT_NE(As<TRegion>(7), nullptr) << "a rounded rectangle";
  EXPECT_EQ(provider.GetReport().objects.at(QStringLiteral("Collection")), 1);
  EXPECT_EQ(Losses(),
            "arcs, read as lines: 1; rounded rectangles, read as regions: 1; ellipses that are no circles, read as "
            "regions: 1; multipoints, read as symbols: 1; collections, read as their members: 1");
}

TEST_F(TMapInfoProviderTest, TellsOfLineEndsAndNumbersThatAFileDoesNotKeep) {
  layer.GetFields().Add(QStringLiteral("A"), TDataType::dtString, 20);
  auto *symbol = layer.NewObject<TSymbol>();
  symbol->SetFont(TFont(QStringLiteral("MapInfo Symbol"), 12));
  symbol->SetShape(300);
  symbol->GetFields().GetFields(0).SetValue(QStringLiteral("two\nlines"));
  RoundTrip(QStringLiteral("a.tab"));
  EXPECT_EQ(saveLosses, "numbers of symbols beyond 255, changed: 1");
  EXPECT_EQ(ValueOf(0, 0), "two\nlines");
  symbol->SetShape(40);
  RoundTrip(QStringLiteral("a.mif"));
  EXPECT_EQ(saveLosses, "line ends in values, written as \\n: 1");
  EXPECT_TRUE(provider.GetReport().warnings.isEmpty());
  QFile::remove(PathOf(QStringLiteral("a.mid")));
  EXPECT_TRUE(provider.Load(&read, PathOf(QStringLiteral("a.mif"))));
  EXPECT_EQ(provider.GetReport().warnings.join(u' ').toStdString(),
            "there is no data file, so the objects have no values");
}

TEST_F(TMapInfoProviderTest, ReplacesASetOfFilesAsAWhole) {
  layer.NewObject<TSymbol>();
  ASSERT_TRUE(provider.Save(&layer, PathOf(QStringLiteral("A.TAB"))));
  QFile::rename(PathOf(QStringLiteral("A.dat")), PathOf(QStringLiteral("A.DAT")));
  layer.NewObject<TSymbol>();
  ASSERT_TRUE(provider.Save(&layer, PathOf(QStringLiteral("A.TAB"))));
  EXPECT_EQ(Files().join(u' ').toStdString(), "A.DAT A.TAB A.id A.map");
  ASSERT_TRUE(provider.Load(&read, PathOf(QStringLiteral("A.TAB"))));
  EXPECT_EQ(read.GetObjectCount(), 2);
  EXPECT_EQ(layer.GetFileName(), PathOf(QStringLiteral("A.TAB")));
  // A companion that cannot be replaced stops the save.
  const QByteArray before = ReadFile(QStringLiteral("A.TAB"));
  QFile::remove(PathOf(QStringLiteral("A.map")));
  QDir().mkdir(PathOf(QStringLiteral("A.map")));
  EXPECT_THROW(static_cast<void>(provider.Save(&layer, PathOf(QStringLiteral("A.TAB")))), EInOutError);
  EXPECT_EQ(ReadFile(QStringLiteral("A.TAB")), before);
}

TEST_F(TMapInfoProviderTest, ReportsWhatCannotBeOpened) {
  WriteFile(QStringLiteral("a.tab"), "nothing of the kind");
  EXPECT_FALSE(provider.Load(&read, PathOf(QStringLiteral("a.tab"))));
  EXPECT_FALSE(Error().empty());
  EXPECT_FALSE(provider.Load(&read, PathOf(QStringLiteral("missing.tab"))));
  TMapLayer loose;
  EXPECT_FALSE(provider.Load(&loose, PathOf(QStringLiteral("a.tab"))));
  EXPECT_FALSE(provider.Load(nullptr, PathOf(QStringLiteral("a.tab"))));
  EXPECT_FALSE(provider.Save(nullptr, PathOf(QStringLiteral("b.tab"))));
}

}  // namespace
}  // namespace tessera::test
