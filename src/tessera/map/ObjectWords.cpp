// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/map/ObjectWords.h>
#include <tessera/map/TTessera.h>
#include <tessera/objects/GeoCircle.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TGeoCircle.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TRegion.h>
#include <tessera/objects/TSprite.h>
#include <tessera/objects/TText.h>

namespace tessera {
namespace {

template <class Kind>
bool Is(const TCustomMapObject &object) {
  return dynamic_cast<const Kind *>(&object) != nullptr;
}

struct NamedKind {
  bool (*is)(const TCustomMapObject &object);
  const char *name;
};

/// A kind stands before the one that it is derived from.
constexpr NamedKind Kinds[] = {
    {Is<TGeoCircle>, QT_TRANSLATE_NOOP("tessera::TTessera", "Circle")},
    {Is<geocircle::TGeoCircle>, QT_TRANSLATE_NOOP("tessera::TTessera", "Circle")},
    {Is<TCircle>, QT_TRANSLATE_NOOP("tessera::TTessera", "Circle")},
    {Is<TRectangle>, QT_TRANSLATE_NOOP("tessera::TTessera", "Rectangle")},
    {Is<TRegion>, QT_TRANSLATE_NOOP("tessera::TTessera", "Region")},
    {Is<TPolyline>, QT_TRANSLATE_NOOP("tessera::TTessera", "Polyline")},
    {Is<TText>, QT_TRANSLATE_NOOP("tessera::TTessera", "Text")},
    {Is<TSymbol>, QT_TRANSLATE_NOOP("tessera::TTessera", "Symbol")},
    {Is<TSprite>, QT_TRANSLATE_NOOP("tessera::TTessera", "Sprite")},
};

}  // namespace

QString KindName(const TCustomMapObject &object) {
  for (const NamedKind &kind : Kinds) {
    if (kind.is(object)) return TTessera::tr(kind.name);
  }
  return TTessera::tr("Object");
}

QString ShownText(const TDataFieldView &field, const QLocale &locale) {
  const TDataValue value = field.GetValue();
  try {
    return field.TextOf(value, locale);
  } catch (const EConvertError &) {
    return ValueToText(value, locale);
  }
}

}  // namespace tessera
