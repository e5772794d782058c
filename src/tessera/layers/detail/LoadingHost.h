// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/detail/AsideRun.h>
#include <tessera/graphics/TCanvas.h>
#include <tessera/layers/TMapLayers.h>
#include <tessera/layers/TSelection.h>
#include <tessera/objects/detail/ScreenOutliner.h>

namespace tessera::detail {

/// The map that a layer is on while it is loaded in a thread of its own: what a reader asks of a map is as it was on
/// the user's when the loading began, nothing is drawn, and nobody hears of events. A run that is cancelled ends when
/// the reader tells of progress or adds an object.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): nothing can be derived from it
class LoadingHost final : public TMapHost {
 public:
  /// @pre both outlive this, the map the constructor only
  LoadingHost(TMapHost &map, const AsideRun &run);

  /// From any thread.
  [[nodiscard]] int GetPercent() const { return m_percent.load(std::memory_order_relaxed); }

  [[nodiscard]] const TViewport &GetViewport() const override { return m_viewport; }
  [[nodiscard]] const TViewFlags &GetViewFlags() const override { return m_flags; }
  [[nodiscard]] TCanvas &GetCanvas() override { return m_canvas; }
  [[nodiscard]] ScreenOutliner &GetOutliner() override { return m_outliner; }
  [[nodiscard]] const QSharedPointer<TBitmap> &GetSelectionPattern() const override { return m_pattern; }
  [[nodiscard]] bool IsReadyToPaint() const override { return false; }
  void ShowBounds(const TBounds & /*bounds*/) override {}

  void DoUpdate(bool /*value*/) override {}
  void BeginUpdate() override {}
  void EndUpdate(bool /*update*/) override {}
  [[nodiscard]] bool GetInUpdate() const override { return true; }
  void SetModified(bool /*modified*/) override { m_run.CheckGoingOn(); }
  [[nodiscard]] bool GetIsLoading() const override { return true; }
  void SetIsLoading(bool /*isLoading*/) override {}

  void StartProgress(int min, int max, const QString &caption) override;
  void ShowProgress(int position) override;
  void StopProgress() override {}

  void TraceMapEvent(TMapDataLinkEvent /*event*/, TObject * /*sender*/) override {}
  [[nodiscard]] bool IsFollowed() const override { return false; }
  void FireAddLayer(TMapLayer & /*layer*/) override {}
  void FireBeforeDelLayer(TMapLayer & /*layer*/, bool /*confirmDelete*/, bool & /*allowDelete*/) override {}
  void FireAfterDelLayer() override {}
  void FireAddObject(TCustomMapObject & /*object*/) override {}
  void FireBeforeRemoveObject(TCustomMapObject & /*object*/, bool & /*canRemove*/) override {}
  void FireAfterRemoveObject() override {}
  void FireDeleteObject(TCustomMapObject & /*object*/) override {}
  void FireAddSelection(TCustomMapObject & /*object*/) override {}
  void FireDelSelection(TCustomMapObject & /*object*/) override {}
  void FireUpdate() override {}

  /// Nothing of it is to be told of its end.
  [[nodiscard]] bool IsBeingDestroyed() const override { return true; }
  [[nodiscard]] TObjectSelection *GetSelection() const override { return m_selection.get(); }
  [[nodiscard]] TDisplayedObjects *GetDisplayed() const override { return m_displayed.get(); }
  [[nodiscard]] TMapLayers *GetLayers() const override { return m_layers.get(); }
  [[nodiscard]] const TObjectStylePtr &GetDefaultStyle(TObjectFont font) const override {
    return font == TObjectFont::Text ? m_textStyle : m_symbolStyle;
  }
  [[nodiscard]] bool GetisMapRotated() const override { return m_isRotated; }
  bool UnRotate() override { return false; }

 private:
  const AsideRun &m_run;
  std::atomic<int> m_percent = 0;
  int m_min = 0;
  int m_max = 0;
  TViewport m_viewport;
  TViewFlags m_flags;
  ScreenOutliner m_outliner;
  TBitmap m_bitmap;  ///< Of the screen's resolution, by which texts are measured.
  TCanvas m_canvas{&m_bitmap};
  QSharedPointer<TBitmap> m_pattern = QSharedPointer<TBitmap>::create();
  std::unique_ptr<TSelection> m_selection = std::make_unique<TSelection>();
  std::unique_ptr<TDisplayedObjects> m_displayed = std::make_unique<TDisplayedObjects>();
  std::unique_ptr<TMapLayers> m_layers = std::make_unique<TMapLayers>();
  TObjectStylePtr m_textStyle;
  TObjectStylePtr m_symbolStyle;
  bool m_isRotated;
};

}  // namespace tessera::detail
