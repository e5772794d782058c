// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/formats/TWorkspaceReport.h>
#include <tessera/layers/TMapDataLink.h>
#include <tessera/layers/TMapLayers.h>
#include <tessera/layers/TSelection.h>
#include <tessera/map/TMapNavigation.h>
#include <tessera/map/TMapPainting.h>
#include <tessera/map/TMapSnapping.h>
#include <tessera/map/TSubstrates.h>
#include <tessera/map/TTesseraEvents.h>
#include <tessera/map/TTesseraOptions.h>

#include <memory>

namespace tessera {

class TMapToolsManager;

/// The map control: owns an ordered stack of layers and shows what its view selects of them.
///
/// The view is a centre in map units, a zoom, and a reference extent that the zoom magnifies: at zoom 1 the extent's
/// width fills the control. Everything that changes the picture asks for a new one through DoUpdate; the picture is
/// rebuilt at the next paint, off screen, and copied to the screen, where the selection is drawn over it. See TViewport
/// for the conversion between map units and client pixels.
/// It tells what happens by the signals of TTesseraEvents. Everything runs in the thread of the user interface.
class TESSERA_WIDGETS_EXPORT TTessera : public TTesseraEvents {
  Q_OBJECT
  Q_PROPERTY(tessera::TTesseraOptions *Options READ GetOptions)
  Q_PROPERTY(QColor Color READ GetQColor WRITE SetQColor)
  Q_PROPERTY(double Zoom READ GetZoom WRITE SetZoom NOTIFY OnZoom)
  Q_PROPERTY(bool WheelMouse READ GetWheelMouse WRITE SetWheelMouse)
  Q_PROPERTY(tessera::TTessera::TWheelMouseZoomType ZoomType READ GetZoomType WRITE SetZoomType)
  Q_PROPERTY(double CenterX READ GetCenterX WRITE SetCenterX)
  Q_PROPERTY(double CenterY READ GetCenterY WRITE SetCenterY)
  Q_PROPERTY(double MinZoom READ GetMinZoom WRITE SetMinZoom)
  Q_PROPERTY(double MaxZoom READ GetMaxZoom WRITE SetMaxZoom)
  Q_PROPERTY(bool ShowSelection READ GetShowSelection WRITE SetShowSelection)
  Q_PROPERTY(bool FastSelection READ GetFastSelection WRITE SetFastSelection)
  Q_PROPERTY(tessera::TMapNavigation *Navigation READ GetNavigation)
  Q_PROPERTY(tessera::TMapPainting *Painting READ GetPainting)
  Q_PROPERTY(tessera::TMapSnapping *Snapping READ GetSnapping)
  Q_PROPERTY(int PickTolerancePx READ GetPickTolerancePx WRITE SetPickTolerancePx)

 public:
  /// What the wheel zooms about: the centre of the view, the place of the cursor, or the first selected object.
  enum TWheelMouseZoomType { wmCenter, wmCursor, wmSelected };
  Q_ENUM(TWheelMouseZoomType)

  /// In a form designer a map leaves the process as it is; in a program, from the first map on, messages are shown in
  /// boxes (see SetMessageSink) and screen readers can read maps.
  enum TPlace { plProgram, plDesigner };

  explicit TTessera(QWidget *parent = nullptr, TPlace place = plProgram);
  ~TTessera() override;

  // The view. Every setter asks for a new picture unless it says otherwise.

  [[nodiscard]] double GetZoom() const { return GetViewport().Zoom; }
  /// 0 and the present value are ignored. The value is not held to MinZoom and MaxZoom, which bound the wheel only.
  void SetZoom(double zoom);
  [[nodiscard]] double GetCenterX() const { return GetViewport().CenterX; }
  void SetCenterX(double x);
  [[nodiscard]] double GetCenterY() const { return GetViewport().CenterY; }
  void SetCenterY(double y);
  [[nodiscard]] double GetMinX() const { return GetViewport().MinX; }
  void SetMinX(double x);
  [[nodiscard]] double GetMinY() const { return GetViewport().MinY; }
  void SetMinY(double y);
  [[nodiscard]] double GetMaxX() const { return GetViewport().MaxX; }
  void SetMaxX(double x);
  [[nodiscard]] double GetMaxY() const { return GetViewport().MaxY; }
  void SetMaxY(double y);
  [[nodiscard]] double GetMinZoom() const;
  void SetMinZoom(double zoom);  ///< Redraws nothing.
  [[nodiscard]] double GetMaxZoom() const;
  void SetMaxZoom(double zoom);  ///< Redraws nothing.
  [[nodiscard]] bool GetWheelMouse() const;
  void SetWheelMouse(bool enabled);  ///< Redraws nothing.
  [[nodiscard]] TWheelMouseZoomType GetZoomType() const;
  void SetZoomType(TWheelMouseZoomType type);  ///< Redraws nothing.
  /// What the control shows, in map units. @throws EZeroDivide for a view without extent.
  [[nodiscard]] TBounds GetViewBounds() const { return GetViewport().GetViewBounds(); }
  /// The map point of a client pixel. @throws EZeroDivide for a view without extent.
  void ScreenToMap(int x, int y, double &mx, double &my) const;
  /// The client pixel of a map point; with `clip` a point outside the view is pinned one pixel outside the client area.
  /// @throws ERangeError with `clip` when the pixel does not fit 32 bits.
  void MapToScreen(double mx, double my, int &x, int &y, bool clip) const;
  const TViewport &GetViewport() const override;
  /// Looks at the middle of bounds in map units and zooms so that all of them is in view, with a small margin. Bounds
  /// without extent keep the zoom; inverted ones, and a control without an area, change nothing.
  void ShowBounds(const TBounds &bounds) override;
  /// ShowBounds with the bounds of a layer's objects; nothing for a layer without any.
  void ShowLayer(const TMapLayer &layer);
  /// Shows the objects of all layers at zoom 1, by making their bounds with a small margin the reference extent (a
  /// single point: one map unit about it). A map without objects, and a control without an area, stay as they are.
  void ShowAll();

  // Rotation turns the data, not the view: the vertices of all objects change, and nothing before can be undone.

  /// Turns the map to `angleDeg` degrees about a map point, from where it stood unrotated.
  void RotateMap(double x, double y, double angleDeg);
  /// Applies the present rotation to all vertices.
  void Rotate();
  /// Undoes the rotation. False when there was none.
  bool UnRotate() override;
  [[nodiscard]] double RotateX(double x, double y) const;
  [[nodiscard]] double RotateY(double x, double y) const;
  [[nodiscard]] double UnRotateX(double x, double y) const;
  [[nodiscard]] double UnRotateY(double x, double y) const;
  void NormalToRotated(double x, double y, double &rx, double &ry) const;
  void RotatedToNormal(double x, double y, double &nx, double &ny) const;
  [[nodiscard]] bool GetisMapRotated() const override;
  [[nodiscard]] double GetRotationAngle() const;  ///< In degrees; 0 when the map is not rotated.
  [[nodiscard]] TMapPoint GetRotationCenter() const;

  // The update protocol.

  /// Marks the picture stale and, outside a batch of updates, asks for a repaint.
  void DoUpdate(bool value) override;
  /// Holds repaints back. Batches do not nest: the first EndUpdate ends the update.
  void BeginUpdate() override;
  void EndUpdate(bool update) override;
  [[nodiscard]] bool GetInUpdate() const override;
  void SetInUpdate(bool inUpdate);
  /// Whether the off-screen picture is stale.
  [[nodiscard]] bool GetModified() const;
  void SetModified(bool modified) override;
  /// Asks for a repaint of what there is, without making the picture stale.
  void Invalidate();
  /// Set while the off-screen picture is being rebuilt; repaints asked for meanwhile come afterwards.
  [[nodiscard]] bool GetIsBusy() const override;
  void SetIsBusy(bool isBusy);
  [[nodiscard]] bool GetIsLoading() const override;
  void SetIsLoading(bool isLoading) override;

  // Drawing.

  [[nodiscard]] bool GetShowSelection() const { return GetViewFlags().ShowSelection; }
  void SetShowSelection(bool show);
  /// Whether the selection is drawn on the screen, over the picture, instead of being part of it.
  [[nodiscard]] bool GetFastSelection() const { return GetViewFlags().FastSelection; }
  void SetFastSelection(bool fast);
  [[nodiscard]] bool GetUseGeneralization() const { return GetViewFlags().UseGeneralization; }
  void SetUseGeneralization(bool use);
  /// How far apart, in client pixels, the points of an outline must be to be drawn.
  [[nodiscard]] int GetGeneralizationLevel() const { return GetViewFlags().GeneralizationLevel; }
  void SetGeneralizationLevel(int levelPx);
  [[nodiscard]] bool GetFastDraw() const { return GetViewFlags().FastDraw; }
  void SetFastDraw(bool fast);
  [[nodiscard]] TColor GetColor() const;
  void SetColor(TColor color);
  [[nodiscard]] QColor GetQColor() const { return ToQColor(GetColor()); }
  void SetQColor(const QColor &color) { SetColor(FromQColor(color)); }
  const TViewFlags &GetViewFlags() const override;
  /// The canvas of the screen picture, or of the off-screen picture while the map is busy. What is drawn on the screen
  /// picture shows at once and stays until the next repaint that the library asks for.
  TCanvas &GetCanvas() override;
  [[nodiscard]] TCanvas &GetMapCanvas();
  /// Copies the off-screen picture as the last paint left it.
  void AssignToBitmap(TBitmap &bitmap) const;
  void PaintMapToBitmap();
  /// Copies the off-screen picture to the screen picture, the fast selection over it; OnScreenRepainted follows.
  void PaintBitmapToMapCanvas();

  // What the map owns. A setter takes over what it is given, which is on this map from now on, and hands back what was
  // held, which is on none. A list that is handed back is not told of objects that go.

  [[nodiscard]] TMapLayers *GetLayers() const override;
  std::unique_ptr<TMapLayers> SetLayers(std::unique_ptr<TMapLayers> layers);
  [[nodiscard]] TSelection *GetSelection() const override;
  std::unique_ptr<TSelection> SetSelection(std::unique_ptr<TSelection> selection);
  [[nodiscard]] TSubstrates *GetSubstrates() const;
  std::unique_ptr<TSubstrates> SetSubstrates(std::unique_ptr<TSubstrates> substrates);
  [[nodiscard]] TDisplayedObjects *GetDisplayed() const override;
  std::unique_ptr<TDisplayedObjects> SetDisplayed(std::unique_ptr<TDisplayedObjects> displayed);
  [[nodiscard]] TMapDataLinks *GetDataLinks() const;
  std::unique_ptr<TMapDataLinks> SetDataLinks(std::unique_ptr<TMapDataLinks> links);
  [[nodiscard]] TTesseraOptions *GetOptions() const;
  std::unique_ptr<TTesseraOptions> SetOptions(std::unique_ptr<TTesseraOptions> options);
  [[nodiscard]] TMapToolsManager *GetMapToolsManager() const;
  std::unique_ptr<TMapToolsManager> SetMapToolsManager(std::unique_ptr<TMapToolsManager> tools);
  QUndoStack *GetUndoStack() const override;
  void SetUndoStack(QUndoStack *stack);  ///< Not owned: see TMapEdits.
  [[nodiscard]] TMapNavigation *GetNavigation() const;
  [[nodiscard]] TMapPainting *GetPainting() const;
  [[nodiscard]] TMapSnapping *GetSnapping() const;
  const QSharedPointer<TBitmap> &GetSelectionPattern() const override;
  void SetSelectionPattern(const TBitmap &pattern);

  // Picking, among the objects of the current picture and from the top layer down.

  /// Selects the first selectable object at a map point and no other, or, with `exclusive` off, adds it or takes it
  /// out. Without a hit the selection is cleared; without a picture nothing happens.
  void SelectObjectAt(double x, double y, bool exclusive);
  /// Adds every object of a selectable layer at a map point to the selection.
  void SelectObjectsAt(double x, double y, bool clearFirst);
  /// How many of the topmost layers SelectObjectAt passes over.
  [[nodiscard]] int GetCtrlClickCount() const;
  void SetCtrlClickCount(int count);
  /// How far from the point, in client pixels, an object is still hit; 0, as at first, leaves it to its ContainsPoint.
  [[nodiscard]] int GetPickTolerancePx() const;
  void SetPickTolerancePx(int tolerancePx);

  /// Opens a MapInfo workspace: a layer for every table that it shows and that has a file, on top of what is there,
  /// each with the workspace's settings for it, and its centre. The zoom stays. A table whose file is not found is
  /// passed over. The answer tells what was taken over.
  /// @throws EConvertError for a centre or an editable layer that is no number; layers that were added stay.
  TWorkspaceReport LoadWOR(const QString &fileName);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

 Q_SIGNALS:
  void OnZoom(tessera::TTessera *sender);

 protected:
  /// Brings the screen picture up to date; runs for the repaints that the library asks for.
  virtual void Paint();

  bool event(QEvent *event) override;
  void paintEvent(QPaintEvent *event) override;
  void resizeEvent(QResizeEvent *event) override;
  void wheelEvent(QWheelEvent *event) override;
  void mousePressEvent(QMouseEvent *event) override;
  void mouseMoveEvent(QMouseEvent *event) override;
  void mouseReleaseEvent(QMouseEvent *event) override;
  void mouseDoubleClickEvent(QMouseEvent *event) override;
  void keyPressEvent(QKeyEvent *event) override;
  void keyReleaseEvent(QKeyEvent *event) override;
  void inputMethodEvent(QInputMethodEvent *event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  bool IsReadyToPaint() const override;
  bool IsBeingDestroyed() const override;
  detail::ScreenOutliner &GetOutliner() override;
  void TraceMapEvent(TMapDataLinkEvent event, TObject *sender) override;
  bool IsFollowed() const override;
  const TObjectStylePtr &GetDefaultStyle(TObjectFont font) const override;

  void SetView(double TViewport::*member, double value);
  void Resume();

  struct Private;
  std::unique_ptr<Private> d;
};

}  // namespace tessera
