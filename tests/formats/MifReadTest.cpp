// SPDX-License-Identifier: MIT
#include "MifFixture.h"

#include <QString>

#include <algorithm>
#include <random>
#include <sstream>

namespace tessera {
namespace {

class MifReadTest : public test::TMifTest {
 protected:
  /// Every object of the layer in a line: its kind, the vertices of its parts and its values.
  [[nodiscard]] std::string Objects() const {
    std::ostringstream text;
    text.precision(12);
    for (int object = 0; object < layer.GetObjectCount(); ++object) {
      text << (As<TRegion>(object) ? "Region" : As<TPolyline>(object) ? "Pline" : As<TSymbol>(object) ? "Point" : "?");
      const TParts &parts = ObjectAt(object).GetParts();
      for (int part = 0; part < parts.GetCount(); ++part) {
        if (part != 0) text << ';';
        for (const auto &[x, y] : VerticesOf(object, part)) text << ' ' << x << ',' << y;
      }
      text << " <";
      const int fields = layer.GetFields().GetCount();
      for (int field = 0; field < fields; ++field) text << (field == 0 ? "" : "|") << ValueOf(object, field);
      text << ">\n";
    }
    return text.str();
  }
};

TEST_F(MifReadTest, ReadsEveryKindWithItsValues) {
  LoadData(QStringLiteral("town"));
  EXPECT_EQ(Objects(),
            "Region 0,0 10,0 10,10.5 0,0; 2,2 4,2 -3.25,4 <Область|120|10.25|>\n"
            "Pline 1,1 2.5,-2.5 300,0.5 <Дорога||0.5|>\n"
            "Point 37.618423,55.751244 <Москва|12506468|2511|>\n"
            "Point -1,-2 <O'Neil \"\"X\"\"|7|1|>\n");
  EXPECT_EQ(ObjectAt(0).GetBounds(), (TBounds{-3.25, 0, 10, 10.5}));
  EXPECT_EQ(ObjectAt(0).GetPen().GetColor(), RGB(0, 0, 255));
  EXPECT_EQ(ObjectAt(0).GetBrush().GetColor(), clRed);
  EXPECT_EQ(As<TSymbol>(2)->GetShape(), 57);
  EXPECT_EQ(As<TSymbol>(2)->GetFont(), TFont(QStringLiteral("Карта Знаки"), 24, clRed));
  EXPECT_TRUE(provider.GetReport().Summary().startsWith(u"4 objects (1 Pline, 2 Point, 1 Region)"));
}

TEST_F(MifReadTest, BracketsTheLoadWithWhatTheMapIsTold) {
  map.Name(&layer, "layer");
  LoadText("Point 1 2\n");
  std::string events;
  for (const std::string &event : map.TakeEvents()) {
    if (!event.starts_with("ShowProgress")) events += event + "; ";
  }
  EXPECT_EQ(events,
            "BeginUpdate; SetIsLoading(true); StartProgress 0 15 Loading file; SetModified(true); "
            "mdlAddObject layer; StopProgress; EndUpdate(true); SetIsLoading(false); ");
}

TEST_F(MifReadTest, ShowsRisingProgressNoMoreThanItsStepsAllow) {
  LoadText(QByteArray("Point 1 2\n").repeated(5000));
  std::vector<int> progress{0};
  for (const std::string &event : map.TakeEvents()) {
    if (event.starts_with("ShowProgress ")) progress.push_back(std::stoi(event.substr(13)));
  }
  EXPECT_TRUE(progress.size() > 200 && progress.size() < 260) << progress.size();
  EXPECT_TRUE(std::is_sorted(progress.begin(), progress.end()) && progress.back() <= 50'005);
}

TEST_F(MifReadTest, DoesNothingWithoutFileLayerOrMap) {
  EXPECT_FALSE(provider.Load(&layer, PathOf(QStringLiteral("missing.mif"))));
  EXPECT_FALSE(provider.GetReport().ok());
  WriteFile(QStringLiteral("a.mif"), "Point 1 2\n\n\n");
  EXPECT_FALSE(provider.Load(nullptr, PathOf(QStringLiteral("a.mif"))));
  layer.SetMap(nullptr);
  EXPECT_FALSE(provider.Load(&layer, PathOf(QStringLiteral("a.mif"))));
  EXPECT_TRUE(map.TakeEvents().empty() && messages.empty());
}

TEST_F(MifReadTest, ReadsShapesWithoutADataFileAndFindsOneWhoseExtensionIsInCapitals) {
  WriteFile(QStringLiteral("a.MIF"), "Columns 1\n Name Char(5)\nPoint 1 2\n\n\n");
  EXPECT_FALSE(layer.LoadFromFile(PathOf(QStringLiteral("a.MIF")), QStringLiteral("Towns")));
  EXPECT_EQ(layer.GetSource().fileName, PathOf(QStringLiteral("a.MIF")));
  EXPECT_EQ(layer.GetSource().losses, provider.GetReport().losses);
  EXPECT_EQ(Objects(), "Point 1,2 <>\n");
  EXPECT_EQ(Warnings(), "there is no data file, so the objects have no values");
  layer.DeleteObjects();
  layer.GetFields().Clear();
  WriteFile(QStringLiteral("a.MID"), "\"x\"\n");
  provider.Load(&layer, PathOf(QStringLiteral("a.MIF")));
  EXPECT_EQ(Objects(), "Point 1,2 <x>\n");
}

TEST_F(MifReadTest, NeverLooksAtTheLastLine) {
  LoadData(QStringLiteral("one_point_last"));
  EXPECT_EQ(layer.GetObjectCount(), 0);
  EXPECT_EQ(provider.GetReport().skippedLines.at(QStringLiteral("Point")), 1);
}

TEST_F(MifReadTest, GivesEverySectionTheCountOfTheFirst) {
  LoadData(QStringLiteral("sections"));
  EXPECT_EQ(Objects(), "Pline 0,0 1,1 2,2; 4,10 11,11 12,12 <>\nPoint 5,5 <>\n");
  EXPECT_EQ(ObjectAt(0).GetPen().GetColor(), clBlack) << "the clause comes after a line that was left over";
  EXPECT_EQ(Warnings(), "line 7: only the first section of a Pline Multiple is read as it is meant");
}

TEST_F(MifReadTest, PassesOverOtherKindsButNotTheirValues) {
  LoadData(QStringLiteral("foreign_kinds"));
  EXPECT_EQ(Objects(), "Point 5,6 <1|T>\nPline 7,8 9,10 <2|F>\n");
  EXPECT_EQ(provider.GetReport().Summary().toStdString(),
            "2 objects (1 Pline, 1 Point); 12 lines skipped (1 Arc, 1 Brush, 1 Ellipse, 1 Font, 1 Line, 1 None, "
            "2 Pen, 1 Text, 3 other); 1 warning");
  EXPECT_EQ(Warnings(),
            "the data file has more lines than objects were read, so values may stand with the wrong objects");
}

TEST_F(MifReadTest, TakesColumnTypesFromTheWordsInTheirLines) {
  LoadText(
      "Columns 9\n  a Char(30)\n b Float\nc Decimal(9, 2)\nd INTEGER\ne smallint\nf Date\ng Logical\nh "
      "DateTime\nInteger\n");
  QStringList fields;
  for (int i = 0; i < layer.GetFields().GetCount(); ++i) {
    const TDataFieldView field = std::as_const(layer).GetFields().GetFields(i);
    fields.append(field.GetName() + u' ' + field.GetDataTypeName());
  }
  EXPECT_EQ(fields.join(u'|'), u"a Char(0)|b Float|c Decimal|d Integer|e SmallInt|f Date|g Float|h Date|Integer Float");
}

TEST_F(MifReadTest, FollowsTheLinesToTheLetter) {
  struct Row {
    const char *mif;
    const char *mid;
    const char *objects;
    const char *warnings = "";
    const char *error = "";
  };
  const Row rows[] = {
      // Values go into texts and numbers only, and a text loses its first and last character whatever they are.
      {"Delimiter \",\"\nColumns 6\na SmallInt\nb Char(9)\nc Date\nd Integer\ne Float\nf Logical\n"
       "Point 1 1\nPoint 2 2\n",
       "1,xabcx,3, 4 ,five,6,7\n,\"\n", "Point 1,1 <|abc|| 4 |five|6>\nPoint 2,2 <|||||>\n"},
      // A delimiter has no escapes and may be of several characters.
      {"Delimiter \"\\t\"\nColumns 2\na Char(9)\nb Integer\nPoint 1 1\n", "\"x\ty\"\\t5\n", "Point 1,1 <x\ty|5>\n"},
      // It divides within quotes too.
      {"Delimiter \",\"\nColumns 2\na Char(9)\nb Char(9)\nPoint 1 1\n", "\"x,y\",\"z\"\n", "Point 1,1 <|>\n"},
      {"Columns 1\na Integer\nPoint 1 1\nPoint 2 2\nPoint 3 3\n", "7\n", "Point 1,1 <7>\nPoint 2,2 <>\nPoint 3,3 <>\n",
       "objects at the end that the data file has no line for: 2"},
      // Lines may end with returns alone.
      {"Columns 1\r a Integer\rPoint 29 1\rPline 2\r1 2\r3 4\rPen (1,2,255)\r", "1\r2\r",
       "Point 29,1 <1>\nPline 1,2 3,4 <2>\n"},
      // Behind a count, and behind the two numbers of a vertex, a line may hold anything; blank lines are passed over.
      {"Pline 3 x\n 1 2 rest 9 9\r\n\n\t3\n4\r5 6\nRegion 1\n\n 1 points\n7 8\n", "",
       "Pline 1,2 3,4 5,6 <>\nRegion 7,8 <>\n"},
      // A negative count is none.
      {"Region -5\nPline -3\n0 0\nPoint 1 1\n", "", "Region <>\nPline <>\nPoint 1,1 <>\n"},
      // A line makes an object for every kind that it names, wherever the word stands.
      {"Columns 1\na Integer\nRegion Point 5 6\n", "7\n", "Region <>\nPoint 0,0 <7>\n", "",
       "3: 'Point' is not a valid floating point value"},
      {"Text\n  \"Meeting point\"\n 0 0 1 1\n", "", "Point 0,0 <>\n", "", "2: Syntax item index out of bounds (1)"},
      // A tab in front shifts the items of a line.
      {"\tPoint 1 2\n", "", "Point 0,0 <>\n", "", "1: 'Point' is not a valid floating point value"},
  };
  for (const Row &row : rows) {
    SCOPED_TRACE(row.mif);
    layer.DeleteObjects();
    layer.GetFields().Clear();
    LoadText(row.mif, row.mid);
    EXPECT_EQ(Objects(), row.objects);
    EXPECT_EQ(Warnings(), row.warnings);
    EXPECT_EQ(Error(), row.error);
  }
}

TEST_F(MifReadTest, ReadsAPlainPointAsOneThatIsCutIntoItems) {
  std::mt19937 random(8);
  const char *numbers[] = {"1", "-2.5", "+.5", "7.", "1e3", "-1.25E-2", "123456789.123456789", "0", "-0.000001"};
  const auto number = [&] { return QByteArray(numbers[random() % std::size(numbers)]); };
  QByteArray mif;
  constexpr int Count = 300;
  for (int i = 0; i < Count; ++i) {
    const QByteArray x = number();
    const QByteArray y = number();
    mif += "  pOInt  " + x + "  " + y + " \nPOINT (" + x + ',' + y + ")\n";
  }
  LoadText(mif);
  ASSERT_EQ(layer.GetObjectCount(), 2 * Count);
  for (int i = 0; i < Count; ++i) {
    ASSERT_EQ(VerticesOf(2 * i, 0), VerticesOf(2 * i + 1, 0)) << i;
    ASSERT_EQ(ObjectAt(2 * i).GetBounds(), ObjectAt(2 * i + 1).GetBounds()) << i;
  }
}

TEST_F(MifReadTest, SharesStylesBetweenObjectsWithTheSameClausesAndNeedsSixItemsForTheNameOfAFont) {
  LoadText(
      "Pline 1\n1 1\nPen (1,2,255)\nPline 1\n2 2\nPen (1,2,255)\nPline 1\n3 3\nPen (1,2,256)\n"
      "Region 1\n1\n0 0\nPen (1,2,255)\nBrush (1,7)\nPoint 1 1\nSymbol (35,0,12,\"Arial\",0)\nPoint 1 1\n"
      "Symbol (35,0,12,\"Arial\")\nPoint 1 1\nSymbol (20,0,12)\n");
  EXPECT_EQ(ObjectAt(0).GetStyle().constData(), ObjectAt(1).GetStyle().constData());
  EXPECT_EQ(ObjectAt(2).GetPen().GetColor(), RGB(0, 1, 0));
  EXPECT_EQ(ObjectAt(3).GetBrush().GetColor(), RGB(0, 0, 7));
  EXPECT_EQ(ObjectAt(1).GetBrush().GetColor(), map.symbolStyle->brush.GetColor());
  EXPECT_EQ(ObjectAt(4).GetFont().GetName() + u'|' + ObjectAt(5).GetFont().GetName(), u"Arial|MapInfo Symbol");
  EXPECT_EQ(As<TSymbol>(6)->GetShape(), TSymbol::NoShape);
}

TEST_F(MifReadTest, LeavesObjectsWholeThatAreChangedOrOutliveTheLayerTheyWereLoadedInto) {
  constexpr int Count = 3000;
  QByteArray mif = "Columns 1\n  Name Char(30)\nData\n";
  QByteArray mid;
  for (int i = 0; i < Count; ++i) {
    const QByteArray x = QByteArray::number(i);
    mif += QByteArray(i % 2 == 0 ? "Point X 1\n" : "Pline 3\nX 0\nX 1\nX 2\n").replace("X", x);
    mid += "\"the object number " + x + "\"\n";
  }
  WriteFile(QStringLiteral("a.mif"), mif + "End\n");
  WriteFile(QStringLiteral("a.mid"), mid);
  auto loaded = std::make_unique<TMapLayer>();
  loaded->SetMap(&map);
  loaded->LoadFromFile(PathOf(QStringLiteral("a.mif")), QString());
  ASSERT_EQ(loaded->GetObjectCount(), Count);
  std::vector<std::unique_ptr<TCustomMapObject>> kept;
  for (int i = Count - 1; i >= 0; --i) {
    TCustomMapObject &object = *loaded->GetObjects(i);
    TMapPoints &points = object.GetParts().GetFirst().GetPoints();
    if (i % 5 == 0) points.Add(i, 7);
    if (i % 7 == 0) points.SetPoint(0, {i + 0.5, 0});
    if (i % 11 == 0) object.GetFields().GetFields(0).SetAsString(QStringLiteral("another name"));
    if (i % 3 == 0) kept.push_back(loaded->TakeObject(&object));
  }
  loaded.reset();
  for (std::size_t at = 0; at < kept.size(); ++at) {
    const int i = Count - 3 * int(at + 1);
    const TMapPoints &points = kept[at]->GetParts().GetFirst().GetPoints();
    ASSERT_EQ(points.GetCount(), (i % 2 == 0 ? 1 : 3) + (i % 5 == 0 ? 1 : 0)) << i;
    ASSERT_EQ(points.GetPoint(0).X, i % 7 == 0 ? i + 0.5 : i);
    ASSERT_EQ(kept[at]->GetFields().GetFields(0).GetAsString(),
              i % 11 == 0 ? QStringLiteral("another name") : QStringLiteral("the object number %1").arg(i));
    ASSERT_EQ(kept[at]->GetBounds().MinX, i);
  }
}

TEST_F(MifReadTest, ReportsADefectWithLineAndWordsAndKeepsWhatWasRead) {
  struct Row {
    const char *mif;
    const char *error;
    int objects = 1;
  };
  const Row rows[] = {
      {"Point 1 2\nPoint 1\n", "2: Syntax item index out of bounds (2)", 2},
      {"Point nan 2\n", "1: 'nan' is not a valid floating point value"},
      {"Multipoint 3\n", "1: Syntax item index out of bounds (2)"},
      {"Region\n", "1: '' is not a valid integer value"},
      {"Region xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx\n",
       "1: 'xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx...' is not a valid integer value"},
      {"Region 2147483648\n", "1: '2147483648' is not a valid integer value"},
      {"Region 1\n\nx\n", "3: 'x' is not a valid integer value"},
      {"Pline 3\n0 0\n1 inf\n", "3: 'inf' is not a valid floating point value"},
      {"Pline 3\r\n0 0\r\n1 1x\r\n", "3: '1x' is not a valid floating point value"},
      {"Pline 2000000000\n0 0\n", "4: 'End' is not a valid floating point value"},
      {"Pline 1\n0 0\n  Pen (1,2)\n", "3: Syntax item index out of bounds (3)"},
      {"Point 1 1\n  Symbol (\"PIN.BMP\",0,12,0)\n", "2: '\"PIN.BMP\"' is not a valid integer value"},
      {"Columns 2000000000\n", "1: 2000000000 columns are too many", 0},
      {"Pline Multiple 2000000000\n0\n", "2: there are too many parts without points"}};
  for (const auto &[mif, error, objects] : rows) {
    layer.DeleteObjects();
    messages.clear();
    LoadText(mif);
    EXPECT_EQ(Error(), error);
    EXPECT_EQ(messages, std::vector<std::string>{"Error reading mif-file at line " +
                                                 Error().replace(Error().find(':'), 1, " with message:") + "!"});
    EXPECT_EQ(layer.GetObjectCount(), objects) << mif;
    EXPECT_EQ(map.TakeEvents().back(), "SetIsLoading(false)");
  }
}

TEST_F(MifReadTest, KeepsThePointsOfAnObjectThatTheFileEndsIn) {
  WriteFile(QStringLiteral("a.mif"), "Pline 2000000000\n0 0\n1 1\n2");
  WriteFile(QStringLiteral("a.mid"), "");
  provider.Load(&layer, PathOf(QStringLiteral("a.mif")));
  EXPECT_EQ(Objects(), "Pline 0,0 1,1 <>\n");
  EXPECT_NE(Warnings().find("2000000000 points are announced, but the file ends after 2"), std::string::npos);
}

TEST_F(MifReadTest, TellsOfAFileThatIsCutShortWhileItIsRead) {
  const QByteArray points = QByteArray("Point 1 2\n").repeated(200'000);
  for (const char *name : {"a.mif", "a.mid"}) {
    WriteFile(QStringLiteral("a.mif"), "Columns 1\na Integer\n" + points);
    WriteFile(QStringLiteral("a.mid"), QByteArray("12345\n").repeated(200'000));
    const QString path = PathOf(QString::fromLatin1(name));
    map.onShowProgress = [&path] { ASSERT_TRUE(QFile::resize(path, 5000)); };
    layer.DeleteObjects();
    provider.Load(&layer, PathOf(QStringLiteral("a.mif")));
    EXPECT_NE(Error().find("Cannot read file \"" + path.toStdString() + "\". Another program has cut it short."),
              std::string::npos)
        << Error();
    EXPECT_GT(layer.GetObjectCount(), 1000);
  }
}

TEST_F(MifReadTest, ClearsAwayWhatAKilledSaveHasLeft) {
  WriteFile(QStringLiteral("a.mif.0123456789abcdef.new"), "half a li");
  WriteFile(QStringLiteral("a.mid.0123456789abcdef.new"), "");
  LoadText("Point 1 2\n");
  EXPECT_EQ(Files(), (QStringList{QStringLiteral("a.mid"), QStringLiteral("a.mif")}));
}

TEST_F(MifReadTest, EndsWithAReportWhenAHandlerDeletesTheLayer) {
  auto other = std::make_unique<TMapLayer>();
  other->SetMap(&map);
  map.onShowProgress = [&other] { other.reset(); };
  WriteFile(QStringLiteral("a.mif"), "Columns 1\na Integer\nPoint 1 2\nEnd\n");
  provider.Load(other.get(), PathOf(QStringLiteral("a.mif")));
  EXPECT_EQ(Error(), "1: the layer was deleted while it was being loaded");
}

TEST_F(MifReadTest, ListsWhatALayerLacksOfItsFile) {
  const std::pair<const char *, const char *> cases[] = {
      {"Version 300\nCharset \"WindowsCyrillic\"\nDelimiter \",\"\nCoordSys Earth Projection 1, 0\nColumns 1\n"
       "a Integer\nData\nPline 1\n1 1\nPen (1,2,255)\nRegion 0\nBrush (2,7)\nPoint 1 1\nSymbol (35,0,12)\n",
       ""},
      {"Charset \"WindowsLatin1\"\nCoordSys Earth Projection 9\nArc\n0 0 1 1\nArc\n",
       "lines that are not read: 1 other, 2 Arc, 1 Charset, 1 CoordSys"},
      {"Columns 4\na Char(9)\nb SmallInt\nc Logical\nd Float\n",
       "widths of Char and Decimal columns; values of SmallInt and Date columns; types of Logical and Time columns"},
      {"Pline 1\n1 1\nPen (2,2,0)\nRegion 0\nCenter 1 1\nBrush (2,0,255)\nPoint 1 1\nSymbol (35,0,12,\"A\",0,45)\n",
       "widths and patterns of pens; patterns and background colours of brushes; styles and angles of symbols; "
       "centres of regions"},
      {"Pline Multiple 2\n1\n1 1\n1\n2 2\n", "shapes that are not read as they stand"}};
  for (const auto &[mif, losses] : cases) {
    WriteFile(QStringLiteral("a.mif"), QByteArray(mif) + "\n\n");
    layer.DeleteObjects();
    layer.GetFields().Clear();
    provider.Load(&layer, PathOf(QStringLiteral("a.mif")));
    EXPECT_EQ(Losses(), losses);
    EXPECT_EQ(provider.GetReport().IsWhole(), losses[0] == '\0');
  }
}

TEST_F(MifReadTest, ClassifiesALineByItsLastKeyword) {
  using enum TObjectAttribute;
  const std::pair<const char *, TObjectAttribute> lines[] = {{"reopen", oaPen},
                                                             {"  brush (2,0)", oaBrush},
                                                             {"Center 1 1", oaCenter},
                                                             {"Font center", oaFont},
                                                             {"symbol pen font", oaSymbol},
                                                             {"Smooth", oaNone},
                                                             {"Brush and pencil", oaBrush},
                                                             {"", oaNone}};
  for (const auto &[line, attribute] : lines) {
    EXPECT_EQ(provider.IsObjAttrString(QString::fromLatin1(line)), attribute) << line;
  }
}

}  // namespace
}  // namespace tessera
