// SPDX-License-Identifier: MIT
#include "Header.h"

#include <tessera/formats/detail/MapInfoCharsets.h>

#include <cpl_conv.h>
#include <cpl_string.h>
#include <cpl_vsi.h>

#include <algorithm>
#include <charconv>
#include <memory>
#include <vector>

namespace tessera::mitab {
namespace {

constexpr std::size_t MostLines = 2000;
constexpr int LongestLine = 10000;

bool IsWord(const std::string &word, const char *expected) {
  return EQUAL(word.c_str(), expected);
}

/// Words and numbers; what stands in quotes is one word, brackets and commas only separate.
std::vector<std::string> WordsOf(const std::string &line) {
  const CPLStringList words(CSLTokenizeString2(line.c_str(), " \t(),;", CSLT_HONOURSTRINGS));
  std::vector<std::string> answer;
  answer.reserve(std::size_t(words.size()));
  for (int i = 0; i < words.size(); ++i) answer.emplace_back(words[i]);
  return answer;
}

int NumberAt(const std::vector<std::string> &words, std::size_t at) {
  int number = 0;
  if (at < words.size()) std::from_chars(words[at].data(), words[at].data() + words[at].size(), number);
  return number;
}

ColumnType TypeNamed(const std::string &word) {
  constexpr const char *Names[] = {"",      "Char", "Integer", "SmallInt", "Decimal",
                                   "Float", "Date", "Logical", "Time",     "DateTime"};
  for (int i = 1; i <= LastColumnType; ++i) {
    if (IsWord(word, Names[i])) return ColumnType(i);
  }
  return ColumnType::None;
}

/// Reads the lines of a definition one after the other.
class HeaderReader {
 public:
  /// False at the end of the definition.
  bool Read(const std::string &line) {
    const std::vector<std::string> words = WordsOf(line);
    if (words.empty()) return true;
    if (m_columnsLeft > 0) return ReadColumn(words);
    if (IsWord(words[0], "Data") || IsWord(words[0], "begin_metadata")) return false;
    ReadStatement(line, words);
    return true;
  }

  Header TakeHeader() {
    for (const int index : m_uniques) MarkUnique(index);
    return std::move(m_header);
  }

 private:
  bool ReadColumn(const std::vector<std::string> &words) {
    --m_columnsLeft;
    Column column{.name = words[0], .type = words.size() > 1 ? TypeNamed(words[1]) : ColumnType::None};
    column.width = NumberAt(words, 2);
    column.precision = NumberAt(words, 3);
    column.isIndexed =
        std::any_of(words.begin() + 1, words.end(), [](const auto &word) { return IsWord(word, "Index"); });
    m_header.columns.push_back(std::move(column));
    return true;
  }

  void ReadStatement(const std::string &line, const std::vector<std::string> &words) {
    if (IsWord(words[0], "Fields") || IsWord(words[0], "Columns")) m_columnsLeft = NumberAt(words, 1);
    if (IsWord(words[0], "CoordSys")) ReadCoordSys(line);
    if (IsWord(words[0], "!charset") && words.size() > 1) m_header.charset = words[1];
    if (IsWord(words[0], "Type")) ReadType(words);
    if (IsWord(words[0], "Index") || IsWord(words[0], "Unique")) MarkColumns(words);
  }

  /// Such as `Type NATIVE Charset "WindowsLatin1"`.
  void ReadType(const std::vector<std::string> &words) {
    constexpr std::size_t CharsetAt = 3;
    const bool isSame = words.size() <= CharsetAt || IsWord(words[CharsetAt], m_header.charset.c_str());
    m_header.isNative = words.size() > 1 && IsWord(words[1], "NATIVE") && isSame;
  }

  void ReadCoordSys(const std::string &line) {
    constexpr std::size_t WordLength = 8;
    const std::size_t begin = line.find_first_not_of(" \t") + WordLength;
    const std::size_t bounds = CPLString(line).ifind("Bounds");
    m_header.coordSys = CPLString(line.substr(begin, bounds == std::string::npos ? bounds : bounds - begin)).Trim();
  }

  /// Those of a .mif file stand before its columns.
  void MarkColumns(const std::vector<std::string> &words) {
    for (std::size_t i = 1; i < words.size(); ++i) {
      m_uniques.push_back(IsWord(words[0], "Unique") ? NumberAt(words, i) : -NumberAt(words, i));
    }
  }
  void MarkUnique(int index) {
    const auto at = std::size_t(std::abs(index)) - 1;
    if (at >= m_header.columns.size()) return;
    m_header.columns[at].isIndexed = true;
    m_header.columns[at].isUnique |= index > 0;
  }

  Header m_header;
  int m_columnsLeft = 0;
  std::vector<int> m_uniques;  // negative those that are only indexed
};

}  // namespace

Header ReadHeader(const std::string &fileName) {
  const std::unique_ptr<VSILFILE, int (*)(VSILFILE *)> file(VSIFOpenL(fileName.c_str(), "rb"), VSIFCloseL);
  if (!file) return {};
  HeaderReader reader;
  for (std::size_t i = 0; i < MostLines; ++i) {
    const char *line = CPLReadLine2L(file.get(), LongestLine, nullptr);
    if (line == nullptr || !reader.Read(line)) break;
  }
  CPLReadLineL(nullptr);  // gives back its buffer
  return reader.TakeHeader();
}

std::optional<std::string> EncodingOf(const std::string &charset) {
  for (const auto &row : tessera::detail::MapInfoCharsets) {
    if (EQUAL(row.name, charset.c_str())) return row.encoding;
  }
  return std::nullopt;
}

}  // namespace tessera::mitab
