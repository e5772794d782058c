// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/editing/detail/ObjectPacking.h>
#include <tessera/objects/GeoCircle.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TGeoCircle.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TRegion.h>
#include <tessera/objects/TText.h>

#include <QCoreApplication>
#include <QDataStream>
#include <QIODevice>

#include <algorithm>
#include <typeinfo>

namespace tessera::detail {
namespace {

constexpr quint32 Signature = 0x54534F31;  // TSO1, which a change of the format makes TSO2

[[noreturn]] void Refuse() {
  throw EConvertError(QCoreApplication::translate("tessera::TMapEdits", "The copied objects are damaged."));
}

template <typename Value>
Value Read(QDataStream &stream) {
  Value value{};
  stream >> value;
  if (stream.status() != QDataStream::Ok) Refuse();
  return value;
}

/// An enumerator or an index, of which `highest` is the last.
template <typename Value>
Value ReadUpTo(QDataStream &stream, Value highest) {
  const auto number = Read<quint8>(stream);
  if (number > quint8(highest)) Refuse();
  return Value(number);
}

/// A number of things that take at least so many bytes each.
quint32 ReadCount(QDataStream &stream, qint64 fewestBytes) {
  const auto count = Read<quint32>(stream);
  if (qint64(count) * fewestBytes > stream.device()->bytesAvailable()) Refuse();
  return count;
}

void Pack(QDataStream &stream, const TBounds &bounds) {
  stream << bounds.MinX << bounds.MinY << bounds.MaxX << bounds.MaxY;
}

void Pack(QDataStream &stream, const TParts &parts) {
  stream << quint32(parts.GetCount());
  for (const TPart &part : parts.Items()) {
    stream << quint32(part.GetPoints().GetCount());
    for (const TMapPoint &point : part.GetPoints().Points()) stream << point.X << point.Y;
  }
  Pack(stream, parts.GetBounds());
}

void Unpack(QDataStream &stream, TParts &parts) {
  constexpr qint64 CountBytes = sizeof(quint32);
  constexpr qint64 PointBytes = 2 * sizeof(double);
  for (quint32 part = ReadCount(stream, CountBytes); part > 0; --part) {
    TMapPoints &points = parts.Add().GetPoints();
    const quint32 count = ReadCount(stream, PointBytes);
    points.Reserve(count);
    for (quint32 i = 0; i < count; ++i) {
      const auto x = Read<double>(stream);
      points.Add(x, Read<double>(stream));
    }
  }
  TBounds bounds{};
  for (double TBounds::*side : {&TBounds::MinX, &TBounds::MinY, &TBounds::MaxX, &TBounds::MaxY}) {
    bounds.*side = Read<double>(stream);
  }
  parts.SetBounds(bounds);
}

void Pack(QDataStream &stream, const TObjectStyle &style) {
  stream << quint32(style.pen.GetColor()) << qint32(style.pen.GetWidth()) << quint8(style.pen.GetStyle())
         << quint32(style.brush.GetColor()) << quint8(style.brush.GetStyle()) << style.font.GetName()
         << qint32(style.font.GetSize()) << quint32(style.font.GetColor()) << quint8(style.font.GetStyle())
         << quint32(style.bgColor) << style.useBGColor;
}

TObjectStylePtr UnpackStyle(QDataStream &stream) {
  constexpr quint8 AllFontStyles = 15;
  TObjectStylePtr style(new TObjectStyle);
  style->pen.SetColor(TColor(Read<quint32>(stream)));
  style->pen.SetWidth(Read<qint32>(stream));
  style->pen.SetStyle(ReadUpTo(stream, TPenStyle::psInsideFrame));
  style->brush.SetColor(TColor(Read<quint32>(stream)));
  style->brush.SetStyle(ReadUpTo(stream, TBrushStyle::bsDiagCross));
  style->font.SetName(Read<QString>(stream));
  style->font.SetSize(Read<qint32>(stream));
  style->font.SetColor(TColor(Read<quint32>(stream)));
  style->font.SetStyle(TFontStyles(ReadUpTo(stream, AllFontStyles)));
  style->bgColor = TColor(Read<quint32>(stream));
  style->useBGColor = Read<bool>(stream);
  return style;
}

void Pack(QDataStream &stream, const TDataValue &value) {
  stream << quint8(value.index());
  if (const auto *text = std::get_if<QString>(&value)) stream << *text;
  if (const auto *whole = std::get_if<std::int32_t>(&value)) stream << *whole;
  if (const auto *real = std::get_if<double>(&value)) stream << *real;
  if (const auto *flag = std::get_if<bool>(&value)) stream << *flag;
  if (const auto *moment = std::get_if<TDateTime>(&value)) stream << moment->days;
}

TDataValue UnpackValue(QDataStream &stream) {
  switch (Read<quint8>(stream)) {
    case 0:
      return {};
    case 1:
      return Read<QString>(stream);
    case 2:
      return Read<qint32>(stream);
    case 3:
      return Read<double>(stream);
    case 4:
      return Read<bool>(stream);
    case 5:
      return TDateTime{Read<double>(stream)};
    default:
      Refuse();
  }
}

void Pack(QDataStream &stream, const TDataFields &fields) {
  stream << quint32(fields.GetCount());
  for (int i = 0; i < fields.GetCount(); ++i) {
    const TDataFieldView field = fields.GetFields(i);
    stream << field.GetName() << quint8(field.GetDataType()) << qint32(field.GetSize());
    Pack(stream, field.GetValue());
  }
}

void Unpack(QDataStream &stream, TDataFields &fields) {
  constexpr qint64 FewestBytes = 10;
  for (quint32 count = ReadCount(stream, FewestBytes); count > 0; --count) {
    const auto name = Read<QString>(stream);
    const auto type = ReadUpTo(stream, TDataType::dtBoolean);
    fields.Add(name, type, Read<qint32>(stream)).SetValue(UnpackValue(stream));
  }
}

// What only one kind has.

void PackTraits(QDataStream &, const TCustomMapObject &) {}
void UnpackTraits(QDataStream &, TCustomMapObject &) {}

void PackTraits(QDataStream &stream, const TSymbol &symbol) {
  stream << qint32(symbol.GetShape());
}
void UnpackTraits(QDataStream &stream, TSymbol &symbol) {
  symbol.SetShape(Read<qint32>(stream));
}

void PackTraits(QDataStream &stream, const TText &text) {
  stream << qint32(text.GetShape()) << text.GetText() << text.GetAngle() << text.GetWidth() << text.GetHeight()
         << qint32(text.GetMinShowTextSize()) << text.GetFreezeFontSize();
}
void UnpackTraits(QDataStream &stream, TText &text) {
  text.SetShape(Read<qint32>(stream));
  text.SetText(Read<QString>(stream));
  text.SetAngle(Read<double>(stream));
  text.SetWidth(Read<double>(stream));
  text.SetHeight(Read<double>(stream));
  text.SetMinShowTextSize(Read<qint32>(stream));
  text.SetFreezeFontSize(Read<bool>(stream));
}

void PackTraits(QDataStream &stream, const TCircle &circle) {
  stream << circle.GetRadius();
}
void UnpackTraits(QDataStream &stream, TCircle &circle) {
  circle.SetRadius(Read<double>(stream));
}

void PackTraits(QDataStream &stream, const TGeoCircle &circle) {
  stream << circle.GetCenterX() << circle.GetCenterY() << circle.GetRadius() << qint32(circle.GetPieCount());
}
void UnpackTraits(QDataStream &stream, TGeoCircle &circle) {
  constexpr int MostPies = 100'000;  // the ring is laid before it is replaced by the one that was packed
  circle.SetCenterX(Read<double>(stream));
  circle.SetCenterY(Read<double>(stream));
  circle.SetRadius(Read<double>(stream));
  const auto pies = Read<qint32>(stream);
  if (pies < 1 || pies > MostPies) Refuse();
  circle.SetPieCount(pies);
}

void PackTraits(QDataStream &stream, const geocircle::TGeoCircle &circle) {
  stream << circle.GetX() << circle.GetY() << circle.GetRadius();
}
void UnpackTraits(QDataStream &stream, geocircle::TGeoCircle &circle) {
  circle.SetX(Read<double>(stream));
  circle.SetY(Read<double>(stream));
  circle.SetRadius(Read<double>(stream));
}

struct Kind {
  bool (*has)(const TCustomMapObject &object);
  TMapObjectClass make;
  void (*packTraits)(QDataStream &stream, const TCustomMapObject &object);
  void (*unpackTraits)(QDataStream &stream, TCustomMapObject &object);
};

template <class Its>
constexpr Kind KindOf{
    [](const TCustomMapObject &object) { return typeid(object) == typeid(Its); }, CreateMapObject<Its>,
    [](QDataStream &stream, const TCustomMapObject &object) { PackTraits(stream, static_cast<const Its &>(object)); },
    [](QDataStream &stream, TCustomMapObject &object) { UnpackTraits(stream, static_cast<Its &>(object)); }};

/// The places are part of the format.
constexpr Kind Kinds[] = {KindOf<TRegion>, KindOf<TPolyline>, KindOf<TRectangle>, KindOf<TSymbol>,
                          KindOf<TText>,   KindOf<TCircle>,   KindOf<TGeoCircle>, KindOf<geocircle::TGeoCircle>};

const Kind *FindKind(const TCustomMapObject &object) {
  const auto *kind = std::find_if(std::begin(Kinds), std::end(Kinds), [&](const Kind &one) { return one.has(object); });
  return kind == std::end(Kinds) ? nullptr : kind;
}

std::unique_ptr<TCustomMapObject> UnpackObject(QDataStream &stream) {
  const Kind &kind = Kinds[ReadUpTo(stream, std::size(Kinds) - 1)];
  auto object = kind.make();
  kind.unpackTraits(stream, *object);
  object->SetStyle(UnpackStyle(stream));
  Unpack(stream, object->GetFields());
  // At last, for traits lay vertices of their own.
  TCustomMapObject geometry;
  Unpack(stream, geometry.GetParts());
  object->SetParts(geometry.GetParts());
  return object;
}

}  // namespace

bool CanPack(const TCustomMapObject &object) {
  return FindKind(object) != nullptr;
}

QByteArray PackObjects(std::span<TCustomMapObject *const> objects) {
  QByteArray bytes;
  QDataStream stream(&bytes, QIODevice::WriteOnly);
  stream.setVersion(QDataStream::Qt_6_4);
  stream << Signature;
  for (const TCustomMapObject *object : objects) {
    const Kind *kind = FindKind(*object);
    if (kind == nullptr) continue;
    stream << quint8(kind - Kinds);
    kind->packTraits(stream, *object);
    Pack(stream, *object->GetStyle());
    Pack(stream, object->GetFields());
    Pack(stream, object->GetParts());
  }
  return bytes;
}

std::vector<std::unique_ptr<TCustomMapObject>> UnpackObjects(const QByteArray &bytes) {
  QDataStream stream(bytes);
  stream.setVersion(QDataStream::Qt_6_4);
  if (Read<quint32>(stream) != Signature) Refuse();
  std::vector<std::unique_ptr<TCustomMapObject>> objects;
  while (!stream.atEnd()) objects.push_back(UnpackObject(stream));
  return objects;
}

}  // namespace tessera::detail
