// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/geometry/TViewport.h>

#include <utility>

namespace tessera {

namespace detail {
class VertexRuns;
}

class TParts;

/// The ordered vertices of one part, as one contiguous array of (x, y), with running bounds.
///
/// The bounds only ever widen: they hold every vertex added so far, and taking out or moving vertices does not shrink
/// them. As long as vertices were only added, the bounds are those of the array and need no memory; from the first
/// other change on they are stored before the vertices. The list itself is one pointer. Long lists keep boxes around
/// runs of their vertices, for drawing: see detail::VertexRuns.
class TESSERA_CORE_EXPORT TMapPoints {
 public:
  TMapPoints() = default;
  ~TMapPoints();
  TMapPoints(const TMapPoints &) = delete;
  TMapPoints &operator=(const TMapPoints &) = delete;

  /// Appends a vertex, widens the bounds and tells the parts list that owns this one. The answer is the stored vertex.
  const TMapPoint &Add(double x, double y);
  /// Appends a copy of `point`.
  const TMapPoint &Add(const TMapPoint &point) { return Add(point.X, point.Y); }
  /// Makes room for `count` more vertices, without spare room beyond.
  void Reserve(std::size_t count);
  /// Appends `count` vertices and lets `fill` write them in place: it gets a pointer to the first and answers how many
  /// it wrote; the rest is taken back. The owning parts list widens its bounds with `bounds` as `fill` left them.
  template <typename Fill>
  void AppendInPlace(std::size_t count, Fill fill) {
    TBounds bounds = TBounds::Empty();
    TMapPoint *first = BeginAppend(count);
    EndAppend(fill(first, bounds), bounds);
  }

  [[nodiscard]] int GetCount() const;
  /// @throws ERangeError outside the count.
  [[nodiscard]] const TMapPoint &GetPoint(int index) const;
  /// Moves a vertex in place; the bounds stay. @throws ERangeError outside the count.
  void SetPoint(int index, const TMapPoint &point);
  /// Moves every vertex to `turn` of it, in order, and widens the bounds with its new place.
  template <typename Turn>
  void Transform(Turn turn) {
    for (int i = 0; i < GetCount(); ++i) {
      const TMapPoint moved = turn(GetPoint(i));
      SetPoint(i, moved);
      UpdateBounds(moved);
    }
  }
  /// Takes out a vertex; the bounds stay. @throws ERangeError outside the count.
  void Delete(int index);
  /// Empties the list as if it were new, bounds included; it keeps its room.
  void Restart();
  /// Widens the bounds with a point, without adding it.
  void UpdateBounds(const TMapPoint &point);
  [[nodiscard]] std::span<const TMapPoint> Points() const;
  /// The vertices with the boxes around runs of them, which are made if they have to be.
  [[nodiscard]] detail::VertexRuns GetRuns() const;

  /// Bounds of all vertices added so far; the sentinels of TBounds::Empty when there were none.
  [[nodiscard]] TBounds GetBounds() const;
  [[nodiscard]] double GetMinX() const { return GetBounds().MinX; }
  [[nodiscard]] double GetMinY() const { return GetBounds().MinY; }
  [[nodiscard]] double GetMaxX() const { return GetBounds().MaxX; }
  [[nodiscard]] double GetMaxY() const { return GetBounds().MaxY; }

  /// A list with the same vertices; its bounds are those of the vertices.
  [[nodiscard]] TMapPoints Clone() const;

 private:
  friend class TParts;
  friend class TPart;
  struct Block;

  // Only parts move, within their list: the owner goes with the vertices.
  TMapPoints(TMapPoints &&other) noexcept : m_block(std::exchange(other.m_block, nullptr)) {}
  TMapPoints &operator=(TMapPoints &&other) noexcept;

  [[nodiscard]] TParts *GetOwner() const;
  /// As one of several parts, or of none.
  void SetOwner(TParts *owner);
  /// As the only part, which stands within its owner.
  void SetOnly();
  /// Exchanges the vertices with those of another list; each keeps its owner.
  void SwapVertices(TMapPoints &other);
  enum class Extras { None, Links, Bounds };
  void Reallocate(std::size_t capacity, Extras extras);
  void Resize(std::size_t size);
  static void Free(Block *block);
  void KeepBounds();
  void DropRuns();
  /// Becomes empty. The owner does not hear of it.
  void Forget();
  /// Changes vertices that are there, while the owner keeps its bounds.
  template <typename Change>
  void ChangeVertices(Change change);
  TMapPoint *BeginAppend(std::size_t count);
  void EndAppend(std::size_t count, const TBounds &bounds);

  Block *m_block = nullptr;
};

}  // namespace tessera
