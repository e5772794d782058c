// SPDX-License-Identifier: MIT
#include <tessera/layers/detail/IndexBox.h>
#include <tessera/layers/detail/IndexTree.h>
#include <tessera/objects/detail/RectTests.h>

namespace tessera::detail {
namespace {

bool Meet(const TCellBounds &cell, const TBounds &rect) {
  return BoundsMeetRect(IndexBox::BoundsOf(cell), rect);
}

}  // namespace

std::uint32_t IndexTree::AddChildren(std::uint32_t node, unsigned quadrants) {
  const std::size_t first = m_nodes.size();
  Q_ASSERT(first < MaxCells);
  m_nodes[node].firstChild = first & (MaxCells - 1);
  m_nodes[node].quadrants = quadrants & 15;
  m_nodes.resize(first + std::size_t(std::popcount(quadrants)));
  return std::uint32_t(first);
}

void IndexTree::Finish() {
  m_nodes.shrink_to_fit();
  m_ids.shrink_to_fit();
  IdSet seen;
  for (const std::uint32_t id : m_ids) {
    if (seen.Insert(id)) m_uniqueIds.push_back(id);
  }
  if (m_uniqueIds.size() == m_ids.size()) m_uniqueIds.clear();
  m_uniqueIds.shrink_to_fit();
}

/// A search for a rectangle with its corners in order, in ordinary cells. Leaves that follow each other are taken
/// together.
class IndexTree::Search {
 public:
  Search(const IndexTree &tree, const TBounds &rect, FoundIds &found)
      : m_tree(tree), m_rect(rect), m_found(found), m_addsNew(tree.HasUniqueIds() && found.IsEmpty()) {}

  /// @pre the cell meets the rectangle
  void Enter(const Cell &cell) {
    const Node &node = m_tree.m_nodes[cell.node];
    if (node.quadrants == 0 || Covers(cell.bounds)) return Take(node.firstId, cell.idsEnd);
    const double midX = (cell.bounds.MaxX - cell.bounds.MinX) / 2 + cell.bounds.MinX;
    const double midY = (cell.bounds.MaxY - cell.bounds.MinY) / 2 + cell.bounds.MinY;
    const bool isLeft = m_rect.MinX <= midX;
    const bool isRight = midX <= m_rect.MaxX;
    const bool isLower = m_rect.MinY <= midY;
    const bool isUpper = midY <= m_rect.MaxY;
    const bool meets[] = {isLeft && isLower, isLeft && isUpper, isRight && isUpper, isRight && isLower};
    m_tree.ForEachNode(cell, [&](unsigned quadrant, std::uint32_t child, std::uint32_t idsEnd) {
      if (!meets[quadrant]) return;
      const bool isOnTheRight = quadrant >= 2;
      const bool isAbove = quadrant == 1 || quadrant == 2;
      Enter({{isOnTheRight ? midX : cell.bounds.MinX, isOnTheRight ? cell.bounds.MaxX : midX,
              isAbove ? midY : cell.bounds.MinY, isAbove ? cell.bounds.MaxY : midY},
             child,
             idsEnd});
    });
  }
  void Finish() {
    const auto ids = std::span(m_tree.m_ids).subspan(m_first, m_end - m_first);
    if (m_addsNew) {
      m_found.AddNew(ids);
    } else {
      m_found.Add(ids);
    }
  }

 private:
  [[nodiscard]] bool Covers(const TCellBounds &cell) const {
    return m_rect.MinX <= cell.MinX && cell.MaxX <= m_rect.MaxX && m_rect.MinY <= cell.MinY && cell.MaxY <= m_rect.MaxY;
  }
  void Take(std::uint32_t first, std::uint32_t end) {
    if (first != m_end) {
      Finish();
      m_first = first;
    }
    m_end = end;
  }

  const IndexTree &m_tree;
  const TBounds &m_rect;
  FoundIds &m_found;
  bool m_addsNew;
  std::uint32_t m_first = 0;
  std::uint32_t m_end = 0;
};

void IndexTree::FindInRect(const Cell &cell, const TBounds &rect, FoundIds &found) const {
  const bool isInOrder = rect.MinX <= rect.MaxX && rect.MinY <= rect.MaxY;
  if (!isInOrder || !IsOrdinaryCell(cell.bounds)) return FindOddly(cell, rect, found);
  if (!Meet(cell.bounds, rect)) return;
  if (cell.node == 0 && found.IsEmpty() && rect.ContainsBounds(CellBounds2Bounds(cell.bounds))) {
    return found.AddNew(HasUniqueIds() ? m_ids : m_uniqueIds);
  }
  Search search(*this, rect, found);
  search.Enter(cell);
  search.Finish();
}

void IndexTree::FindOddly(const Cell &cell, const TBounds &rect, FoundIds &found) const {
  ForEachChild(cell, [&](const Cell &child) {
    if (!Meet(child.bounds, rect)) return;
    if (IsLeaf(child)) found.Add(IdsOf(child));
    FindOddly(child, rect, found);
  });
}

}  // namespace tessera::detail
