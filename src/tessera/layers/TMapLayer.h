// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TCardinalArray.h>
#include <tessera/base/THandle.h>
#include <tessera/layers/TIndexCell.h>
#include <tessera/layers/TLayerSource.h>
#include <tessera/objects/TCustomMapObject.h>
#include <tessera/providers/TFormatReport.h>

#include <functional>
#include <memory>
#include <span>
#include <vector>

namespace tessera {

class TMapLayers;
namespace detail {
class LayerPainting;
class ObjectStore;
}  // namespace detail

/// An object that was taken out of a layer, and where it stood in the whole list.
struct TTakenObject {
  int index = 0;
  std::unique_ptr<TCustomMapObject> object;
};

/// One ordered set of map objects with common attribute columns, display switches and default tools. The order is that
/// of drawing, and an object's position in it is its id. What is to be found again after a change of the order is kept
/// by a THandle.
///
/// The layer owns its objects. Every change of state is told to the map's links, and most ask the map for a new
/// picture. Handlers may do anything, destroy the layer too: what they may have destroyed comes back as none.
class TESSERA_CORE_EXPORT TMapLayer : public TObjectLayer {
 public:
  TMapLayer();
  /// Destroys the objects. Nobody is told.
  ~TMapLayer() override;
  /// Tells of the end: see AnnounceEnd.
  void BeforeDestruction() override;
  /// Tells handlers that the layer is about to be destroyed, as `delete` does by itself, and destroys its objects, each
  /// with its events. Nothing happens without a map, or the second time. What handlers throw goes on afterwards.
  void AnnounceEnd();

  // Objects.

  /// Appends an object, gives it the layer's columns and the tools of the map's options, and paints it at once unless
  /// the map is in a batch of updates or has no area. `paintNow` is for an object that a person has just made:
  /// OnAddObject is called.
  TCustomMapObject *AddObject(std::unique_ptr<TCustomMapObject> object, bool paintNow);
  /// Makes an object of a kind and appends it: `layer.NewObject<TRegion>()`.
  template <class Kind>
  Kind *NewObject() {
    return static_cast<Kind *>(NewObject(CreateMapObject<Kind>));
  }
  TCustomMapObject *NewObject(TMapObjectClass objectClass) { return AddObject(objectClass(), false); }
  /// Takes an object out of the list, without destroying it and without a word; none when it is not there. It stays on
  /// the map, and selected if it was.
  std::unique_ptr<TCustomMapObject> RemoveObject(TCustomMapObject *object);
  /// Destroys the object at `index`, then drops the one that has moved up into its place without destroying it: whoever
  /// needs it holds it already. This double removal is intended. -1 only refreshes the map.
  /// @throws ERangeError outside the count, and after destroying the last object.
  void DeleteObject(int index);
  /// Destroys all objects, from the last to the first. What handlers add meanwhile goes as well, without an event.
  void DeleteObjects();
  /// @throws ERangeError outside the count; so do First and Last of an empty layer.
  [[nodiscard]] TCustomMapObject *GetObjects(int index) const;
  /// Puts an object into the place of another, which is handed back, in no layer and on no map.
  std::unique_ptr<TCustomMapObject> SetObjects(int index, std::unique_ptr<TCustomMapObject> object);
  [[nodiscard]] int GetObjectCount() const;
  [[nodiscard]] TCustomMapObject *First() const { return GetObjects(0); }
  [[nodiscard]] TCustomMapObject *Last() const { return GetObjects(GetObjectCount() - 1); }
  /// Makes room for more objects.
  void ReserveObjects(std::size_t count);
  /// Position of an object, its id; -1 when it is not in the layer. Nearly free as long as the order changes little.
  [[nodiscard]] int IndexOf(const TCustomMapObject *object) const;

  // Editing. An object is taken out, unless a handler of OnBeforeRemoveObject refuses, and put back with all it has:
  // geometry, tools, values. Many at once cost little more than one. The spatial index is not touched.

  /// Takes out an object, deselected; none when a handler refuses or it is not in the layer. OnAfterRemoveObject and
  /// mdlRemoveObject follow. What handlers throw before that goes on, and the object stays; what they throw afterwards
  /// ends in the message sink, for an exception would take the object along.
  std::unique_ptr<TCustomMapObject> TakeObject(TCustomMapObject *object);
  /// Takes out those that handlers do not refuse. The answer is in the order of the list.
  std::vector<TTakenObject> TakeObjects(std::span<TCustomMapObject *const> objects);
  /// Inserts an object before `index`, as it is. OnAddObject and mdlAddObject follow. @throws ERangeError beyond the
  /// count.
  TCustomMapObject *PutObject(int index, std::unique_ptr<TCustomMapObject> object);
  /// Puts objects back, each at the place that it then has in the whole list. @throws ERangeError, and puts nothing,
  /// when a place lies beyond the end. @pre the places ascend
  void PutObjects(std::vector<TTakenObject> taken);
  /// Destroys those that handlers do not refuse, and answers how many. Each sends OnDeleteObject, too.
  int DeleteObjects(std::span<TCustomMapObject *const> objects);
  /// Moves an object in the order, so that it stands at `newIndex`. @throws ERangeError outside the count.
  void MoveObject(int curIndex, int newIndex);

  // Switches.

  [[nodiscard]] bool GetVisible() const { return m_isVisible; }
  /// Hiding a layer also ends its editing, without an event of its own, and deselects its objects.
  void SetVisible(bool visible);
  /// Whether the layer is visible and its objects may be selected.
  [[nodiscard]] bool GetSelectable() const { return m_isVisible && m_isSelectable; }
  /// The switch for selecting by itself, visible or not.
  [[nodiscard]] bool GetSelectableFlag() const { return m_isSelectable; }
  /// An editable layer stays selectable, and a hidden one does not become so.
  void SetSelectable(bool selectable);
  [[nodiscard]] bool GetEditable() const { return m_isEditable; }
  /// Only a visible layer becomes editable, and it ends the editing of every other layer of the map.
  void SetEditable(bool editable);
  [[nodiscard]] bool GetAutoLabel() const override { return m_autoLabel; }
  void SetAutoLabel(bool autoLabel);
  [[nodiscard]] int GetLabelFieldIndex() const override { return m_labelFieldIndex; }
  void SetLabelFieldIndex(int index) { Change(m_labelFieldIndex, index, mdlLayerLabelChanged); }
  [[nodiscard]] const TFont &GetAutoLabelFont() const override { return m_autoLabelFont; }
  void SetAutoLabelFontDefaultFont(const TFont &font) { Change(m_autoLabelFont, font, mdlLayerLabelChanged); }
  /// The zooms between which the layer is shown, both inclusive. With only one of the two set it is never shown, which
  /// is intended; with none it always is.
  [[nodiscard]] double GetMinZoom() const { return m_minZoom; }
  void SetMinZoom(double zoom) { Change(m_minZoom, zoom, mdlLayerZoomChanged); }
  [[nodiscard]] double GetMaxZoom() const { return m_maxZoom; }
  void SetMaxZoom(double zoom) { Change(m_maxZoom, zoom, mdlLayerZoomChanged); }
  [[nodiscard]] bool ValidZoom() const;

  /// Whether area queries ask the spatial index. Turning it on builds the index if that is needed; later changes of the
  /// objects do not reach it. It finds fewer objects: see TIndexCell and GetAllIdsInRect.
  [[nodiscard]] bool GetUseIndex2D() const { return m_useIndex2D; }
  /// @throws ERangeError when an index is to be built and there are no objects; the switch is on all the same.
  void SetUseIndex2D(bool use);
  [[nodiscard]] TIndexCell *GetIndex2D() const { return m_index2D.get(); }
  /// Puts a root cell into the place of the present one, which is handed back. @pre `index` is not none.
  std::unique_ptr<TIndexCell> SetIndex2D(std::unique_ptr<TIndexCell> index);

  // What belongs to the layer.

  [[nodiscard]] const QString &GetName() const { return m_name; }
  void SetName(const QString &name) { Change(m_name, name, mdlLayerNameChanged); }
  [[nodiscard]] const QString &GetFileName() const { return m_fileName; }
  void SetFileName(const QString &fileName) { m_fileName = fileName; }
  /// What LoadFromFile last read.
  [[nodiscard]] const TLayerSource &GetSource() const { return m_source; }
  void SetSource(const TLayerSource &source) { m_source = source; }
  [[nodiscard]] int GetTag() const { return m_tag; }
  void SetTag(int tag) { m_tag = tag; }
  /// The attribute columns. Objects get them when they are added.
  [[nodiscard]] TDataFields &GetFields() { return m_fields; }
  [[nodiscard]] const TDataFields &GetFields() const { return m_fields; }
  void SetFields(const TDataFields &fields) { m_fields = fields; }
  [[nodiscard]] int GetFieldCount() const override { return m_fields.GetCount(); }
  /// Tools that loaders and programs may use; new objects get those of the map's options instead.
  [[nodiscard]] const TPen &GetDefaultPen() const { return m_defaultPen; }
  void SetDefaultPen(const TPen &pen) { m_defaultPen = pen; }
  [[nodiscard]] const TBrush &GetDefaultBrush() const { return m_defaultBrush; }
  void SetDefaultBrush(const TBrush &brush) { m_defaultBrush = brush; }
  [[nodiscard]] const TFont &GetDefaultFont() const { return m_defaultFont; }
  void SetDefaultFont(const TFont &font) { m_defaultFont = font; }
  /// Puts the layer and its objects on a map. From another one they take their leave: the objects are deselected and no
  /// longer displayed there.
  void SetMap(TMapHost *map);

  // Queries, drawing and files.

  /// Fills `ids` with the objects that meet, lie in or contain the rectangle, in order. Answers whether there are any.
  ///
  /// With the spatial index on, these are the objects among its candidates that meet or lie in the rectangle, in the
  /// order of its cells, and the answer is whether there were candidates. @throws ERangeError when the index is stale
  /// and names an object beyond the count.
  bool GetAllIdsInRect(const TCellBounds &rect, TCardinalArray &ids) const;
  /// Fills `ids` with the objects, in order, that may lie within so many client pixels of a map point: all of which
  /// ContainsPoint says so, and others. All of them without a map.
  void GetIdsNear(const TMapPoint &point, int distancePx, TCardinalArray &ids) const;
  /// Draws the objects in view, unless the layer is hidden or out of its zoom range. Where a stale index names objects
  /// that are not there, the others are drawn, and the message sink is told once.
  void Paint();
  /// Draws the highlight of the layer's selected objects, with the map's FastSelection on.
  void PaintSelection();
  /// Asks the registered provider that accepts the name to fill the layer, and answers what it answers. On success the
  /// layer takes over the file's name, and `layerName`, or the file's bare name when that is empty.
  bool LoadFromFile(const QString &fileName, const QString &layerName);
  /// Has `load`, which answers its report, fill the layer from the file, without notice of each change, and takes note
  /// of the extents of the objects. False when a handler has destroyed the layer. What `load` throws goes on.
  bool FillBy(const std::function<TFormatReport()> &load, const QString &fileName);
  /// Asks the provider that accepts the name to write the layer, after undoing any rotation of the map. An empty name
  /// stands for the file the layer came from.
  bool SaveToFile(const QString &fileName);

  void ForgetObject(TCustomMapObject &object) override;
  void NoteGeometry(TCustomMapObject &object) override;
  void NoteChange(TCustomMapObject &object, TMapDataLinkEvent event) override;
  void FieldsChanged() override;

 private:
  friend class detail::LayerPainting;
  /// How ids in a rectangle are asked for.
  struct RectQuery {
    /// Also those whose extent alone meets the rectangle, which no index knows: none is asked.
    bool countsExtents = false;
    int *staleCount = nullptr;  ///< Counts ids that a stale index gives; without it they are thrown at.
  };
  [[nodiscard]] bool MeetsRect(std::size_t id, const TBounds &rect, const RectQuery &query) const;
  [[nodiscard]] bool IsCandidateInRect(std::uint32_t id, const TBounds &rect) const;
  void KeepThoseInRect(const TBounds &rect, TCardinalArray &ids, const RectQuery &query) const;
  bool FindIdsInRect(const TCellBounds &rect, TCardinalArray &ids, const RectQuery &query) const;
  /// Destroys an object of this layer with its events.
  void Destroy(TCustomMapObject &object);
  /// Takes an object out, in no layer and on no map; none when it is not here.
  std::unique_ptr<TCustomMapObject> TakeSilently(TCustomMapObject &object);
  void DestroySilently();
  /// Those among `objects` that may go: each once, and still there after the handlers were asked.
  std::vector<THandle<TCustomMapObject>> AskToRemove(std::span<TCustomMapObject *const> objects);
  void TellOfRemoval(std::size_t count);
  void TellOfPut(TCustomMapObject *object);
  /// Tells of an object that was appended. False when a handler has destroyed it.
  [[nodiscard]] bool TellOfNew(TCustomMapObject &object, bool paintNow);
  void UpdateMap();
  void TraceToMap(TMapDataLinkEvent event);
  template <typename Value>
  void Change(Value &member, const Value &value, TMapDataLinkEvent event) {
    if (member == value) return;
    member = value;
    TraceToMap(event);
  }

  std::unique_ptr<detail::ObjectStore> m_objects;
  std::unique_ptr<TIndexCell> m_index2D = std::make_unique<TIndexCell>();
  QString m_fileName;
  QString m_name;
  TLayerSource m_source;
  TDataFields m_fields{this};
  TBrush m_defaultBrush;
  TFont m_defaultFont;
  TPen m_defaultPen;
  TFont m_autoLabelFont{QStringLiteral("Arial"), 8};
  double m_maxZoom = 0;
  double m_minZoom = 0;
  int m_tag = 0;
  int m_labelFieldIndex = 0;
  bool m_isEditable = false;
  bool m_isVisible = true;
  bool m_isSelectable = true;
  bool m_autoLabel = false;
  bool m_useIndex2D = false;
  bool m_isStaleIndexTold = false;
  bool m_isEnding = false;
};

}  // namespace tessera
