// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/geometry/TViewport.h>
#include <tessera/graphics/TBitmap.h>
#include <tessera/objects/TMapDataLinkEvent.h>
#include <tessera/objects/TObjectStyle.h>

#include <QSharedPointer>

#include <unordered_set>

class QUndoStack;

namespace tessera {

class TCanvas;
class TCustomMapObject;
class TDisplayedObjects;
class TMapLayer;
class TMapLayers;
class TObject;
class TObjectSelection;

namespace detail {
class ScreenOutliner;
}

/// The view settings that drawing asks for.
struct TViewFlags {
  bool ShowSelection = true;
  bool FastSelection = true;
  bool UseGeneralization = true;
  bool FastDraw = false;
  bool ShowSmallObjects = false;
  bool ShowCutObjects = false;
  int GeneralizationLevel = 1;
};

/// What drawing asks of a map.
class TMapView {
 public:
  [[nodiscard]] virtual const TViewport &GetViewport() const = 0;
  [[nodiscard]] virtual const TViewFlags &GetViewFlags() const = 0;
  /// Where objects draw: the off-screen picture while it is being rebuilt, the screen picture otherwise.
  [[nodiscard]] virtual TCanvas &GetCanvas() = 0;
  /// Turns parts into screen points for the viewport and flags as they are now.
  [[nodiscard]] virtual detail::ScreenOutliner &GetOutliner() = 0;
  /// What selected areas are filled with.
  [[nodiscard]] virtual const QSharedPointer<TBitmap> &GetSelectionPattern() const = 0;
  /// False while the map is being destroyed and as long as it has no area to draw on.
  [[nodiscard]] virtual bool IsReadyToPaint() const = 0;
  /// Whether the off-screen picture is being rebuilt, from the background up.
  [[nodiscard]] virtual bool GetIsBusy() const { return false; }
  /// Centres the view on bounds in map units and zooms so that all of them is in view, with a margin; bounds without
  /// extent keep the zoom.
  virtual void ShowBounds(const TBounds &bounds) = 0;

  /// Set while a text fits its font to its box or its box to its font, so that the one is not taken for a change that
  /// the other has to follow.
  [[nodiscard]] bool GetTextSizingGuard() const { return m_textSizingGuard; }
  void SetTextSizingGuard(bool guard) { m_textSizingGuard = guard; }

 protected:
  ~TMapView() = default;

 private:
  bool m_textSizingGuard = false;
};

/// The update protocol of a map. TUpdateScope and TLoadingScope begin and end.
class TMapUpdates {
 public:
  /// Asks for a new picture: at the next paint, or, in a batch of updates, at its end.
  virtual void DoUpdate(bool value) = 0;
  virtual void BeginUpdate() = 0;
  virtual void EndUpdate(bool update) = 0;
  [[nodiscard]] virtual bool GetInUpdate() const = 0;
  virtual void SetModified(bool modified) = 0;
  /// Set while a format provider fills a layer.
  [[nodiscard]] virtual bool GetIsLoading() const = 0;
  virtual void SetIsLoading(bool isLoading) = 0;

 protected:
  ~TMapUpdates() = default;
};

/// How a map tells of the progress of something long. TProgressScope begins and ends.
class TMapProgress {
 public:
  virtual void StartProgress(int min, int max, const QString &caption) = 0;
  virtual void ShowProgress(int position) = 0;
  virtual void StopProgress() = 0;

 protected:
  ~TMapProgress() = default;
};

/// The events of a map. Their handlers may do anything: after one has run, what it may have destroyed or moved is to be
/// found again.
class TMapEvents {
 public:
  virtual void TraceMapEvent(TMapDataLinkEvent event, TObject *sender) = 0;
  /// Whether TraceMapEvent tells anybody.
  [[nodiscard]] virtual bool IsFollowed() const = 0;
  virtual void FireAddLayer(TMapLayer &layer) = 0;
  virtual void FireBeforeDelLayer(TMapLayer &layer, bool confirmDelete, bool &allowDelete) = 0;
  virtual void FireAfterDelLayer() = 0;
  virtual void FireAddObject(TCustomMapObject &object) = 0;
  virtual void FireBeforeRemoveObject(TCustomMapObject &object, bool &canRemove) = 0;
  virtual void FireAfterRemoveObject() = 0;
  virtual void FireDeleteObject(TCustomMapObject &object) = 0;
  virtual void FireAddSelection(TCustomMapObject &object) = 0;
  virtual void FireDelSelection(TCustomMapObject &object) = 0;
  virtual void FireUpdate() = 0;

 protected:
  ~TMapEvents() = default;
};

/// A map as its layers and objects see it. The map control implements it; objects and layers never include the control.
class TESSERA_CORE_EXPORT TMapHost : public TMapView, public TMapUpdates, public TMapProgress, public TMapEvents {
 public:
  TMapHost() = default;
  TMapHost(const TMapHost &) = delete;
  TMapHost &operator=(const TMapHost &) = delete;

  [[nodiscard]] virtual bool IsBeingDestroyed() const = 0;
  [[nodiscard]] virtual TObjectSelection *GetSelection() const = 0;
  /// The objects of the current picture.
  [[nodiscard]] virtual TDisplayedObjects *GetDisplayed() const = 0;
  [[nodiscard]] virtual TMapLayers *GetLayers() const = 0;
  /// The tools that a new object starts with: those of the map's options.
  [[nodiscard]] virtual const TObjectStylePtr &GetDefaultStyle(TObjectFont font) const = 0;
  [[nodiscard]] virtual bool GetisMapRotated() const = 0;
  virtual bool UnRotate() = 0;
  /// Where edits of the map are recorded, to be undone; none where they are not.
  [[nodiscard]] virtual QUndoStack *GetUndoStack() const { return nullptr; }

 protected:
  /// The objects that are on the map without a layer know no map from now on.
  ~TMapHost();

 private:
  friend class TCustomMapObject;
  /// Objects on the map that no layer holds.
  std::unordered_set<TCustomMapObject *> m_looseObjects;
};

}  // namespace tessera
