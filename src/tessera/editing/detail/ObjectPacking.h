// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TCustomMapObject.h>

#include <QByteArray>

#include <memory>
#include <span>
#include <vector>

namespace tessera::detail {

/// Objects of the library's kinds, but for sprites, as bytes, with all they have but the bitmaps of brushes. Others are
/// left out.
[[nodiscard]] QByteArray PackObjects(std::span<TCustomMapObject *const> objects);

/// Whether PackObjects packs it.
[[nodiscard]] bool CanPack(const TCustomMapObject &object);

/// What PackObjects has packed, in no layer and with columns of their own. @throws EConvertError for any other bytes,
/// but for what might have been packed.
[[nodiscard]] std::vector<std::unique_ptr<TCustomMapObject>> UnpackObjects(const QByteArray &bytes);

}  // namespace tessera::detail
