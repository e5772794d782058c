// SPDX-License-Identifier: MIT
#include "../base/LocaleGuard.h"

#include <tessera/base/Exceptions.h>
#include <tessera/base/MessageSink.h>
#include <tessera/formats/StringParserU.h>

#include <QStringList>
#include <gtest/gtest.h>

#include <random>
#include <tuple>

namespace tessera {
namespace {

TEST(StringParserTest, SplitsAtEveryDelimiterAndJoinsAgain) {
  const std::tuple<const char *, const char16_t *, const char *, const char16_t *> cases[] = {
      {",", u"", "<>", u""},
      {",", u"a,,b", "<a><><b>", u"a,,b"},
      {",", u"'x,y'", "<'x><y'>", u"'x,y'"},
      {"::", u"a::b:::c", "<a><b><:c>", u"a::b:::c:"},
      {"", u"a;b", "<a;b>", u"a;"},
  };
  TStringParser parser;
  for (const auto &[delimiter, line, expected, joined] : cases) {
    parser.SetDelimiter(QString::fromLatin1(delimiter));
    parser.FromString(line);
    std::string values;
    for (int i = 0; i < parser.GetCount(); ++i) values += '<' + parser.GetItems(i)->GetAsString().toStdString() + '>';
    EXPECT_EQ(values, expected);
    EXPECT_EQ(parser.ToString(), joined) << values;
  }
}

TEST(StringParserTest, TellsTheUserOfAnIndexBeyondTheLastValue) {
  QStringList messages;
  const TMessageSink before = SetMessageSink([&messages](const QString &text) { messages.append(text); });
  TStringParser parser;
  parser.FromString(u"a;b");
  EXPECT_EQ(parser.GetItems(3), nullptr);
  EXPECT_EQ(messages, QStringList{QStringLiteral("Error reading object properties from string!")});
  EXPECT_THROW(static_cast<void>(parser.GetItems(-1)), ERangeError);
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
  EXPECT_THROW(static_cast<void>(Item("2.25").GetAsInteger()), EConvertError);
  EXPECT_THROW(static_cast<void>(Item("x").GetAsBoolean()), EConvertError);
  EXPECT_EQ(Item("0.03125").GetAsCurrency(), 0.0312) << "a tie";
  EXPECT_THROW(static_cast<void>(Item("1e15").GetAsCurrency()), EConvertError);
}

TEST(ParserItemTest, TakesValuesOfOtherTypes) {
  const test::TLocaleGuard guard(test::Russian());
  TStringParser parser;
  parser.Add().SetAsInteger(-7);
  parser.Add().SetAsFloat(-0.5);
  parser.Add().SetAsCurrency(-12.34567);
  parser.Add().SetAsBoolean(true);
  parser.Add().SetAsBoolean(false);
  parser.Add().SetAsDate(36526);
  parser.Add().SetAsTime(0.75);
  EXPECT_EQ(parser.ToString(), u"-7;-0,5;-12,3457;1;0;01.01.2000;18:00:00");
  for (const char *text : {"", "x", "29.02.2023", "01.01.23", "2023-01-01", "01.01.2000 10:00", "24:00", "10"}) {
    EXPECT_THROW(static_cast<void>(Item(text).GetAsDate()), EConvertError) << text;
    EXPECT_THROW(static_cast<void>(Item(text).GetAsTime()), EConvertError) << text;
  }
  for (const double day : {2958466.0, -693594.0, 1e300})
    EXPECT_THROW(parser.Add().SetAsDate(day), EConvertError) << day;
}

TEST(ParserItemTest, ReadsBackTheDatesThatItWroteInEveryLocale) {
  for (const char16_t *name : {u"C", u"en_US", u"ru_RU", u"de_DE", u"fa_IR", u"ar_EG", u"hu_HU", u"th_TH"}) {
    const test::TLocaleGuard guard{QLocale(QString::fromUtf16(name))};
    std::mt19937 engine(5);
    for (int i = 0; i < 300; ++i) {
      const double date = i == 0 ? -693593 : i == 1 ? 2958465 : int(engine() % 3652059) - 693593;
      const double time = double(engine() % 86400) / 86400;
      TParserItem item;
      item.SetAsDate(date);
      EXPECT_EQ(item.GetAsDate(), date) << item.GetAsString().toStdString();
      item.SetAsTime(time);
      EXPECT_EQ(item.GetAsTime(), time) << item.GetAsString().toStdString();
    }
  }
}

}  // namespace
}  // namespace tessera
