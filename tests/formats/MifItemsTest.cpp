// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/formats/StringParserU.h>
#include <tessera/formats/SyntaxParser.h>
#include <tessera/formats/detail/MidReader.h>
#include <tessera/formats/detail/MifItems.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace tessera {
namespace {

std::string RandomText(std::mt19937 &random, std::string_view alphabet, int maxLength) {
  std::string text(std::uniform_int_distribution<std::size_t>(0, std::size_t(maxLength))(random), ' ');
  for (char &c : text) c = alphabet[std::uniform_int_distribution<std::size_t>(0, alphabet.size() - 1)(random)];
  return text;
}

/// The parser with the settings whose result the fast cutting gives.
class TMifSyntaxParser : public TSyntaxParser {
 public:
  TMifSyntaxParser() {
    TCharSet delimiters = GetDelimiters();
    delimiters.Exclude(u"+-.");
    SetDelimiters(delimiters);
    SetSkipChars(TCharSet(u" (),BCEFHLMNOPRSTUYbcefhlmnoprstuy"));
  }
};

TEST(MifItemsTest, CutsRandomLinesAsTheSyntaxParserDoes) {
  std::mt19937 random(20240517);
  TMifSyntaxParser plain;
  detail::MifItems fast;
  for (int i = 0; i < 20'000; ++i) {
    const std::string line = RandomText(random, "aPe19.-+ ,()\"'\t:;=/*", 24);
    plain.Read(QString::fromLatin1(line.data(), qsizetype(line.size())), 0, true, false);
    fast.Read(line);
    const int count = std::min(plain.GetCount(), detail::MifItems::MaxCount);
    ASSERT_EQ(fast.GetCount(), count) << line;
    for (int k = 0; k < count; ++k) ASSERT_EQ(fast.At(k), plain.GetItem(k).Value.toStdString()) << line;
    EXPECT_THROW(static_cast<void>(fast.At(count)), ERangeError);
  }
}

std::vector<std::string> SplitFast(std::string_view line, std::string_view delimiter) {
  detail::MidSplitter splitter;
  splitter.SetDelimiter(delimiter);
  splitter.SetLine(line);
  std::vector<std::string> values;
  while (!splitter.AtEnd()) values.emplace_back(splitter.Next());
  return values;
}

std::vector<std::string> SplitPlain(const std::string &line, const std::string &delimiter) {
  TStringParser parser;
  parser.SetDelimiter(QString::fromStdString(delimiter));
  parser.FromString(QString::fromStdString(line));
  std::vector<std::string> values;
  for (int i = 0; i < parser.GetCount(); ++i) values.push_back(parser.GetItems(i)->GetAsString().toStdString());
  return values;
}

TEST(MidSplitterTest, SplitsRandomLinesAsTheStringParserDoes) {
  detail::MidSplitter splitter;
  splitter.SetLine("a;b,c");
  EXPECT_EQ(splitter.Next(), "a") << "semicolons divide at first";
  std::mt19937 random(71);
  for (int i = 0; i < 20'000; ++i) {
    const std::string delimiter = RandomText(random, "ab", 5);
    const std::string line = RandomText(random, "aab,", 30);
    ASSERT_EQ(SplitFast(line, delimiter), SplitPlain(line, delimiter)) << '<' << line << "> <" << delimiter << '>';
  }
}

}  // namespace
}  // namespace tessera
