// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/formats/detail/MifStyles.h>
#include <tessera/formats/detail/MitabShapes.h>
#include <tessera/formats/detail/MitabWriter.h>
#include <tessera/layers/TMapLayer.h>
#include <tessera/objects/GeoCircle.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TRegion.h>
#include <tessera/objects/TSprite.h>
#include <tessera/objects/TText.h>

#include <QFile>

#include <algorithm>
#include <cmath>
#include <typeinfo>

namespace tessera::detail {
namespace {

/// Progress is shown whenever a further 256th of the objects has been written.
constexpr int ProgressSteps = 256;
constexpr int NoColor = -1;
constexpr int AsItIs = -1;

bool IsOfAny(const TCustomMapObject & /*object*/) {
  return true;
}

template <class Kind>
bool IsOf(const TCustomMapObject &object) {
  return dynamic_cast<const Kind *>(&object) != nullptr;
}

TBounds BoundsOf(const TMapLayer &layer) {
  TBounds bounds = TBounds::Empty();
  for (int i = 0; i < layer.GetObjectCount(); ++i) {
    const TBounds own = std::as_const(*layer.GetObjects(i)).GetBounds();
    const bool isFinite = std::isfinite(own.MinX + own.MinY + own.MaxX + own.MaxY);
    if (isFinite && !own.IsInverted()) bounds.Widen(own);
    if (const auto *text = dynamic_cast<const TText *>(layer.GetObjects(i))) {
      const TMapPoint anchor = text->GetPosition();
      const double reach = text->GetWidth() + text->GetHeight();
      if (std::isfinite(reach)) bounds.Widen({anchor.X - reach, anchor.Y - reach, anchor.X + reach, anchor.Y + reach});
    }
  }
  return bounds.IsInverted() ? TBounds{-1, -1, 1, 1} : RoundBounds(bounds);
}

bool IsMif(const MitabTarget &target) {
  return target.fileName.endsWith(QStringLiteral(".mif"), Qt::CaseInsensitive);
}

bool IsFinite(const TMapPoint &point) {
  return std::isfinite(point.X) && std::isfinite(point.Y);
}

bool AreNear(double one, double other) {
  constexpr double Tolerance = 1e-6;
  return std::abs(one - other) <= Tolerance * std::max(std::abs(one), std::abs(other));
}

}  // namespace

/// How objects are written, by kind: the first kind that an object is of counts.
struct MitabKindWriters {
  struct Entry {
    const char *name;
    bool (*isOf)(const TCustomMapObject &object);
    MitabFeature (MitabWriter::*make)(const TCustomMapObject &object);
  };
  static constexpr Entry InOrder[] = {
      {"Region", IsOf<TRegion>, &MitabWriter::MakeRegion},
      {"Region", IsOf<geocircle::TGeoCircle>, &MitabWriter::MakeRegion},
      {"Pline", IsOf<TPolyline>, &MitabWriter::MakeLine},
      {"Rectangle", IsOf<TRectangle>, &MitabWriter::MakeRectangle},
      {"Ellipse", IsOf<TCircle>, &MitabWriter::MakeCircle},
      {"Text", IsOf<TText>, &MitabWriter::MakeText},
      {"Point", IsOf<TSymbol>, &MitabWriter::MakeSymbol},
      {"Point", IsOf<TSprite>, &MitabWriter::MakePlace},
      {"None", IsOfAny, nullptr},
  };
  static constexpr std::size_t SpriteIndex = 7;
};

MitabWriter::MitabWriter(const TMapLayer &layer, const MitabTarget &target, TFormatReport &report)
    : m_layer(layer),
      m_target(target),
      m_report(report),
      m_text(target.charset, MitabRecodes()),
      m_columns(layer, m_text, IsMif(target)),
      m_styles(m_text),
      m_counts(std::size(MitabKindWriters::InOrder)) {}

MitabFile MitabWriter::Create() {
  const TBounds bounds = BoundsOf(m_layer);
  MitabFile file(mitab_c_create(QFile::encodeName(m_target.fileName).constData(), IsMif(m_target) ? "mif" : "tab",
                                m_target.coordSys.constData(), bounds.MaxY, bounds.MinY, bounds.MaxX, bounds.MinX));
  if (!file) throw EInOutError(QStringLiteral("Cannot create file \"%1\".").arg(m_target.fileName));
  if (MitabRecodes()) static_cast<void>(SetMitabCharset(file.get(), m_target.charset));
  return file;
}

void MitabWriter::Write(const std::function<void(int)> &showProgress) {
  MitabFile file;
  {
    const MitabNumbers numbers;
    file = Create();
    m_file = file.get();
    m_columns.WriteColumns(m_file);
  }
  const int count = m_layer.GetObjectCount();
  const int step = std::max(count / ProgressSteps, 1);
  for (int i = 0; i < count; ++i) {
    if (i % step == 0) showProgress(i);
    WriteObject(*m_layer.GetObjects(i));
  }
  file.reset();
  FinishReport();
}

void MitabWriter::WriteObject(const TCustomMapObject &object) {
  const MitabNumbers numbers;
  const MitabFeature feature = Make(object);
  m_columns.WriteValues(object.GetFields(), feature.get());
  ClearMitabError();
  if (mitab_c_write_feature(m_file, feature.get()) == 0) {
    throw EInOutError(QStringLiteral("Cannot write file \"%1\". %2")
                          .arg(m_target.fileName, QString::fromUtf8(mitab_c_getlasterrormsg())));
  }
}

MitabFeature MitabWriter::Make(const TCustomMapObject &object) {
  std::size_t kind = 0;
  while (!MitabKindWriters::InOrder[kind].isOf(object)) ++kind;
  ++m_counts[kind];
  const auto make = MitabKindWriters::InOrder[kind].make;
  if (make == nullptr) return New(TABFC_NoGeom);
  m_hasBadCoordinates = false;
  MitabFeature feature = (this->*make)(object);
  if (feature && !m_hasBadCoordinates) return feature;
  ++m_badShapes;
  return New(TABFC_NoGeom);
}

MitabFeature MitabWriter::New(int kind) {
  MitabFeature feature(mitab_c_create_feature(m_file, kind));
  if (!feature) throw EInOutError(TFormatReport::tr("the library cannot make an object"));
  return feature;
}

void MitabWriter::SetPart(mitab_feature feature, int part, std::span<const TMapPoint> points, std::size_t leastPoints) {
  m_x.clear();
  m_y.clear();
  for (const TMapPoint &point : points) {
    m_hasBadCoordinates |= !IsFinite(point);
    m_x.push_back(point.X);
    m_y.push_back(point.Y);
  }
  // A part of too few points stays where it is when the last of them is told again.
  while (!m_x.empty() && m_x.size() < leastPoints) {
    m_x.push_back(m_x.back());
    m_y.push_back(m_y.back());
  }
  mitab_c_set_points(feature, part, int(m_x.size()), m_x.data(), m_y.data());
}

void MitabWriter::SetPlace(mitab_feature feature, const TMapPoint &place) {
  SetPart(feature, 0, std::span(&place, 1), 1);
}

MitabFeature MitabWriter::MakeRegion(const TCustomMapObject &region) {
  constexpr std::size_t LeastPoints = 4;
  if (typeid(region) != typeid(TRegion)) ++m_plainRegions;
  MitabFeature feature = New(TABFC_Region);
  const auto rings = region.GetParts().Items();
  int done = 0;
  for (const std::vector<int> &island : IslandsOf(rings)) {
    int ofIsland = 0;
    for (const int ring : island) {
      const auto points = rings[std::size_t(ring)].GetPoints().Points();
      if (points.empty()) continue;
      const bool beginsAnother = ofIsland == 0 && done > 0;
      SetPart(feature.get(), beginsAnother ? -1 : done, points, LeastPoints);
      ++ofIsland;
      ++done;
    }
  }
  if (done == 0) return nullptr;
  m_styles.WritePen(*region.GetStyle(), feature.get());
  m_styles.WriteBrush(*region.GetStyle(), feature.get());
  return feature;
}

MitabFeature MitabWriter::MakeLine(const TCustomMapObject &line) {
  constexpr std::size_t LeastPoints = 2;
  MitabFeature feature = New(TABFC_Polyline);
  int done = 0;
  for (const TPart &part : line.GetParts().Items()) {
    if (part.GetPoints().GetCount() == 0) continue;
    SetPart(feature.get(), done++, part.GetPoints().Points(), LeastPoints);
  }
  if (done == 0) return nullptr;
  m_styles.WritePen(*line.GetStyle(), feature.get());
  return feature;
}

MitabFeature MitabWriter::MakeRectangle(const TCustomMapObject &rectangle) {
  const TBounds box = static_cast<const TRectangle &>(rectangle).GetCorners();
  const TMapPoint corners[] = {{box.MinX, box.MinY}, {box.MaxX, box.MaxY}};
  MitabFeature feature = New(TABFC_Rectangle);
  SetPart(feature.get(), 0, corners, 2);
  m_styles.WritePen(*rectangle.GetStyle(), feature.get());
  m_styles.WriteBrush(*rectangle.GetStyle(), feature.get());
  return feature;
}

MitabFeature MitabWriter::MakeCircle(const TCustomMapObject &object) {
  const auto &circle = static_cast<const TCircle &>(object);
  const TBounds box = circle.GetBounds();
  const double radius = std::abs(circle.GetRadius());
  const TMapPoint center{(box.MinX + box.MaxX) / 2, (box.MinY + box.MaxY) / 2};
  if (!IsFinite(center) || !std::isfinite(radius)) return nullptr;
  constexpr double FullCircleDeg = 360;
  MitabFeature feature = New(TABFC_Ellipse);
  mitab_c_set_arc(feature.get(), center.X, center.Y, radius, radius, 0, FullCircleDeg);
  m_styles.WritePen(*circle.GetStyle(), feature.get());
  m_styles.WriteBrush(*circle.GetStyle(), feature.get());
  return feature;
}

MitabFeature MitabWriter::MakeText(const TCustomMapObject &object) {
  const auto &text = static_cast<const TText &>(object);
  if (!std::isfinite(text.GetAngle() + text.GetHeight() + text.GetWidth())) return nullptr;
  MitabFeature feature = New(TABFC_Text);
  SetPlace(feature.get(), TextCorner(text.GetPosition(), text.GetAngle(), text.GetHeight()));
  mitab_c_set_text(feature.get(), m_text.Encode(text.GetText()).constData());
  m_styles.WriteFontName(*text.GetStyle(), feature.get());
  mitab_c_set_text_display(feature.get(), text.GetAngle(), text.GetHeight(), text.GetWidth(),
                           ColorToMif(text.GetFont().GetColor()),
                           text.GetUseBGColor() ? ColorToMif(text.GetBGColor()) : NoColor, AsItIs, AsItIs, AsItIs);
  if (!KeepsBox(text, feature.get())) ++m_changedBoxes;
  if (text.GetFreezeFontSize()) ++m_frozenTexts;
  return feature;
}

bool MitabWriter::KeepsBox(const TText &text, mitab_feature feature) const {
  constexpr double OfWidth = 0.05;  // which pixels make of the letters when a box is fitted to them
  if (!AreNear(mitab_c_get_text_height(feature), text.GetHeight())) return false;
  TMapHost *map = m_layer.GetMapHost();
  if (MitabKnowsTextWidths() || map == nullptr) return AreNear(mitab_c_get_text_width(feature), text.GetWidth());
  const double width = text.GetHeight() * LettersWidthToHeight(map->GetCanvas(), text.GetFont(), text.GetText());
  return std::abs(width - text.GetWidth()) <= OfWidth * width;
}

MitabFeature MitabWriter::MakeSymbol(const TCustomMapObject &object) {
  const auto &symbol = static_cast<const TSymbol &>(object);
  const bool isMapInfos = IsMapInfoSymbolFont(symbol.GetFont().GetName());
  MitabFeature feature = New(isMapInfos ? TABFC_Point : TABFC_FontPoint);
  SetPlace(feature.get(), symbol.GetPosition());
  m_styles.WriteSymbol(*symbol.GetStyle(), symbol.GetShape(), feature.get());
  return feature;
}

MitabFeature MitabWriter::MakePlace(const TCustomMapObject &object) {
  const auto parts = object.GetParts().Items();
  if (parts.empty() || parts[0].GetPoints().GetCount() == 0) return nullptr;
  MitabFeature feature = New(TABFC_Point);
  SetPlace(feature.get(), parts[0].GetPoints().GetPoint(0));
  return feature;
}

void MitabWriter::FinishReport() {
  for (std::size_t kind = 0; kind < m_counts.size(); ++kind) {
    m_report.CountObject(QString::fromLatin1(MitabKindWriters::InOrder[kind].name), m_counts[kind]);
  }
  m_report.Lose(TFormatReport::tr("characters that the character set lacks, written as question marks: %1"),
                m_text.GetLostCharacters());
  m_report.Lose(TFormatReport::tr("shapes without points or with coordinates that are no numbers, not written: %1"),
                m_badShapes);
  m_report.Lose(TFormatReport::tr("widths of text boxes that are not those of the letters: %1"), m_changedBoxes);
  m_report.Lose(TFormatReport::tr("geodesic circles and the like, written as plain regions: %1"), m_plainRegions);
  m_report.Lose(TFormatReport::tr("sizes of texts that do not follow the zoom: %1"), m_frozenTexts);
  m_report.Lose(TFormatReport::tr("pictures of sprites, written as symbols: %1"),
                m_counts[MitabKindWriters::SpriteIndex]);
  m_columns.ReportLosses(m_report);
  m_styles.ReportLosses(m_report);
}

}  // namespace tessera::detail
