// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/Progresser.h>
#include <tessera/formats/SyntaxParser.h>

#include <QFile>
#include <QLocale>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <random>

namespace tessera {
namespace {

using enum TSyntaxItemKind;

/// The values of all items with a bar between them.
QString Values(const TSyntaxParser &parser) {
  QStringList values;
  for (int i = 0; i < parser.GetCount(); ++i) values.append(parser.GetItem(i).Value);
  return values.join(u'|');
}

/// As lines of map files are read: signs and points belong to numbers, brackets and commas only divide.
void UseMapFileSettings(TSyntaxParser &parser) {
  TCharSet delimiters = parser.GetDelimiters();
  delimiters.Exclude(u"+-.");
  parser.SetDelimiters(delimiters);
  parser.SetSkipChars(TCharSet(u" (),"));
}

struct TReadCase {
  QStringView text;
  QStringView values;
};

TEST(SyntaxParserTest, CutsAtEveryDelimiterAndKeepsIt) {
  const TReadCase cases[] = {
      {u"", u""},
      {u"word", u"word"},
      {u"a=b+1.5;", u"a|=|b|+|1|.|5|;"},
      {u"a  b", u"a| | |b"},
      {u"\ta", u" |a"},
      {u"say \"a, b\" now", u"say| |\"a, b\"| |now"},
      {u"x\"y\"z", u"x|\"y\"|z"},
      {u"\"\"\"", u"\"\"|\""},
      {u"a \"open, to (the end)", u"a| |\"open, to (the end)"},
      {u"a 'rest, of \"it", u"a| |'rest, of \"it"},
      {u"\"it's\" 'x", u"\"it's\"| |'x"},
      {u"\u0421\u043b\u043e\u0432\u043e,\u0120b", u"\u0421\u043b\u043e\u0432\u043e|,|\u0120b"},
  };
  TSyntaxParser parser;
  for (const TReadCase &test : cases) {
    parser.Read(test.text, 1, true, false);
    EXPECT_EQ(Values(parser), test.values);
  }
}

TEST(SyntaxParserTest, ReadsLinesOfMapFiles) {
  const TReadCase cases[] = {
      {u"Pen (1,2,255)", u"Pen|1|2|255"},
      {u"Point -2.5 4.75", u"Point|-2.5|4.75"},
      {u"\tPoint 1 2", u" |Point|1|2"},
      {u"Symbol (35,0,12,It's)", u"Symbol|35|0|12|It|'s)"},
      {u"Symbol (35,0,12,\"Arial Cyr\",1,0)", u"Symbol|35|0|12|\"Arial Cyr\"|1|0"},
  };
  TSyntaxParser parser;
  UseMapFileSettings(parser);
  for (const TReadCase &test : cases) {
    parser.Read(test.text, 1, true, false);
    EXPECT_EQ(Values(parser), test.values);
  }
}

TEST(SyntaxParserTest, TakesQuotesAndCommentMarksForCharactersWhenRaw) {
  TSyntaxParser parser;
  parser.Read(u"a'b \"c d\"", 1, false, true);
  EXPECT_EQ(Values(parser), u"a|'|b| |\"|c| |d|\"");
}

TEST(SyntaxParserTest, NeverFindsACommentMarkOfSeveralCharacters) {
  TSyntaxParser parser;
  parser.SetCommentsFlag(QStringLiteral("//"));
  parser.Read(u"a//b", 1, false, false);
  EXPECT_EQ(Values(parser), u"a|/|/|b");
  EXPECT_EQ(parser.Add(QStringLiteral("//b"), 0, 0).GetKind(), sikComment);
}

TEST(SyntaxParserTest, DropsCommentsThatAreToBeSkipped) {
  TSyntaxParser parser;
  parser.SetSkipKinds({sikComment});
  parser.Read(u"a b'c", 1, false, false);
  EXPECT_EQ(Values(parser), u"a| |b");
}

TEST(SyntaxParserTest, KeepsTheItemsOfEarlierTextsUnlessCleared) {
  TSyntaxParser parser;
  parser.Read(u"ab c", 4, false, false);
  parser.Read(u"d", 5, false, false);
  ASSERT_EQ(Values(parser), u"ab| |c|d");
  EXPECT_EQ(parser.GetItem(2).Offset, 3);
  EXPECT_EQ(parser.GetItem(2).Line, 4);
  EXPECT_EQ(parser.GetItem(3).Offset, 0);
  EXPECT_EQ(parser.GetItem(3).Line, 5);
  parser.Read(u"e", 6, true, false);
  EXPECT_EQ(Values(parser), u"e");
}

struct TKindCase {
  QStringView value;
  TSyntaxItemKind kind;
};

TEST(SyntaxParserTest, TellsTheKindOfAnItem) {
  TSyntaxParser parser;
  parser.SetReservedWords({QStringLiteral("Pen"), QStringLiteral("1.5"), QStringLiteral(",")});
  const TKindCase cases[] = {
      {u" ", sikWhiteSpace},   {u"\t", sikWhiteSpace},    {u",", sikWhiteSpace},     {u"'", sikWhiteSpace},
      {u"'note", sikComment},  {u"\"a\"", sikString},     {u"\"a", sikString},       {u"12", sikNumber},
      {u"-1.25e3", sikNumber}, {u"1.5", sikReservedWord}, {u"PEN", sikReservedWord}, {u"Pens", sikIdentifier},
      {u"nan", sikIdentifier}, {u"", sikIdentifier},
  };
  for (const TKindCase &test : cases) {
    EXPECT_EQ(parser.Add(test.value.toString(), 0, 0).GetKind(), test.kind) << test.value.toString().toStdString();
  }
  parser.SetDelimiters(TCharSet());
  EXPECT_EQ(parser.Add(QStringLiteral("'"), 0, 0).GetKind(), sikComment);
  EXPECT_EQ(parser.Add(QStringLiteral("\""), 0, 0).GetKind(), sikString);
  parser.SetCommentsFlag(QString());
  EXPECT_EQ(parser.Add(QStringLiteral("a"), 0, 0).GetKind(), sikComment) << "every value begins with an empty mark";
}

TEST(SyntaxParserTest, TellsNumbersByTheLocale) {
  TSyntaxParser parser;
  const TSyntaxItem &item = parser.Add(QStringLiteral("1,5"), 0, 0);
  EXPECT_EQ(item.GetKind(), sikIdentifier);
  QLocale::setDefault(QLocale(QLocale::Russian, QLocale::Russia));
  EXPECT_EQ(item.GetKind(), sikNumber);
  QLocale::setDefault(QLocale::c());
}

TEST(SyntaxParserTest, ComparesItemsRegardlessOfCase) {
  TSyntaxParser parser;
  const TSyntaxItem &item = parser.Add(QStringLiteral("Multiple"), 0, 0);
  EXPECT_TRUE(item.Equal(u"MULTIPLE"));
  EXPECT_FALSE(item.Equal(u"MULTIPL"));
}

TEST(SyntaxParserTest, DoesNotCountTheFirstItemAsValid) {
  TSyntaxParser parser;
  parser.Read(u"Pen 1", 1, false, false);
  EXPECT_FALSE(parser.ValidIndex(-1));
  EXPECT_FALSE(parser.ValidIndex(0));
  EXPECT_TRUE(parser.ValidIndex(1));
  EXPECT_TRUE(parser.ValidIndex(2));
  EXPECT_FALSE(parser.ValidIndex(3));
  EXPECT_THROW(static_cast<void>(parser.GetItem(3)), ERangeError);
  EXPECT_THROW(static_cast<void>(parser.GetItem(-1)), ERangeError);
}

TEST(SyntaxParserTest, FindsTheFirstItemThatEndsBeyondAnOffset) {
  TSyntaxParser parser;
  UseMapFileSettings(parser);
  parser.Read(u"ab  cd", 1, false, false);
  EXPECT_EQ(parser.ItemFromOffset(1), &parser.GetItem(0));
  EXPECT_EQ(parser.ItemFromOffset(2), &parser.GetItem(1)) << "between the two";
  EXPECT_EQ(parser.ItemFromOffset(5), &parser.GetItem(1));
  EXPECT_EQ(parser.ItemFromOffset(6), nullptr);
}

TEST(SyntaxParserTest, PacksBlanksAndCommentsAway) {
  TSyntaxParser parser;
  parser.Read(u"\ta, b 'c", 1, false, false);
  parser.Read(u" 'd", 2, false, false);
  parser.Pack();
  EXPECT_EQ(Values(parser), u"a|,|b");
}

TEST(SyntaxParserTest, WritesBackEverythingButSkippedCharacters) {
  std::mt19937 engine(3);
  const QString alphabet = QStringLiteral("ab1 .,-(\"'\n;");
  TSyntaxParser parser;
  for (int i = 0; i < 2000; ++i) {
    QString text;
    for (auto length = engine() % 20; length > 0; --length) text += alphabet[int(engine() % unsigned(alphabet.size()))];
    const bool raw = i % 2 == 0;
    parser.Read(text, i, true, raw);
    QString written = QStringLiteral("replaced");
    parser.Write(written);
    ASSERT_EQ(written, text);
    for (int k = 0; k < parser.GetCount(); ++k) {
      const TSyntaxItem &item = parser.GetItem(k);
      ASSERT_EQ(QStringView(text).sliced(item.Offset, item.GetLength()), item.Value);
    }
  }
}

TEST(SyntaxParserTest, ReadsAVeryLongLine) {
  const QString text = QStringLiteral("ab,").repeated(500'000) + u'"' + QString(5'000'000, u',');
  TSyntaxParser parser;
  parser.Read(text, 1, false, false);
  EXPECT_EQ(parser.GetCount(), 1'000'001);
  EXPECT_EQ(parser.GetItem(1'000'000).GetLength(), 5'000'001);
}

/// Writes down what the progress callbacks of the process hear.
class TProgressLog {
 public:
  TProgressLog() {
    Progresser::StartProgress = [this](QObject *, int min, int max, const QString &caption) {
      lines.append(QStringLiteral("start %1 %2 %3").arg(min).arg(max).arg(caption));
    };
    Progresser::ShowProgress = [this](QObject *, int position) { positions.push_back(position); };
    Progresser::StopProgress = [this](QObject *) { lines.append(QStringLiteral("stop")); };
  }
  ~TProgressLog() {
    Progresser::StartProgress = {};
    Progresser::ShowProgress = {};
    Progresser::StopProgress = {};
  }
  TProgressLog(const TProgressLog &) = delete;
  TProgressLog &operator=(const TProgressLog &) = delete;

  QStringList lines;
  std::vector<int> positions;
};

TEST(SyntaxParserTest, ShowsProgressOverLinesAndItems) {
  TSyntaxParser parser;
  TProgressLog log;
  parser.ReadFromStrings({QStringLiteral("a b"), QString(), QStringLiteral("c")});
  EXPECT_EQ(Values(parser), u"a| |b|c");
  EXPECT_EQ(parser.GetItem(3).Line, 2);
  parser.Pack();
  EXPECT_EQ(log.lines, (QStringList{QStringLiteral("start 0 3 Reading source"), QStringLiteral("stop"),
                                    QStringLiteral("start 0 4 Packing Data"), QStringLiteral("stop")}));
  EXPECT_EQ(log.positions, (std::vector<int>{1, 2, 3, 1, 2, 3, 4}));
}

class SyntaxParserFileTest : public testing::TestWithParam<QByteArray> {};

TEST_P(SyntaxParserFileTest, ReadsLinesWhateverEndsThem) {
  const QTemporaryDir folder;
  const QString name = folder.filePath(QStringLiteral("source.txt"));
  QFile file(name);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(GetParam());
  file.close();
  TSyntaxParser parser;
  parser.ReadFromFile(name);
  EXPECT_EQ(Values(parser), QStringLiteral("a|\u0451|b"));
  EXPECT_EQ(parser.GetItem(1).Line, 2);
  EXPECT_EQ(parser.GetItem(2).Line, 3);
}

INSTANTIATE_TEST_SUITE_P(Files, SyntaxParserFileTest,
                         testing::Values(QByteArray("a\n\n\u0451\nb"), QByteArray("a\r\n\r\n\u0451\r\nb\r\n"),
                                         QByteArray("a\r\r\u0451\rb\r"),
                                         QByteArray("\xEF\xBB\xBF"
                                                    "a\n\n\u0451\nb\n"),
                                         QByteArray("\xFF\xFE"
                                                    "a\0\n\0\n\0\x51\x04\n\0b\0",
                                                    14)));

TEST(SyntaxParserTest, NamesTheFileThatIsMissing) {
  TSyntaxParser parser;
  try {
    parser.ReadFromFile(QStringLiteral("/nowhere/source.txt"));
    FAIL();
  } catch (const EInOutError &error) {
    EXPECT_TRUE(MessageOf(error).contains(QStringLiteral("/nowhere/source.txt")));
  }
}

}  // namespace
}  // namespace tessera
