// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TColor.h>

#include <QFont>
#include <QString>

namespace tessera {

/// The family of the library's own symbol font. Its signs lie in the middle of their em square, and the em square is
/// the whole text box: ascent and advance are the pixel size, the descent is 0.
inline constexpr QStringView SymbolFontFamily = u"Tessera Symbols";

enum class TFontStyle : std::uint8_t { fsNone = 0, fsBold = 1, fsItalic = 2, fsUnderline = 4, fsStrikeOut = 8 };
Q_DECLARE_FLAGS(TFontStyles, TFontStyle)
Q_DECLARE_OPERATORS_FOR_FLAGS(TFontStyles)

/// What text is drawn with. A value; the name is shared.
///
/// Sizes are points of 1/72 inch at 96 pixels an inch, whatever the screen: 12 points are 16 client pixels, so that a
/// map looks the same everywhere. A negative size is a height in client pixels.
class TESSERA_CORE_EXPORT TFont {
 public:
  TFont() = default;
  TFont(QString name, int sizePt, TColor color = clBlack) : m_name(std::move(name)), m_sizePt(sizePt), m_color(color) {}

  /// The font as Qt has it, which knows no colour. Qt takes a size in points for that of the screen, whose inch may
  /// have another number of pixels.
  [[nodiscard]] QFont ToQFont() const;
  /// The font nearest to Qt's, in a colour; sizes are rounded, and weights from that between normal and bold are bold.
  [[nodiscard]] static TFont FromQFont(const QFont &font, TColor color = clBlack);

  [[nodiscard]] const QString &GetName() const { return m_name; }
  void SetName(const QString &name) { m_name = name; }
  [[nodiscard]] int GetSize() const { return m_sizePt; }
  void SetSize(int sizePt) { m_sizePt = sizePt; }
  /// The height of the characters in client pixels, rounded; at least 1.
  [[nodiscard]] int GetPixelSize() const;
  [[nodiscard]] TColor GetColor() const { return m_color; }
  void SetColor(TColor color) { m_color = color; }
  [[nodiscard]] TFontStyles GetStyle() const { return m_style; }
  void SetStyle(TFontStyles style) { m_style = style; }

  bool operator==(const TFont &) const = default;

 private:
  QString m_name = QStringLiteral("Tahoma");
  int m_sizePt = 8;
  TColor m_color = clBlack;
  TFontStyles m_style;
};

}  // namespace tessera
