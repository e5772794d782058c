// SPDX-License-Identifier: MIT
#include <tessera/editing/detail/ListRuns.h>

#include <unordered_map>

namespace tessera::detail {
namespace {

/// Finds where objects stood. Most stand behind the one before.
class OldPlaces {
 public:
  explicit OldPlaces(std::span<const TCustomMapObject *const> before) : m_before(before) {}

  /// The number of objects that there were for one that was not among them.
  std::size_t Find(const TCustomMapObject *object) {
    if (m_next < m_before.size() && m_before[m_next] == object) return m_next++;
    if (m_places.empty()) {
      m_places.reserve(m_before.size());
      for (std::size_t i = 0; i < m_before.size(); ++i) m_places.emplace(m_before[i], i);
    }
    const auto found = m_places.find(object);
    if (found == m_places.end()) return m_before.size();
    m_next = found->second + 1;
    return found->second;
  }

 private:
  std::span<const TCustomMapObject *const> m_before;
  std::size_t m_next = 0;
  std::unordered_map<const TCustomMapObject *, std::size_t> m_places;  // made when it is needed
};

}  // namespace

std::vector<ListRun> FindListRuns(std::span<const TCustomMapObject *const> before,
                                  std::span<TCustomMapObject *const> after,
                                  const std::function<bool(const TCustomMapObject *)> &isChanged) {
  OldPlaces places(before);
  std::vector<ListRun> runs;
  for (TCustomMapObject *object : after) {
    const std::size_t place = isChanged(object) ? before.size() : places.Find(object);
    if (place == before.size()) {
      if (runs.empty() || runs.back().added.empty()) runs.emplace_back();
      runs.back().added.push_back(object);
    } else if (!runs.empty() && runs.back().count > 0 && runs.back().first + runs.back().count == place) {
      ++runs.back().count;
    } else {
      runs.push_back({place, 1, {}});
    }
  }
  return runs;
}

}  // namespace tessera::detail
