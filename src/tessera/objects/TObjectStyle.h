// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/graphics/TBrush.h>
#include <tessera/graphics/TFont.h>
#include <tessera/graphics/TPen.h>

#include <QSharedData>
#include <QSharedDataPointer>

namespace tessera {

/// Which of the map's default fonts an object kind starts with.
enum class TObjectFont { Symbol, Text };

/// The drawing tools of an object, shared between objects until one of them changes its own.
struct TObjectStyle : QSharedData {
  TPen pen;
  TBrush brush;
  TFont font;
  TColor bgColor = clWhite;
  bool useBGColor = false;
};
using TObjectStylePtr = QSharedDataPointer<TObjectStyle>;

}  // namespace tessera
