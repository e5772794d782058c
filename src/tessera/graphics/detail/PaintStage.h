// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/graphics/detail/RasterOps.h>

#include <QImage>
#include <QPainter>

#include <memory>

namespace tessera::detail {

/// Pixels that are drawn on both directly and with a QPainter, which is opened when first needed and then stays open.
/// The painter works on an image of its own over the same memory. So the picture it belongs to may be shared, replaced
/// or freed at any time; the stage must then be attached anew before the next drawing.
class PaintStage {
 public:
  /// Ends the painter.
  void Close() { m_painter.reset(); }

  void Attach(const Surface &surface, QImage::Format format) {
    Close();
    m_surface = surface;
    const int width = surface.right - surface.left;
    const int height = surface.bottom - surface.top;
    m_alias = QImage(reinterpret_cast<uchar *>(surface.pixels), width, height,
                     qsizetype(surface.stride) * qsizetype(sizeof(QRgb)), format);
  }

  [[nodiscard]] const Surface &GetSurface() const { return m_surface; }

  /// Draws in device pixels, in the coordinates of the surface.
  [[nodiscard]] QPainter &Painter() {
    if (!m_painter) {
      m_painter = std::make_unique<QPainter>(&m_alias);
      m_painter->translate(-m_surface.left, -m_surface.top);
      m_home = m_painter->worldTransform();
    }
    m_painter->setWorldTransform(m_home);
    return *m_painter;
  }

 private:
  Surface m_surface;
  QImage m_alias;
  QTransform m_home;
  std::unique_ptr<QPainter> m_painter;
};

}  // namespace tessera::detail
