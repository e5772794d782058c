// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/detail/Numbers.h>
#include <tessera/formats/detail/MifItems.h>
#include <tessera/formats/detail/MifText.h>

namespace tessera::detail {
namespace {

constexpr char Quote = '"';
constexpr char CommentMark = '\'';

enum class ByteRole : std::uint8_t { Ordinary, Dropped, Item };

/// Delimiters, and whether they become items of their own.
constexpr std::array<ByteRole, 256> Roles = [] {
  std::array<ByteRole, 256> roles{};
  for (const char c : std::string_view("\t\n\r*/:;=")) roles[static_cast<unsigned char>(c)] = ByteRole::Item;
  for (const char c : std::string_view(" (),")) roles[static_cast<unsigned char>(c)] = ByteRole::Dropped;
  return roles;
}();

}  // namespace

bool MifItems::Add(std::string_view item) {
  if (!item.empty()) m_items[std::size_t(m_count++)] = item == "\t" ? std::string_view(" ") : item;
  return m_count < MaxCount;
}

void MifItems::Read(std::string_view line, char ordinary) {
  m_count = 0;
  std::size_t start = 0;  // of the current item, which always reaches up to the current byte
  std::size_t at = 0;
  const auto addToken = [&](std::size_t end) {
    const std::string_view token = line.substr(start, end - start);
    start = end;
    return Add(token);
  };
  while (at < line.size()) {
    const char c = line[at];
    if (c == CommentMark) {
      if (addToken(at)) Add(line.substr(at));
      return;
    }
    if (c == Quote) {
      if (!addToken(at)) return;
      const std::size_t end = line.find(Quote, at + 1);
      at = end == std::string_view::npos ? line.size() : end + 1;
      if (!addToken(at)) return;
      continue;
    }
    const ByteRole role = c == ordinary ? ByteRole::Ordinary : Roles[static_cast<unsigned char>(c)];
    if (role != ByteRole::Ordinary) {
      if (!addToken(at)) return;
      if (role == ByteRole::Item && !Add(line.substr(at, 1))) return;
      start = at + 1;
    }
    ++at;
  }
  addToken(line.size());
}

std::string_view MifItems::At(int index) const {
  return m_items[CheckedIndex(index, std::size_t(m_count), "Syntax item")];
}

int MifItems::IntegerAt(int index) const {
  return BytesToInt(At(index));
}

double MifItems::FloatAt(int index, char separator) const {
  return BytesToFloat(At(index), separator);
}

int BytesToInt(std::string_view bytes) {
  const char *last = bytes.data() + bytes.size();
  int value = 0;
  return ReadInt(bytes.data(), last, value) == last ? value : StrToInt(DecodeWindows1251(bytes));
}

double BytesToFloat(std::string_view bytes, char separator) {
  const char *last = bytes.data() + bytes.size();
  double value = 0;
  return ReadFloat(bytes.data(), last, separator, value) == last ? value : StrToFloat(DecodeWindows1251(bytes));
}

}  // namespace tessera::detail
