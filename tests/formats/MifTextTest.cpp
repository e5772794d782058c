// SPDX-License-Identifier: MIT
#include <tessera/formats/detail/MifText.h>

#include <QStringDecoder>
#include <gtest/gtest.h>

namespace tessera {
namespace {

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

TEST(MifTextTest, PutsOneQuestionMarkForEachUnknownCharacter) {
  std::string bytes;
  EXPECT_EQ(EncodeWindows1251(u"a\u00E9\U0001F600\u0416", bytes), 2);
  EXPECT_EQ(bytes, "a??\xC6");
  const char16_t lonely[] = {0xD83D, u'b', 0};
  EXPECT_EQ(EncodeWindows1251(lonely, bytes), 1);
  EXPECT_EQ(bytes, "?b");
}

TEST(MifTextTest, TellsAsciiWhereverTheOtherByteStands) {
  for (std::size_t at = 0; at < 20; ++at) {
    std::string text(20, 'x');
    EXPECT_TRUE(detail::IsAscii(text));
    text[at] = '\x80';
    EXPECT_FALSE(detail::IsAscii(text)) << at;
  }
}

}  // namespace
}  // namespace tessera
