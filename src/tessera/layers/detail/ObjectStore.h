// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TCardinalArray.h>
#include <tessera/base/THandle.h>
#include <tessera/geometry/detail/RoundedBox.h>
#include <tessera/objects/TCustomMapObject.h>

#include <array>
#include <limits>
#include <memory>
#include <span>
#include <vector>

namespace tessera::detail {

/// The objects of a layer in their order, and beside them their extents close together, so that an area query need not
/// visit every object.
///
/// An edit costs what it touches: an object that is taken out leaves a gap, and all gaps close in one pass when the
/// list is next looked at; one that changes its geometry has its own extent worked out anew at the next query; and an
/// object is found from where it was found last.
class TESSERA_CORE_EXPORT ObjectStore {
 public:
  using Owned = std::unique_ptr<TCustomMapObject>;

  /// Of the objects of `layer`, which must be in it before they are put in here.
  explicit ObjectStore(const TObjectLayer &layer) : m_layer(layer) {}
  ObjectStore(const ObjectStore &) = delete;
  ObjectStore &operator=(const ObjectStore &) = delete;

  [[nodiscard]] std::size_t GetCount() const { return m_objects.size() - m_gaps; }
  [[nodiscard]] std::span<const Owned> Items() const;
  [[nodiscard]] TCustomMapObject *Last() const { return m_objects.back().get(); }
  /// As long as it stays the same, each object stands where it stood; others may have been appended.
  [[nodiscard]] std::uint64_t GetOrder() const { return m_order; }
  void Reserve(std::size_t count) { m_objects.reserve(m_objects.size() + count); }
  /// Where the object stands; GetCount when it does not.
  [[nodiscard]] std::size_t IndexOf(const TCustomMapObject &object) const;

  /// Those of the objects that are of this layer, each once, in about the order of the list: in this order they are
  /// found soonest.
  [[nodiscard]] std::vector<TCustomMapObject *> InOrder(std::span<TCustomMapObject *const> objects) const;

  void Append(Owned object);
  /// @pre index <= GetCount
  void Insert(std::size_t index, Owned object);
  /// Puts an object into the place of another, which is handed back.
  Owned Replace(std::size_t index, Owned object);
  /// Takes an object out; none when it is not here. The last one costs nothing, any other a gap.
  Owned Take(const TCustomMapObject &object);
  void Move(std::size_t from, std::size_t to);
  /// Puts objects at the places they are to have in the whole list, in one pass. @pre the places ascend, and none lies
  /// beyond the end
  void Merge(std::vector<std::pair<std::size_t, Owned>> &&objects);

  /// Has the processor fetch the place of an object in the list, with its extent, in a second step the object, and in a
  /// third its vertices. For a visit in another order than that of the list, in which the memory is fetched by itself.
  void ExpectPlace(std::size_t index) const;
  void ExpectObject(std::size_t index) const;
  void ExpectVertices(std::size_t index) const;

  // Extents.

  enum class Relation { Apart, Inside, Unknown };

  /// An object whose extent is known has changed its geometry.
  void NoteGeometry(TCustomMapObject &object);
  /// Brings the extents up to date with the objects.
  void UpdateExtents();
  /// Appends the places of those whose extent meets a rectangle, or comes within the rounding of floats, and of those
  /// that do not tell their extent. @pre the extents are up to date
  void FindMeeting(const TBounds &rect, TCardinalArray &places) const;
  /// The farthest that an object reaches beyond its extent: see TCustomMapObject::GetPickReachPx. None when some object
  /// does not tell. @pre the extents are up to date
  [[nodiscard]] std::optional<int> GetPickReachPx() const { return m_pickReachPx; }
  /// The style of an object has changed, on which its reach and its look depend.
  void NoteStyle(const TCustomMapObject &object);
  /// The styles of objects may have changed without a note.
  void ForgetExtents() {
    m_extents.clear();
    ForgetRows();
  }
  /// Whether a rectangle is known to hold the extents of all objects. @pre the extents are up to date
  [[nodiscard]] bool AreAllInside(const TBounds &rect) const { return m_common.LiesWithin(rect); }
  /// Has the processor fetch what RelationOf and ExtentOf ask for.
  void ExpectExtent(std::size_t index) const;
  /// How the object at `index` lies to a rectangle with its corners in order. Near the border, and for objects that do
  /// not tell their extent, it is not known. @pre the extents are up to date
  [[nodiscard]] Relation RelationOf(std::size_t index, const TBounds &rect) const {
    const RoundedBox &box = m_extents[index].box;
    if (!box.Meets(rect)) return Relation::Apart;
    return box.LiesWithin(rect) ? Relation::Inside : Relation::Unknown;
  }

  /// How an object is drawn, as far as others may know.
  enum class Look : std::uint8_t {
    Own,      ///< In a way of its own.
    Outline,  ///< By the outlines of its parts alone, and its label; when it is small, as a pixel of the dot's colour.
    OddOutline,  ///< The same, but for the pixel.
    Sign,        ///< As a symbol at one place, and its label.
  };
  struct Extent {
    RoundedBox box;
    Look look;
    std::array<std::uint8_t, 3> dot = {};  ///< Red, green and blue.
  };
  /// Holds everything where it is not known.
  [[nodiscard]] Extent ExtentOf(std::size_t index) const {
    return index < m_extents.size() ? m_extents[index] : Extent{RoundedBox::Everywhere(), Look::Own, {}};
  }

 private:
  static constexpr RoundedBox NoBox{std::numeric_limits<float>::infinity(), std::numeric_limits<float>::infinity(),
                                    -std::numeric_limits<float>::infinity(), -std::numeric_limits<float>::infinity()};
  static constexpr std::size_t NoSlot = SIZE_MAX;
  /// Objects in a row that have a box around them all: most rows of a layer whose neighbours lie near each other are
  /// passed over as one.
  static constexpr std::size_t RowLength = 64;
  Extent MeasureExtent(TCustomMapObject &object);
  /// Measures the object that stands, or is to stand, in a slot whose extent is known.
  void SetExtent(std::size_t slot, TCustomMapObject &object);
  void WidenRow(std::size_t slot);
  /// Objects have changed their slots.
  void ForgetRows() const;
  void NoteReach(const TCustomMapObject &object);
  [[nodiscard]] std::size_t SlotOf(const TCustomMapObject &object) const;
  static void NoteSlot(const TCustomMapObject &object, std::size_t slot);
  void CloseGaps() const;
  void DropGapsAtTheEnd();

  const TObjectLayer &m_layer;
  // Slots, of which some may be gaps.
  mutable std::vector<Owned> m_objects;
  mutable std::vector<Extent> m_extents;   // of the first so many slots
  mutable std::vector<RoundedBox> m_rows;  // around all extents that a row has had
  mutable std::size_t m_inRows = 0;        // the first so many extents are in rows
  RoundedBox m_common = NoBox;             // around all extents there were
  std::optional<int> m_pickReachPx = 0;    // never shrinks
  mutable std::size_t m_gaps = 0;
  std::uint64_t m_order = 0;                         // counts what may have moved objects
  mutable std::size_t m_shift = 0;                   // how far the object found last had moved; below 0 it wraps around
  std::vector<THandle<TCustomMapObject>> m_changed;  // those whose box is out of date, and perhaps others
};

}  // namespace tessera::detail
