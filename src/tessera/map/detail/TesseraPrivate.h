// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/TMapNavigation.h>
#include <tessera/map/TMapToolsManager.h>
#include <tessera/map/TTessera.h>
#include <tessera/map/detail/InputRouter.h>
#include <tessera/map/detail/MapRotation.h>
#include <tessera/map/detail/PictureSteps.h>
#include <tessera/map/detail/ScreenPictures.h>
#include <tessera/objects/detail/ScreenOutliner.h>

#include <QPointer>
#include <QUndoStack>

#include <optional>

namespace tessera {

struct TTessera::Private {
  explicit Private(TTessera &map) : painting(map, flags), pictures(map), steps(map, pictures), input(map) {}

  mutable TViewport viewport;  // follows the client size whenever it is asked for
  TViewFlags flags;
  double minZoom = 0;
  double maxZoom = 100;
  TWheelMouseZoomType zoomType = wmCenter;
  bool wheelMouse = true;
  TColor color = clWhite;
  int ctrlClickCount = 0;
  int pickTolerancePx = 0;
  TMapNavigation navigation;
  TMapPainting painting;
  TMapSnapping snapping;
  detail::MapRotation rotation;
  QPointer<QUndoStack> undoStack;

  bool isBusy = false;
  bool inUpdate = false;
  bool modified = false;
  bool isLoading = false;
  bool isBeingDestroyed = false;

  detail::ScreenPictures pictures;
  detail::PictureSteps steps;
  detail::InputRouter input;
  QSharedPointer<TBitmap> selectionPattern;
  std::optional<detail::ScreenOutliner> outliner;

  std::unique_ptr<TMapLayers> layers;
  std::unique_ptr<TSubstrates> substrates;
  std::unique_ptr<TSelection> selection;
  std::unique_ptr<TDisplayedObjects> displayed;
  std::unique_ptr<TMapDataLinks> dataLinks;
  std::unique_ptr<TTesseraOptions> options;
  std::unique_ptr<TMapToolsManager> tools;
};

}  // namespace tessera
