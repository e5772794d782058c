// SPDX-License-Identifier: MIT
#include "../base/LocaleGuard.h"

#include <tessera/base/Exceptions.h>
#include <tessera/base/MessageSink.h>
#include <tessera/formats/StringParserU.h>

#include <QStringList>
#include <gtest/gtest.h>

namespace tessera {
namespace {

TEST(StringParserTest, SplitsAtEveryDelimiterAndJoinsAgain) {
  const struct {
    const char16_t *delimiter;
    const char16_t *line;
    const char *values;
    const char16_t *joined;
  } cases[] = {
      {u",", u"", "<>", u""},
      {u",", u"a,,b", "<a><><b>", u"a,,b"},
      {u",", u",", "<><>", u","},
      {u",", u"'x,y'", "<'x><y'>", u"'x,y'"},
      {u"::", u"a::b:::c", "<a><b><:c>", u"a::b:::c:"},
      {u"x", u"aXbxc", "<aXb><c>", u"aXbxc"},
      {u"", u"a;b", "<a;b>", u"a;"},
  };
  TStringParser parser;
  EXPECT_EQ(parser.GetDelimiter(), u";");
  EXPECT_EQ(parser.ToString(), QString());
  for (const auto &test : cases) {
    parser.SetDelimiter(QString::fromUtf16(test.delimiter));
    parser.FromString(test.line);
    std::string values;
    for (int i = 0; i < parser.GetCount(); ++i) values += '<' + parser.GetItems(i)->GetAsString().toStdString() + '>';
    EXPECT_EQ(values, test.values);
    EXPECT_EQ(parser.ToString(), test.joined) << values;
  }
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

TParserItem Item(const char *text) {
  TParserItem item;
  item.SetRawData(QString::fromLatin1(text));
  return item;
}

TEST(ParserItemTest, ShowsItsTextAsOtherTypes) {
  EXPECT_TRUE(Item("1").GetAsBoolean());
  EXPECT_FALSE(Item("2").GetAsBoolean()) << "only 1 is true";
  EXPECT_EQ(Item("2.25").GetAsFloat(), 2.25);
  for (const TParserItem &item : {Item("2.25"), Item("x")}) {
    EXPECT_THROW(static_cast<void>(item.GetAsInteger()), EConvertError);
    EXPECT_THROW(static_cast<void>(item.GetAsBoolean()), EConvertError);
    EXPECT_THROW(static_cast<void>(item.GetAsDate()), EConvertError);
    EXPECT_THROW(static_cast<void>(item.GetAsTime()), EConvertError);
  }
  EXPECT_EQ(Item("1.23456").GetAsCurrency(), 1.2346);
  EXPECT_EQ(Item("0.03125").GetAsCurrency(), 0.0312) << "a tie";
  EXPECT_THROW(static_cast<void>(Item("1e15").GetAsCurrency()), EConvertError);
}

TEST(ParserItemTest, TakesValuesOfOtherTypes) {
  const test::TLocaleGuard guard(test::Russian());
  const std::pair<void (*)(TParserItem &), const char16_t *> rows[] = {
      {[](TParserItem &item) { item.SetAsInteger(-7); }, u"-7"},
      {[](TParserItem &item) { item.SetAsFloat(-0.5); }, u"-0,5"},
      {[](TParserItem &item) { item.SetAsCurrency(-12.34567); }, u"-12,3457"},
      {[](TParserItem &item) { item.SetAsBoolean(true); }, u"1"},
      {[](TParserItem &item) { item.SetAsBoolean(false); }, u"0"},
      {[](TParserItem &item) { item.SetAsDate(36526); }, u"01.01.2000"},
      {[](TParserItem &item) { item.SetAsTime(0.75); }, u"18:00:00"}};
  for (const auto &[set, text] : rows) {
    TParserItem item;
    set(item);
    EXPECT_EQ(item.GetAsString(), text);
  }
  EXPECT_EQ(Item("01.01.2000").GetAsDate(), 36526);
  EXPECT_EQ(Item("18:00:00").GetAsTime(), 0.75);
}

}  // namespace
}  // namespace tessera
