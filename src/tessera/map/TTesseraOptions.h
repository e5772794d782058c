// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>
#include <tessera/objects/TObjectStyle.h>

namespace tessera {

/// What new objects of a map start with. Setting anything redraws nothing.
class TESSERA_WIDGETS_EXPORT TTesseraOptions {
 public:
  TTesseraOptions();

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
