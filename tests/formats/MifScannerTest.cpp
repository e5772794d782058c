// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/formats/StringParserU.h>
#include <tessera/formats/SyntaxParser.h>
#include <tessera/formats/detail/MidSplitter.h>
#include <tessera/formats/detail/MifItems.h>
#include <tessera/formats/detail/MifScanner.h>
#include <tessera/formats/detail/MifText.h>

#include <QStringDecoder>
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

TEST(MifItemsTest, CutsRandomLinesAsTheSyntaxParserDoes) {
  std::mt19937 random(20240517);
  TSyntaxParser plain;
  TCharSet delimiters = plain.GetDelimiters();
  delimiters.Exclude(u"+-.");
  plain.SetDelimiters(delimiters);
  plain.SetSkipChars(TCharSet(u" (),BCEFHLMNOPRSTUYbcefhlmnoprstuy"));
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

TEST(MidSplitterTest, SplitsRandomLinesAsTheStringParserDoes) {
  std::mt19937 random(71);
  TStringParser plain;
  detail::MidSplitter fast;
  for (int i = 0; i < 20'000; ++i) {
    const std::string delimiter = RandomText(random, "ab", 5);
    const std::string line = RandomText(random, "aab,", 30);
    plain.SetDelimiter(QString::fromStdString(delimiter));
    plain.FromString(QString::fromStdString(line));
    fast.SetDelimiter(delimiter);
    fast.SetLine(line);
    for (int k = 0; k < plain.GetCount(); ++k) {
      ASSERT_FALSE(fast.AtEnd());
      ASSERT_EQ(fast.Next(), plain.GetItems(k)->GetAsString().toStdString())
          << '<' << line << "> <" << delimiter << '>';
    }
    ASSERT_TRUE(fast.AtEnd()) << line;
  }
}

TEST(MifScannerTest, EndsAndCountsLinesAtFeedsReturnsAndPairsOfThem) {
  for (const char *text : {"a\n\nb", "a\r\n\r\nb\r\n", "a\r\rb\r", "a\r\n\rb\n"}) {
    detail::MemorySource source{std::string_view(text)};
    detail::MifScanner scanner(source, '.');
    std::string lines;
    for (; !scanner.AtEnd(); lines += std::to_string(scanner.GetLine())) lines += scanner.ReadLine();
    EXPECT_EQ(lines, "a12b3");
  }
}

/// What a scanner answers to random questions, the same for the same seed.
std::string Answers(std::string_view text, unsigned seed, std::size_t window = detail::MifScanner::DefaultWindow,
                    const detail::LookAheadLimits &limits = detail::LookAheadLimits::Nothing()) {
  detail::MemorySource source(text);
  detail::MifScanner scanner(source, '.', window, limits);
  std::mt19937 random(seed);
  std::string answers;
  TMapPoint vertices[3];
  while (!scanner.AtEnd()) {
    int count = 0;
    try {
      switch (random() % 4) {
        case 0: {
          const std::string_view line = scanner.ReadLine();
          answers += scanner.AtEnd() ? "end " : "";
          answers.append(line) += ';';
          break;
        }
        case 1:
          answers += scanner.LineHoldsOneItem() ? "one;" : "more;";
          break;
        case 2:
          answers += scanner.ReadCount(count) ? std::to_string(count) + ';' : "none;";
          break;
        default: {
          const std::size_t done = scanner.ReadVertices(vertices, 3);
          for (std::size_t i = 0; i < done; ++i) answers += std::to_string(vertices[i].X + 3 * vertices[i].Y) + ' ';
          scanner.ThrowIfMalformed();
        }
      }
    } catch (const EConvertError &error) {
      return answers + error.what() + std::to_string(scanner.GetLine());
    }
    answers += std::to_string(scanner.GetPosition()) + '/' + std::to_string(scanner.GetLine()) + '\n';
  }
  return answers;
}

/// Lines of two numbers, mostly, and what stands between them or looks like them.
std::string RandomLines(std::mt19937 &random) {
  const char *pieces[] = {"1 2\n", "-3.5  4\r\n", "\t7 8 \n", "9 1", "\n",     "\r",
                          " ",     "12\n",        "1e2 3\n",  "5x",  "2 3 4\n"};
  std::string text;
  for (std::size_t i = random() % 25; i > 0; --i)
    text += pieces[random() % (random() % 8 == 0 ? std::size(pieces) : 9)];
  return text;
}

// Benchmark rows "load": the window slides, and vertices are read ahead.
TEST(MifScannerTest, ReadsTheSameThroughAWindowOfAnySizeAndWithVerticesReadAhead) {
  std::mt19937 random(11);
  for (int i = 0; i < 5000; ++i) {
    std::string text(random() % 60, ' ');
    for (char &c : text) c = "\r\n\n  \t123.-e5x"[random() % 1000 < 20 ? 13 : random() % 13];
    if (i % 2 == 0) text = RandomLines(random);
    const auto seed = unsigned(random());
    const std::string plain = Answers(text, seed);
    const std::size_t window = 1 + random() % 30;
    ASSERT_EQ(Answers(text, seed, window), plain) << text;
    const detail::LookAheadLimits limits{
        .chunkBytes = qint64(1 + random() % 20), .chunks = qint64(1 + random() % 4), .leastBytes = 0};
    ASSERT_EQ(Answers(text, seed, window, limits), plain) << text << " in chunks of " << limits.chunkBytes;
  }
}

TEST(MifScannerTest, ListsTheVerticesThatStandInLinesOfTheirOwn) {
  const std::string_view text = "5\n1 2\n 3\t4 \r\n\nPen (1,2,3)\n5e1 6\r7 8 9\n1\n2 3\n4 5";
  detail::MemorySource source(text);
  const auto listed = [&](qint64 begin, qint64 end) {
    detail::VertexTable table;
    detail::MifScanner(source, '.', 4).ListVertices(begin, end, table);
    std::string found;
    for (qint64 at = 0; at < qint64(text.size()); at = table.GetNextBegin(qint64(text.size()))) {
      TMapPoint vertex{};
      const auto taken = table.Take(at, &vertex, 1);
      if (taken.count == 0) continue;
      found += std::to_string(at) + ':' + std::to_string(int(vertex.X)) + ',' + std::to_string(int(vertex.Y)) + ' ';
    }
    return found;
  };
  EXPECT_EQ(listed(0, qint64(text.size())), "2:1,2 6:3,4 26:50,6 40:2,3 ");
  EXPECT_EQ(listed(3, 7), "6:3,4 ") << "what begins in the chunk, though it ends behind";
  EXPECT_EQ(listed(7, 26), "");
}

using detail::DecodeWindows1251;
using detail::EncodeWindows1251;

TEST(MifTextTest, EncodesWhatItDecodedAndDecodesEveryByteAsThePlatformDoes) {
  std::string all;
  for (int code = 0; code < 256; ++code) all += char(code);
  std::string bytes;
  EXPECT_EQ(EncodeWindows1251(DecodeWindows1251(all), bytes), 0);
  EXPECT_EQ(bytes, all);
  QStringDecoder decoder("windows-1251");
  if (!decoder.isValid()) GTEST_SKIP() << "this Qt has no such decoder";
  for (int code = 0; code < 256; ++code) {
    if (code == 0x98) continue;  // has no character; checked below
    const char byte = char(code);
    const QString expected = decoder.decode(QByteArrayView(&byte, 1));
    std::string utf8;
    DecodeWindows1251(std::string_view(&byte, 1), utf8);
    EXPECT_EQ(DecodeWindows1251(std::string_view(&byte, 1)), expected) << code;
    EXPECT_EQ(QString::fromUtf8(utf8.data(), qsizetype(utf8.size())), expected) << code;
  }
}

}  // namespace
}  // namespace tessera
