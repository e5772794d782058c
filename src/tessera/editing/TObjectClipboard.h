// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TCustomMapObject.h>

#include <QMimeData>

#include <memory>
#include <span>
#include <vector>

namespace tessera {

/// The format in which objects travel with all they have: `application/x-tessera-objects`.
[[nodiscard]] TESSERA_CORE_EXPORT QString ObjectsMimeType();

/// Objects for a clipboard or a drag, in the order given: in the format above, and as the text of a MIF file, which
/// holds the shapes that the format knows, without values. Sprites, kinds of a program's own and the bitmaps of brushes
/// are left out.
[[nodiscard]] TESSERA_CORE_EXPORT std::unique_ptr<QMimeData> ObjectsToMimeData(
    std::span<TCustomMapObject *const> objects);

/// Whether there is anything in the format above.
[[nodiscard]] TESSERA_CORE_EXPORT bool HoldsObjects(const QMimeData &data);

/// The objects in the format above, in no layer and with columns of their own; none when there are none.
/// @throws EConvertError when the data are damaged.
[[nodiscard]] TESSERA_CORE_EXPORT std::vector<std::unique_ptr<TCustomMapObject>> ObjectsFromMimeData(
    const QMimeData &data);

}  // namespace tessera
