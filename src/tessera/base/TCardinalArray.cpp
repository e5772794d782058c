// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/TCardinalArray.h>

#include <algorithm>

namespace tessera {
namespace {

constexpr std::size_t InitialCapacity = 32;
constexpr char IdIndex[] = "Id";

}  // namespace

TCardinalArray::TCardinalArray() : m_items(InitialCapacity) {}

void TCardinalArray::Clear() {
  if (m_items.size() != InitialCapacity) std::vector<std::uint32_t>(InitialCapacity).swap(m_items);
  m_count = 0;
}

void TCardinalArray::Grou() {
  if (m_items.size() == std::size_t(m_count) + 1) m_items.resize(std::size_t(m_count) * 2);
}

void TCardinalArray::Add(std::uint32_t id) {
  Grou();
  m_items[CheckedIndex(m_count, m_items.size(), IdIndex)] = id;
  ++m_count;
}

void TCardinalArray::AddAll(std::span<const std::uint32_t> ids) {
  const std::size_t count = std::size_t(m_count) + ids.size();
  std::size_t capacity = m_items.size();
  // The steps of Grou, each from one free place. Small copies take none, or odd ones.
  const bool grows = capacity > std::size_t(m_count) && capacity >= InitialCapacity;
  while (grows && capacity <= count) capacity = 2 * (capacity - 1);
  if (capacity <= count) {
    for (const std::uint32_t id : ids) Add(id);
    return;
  }
  m_items.resize(capacity);
  std::copy(ids.begin(), ids.end(), m_items.begin() + m_count);
  m_count = int(count);
}

void TCardinalArray::Remove(int index) {
  const auto at = m_items.begin() + std::ptrdiff_t(CheckedIndex(index, std::size_t(m_count), IdIndex));
  std::copy(at + 1, m_items.begin() + m_count, at);
  --m_count;
}

std::uint32_t TCardinalArray::GetItem(int index) const {
  return m_items[CheckedIndex(index, m_items.size(), IdIndex)];
}

void TCardinalArray::SetItem(int index, std::uint32_t id) {
  m_items[CheckedIndex(index, m_items.size(), IdIndex)] = id;
}

bool TCardinalArray::Exists(std::uint32_t id) const {
  const auto ids = Ids();
  return std::find(ids.begin(), ids.end(), id) != ids.end();
}

void TCardinalArray::Copy(const TCardinalArray &other) {
  m_items.assign(other.m_items.begin(), other.m_items.begin() + other.m_count);
  m_count = other.m_count;
}

void TCardinalArray::Truncate(int count) {
  if (count > m_count) throw ERangeError(QStringLiteral("Id count out of bounds (%1)").arg(count));
  m_count = count;
}

}  // namespace tessera
