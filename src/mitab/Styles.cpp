// SPDX-License-Identifier: MIT
#include "Styles.h"

#include "StyleText.h"

#include <cpl_string.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numbers>

namespace tessera::mitab {
namespace {

constexpr int MostPenPx = 7;
constexpr int FirstPointWidth = 10;  // such a width plus ten times the points
constexpr int MostPenWidth = 2047;

/// How high the letters of a text are, compared with a line of it, as OGR has it.
constexpr double LetterToLine = 0.69;
constexpr double SpacingFactors[] = {1, 0.80, 0.66};

constexpr const char *FontSymbolId = "font-sym-";
constexpr const char *CustomSymbolId = "mapinfo-custom-sym-";

double LetterHeight(const Label &label) {
  const int lines = LineCount(label.text);
  const double spacing = lines > 1 ? SpacingFactors[std::clamp(label.spacing, 0, 2)] : 1;
  return label.height / lines * spacing * LetterToLine;
}

void ReadPen(const StyleText &style, Pen &pen) {
  if (!style.HasTool("PEN")) return;
  const std::string_view width = style.Setting("PEN", "w");
  const int number = int(style.Number("PEN", "w"));
  pen.width = width.ends_with("pt") ? FirstPointWidth + 10 * number : std::max(number, 1);
  pen.color = style.Color("PEN", "c", 0);
  pen.pattern = NumberInId(style.Setting("PEN", "id"), "mapinfo-pen-", pen.pattern);
}

void ReadBrush(const StyleText &style, Brush &brush) {
  if (!style.HasTool("BRUSH")) return;
  brush.fore = style.Color("BRUSH", "fc", 0);
  brush.isTransparent = !style.HasSetting("BRUSH", "bc");
  brush.back = style.Color("BRUSH", "bc", brush.back);
  brush.pattern = NumberInId(style.Setting("BRUSH", "id"), "mapinfo-brush-", brush.pattern);
}

void ReadSymbol(const StyleText &style, Feature &feature) {
  if (!style.HasTool("SYMBOL")) return;
  Symbol &symbol = feature.style.symbol;
  const std::string_view id = style.Setting("SYMBOL", "id");
  symbol.color = style.Color("SYMBOL", "c", 0);
  symbol.sizePt = int(style.Number("SYMBOL", "s"));
  symbol.angleDeg = style.Number("SYMBOL", "a");
  if (feature.kind == Kind::FontPoint) {
    symbol.number = NumberInId(id, FontSymbolId, symbol.number);
    feature.style.font = style.Setting("SYMBOL", "f");
  } else if (feature.kind == Kind::CustomPoint) {
    std::string_view name;
    symbol.customStyle = NumberInId(id, CustomSymbolId, 0, &name);
    if (!name.empty()) feature.style.font = name.substr(1, name.find(',') - 1);
  } else {
    symbol.number = NumberInId(id, "mapinfo-sym-", symbol.number);
  }
}

/// What stands for a text without letters, a blank that is none: behind an empty text GDAL cannot write all others to a
/// TAB file, and in a MIF file it finds no object. Plain blanks it takes off.
constexpr const char *NoLetters = "\u00A0";

bool HasLetters(std::string_view text) {
  return text.find_first_not_of(" \t\r\n") != std::string_view::npos;
}

void ReadLabel(const StyleText &style, Feature &feature) {
  constexpr int Anchors = 3;  // left, centre, right, from the base line up
  Label &label = feature.label;
  label.text = style.Setting("LABEL", "t");
  if (label.text == NoLetters) label.text.clear();
  label.angleDeg = style.Number("LABEL", "a");
  label.fore = style.Color("LABEL", "c", 0);
  label.usesBack = style.HasSetting("LABEL", "b");
  label.back = style.Color("LABEL", "b", label.back);
  label.justification = Justification((std::max(int(style.Number("LABEL", "p")), 1) - 1) % Anchors);
  label.height = style.Number("LABEL", "s") / LetterToLine * LineCount(label.text);
  feature.style.font = style.Setting("LABEL", "f");
}

Kind PointKindOf(std::string_view style) {
  if (style.find(CustomSymbolId) != std::string_view::npos) return Kind::CustomPoint;
  return style.find(FontSymbolId) != std::string_view::npos ? Kind::FontPoint : Kind::Point;
}

/// Reads the style of all but texts.
void ReadTools(std::string_view text, Feature &feature) {
  const StyleText style(text);
  if (feature.kind == Kind::Point) feature.kind = PointKindOf(text);
  if (feature.HasPen()) ReadPen(style, feature.style.pen);
  if (feature.HasBrush()) ReadBrush(style, feature.style.brush);
  if (feature.HasSymbol()) ReadSymbol(style, feature);
}

std::string PenText(const Pen &pen) {
  const int width = WritablePenWidth(pen.width);
  const bool isPx = width <= MostPenPx;
  return CPLSPrintf("PEN(w:%d%s,c:#%06x,id:\"mapinfo-pen-%d,ogr-pen-0\")",
                    isPx ? width : (width - FirstPointWidth) / 10, isPx ? "px" : "pt", pen.color, pen.pattern);
}

std::string BrushText(const Brush &brush) {
  const std::string back = brush.isTransparent ? "" : CPLSPrintf(",bc:#%06x", brush.back);
  return CPLSPrintf("BRUSH(fc:#%06x%s,id:\"mapinfo-brush-%d,ogr-brush-0\")", brush.fore, back.c_str(), brush.pattern);
}

std::string SymbolText(const Feature &feature) {
  const Symbol &symbol = feature.style.symbol;
  std::string id = CPLSPrintf("mapinfo-sym-%d,ogr-sym-9", symbol.number);
  std::string font;
  if (feature.kind == Kind::FontPoint) {
    id = CPLSPrintf("%s%d,ogr-sym-9", FontSymbolId, symbol.number);
    font = ",f:" + Quoted(feature.style.font);
  } else if (feature.kind == Kind::CustomPoint) {
    id = CPLSPrintf("%s%d-%s,bmp-%s,ogr-sym-9", CustomSymbolId, symbol.customStyle, feature.style.font.c_str(),
                    feature.style.font.c_str());
  }
  return CPLSPrintf("SYMBOL(a:%g,c:#%06x,s:%dpt,id:\"%s\"%s)", symbol.angleDeg, symbol.color, symbol.sizePt, id.c_str(),
                    font.c_str());
}

/// A number that is exact enough, whatever its size; with a decimal point in any locale.
std::string NumberOf(double value) {
  char digits[32];
  char *end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, 15).ptr;
  return {digits, end};
}

std::string LabelText(const Feature &feature) {
  const Label &label = feature.label;
  std::string text = "LABEL(t:" + Quoted(HasLetters(label.text) ? label.text : NoLetters) +
                     ",a:" + NumberOf(label.angleDeg) + ",s:" + NumberOf(LetterHeight(label)) + 'g';
  text += CPLSPrintf(",c:#%06x", label.fore);
  if (label.usesBack) text += CPLSPrintf(",b:#%06x", label.back);
  text += CPLSPrintf(",p:%d", int(label.justification) + 1);
  return text + ",f:" + Quoted(feature.style.font) + ')';
}

}  // namespace

int WritablePenWidth(int width) {
  constexpr double PixelsOfPoint = 4.0 / 3;
  if (width <= MostPenPx) return std::max(width, 1);
  const int points = int(std::lround((std::min(width, MostPenWidth) - FirstPointWidth) / 10.0));
  if (width <= FirstPointWidth) return MostPenPx;
  // OGR takes up to ten points for pixels.
  if (points <= 10) return std::clamp(int(std::lround((width - FirstPointWidth) / 10.0 * PixelsOfPoint)), 1, MostPenPx);
  return FirstPointWidth + 10 * points;
}

void StraightenLabel(Feature &feature) {
  constexpr double Degree = std::numbers::pi / 180;
  Label &label = feature.label;
  const double sine = std::sin(label.angleDeg * Degree);
  const double cosine = std::cos(label.angleDeg * Degree);
  const double given = label.height;
  label.height = given / (WidthToHeight(label.text) * std::abs(sine) + std::abs(cosine));
  OGRRawPoint &place = feature.parts.front().points.front();
  const bool isOnLeftOrRight = sine * cosine >= 0;
  if (isOnLeftOrRight) {
    place.x += (label.height - given) * sine;
  } else {
    place.y += (given - label.height) * cosine;
  }
}

void StyleReader::Read(std::string_view text, Feature &feature) {
  constexpr std::size_t MostTexts = 10000;
  if (feature.kind == Kind::Point && text.starts_with("LABEL(")) {
    feature.kind = Kind::Text;
    return ReadLabel(StyleText(text), feature);
  }
  Texts &texts = m_known[std::size_t(feature.kind)];
  auto known = texts.find(text);
  if (known == texts.end()) {
    if (texts.size() >= MostTexts) texts.clear();
    ReadTools(text, feature);
    known = texts.emplace(text, Known{feature.kind, feature.style}).first;
  }
  feature.kind = known->second.kind;
  feature.style = known->second.style;
}

std::string StyleOf(const Feature &feature) {
  if (feature.kind == Kind::Text) return LabelText(feature);
  if (feature.HasBrush()) return BrushText(feature.style.brush) + ';' + PenText(feature.style.pen);
  if (feature.HasPen()) return PenText(feature.style.pen);
  return feature.HasSymbol() ? SymbolText(feature) : std::string();
}

}  // namespace tessera::mitab
