// SPDX-License-Identifier: MIT
#include <tessera/base/MessageSink.h>
#include <tessera/base/detail/Numbers.h>
#include <tessera/controls/StyleNames.h>
#include <tessera/controls/TObjectProperties.h>
#include <tessera/controls/detail/CellValues.h>
#include <tessera/controls/detail/ObjectRows.h>
#include <tessera/map/ObjectWords.h>
#include <tessera/objects/GeoCircle.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TGeoCircle.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TSprite.h>
#include <tessera/objects/TText.h>

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <utility>

namespace tessera::detail {
namespace {

using Objects = ObjectRow::Objects;
using Change = ObjectRow::Change;

constexpr int WidestPenPx = 100;
constexpr int LargestFontPt = 1000;

QString Told(const char *text) {
  return TObjectProperties::tr(text);
}

template <class Kind>
bool Is(const TCustomMapObject *object) {
  return dynamic_cast<const Kind *>(object) != nullptr;
}

QVariant Number(const QVariant &input) {
  double value = 0;
  if (input.typeId() != QMetaType::QString) return input.canConvert<double>() ? input.toDouble() : QVariant();
  return TryStrToFloat(input.toString(), value) ? value : QVariant();
}

QVariant WholeNumber(const QVariant &input, int low, int high) {
  int value = input.toInt();
  const bool isNumber = input.typeId() != QMetaType::QString || TryStrToInt(input.toString().trimmed(), value);
  return isNumber && value >= low && value <= high ? value : QVariant();
}

QVariant Color(const QVariant &input) {
  const QColor color =
      input.typeId() == QMetaType::QString ? QColor(input.toString().trimmed()) : input.value<QColor>();
  return color.isValid() ? color : QVariant();
}

/// A change of the tools, which objects share as they shared them before.
Change StyleChange(const std::function<void(TObjectStyle &style)> &change) {
  struct Pair {
    TObjectStylePtr before;  // kept, so that no other style gets its address
    TObjectStylePtr after;
  };
  const auto changed = std::make_shared<std::unordered_map<const TObjectStyle *, Pair>>();
  return [changed, change](TCustomMapObject &object) {
    const TObjectStylePtr &before = object.GetStyle();
    const auto [entry, isNew] = changed->try_emplace(before.constData(), Pair{before, before});
    if (isNew) change(*entry->second.after);
    object.SetStyle(entry->second.after);
  };
}

/// A row of the tools: `read` and `write` a value of a style, `parse` makes one of an input.
template <class Read, class Write, class Parse>
ObjectRow StyleRow(const char *name, RowKind kind, Read read, Write write, Parse parse) {
  ObjectRow row{Told(name), kind, {}, TObjectAspect::Style, {}, {}};
  row.get = [read](const TCustomMapObject &object) { return QVariant(read(*object.GetStyle())); };
  row.changeTo = [write, parse](const QVariant &input, Objects /*objects*/) -> Change {
    const QVariant value = parse(input);
    if (!value.isValid()) return {};
    return StyleChange([write, value](TObjectStyle &style) { write(style, value); });
  };
  return row;
}

/// A colour of a tool, or of a style.
template <class Tool>
ObjectRow ColorRow(const char *name, Tool TObjectStyle::*tool) {
  return StyleRow(
      name, RowKind::Color, [tool](const TObjectStyle &style) { return ToQColor((style.*tool).GetColor()); },
      [tool](TObjectStyle &style, const QVariant &value) { (style.*tool).SetColor(FromQColor(value.value<QColor>())); },
      Color);
}

template <class Read, class Write>
ObjectRow ChoiceRow(const char *name, const QStringList &choices, Read read, Write write) {
  const int last = int(choices.size()) - 1;
  ObjectRow row = StyleRow(name, RowKind::Choice, read, write,
                           [last](const QVariant &input) { return WholeNumber(input, 0, last); });
  row.choices = choices;
  return row;
}

void AddPenRows(std::vector<ObjectRow> &rows) {
  rows.push_back(ColorRow(QT_TRANSLATE_NOOP("tessera::TObjectProperties", "Line colour"), &TObjectStyle::pen));
  rows.push_back(StyleRow(
      QT_TRANSLATE_NOOP("tessera::TObjectProperties", "Line width"), RowKind::WholeNumber,
      [](const TObjectStyle &style) { return style.pen.GetWidth(); },
      [](TObjectStyle &style, const QVariant &value) { style.pen.SetWidth(value.toInt()); },
      [](const QVariant &input) { return WholeNumber(input, 0, WidestPenPx); }));
  rows.push_back(ChoiceRow(
      QT_TRANSLATE_NOOP("tessera::TObjectProperties", "Line style"), PenStyleNames(),
      [](const TObjectStyle &style) { return int(style.pen.GetStyle()); },
      [](TObjectStyle &style, const QVariant &value) { style.pen.SetStyle(TPenStyle(value.toInt())); }));
}

void AddBrushRows(std::vector<ObjectRow> &rows) {
  rows.push_back(ColorRow(QT_TRANSLATE_NOOP("tessera::TObjectProperties", "Area colour"), &TObjectStyle::brush));
  rows.push_back(ChoiceRow(
      QT_TRANSLATE_NOOP("tessera::TObjectProperties", "Area style"), BrushStyleNames(),
      [](const TObjectStyle &style) { return int(style.brush.GetStyle()); },
      [](TObjectStyle &style, const QVariant &value) { style.brush.SetStyle(TBrushStyle(value.toInt())); }));
  rows.push_back(ChoiceRow(
      QT_TRANSLATE_NOOP("tessera::TObjectProperties", "Background"),
      {TObjectProperties::tr("No"), TObjectProperties::tr("Yes")},
      [](const TObjectStyle &style) { return int(style.useBGColor); },
      [](TObjectStyle &style, const QVariant &value) { style.useBGColor = value.toInt() != 0; }));
  rows.push_back(StyleRow(
      QT_TRANSLATE_NOOP("tessera::TObjectProperties", "Background colour"), RowKind::Color,
      [](const TObjectStyle &style) { return ToQColor(style.bgColor); },
      [](TObjectStyle &style, const QVariant &value) { style.bgColor = FromQColor(value.value<QColor>()); }, Color));
}

void AddFontRows(std::vector<ObjectRow> &rows) {
  rows.push_back(StyleRow(
      QT_TRANSLATE_NOOP("tessera::TObjectProperties", "Font"), RowKind::Text,
      [](const TObjectStyle &style) { return style.font.GetName(); },
      [](TObjectStyle &style, const QVariant &value) { style.font.SetName(value.toString()); },
      [](const QVariant &input) { return input.toString().trimmed().isEmpty() ? QVariant() : input; }));
  rows.push_back(StyleRow(
      QT_TRANSLATE_NOOP("tessera::TObjectProperties", "Font size"), RowKind::WholeNumber,
      [](const TObjectStyle &style) { return style.font.GetSize(); },
      [](TObjectStyle &style, const QVariant &value) { style.font.SetSize(value.toInt()); },
      [](const QVariant &input) { return WholeNumber(input, 1, LargestFontPt); }));
  rows.push_back(ColorRow(QT_TRANSLATE_NOOP("tessera::TObjectProperties", "Font colour"), &TObjectStyle::font));
}

/// A number of the geometry; what `set` takes is the new one.
ObjectRow GeometryRow(const char *name, const std::function<double(const TCustomMapObject &)> &get,
                      const std::function<void(TCustomMapObject &, double)> &set) {
  ObjectRow row{Told(name), RowKind::Number, {}, TObjectAspect::Geometry, {}, {}};
  row.get = [get](const TCustomMapObject &object) {
    return object.GetBounds().IsInverted() ? QVariant() : get(object);
  };
  if (!set) return row;
  row.changeTo = [set](const QVariant &input, Objects /*objects*/) -> Change {
    const QVariant value = Number(input);
    if (!value.isValid()) return {};
    return [set, value](TCustomMapObject &object) {
      if (!object.GetBounds().IsInverted()) set(object, value.toDouble());
    };
  };
  return row;
}

double CentreX(const TCustomMapObject &object) {
  return (object.GetBounds().MinX + object.GetBounds().MaxX) / 2;
}
double CentreY(const TCustomMapObject &object) {
  return (object.GetBounds().MinY + object.GetBounds().MaxY) / 2;
}

/// A side of the bounds.
struct Side {
  const char *name;
  double TBounds::*at;
  double TBounds::*opposite;
  bool isAlongX;
};

constexpr Side Sides[] = {
    {QT_TRANSLATE_NOOP("tessera::TObjectProperties", "Left"), &TBounds::MinX, &TBounds::MaxX, true},
    {QT_TRANSLATE_NOOP("tessera::TObjectProperties", "Bottom"), &TBounds::MinY, &TBounds::MaxY, false},
    {QT_TRANSLATE_NOOP("tessera::TObjectProperties", "Right"), &TBounds::MaxX, &TBounds::MinX, true},
    {QT_TRANSLATE_NOOP("tessera::TObjectProperties", "Top"), &TBounds::MaxY, &TBounds::MinY, false}};

/// By what an object is scaled so that its side comes to a place and the opposite one stays; not above 0, or no number,
/// where that cannot be.
double FactorTo(const TCustomMapObject &object, const Side &side, double place) {
  const TBounds bounds = object.GetBounds();
  if (bounds.IsInverted()) return 1;
  return (place - bounds.*side.opposite) / (bounds.*side.at - bounds.*side.opposite);
}

void MoveSide(TCustomMapObject &object, const Side &side, double place) {
  const double factor = FactorTo(object, side, place);
  const double fixed = object.GetBounds().*side.opposite;
  const TMapPoint about = side.isAlongX ? TMapPoint{fixed, CentreY(object)} : TMapPoint{CentreX(object), fixed};
  const bool staysRound = Is<TCircle>(&object);
  object.Transform(TMapTransform::Scaling(side.isAlongX || staysRound ? factor : 1,
                                          side.isAlongX && !staysRound ? 1 : factor, about));
}

/// What is drawn in pixels, or follows from a radius on the ground, has no sides that could be moved.
ObjectRow SideRow(const Side &side, bool canMove) {
  const auto get = [&side](const TCustomMapObject &object) { return object.GetBounds().*side.at; };
  if (!canMove) return GeometryRow(side.name, get, {});
  ObjectRow row =
      GeometryRow(side.name, get, [&side](TCustomMapObject &object, double place) { MoveSide(object, side, place); });
  row.changeTo = [&side, changeTo = row.changeTo](const QVariant &input, Objects objects) -> Change {
    const QVariant place = Number(input);
    const auto takesPlace = [&](const TCustomMapObject *object) {
      const double factor = FactorTo(*object, side, place.toDouble());
      return std::isfinite(factor) && factor > 0;
    };
    if (!place.isValid()) return {};
    if (std::all_of(objects.begin(), objects.end(), takesPlace)) return changeTo(input, objects);
    ShowMessage(
        TObjectProperties::tr("Opposite sides must stay apart, and what has no width or height cannot get one."));
    return {};
  };
  return row;
}

void AddGeometryRows(std::vector<ObjectRow> &rows, bool haveSides) {
  rows.push_back(GeometryRow(QT_TRANSLATE_NOOP("tessera::TObjectProperties", "Centre x"), CentreX,
                             [](TCustomMapObject &object, double x) { object.MoveBy(x - CentreX(object), 0); }));
  rows.push_back(GeometryRow(QT_TRANSLATE_NOOP("tessera::TObjectProperties", "Centre y"), CentreY,
                             [](TCustomMapObject &object, double y) { object.MoveBy(0, y - CentreY(object)); }));
  for (const Side &side : Sides) rows.push_back(SideRow(side, haveSides));
  ObjectRow vertices{TObjectProperties::tr("Vertices"), RowKind::WholeNumber, {}, {}, {}, {}};
  vertices.get = [](const TCustomMapObject &object) {
    int count = 0;
    for (const TPart &part : object.GetParts().Items()) count += part.GetPoints().GetCount();
    return QVariant(count);
  };
  rows.push_back(vertices);
}

template <class Kind>
ObjectRow RadiusRow() {
  return GeometryRow(
      QT_TRANSLATE_NOOP("tessera::TObjectProperties", "Radius"),
      [](const TCustomMapObject &object) { return static_cast<const Kind &>(object).GetRadius(); },
      [](TCustomMapObject &object, double radius) { static_cast<Kind &>(object).SetRadius(radius); });
}

ObjectRow ShapeRow() {
  constexpr int LastShape = 0xFFFF;
  ObjectRow row{TObjectProperties::tr("Symbol"), RowKind::WholeNumber, {}, TObjectAspect::Style, {}, {}};
  row.get = [](const TCustomMapObject &object) { return QVariant(static_cast<const TSymbol &>(object).GetShape()); };
  row.changeTo = [](const QVariant &input, Objects /*objects*/) -> Change {
    const QVariant value = WholeNumber(input, TSymbol::NoShape, LastShape);
    if (!value.isValid()) return {};
    return [value](TCustomMapObject &object) { static_cast<TSymbol &>(object).SetShape(value.toInt()); };
  };
  return row;
}

ObjectRow TextRow() {
  ObjectRow row{
      TObjectProperties::tr("Text"), RowKind::Text, {}, TObjectAspect::Geometry | TObjectAspect::Style, {}, {}};
  row.get = [](const TCustomMapObject &object) { return QVariant(static_cast<const TText &>(object).GetText()); };
  row.changeTo = [](const QVariant &input, Objects /*objects*/) -> Change {
    return [text = input.toString()](TCustomMapObject &object) { static_cast<TText &>(object).SetText(text); };
  };
  return row;
}

ObjectRow AttributeRow(const TDataFieldView &field, const QLocale &locale) {
  const CellColumn column{field.GetIndex(), field.GetName(), field.GetDataType(), field.GetSize()};
  ObjectRow row{column.name, RowKind::Text, {}, TObjectAspect::Values, {}, {}};
  row.get = [index = column.field, locale](const TCustomMapObject &object) {
    const TDataFields &fields = object.GetFields();
    const bool isThere = index < fields.GetCount();
    if (!isThere || std::holds_alternative<std::monostate>(fields.GetFields(index).GetValue())) return QVariant();
    return QVariant(ShownText(fields.GetFields(index), locale));
  };
  row.changeTo = [column, locale](const QVariant &input, Objects /*objects*/) -> Change {
    const ParsedCell parsed = ParseCell(column, input, locale);
    if (!parsed.refusal.isEmpty()) ShowMessage(parsed.refusal);
    if (!parsed.refusal.isEmpty()) return {};
    return [index = column.field, value = parsed.value](TCustomMapObject &object) {
      if (index < object.GetFields().GetCount()) object.GetFields().GetFields(index).SetValue(value);
    };
  };
  return row;
}

void AddAttributeRows(std::vector<ObjectRow> &rows, Objects objects, const QLocale &locale) {
  const TMapLayer *layer = objects.front()->GetLayer();
  const bool isOneLayer =
      std::all_of(objects.begin(), objects.end(), [layer](const auto *object) { return object->GetLayer() == layer; });
  if (layer == nullptr || !isOneLayer) return;
  for (int i = 0; i < layer->GetFieldCount(); ++i) {
    rows.push_back(AttributeRow(layer->GetFields().GetFields(i), locale));
  }
}

template <class Kind>
bool AreAll(Objects objects) {
  return std::all_of(objects.begin(), objects.end(), Is<Kind>);
}
template <class Kind>
bool IsAny(Objects objects) {
  return std::any_of(objects.begin(), objects.end(), Is<Kind>);
}

}  // namespace

std::vector<ObjectRow> RowsOf(Objects objects, const QLocale &locale) {
  std::vector<ObjectRow> rows;
  if (objects.empty()) return rows;
  ObjectRow kind{TObjectProperties::tr("Kind"), RowKind::Text, {}, {}, {}, {}};
  kind.get = [](const TCustomMapObject &object) { return QVariant(KindName(object)); };
  rows.push_back(kind);
  if (AreAll<TText>(objects)) rows.push_back(TextRow());
  if (AreAll<TSymbol>(objects) && !IsAny<TText>(objects)) rows.push_back(ShapeRow());
  if (AreAll<TSymbol>(objects)) AddFontRows(rows);
  const bool haveLines = !IsAny<TSymbol>(objects) && !IsAny<TSprite>(objects);
  if (haveLines) AddPenRows(rows);
  if (haveLines && !IsAny<TPolyline>(objects)) AddBrushRows(rows);
  const bool areGeodesic = IsAny<TGeoCircle>(objects) || IsAny<geocircle::TGeoCircle>(objects);
  AddGeometryRows(rows, haveLines && !areGeodesic);
  if (AreAll<TCircle>(objects)) rows.push_back(RadiusRow<TCircle>());
  if (AreAll<TGeoCircle>(objects)) rows.push_back(RadiusRow<TGeoCircle>());
  if (AreAll<geocircle::TGeoCircle>(objects)) rows.push_back(RadiusRow<geocircle::TGeoCircle>());
  AddAttributeRows(rows, objects, locale);
  return rows;
}

}  // namespace tessera::detail
