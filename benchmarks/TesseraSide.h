// SPDX-License-Identifier: MIT
#pragma once

#include "BareLoop.h"

#include <tessera/formats/SimpleMIFFormatProvider.h>
#include <tessera/formats/TMapInfoFormatProvider.h>
#include <tessera/map/TTessera.h>

namespace tessera::bench {

/// A map control, never shown, with one layer.
class TesseraSide {
 public:
  /// The layer is empty.
  explicit TesseraSide(QSize size);
  /// The layer is that of a MIF or TAB file. @throws std::runtime_error when the file cannot be read.
  TesseraSide(const QString &path, QSize size);

  /// Writes everything as a MIF and MID file.
  /// @throws std::runtime_error when that fails.
  void Write(const QString &mifPath);
  [[nodiscard]] int GetObjectCount() const { return m_control.GetLayers()->First()->GetObjectCount(); }
  /// Vertices of all objects.
  [[nodiscard]] std::size_t CountVertices() const;

  /// Turns the control to a view. Nothing is drawn yet.
  void Show(const BareView &view);
  /// Rebuilds the control's picture.
  void Draw() { m_control.PaintMapToBitmap(); }
  [[nodiscard]] QImage Picture() const;
  /// Destroys the objects that the view does not show.
  void KeepOnlyShown();
  [[nodiscard]] TTessera &Control() { return m_control; }
  [[nodiscard]] TMapLayer &Layer() { return *m_control.GetLayers()->First(); }

 private:
  TSimpleMIFFormatProvider m_provider;
  TMapInfoFormatProvider m_tables;  // MIF files go to the first of the two
  TTessera m_control;
};

}  // namespace tessera::bench
