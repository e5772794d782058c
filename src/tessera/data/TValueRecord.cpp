// SPDX-License-Identifier: MIT
#include <tessera/data/TValueRecord.h>
#include <tessera/data/detail/ValueRecordIO.h>

#include <cstring>

namespace tessera {

using detail::ValueRecordReader;
using detail::ValueRecordWriter;

TValueRecord &TValueRecord::operator=(const TValueRecord &other) {
  if (this != &other) Assign(other.Bytes());
  return *this;
}

std::string_view TValueRecord::Bytes() const {
  if (!m_block) return {};
  std::uint32_t size = 0;
  std::memcpy(&size, m_block.get(), sizeof size);
  return {m_block.get() + sizeof size, size};
}

void TValueRecord::Assign(std::string_view bytes) {
  if (bytes.empty()) return Clear();
  const auto size = std::uint32_t(bytes.size());
  auto block = std::make_unique_for_overwrite<char[]>(sizeof size + size);
  std::memcpy(block.get(), &size, sizeof size);
  std::memcpy(block.get() + sizeof size, bytes.data(), size);
  m_block = std::move(block);
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
