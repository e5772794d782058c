// SPDX-License-Identifier: MIT
#include "Conversion.h"

#include "Shapes.h"

#include <ogr_geometry.h>

#include <algorithm>
#include <cmath>
#include <string_view>
#include <typeinfo>

namespace tessera::mitab {
namespace {

Part PartOf(const OGRSimpleCurve &curve, bool isHole) {
  Part part;
  part.points.resize(std::size_t(curve.getNumPoints()));
  if (!part.points.empty()) curve.getPoints(part.points.data());
  part.isHole = isHole;
  return part;
}

void AddPolygon(const OGRPolygon &polygon, Feature &feature) {
  bool isHole = false;
  for (const OGRLinearRing *ring : polygon) {
    feature.parts.push_back(PartOf(*ring, isHole));
    isHole = true;
  }
}

void AddPoint(const OGRPoint &point, Feature &feature) {
  if (feature.parts.empty()) feature.parts.emplace_back();
  feature.parts.front().points.emplace_back(point.getX(), point.getY());
}

/// Whether GDAL's own class for the row has that name, which is all that it shows of these classes.
bool IsOfClass(const OGRFeature &row, std::string_view name) {
  return std::string_view(typeid(row).name()).ends_with(name);
}

/// Rounded rectangles and small ellipses are only known by their class; what GDAL has written as a region, by its
/// shape.
Kind KindOfRegion(const Feature &region, const OGRFeature &row) {
  if (region.parts.size() == 1 && IsOfClass(row, "TABRectangle")) return Kind::Rectangle;
  if (region.parts.size() == 1 && IsOfClass(row, "TABEllipse")) return Kind::Ellipse;
  return KindOfRings(region.parts);
}

void AddGeometry(const OGRGeometry &geometry, Feature &feature);

/// A member of a collection: all of its geometries of one kind.
Feature &Member(std::unique_ptr<Feature> &member, Kind kind) {
  if (!member) {
    member = std::make_unique<Feature>();
    member->kind = kind;
  }
  return *member;
}

void AddMember(const OGRGeometry &geometry, Feature &collection) {
  switch (wkbFlatten(geometry.getGeometryType())) {
    case wkbPolygon:
    case wkbMultiPolygon:
      return AddGeometry(geometry, Member(collection.region, Kind::Region));
    case wkbLineString:
    case wkbMultiLineString:
      return AddGeometry(geometry, Member(collection.polyline, Kind::Polyline));
    case wkbPoint:
    case wkbMultiPoint:
      return AddGeometry(geometry, Member(collection.multiPoint, Kind::MultiPoint));
    default:
      break;
  }
}

void AddGeometry(const OGRGeometry &geometry, Feature &feature) {
  switch (wkbFlatten(geometry.getGeometryType())) {
    case wkbPoint:
      return AddPoint(*geometry.toPoint(), feature);
    case wkbMultiPoint:
      for (const OGRPoint *point : *geometry.toMultiPoint()) AddPoint(*point, feature);
      return;
    case wkbLineString:
      return feature.parts.push_back(PartOf(*geometry.toLineString(), false));
    case wkbMultiLineString:
      for (const OGRLineString *line : *geometry.toMultiLineString()) feature.parts.push_back(PartOf(*line, false));
      return;
    case wkbPolygon:
      return AddPolygon(*geometry.toPolygon(), feature);
    case wkbMultiPolygon:
      for (const OGRPolygon *polygon : *geometry.toMultiPolygon()) AddPolygon(*polygon, feature);
      return;
    case wkbGeometryCollection:
      for (const OGRGeometry *member : *geometry.toGeometryCollection()) AddMember(*member, feature);
      return;
    default:
      return;
  }
}

/// A point may be a text or another kind of symbol.
Kind KindOf(const OGRGeometry *geometry) {
  if (geometry == nullptr || geometry->IsEmpty()) return Kind::NoGeometry;
  switch (wkbFlatten(geometry->getGeometryType())) {
    case wkbPoint:
      return Kind::Point;
    case wkbMultiPoint:
      return Kind::MultiPoint;
    case wkbLineString:
    case wkbMultiLineString:
      return Kind::Polyline;
    case wkbPolygon:
    case wkbMultiPolygon:
      return Kind::Region;
    case wkbGeometryCollection:
      return Kind::Collection;
    default:
      return Kind::NoGeometry;
  }
}

void SetPoints(const Part &part, OGRSimpleCurve &curve) {
  curve.setPoints(int(part.points.size()), part.points.data());
}

std::unique_ptr<OGRGeometry> LinesOf(const Feature &feature) {
  auto lines = std::make_unique<OGRMultiLineString>();
  for (const Part &part : feature.parts) {
    auto line = std::make_unique<OGRLineString>();
    SetPoints(part, *line);
    if (feature.parts.size() == 1) return line;
    lines->addGeometryDirectly(line.release());
  }
  return lines;
}

std::unique_ptr<OGRGeometry> AreasOf(const Feature &feature) {
  auto areas = std::make_unique<OGRMultiPolygon>();
  std::unique_ptr<OGRPolygon> polygon;
  const auto finish = [&] {
    if (polygon) areas->addGeometryDirectly(polygon.release());
  };
  for (const Part &part : feature.parts) {
    if (!part.isHole || !polygon) {
      finish();
      polygon = std::make_unique<OGRPolygon>();
    }
    auto ring = std::make_unique<OGRLinearRing>();
    SetPoints(part, *ring);
    polygon->addRingDirectly(ring.release());
  }
  if (areas->IsEmpty() != 0 && polygon) return polygon;
  finish();
  return areas;
}

std::unique_ptr<OGRGeometry> PointsOf(const Feature &feature) {
  auto points = std::make_unique<OGRMultiPoint>();
  for (const Part &part : feature.parts) {
    for (const OGRRawPoint &point : part.points) {
      const OGRPoint place(point.x, point.y);
      points->addGeometry(&place);
    }
  }
  return points;
}

std::unique_ptr<OGRGeometry> GeometryOf(const Feature &feature);

std::unique_ptr<OGRGeometry> MembersOf(const Feature &collection) {
  auto members = std::make_unique<OGRGeometryCollection>();
  for (const Feature *member : {collection.region.get(), collection.polyline.get(), collection.multiPoint.get()}) {
    if (member != nullptr) members->addGeometryDirectly(GeometryOf(*member).release());
  }
  return members;
}

std::unique_ptr<OGRGeometry> GeometryOf(const Feature &feature) {
  switch (feature.kind) {
    case Kind::NoGeometry:
      return nullptr;
    case Kind::Polyline:
    case Kind::Arc:
      return LinesOf(feature);
    case Kind::Region:
    case Kind::Rectangle:
    case Kind::Ellipse:
      return AreasOf(feature);
    case Kind::MultiPoint:
      return PointsOf(feature);
    case Kind::Collection:
      return MembersOf(feature);
    default:
      return std::make_unique<OGRPoint>(feature.parts[0].points[0].x, feature.parts[0].points[0].y);
  }
}

bool IsWritable(const Part &part, std::size_t leastPoints) {
  return part.points.size() >= leastPoints &&
         std::all_of(part.points.begin(), part.points.end(),
                     [](const auto &point) { return std::isfinite(point.x) && std::isfinite(point.y); });
}

bool IsWritable(const Feature &feature) {
  if (feature.kind == Kind::NoGeometry) return true;
  if (feature.kind == Kind::Collection) {
    const Feature *members[] = {feature.region.get(), feature.polyline.get(), feature.multiPoint.get()};
    return std::all_of(std::begin(members), std::end(members),
                       [](const Feature *member) { return member == nullptr || IsWritable(*member); });
  }
  const std::size_t leastPoints = feature.HasBrush()                                            ? 3
                                  : feature.kind == Kind::Polyline || feature.kind == Kind::Arc ? 2
                                                                                                : 1;
  return !feature.parts.empty() && std::all_of(feature.parts.begin(), feature.parts.end(),
                                               [&](const Part &part) { return IsWritable(part, leastPoints); });
}

bool SetValues(const Feature &feature, OGRFeature &row) {
  const Columns &columns = *feature.columns;
  const std::size_t count = std::min({feature.values.size(), columns.size(), std::size_t(row.GetFieldCount())});
  for (std::size_t i = 0; i < count; ++i) {
    if (!SetValue(row, int(i), columns[i], feature.values[i])) return false;
  }
  return true;
}

}  // namespace

std::unique_ptr<Feature> FromOgr(OGRFeatureUniquePtr row, std::shared_ptr<const Columns> columns, StyleReader &styles) {
  auto feature = std::make_unique<Feature>();
  // OGR puts the text together, with regard to the geometry, when it is asked.
  const char *style = row->GetGeometryRef() == nullptr ? nullptr : row->GetStyleString();
  const std::unique_ptr<OGRGeometry> geometry(row->StealGeometry());
  feature->kind = KindOf(geometry.get());
  if (feature->kind != Kind::NoGeometry) AddGeometry(*geometry, *feature);
  if (feature->kind == Kind::Region) feature->kind = KindOfRegion(*feature, *row);
  if (feature->kind == Kind::Polyline && IsOfClass(*row, "TABArc")) feature->kind = Kind::Arc;
  if (style != nullptr) styles.Read(style, *feature);
  feature->columns = std::move(columns);
  feature->row = std::move(row);
  return feature;
}

OGRFeatureUniquePtr ToOgr(const Feature &feature, OGRFeatureDefn &definition) {
  if (!IsWritable(feature)) return nullptr;
  OGRFeatureUniquePtr row(new OGRFeature(&definition));
  if (!SetValues(feature, *row)) return nullptr;
  row->SetGeometryDirectly(GeometryOf(feature).release());
  const std::string style = StyleOf(feature);
  if (!style.empty()) row->SetStyleString(style.c_str());
  return row;
}

}  // namespace tessera::mitab
