// SPDX-License-Identifier: MIT
#include "../base/LocaleGuard.h"

#include <tessera/base/Exceptions.h>
#include <tessera/base/Progresser.h>
#include <tessera/formats/SyntaxParser.h>

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <random>
#include <tuple>

namespace tessera {
namespace {

using enum TSyntaxItemKind;

/// The values of all items with a bar between them.
QString Values(const TSyntaxParser &parser) {
  QStringList values;
  for (int i = 0; i < parser.GetCount(); ++i) values.append(parser.GetItem(i).Value);
  return values.join(u'|');
}

TEST(SyntaxParserTest, CutsAtEveryDelimiterAndKeepsItUnlessItIsSkipped) {
  TSyntaxParser parser;
  TSyntaxParser ofMapFiles;
  TCharSet delimiters = parser.GetDelimiters();
  delimiters.Exclude(u"+-.");
  ofMapFiles.SetDelimiters(delimiters);
  ofMapFiles.SetSkipChars(TCharSet(u" (),"));
  const std::tuple<TSyntaxParser &, const char16_t *, const char16_t *> rows[] = {
      {parser, u"a=b+1.5;", u"a|=|b|+|1|.|5|;"},
      {parser, u"\ta  b", u" |a| | |b"},
      {parser, u"x\"y, z\"z", u"x|\"y, z\"|z"},
      {parser, u"\"\"\"", u"\"\"|\""},
      {parser, u"a \"open, to (the end)", u"a| |\"open, to (the end)"},
      {parser, u"a 'rest, of \"it", u"a| |'rest, of \"it"},
      {parser, u"\"it's\" 'x", u"\"it's\"| |'x"},
      {parser, u"\u0421\u043b,\u0120b", u"\u0421\u043b|,|\u0120b"},
      {ofMapFiles, u"\tPoint -2.5 4.75", u" |Point|-2.5|4.75"},
      {ofMapFiles, u"Symbol (35,0,12,It's)", u"Symbol|35|0|12|It|'s)"},
      {ofMapFiles, u"Symbol (35,\"Arial Cyr\",1,0)", u"Symbol|35|\"Arial Cyr\"|1|0"}};
  for (const auto &[reader, text, values] : rows) {
    reader.Read(text, 1, true, false);
    EXPECT_EQ(Values(reader), values);
  }
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

TEST(SyntaxParserTest, KeepsTheItemsOfEarlierTextsAndFindsThemByIndexAndOffset) {
  TSyntaxParser parser;
  parser.SetSkipChars(TCharSet(u" "));
  parser.Read(u"ab  cd", 4, false, false);
  EXPECT_EQ(parser.ItemFromOffset(2), &parser.GetItem(1)) << "between the two";
  EXPECT_EQ(parser.ItemFromOffset(6), nullptr);
  for (int i = -1; i <= 2; ++i) EXPECT_EQ(parser.ValidIndex(i), i == 1) << i << ", the first does not count as valid";
  for (const int i : {-1, 2}) EXPECT_THROW(static_cast<void>(parser.GetItem(i)), ERangeError) << i;
  parser.Read(u"d", 5, false, false);
  ASSERT_EQ(Values(parser), u"ab|cd|d");
  EXPECT_EQ(parser.GetItem(1).Line, 4);
  EXPECT_EQ(parser.GetItem(2).Offset, 0);
}

TEST(SyntaxParserTest, TellsTheKindOfAnItem) {
  TSyntaxParser parser;
  parser.SetReservedWords({QStringLiteral("Pen"), QStringLiteral("1.5"), QStringLiteral(",")});
  const std::pair<const char *, TSyntaxItemKind> cases[] = {
      {"\t", sikWhiteSpace},  {",", sikWhiteSpace},   {"'", sikWhiteSpace},     {"'note", sikComment},
      {"\"a", sikString},     {"-1.25e3", sikNumber}, {"1.5", sikReservedWord}, {"PEN", sikReservedWord},
      {"nan", sikIdentifier}, {"", sikIdentifier}};
  for (const auto &[value, kind] : cases) {
    EXPECT_EQ(parser.Add(QString::fromLatin1(value), 0, 0).GetKind(), kind) << value;
  }
  const TSyntaxItem &number = parser.Add(QStringLiteral("1,5"), 0, 0);
  EXPECT_EQ(number.GetKind(), sikIdentifier);
  const test::TLocaleGuard guard(test::Russian());
  EXPECT_EQ(number.GetKind(), sikNumber);
  parser.SetCommentsFlag(QString());
  EXPECT_EQ(parser.Add(QStringLiteral("a"), 0, 0).GetKind(), sikComment) << "every value begins with an empty mark";
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

TEST(SyntaxParserTest, ReadsAndPacksLinesWithProgress) {
  QStringList heard;
  Progresser::StartProgress = [&](QObject *, int min, int max, const QString &caption) {
    heard.append(QStringLiteral("start %1 %2 %3").arg(min).arg(max).arg(caption));
  };
  Progresser::ShowProgress = [&](QObject *, int position) { heard.append(QString::number(position)); };
  Progresser::StopProgress = [&](QObject *) { heard.append(QStringLiteral("stop")); };
  TSyntaxParser parser;
  parser.ReadFromStrings({QStringLiteral("a b"), QString(), QStringLiteral("'c")});
  EXPECT_EQ(Values(parser), u"a| |b|'c");
  parser.Pack();
  EXPECT_EQ(Values(parser), u"a|b") << "without blanks and comments";
  EXPECT_EQ(heard.join(u'|'), u"start 0 3 Reading source|1|2|3|stop|start 0 4 Packing Data|1|2|3|4|stop");
  Progresser::StartProgress = {};
  Progresser::ShowProgress = {};
  Progresser::StopProgress = {};
}

TEST(SyntaxParserTest, ReadsLinesOfAFileWhateverEndsThem) {
  const QTemporaryDir folder;
  const QString name = folder.filePath(QStringLiteral("source.txt"));
  const QByteArray files[] = {"a\n\n\u0451\nb", "a\r\n\r\n\u0451\r\nb\r\n", "a\r\r\u0451\rb\r",
                              "\uFEFFa\n\n\u0451\nb\n", QByteArray::fromHex("fffe61000a000a0051040a006200")};
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
  }
  EXPECT_THROW(TSyntaxParser().ReadFromFile(QStringLiteral("/nowhere/source.txt")), EInOutError);
}

}  // namespace
}  // namespace tessera
