// SPDX-License-Identifier: MIT
// The entry points about pens, brushes, symbols, fonts and texts. An object without such a tool answers the default,
// and is not changed.
#include "Access.h"
#include "Styles.h"

#include <algorithm>

namespace tessera::mitab {
namespace {

constexpr int LowByte = 0xff;

Feature *WithPen(void *feature) {
  return feature != nullptr && FeatureOf(feature)->HasPen() ? FeatureOf(feature) : nullptr;
}

Feature *WithBrush(void *feature) {
  return feature != nullptr && FeatureOf(feature)->HasBrush() ? FeatureOf(feature) : nullptr;
}

Feature *WithSymbol(void *feature) {
  return feature != nullptr && FeatureOf(feature)->HasSymbol() ? FeatureOf(feature) : nullptr;
}

Label *LabelOf(void *feature) {
  return feature != nullptr && FeatureOf(feature)->kind == Kind::Text ? &FeatureOf(feature)->label : nullptr;
}

/// Where a caller leaves a number as it is.
void SetUnlessNegative(int &place, int value) {
  if (value >= 0) place = value;
}

}  // namespace

MITAB_API void mitab_c_set_pen(void *feature, int width, int pattern, int color) {
  if (Feature *changed = WithPen(feature)) changed->style.pen = {WritablePenWidth(width), pattern & LowByte, color};
}

MITAB_API int mitab_c_get_pen_width(void *feature) {
  const Feature *asked = WithPen(feature);
  return asked == nullptr ? 0 : asked->style.pen.width;
}

MITAB_API int mitab_c_get_pen_pattern(void *feature) {
  const Feature *asked = WithPen(feature);
  return asked == nullptr ? 0 : asked->style.pen.pattern;
}

MITAB_API int mitab_c_get_pen_color(void *feature) {
  const Feature *asked = WithPen(feature);
  return asked == nullptr ? 0 : asked->style.pen.color;
}

MITAB_API void mitab_c_set_brush(void *feature, int fore, int back, int pattern, int transparent) {
  if (Feature *changed = WithBrush(feature)) changed->style.brush = {fore, back, pattern & LowByte, transparent != 0};
}

MITAB_API int mitab_c_get_brush_fgcolor(void *feature) {
  const Feature *asked = WithBrush(feature);
  return asked == nullptr ? 0 : asked->style.brush.fore;
}

MITAB_API int mitab_c_get_brush_bgcolor(void *feature) {
  const Feature *asked = WithBrush(feature);
  return asked == nullptr ? 0 : asked->style.brush.back;
}

MITAB_API int mitab_c_get_brush_pattern(void *feature) {
  const Feature *asked = WithBrush(feature);
  return asked == nullptr ? 1 : asked->style.brush.pattern;
}

MITAB_API int mitab_c_get_brush_transparent(void *feature) {
  const Feature *asked = WithBrush(feature);
  return asked != nullptr && asked->style.brush.isTransparent ? 1 : 0;
}

MITAB_API void mitab_c_set_font(void *feature, const char *font) {
  if (feature != nullptr && FeatureOf(feature)->HasFont()) FeatureOf(feature)->style.font = TextOf(font);
}

MITAB_API const char *mitab_c_get_font(void *feature) {
  return feature != nullptr && FeatureOf(feature)->HasFont() ? FeatureOf(feature)->style.font.c_str() : "";
}

MITAB_API int mitab_c_get_font_vb(void *feature, char *font, int size) {
  return CopyText(mitab_c_get_font(feature), font, size);
}

MITAB_API void mitab_c_set_symbol(void *feature, int number, int sizePt, int color) {
  Feature *changed = WithSymbol(feature);
  if (changed == nullptr) return;
  changed->style.symbol.number = number & LowByte;
  changed->style.symbol.sizePt = sizePt;
  changed->style.symbol.color = color;
}

MITAB_API int mitab_c_get_symbol_no(void *feature) {
  const Feature *asked = WithSymbol(feature);
  return asked == nullptr ? 0 : asked->style.symbol.number;
}

MITAB_API int mitab_c_get_symbol_size(void *feature) {
  const Feature *asked = WithSymbol(feature);
  return asked == nullptr ? 1 : asked->style.symbol.sizePt;
}

MITAB_API int mitab_c_get_symbol_color(void *feature) {
  const Feature *asked = WithSymbol(feature);
  return asked == nullptr ? 0 : asked->style.symbol.color;
}

MITAB_API void mitab_c_set_symbol_angle(void *feature, double angleDeg) {
  Feature *changed = WithSymbol(feature);
  if (changed != nullptr && changed->kind == Kind::FontPoint) changed->style.symbol.angleDeg = angleDeg;
}

MITAB_API double mitab_c_get_symbol_angle(void *feature) {
  const Feature *asked = WithSymbol(feature);
  return asked == nullptr ? 0 : asked->style.symbol.angleDeg;
}

MITAB_API void mitab_c_set_text(void *feature, const char *text) {
  if (Label *changed = LabelOf(feature)) changed->text = TextOf(text);
}

MITAB_API const char *mitab_c_get_text(void *feature) {
  const Label *asked = LabelOf(feature);
  return asked == nullptr ? "" : asked->text.c_str();
}

MITAB_API int mitab_c_get_text_vb(void *feature, char *text, int size) {
  return CopyText(mitab_c_get_text(feature), text, size);
}

MITAB_API void mitab_c_set_text_display(void *feature, double angleDeg, double height, double /*width*/, int fore,
                                        int back, int justification, int spacing, int lineType) {
  Label *changed = LabelOf(feature);
  if (changed == nullptr) return;
  changed->angleDeg = angleDeg;
  if (height > 0) changed->height = height;
  SetUnlessNegative(changed->fore, fore);
  SetUnlessNegative(changed->back, back);
  changed->usesBack |= back >= 0;
  if (justification >= 0) changed->justification = Justification(std::min(justification, int(Justification::Right)));
  SetUnlessNegative(changed->spacing, spacing);
  SetUnlessNegative(changed->lineType, lineType);
}

MITAB_API double mitab_c_get_text_angle(void *feature) {
  const Label *asked = LabelOf(feature);
  return asked == nullptr ? 0 : asked->angleDeg;
}

MITAB_API double mitab_c_get_text_height(void *feature) {
  const Label *asked = LabelOf(feature);
  return asked == nullptr ? 0 : asked->height;
}

MITAB_API double mitab_c_get_text_width(void *feature) {
  const Label *asked = LabelOf(feature);
  return asked == nullptr ? 0 : TextWidth(*asked);
}

MITAB_API int mitab_c_get_text_fgcolor(void *feature) {
  const Label *asked = LabelOf(feature);
  return asked == nullptr ? 0 : asked->fore;
}

MITAB_API int mitab_c_get_text_bgcolor(void *feature) {
  const Label *asked = LabelOf(feature);
  return asked == nullptr ? 0 : asked->back;
}

MITAB_API int mitab_c_get_text_justification(void *feature) {
  const Label *asked = LabelOf(feature);
  return asked == nullptr ? 0 : int(asked->justification);
}

MITAB_API int mitab_c_get_text_spacing(void *feature) {
  const Label *asked = LabelOf(feature);
  return asked == nullptr ? 0 : asked->spacing;
}

MITAB_API int mitab_c_get_text_linetype(void *feature) {
  const Label *asked = LabelOf(feature);
  return asked == nullptr ? 0 : asked->lineType;
}

}  // namespace tessera::mitab
