// SPDX-License-Identifier: MIT
#include <tessera/layers/detail/IdSet.h>

#include <algorithm>

namespace tessera::detail {
namespace {

/// Beyond it lie only ids that were made up: the bits of those below take 8 MiB.
constexpr std::uint32_t MaxBits = std::uint32_t(1) << 26;

}  // namespace

bool IdSet::Grow(std::uint32_t id) {
  if (id >= MaxBits) return false;
  m_words.resize(std::max(id / BitsPerWord + 1, 2 * m_words.size()));
  return true;
}

void IdSet::Empty(std::span<const std::uint32_t> ids) {
  if (ids.size() > m_words.size()) std::fill(m_words.begin(), m_words.end(), 0);
  for (const std::uint32_t id : ids) {
    if (id / BitsPerWord < m_words.size()) m_words[id / BitsPerWord] = 0;
  }
  m_others.clear();
}

}  // namespace tessera::detail
