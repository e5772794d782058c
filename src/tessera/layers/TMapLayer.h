// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TCardinalArray.h>
#include <tessera/layers/TIndexCell.h>
#include <tessera/objects/TCustomMapObject.h>

#include <memory>
#include <vector>

namespace tessera {

class TMapLayers;
namespace detail {
class ExtentCache;
}

/// One ordered set of map objects with common attribute columns, display switches and default tools. The order is that
/// of drawing, and an object's position in it is its id: there is no other identity.
///
/// The layer owns its objects. Every change of state is told to the map's links, and most ask the map for a new
/// picture.
class TESSERA_CORE_EXPORT TMapLayer : public TObjectLayer {
 public:
  TMapLayer();
  ~TMapLayer() override;

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
  /// Takes an object out of the list, without destroying it; none when it is not there.
  std::unique_ptr<TCustomMapObject> RemoveObject(TCustomMapObject *object);
  /// Destroys the object at `index`, then drops the one that has moved up into its place without destroying it: whoever
  /// needs it holds it already. This double removal is intended. -1 only refreshes the map.
  /// @throws ERangeError outside the count, and after destroying the last object.
  void DeleteObject(int index);
  /// Destroys all objects, from the last to the first.
  void DeleteObjects();
  /// @throws ERangeError outside the count; so do First and Last of an empty layer.
  [[nodiscard]] TCustomMapObject *GetObjects(int index) const;
  /// Puts an object into the place of another, which is handed back.
  std::unique_ptr<TCustomMapObject> SetObjects(int index, std::unique_ptr<TCustomMapObject> object);
  [[nodiscard]] int GetObjectCount() const { return int(m_objects.size()); }
  [[nodiscard]] TCustomMapObject *First() const { return GetObjects(0); }
  [[nodiscard]] TCustomMapObject *Last() const { return GetObjects(GetObjectCount() - 1); }
  /// Makes room for more objects.
  void ReserveObjects(std::size_t count) { m_objects.reserve(m_objects.size() + count); }

  // Switches.

  [[nodiscard]] bool GetVisible() const { return m_isVisible; }
  /// Hiding a layer also ends its editing, without an event of its own, and deselects its objects.
  void SetVisible(bool visible);
  /// Whether the layer is visible and its objects may be selected.
  [[nodiscard]] bool GetSelectable() const { return m_isVisible && m_isSelectable; }
  /// An editable layer stays selectable, and a hidden one does not become so.
  void SetSelectable(bool selectable);
  [[nodiscard]] bool GetEditable() const { return m_isEditable; }
  /// Only a visible layer becomes editable, and it ends the editing of every other layer of the map.
  void SetEditable(bool editable);
  [[nodiscard]] bool GetAutoLabel() const override { return m_autoLabel; }
  void SetAutoLabel(bool autoLabel);
  [[nodiscard]] int GetLabelFieldIndex() const override { return m_labelFieldIndex; }
  void SetLabelFieldIndex(int index) { m_labelFieldIndex = index; }
  [[nodiscard]] const TFont &GetAutoLabelFont() const override { return m_autoLabelFont; }
  void SetAutoLabelFontDefaultFont(const TFont &font) { m_autoLabelFont = font; }
  /// The zooms between which the layer is shown, both inclusive. With only one of the two set it is never shown, which
  /// is intended; with none it always is.
  [[nodiscard]] double GetMinZoom() const { return m_minZoom; }
  void SetMinZoom(double zoom) { m_minZoom = zoom; }
  [[nodiscard]] double GetMaxZoom() const { return m_maxZoom; }
  void SetMaxZoom(double zoom) { m_maxZoom = zoom; }
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
  void SetName(const QString &name) { m_name = name; }
  [[nodiscard]] const QString &GetFileName() const { return m_fileName; }
  void SetFileName(const QString &fileName) { m_fileName = fileName; }
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
  /// The map, for callers that include TTessera.h.
  template <class Map = TTessera>
  [[nodiscard]] Map *GetMap() const {
    return static_cast<Map *>(m_map);
  }
  [[nodiscard]] TMapHost *GetMapHost() const { return m_map; }
  void SetMap(TMapHost *map) { m_map = map; }

  // Queries, drawing and files.

  /// Fills `ids` with the objects that meet, lie in or contain the rectangle, in order. Answers whether there are any.
  ///
  /// With the spatial index on, these are the objects among its candidates that meet or lie in the rectangle, in the
  /// order of its cells, and the answer is whether there were candidates. @throws ERangeError when the index is stale
  /// and names an object beyond the count.
  bool GetAllIdsInRect(const TCellBounds &rect, TCardinalArray &ids) const;
  /// Draws the objects in view, unless the layer is hidden or out of its zoom range.
  void Paint();
  /// Draws the highlight of the layer's selected objects, with the map's FastSelection on.
  void PaintSelection();
  /// Asks the registered provider that accepts the name to fill the layer, and answers what it answers. On success the
  /// layer takes over the file's name, and `layerName`, or the file's bare name when that is empty.
  bool LoadFromFile(const QString &fileName, const QString &layerName);
  /// Asks the provider that accepts the name to write the layer, after undoing any rotation of the map. An empty name
  /// stands for the file the layer came from.
  bool SaveToFile(const QString &fileName);

  void ForgetObject(TCustomMapObject &object) override;

 private:
  [[nodiscard]] std::size_t PositionOf(const TCustomMapObject *object) const;
  [[nodiscard]] bool MeetsRect(std::size_t id, const TBounds &rect) const;
  [[nodiscard]] bool IsCandidateInRect(std::uint32_t id, const TBounds &rect) const;
  void KeepThoseInRect(const TBounds &rect, TCardinalArray &ids) const;
  /// Destroys an object, which leaves the list. Answers whether it belonged to this layer and did so by itself.
  bool Destroy(std::size_t at);
  void UpdateMap();
  void TraceToMap(TMapDataLinkEvent event);

  std::vector<std::unique_ptr<TCustomMapObject>> m_objects;
  std::unique_ptr<detail::ExtentCache> m_extents;
  std::unique_ptr<TIndexCell> m_index2D = std::make_unique<TIndexCell>();
  QString m_fileName;
  QString m_name;
  TDataFields m_fields;
  TBrush m_defaultBrush;
  TFont m_defaultFont;
  TPen m_defaultPen;
  TFont m_autoLabelFont{QStringLiteral("Arial"), 8};
  TMapHost *m_map = nullptr;
  double m_maxZoom = 0;
  double m_minZoom = 0;
  int m_tag = 0;
  int m_labelFieldIndex = 0;
  bool m_isEditable = false;
  bool m_isVisible = true;
  bool m_isSelectable = true;
  bool m_autoLabel = false;
  bool m_useIndex2D = false;
};

}  // namespace tessera
