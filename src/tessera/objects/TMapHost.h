// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/geometry/TViewport.h>
#include <tessera/graphics/TBitmap.h>
#include <tessera/objects/TMapDataLinkEvent.h>
#include <tessera/objects/TObjectStyle.h>

#include <QSharedPointer>

namespace tessera {

class TCanvas;
class TCustomMapObject;
class TMapLayer;
class TObject;
namespace detail {
class ScreenOutliner;
}

/// The view settings that drawing asks for.
struct TViewFlags {
  bool ShowSelection = true;
  bool FastSelection = true;
  bool UseGeneralization = true;
  bool FastDraw = false;
  int GeneralizationLevel = 1;
};

/// A map as its layers and objects see it. The map control implements it; objects and layers never include the control.
class TESSERA_CORE_EXPORT TMapHost {
 public:
  TMapHost() = default;
  TMapHost(const TMapHost &) = delete;
  TMapHost &operator=(const TMapHost &) = delete;

  // The view.
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
  [[nodiscard]] virtual bool IsBeingDestroyed() const = 0;

  // The update protocol.
  virtual void DoUpdate(bool value) = 0;
  virtual void BeginUpdate() = 0;
  virtual void EndUpdate(bool update) = 0;
  [[nodiscard]] virtual bool GetInUpdate() const = 0;
  virtual void SetModified(bool modified) = 0;
  /// Set while a format provider fills a layer.
  virtual void SetIsLoading(bool isLoading) = 0;
  /// Whether the off-screen picture is being rebuilt, from the background up.
  [[nodiscard]] virtual bool GetIsBusy() const { return false; }
  /// Set while a text fits its font to its box or its box to its font, so that the one is not taken for a change that
  /// the other has to follow.
  [[nodiscard]] bool GetTextSizingGuard() const { return m_textSizingGuard; }
  void SetTextSizingGuard(bool guard) { m_textSizingGuard = guard; }

  // Displayed and selected objects.
  virtual void RegisterDisplayed(TCustomMapObject &object) = 0;
  virtual void UnregisterDisplayed(TCustomMapObject &object) = 0;
  [[nodiscard]] virtual bool IsSelected(const TCustomMapObject &object) const = 0;
  virtual void SelectAlone(TCustomMapObject &object) = 0;
  virtual void Deselect(TCustomMapObject &object) = 0;
  virtual void DeselectLayer(TMapLayer &layer) = 0;
  virtual void DrawSelectionOf(const TMapLayer &layer) = 0;

  // Events.
  virtual void TraceMapEvent(TMapDataLinkEvent event, TObject *sender) = 0;
  virtual void FireAddLayer(TMapLayer &layer) = 0;
  virtual void FireBeforeDelLayer(TMapLayer &layer, bool confirmDelete, bool &allowDelete) = 0;
  virtual void FireAfterDelLayer() = 0;
  virtual void FireAddObject(TCustomMapObject &object) = 0;
  virtual void FireDeleteObject(TCustomMapObject &object) = 0;
  virtual void FireAddSelection(TCustomMapObject &object) = 0;
  virtual void FireDelSelection(TCustomMapObject &object) = 0;
  virtual void FireUpdate() = 0;
  virtual void StartProgress(int min, int max, const QString &caption) = 0;
  virtual void ShowProgress(int position) = 0;
  virtual void StopProgress() = 0;

  // Layers of the map and the tools of new objects.
  /// The tools that a new object starts with: those of the map's options.
  [[nodiscard]] virtual const TObjectStylePtr &GetDefaultStyle(TObjectFont font) const = 0;
  /// Takes `layer`'s rivals out of editing.
  virtual void EndEditingOfOthers(TMapLayer &layer) = 0;
  /// Centres the view on bounds in map units and zooms so that they fill it; bounds without extent keep the zoom.
  virtual void ShowBounds(const TBounds &bounds) = 0;
  [[nodiscard]] virtual bool GetisMapRotated() const = 0;
  virtual bool UnRotate() = 0;

 protected:
  ~TMapHost() = default;

 private:
  bool m_textSizingGuard = false;
};

}  // namespace tessera
