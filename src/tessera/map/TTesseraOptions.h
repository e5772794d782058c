// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>
#include <tessera/objects/TObjectStyle.h>

#include <QObject>

namespace tessera {

/// What new objects of a map start with. Setting anything redraws nothing.
///
/// The properties are those of form files, in Qt's types; their fonts have no colour, so setting one keeps the colour
/// that the font had. Form files have no pens, only the three parts of one. A form file sets a property here by its
/// name on the map, as in "Options.DefaultBrush".
class TESSERA_WIDGETS_EXPORT TTesseraOptions : public QObject {
  Q_OBJECT
  Q_PROPERTY(QFont DefaultTextFont READ GetDefaultTextQFont WRITE SetDefaultTextQFont)
  Q_PROPERTY(QFont DefaultSymbolFont READ GetDefaultSymbolQFont WRITE SetDefaultSymbolQFont)
  Q_PROPERTY(int DefaultSymbolShape READ GetDefaultSymbolShape WRITE SetDefaultSymbolShape)
  Q_PROPERTY(QPen DefaultPen READ GetDefaultQPen WRITE SetDefaultQPen DESIGNABLE false)
  Q_PROPERTY(QColor DefaultPenColor READ GetDefaultPenColor WRITE SetDefaultPenColor STORED false)
  Q_PROPERTY(Qt::PenStyle DefaultPenStyle READ GetDefaultPenStyle WRITE SetDefaultPenStyle STORED false)
  Q_PROPERTY(int DefaultPenWidth READ GetDefaultPenWidth WRITE SetDefaultPenWidth STORED false)
  Q_PROPERTY(QBrush DefaultBrush READ GetDefaultQBrush WRITE SetDefaultQBrush)
  Q_PROPERTY(QColor DefaultBGColor READ GetDefaultBGQColor WRITE SetDefaultBGQColor)
  Q_PROPERTY(bool UseBGColor READ GetUseBGColor WRITE SetUseBGColor)

 public:
  explicit TTesseraOptions(QObject *parent = nullptr);

  [[nodiscard]] const TFont &GetDefaultTextFont() const { return m_textStyle->font; }
  void SetDefaultTextFont(const TFont &font) { m_textStyle->font = font; }
  [[nodiscard]] const TFont &GetDefaultSymbolFont() const { return m_symbolStyle->font; }
  void SetDefaultSymbolFont(const TFont &font) { m_symbolStyle->font = font; }
  [[nodiscard]] int GetDefaultSymbolShape() const { return m_symbolShape; }
  void SetDefaultSymbolShape(int shape) { m_symbolShape = shape; }
  [[nodiscard]] const TPen &GetDefaultPen() const { return m_textStyle->pen; }
  void SetDefaultPen(const TPen &pen);
  [[nodiscard]] const TBrush &GetDefaultBrush() const { return m_textStyle->brush; }
  void SetDefaultBrush(const TBrush &brush);
  [[nodiscard]] TColor GetDefaultBGColor() const { return m_textStyle->bgColor; }
  void SetDefaultBGColor(TColor color);
  [[nodiscard]] bool GetUseBGColor() const { return m_textStyle->useBGColor; }
  void SetUseBGColor(bool use);

  // The same in Qt's types.
  [[nodiscard]] QFont GetDefaultTextQFont() const { return GetDefaultTextFont().ToQFont(); }
  void SetDefaultTextQFont(const QFont &font);
  [[nodiscard]] QFont GetDefaultSymbolQFont() const { return GetDefaultSymbolFont().ToQFont(); }
  void SetDefaultSymbolQFont(const QFont &font);
  [[nodiscard]] QPen GetDefaultQPen() const { return GetDefaultPen().ToQPen(); }
  void SetDefaultQPen(const QPen &pen) { SetDefaultPen(TPen::FromQPen(pen)); }
  [[nodiscard]] QColor GetDefaultPenColor() const { return GetDefaultQPen().color(); }
  void SetDefaultPenColor(const QColor &color);
  [[nodiscard]] Qt::PenStyle GetDefaultPenStyle() const { return GetDefaultQPen().style(); }
  void SetDefaultPenStyle(Qt::PenStyle style);
  /// In client pixels.
  [[nodiscard]] int GetDefaultPenWidth() const { return GetDefaultPen().GetWidth(); }
  void SetDefaultPenWidth(int widthPx);
  [[nodiscard]] QBrush GetDefaultQBrush() const { return GetDefaultBrush().ToQBrush(); }
  void SetDefaultQBrush(const QBrush &brush) { SetDefaultBrush(TBrush::FromQBrush(brush)); }
  [[nodiscard]] QColor GetDefaultBGQColor() const { return ToQColor(GetDefaultBGColor()); }
  void SetDefaultBGQColor(const QColor &color) { SetDefaultBGColor(FromQColor(color)); }

  /// All of it as the style of a new object, shared by all that start with it.
  [[nodiscard]] const TObjectStylePtr &GetStyle(TObjectFont font) const {
    return font == TObjectFont::Text ? m_textStyle : m_symbolStyle;
  }

 private:
  // The two styles differ in the font only.
  TObjectStylePtr m_textStyle;
  TObjectStylePtr m_symbolStyle;
  int m_symbolShape = 58;
};

}  // namespace tessera
