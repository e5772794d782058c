// SPDX-License-Identifier: MIT
#include <tessera/formats/detail/MifStyles.h>
#include <tessera/formats/detail/MitabStyles.h>
#include <tessera/graphics/TCanvas.h>

#include <algorithm>
#include <cmath>

namespace tessera::detail {
namespace {

constexpr QStringView UsualSymbolFont = u"MapInfo Symbol";
constexpr int MostPenPx = 7;
constexpr int PointWidth = 10;  // such a width plus ten times the points is one in points
constexpr double PxOfPoint = 4.0 / 3;
constexpr int NoPattern = 1;

// Patterns of MapInfo's lines, by what they look like; the rest are arrows, rails and the like.
constexpr int Dots[] = {3, 4, 9, 10};
constexpr int Dashes[] = {5, 6, 7, 8, 11, 12, 13};
constexpr int DashDots[] = {14, 15, 16, 17, 23};
constexpr int DashDotDots[] = {18, 19, 20, 21, 22, 24, 25};

TPenStyle PenStyleOf(int pattern) {
  const auto isOneOf = [pattern](const auto &patterns) {
    return std::find(std::begin(patterns), std::end(patterns), pattern) != std::end(patterns);
  };
  if (pattern == NoPattern) return TPenStyle::psClear;
  if (isOneOf(Dots)) return TPenStyle::psDot;
  if (isOneOf(Dashes)) return TPenStyle::psDash;
  if (isOneOf(DashDots)) return TPenStyle::psDashDot;
  return isOneOf(DashDotDots) ? TPenStyle::psDashDotDot : TPenStyle::psSolid;
}

int PenWidthPx(int width) {
  if (width <= PointWidth) return std::max(width, 1);
  return std::max(int(std::lround((width - PointWidth) / 10.0 * PxOfPoint)), 1);
}

int PenWidthInFile(int widthPx) {
  constexpr int Most = 2047;
  if (widthPx <= MostPenPx) return std::max(widthPx, 1);
  return int(std::min(std::round(widthPx / PxOfPoint * 10) + PointWidth, double(Most)));
}

/// Those of the patterns that are not known are solid.
TBrushStyle BrushStyleOf(int pattern) {
  using enum TBrushStyle;
  for (const TBrushStyle style : {bsClear, bsHorizontal, bsVertical, bsBDiagonal, bsFDiagonal, bsCross, bsDiagCross}) {
    if (FillPattern(style) == pattern) return style;
  }
  return bsSolid;
}

bool HasBrush(int kind) {
  return kind == TABFC_Region || kind == TABFC_Rectangle || kind == TABFC_Ellipse;
}

bool HasPen(int kind) {
  return HasBrush(kind) || kind == TABFC_Polyline || kind == TABFC_Arc;
}

bool HasSymbol(int kind) {
  return kind == TABFC_Point || kind == TABFC_FontPoint || kind == TABFC_CustomPoint || kind == TABFC_MultiPoint;
}

}  // namespace

double LettersWidthToHeight(TCanvas &canvas, const TFont &font, const QString &text) {
  constexpr int LargePt = 100;  // so that it is not the pixels that count
  canvas.Font() = font;
  canvas.Font().SetSize(LargePt);
  const QSize extent = canvas.TextExtent(text);
  return extent.height() > 0 ? double(extent.width()) / extent.height() : 0;
}

bool IsMapInfoSymbolFont(const QString &name) {
  return name.compare(UsualSymbolFont, Qt::CaseInsensitive) == 0 || name == SymbolFontFamily;
}

MitabStyleReader::Look MitabStyleReader::LookOf(mitab_feature feature) {
  Look look{.kind = mitab_c_get_type(feature), .fontName = {}};
  if (HasPen(look.kind)) {
    look.pen = {mitab_c_get_pen_width(feature), mitab_c_get_pen_pattern(feature), mitab_c_get_pen_color(feature)};
  }
  if (HasBrush(look.kind)) {
    look.brush = {mitab_c_get_brush_fgcolor(feature), mitab_c_get_brush_bgcolor(feature),
                  mitab_c_get_brush_pattern(feature), mitab_c_get_brush_transparent(feature)};
  }
  if (HasSymbol(look.kind)) look.font = {mitab_c_get_symbol_color(feature), mitab_c_get_symbol_size(feature)};
  if (look.kind == TABFC_Text) {
    look.font = {mitab_c_get_text_fgcolor(feature), 0};
    look.back = mitab_c_get_text_bgcolor(feature);
  }
  if (look.kind == TABFC_Text || look.kind == TABFC_FontPoint) look.fontName = mitab_c_get_font(feature);
  return look;
}

TObjectStylePtr MitabStyleReader::StyleOf(mitab_feature feature) {
  constexpr std::size_t MostStyles = 100000;
  Look look = LookOf(feature);
  const auto known = m_styles.find(look);
  if (known != m_styles.end()) return known->second;
  if (m_styles.size() >= MostStyles) m_styles.clear();
  TObjectStylePtr style = MakeStyle(look);
  m_styles.emplace(std::move(look), style);
  return style;
}

TObjectStylePtr MitabStyleReader::MakeStyle(const Look &look) {
  TObjectStylePtr style = m_map.GetDefaultStyle(look.kind == TABFC_Text ? TObjectFont::Text : TObjectFont::Symbol);
  if (HasPen(look.kind)) ReadPen(look, style->pen);
  if (HasBrush(look.kind)) ReadBrush(look, *style);
  if (HasSymbol(look.kind) || look.kind == TABFC_Text) ReadFont(look, *style);
  return style;
}

void MitabStyleReader::ReadPen(const Look &look, TPen &pen) {
  const auto [width, pattern, color] = look.pen;
  pen.SetWidth(PenWidthPx(width));
  pen.SetStyle(PenStyleOf(pattern));
  pen.SetColor(ColorFromMif(color));
  m_hasOtherPens |= pattern != LinePattern(pen.GetStyle()) || PenWidthInFile(pen.GetWidth()) != width;
}

void MitabStyleReader::ReadBrush(const Look &look, TObjectStyle &style) {
  const auto [fore, back, pattern, isTransparent] = look.brush;
  style.brush.SetStyle(BrushStyleOf(pattern));
  style.brush.SetColor(ColorFromMif(fore));
  style.useBGColor = isTransparent == 0 && pattern != NoPattern;
  style.bgColor = ColorFromMif(back);
  m_hasOtherBrushes |= pattern > NoPattern && pattern != FillPattern(style.brush.GetStyle());
}

void MitabStyleReader::ReadFont(const Look &look, TObjectStyle &style) {
  constexpr int White = 0xffffff;
  const auto [color, sizePt] = look.font;
  const bool isNamed = !look.fontName.empty();
  style.font.SetName(isNamed ? m_text.Decode(look.fontName.c_str()) : UsualSymbolFont.toString());
  style.font.SetColor(ColorFromMif(color));
  if (sizePt > 0) style.font.SetSize(sizePt);
  if (look.kind == TABFC_Text) {
    style.useBGColor = look.back != White;
    style.bgColor = ColorFromMif(look.back);
  }
  m_hasPictures |= look.kind == TABFC_CustomPoint;
}

void MitabStyleReader::ReportLosses(TFormatReport &report) const {
  if (m_hasOtherPens) report.Lose(TFormatReport::tr("patterns and widths of lines that have no like here"));
  if (m_hasOtherBrushes) report.Lose(TFormatReport::tr("patterns of areas that have no like here"));
  if (m_hasPictures) report.Lose(TFormatReport::tr("pictures of symbols"));
}

void MitabStyleWriter::WritePen(const TObjectStyle &style, mitab_feature feature) {
  const int width = PenWidthInFile(style.pen.GetWidth());
  mitab_c_set_pen(feature, width, LinePattern(style.pen.GetStyle()), ColorToMif(style.pen.GetColor()));
  if (PenWidthPx(mitab_c_get_pen_width(feature)) != std::max(style.pen.GetWidth(), 1)) ++m_changedPens;
}

void MitabStyleWriter::WriteBrush(const TObjectStyle &style, mitab_feature feature) {
  if (style.brush.GetBitmap() != nullptr) ++m_bitmaps;
  mitab_c_set_brush(feature, ColorToMif(style.brush.GetColor()), ColorToMif(style.bgColor),
                    FillPattern(style.brush.GetStyle()), style.useBGColor ? 0 : 1);
}

void MitabStyleWriter::WriteSymbol(const TObjectStyle &style, int shape, mitab_feature feature) {
  WriteFontName(style, feature);
  mitab_c_set_symbol(feature, shape, style.font.GetSize(), ColorToMif(style.font.GetColor()));
  constexpr int MostNumber = 255;
  if (shape < 0 || shape > MostNumber) ++m_changedSymbols;
}

void MitabStyleWriter::WriteFontName(const TObjectStyle &style, mitab_feature feature) {
  if (style.font.GetStyle() != TFontStyles()) ++m_fontStyles;
  mitab_c_set_font(feature, m_text.Encode(style.font.GetName()).constData());
}

void MitabStyleWriter::ReportLosses(TFormatReport &report) const {
  report.Lose(TFormatReport::tr("widths of pens, changed: %1"), m_changedPens);
  report.Lose(TFormatReport::tr("numbers of symbols beyond 255, changed: %1"), m_changedSymbols);
  report.Lose(TFormatReport::tr("brushes with a bitmap, written with their colour: %1"), m_bitmaps);
  report.Lose(TFormatReport::tr("styles of fonts, such as bold: %1"), m_fontStyles);
}

}  // namespace tessera::detail
