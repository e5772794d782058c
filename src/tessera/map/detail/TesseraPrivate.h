// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Exceptions.h>
#include <tessera/base/MessageSink.h>
#include <tessera/graphics/TCanvas.h>
#include <tessera/map/detail/MapRotation.h>
#include <tessera/map/TTessera.h>
#include <tessera/objects/detail/ScreenOutliner.h>

#include <optional>

namespace tessera {

struct TTessera::Private {
  mutable TViewport viewport;  // follows the client size whenever it is asked for
  TViewFlags flags;
  double minZoom = 0;
  double maxZoom = 100;
  TWheelMouseZoomType zoomType = wmCenter;
  bool wheelMouse = true;
  TColor color = clWhite;
  int ctrlClickCount = 0;
  detail::MapRotation rotation;

  bool isBusy = false;
  bool inUpdate = false;
  bool modified = false;
  bool isLoading = false;
  bool isBeingDestroyed = false;
  bool isFirstPaint = true;
  bool isPaintPending = true;  // Paint is due, not just a copy of the screen picture

  TBitmap bitmap;  // the off-screen picture
  TBitmap screen;  // what the control shows
  TCanvas bitmapCanvas{&bitmap};
  TCanvas screenCanvas{&screen};
  QSharedPointer<TBitmap> selectionPattern;
  std::optional<detail::ScreenOutliner> outliner;

  std::unique_ptr<TMapLayers> layers;
  std::unique_ptr<TSubstrates> substrates;
  std::unique_ptr<TSelection> selection;
  std::unique_ptr<TDisplayedObjects> displayed;
  std::unique_ptr<TMapDataLinks> dataLinks;
  std::unique_ptr<TTesseraOptions> options;
};

/// Runs an event handler's body. Qt cannot carry an exception, so one that comes out of it ends as a message.
template <typename Body>
void GuardedEvent(Body body) {
  try {
    body();
  } catch (const std::exception &error) {
    ShowMessage(MessageOf(error));
  }
}

}  // namespace tessera
