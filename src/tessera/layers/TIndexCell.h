// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TBounds.h>
#include <tessera/base/TCardinalArray.h>

#include <QString>

#include <memory>
#include <span>
#include <vector>

class QIODevice;

namespace tessera {

class TMapLayer;

namespace detail {
class FoundIds;
class IndexReader;
class IndexWriter;
struct IndexBelow;
}  // namespace detail

/// One cell of a layer's spatial index, a quadtree over the map: it narrows queries down to the ids of the objects near
/// by. An id is the position of an object in its layer, so any change of the layer's list, or of its objects' vertices,
/// makes the tree stale until it is built anew: detach, Clear, attach.
///
/// A cell with more ids than MinObjectCountPerCell is divided into quadrants, lower left, upper left, upper right and
/// lower right, of which only those that objects meet become children. A quadrant is met by an object that has a vertex
/// in it, that contains its four corners, or that has no vertices at all; an object that crosses it otherwise is not
/// found there, which is intended. Borders belong to both sides.
///
/// Division ends early only where it could never end by itself, or would hardly fit into memory.
///
/// What a division has made is kept in arrays, which answer the queries. The cells below become objects when somebody
/// asks for them, level by level, and the answers stay the same; so ask for none where a query will do.
class TESSERA_CORE_EXPORT TIndexCell {
 public:
  /// A root without a layer.
  TIndexCell();
  /// A root of a layer's objects. It is attached, which builds the tree, and then built once more on top, so that every
  /// quadrant of the root is there twice; that is intended. @throws ERangeError when the layer is empty.
  explicit TIndexCell(TMapLayer *layer);
  /// An empty child. The parent does not take it up: see AddChildCell.
  explicit TIndexCell(TIndexCell *parent);
  /// A child that holds a copy of the ids, and is divided.
  TIndexCell(TIndexCell *parent, const TCellBounds &bounds, const TCardinalArray &ids);
  ~TIndexCell();
  TIndexCell(const TIndexCell &) = delete;
  TIndexCell &operator=(const TIndexCell &) = delete;

  // Building.

  /// Attaches the index to a layer, and builds the tree if it needs to be. None only detaches: the tree stays.
  /// @throws ERangeError when there is something to build and the layer is empty.
  void SetLayer(TMapLayer *layer);
  [[nodiscard]] TMapLayer *GetLayer() const { return m_layer; }
  /// Takes all objects of the layer and their common bounds into this cell; nothing without a layer. Children stay.
  /// @throws ERangeError when the layer is empty.
  void InitRootCell();
  /// Hands the ids on to children, which are divided in turn, unless there are few of them.
  void Divide();
  /// Removes the children of a divided cell, so that the next attaching builds the tree anew. A leaf stays as it is.
  void Clear();
  [[nodiscard]] bool IsBuildNeeded() const { return m_isBuildNeeded; }

  // Settings.

  /// Inverted bounds, which any other bounds widen.
  void ResetBounds() { m_bounds = Bounds2CellBounds(TBounds::Empty()); }
  void SetBounds(const TCellBounds &bounds) { m_bounds = bounds; }
  [[nodiscard]] const TCellBounds &GetBounds() const { return m_bounds; }
  void UpdateBounds(const TCellBounds &bounds);
  void SetLevel(int level) { m_level = level; }
  /// 0 for a root.
  [[nodiscard]] int GetLevel() const { return m_level; }
  void SetParent(TIndexCell *parent) { m_parent = parent; }
  [[nodiscard]] TIndexCell *GetParent() const { return m_parent; }
  /// Kept for callers; division does not ask it.
  void SetMaxCellLevel(int level) { m_maxCellLevel = level; }
  [[nodiscard]] int GetMaxCellLevel() const { return m_maxCellLevel; }
  /// A cell with more ids is divided. It holds for this cell alone: children start with 5.
  void SetMinObjectCountPerCell(int count) { m_minObjectCountPerCell = count; }
  [[nodiscard]] int GetMinObjectCountPerCell() const { return m_minObjectCountPerCell; }

  // Contents.

  /// Takes a child in as the last one.
  void AddChildCell(std::unique_ptr<TIndexCell> cell);
  [[nodiscard]] int GetCount() const;
  /// @throws ERangeError outside the count.
  [[nodiscard]] TIndexCell *GetCell(int index) const;
  [[nodiscard]] std::span<const std::unique_ptr<TIndexCell>> GetCells() const { return MakeCells(); }
  /// The ids a leaf holds; a divided cell has none.
  [[nodiscard]] int GetIdsCount() const { return int(m_ids.size()); }
  /// @throws ERangeError outside the count.
  [[nodiscard]] std::uint32_t GetIds(int index) const;

  // Queries.

  [[nodiscard]] bool ContainsPoint(double x, double y) const;
  /// Whether the cell and the rectangle meet.
  [[nodiscard]] bool ContainsRect(const TCellBounds &rect) const;
  /// Fills `ids` with those of this very cell whose objects meet the box as they would a quadrant. Answers whether
  /// there are any.
  bool GetIdsByBounds(const TCellBounds &bounds, TCardinalArray &ids) const;
  /// Fills `ids` with those of all leaves that meet the rectangle, each once, in the order of the leaves. Answers
  /// whether there are any.
  bool GetAllIdsInRect(const TCellBounds &rect, TCardinalArray &ids) const;
  /// The same for the tree under `cell`, appended to the ids that are there already. False when the cell does not meet
  /// the rectangle.
  static bool GetIdsInRect(const TIndexCell &root, const TIndexCell &cell, const TCellBounds &rect,
                           TCardinalArray &ids);
  /// Fills `ids` with those of all leaves that hold the point; an id of several leaves comes several times. Answers
  /// whether there are any.
  bool GetAllIdsAtPoint(double x, double y, TCardinalArray &ids) const;
  static bool GetIdsAtPoint(const TIndexCell &root, const TIndexCell &cell, double x, double y, TCardinalArray &ids);

  // The file: 18 bytes of header and the record of the root. A record is the bounds as four doubles (MinX, MaxX, MinY,
  // MaxY), the count of ids, the ids, the count of children and their records; little-endian, integers of 32 bits.

  /// Answers false whatever the file. The header that is written holds only the first half of the text that would be
  /// accepted, so a stored tree is never taken over and layers build theirs from their objects; that is intended.
  [[nodiscard]] static bool LoadFromToFile(const QString &fileName);
  /// Writes the tree, as a whole or not at all. True. @throws EInOutError when that fails.
  bool SaveToFile(const QString &fileName) const;
  /// Reads a record: takes over its bounds and appends its ids and children. Every cell that is read names this one as
  /// its parent and the level below, however deep it lies. A damaged record changes nothing.
  /// @throws EInOutError with the place of the damage.
  void ReadIndex(QIODevice &device);
  /// @throws EInOutError when the device does not take the record.
  void WriteIndex(QIODevice &device) const;

  static constexpr int DefaultMinObjectCountPerCell = 5;
  static constexpr int DefaultMaxCellLevel = 5;

 private:
  friend class detail::IndexReader;
  friend class detail::IndexWriter;

  using Cells = std::vector<std::unique_ptr<TIndexCell>>;
  [[nodiscard]] Cells MakeCellsOf(const detail::IndexBelow &below) const;
  /// The children as objects, from now on.
  Cells &MakeCells() const;
  bool FindInRect(const TCellBounds &rect, detail::FoundIds &found) const;

  TMapLayer *m_layer = nullptr;
  TIndexCell *m_parent = nullptr;
  std::vector<std::uint32_t> m_ids;
  // The children, in one of two forms.
  mutable Cells m_cells;
  mutable std::unique_ptr<detail::IndexBelow> m_below;
  TCellBounds m_bounds = Bounds2CellBounds(TBounds::Empty());
  int m_level = 0;
  int m_minObjectCountPerCell = DefaultMinObjectCountPerCell;
  int m_maxCellLevel = DefaultMaxCellLevel;
  bool m_isBuildNeeded = true;
};

}  // namespace tessera
