// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/layers/TIndexCell.h>
#include <tessera/layers/TMapLayer.h>
#include <tessera/layers/detail/FoundIds.h>
#include <tessera/layers/detail/IndexBelow.h>
#include <tessera/layers/detail/IndexBox.h>
#include <tessera/layers/detail/IndexBuilder.h>
#include <tessera/objects/detail/RectTests.h>

namespace tessera {
namespace {

constexpr char CellIndex[] = "Cell";
constexpr char IdIndex[] = "Id";

/// Adds the ids of all leaves below a cell that hold a point.
void AddIdsAt(const detail::IndexTree &tree, const detail::IndexTree::Cell &cell, const TMapPoint &point,
              TCardinalArray &ids) {
  tree.ForEachChild(cell, [&](const detail::IndexTree::Cell &child) {
    if (!CellBounds2Bounds(child.bounds).ContainsPoint(point.X, point.Y)) return;
    if (tree.IsLeaf(child)) ids.AddAll(tree.IdsOf(child));
    AddIdsAt(tree, child, point, ids);
  });
}

}  // namespace

TIndexCell::TIndexCell() = default;

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
  std::shared_ptr<const detail::IndexTree> tree = detail::BuildIndexTree(m_layer, m_bounds, m_ids);
  if (!tree) return;
  const detail::IndexTree::Cell root = tree->GetRoot();
  detail::IndexBelow below{std::move(tree), root, m_layer, m_level};
  if (GetCount() == 0) {
    m_below = std::make_unique<detail::IndexBelow>(std::move(below));
  } else {
    Cells more = MakeCellsOf(below);
    std::move(more.begin(), more.end(), std::back_inserter(MakeCells()));
  }
  std::vector<std::uint32_t>().swap(m_ids);
  m_isBuildNeeded = false;
}

void TIndexCell::Clear() {
  if (GetCount() == 0) return;
  m_ids.clear();
  m_cells.clear();
  m_below.reset();
  m_isBuildNeeded = true;
}

TIndexCell::Cells TIndexCell::MakeCellsOf(const detail::IndexBelow &below) const {
  Cells cells;
  below.tree->ForEachChild(below.cell, [&](const detail::IndexTree::Cell &each) {
    auto cell = std::make_unique<TIndexCell>();
    cell->m_layer = below.layer;
    cell->m_parent = const_cast<TIndexCell *>(this);
    cell->m_level = below.level + 1;
    cell->m_bounds = each.bounds;
    if (below.tree->IsLeaf(each)) {
      const std::span<const std::uint32_t> ids = below.tree->IdsOf(each);
      cell->m_ids.assign(ids.begin(), ids.end());
    } else {
      cell->m_below =
          std::make_unique<detail::IndexBelow>(detail::IndexBelow{below.tree, each, below.layer, cell->m_level});
      cell->m_isBuildNeeded = false;
    }
    cells.push_back(std::move(cell));
  });
  return cells;
}

TIndexCell::Cells &TIndexCell::MakeCells() const {
  if (m_below) {
    m_cells = MakeCellsOf(*m_below);
    m_below.reset();
  }
  return m_cells;
}

void TIndexCell::AddChildCell(std::unique_ptr<TIndexCell> cell) {
  MakeCells().push_back(std::move(cell));
}

int TIndexCell::GetCount() const {
  return m_below ? m_below->tree->CountChildren(m_below->cell) : int(m_cells.size());
}

void TIndexCell::UpdateBounds(const TCellBounds &bounds) {
  if (bounds.MinX < m_bounds.MinX) m_bounds.MinX = bounds.MinX;
  if (bounds.MinY < m_bounds.MinY) m_bounds.MinY = bounds.MinY;
  if (bounds.MaxX > m_bounds.MaxX) m_bounds.MaxX = bounds.MaxX;
  if (bounds.MaxY > m_bounds.MaxY) m_bounds.MaxY = bounds.MaxY;
}

TIndexCell *TIndexCell::GetCell(int index) const {
  const Cells &cells = MakeCells();
  return cells[CheckedIndex(index, cells.size(), CellIndex)].get();
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
  detail::FoundIds found(ids);
  if (!cell.FindInRect(rect, found)) return false;
  found.HandOver();
  return ids.GetCount() != 0;
}

bool TIndexCell::FindInRect(const TCellBounds &rect, detail::FoundIds &found) const {
  if (!ContainsRect(rect)) return false;
  if (m_below) m_below->tree->FindInRect(m_below->cell, CellBounds2Bounds(rect), found);
  for (const auto &child : m_cells) child->FindInRect(rect, found);
  if (GetCount() == 0) found.Add(m_ids);
  return true;
}

bool TIndexCell::GetAllIdsAtPoint(double x, double y, TCardinalArray &ids) const {
  ids.Clear();
  return GetIdsAtPoint(*this, *this, x, y, ids);
}

bool TIndexCell::GetIdsAtPoint(const TIndexCell &root, const TIndexCell &cell, double x, double y,
                               TCardinalArray &ids) {
  if (!cell.ContainsPoint(x, y)) return false;
  if (cell.m_below) AddIdsAt(*cell.m_below->tree, cell.m_below->cell, {x, y}, ids);
  for (const auto &child : cell.m_cells) GetIdsAtPoint(root, *child, x, y, ids);
  if (cell.GetCount() == 0) ids.AddAll(cell.m_ids);
  return ids.GetCount() != 0;
}

}  // namespace tessera
