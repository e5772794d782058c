// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/TMapLayers.h>

#include <QCoreApplication>
#include <QFlags>

#include <functional>

namespace tessera {

/// What of an object an edit changes. What only a kind of object has, as the text of a label, goes with both geometry
/// and style.
enum class TObjectAspect { Geometry = 1, Style = 2, Values = 4 };
Q_DECLARE_FLAGS(TObjectAspects, TObjectAspect)
Q_DECLARE_OPERATORS_FOR_FLAGS(TObjectAspects)

/// A vertex of an object: the part, and the place there.
struct TVertexPlace {
  int part = 0;
  int vertex = 0;

  bool operator==(const TVertexPlace &) const = default;
};

/// What objects are to have in common with what they take up together: a side, or the middle along x or y.
enum class TMapAlignment { Left, Right, Top, Bottom, CentersX, CentersY };

namespace detail {
class VertexChange;
}

/// What a person does to a map: edits of its objects, columns and layers, each of which becomes a step on the map's
/// undo stack (TTessera::SetUndoStack). A map without a stack is edited all the same. A light handle on the map, made
/// where it is needed: `TMapEdits(map).DeleteObjects(…)`.
///
/// Undoing a step brings back places in the order, parts, tools, values and columns exactly as they were, and the
/// selection that there was before the step. What was deleted is kept by its step, in no layer; no OnDeleteObject and
/// no second OnBeforeDelLayer tells of it. A step finds its objects and layers by handles: one whose objects or layer
/// are gone by other means is dropped when its turn comes, and one that a handler of OnBeforeRemoveObject refuses to
/// take back leaves the object where it is.
///
/// Rotating the map turns its data, and drops all steps. What a handler of an event edits while a step is undone or
/// done again is not recorded. What handlers throw goes on after the step has been recorded; while one is undone, to
/// the message sink. A sprite's picture is not undone, nor is what is done without this class; steps around that still
/// come back as far as they can.
///
/// Cost: that of the edit itself, and the number of selected objects.
class TESSERA_CORE_EXPORT TMapEdits {
  Q_DECLARE_TR_FUNCTIONS(tessera::TMapEdits)

 public:
  using Objects = std::span<TCustomMapObject *const>;

  /// Of a map; may be none, where nothing is recorded.
  explicit TMapEdits(TMapHost *map) : m_map(map) {}
  /// Of a layer's map.
  explicit TMapEdits(const TMapLayer &layer) : TMapEdits(layer.GetMapHost()) {}
  /// Whether edits are recorded: there is a stack, and it is not just undoing or doing again.
  [[nodiscard]] bool IsRecording() const;

  // Objects.

  /// TMapLayer::AddObject for an object that a person has made: OnAddObject is called. None when a handler has taken it
  /// out again.
  TCustomMapObject *AddObject(TMapLayer &layer, std::unique_ptr<TCustomMapObject> object);
  /// TMapLayer::PutObjects: puts objects into a layer as they are.
  void PutObjects(TMapLayer &layer, std::vector<TTakenObject> objects);
  /// Deletes objects of any layers, but for those that handlers refuse. Answers how many.
  int DeleteObjects(Objects objects);
  /// Puts objects on top of a layer and selects them. They get its columns, and keep the values of those columns of
  /// theirs that have the same names and types; a text column takes any.
  void PasteObjects(TMapLayer &layer, std::vector<std::unique_ptr<TCustomMapObject>> objects);
  /// Puts copies of objects, moved, on top of their layers and selects them.
  void DuplicateObjects(Objects objects, double dx, double dy);
  /// Moves objects to the end of the order of their layers, among each other as they were.
  void BringToFront(Objects objects);
  /// Moves them to the beginning.
  void SendToBack(Objects objects);
  /// Moves an object in the order of its layer. @throws ERangeError outside the count.
  void ReorderObject(TMapLayer &layer, int curIndex, int newIndex);
  void MoveObjects(Objects objects, double dx, double dy);
  /// Moves, scales and turns objects, each kind as it can (see their Transform). @pre the numbers are finite
  void TransformObjects(Objects objects, const TMapTransform &transform);
  /// Takes over parts and bounds of another list, which is left empty. Costs nothing.
  void SetGeometry(TCustomMapObject &object, TParts &parts);
  void SetStyle(Objects objects, const TObjectStylePtr &style);
  /// @throws ERangeError for a field that the object does not have.
  void SetValue(TCustomMapObject &object, int field, const TDataValue &value);
  /// Any other change: runs `change` for each object, as long as it is there. Only what belongs to `aspects` comes
  /// back.
  void ChangeObjects(Objects objects, TObjectAspects aspects, const QString &text,
                     const std::function<void(TCustomMapObject &object)> &change);

  // Vertices of lines and regions, each in a step that holds no others. @throws ERangeError for a vertex that is not
  // there.

  /// Whether the vertices of an object are its own, and do not follow from something else as those of a circle do.
  [[nodiscard]] static bool HasFreeVertices(const TCustomMapObject &object);
  /// Whether a part is a ring of a region: its last vertex repeats the first. Rings stay closed.
  [[nodiscard]] static bool IsRing(const TCustomMapObject &object, int part);
  void MoveVertex(TCustomMapObject &object, const TVertexPlace &place, const TMapPoint &to);
  /// Puts a vertex before another one, or behind the last; in a ring, the edge back to its beginning is meant by both
  /// ends.
  void InsertVertex(TCustomMapObject &object, const TVertexPlace &before, const TMapPoint &point);
  /// Takes out a vertex. False, and nothing, where a ring would keep fewer than three corners or a line fewer than two
  /// vertices; a single vertex goes with its part, but not the last part.
  bool DeleteVertex(TCustomMapObject &object, const TVertexPlace &place);

  // Lines as a whole.

  /// Splits a line at a vertex: what follows becomes an object of its own, next in the order, with the same style and
  /// values, which is the answer. None, and nothing, at an end of a part and for anything but a line of a layer.
  /// @throws ERangeError for a vertex that is not there
  TCustomMapObject *SplitLine(TCustomMapObject &line, const TVertexPlace &at);
  /// Joins those lines among the objects whose ends are no further apart than `distance` map units; at each joint one
  /// vertex stays. The first line of each that are joined stays, with its style, values and direction; the others are
  /// deleted. Answers how many have grown. Lines of other layers than that of the first are left alone.
  int JoinLines(Objects objects, double distance = 0);
  /// Reverses the vertices of each part, of regions too. Other kinds are left alone.
  void ReverseLines(Objects objects);
  /// Moves objects to a common side, or middle, of the bounds of all.
  void AlignObjects(Objects objects, TMapAlignment alignment);

  // Columns of a layer, which its objects follow: they keep their values and share the new columns; an object with
  // another number of columns is left alone. Cost: linear in the number of objects.

  /// Appends a column, whose values are unassigned.
  void AddColumn(TMapLayer &layer, const QString &name, TDataType type, int size);
  /// Takes out a column and its values. The labels stay with their column, or go to the first.
  /// @throws ERangeError for a column that is not there.
  void RemoveColumn(TMapLayer &layer, int field);
  void RenameColumn(TMapLayer &layer, int field, const QString &name);
  /// Any other change of the definitions. @pre it adds and takes out none
  void ChangeColumns(TMapLayer &layer, const QString &text, const std::function<void(TDataFields &columns)> &change);

  // Layers. @pre there is a map

  /// TMapLayers::Add. None when a handler has taken it out again.
  TMapLayer *AddLayer(const QString &fileName, const QString &layerName);
  /// Takes out a layer, unless a handler of OnBeforeDelLayer forbids it; false then. @throws ERangeError outside the
  /// count.
  bool DeleteLayer(int index);
  /// @throws ERangeError outside the count.
  void MoveLayer(int curIndex, int newIndex);
  /// Any change of names and switches: visible, selectable, editable, labels and zoom limits, of one layer or many.
  void ChangeLayers(const QString &text, const std::function<void()> &change);

 private:
  void Put(TMapLayer &layer, std::vector<TTakenObject> objects, const QString &text) const;
  void PutOnTop(TMapLayer &layer, std::vector<std::unique_ptr<TCustomMapObject>> objects, const QString &text) const;
  void MoveTo(const THandle<TMapLayer> &layer, const THandle<TCustomMapObject> &object, int newIndex);
  void ChangeVertices(TCustomMapObject &object, const QString &text, detail::VertexChange change) const;
  void DeletePart(TCustomMapObject &object, int part);
  int DeleteObjectsOf(TMapLayer &layer, Objects objects) const;
  [[nodiscard]] static QString DeletionText(std::size_t count);

  TMapHost *m_map;
};

}  // namespace tessera
