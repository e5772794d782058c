// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/MessageSink.h>
#include <tessera/formats/StringParserU.h>

#include <QLocale>
#include <QStringList>
#include <gtest/gtest.h>

namespace tessera {
namespace {

QStringList Values(TStringParser &parser) {
  QStringList values;
  for (int i = 0; i < parser.GetCount(); ++i) values.append(parser.GetItems(i)->GetAsString());
  return values;
}

struct TSplitCase {
  QString delimiter;
  QString line;
  QStringList values;
  QString joined;
};

TEST(StringParserTest, SplitsAtEveryDelimiterAndJoinsAgain) {
  const auto text = [](const char16_t *chars) { return QString::fromUtf16(chars); };
  const TSplitCase cases[] = {
      {text(u","), text(u""), {text(u"")}, text(u"")},
      {text(u","), text(u"a,,b"), {text(u"a"), text(u""), text(u"b")}, text(u"a,,b")},
      {text(u","), text(u","), {text(u""), text(u"")}, text(u",")},
      {text(u","), text(u"'x,y'"), {text(u"'x"), text(u"y'")}, text(u"'x,y'")},
      {text(u"::"), text(u"a::b:::c"), {text(u"a"), text(u"b"), text(u":c")}, text(u"a::b:::c:")},
      {text(u"x"), text(u"aXbxc"), {text(u"aXb"), text(u"c")}, text(u"aXbxc")},
      {text(u""), text(u"a;b"), {text(u"a;b")}, text(u"a;")},
  };
  TStringParser parser;
  for (const TSplitCase &test : cases) {
    parser.SetDelimiter(test.delimiter);
    parser.FromString(test.line);
    EXPECT_EQ(Values(parser), test.values) << test.line.toStdString();
    EXPECT_EQ(parser.ToString(), test.joined);
  }
}

TEST(StringParserTest, JoinsNothingToNothing) {
  TStringParser parser;
  EXPECT_EQ(parser.GetDelimiter(), QStringLiteral(";"));
  EXPECT_EQ(parser.ToString(), QString());
}

TEST(StringParserTest, TellsTheUserOfAnIndexBeyondTheLastValue) {
  QStringList messages;
  const TMessageSink before = SetMessageSink([&messages](const QString &text) { messages.append(text); });
  TStringParser parser;
  parser.FromString(u"a;b");
  EXPECT_NE(parser.GetItems(1), nullptr);
  EXPECT_TRUE(messages.isEmpty());
  EXPECT_EQ(parser.GetItems(3), nullptr);
  EXPECT_EQ(messages, QStringList{QStringLiteral("Error reading object properties from string!")});
  EXPECT_THROW(static_cast<void>(parser.GetItems(-1)), ERangeError);
  EXPECT_THROW(parser.SetItems(2, TParserItem()), ERangeError);
  EXPECT_EQ(messages.size(), 1);
  SetMessageSink(before);
}

TEST(StringParserTest, CopiesItemsButNotTheDelimiter) {
  TStringParser source;
  source.FromString(u"a;b");
  TStringParser copy;
  copy.SetDelimiter(QStringLiteral(","));
  copy.Add().SetAsString(QStringLiteral("old"));
  source.AssignTo(copy);
  source.GetItems(0)->SetAsString(QStringLiteral("changed"));
  EXPECT_EQ(copy.ToString(), QStringLiteral("a,b"));
  copy.SetItems(1, *source.GetItems(0));
  EXPECT_EQ(copy.ToString(), QStringLiteral("a,changed"));
}

TEST(StringParserTest, SplitsAVeryLongLine) {
  TStringParser parser;
  parser.FromString(QStringLiteral("12;").repeated(1'000'000));
  EXPECT_EQ(parser.GetCount(), 1'000'001);
  EXPECT_EQ(parser.GetItems(999'999)->GetAsInteger(), 12);
  EXPECT_EQ(parser.ToString().size(), 3'000'000);
}

TEST(ParserItemTest, ShowsItsTextAsOtherTypes) {
  TParserItem item;
  item.SetRawData(QStringLiteral("1"));
  EXPECT_TRUE(item.GetAsBoolean());
  EXPECT_EQ(item.GetAsInteger(), 1);
  item.SetRawData(QStringLiteral("2"));
  EXPECT_FALSE(item.GetAsBoolean()) << "only 1 is true";
  item.SetRawData(QStringLiteral("2.25"));
  EXPECT_EQ(item.GetAsFloat(), 2.25);
  EXPECT_THROW(static_cast<void>(item.GetAsInteger()), EConvertError);
  EXPECT_THROW(static_cast<void>(item.GetAsBoolean()), EConvertError);
  EXPECT_THROW(static_cast<void>(item.GetAsDate()), EConvertError);
  EXPECT_THROW(static_cast<void>(item.GetAsTime()), EConvertError);
}

TEST(ParserItemTest, TakesValuesOfOtherTypes) {
  QLocale::setDefault(QLocale(QLocale::Russian, QLocale::Russia));
  TParserItem item;
  item.SetAsInteger(-7);
  EXPECT_EQ(item.GetAsString(), QStringLiteral("-7"));
  item.SetAsFloat(-0.5);
  EXPECT_EQ(item.GetAsString(), QStringLiteral("-0,5"));
  item.SetAsBoolean(true);
  EXPECT_EQ(item.GetAsString(), QStringLiteral("1"));
  item.SetAsBoolean(false);
  EXPECT_EQ(item.GetAsString(), QStringLiteral("0"));
  item.SetAsDate(36526);
  EXPECT_EQ(item.GetAsString(), QStringLiteral("01.01.2000"));
  EXPECT_EQ(item.GetAsDate(), 36526);
  item.SetAsTime(0.75);
  EXPECT_EQ(item.GetAsString(), QStringLiteral("18:00:00"));
  EXPECT_EQ(item.GetAsTime(), 0.75);
  QLocale::setDefault(QLocale::c());
}

TEST(ParserItemTest, RoundsMoneyToFourDecimals) {
  TParserItem item;
  item.SetRawData(QStringLiteral("1.23456"));
  EXPECT_EQ(item.GetAsCurrency(), 1.2346);
  item.SetRawData(QStringLiteral("0.03125"));  // a tie
  EXPECT_EQ(item.GetAsCurrency(), 0.0312);
  item.SetAsCurrency(-12.34567);
  EXPECT_EQ(item.GetAsString(), QStringLiteral("-12.3457"));
  item.SetRawData(QStringLiteral("1e15"));
  EXPECT_THROW(static_cast<void>(item.GetAsCurrency()), EConvertError);
}

TEST(ParserItemTest, GivesItsTextToAnother) {
  TParserItem item;
  item.SetRawData(QStringLiteral("x"));
  TParserItem other;
  item.AssignTo(other);
  EXPECT_EQ(other.GetAsString(), QStringLiteral("x"));
}

}  // namespace
}  // namespace tessera
