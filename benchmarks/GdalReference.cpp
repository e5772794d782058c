// SPDX-License-Identifier: MIT
#include "GdalReference.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cpl_string.h>
#include <ogrsf_frmts.h>

#include <stdexcept>
#include <string_view>

namespace tessera::bench {
namespace {

[[noreturn]] void Fail(const QString &path) {
  throw std::runtime_error(path.toStdString() + ": " + CPLGetLastErrorMsg());
}

/// The colour that follows `key` in a feature's style, or black.
QRgb ColorIn(std::string_view style, std::string_view key) {
  const auto at = style.find(key);
  if (at == std::string_view::npos) return qRgb(0, 0, 0);
  return 0xFF000000U | static_cast<QRgb>(std::stoul(std::string(style.substr(at + key.size(), 6)), nullptr, 16));
}

void AddCurve(FlatMap &map, FlatKind kind, QRgb color, const OGRSimpleCurve &curve) {
  std::vector<FlatVertex> vertices(static_cast<std::size_t>(curve.getNumPoints()));
  for (int i = 0; i < curve.getNumPoints(); ++i) vertices[static_cast<std::size_t>(i)] = {curve.getX(i), curve.getY(i)};
  map.Add(kind, color, vertices);
}

void AddGeometry(FlatMap &map, std::string_view style, const OGRGeometry &geometry) {
  switch (wkbFlatten(geometry.getGeometryType())) {
    case wkbPoint: {
      const FlatVertex vertex = {geometry.toPoint()->getX(), geometry.toPoint()->getY()};
      map.Add(FlatKind::Point, ColorIn(style, ",c:#"), {&vertex, 1});
      break;
    }
    case wkbLineString:
      AddCurve(map, FlatKind::Line, ColorIn(style, ",c:#"), *geometry.toLineString());
      break;
    case wkbPolygon:
      for (const OGRLinearRing *ring : *geometry.toPolygon()) {
        AddCurve(map, FlatKind::Ring, ColorIn(style, "fc:#"), *ring);
      }
      break;
    default:
      if (OGR_GT_IsSubClassOf(geometry.getGeometryType(), wkbGeometryCollection)) {
        for (const OGRGeometry *part : *geometry.toGeometryCollection()) AddGeometry(map, style, *part);
      }
  }
}

}  // namespace

struct GdalMap::Content {
  GDALDatasetUniquePtr source;
  std::vector<OGRFeatureUniquePtr> features;
};

GdalMap::GdalMap(const QString &path) : m_content(std::make_unique<Content>()) {
  GDALAllRegister();
  m_content->source.reset(GDALDataset::Open(path.toUtf8().constData(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
  if (!m_content->source) Fail(path);
  OGRLayer &layer = *m_content->source->GetLayer(0);
  while (OGRFeatureUniquePtr feature{layer.GetNextFeature()}) m_content->features.push_back(std::move(feature));
}

GdalMap::~GdalMap() = default;

void GdalMap::Write(const QString &path) {
  const QFileInfo info(path);
  for (const char *ending : {"mif", "mid", "tab", "dat", "map", "id"}) {
    QFile::remove(info.path() + u'/' + info.completeBaseName() + u'.' + QLatin1String(ending));
  }
  GDALDriver *driver = GetGDALDriverManager()->GetDriverByName("MapInfo File");
  if (driver == nullptr) Fail(path);
  CPLStringList options;
  options.SetNameValue("FORMAT", info.suffix().toUpper().toLatin1().constData());
  const GDALDatasetUniquePtr target(driver->Create(path.toUtf8().constData(), 0, 0, 0, GDT_Unknown, options.List()));
  if (!target) Fail(path);
  OGRLayer &source = *m_content->source->GetLayer(0);
  OGRLayer *layer = target->CreateLayer(source.GetName(), source.GetSpatialRef(), wkbUnknown, nullptr);
  if (layer == nullptr) Fail(path);
  OGRFeatureDefn &columns = *source.GetLayerDefn();
  for (int i = 0; i < columns.GetFieldCount(); ++i) layer->CreateField(columns.GetFieldDefn(i));

  OGRFeature copy(layer->GetLayerDefn());
  for (const OGRFeatureUniquePtr &feature : m_content->features) {
    for (int field = 0; field < feature->GetFieldCount(); ++field) copy.SetField(field, feature->GetRawFieldRef(field));
    copy.SetStyleString(feature->GetStyleString());
    copy.SetFID(OGRNullFID);
    // Lent, not copied.
    copy.SetGeometryDirectly(feature->StealGeometry());
    const OGRErr error = layer->CreateFeature(&copy);
    feature->SetGeometryDirectly(copy.StealGeometry());
    if (error != OGRERR_NONE) Fail(path);
  }
}

QString EnsureTable(const QString &mifPath) {
  const QString base = mifPath.chopped(QStringLiteral("mif").size());
  if (QFile::exists(base + QStringLiteral("tab"))) return base + QStringLiteral("tab");
  const QTemporaryDir folder(base + QStringLiteral("XXXXXX"));
  GdalMap(mifPath).Write(folder.filePath(QStringLiteral("table.tab")));
  // Where the first of them is there, all are.
  for (const char *ending : {"dat", "id", "map", "tab"}) {
    const QString made = folder.filePath(QStringLiteral("table.") + QLatin1String(ending));
    QFile::remove(base + QLatin1String(ending));
    if (!QFile::rename(made, base + QLatin1String(ending)))
      throw std::runtime_error("cannot write " + base.toStdString());
  }
  return base + QStringLiteral("tab");
}

FlatMap GdalMap::Flatten() const {
  FlatMap map;
  for (const OGRFeatureUniquePtr &feature : m_content->features) {
    const char *style = feature->GetStyleString();
    if (const OGRGeometry *geometry = feature->GetGeometryRef()) {
      AddGeometry(map, style == nullptr ? "" : style, *geometry);
    }
  }
  return map;
}

}  // namespace tessera::bench
