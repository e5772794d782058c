// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/graphics/TCanvas.h>
#include <tessera/objects/PartToScreen.h>
#include <tessera/objects/TMapHost.h>

#include <QString>

#include <vector>

namespace tessera::test {

/// A map without a window: it keeps the update protocol and writes down what it is told.
class TFakeMapHost final : public TMapHost {
 public:
  ~TFakeMapHost() = default;

  std::vector<QString> calls;  ///< The update protocol and the beginning and end of progress, in order.
  std::vector<int> progress;   ///< Every position shown.
  int addedObjects = 0;        ///< How often mdlAddObject was sent.
  int addedOutsideUpdate = 0;  ///< Those of them that came outside of BeginUpdate and EndUpdate.
  TObjectStylePtr defaultStyle{new TObjectStyle};

  [[nodiscard]] const TViewport &GetViewport() const override { return m_viewport; }
  [[nodiscard]] const TViewFlags &GetViewFlags() const override { return m_flags; }
  [[nodiscard]] TCanvas &GetCanvas() override { return m_canvas; }
  [[nodiscard]] TScreenOutliner &GetOutliner() override { return m_outliner; }
  [[nodiscard]] const QSharedPointer<TBitmap> &GetSelectionPattern() const override { return m_pattern; }
  [[nodiscard]] bool IsReadyToPaint() const override { return false; }
  [[nodiscard]] bool IsBeingDestroyed() const override { return false; }

  void DoUpdate(bool) override {}
  void BeginUpdate() override {
    m_inUpdate = true;
    calls.push_back(QStringLiteral("BeginUpdate"));
  }
  void EndUpdate(bool update) override {
    m_inUpdate = false;
    calls.push_back(QStringLiteral("EndUpdate ") + (update ? QStringLiteral("true") : QStringLiteral("false")));
  }
  [[nodiscard]] bool GetInUpdate() const override { return m_inUpdate; }
  void SetModified(bool) override {}
  void SetIsLoading(bool isLoading) override {
    calls.push_back(QStringLiteral("SetIsLoading ") + (isLoading ? QStringLiteral("true") : QStringLiteral("false")));
  }

  void RegisterDisplayed(TCustomMapObject &) override {}
  void UnregisterDisplayed(TCustomMapObject &) override {}
  [[nodiscard]] bool IsSelected(const TCustomMapObject &) const override { return false; }
  void SelectAlone(TCustomMapObject &) override {}
  void Deselect(TCustomMapObject &) override {}
  void DeselectLayer(TMapLayer &) override {}
  void DrawSelectionOf(const TMapLayer &) override {}

  void TraceMapEvent(TMapDataLinkEvent event, TObject *) override {
    if (event != mdlAddObject) return;
    ++addedObjects;
    if (!m_inUpdate) ++addedOutsideUpdate;
  }
  void FireAddLayer(TMapLayer &) override {}
  void FireBeforeDelLayer(TMapLayer &, bool, bool &) override {}
  void FireAfterDelLayer() override {}
  void FireAddObject(TCustomMapObject &) override {}
  void FireDeleteObject(TCustomMapObject &) override {}
  void FireAddSelection(TCustomMapObject &) override {}
  void FireDelSelection(TCustomMapObject &) override {}
  void FireUpdate() override {}
  void StartProgress(int min, int max, const QString &caption) override {
    calls.push_back(QStringLiteral("StartProgress %1 %2 %3").arg(min).arg(max).arg(caption));
  }
  void ShowProgress(int position) override { progress.push_back(position); }
  void StopProgress() override { calls.push_back(QStringLiteral("StopProgress")); }

  [[nodiscard]] const TObjectStylePtr &GetDefaultStyle(TObjectFont) const override { return defaultStyle; }
  void EndEditingOfOthers(TMapLayer &) override {}
  void ShowBounds(const TBounds &) override {}
  [[nodiscard]] bool GetisMapRotated() const override { return false; }
  bool UnRotate() override { return false; }

 private:
  static constexpr int SidePx = 100;

  TViewport m_viewport{.ClientWidth = SidePx, .ClientHeight = SidePx};
  TViewFlags m_flags;
  TBitmap m_bitmap{QImage(SidePx, SidePx, QImage::Format_RGB32)};
  TCanvas m_canvas{&m_bitmap};
  TScreenOutliner m_outliner{m_viewport, m_flags};
  QSharedPointer<TBitmap> m_pattern;
  bool m_inUpdate = false;
};

}  // namespace tessera::test
