// SPDX-License-Identifier: MIT
#include <tessera/controls/detail/RowChanges.h>

#include <algorithm>
#include <unordered_set>

namespace tessera::detail {
namespace {

using Rows = std::span<TCustomMapObject *const>;
using RowSet = std::unordered_set<const TCustomMapObject *>;

/// The rows of `rows` that `others` does not hold, in runs; `offset` is added to their places.
std::vector<RowRun> RunsNotIn(const RowSet &others, Rows rows, int offset) {
  std::vector<RowRun> runs;
  for (int i = 0; i < int(rows.size()); ++i) {
    if (others.contains(rows[std::size_t(i)])) continue;
    const int row = i + offset;
    if (!runs.empty() && runs.back().first + runs.back().count == row) {
      ++runs.back().count;
    } else {
      runs.push_back({row, 1});
    }
  }
  return runs;
}

std::vector<TCustomMapObject *> ThoseIn(const RowSet &others, Rows rows) {
  std::vector<TCustomMapObject *> kept;
  std::copy_if(rows.begin(), rows.end(), std::back_inserter(kept),
               [&](const auto *row) { return others.contains(row); });
  return kept;
}

}  // namespace

RowChanges FindRowChanges(Rows before, Rows after) {
  const std::size_t shorter = std::min(before.size(), after.size());
  const auto [firstOther, firstNew] =
      std::mismatch(before.begin(), before.begin() + std::ptrdiff_t(shorter), after.begin());
  const auto head = std::size_t(firstOther - before.begin());
  std::size_t tail = 0;
  while (tail < shorter - head && before[before.size() - 1 - tail] == after[after.size() - 1 - tail]) ++tail;
  const Rows left = before.subspan(head, before.size() - head - tail);
  const Rows come = after.subspan(head, after.size() - head - tail);

  RowChanges changes;
  const RowSet afterSet(come.begin(), come.end());
  const RowSet beforeSet(left.begin(), left.end());
  changes.removed = RunsNotIn(afterSet, left, int(head));
  std::reverse(changes.removed.begin(), changes.removed.end());
  changes.inserted = RunsNotIn(beforeSet, come, int(head));
  const std::vector<TCustomMapObject *> kept = ThoseIn(beforeSet, come);
  if (kept != ThoseIn(afterSet, left)) {
    changes.reordered.assign(before.begin(), before.begin() + std::ptrdiff_t(head));
    changes.reordered.insert(changes.reordered.end(), kept.begin(), kept.end());
    changes.reordered.insert(changes.reordered.end(), after.end() - std::ptrdiff_t(tail), after.end());
  }
  return changes;
}

}  // namespace tessera::detail
