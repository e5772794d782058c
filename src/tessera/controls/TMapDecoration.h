// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/controls/TMapCompanion.h>

namespace tessera {

/// Base of widgets that say something about a map, over it or beside it, and that can be drawn into pictures of it that
/// are exported or printed.
class TESSERA_WIDGETS_EXPORT TMapDecoration : public TMapCompanion {
  Q_OBJECT
  Q_PROPERTY(bool Transparent READ GetTransparent WRITE SetTransparent)
  Q_PROPERTY(bool InPictures READ GetInPictures WRITE SetInPictures)
  Q_PROPERTY(tessera::TMapDecoration::TCorner Corner READ GetCorner WRITE SetCorner)

 public:
  enum TCorner { dcTopLeft, dcTopRight, dcBottomLeft, dcBottomRight };
  Q_ENUM(TCorner)

  /// Whether there is no background, so that a map beneath shows and gets the mouse; letters then are black on a white
  /// rim. Otherwise it has the colours of a window. True at first.
  [[nodiscard]] bool GetTransparent() const { return m_isTransparent; }
  void SetTransparent(bool transparent);
  /// Whether it is drawn into pictures of the map that leave the screen, in its corner and the size of its sizeHint;
  /// see TMapPainting::Decorate. False at first.
  [[nodiscard]] bool GetInPictures() const { return m_isInPictures; }
  void SetInPictures(bool inPictures) { m_isInPictures = inPictures; }
  /// The corner of pictures in which it stands.
  [[nodiscard]] TCorner GetCorner() const { return m_corner; }
  void SetCorner(TCorner corner) { m_corner = corner; }

  /// Draws it, as the map is now, into a rectangle of any painter; sizes are pixels of its coordinates.
  void PaintTo(QPainter &painter, const QRect &rect);

 protected:
  TMapDecoration(TCorner corner, QWidget *parent);

  /// Brings what is shown up to date with the map.
  virtual void Refresh() {}
  virtual void PaintContent(QPainter &painter, const QRect &rect) const = 0;

  /// The font of the widget, for letters in pixels of any painter.
  [[nodiscard]] QFont GetPixelFont() const;
  [[nodiscard]] QColor GetInk() const;
  /// Letters whose upper left corner is a point.
  void PaintText(QPainter &painter, const QPointF &at, const QString &text) const;

  void MapChanged() override;
  void paintEvent(QPaintEvent *event) override;

 private:
  void PaintInto(QPainter &painter, const QRect &picture);
  void Draw(QPainter &painter, const QRect &rect) const;

  TCorner m_corner;
  bool m_isTransparent = true;
  bool m_isInPictures = false;
};

}  // namespace tessera
