// SPDX-License-Identifier: MIT
#include <tessera/base/THandle.h>

#include <array>
#include <cstdint>

namespace tessera {
namespace {

constexpr std::size_t ChainCount = 1024;

/// The first handle of the chain that an object's handles belong to.
TObjectHandle *&ChainOf(const TObject *object) {
  constexpr unsigned AlignmentBits = 4;  // all addresses of one allocator share them
  constexpr std::uint64_t Spread = 0x9E3779B97F4A7C15U;
  constexpr unsigned TopBits = 10;
  static_assert(std::size_t(1) << TopBits == ChainCount);
  thread_local constinit std::array<TObjectHandle *, ChainCount> chains{};
  const auto address = std::uint64_t(reinterpret_cast<std::uintptr_t>(object)) >> AlignmentBits;
  return chains[address * Spread >> (64 - TopBits)];
}

}  // namespace

TObjectHandle &TObjectHandle::operator=(const TObjectHandle &other) {
  if (this == &other) return *this;
  Unlink();
  Refer(other.m_object);
  return *this;
}

void TObjectHandle::Refer(TObject *object) {
  m_object = object;
  if (object == nullptr) return;
  m_link = &ChainOf(object);
  m_next = *m_link;
  if (m_next) m_next->m_link = &m_next;
  *m_link = this;
}

void TObjectHandle::Unlink() {
  if (m_object == nullptr) return;
  *m_link = m_next;
  if (m_next) m_next->m_link = m_link;
  m_object = nullptr;
}

void TObjectHandle::Empty(const TObject *object) {
  TObjectHandle *next = nullptr;
  for (TObjectHandle *handle = ChainOf(object); handle; handle = next) {
    next = handle->m_next;
    if (handle->m_object == object) handle->Unlink();
  }
}

}  // namespace tessera
