// SPDX-License-Identifier: MIT
#include "NativeTypes.h"

#include <cpl_conv.h>
#include <cpl_error.h>
#include <cpl_string.h>
#include <cpl_vsi.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

namespace tessera::mitab {
namespace {

using File = std::unique_ptr<VSILFILE, int (*)(VSILFILE *)>;

File OpenFile(const std::string &fileName, const char *mode) {
  return {VSIFOpenL(fileName.c_str(), mode), VSIFCloseL};
}

bool IsHidden(const Column &column) {
  return column.type == ColumnType::SmallInt || column.type == ColumnType::Logical;
}

/// Writes `fileName` anew by way of a file beside it. `convert` gets both and answers whether all went well.
template <typename Convert>
bool Rewrite(const std::string &fileName, const Convert &convert) {
  const std::string other = fileName + ".new";
  const File from = OpenFile(fileName, "rb");
  File to = OpenFile(other, "wb");
  const bool isConverted = from && to && convert(from.get(), to.get());
  const bool isClosed = to && VSIFCloseL(to.release()) == 0;
  if (isConverted && isClosed && VSIRename(other.c_str(), fileName.c_str()) == 0) return true;
  VSIUnlink(other.c_str());
  CPLError(CE_Failure, CPLE_FileIO, "The types of columns cannot be written to %s.", fileName.c_str());
  return false;
}

bool Put(VSILFILE *to, const void *bytes, std::size_t size) {
  return VSIFWriteL(bytes, 1, size, to) == size;
}

bool CopyRest(VSILFILE *from, VSILFILE *to) {
  std::vector<char> block(65536);
  for (;;) {
    const std::size_t size = VSIFReadL(block.data(), 1, block.size(), from);
    if (size == 0) return true;
    if (!Put(to, block.data(), size)) return false;
  }
}

/// A line of the definition with the type of its column; other lines are left.
std::string WithType(const std::string &line, const Column &column, FileKind kind) {
  if (!IsHidden(column)) return line;
  const bool isSmall = column.type == ColumnType::SmallInt;
  const std::size_t at = line.rfind(isSmall ? " Integer" : " Char");
  if (at == std::string::npos) return line;
  return line.substr(0, at) + (isSmall ? " SmallInt" : " Logical") + (kind == FileKind::Tab ? " ;" : "");
}

bool ConvertText(VSILFILE *from, VSILFILE *to, FileKind kind, const Columns &columns) {
  const char *border = kind == FileKind::Tab ? "Fields" : "Columns";
  std::size_t next = columns.size();
  bool hasBegun = false;
  while (!hasBegun || next < columns.size()) {
    const char *read = CPLReadLineL(from);
    if (read == nullptr) return false;
    std::string line = read;
    if (hasBegun) line = WithType(line, columns[next++], kind);
    if (!hasBegun && STARTS_WITH_CI(CPLString(line).Trim().c_str(), border)) {
      hasBegun = true;
      next = 0;
    }
    line += '\n';
    if (!Put(to, line.data(), line.size())) return false;
  }
  CPLReadLineL(nullptr);  // gives back its buffer
  return CopyRest(from, to);
}

/// A file of values: a header with 32 bytes for itself and for each column, and records of one length. Numbers are
/// stored from the low byte on.
class ValueFile {
 public:
  ValueFile(VSILFILE *from, VSILFILE *to, const Columns &columns) : m_from(from), m_to(to), m_columns(columns) {}

  bool Convert() {
    if (!ReadHeader()) return false;
    std::vector<std::uint8_t> record(m_recordSize);
    while (VSIFReadL(record.data(), 1, record.size(), m_from) == record.size()) {
      if (!WriteRecord(record)) return false;
    }
    return true;
  }

 private:
  static constexpr std::size_t BlockSize = 32;
  static constexpr std::size_t HeaderSizeAt = 8;
  static constexpr std::size_t RecordSizeAt = 10;
  static constexpr std::size_t TypeAt = 11;
  static constexpr std::size_t WidthAt = 16;

  static std::size_t NumberAt(const std::vector<std::uint8_t> &bytes, std::size_t at) {
    return bytes[at] + 256U * bytes[at + 1];
  }

  bool ReadHeader() {
    std::vector<std::uint8_t> header(BlockSize);
    if (VSIFReadL(header.data(), 1, BlockSize, m_from) != BlockSize) return false;
    const std::size_t headerSize = NumberAt(header, HeaderSizeAt);
    m_recordSize = NumberAt(header, RecordSizeAt);
    if (headerSize < BlockSize * (m_columns.size() + 1) || m_recordSize == 0) return false;
    header.resize(headerSize);
    const std::size_t rest = headerSize - BlockSize;
    if (VSIFReadL(header.data() + BlockSize, 1, rest, m_from) != rest) return false;
    std::size_t saved = 0;
    for (std::size_t i = 0; i < m_columns.size(); ++i) saved += ChangeColumn(header.data() + BlockSize * (i + 1), i);
    const std::size_t newSize = m_recordSize - saved;
    header[RecordSizeAt] = std::uint8_t(newSize % 256);
    header[RecordSizeAt + 1] = std::uint8_t(newSize / 256);
    return Put(m_to, header.data(), header.size());
  }

  /// Answers by how much its values get shorter.
  std::size_t ChangeColumn(std::uint8_t *block, std::size_t index) {
    constexpr std::uint8_t SmallWidth = 2;
    const std::size_t width = block[WidthAt];
    m_widths.push_back(width);
    if (m_columns[index].type == ColumnType::Logical) block[TypeAt] = 'L';
    if (m_columns[index].type != ColumnType::SmallInt) return 0;
    block[WidthAt] = SmallWidth;
    return width - SmallWidth;
  }

  bool WriteRecord(const std::vector<std::uint8_t> &record) {
    constexpr std::size_t SmallWidth = 2;
    std::vector<std::uint8_t> converted{record[0]};  // whether it is deleted
    std::size_t at = 1;
    for (std::size_t i = 0; i < m_columns.size() && at + m_widths[i] <= record.size(); at += m_widths[i++]) {
      const auto value = record.begin() + std::ptrdiff_t(at);
      if (m_columns[i].type == ColumnType::Logical) {
        converted.push_back(*value == 'T' ? 1 : 0);
      } else {
        const std::size_t size = m_columns[i].type == ColumnType::SmallInt ? SmallWidth : m_widths[i];
        converted.insert(converted.end(), value, value + std::ptrdiff_t(size));
      }
    }
    return Put(m_to, converted.data(), converted.size());
  }

  VSILFILE *m_from;
  VSILFILE *m_to;
  const Columns &m_columns;
  std::size_t m_recordSize = 0;
  std::vector<std::size_t> m_widths;
};

}  // namespace

bool GiveNativeTypes(const std::string &fileName, FileKind kind, const Columns &columns) {
  if (std::none_of(columns.begin(), columns.end(), IsHidden)) return true;
  const bool isText =
      Rewrite(fileName, [&](VSILFILE *from, VSILFILE *to) { return ConvertText(from, to, kind, columns); });
  if (!isText || kind == FileKind::Mif) return isText;
  return Rewrite(CPLResetExtension(fileName.c_str(), "dat"),
                 [&](VSILFILE *from, VSILFILE *to) { return ValueFile(from, to, columns).Convert(); });
}

}  // namespace tessera::mitab
