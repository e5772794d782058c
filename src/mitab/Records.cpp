// SPDX-License-Identifier: MIT
#include "Records.h"

#include <cpl_conv.h>
#include <cpl_string.h>
#include <cpl_vsi.h>

#include <algorithm>
#include <optional>

namespace tessera::mitab {
namespace {

constexpr std::size_t BlockSize = 32;  // of the header itself, and of each column in it

/// The width of the values of a type, 0 where the column tells it; none for a type that is left to GDAL.
std::optional<std::size_t> WidthOf(ColumnType type) {
  switch (type) {
    case ColumnType::Char:
    case ColumnType::Decimal:
      return 0;
    case ColumnType::Integer:
      return sizeof(std::int32_t);
    case ColumnType::SmallInt:
      return sizeof(std::int16_t);
    case ColumnType::Float:
      return sizeof(double);
    case ColumnType::Logical:
      return 1;
    default:
      return std::nullopt;
  }
}

/// Nothing of a file that is larger than what is worth holding.
Bytes ReadWhole(const std::string &fileName) {
  constexpr vsi_l_offset Most = vsi_l_offset(1) << 30U;
  const std::unique_ptr<VSILFILE, int (*)(VSILFILE *)> file(VSIFOpenL(fileName.c_str(), "rb"), VSIFCloseL);
  VSIStatBufL info;
  if (!file || VSIStatL(fileName.c_str(), &info) != 0 || vsi_l_offset(info.st_size) > Most) return {};
  Bytes bytes(std::size_t(info.st_size));
  bytes.resize(VSIFReadL(bytes.data(), 1, bytes.size(), file.get()));
  return bytes;
}

bool IsAscii(const std::string &text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80U; });
}

}  // namespace

Bytes ReadCompanion(const std::string &tabName, const std::string &ending) {
  Bytes bytes = ReadWhole(CPLResetExtension(tabName.c_str(), ending.c_str()));
  return bytes.empty() ? ReadWhole(CPLResetExtension(tabName.c_str(), CPLString(ending).toupper().c_str())) : bytes;
}

std::shared_ptr<const Records> Records::Open(const std::string &tabName, const Columns &columns, std::string encoding) {
  std::shared_ptr<Records> records(new Records);
  records->m_bytes = ReadCompanion(tabName, "dat");
  records->m_encoding = std::move(encoding);
  return records->Lay(columns) ? records : nullptr;
}

bool Records::Lay(const Columns &columns) {
  constexpr std::size_t CountAt = 4;
  constexpr std::size_t HeaderSizeAt = 8;
  constexpr std::size_t RecordSizeAt = 10;
  constexpr std::size_t WidthAt = 16;
  if (m_bytes.size() < BlockSize * (columns.size() + 1)) return false;
  m_headerSize = mitab::NumberIn<std::uint16_t>(m_bytes, HeaderSizeAt);
  m_recordSize = mitab::NumberIn<std::uint16_t>(m_bytes, RecordSizeAt);
  if (m_headerSize < BlockSize * (columns.size() + 1) || m_headerSize > m_bytes.size()) return false;
  std::size_t offset = 1;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const std::size_t width = m_bytes[BlockSize * (i + 1) + WidthAt];
    const auto expected = WidthOf(columns[i].type);
    if (!expected || width == 0 || (*expected != 0 && *expected != width)) return false;
    m_places.push_back({offset, width});
    offset += width;
  }
  if (m_recordSize < offset) return false;
  const std::size_t room = (m_bytes.size() - m_headerSize) / m_recordSize;
  m_count = int(std::min<std::size_t>(mitab::NumberIn<std::uint32_t>(m_bytes, CountAt), room));
  return true;
}

std::span<const std::uint8_t> Records::RecordOf(int id) const {
  if (id < 1 || id > m_count) return {};
  const auto record = std::span(m_bytes).subspan(m_headerSize + std::size_t(id - 1) * m_recordSize, m_recordSize);
  return record[0] == ' ' ? record : std::span<const std::uint8_t>();
}

std::string Records::CharsIn(std::span<const std::uint8_t> record, int field) const {
  const Place &place = m_places[std::size_t(field)];
  const auto bytes = record.subspan(place.offset, place.width);
  return {bytes.begin(), std::find(bytes.begin(), bytes.end(), 0)};
}

std::string Records::TextIn(std::span<const std::uint8_t> record, int field, const Column &column) const {
  if (column.type == ColumnType::Logical) return record[m_places[std::size_t(field)].offset] != 0 ? "T" : "F";
  if (column.type == ColumnType::Integer || column.type == ColumnType::SmallInt) {
    return std::to_string(int(NumberIn(record, field, column)));
  }
  if (column.type != ColumnType::Char) return NumberText(NumberIn(record, field, column), column);
  std::string text = CharsIn(record, field);
  if (m_encoding.empty() || IsAscii(text)) return text;
  const std::unique_ptr<char, void (*)(void *)> utf8(CPLRecode(text.c_str(), m_encoding.c_str(), CPL_ENC_UTF8),
                                                     VSIFree);
  return utf8.get();
}

double Records::NumberIn(std::span<const std::uint8_t> record, int field, const Column &column) const {
  const std::size_t at = m_places[std::size_t(field)].offset;
  switch (column.type) {
    case ColumnType::Integer:
      return mitab::NumberIn<std::int32_t>(record, at);
    case ColumnType::SmallInt:
      return mitab::NumberIn<std::int16_t>(record, at);
    case ColumnType::Float:
      return mitab::NumberIn<double>(record, at);
    case ColumnType::Decimal:
      return CPLAtof(CharsIn(record, field).c_str());
    default:
      return CPLAtof(TextIn(record, field, column).c_str());
  }
}

}  // namespace tessera::mitab
