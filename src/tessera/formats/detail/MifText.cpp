// SPDX-License-Identifier: MIT
#include <tessera/formats/detail/MifText.h>

#include <algorithm>
#include <cstring>

namespace tessera::detail {
namespace {

constexpr unsigned FirstForeign = 0x80;    // codes below it are ASCII
constexpr unsigned FirstLetter = 0xC0;     // from here on the codes follow the Russian alphabet
constexpr char16_t FirstRussian = 0x0410;  // А
constexpr char16_t LastRussian = 0x044F;   // я

/// The characters of the codes 0x80 to 0xBF.
constexpr std::array<char16_t, FirstLetter - FirstForeign> Irregular = {
    0x0402, 0x0403, 0x201A, 0x0453, 0x201E, 0x2026, 0x2020, 0x2021, 0x20AC, 0x2030, 0x0409, 0x2039, 0x040A,
    0x040C, 0x040B, 0x040F, 0x0452, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x0098, 0x2122,
    0x0459, 0x203A, 0x045A, 0x045C, 0x045B, 0x045F, 0x00A0, 0x040E, 0x045E, 0x0408, 0x00A4, 0x0490, 0x00A6,
    0x00A7, 0x0401, 0x00A9, 0x0404, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x0407, 0x00B0, 0x00B1, 0x0406, 0x0456,
    0x0491, 0x00B5, 0x00B6, 0x00B7, 0x0451, 0x2116, 0x0454, 0x00BB, 0x0458, 0x0405, 0x0455, 0x0457};

char16_t CharacterOf(char byte) {
  const unsigned code = static_cast<unsigned char>(byte);
  if (code < FirstForeign) return char16_t(code);
  return code < FirstLetter ? Irregular[code - FirstForeign] : char16_t(FirstRussian + (code - FirstLetter));
}

/// The byte of a character beyond ASCII, 0 when there is none.
char ByteOf(char16_t character) {
  if (character >= FirstRussian && character <= LastRussian) return char(FirstLetter + (character - FirstRussian));
  const auto *found = std::find(Irregular.begin(), Irregular.end(), character);
  return found == Irregular.end() ? '\0' : char(FirstForeign + unsigned(found - Irregular.begin()));
}

void AppendUtf8(char16_t character, std::string &utf8) {
  constexpr unsigned SixBits = 0x3F;
  const unsigned code = character;
  if (code < 0x80) {
    utf8 += char(code);
  } else if (code < 0x800) {
    utf8 += char(0xC0U | code >> 6U);
    utf8 += char(0x80U | (code & SixBits));
  } else {
    utf8 += char(0xE0U | code >> 12U);
    utf8 += char(0x80U | (code >> 6U & SixBits));
    utf8 += char(0x80U | (code & SixBits));
  }
}

}  // namespace

bool IsAscii(std::string_view bytes) {
  constexpr std::uint64_t HighBits = 0x8080808080808080U;
  std::size_t at = 0;
  for (; bytes.size() - at >= sizeof(std::uint64_t); at += sizeof(std::uint64_t)) {
    std::uint64_t eight = 0;
    std::memcpy(&eight, bytes.data() + at, sizeof eight);
    if ((eight & HighBits) != 0) return false;
  }
  return std::all_of(bytes.begin() + std::ptrdiff_t(at), bytes.end(),
                     [](char c) { return static_cast<unsigned char>(c) < FirstForeign; });
}

QString DecodeWindows1251(std::string_view bytes) {
  QString text(qsizetype(bytes.size()), Qt::Uninitialized);
  std::transform(bytes.begin(), bytes.end(), text.begin(), [](char byte) { return QChar(CharacterOf(byte)); });
  return text;
}

void DecodeWindows1251(std::string_view bytes, std::string &utf8) {
  utf8.clear();
  for (const char byte : bytes) AppendUtf8(CharacterOf(byte), utf8);
}

qint64 EncodeWindows1251(QStringView text, std::string &bytes) {
  bytes.clear();
  qint64 unknown = 0;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar c = text[i];
    char byte = c.unicode() < FirstForeign ? char(c.unicode()) : ByteOf(c.unicode());
    if (byte == '\0' && c != u'\0') {
      byte = '?';
      ++unknown;
      const bool isPair = c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
      if (isPair) ++i;
    }
    bytes += byte;
  }
  return unknown;
}

bool IsSameWord(std::string_view one, std::string_view other) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                    [](char a, char b) { return UpperAscii(a) == UpperAscii(b); });
}

std::string_view TrimBytes(std::string_view bytes) {
  const auto isBlank = [](char c) { return static_cast<unsigned char>(c) <= ' '; };
  const auto *first = std::find_if_not(bytes.begin(), bytes.end(), isBlank);
  const auto *last = bytes.end();
  while (last != first && isBlank(last[-1])) --last;
  return {first, std::size_t(last - first)};
}

}  // namespace tessera::detail
