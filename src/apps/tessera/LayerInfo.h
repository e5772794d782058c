// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/MapFiles.h>

#include <QJsonObject>

#include <map>
#include <optional>

namespace tessera::apps {

/// What a layer holds.
struct TLayerInfo {
  std::map<QString, qint64> objects;  ///< By class, such as TRegion.
  qint64 parts = 0;
  qint64 vertices = 0;
  std::optional<TBounds> bounds;  ///< None without vertices.
};

[[nodiscard]] TLayerInfo Inspect(const TMapLayer &layer);
/// The number of vertices of all parts.
[[nodiscard]] qint64 CountVertices(const TCustomMapObject &object);

/// A paragraph for people, with an empty line behind it. @pre file.layer
[[nodiscard]] QString ToText(const TLoadedFile &file, const TLayerInfo &info);
/// The same for programs. @pre file.layer
[[nodiscard]] QJsonObject ToJson(const TLoadedFile &file, const TLayerInfo &info);

}  // namespace tessera::apps
