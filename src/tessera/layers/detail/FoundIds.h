// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TCardinalArray.h>
#include <tessera/layers/detail/IdSet.h>

namespace tessera::detail {

/// Gathers the ids of an answer, each once, in the order in which they are found. One at a time in each thread.
class TESSERA_CORE_EXPORT FoundIds {
 public:
  /// On top of the ids that are in the answer already.
  explicit FoundIds(TCardinalArray &answer);
  ~FoundIds();
  FoundIds(const FoundIds &) = delete;
  FoundIds &operator=(const FoundIds &) = delete;

  void Add(std::span<const std::uint32_t> ids);
  /// Adds ids of which none comes twice, nor is there already.
  void AddNew(std::span<const std::uint32_t> ids);
  /// Whether nothing was there nor was added yet.
  [[nodiscard]] bool IsEmpty() const { return m_answer.GetCount() == 0 && m_count == 0; }
  /// Puts what was found into the answer.
  void HandOver();

 private:
  struct Store;
  void See(std::span<const std::uint32_t> ids);
  std::uint32_t *MakeRoom(std::size_t count);

  TCardinalArray &m_answer;
  Store &m_store;
  std::size_t m_count = 0;
  bool m_hasSeen = false;
};

}  // namespace tessera::detail
