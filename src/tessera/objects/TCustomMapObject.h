// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/data/TDataFields.h>
#include <tessera/geometry/TMapTransform.h>
#include <tessera/graphics/TRgn.h>
#include <tessera/objects/TMapHost.h>
#include <tessera/objects/TObjectLayer.h>
#include <tessera/objects/TObjectTraits.h>
#include <tessera/objects/TParts.h>

#include <memory>
#include <optional>

namespace tessera {

class TTessera;
namespace detail {
class LayerPainter;
class ObjectStore;
}  // namespace detail

/// How a kind of object answers when Contains asks it about a box, that is, about a plain object whose vertices are the
/// four corners.
enum class TBoxContainment {
  /// As Contains is written for the kind.
  Refined,
  /// Whether the corners lie in its bounds.
  ByBounds,
  /// Never.
  Never,
};

/// Base of everything that is drawn on a map: geometry, drawing tools, attribute values, and the spatial questions that
/// selection, tools and queries ask. Here they are answered from the bounds and the vertices; kinds refine them.
///
/// All coordinates are map units. Rectangle tests are inclusive and take (X1, Y1) as the lower and (X2, Y2) as the
/// upper corner as given. The layer owns the object, which is then on the layer's map; it only refers to both.
class TESSERA_CORE_EXPORT TCustomMapObject : public TFieldsOwner {
 public:
  TCustomMapObject();
  /// Leaves its layer and its map, and tells nobody.
  ~TCustomMapObject() override;
  /// For an object whose constructor has thrown.
  static void operator delete(void *memory) { ::operator delete(memory); }
  static void operator delete(TCustomMapObject *object, std::destroying_delete_t);
  /// Makes an object by `construct` in memory of its size; what a layer loads stands close together.
  [[nodiscard]] static std::unique_ptr<TCustomMapObject> Make(std::size_t size,
                                                              TCustomMapObject *(*construct)(void *place));
  /// Tells of the end: see AnnounceEnd.
  void BeforeDestruction() override;
  /// Leaves the selection and the displayed objects of its map and tells handlers and links that it is about to be
  /// destroyed, as `delete` does by itself. Each of them is told, whatever the others throw; then the first exception
  /// goes on. Handlers may destroy the object. Nothing happens without a map, or when that is being destroyed.
  void AnnounceEnd();
  /// A new object of the same kind with the same geometry, tools, values and tag, in no layer and on no map.
  [[nodiscard]] virtual std::unique_ptr<TCustomMapObject> Clone() const;

  /// Computes the bounds from every vertex. An object without vertices gets bounds that contain nothing.
  virtual void UpdateBounds();
  /// Draws the object's figure with the tools that the canvas holds and enters it into the displayed objects.
  virtual void Draw();
  /// Draws the highlight on the map's canvas, or takes it away again: it is XORed with the picture.
  virtual void DrawSelection();
  virtual bool ContainsPoint(double x, double y) const;
  /// Whether some vertex of `object` passes ContainsPoint.
  virtual bool Intersects(const TCustomMapObject &object) const;
  /// Whether every vertex of `object` passes ContainsPoint; true when it has none.
  virtual bool Contains(const TCustomMapObject &object) const;
  /// Whether `object` contains this one.
  virtual bool Within(const TCustomMapObject &object) const;
  /// Whether the bounds and the rectangle have a point in common.
  virtual bool IntersectsRect(double x1, double y1, double x2, double y2) const;
  /// Whether every vertex lies in the rectangle; true when there is none.
  virtual bool WithinRect(double x1, double y1, double x2, double y2) const;
  /// Whether all four corners pass ContainsPoint.
  virtual bool ContainsRect(double x1, double y1, double x2, double y2) const;
  /// The box that settles the three rectangle tests for most rectangles: one that does not meet it passes none of them,
  /// one that holds all of it passes IntersectsRect or WithinRect. None when there is no such box, as for an object
  /// without vertices and, here, for any kind that does not say otherwise. A kind that refines a rectangle test refines
  /// this as well.
  [[nodiscard]] virtual std::optional<TBounds> GetExtent() const { return std::nullopt; }
  /// How far beyond the extent, in client pixels, ContainsPoint may still say yes; none when that is not known, as
  /// here. A kind that refines ContainsPoint refines this as well.
  [[nodiscard]] virtual std::optional<int> GetPickReachPx() const { return std::nullopt; }
  /// What spares a spatial index the question whether this object contains a cell. A kind that refines ContainsPoint or
  /// Contains refines this as well. Division of cells ends for a Refined kind on the assumption that a figure that
  /// holds the corners of a cell holds all of it.
  [[nodiscard]] virtual TBoxContainment GetBoxContainment() const { return TBoxContainment::Refined; }
  /// What only this kind has, so that undoing an edit can bring it back; none, as here, where that is nothing. A kind
  /// with properties of its own refines this and SetTraits.
  [[nodiscard]] virtual std::unique_ptr<TObjectTraits> GetTraits() const { return nullptr; }
  /// Takes over what GetTraits of an object of this kind gave, and touches neither tools nor vertices.
  virtual void SetTraits(const TObjectTraits & /*traits*/) {}
  /// Moves all vertices, and gives the object bounds of its own. A transformed object stays what its kind is.
  virtual void MoveBy(double dx, double dy);
  virtual void Transform(const TMapTransform &transform);
  /// Which of the map's default fonts a new object of this kind gets.
  [[nodiscard]] virtual TObjectFont GetFontKind() const { return TObjectFont::Symbol; }

  /// Draws the object with its own tools, its selected look where selections are part of the picture, and its label.
  void Paint();
  /// Sets the canvas up for the highlight: the object's tools in inverted blue, XORed with what is there.
  void PrepareCanvasAtributes();
  [[nodiscard]] TBounds GetBounds() const { return m_parts.GetBounds(); }
  /// The client pixel of one vertex. @throws ERangeError for a part or point that does not exist.
  [[nodiscard]] TPoint GetPixels(int part, int point) const;

  [[nodiscard]] bool GetSelected() const;
  /// Draws the highlight once more, whatever the value; it does not change what is selected. Select does.
  void SetSelected(bool value);
  /// Makes this the only selected object of its map.
  void Select();

  /// The map, for callers that include TTessera.h.
  template <class Map = TTessera>
  [[nodiscard]] Map *GetMap() const {
    return static_cast<Map *>(GetMapHost());
  }
  [[nodiscard]] TMapHost *GetMapHost() const { return m_isInLayer ? m_place.layer->GetMapHost() : m_place.map; }
  /// For an object in no layer. One in a layer stays on the layer's map.
  void SetMap(TMapHost *map);
  /// The layer, for callers that include TMapLayer.h.
  template <class Layer = TMapLayer>
  [[nodiscard]] Layer *GetLayer() const {
    return static_cast<Layer *>(GetObjectLayer());
  }
  [[nodiscard]] TObjectLayer *GetObjectLayer() const { return m_isInLayer ? m_place.layer : nullptr; }
  /// For layers, which put the object into their list. Taken out of a layer, the object stays on the map.
  void SetLayer(TObjectLayer *layer);
  /// Leaves layer and map, and there the selection and the displayed objects, and tells nobody. For layers, which have
  /// taken the object out of their list.
  void Detach();

  // Every setter of the tools tells the links of the map; none asks for a new picture.

  [[nodiscard]] const TPen &GetPen() const { return m_style->pen; }
  void SetPen(const TPen &pen) { ChangeStyle(&TObjectStyle::pen, pen); }
  [[nodiscard]] const TBrush &GetBrush() const { return m_style->brush; }
  void SetBrush(const TBrush &brush) { ChangeStyle(&TObjectStyle::brush, brush); }
  [[nodiscard]] const TFont &GetFont() const { return m_style->font; }
  virtual void SetFont(const TFont &font) { ChangeStyle(&TObjectStyle::font, font); }
  /// Whether areas are filled with the background colour before the brush.
  [[nodiscard]] bool GetUseBGColor() const { return m_style->useBGColor; }
  void SetUseBGColor(bool use) { ChangeStyle(&TObjectStyle::useBGColor, use); }
  [[nodiscard]] TColor GetBGColor() const { return m_style->bgColor; }
  void SetBGColor(TColor color) { ChangeStyle(&TObjectStyle::bgColor, color); }
  /// All drawing tools at once; objects given the same style share it.
  [[nodiscard]] const TObjectStylePtr &GetStyle() const { return m_style; }
  virtual void SetStyle(const TObjectStylePtr &style);

  [[nodiscard]] TParts &GetParts() { return m_parts; }
  [[nodiscard]] const TParts &GetParts() const { return m_parts; }
  /// Takes over parts and bounds of another list, which gets the present ones.
  void SetParts(TParts &parts) { m_parts.Swap(parts); }
  [[nodiscard]] TDataFields &GetFields() { return m_fields; }
  [[nodiscard]] const TDataFields &GetFields() const { return m_fields; }
  void SetFields(const TDataFields &fields) { m_fields = fields; }
  void FieldsChanged() override { NoteChange(mdlObjectFieldsChanged); }
  /// Free for the user.
  [[nodiscard]] int GetTag() const { return m_tag; }
  void SetTag(int tag) { m_tag = tag; }

 protected:
  /// Clone of a kind: `copy`, made by the kind, gets what every object has.
  template <class Kind>
  [[nodiscard]] std::unique_ptr<Kind> CloneInto(std::unique_ptr<Kind> copy) const {
    CopyCommonTo(*copy);
    return copy;
  }
  /// Gives the object a style that only drawing asks for, as a font fitted to the zoom is; nobody is told.
  void ReplaceStyle(const TObjectStylePtr &style) { m_style = style; }
  /// DrawSelection of the kinds whose highlight is their figure: draws it with the tools of the highlight.
  void DrawFigureAsSelection();
  /// Whether some corner passes ContainsPoint.
  [[nodiscard]] bool ContainsSomeCorner(double x1, double y1, double x2, double y2) const;
  /// The extent of a kind that keeps the rectangle tests of this class.
  [[nodiscard]] std::optional<TBounds> GetVertexExtent() const;
  /// The first part, which is made when missing.
  TPart &FirstPart();
  /// The first vertex, for the kinds that stand on a point; the part and the vertex are made when missing.
  [[nodiscard]] TMapPoint GetAnchor();
  void SetAnchorX(double x);
  void SetAnchorY(double y);
  /// Makes (x, y) the only vertex of the first part, and the bounds those of this vertex.
  void MoveAnchor(double x, double y);
  /// The first vertex, or (0, 0) where there is none.
  [[nodiscard]] TMapPoint GetAnchor() const;
  [[nodiscard]] TCanvas &Canvas() const { return GetMapHost()->GetCanvas(); }

 private:
  friend class TDisplayedObjects;
  friend class TMapHost;
  friend class TParts;
  friend class detail::LayerPainter;
  friend class detail::ObjectStore;

  template <typename Value>
  void ChangeStyle(Value TObjectStyle::*member, const Value &value) {
    (*m_style).*member = value;
    NoteChange(mdlObjectStyleChanged);
  }
  void CopyCommonTo(TCustomMapObject &copy) const;
  void AssignToolsToCanvas(TCanvas &canvas) const;
  void DrawLabel(TCanvas &canvas);
  /// The object that `parts` are part of.
  static TCustomMapObject &Of(TParts &parts);
  /// The vertices or bounds have changed.
  void NoteGeometry() {
    if (!m_isExtentKnown) return;
    m_isExtentKnown = false;
    m_place.layer->NoteGeometry(*this);
  }
  void NoteChange(TMapDataLinkEvent event) {
    if (m_isInLayer && !m_place.layer->IsQuiet()) m_place.layer->NoteChange(*this, event);
  }
  void ForgetMap() { m_place.map = nullptr; }

  union Place {
    TObjectLayer *layer;
    TMapHost *map;
  };
  Place m_place{.layer = nullptr};  ///< The layer, when it is in one; otherwise the map, or none.
  TObjectStylePtr m_style;
  TParts m_parts;
  TDataFields m_fields{this};
  int m_tag = 0;
  /// Place in the displayed objects, if it is there that the object stands; kept by TDisplayedObjects.
  std::uint32_t m_displayedAt = 0;
  /// Where the object stood in its layer when that was last asked for; kept by the layer, which looks there first.
  mutable std::uint32_t m_layerAt : 28 = 0;
  std::uint32_t m_isInLayer : 1 = 0;
  /// The layer has taken note of the extent; never set outside a layer.
  std::uint32_t m_isExtentKnown : 1 = 0;
  /// AnnounceEnd is at work.
  std::uint32_t m_isEnding : 1 = 0;
  /// The object stands in a pool, not in the heap.
  std::uint32_t m_isPooled : 1 = 0;
};

/// Makes an object of one kind; what layers and readers take as a class.
using TMapObjectClass = std::unique_ptr<TCustomMapObject> (*)();

template <class Kind>
[[nodiscard]] std::unique_ptr<TCustomMapObject> CreateMapObject() {
  static_assert(alignof(Kind) <= alignof(double));
  return TCustomMapObject::Make(sizeof(Kind), [](void *place) -> TCustomMapObject * { return new (place) Kind; });
}

}  // namespace tessera
