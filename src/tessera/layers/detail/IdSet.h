// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <cstdint>
#include <span>
#include <unordered_set>
#include <vector>

namespace tessera::detail {

/// The ids that an answer holds already: a bit for each id that a layer can have, a table for others. It is used again
/// and again, and emptied by taking out what was put in.
class TESSERA_CORE_EXPORT IdSet {
 public:
  /// Puts an id in. Answers whether it was not there.
  bool Insert(std::uint32_t id) {
    const std::size_t word = id / BitsPerWord;
    if (word >= m_words.size() && !Grow(id)) return m_others.insert(id).second;
    const std::uint64_t bit = std::uint64_t(1) << id % BitsPerWord;
    const bool isNew = (m_words[word] & bit) == 0;
    m_words[word] |= bit;
    return isNew;
  }
  /// Takes out all of `ids`, among which everything must be that was put in.
  void Empty(std::span<const std::uint32_t> ids);

 private:
  static constexpr std::size_t BitsPerWord = 64;
  [[nodiscard]] bool Grow(std::uint32_t id);

  std::vector<std::uint64_t> m_words;
  std::unordered_set<std::uint32_t> m_others;
};

}  // namespace tessera::detail
