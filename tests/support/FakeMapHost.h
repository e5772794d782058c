// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/graphics/TCanvas.h>
#include <tessera/layers/TMapLayers.h>
#include <tessera/layers/TSelection.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/detail/ScreenOutliner.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tessera::test {

/// A map without a control: it draws on a bitmap of its own and writes down what it is told.
///
/// At first the client is 100 by 100 pixels and shows the map units 0 to 100, one to a pixel: the point (x, y) lies at
/// the pixel (x, 100 - y). Events are words such as "AddSelection road", with the names that were given to objects and
/// layers.
class TFakeMapHost : public TMapHost {
 public:
  TFakeMapHost() {
    ResizeClient(100, 100);
    selection.SetMap(this);
    QImage pattern(8, 8, QImage::Format_RGB32);
    pattern.fill(ToRgb(PatternColor));
    selectionPattern->GetImage() = pattern;
    textStyle->font.SetName(QStringLiteral("Courier New"));
  }

  static constexpr TColor PatternColor = RGB(1, 2, 3);

  /// Gives an object or a layer its name in the events.
  void Name(const TObject *object, const std::string &name) { m_names[object] = name; }
  /// The events since the last call.
  std::vector<std::string> TakeEvents() { return std::exchange(m_events, {}); }
  void ClearPicture() { picture.GetImage().fill(ToRgb(clWhite)); }
  void ResizeClient(int width, int height) {
    viewport = {0, 0, double(width), double(height), width / 2.0, height / 2.0, 1, width, height};
    picture.SetSize(width, height);
  }
  /// The colour of a pixel of the picture.
  [[nodiscard]] TColor At(int x, int y) const { return FromQColor(picture.GetImage().pixelColor(x, y)); }

  TViewport viewport;
  TViewFlags flags;
  TBitmap picture;
  TCanvas canvas{&picture};
  TSelection selection;
  TDisplayedObjects displayed;
  TMapLayers *layers = nullptr;
  QSharedPointer<TBitmap> selectionPattern = QSharedPointer<TBitmap>::create();
  TObjectStylePtr symbolStyle{new TObjectStyle};
  TObjectStylePtr textStyle{new TObjectStyle};
  /// Asked when a layer is about to be deleted.
  std::function<void(TMapLayer &layer, bool &allowDelete)> onBeforeDelLayer;
  /// Asked when an object is about to be taken out or deleted by editing.
  std::function<void(TCustomMapObject &object, bool &canRemove)> onBeforeRemoveObject;
  std::function<void()> onShowProgress;
  TBounds shownBounds{};
  bool isReady = true;
  bool isBeingDestroyed = false;
  bool isInUpdate = false;
  bool isLoading = false;
  bool isRotated = false;
  QUndoStack *undoStack = nullptr;

  [[nodiscard]] const TViewport &GetViewport() const override { return viewport; }
  [[nodiscard]] const TViewFlags &GetViewFlags() const override { return flags; }
  [[nodiscard]] TCanvas &GetCanvas() override { return canvas; }
  [[nodiscard]] detail::ScreenOutliner &GetOutliner() override {
    if (!m_outliner || !m_outliner->IsFor(viewport, flags)) m_outliner.emplace(viewport, flags);
    return *m_outliner;
  }
  [[nodiscard]] const QSharedPointer<TBitmap> &GetSelectionPattern() const override { return selectionPattern; }
  [[nodiscard]] bool IsReadyToPaint() const override { return isReady; }
  [[nodiscard]] bool IsBeingDestroyed() const override { return isBeingDestroyed; }

  void DoUpdate(bool) override { Note("DoUpdate"); }
  void BeginUpdate() override {
    isInUpdate = true;
    Note("BeginUpdate");
  }
  void EndUpdate(bool update) override {
    isInUpdate = false;
    Note(update ? "EndUpdate(true)" : "EndUpdate(false)");
  }
  [[nodiscard]] bool GetInUpdate() const override { return isInUpdate; }
  void SetModified(bool modified) override { Note(modified ? "SetModified(true)" : "SetModified(false)"); }
  [[nodiscard]] bool GetIsLoading() const override { return isLoading; }
  void SetIsLoading(bool loading) override {
    isLoading = loading;
    Note(isLoading ? "SetIsLoading(true)" : "SetIsLoading(false)");
  }

  [[nodiscard]] TSelection *GetSelection() const override { return const_cast<TSelection *>(&selection); }
  [[nodiscard]] TDisplayedObjects *GetDisplayed() const override { return const_cast<TDisplayedObjects *>(&displayed); }
  [[nodiscard]] TMapLayers *GetLayers() const override { return layers; }

  void TraceMapEvent(TMapDataLinkEvent event, TObject *sender) override {
    constexpr const char *Names[] = {"mdlBeforeAddLayer",         "mdlAfterAddLayer",
                                     "mdlBeforeDelLayer",         "mdlDelLayer",
                                     "mdlAfterDelLayer",          "mdlMoveLayer",
                                     "mdlExchangeLayer",          "mdlLayerVisibleChanged",
                                     "mdlLayerSelectableChanged", "mdlLayerEditableChanged",
                                     "mdlLayerAutolabelChanged",  "mdlAddObject",
                                     "mdlRemoveObject",           "mdlAddSelection",
                                     "mdlDelSelection",           "mdlLayerNameChanged",
                                     "mdlLayerZoomChanged",       "mdlLayerLabelChanged",
                                     "mdlLayerFieldsChanged",     "mdlObjectStyleChanged",
                                     "mdlObjectFieldsChanged",    "mdlMoveObject",
                                     "mdlObjectGeometryChanged"};
    Note(Names[event], sender);
  }
  [[nodiscard]] bool IsFollowed() const override { return true; }
  void FireAddLayer(TMapLayer &layer) override { Note("AddLayer", &layer); }
  void FireBeforeDelLayer(TMapLayer &layer, bool confirmDelete, bool &allowDelete) override {
    Note(confirmDelete ? "BeforeDelLayer(confirm)" : "BeforeDelLayer", &layer);
    if (onBeforeDelLayer) onBeforeDelLayer(layer, allowDelete);
  }
  void FireAfterDelLayer() override { Note("AfterDelLayer"); }
  void FireAddObject(TCustomMapObject &object) override { Note("AddObject", &object); }
  void FireBeforeRemoveObject(TCustomMapObject &object, bool &canRemove) override {
    Note("BeforeRemoveObject", &object);
    if (onBeforeRemoveObject) onBeforeRemoveObject(object, canRemove);
  }
  void FireAfterRemoveObject() override { Note("AfterRemoveObject"); }
  void FireDeleteObject(TCustomMapObject &object) override { Note("DeleteObject", &object); }
  void FireAddSelection(TCustomMapObject &object) override { Note("AddSelection", &object); }
  void FireDelSelection(TCustomMapObject &object) override { Note("DelSelection", &object); }
  void FireUpdate() override { Note("Update"); }
  void StartProgress(int min, int max, const QString &caption) override {
    Note("StartProgress " + std::to_string(min) + ' ' + std::to_string(max) + ' ' + caption.toStdString());
  }
  void ShowProgress(int position) override {
    Note("ShowProgress " + std::to_string(position));
    if (onShowProgress) onShowProgress();
  }
  void StopProgress() override { Note("StopProgress"); }

  [[nodiscard]] const TObjectStylePtr &GetDefaultStyle(TObjectFont font) const override {
    return font == TObjectFont::Text ? textStyle : symbolStyle;
  }
  void ShowBounds(const TBounds &bounds) override {
    shownBounds = bounds;
    Note("ShowBounds");
  }
  [[nodiscard]] bool GetisMapRotated() const override { return isRotated; }
  bool UnRotate() override {
    Note("UnRotate");
    return std::exchange(isRotated, false);
  }
  [[nodiscard]] QUndoStack *GetUndoStack() const override { return undoStack; }

 private:
  void Note(std::string event) { m_events.push_back(std::move(event)); }
  void Note(const std::string &event, const TObject *subject) {
    const auto name = m_names.find(subject);
    Note(event + ' ' + (name == m_names.end() ? "?" : name->second));
  }

  std::optional<detail::ScreenOutliner> m_outliner;
  std::map<const TObject *, std::string> m_names;
  std::vector<std::string> m_events;
};

/// Appends a part to an object and fills it.
inline TPart &AddPart(TCustomMapObject &object, std::initializer_list<TMapPoint> points) {
  TPart &part = object.GetParts().Add();
  for (const TMapPoint &point : points) part.GetPoints().Add(point);
  return part;
}

/// Appends lines named a, b, c … to a layer of the map, without events.
inline std::vector<TCustomMapObject *> AddNamedLines(TFakeMapHost &host, TMapLayer &layer, int count) {
  std::vector<TCustomMapObject *> lines;
  for (int i = 0; i < count; ++i) {
    lines.push_back(layer.NewObject<TPolyline>());
    AddPart(*lines.back(), {{10, 10}, {90, 90}});
    host.Name(lines.back(), std::string(1, char('a' + i)));
  }
  host.TakeEvents();
  return lines;
}

}  // namespace tessera::test
