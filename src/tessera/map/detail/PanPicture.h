// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>
#include <tessera/graphics/TBitmap.h>

#include <QPoint>

namespace tessera {

class TTessera;

namespace detail {

/// What a map shows, to be shown moved while the map is dragged. The data is not drawn meanwhile: a frame costs one
/// copy of the picture.
class TESSERA_WIDGETS_EXPORT PanPicture {
 public:
  /// Keeps what the map shows now.
  void Take(TTessera &map);
  /// Shows it moved by so many client pixels, with the map's background where nothing is.
  void ShowMoved(TTessera &map, const QPoint &by) const;
  /// Lets go of the picture.
  void Drop();
  /// Moves the view of a map by the way from one client pixel to the other, so that what was under the first is then
  /// under the second.
  static void MoveView(TTessera &map, const QPoint &from, const QPoint &to);

 private:
  TBitmap m_picture;
};

}  // namespace detail
}  // namespace tessera
