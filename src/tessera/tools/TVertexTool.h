// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/THandle.h>
#include <tessera/base/TMapPoint.h>
#include <tessera/editing/TMapEdits.h>
#include <tessera/graphics/TCanvas.h>
#include <tessera/tools/TCustomPressMoveAndReleaseTool.h>

#include <optional>
#include <vector>

namespace tessera {

namespace detail {
class StandingFigure;
}

/// Edits the vertices of a line or region of the editable layer, of which handles stand there: the object that was
/// selected last. A click on another selects that one.
///
/// Dragging a vertex moves it, dragging an edge puts a new vertex into it, and Ctrl with a press on a vertex takes it
/// out. The vertex that was touched last is the active one, with a larger handle; Delete takes it out, and its
/// neighbour becomes the active one. Each is one step that can be undone. Handles that would overlap others are left
/// out; all vertices can be dragged all the same.
class TESSERA_WIDGETS_EXPORT TVertexTool : public TCustomPressMoveAndReleaseTool {
  Q_OBJECT

 public:
  explicit TVertexTool(QObject *parent = nullptr);
  ~TVertexTool() override;

  /// The object whose vertices are shown; none when there is none.
  [[nodiscard]] TCustomMapObject *GetEdited() const;
  /// The active vertex of the edited object, if it is still there.
  [[nodiscard]] std::optional<TVertexPlace> GetActiveVertex() const;

  void MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) override;
  void KeyDown(int &key, TShiftState shift) override;
  /// The edges that change with the vertex, as they would be.
  void Draw() override;
  /// Creates none, but moves or inserts the vertex.
  bool CreateObject() override;
  void Init() override;
  void Done() override;
  [[nodiscard]] bool GetEnabled() const override;
  [[nodiscard]] bool GetSnaps() const override { return true; }
  /// Not to the object whose vertex is dragged.
  [[nodiscard]] bool IsSnapTarget(const TCustomMapObject &object) const override;

 private:
  /// What a press is on: a vertex, or the edge that ends there.
  struct Hit {
    TVertexPlace place;
    bool isVertex;
  };
  [[nodiscard]] static std::optional<Hit> FindHit(const TCustomMapObject &object, const TMapPoint &at, double reach);
  /// The object under a press, if its vertices can be edited.
  [[nodiscard]] TCustomMapObject *FindObject(const TMapPoint &at, double reach) const;
  void BeginDrag(TCustomMapObject &object, const Hit &hit, int x, int y);
  void DeleteVertex(const TVertexPlace &place);
  void Activate(const std::optional<TVertexPlace> &place);
  void UpdateHandles();
  void DrawHandles();

  std::unique_ptr<detail::StandingFigure> m_handles;
  std::vector<TPoint> m_places;  // of the handles
  std::optional<TPoint> m_activePlace;
  THandle<TCustomMapObject> m_object;  // that the active vertex is of
  std::optional<TVertexPlace> m_active;
  Hit m_dragged{};
  std::vector<TMapPoint> m_before;  // the neighbours of the vertex that is dragged: at most one on each side
  std::vector<TMapPoint> m_behind;
};

}  // namespace tessera
