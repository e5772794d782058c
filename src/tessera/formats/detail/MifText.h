// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QString>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace tessera::detail {

// The bytes of a MIF pair are text in windows-1251.

/// The lines of a header that are always written alike.
inline constexpr std::string_view VersionLine = "Version 300";
inline constexpr std::string_view CharsetLine = "Charset \"WindowsCyrillic\"";
inline constexpr std::string_view CoordSysLine = "CoordSys Earth Projection 1, 0";
inline constexpr std::string_view DataLine = "Data";

/// The text of `bytes`. The one code without a character, 0x98, becomes U+0098, so that no two texts are the same.
[[nodiscard]] TESSERA_CORE_EXPORT QString DecodeWindows1251(std::string_view bytes);
/// Replaces `utf8` by the text of `bytes` as UTF-8.
TESSERA_CORE_EXPORT void DecodeWindows1251(std::string_view bytes, std::string &utf8);
/// Replaces `bytes` by `text`. A character that the encoding does not have becomes a question mark; the answer is their
/// number.
TESSERA_CORE_EXPORT qint64 EncodeWindows1251(QStringView text, std::string &bytes);

[[nodiscard]] TESSERA_CORE_EXPORT bool IsAscii(std::string_view bytes);

/// A blank, a tab or the end of a line: what may stand between two numbers.
[[nodiscard]] constexpr bool IsMifBlank(char c) {
  return c == ' ' || c == '\n' || c == '\r' || c == '\t';
}

/// Without the bytes up to and including the blank at both ends.
[[nodiscard]] TESSERA_CORE_EXPORT std::string_view TrimBytes(std::string_view bytes);

[[nodiscard]] constexpr char UpperAscii(char c) {
  return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c;
}

/// Whether two texts are the same but for the case of ASCII letters.
[[nodiscard]] TESSERA_CORE_EXPORT bool IsSameWord(std::string_view one, std::string_view other);

/// Some words in capitals, to be looked for in lines all at once and regardless of case.
template <std::size_t Count>
class KeywordSet {
 public:
  static constexpr std::size_t NotFound = std::string_view::npos;

  explicit constexpr KeywordSet(const std::array<std::string_view, Count> &words) : m_words(words) {
    static_assert(Count <= 8, "a byte has a bit for each word");
    for (std::size_t i = 0; i < Count; ++i) {
      const auto bit = std::uint8_t(1U << i);
      m_startersOf[Code(words[i][0])] |= bit;
      m_startersOf[Code(char(words[i][0] - 'A' + 'a'))] |= bit;
    }
  }

  /// Where in `line` each word occurs first.
  [[nodiscard]] std::array<std::size_t, Count> Find(std::string_view line) const {
    std::array<std::size_t, Count> places;
    places.fill(NotFound);
    for (std::size_t at = 0; at < line.size(); ++at) {
      unsigned starters = m_startersOf[Code(line[at])];
      for (std::size_t i = 0; starters != 0; ++i, starters >>= 1U) {
        if ((starters & 1U) != 0 && places[i] == NotFound && StartsWith(line.substr(at), m_words[i])) places[i] = at;
      }
    }
    return places;
  }

  /// Index of the last of the words that occur in `line`, by their order here; -1 when none does.
  [[nodiscard]] int FindLast(std::string_view line) const {
    const auto places = Find(line);
    int last = int(Count) - 1;
    while (last >= 0 && places[std::size_t(last)] == NotFound) --last;
    return last;
  }

  /// What follows word `index` in `line`, when it stands at `place`.
  [[nodiscard]] std::string_view After(std::string_view line, std::size_t index, std::size_t place) const {
    return line.substr(place + m_words[index].size());
  }

 private:
  static constexpr std::size_t Code(char c) { return static_cast<unsigned char>(c); }
  static bool StartsWith(std::string_view text, std::string_view word) {
    if (text.size() < word.size()) return false;
    for (std::size_t i = 0; i < word.size(); ++i) {
      if (UpperAscii(text[i]) != word[i]) return false;
    }
    return true;
  }

  std::array<std::string_view, Count> m_words;
  std::array<std::uint8_t, 256> m_startersOf{};  // by byte: the words that begin with it
};

}  // namespace tessera::detail
