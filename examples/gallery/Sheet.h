// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/TTessera.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TText.h>

namespace tessera::gallery {

/// The sheet in map units, from (0, 0) at its lower left. They are degrees, so that circles on the ground can lie on
/// it.
inline constexpr TBounds Sheet{0, 0, 120, 90};
/// The size at which the sheet is laid out: ten pixels for each map unit.
inline constexpr QSize LayoutSizePx{1200, 900};

inline constexpr TColor Paper = RGB(252, 250, 245);
inline constexpr TColor Ink = RGB(34, 43, 56);
inline constexpr TColor Grey = RGB(108, 110, 114);
inline constexpr TColor Faint = RGB(205, 203, 196);
inline constexpr TColor Red = RGB(178, 58, 46);
inline constexpr TColor Blue = RGB(46, 94, 140);
inline constexpr TColor Green = RGB(72, 122, 80);
inline constexpr TColor Ochre = RGB(201, 150, 62);
inline constexpr TColor PaleBlue = RGB(205, 222, 236);
inline constexpr TColor PaleGreen = RGB(212, 228, 205);
inline constexpr TColor PaleOchre = RGB(246, 228, 190);
inline constexpr TColor PaleRed = RGB(242, 211, 203);

enum class TAlign { Left, Middle, Right };

[[nodiscard]] TPen PenOf(TColor color, int widthPx = 1, TPenStyle style = TPenStyle::psSolid);
[[nodiscard]] TBrush BrushOf(TColor color, TBrushStyle style = TBrushStyle::bsSolid);
[[nodiscard]] TFont FontOf(int sizePt, TColor color, TFontStyles style = TFontStyle::fsNone);
/// The font of captions.
[[nodiscard]] TFont SmallFont();

/// The map as a sheet of specimens: its layers, and the headings and captions that tell what is what.
class TSheet {
 public:
  /// Lays the sheet out on a map, of the size LayoutSizePx until the sheet is done.
  explicit TSheet(TTessera &map);

  [[nodiscard]] TTessera &Map() const { return m_map; }
  /// A new layer on top.
  TMapLayer &NewLayer(const QString &name);
  /// The title of the sheet, at its top.
  void AddTitle(const QString &title, const QString &subtitle);
  /// Rules off a panel at its top and writes its heading there, with the classes that it shows.
  void AddHeading(const TBounds &panel, const QString &heading, const QString &classes);
  /// The caption's lower corner, or the middle of its lower side, lies at the point.
  void AddCaption(const TMapPoint &at, const QString &text, TAlign align = TAlign::Left);

 private:
  TTessera &m_map;
  TMapLayer &m_headings;
  TMapLayer &m_captions;
};

/// A text in its font, with a box just around it. At the layout's size, the box fits; at others it goes with the zoom
/// and the font with the box.
TText &AddText(TMapLayer &layer, const TMapPoint &at, const QString &text, const TFont &font,
               TAlign align = TAlign::Left);
/// Widens the box beyond the text. Fonts come in whole points, so at most sizes of the sheet a text is not quite as
/// wide as its share; with room to spare its height alone decides, and texts of one height stay alike.
void GiveRoom(TText &text);
/// Appends a part with the given vertices to a line or a region.
void AddPart(TCustomMapObject &object, std::span<const TMapPoint> points);
void SetCorners(TRectangle &rectangle, const TBounds &box);
/// The corners of a box, the first one repeated at the end.
[[nodiscard]] std::vector<TMapPoint> RingOf(const TBounds &box);
/// Looks at the whole sheet, whatever the shape of the control.
void ShowSheet(TTessera &map);

}  // namespace tessera::gallery
