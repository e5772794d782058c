// SPDX-License-Identifier: MIT
#include "../base/LocaleGuard.h"

#include <tessera/base/Exceptions.h>
#include <tessera/base/Progresser.h>
#include <tessera/formats/SyntaxParser.h>

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <initializer_list>
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
  const char16_t *text;
  const char16_t *values;
};

void ExpectItems(TSyntaxParser &parser, std::initializer_list<TReadCase> cases) {
  for (const TReadCase &test : cases) {
    parser.Read(test.text, 1, true, false);
    EXPECT_EQ(Values(parser), QString::fromUtf16(test.values));
  }
}

TEST(SyntaxParserTest, CutsAtEveryDelimiterAndKeepsIt) {
  TSyntaxParser parser;
  ExpectItems(parser, {{u"", u""},
                       {u"a=b+1.5;", u"a|=|b|+|1|.|5|;"},
                       {u"a  b", u"a| | |b"},
                       {u"\ta", u" |a"},
                       {u"say \"a, b\" now", u"say| |\"a, b\"| |now"},
                       {u"x\"y\"z", u"x|\"y\"|z"},
                       {u"\"\"\"", u"\"\"|\""},
                       {u"a \"open, to (the end)", u"a| |\"open, to (the end)"},
                       {u"a 'rest, of \"it", u"a| |'rest, of \"it"},
                       {u"\"it's\" 'x", u"\"it's\"| |'x"},
                       {u"\u0421\u043b\u043e,\u0120b", u"\u0421\u043b\u043e|,|\u0120b"}});
}

TEST(SyntaxParserTest, ReadsLinesOfMapFiles) {
  TSyntaxParser parser;
  UseMapFileSettings(parser);
  ExpectItems(parser, {{u"Pen (1,2,255)", u"Pen|1|2|255"},
                       {u"Point -2.5 4.75", u"Point|-2.5|4.75"},
                       {u"\tPoint 1 2", u" |Point|1|2"},
                       {u"Symbol (35,0,12,It's)", u"Symbol|35|0|12|It|'s)"},
                       {u"Symbol (35,0,12,\"Arial Cyr\",1,0)", u"Symbol|35|0|12|\"Arial Cyr\"|1|0"}});
}

TEST(SyntaxParserTest, DropsCommentsThatAreToBeSkippedAndTakesTheirMarkForACharacterWhenRaw) {
  TSyntaxParser parser;
  parser.Read(u"a'b \"c d\"", 1, false, true);
  EXPECT_EQ(Values(parser), u"a|'|b| |\"|c| |d|\"");
  parser.SetSkipKinds({sikComment});
  parser.Read(u"a b'c", 1, true, false);
  EXPECT_EQ(Values(parser), u"a| |b");
  parser.SetCommentsFlag(QStringLiteral("//"));
  parser.Read(u"a//b", 1, true, false);
  EXPECT_EQ(Values(parser), u"a|/|/|b") << "a mark of several characters is never found";
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

TEST(SyntaxParserTest, TellsTheKindOfAnItem) {
  TSyntaxParser parser;
  parser.SetReservedWords({QStringLiteral("Pen"), QStringLiteral("1.5"), QStringLiteral(",")});
  const std::pair<const char *, TSyntaxItemKind> cases[] = {
      {" ", sikWhiteSpace},   {"\t", sikWhiteSpace},    {",", sikWhiteSpace},     {"'", sikWhiteSpace},
      {"'note", sikComment},  {"\"a\"", sikString},     {"\"a", sikString},       {"12", sikNumber},
      {"-1.25e3", sikNumber}, {"1.5", sikReservedWord}, {"PEN", sikReservedWord}, {"Pens", sikIdentifier},
      {"nan", sikIdentifier}, {"", sikIdentifier},
  };
  for (const auto &[value, kind] : cases) {
    EXPECT_EQ(parser.Add(QString::fromLatin1(value), 0, 0).GetKind(), kind) << value;
  }
  const TSyntaxItem &number = parser.Add(QStringLiteral("1,5"), 0, 0);
  EXPECT_EQ(number.GetKind(), sikIdentifier);
  const test::TLocaleGuard guard(test::Russian());
  EXPECT_EQ(number.GetKind(), sikNumber);
  parser.SetDelimiters(TCharSet());
  EXPECT_EQ(parser.Add(QStringLiteral("'"), 0, 0).GetKind(), sikComment);
  parser.SetCommentsFlag(QString());
  EXPECT_EQ(parser.Add(QStringLiteral("a"), 0, 0).GetKind(), sikComment) << "every value begins with an empty mark";
}

TEST(SyntaxParserTest, PacksBlanksAndCommentsAway) {
  TSyntaxParser parser;
  parser.Read(u"\ta, b 'c", 1, false, false);
  parser.Read(u" 'd", 2, false, false);
  parser.Pack();
  EXPECT_EQ(Values(parser), u"a|,|b");
}

TEST(SyntaxParserTest, FindsItemsByIndexAndOffset) {
  TSyntaxParser parser;
  UseMapFileSettings(parser);
  parser.Read(u"ab  cd", 1, false, false);
  EXPECT_EQ(parser.ItemFromOffset(1), &parser.GetItem(0));
  EXPECT_EQ(parser.ItemFromOffset(2), &parser.GetItem(1)) << "between the two";
  EXPECT_EQ(parser.ItemFromOffset(6), nullptr);
  for (int i = -1; i <= 2; ++i) EXPECT_EQ(parser.ValidIndex(i), i == 1) << i << ", the first does not count as valid";
  for (const int i : {-1, 2}) EXPECT_THROW(static_cast<void>(parser.GetItem(i)), ERangeError) << i;
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

TEST(SyntaxParserTest, ShowsProgressOverLinesAndItems) {
  QStringList heard;
  Progresser::StartProgress = [&](QObject *, int min, int max, const QString &caption) {
    heard.append(QStringLiteral("start %1 %2 %3").arg(min).arg(max).arg(caption));
  };
  Progresser::ShowProgress = [&](QObject *, int position) { heard.append(QString::number(position)); };
  Progresser::StopProgress = [&](QObject *) { heard.append(QStringLiteral("stop")); };
  TSyntaxParser parser;
  parser.ReadFromStrings({QStringLiteral("a b"), QString(), QStringLiteral("c")});
  EXPECT_EQ(Values(parser), u"a| |b|c");
  EXPECT_EQ(parser.GetItem(3).Line, 2);
  parser.Pack();
  EXPECT_EQ(heard.join(u'|'), u"start 0 3 Reading source|1|2|3|stop|start 0 4 Packing Data|1|2|3|4|stop");
  Progresser::StartProgress = {};
  Progresser::ShowProgress = {};
  Progresser::StopProgress = {};
}

TEST(SyntaxParserTest, ReadsLinesOfAFileWhateverEndsThem) {
  const QTemporaryDir folder;
  const QString name = folder.filePath(QStringLiteral("source.txt"));
  const QByteArray files[] = {"a\n\n\u0451\nb", "a\r\n\r\n\u0451\r\nb\r\n", "a\r\r\u0451\rb\r",
                              "\xEF\xBB\xBF"
                              "a\n\n\u0451\nb\n",
                              QByteArray("\xFF\xFE"
                                         "a\0\n\0\n\0\x51\x04\n\0b\0",
                                         14)};
  for (const QByteArray &bytes : files) {
    SCOPED_TRACE(bytes.toHex().toStdString());
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();
    TSyntaxParser parser;
    parser.ReadFromFile(name);
    EXPECT_EQ(Values(parser), u"a|\u0451|b");
    EXPECT_EQ(parser.GetItem(1).Line, 2);
    EXPECT_EQ(parser.GetItem(2).Line, 3);
  }
  try {
    TSyntaxParser().ReadFromFile(QStringLiteral("/nowhere/source.txt"));
    FAIL();
  } catch (const EInOutError &error) {
    EXPECT_TRUE(MessageOf(error).contains(QStringLiteral("/nowhere/source.txt")));
  }
}

}  // namespace
}  // namespace tessera
