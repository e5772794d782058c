// SPDX-License-Identifier: MIT
#include "Themes.h"

#include <tessera/objects/TRegion.h>

#include <array>

namespace tessera::gallery {
namespace {

constexpr TBounds Panel{48, 3, 68, 22};

struct TParcel {
  const char *name;
  TColor color;
  std::vector<TMapPoint> ring;
};

std::vector<TParcel> Parcels() {
  return {
      {"Orchard", PaleGreen, {{48, 11.5}, {48, 18.4}, {56.5, 18.4}, {55, 12.5}, {48, 11.5}}},
      {"Meadow", PaleOchre, {{56.5, 18.4}, {68, 18.4}, {68, 12.2}, {61, 11}, {55, 12.5}, {56.5, 18.4}}},
      {"Garden", PaleRed, {{48, 5.2}, {48, 11.5}, {55, 12.5}, {56.4, 5.2}, {48, 5.2}}},
      {"Pond", PaleBlue, {{56.4, 5.2}, {55, 12.5}, {61, 11}, {62.2, 5.2}, {56.4, 5.2}}},
      {"Wood", PaleGreen, {{62.2, 5.2}, {61, 11}, {68, 12.2}, {68, 5.2}, {62.2, 5.2}}},
  };
}

}  // namespace

void AddLabels(TSheet &sheet) {
  sheet.AddHeading(Panel, QStringLiteral("Labels"), QStringLiteral("AutoLabel"));
  TMapLayer &layer = sheet.NewLayer(QStringLiteral("Labels"));
  // Columns come first: an object gets those that its layer has when it is added.
  layer.GetFields().Add(QStringLiteral("Name"), TDataType::dtString, 20);
  layer.SetLabelFieldIndex(0);
  layer.SetAutoLabelFontDefaultFont(FontOf(9, Ink));
  layer.SetAutoLabel(true);
  for (const TParcel &parcel : Parcels()) {
    auto *region = layer.NewObject<TRegion>();
    region->SetPen(PenOf(Grey));
    region->SetBrush(BrushOf(parcel.color));
    region->GetFields().GetFields(0).SetAsString(QString::fromLatin1(parcel.name));
    AddPart(*region, parcel.ring);
  }
  sheet.AddCaption({58, 3.2}, QStringLiteral("an attribute of every object"), TAlign::Middle);
}

}  // namespace tessera::gallery
