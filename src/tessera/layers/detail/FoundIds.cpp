// SPDX-License-Identifier: MIT
#include <tessera/layers/detail/FoundIds.h>

#include <QScopeGuard>

#include <algorithm>

namespace tessera::detail {

/// What is kept from one answer to the next.
struct FoundIds::Store {
  IdSet seen;
  std::vector<std::uint32_t> ids;

  static Store &OfThisThread() {
    thread_local Store store;
    return store;
  }
};

FoundIds::FoundIds(TCardinalArray &answer) : m_answer(answer), m_store(Store::OfThisThread()) {
  if (answer.GetCount() != 0) See(std::as_const(answer).Ids());
}

FoundIds::~FoundIds() {
  if (!m_hasSeen) return;
  m_store.seen.Empty(std::as_const(m_answer).Ids());
  // What the answer found no room for is only here.
  m_store.seen.Empty({m_store.ids.data(), m_count});
}

std::uint32_t *FoundIds::MakeRoom(std::size_t count) {
  std::vector<std::uint32_t> &ids = m_store.ids;
  if (ids.size() - m_count < count) ids.resize(std::max(m_count + count, 2 * ids.size()));
  return ids.data() + m_count;
}

void FoundIds::See(std::span<const std::uint32_t> ids) {
  for (const std::uint32_t id : ids) m_store.seen.Insert(id);
  m_hasSeen = true;
}

void FoundIds::Add(std::span<const std::uint32_t> ids) {
  if (!m_hasSeen) See({m_store.ids.data(), m_count});
  const std::uint32_t *const first = MakeRoom(ids.size());
  std::uint32_t *end = m_store.ids.data() + m_count;
  const auto count = qScopeGuard([&] { m_count += std::size_t(end - first); });
  for (const std::uint32_t id : ids) {
    *end = id;
    // Without a branch: nobody can tell which ids are new.
    end += std::ptrdiff_t(m_store.seen.Insert(id));
  }
}

void FoundIds::AddNew(std::span<const std::uint32_t> ids) {
  std::copy(ids.begin(), ids.end(), MakeRoom(ids.size()));
  m_count += ids.size();
}

void FoundIds::HandOver() {
  m_answer.AddAll({m_store.ids.data(), m_count});
}

}  // namespace tessera::detail
