// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/layers/TIndexCell.h>
#include <tessera/layers/TMapLayer.h>
#include <tessera/layers/detail/IdSet.h>
#include <tessera/layers/detail/IndexBuilder.h>
#include <tessera/objects/detail/RectTests.h>

namespace tessera {
namespace {

constexpr char CellIndex[] = "Cell";
constexpr char IdIndex[] = "Id";

/// Appends ids to an answer, each only once.
class UniqueIds {
 public:
  explicit UniqueIds(TCardinalArray &ids) : m_ids(ids) {
    for (const std::uint32_t id : std::as_const(ids).Ids()) s_seen.Insert(id);
  }
  ~UniqueIds() {
    s_seen.Empty(std::as_const(m_ids).Ids());
    // It may not have found room.
    s_seen.Empty({&m_last, 1});
  }
  UniqueIds(const UniqueIds &) = delete;
  UniqueIds &operator=(const UniqueIds &) = delete;

  void Add(std::uint32_t id) {
    if (!s_seen.Insert(id)) return;
    m_last = id;
    m_ids.Add(id);
  }

 private:
  static thread_local detail::IdSet s_seen;
  TCardinalArray &m_ids;
  std::uint32_t m_last = 0;
};

thread_local detail::IdSet UniqueIds::s_seen;

/// Walks the leaves under `cell`, itself included, that pass `meets` with all cells above them.
template <typename Meets, typename Use>
bool ForEachLeaf(const TIndexCell &cell, const Meets &meets, const Use &use) {
  if (!meets(cell)) return false;
  for (const auto &child : cell.GetCells()) ForEachLeaf(*child, meets, use);
  if (cell.GetCells().empty()) use(cell);
  return true;
}

}  // namespace

TIndexCell::TIndexCell(TMapLayer *layer) {
  SetLayer(layer);
  if (layer == nullptr) return;
  InitRootCell();
  Divide();
}

TIndexCell::TIndexCell(TIndexCell *parent) : m_layer(parent->m_layer), m_parent(parent), m_level(parent->m_level + 1) {}

TIndexCell::TIndexCell(TIndexCell *parent, const TCellBounds &bounds, const TCardinalArray &ids) : TIndexCell(parent) {
  m_bounds = bounds;
  m_ids.assign(ids.Ids().begin(), ids.Ids().end());
  Divide();
}

TIndexCell::~TIndexCell() = default;

void TIndexCell::SetLayer(TMapLayer *layer) {
  m_layer = layer;
  if (!m_isBuildNeeded || layer == nullptr) return;
  // A stored tree is never taken over: see LoadFromToFile.
  InitRootCell();
  Divide();
}

void TIndexCell::InitRootCell() {
  if (m_layer == nullptr) return;
  ResetBounds();
  m_ids.clear();
  const int count = m_layer->GetObjectCount();
  if (count == 0) throw ERangeError(QStringLiteral("An empty layer cannot be indexed"));
  m_ids.reserve(std::size_t(count));
  for (int id = 0; id < count; ++id) {
    m_ids.push_back(std::uint32_t(id));
    UpdateBounds(Bounds2CellBounds(m_layer->GetObjects(id)->GetBounds()));
  }
}

void TIndexCell::Divide() {
  if (GetIdsCount() <= m_minObjectCountPerCell) return;
  if (!detail::IndexBuilder(*this).Run()) return;
  std::vector<std::uint32_t>().swap(m_ids);
}

void TIndexCell::Clear() {
  if (m_cells.empty()) return;
  m_ids.clear();
  m_cells.clear();
  m_isBuildNeeded = true;
}

void TIndexCell::UpdateBounds(const TCellBounds &bounds) {
  if (bounds.MinX < m_bounds.MinX) m_bounds.MinX = bounds.MinX;
  if (bounds.MinY < m_bounds.MinY) m_bounds.MinY = bounds.MinY;
  if (bounds.MaxX > m_bounds.MaxX) m_bounds.MaxX = bounds.MaxX;
  if (bounds.MaxY > m_bounds.MaxY) m_bounds.MaxY = bounds.MaxY;
}

TIndexCell *TIndexCell::GetCell(int index) const {
  return m_cells[CheckedIndex(index, m_cells.size(), CellIndex)].get();
}

std::uint32_t TIndexCell::GetIds(int index) const {
  return m_ids[CheckedIndex(index, m_ids.size(), IdIndex)];
}

bool TIndexCell::ContainsPoint(double x, double y) const {
  return CellBounds2Bounds(m_bounds).ContainsPoint(x, y);
}

bool TIndexCell::ContainsRect(const TCellBounds &rect) const {
  return detail::BoundsMeetRect(detail::IndexBox::BoundsOf(m_bounds), CellBounds2Bounds(rect));
}

bool TIndexCell::GetIdsByBounds(const TCellBounds &bounds, TCardinalArray &ids) const {
  ids.Clear();
  if (m_layer == nullptr) return false;
  const detail::IndexBox box(bounds);
  const auto count = std::uint32_t(m_layer->GetObjectCount());
  for (const std::uint32_t id : m_ids) {
    if (id < count && box.Meets(*m_layer->GetObjects(int(id)))) ids.Add(id);
  }
  return ids.GetCount() != 0;
}

bool TIndexCell::GetAllIdsInRect(const TCellBounds &rect, TCardinalArray &ids) const {
  ids.Clear();
  return GetIdsInRect(*this, *this, rect, ids);
}

bool TIndexCell::GetIdsInRect(const TIndexCell & /*root*/, const TIndexCell &cell, const TCellBounds &rect,
                              TCardinalArray &ids) {
  UniqueIds unique(ids);
  const auto meets = [&rect](const TIndexCell &each) { return each.ContainsRect(rect); };
  const auto addIds = [&unique](const TIndexCell &leaf) {
    for (const std::uint32_t id : leaf.m_ids) unique.Add(id);
  };
  return ForEachLeaf(cell, meets, addIds) && ids.GetCount() != 0;
}

bool TIndexCell::GetAllIdsAtPoint(double x, double y, TCardinalArray &ids) const {
  ids.Clear();
  return GetIdsAtPoint(*this, *this, x, y, ids);
}

bool TIndexCell::GetIdsAtPoint(const TIndexCell & /*root*/, const TIndexCell &cell, double x, double y,
                               TCardinalArray &ids) {
  const auto meets = [x, y](const TIndexCell &each) { return each.ContainsPoint(x, y); };
  const auto addIds = [&ids](const TIndexCell &leaf) {
    for (const std::uint32_t id : leaf.m_ids) ids.Add(id);
  };
  return ForEachLeaf(cell, meets, addIds) && ids.GetCount() != 0;
}

}  // namespace tessera
