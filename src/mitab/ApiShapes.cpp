// SPDX-License-Identifier: MIT
// The entry points about geometry and collections.
#include "Access.h"
#include "Errors.h"
#include "Shapes.h"

namespace tessera::mitab {
namespace {

bool IsOf(void *feature, Kind kind) {
  return feature != nullptr && FeatureOf(feature)->kind == kind;
}

const OGRRawPoint *PointAt(void *feature, int part, int vertex) {
  const Part *found = PartAt(FeatureOf(feature), part);
  if (found == nullptr || vertex < 0 || std::size_t(vertex) >= found->points.size()) return nullptr;
  return &found->points[std::size_t(vertex)];
}

/// A ring with the number 0 begins the area anew; higher ones are holes, and a negative one begins an island.
void SetRing(Feature &feature, int part, Points points) {
  if (part == 0) feature.parts.clear();
  feature.parts.push_back({std::move(points), part > 0});
}

/// Sections come in order; one that is there is replaced, and the number 0 begins the line anew.
void SetLine(Feature &feature, int part, Points points) {
  if (part == 0) feature.parts.clear();
  if (part >= 0 && std::size_t(part) <= feature.parts.size()) {
    feature.parts.resize(std::max(feature.parts.size(), std::size_t(part) + 1));
    feature.parts[std::size_t(part)].points = std::move(points);
  }
}

void SetShape(Feature &feature, int part, Points points) {
  if (feature.kind == Kind::Region) return SetRing(feature, part, std::move(points));
  if (feature.kind == Kind::Polyline) return SetLine(feature, part, std::move(points));
  feature.parts.clear();
  if (feature.kind == Kind::NoGeometry || feature.kind == Kind::Collection || points.empty()) return;
  if (feature.kind == Kind::Rectangle) points = RectangleAround(points);
  if (feature.IsPoint()) points.resize(1);
  feature.parts.push_back({std::move(points), false});
}

int SetMember(void *collection, void *member, int makeCopy, Kind kind, std::unique_ptr<Feature> Feature::*place) {
  if (!IsOf(collection, Kind::Collection) || (member != nullptr && !IsOf(member, kind))) return -1;
  return Guarded(-1, [&] {
    auto &owner = FeatureOf(collection)->*place;
    if (member == nullptr) {
      owner.reset();
    } else if (makeCopy != 0) {
      owner = FeatureOf(member)->CopyShape();
    } else if (owner.get() != member) {
      owner.reset(FeatureOf(member));
    }
    return 0;
  });
}

void *MemberOf(void *collection, std::unique_ptr<Feature> Feature::*place) {
  return IsOf(collection, Kind::Collection) ? (FeatureOf(collection)->*place).get() : nullptr;
}

}  // namespace

MITAB_API int mitab_c_get_type(void *feature) {
  return feature == nullptr ? 0 : int(FeatureOf(feature)->kind);
}

MITAB_API int mitab_c_get_parts(void *feature) {
  return feature == nullptr ? 0 : int(FeatureOf(feature)->parts.size());
}

MITAB_API int mitab_c_get_vertex_count(void *feature, int part) {
  const Part *found = PartAt(FeatureOf(feature), part);
  return found == nullptr ? 0 : int(found->points.size());
}

MITAB_API double mitab_c_get_vertex_x(void *feature, int part, int vertex) {
  const OGRRawPoint *point = PointAt(feature, part, vertex);
  return point == nullptr ? 0 : point->x;
}

MITAB_API double mitab_c_get_vertex_y(void *feature, int part, int vertex) {
  const OGRRawPoint *point = PointAt(feature, part, vertex);
  return point == nullptr ? 0 : point->y;
}

MITAB_API int mitab_c_is_interior_ring(void *feature, int ring) {
  if (!IsOf(feature, Kind::Region)) return 0;
  const Part *found = PartAt(FeatureOf(feature), ring);
  return found != nullptr && found->isHole ? 1 : 0;
}

MITAB_API void mitab_c_set_points(void *feature, int part, int count, double *x, double *y) {
  if (feature == nullptr || count < 0 || x == nullptr || y == nullptr) return;
  Guarded(0, [&] {
    Points points(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < points.size(); ++i) points[i] = {x[i], y[i]};
    SetShape(*FeatureOf(feature), part, std::move(points));
    return 0;
  });
}

MITAB_API void mitab_c_set_arc(void *feature, double centerX, double centerY, double radiusX, double radiusY,
                               double startDeg, double endDeg) {
  if (!IsOf(feature, Kind::Arc) && !IsOf(feature, Kind::Ellipse)) return;
  Guarded(0, [&] {
    const Arc arc{{centerX, centerY}, radiusX, radiusY, startDeg, endDeg};
    Feature &changed = *FeatureOf(feature);
    changed.parts.assign(1, {changed.kind == Kind::Arc ? SampleArc(arc) : SampleEllipse(arc), false});
    return 0;
  });
}

MITAB_API void *mitab_c_get_collection_region_ref(void *feature) {
  return MemberOf(feature, &Feature::region);
}

MITAB_API void *mitab_c_get_collection_polyline_ref(void *feature) {
  return MemberOf(feature, &Feature::polyline);
}

MITAB_API void *mitab_c_get_collection_multipoint_ref(void *feature) {
  return MemberOf(feature, &Feature::multiPoint);
}

MITAB_API int mitab_c_set_collection_region(void *feature, void *region, int makeCopy) {
  return SetMember(feature, region, makeCopy, Kind::Region, &Feature::region);
}

MITAB_API int mitab_c_set_collection_polyline(void *feature, void *polyline, int makeCopy) {
  return SetMember(feature, polyline, makeCopy, Kind::Polyline, &Feature::polyline);
}

MITAB_API int mitab_c_set_collection_multipoint(void *feature, void *multiPoint, int makeCopy) {
  return SetMember(feature, multiPoint, makeCopy, Kind::MultiPoint, &Feature::multiPoint);
}

}  // namespace tessera::mitab
