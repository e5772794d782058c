// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/geometry/TMapMeasure.h>
#include <tessera/geometry/TViewport.h>

#include <QSize>
#include <QStringList>

#include <optional>

namespace tessera::apps {

/// What a picture is made of and where it goes.
struct TRenderOptions {
  QStringList files;  ///< Bottom first.
  QString picture;
  QSize sizePx;
  std::optional<TMapPoint> center;      ///< The middle of the data without.
  double zoom = 1;                      ///< 1 shows all of the data.
  int timedRebuilds = 0;                ///< So often the picture is made again, to measure.
  bool showsSmallObjects = true;        ///< As one pixel each.
  std::optional<TMapMeasure> scaleBar;  ///< How the scale bar measures; no bar without.
  bool showsLegend = false;
};

/// Reads the arguments of `tessera render`. None after printing the help that they ask for. @throws EUsageError
[[nodiscard]] std::optional<TRenderOptions> ParseRenderOptions(const QStringList &arguments);

}  // namespace tessera::apps
