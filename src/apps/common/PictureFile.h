// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/TTessera.h>

#include <QImage>
#include <QString>

namespace tessera::apps {

/// Whether the ending of the name is that of a kind of picture that can be written, letter case aside.
[[nodiscard]] bool IsPictureName(const QString &fileName);

/// Writes an image in the kind that the name's ending stands for; an earlier file is replaced only by a whole new one.
/// Returns what went wrong, in one line with the file's name; an empty text when all went well.
[[nodiscard]] QString SavePicture(const QImage &picture, const QString &fileName);

/// Writes what a map shows: as lines and areas where the name's ending is that of a drawing (.svg, .pdf), else its
/// off-screen picture as it is. The map's decorations come on top. Returns as SavePicture does.
[[nodiscard]] QString SaveMapPicture(TTessera &map, const QString &fileName);

/// A map's off-screen picture, with its decorations.
[[nodiscard]] QImage DecoratedPicture(TTessera &map);

/// A filter for file dialogs: "Pictures (*.png …)", PNG first.
[[nodiscard]] QString PictureNameFilter();

}  // namespace tessera::apps
