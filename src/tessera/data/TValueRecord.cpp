// SPDX-License-Identifier: MIT
#include <tessera/base/detail/Pool.h>
#include <tessera/data/TValueRecord.h>
#include <tessera/data/detail/ValueRecordIO.h>

#include <cstring>
#include <memory>

namespace tessera {

using detail::Pool;
using detail::ValueRecordReader;
using detail::ValueRecordWriter;

namespace {

using Header = std::uint32_t;
constexpr Header PoolFlag = 0x80000000U;

Header HeaderOf(const char *block) {
  Header header = 0;
  std::memcpy(&header, block, sizeof header);
  return header;
}

}  // namespace

TValueRecord &TValueRecord::operator=(const TValueRecord &other) {
  if (this != &other) Assign(other.Bytes());
  return *this;
}

std::string_view TValueRecord::Bytes() const {
  if (m_block == nullptr) return {};
  return {m_block + sizeof(Header), HeaderOf(m_block) & ~PoolFlag};
}

void TValueRecord::Clear() {
  if (m_block == nullptr) return;
  char *block = std::exchange(m_block, nullptr);
  if ((HeaderOf(block) & PoolFlag) != 0) {
    Pool::Release(block);
  } else {
    std::default_delete<char[]>()(block);
  }
}

void TValueRecord::Assign(std::string_view bytes) {
  if (bytes.empty()) return Clear();
  const std::size_t size = sizeof(Header) + bytes.size();
  auto *pooled = static_cast<char *>(Pool::Take(size, Pool::Shelf::Values));
  char *block = pooled ? pooled : std::make_unique_for_overwrite<char[]>(size).release();
  const auto header = Header(bytes.size()) | (pooled ? PoolFlag : 0);
  std::memcpy(block, &header, sizeof header);
  std::memcpy(block + sizeof header, bytes.data(), bytes.size());
  Clear();
  m_block = block;
}

TDataValue TValueRecord::Get(int index) const {
  ValueRecordReader reader(*this);
  for (int i = 0; i < index; ++i) reader.NextPacked();
  return reader.Next();
}

void TValueRecord::Replace(int index, int count, std::string_view packed) {
  ValueRecordWriter writer;
  ValueRecordReader reader(*this);
  for (int i = 0; i < index; ++i) {
    if (reader.AtEnd()) {
      writer.AppendUnassigned();
    } else {
      writer.AppendPacked(reader.NextPacked());
    }
  }
  for (int i = 0; i < count; ++i) reader.NextPacked();
  writer.AppendPacked(packed);
  while (!reader.AtEnd()) writer.AppendPacked(reader.NextPacked());
  Assign(writer.Bytes());
}

void TValueRecord::Set(int index, const TDataValue &value) {
  ValueRecordWriter packed;
  packed.Append(value);
  Replace(index, 1, packed.Bytes());
}

void TValueRecord::Insert(int index, const TDataValue &value) {
  ValueRecordWriter packed;
  packed.Append(value);
  Replace(index, 0, packed.Bytes());
}

void TValueRecord::Remove(int index) {
  ValueRecordReader reader(*this);
  for (int i = 0; i < index; ++i) reader.NextPacked();
  if (!reader.AtEnd()) Replace(index, 1, {});
}

}  // namespace tessera
