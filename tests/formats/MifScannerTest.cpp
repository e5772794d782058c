// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/formats/detail/MifScanner.h>

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace tessera {
namespace {

struct TText {
  detail::MemorySource source;
};

/// A scanner with its text.
class TTextScanner : private TText, public detail::MifScanner {
 public:
  explicit TTextScanner(std::string_view text, std::size_t window = DefaultWindow)
      : TText{detail::MemorySource(text)}, MifScanner(source, '.', window) {}
};

TEST(MifScannerTest, EndsLinesAtFeedsReturnsAndPairsOfThem) {
  const std::pair<std::string_view, std::string_view> cases[] = {{"a\n\nb", "<a><><b>"},
                                                                 {"a\r\n\r\nb\r\n", "<a><><b>"},
                                                                 {"a\r\rb\r", "<a><><b>"},
                                                                 {"a\r\n\rb\n", "<a><><b>"},
                                                                 {"", ""}};
  for (const auto &[text, expected] : cases) {
    std::string lines;
    for (TTextScanner scanner(text); !scanner.AtEnd();) lines.append("<").append(scanner.ReadLine()).append(">");
    EXPECT_EQ(lines, expected);
  }
}

TEST(MifScannerTest, CountsLinesAsItReadsThem) {
  std::mt19937 random(5);
  for (int i = 0; i < 2000; ++i) {
    std::string text(random() % 40, 'x');
    for (char &c : text) c = "\r\nx"[random() % 3];
    TTextScanner scanner(text, 1 + random() % 20);
    for (int line = 1; !scanner.AtEnd(); ++line) {
      scanner.ReadLine();
      if (random() % 2 != 0) continue;
      ASSERT_EQ(scanner.GetLine(), line);
    }
  }
}

/// What a scanner answers to random questions, the same for the same seed.
std::string Answers(TTextScanner &&scanner, unsigned seed) {
  std::mt19937 random(seed);
  std::string answers;
  TMapPoint vertices[3];
  while (!scanner.AtEnd()) {
    int count = 0;
    TBounds bounds = TBounds::Empty();
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
          const std::size_t done = scanner.ReadVertices(vertices, 3, bounds);
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

TEST(MifScannerTest, ReadsTheSameThroughAWindowOfAnySize) {
  std::mt19937 random(11);
  for (int i = 0; i < 5000; ++i) {
    std::string text(random() % 60, ' ');
    for (char &c : text) c = "\r\n\n  \t123.-e5x"[random() % 1000 < 20 ? 13 : random() % 13];
    const auto seed = unsigned(random());
    ASSERT_EQ(Answers(TTextScanner(text, 1 + random() % 30), seed), Answers(TTextScanner(text), seed)) << text;
  }
}

TEST(MifScannerTest, ReadsVerticesAcrossLinesAndPassesTheRestOfALine) {
  TTextScanner scanner(" 1 2 rest 9 9\r\n\n\t3\n4\r5 6");
  TMapPoint vertices[4];
  TBounds bounds = TBounds::Empty();
  ASSERT_EQ(scanner.ReadVertices(vertices, 4, bounds), 3U);
  EXPECT_EQ(vertices[0], (TMapPoint{1, 2}));
  EXPECT_EQ(vertices[1], (TMapPoint{3, 4}));
  EXPECT_EQ(vertices[2], (TMapPoint{5, 6}));
  EXPECT_EQ(bounds, (TBounds{1, 2, 5, 6}));
  EXPECT_NO_THROW(scanner.ThrowIfMalformed());
  EXPECT_TRUE(scanner.AtEnd());
}

TEST(MifScannerTest, StopsBeforeAMalformedNumberAndNamesIt) {
  for (const char *bad : {"1x", "nan", "inf", "1,5", "--1", "1e999", "\"1\"", "."}) {
    const std::string text = "1 1\n2 2\n3 " + std::string(bad) + "\n4 4\n";
    TTextScanner scanner(text);
    TMapPoint vertices[4];
    TBounds bounds = TBounds::Empty();
    EXPECT_EQ(scanner.ReadVertices(vertices, 4, bounds), 2U) << bad;
    EXPECT_EQ(scanner.GetLine(), 3) << bad;
    try {
      scanner.ThrowIfMalformed();
      ADD_FAILURE() << bad;
    } catch (const EConvertError &error) {
      EXPECT_EQ(std::string(error.what()), "'" + std::string(bad) + "' is not a valid floating point value");
    }
  }
}

TEST(MifScannerTest, ReadsACountAndPassesTheRestOfItsLine) {
  TTextScanner scanner("\n  12 points\n-3\r\n x");
  int count = 0;
  ASSERT_TRUE(scanner.ReadCount(count));
  EXPECT_EQ(count, 12);
  ASSERT_TRUE(scanner.ReadCount(count));
  EXPECT_EQ(count, -3);
  EXPECT_THROW(scanner.ReadCount(count), EConvertError);
  EXPECT_EQ(scanner.GetLine(), 4);
  TTextScanner blank(" \n\t");
  EXPECT_FALSE(blank.ReadCount(count));
}

TEST(MifScannerTest, KnowsHowManyVerticesMayFollowAtMost) {
  for (std::size_t lines = 0; lines < 10; ++lines) {
    std::string text;
    for (std::size_t i = 0; i < lines; ++i) text += "0 0\n";
    EXPECT_GE(TTextScanner(text).MostVertices(), lines);
    EXPECT_LE(TTextScanner(text).MostVertices(), lines + 1);
  }
}

}  // namespace
}  // namespace tessera
