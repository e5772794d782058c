// SPDX-License-Identifier: MIT
#include "TesseraSide.h"

#include <memory>
#include <stdexcept>
#include <vector>

namespace tessera::bench {
namespace {

/// Providers answer a loading or saving only through their report.
void ThrowUnlessOk(const TFormatReport &report) {
  if (!report.ok()) throw std::runtime_error(report.Summary().toStdString());
}

}  // namespace

TesseraSide::TesseraSide(QSize size) : TesseraSide(QString(), size) {}

TesseraSide::TesseraSide(const QString &path, QSize size) {
  m_control.resize(size);
  m_control.SetColor(clWhite);
  m_control.GetLayers()->Add(path, QStringLiteral("map"));
  ThrowUnlessOk(m_provider.GetReport());
  ThrowUnlessOk(m_tables.GetReport());
}

void TesseraSide::Write(const QString &mifPath) {
  m_control.GetLayers()->First()->SaveToFile(mifPath);
  ThrowUnlessOk(m_provider.GetReport());
}

std::size_t TesseraSide::CountVertices() const {
  const TMapLayer &layer = *m_control.GetLayers()->First();
  std::size_t count = 0;
  for (int i = 0; i < layer.GetObjectCount(); ++i) {
    for (const TPart &part : std::as_const(*layer.GetObjects(i)).GetParts().Items()) {
      count += part.GetPoints().Points().size();
    }
  }
  return count;
}

void TesseraSide::Show(const BareView &view) {
  const double halfWidth = view.size.width() / 2.0 * view.unitsPerPx;
  const double halfHeight = view.size.height() / 2.0 * view.unitsPerPx;
  m_control.BeginUpdate();
  m_control.SetMinX(view.centre.x - halfWidth);
  m_control.SetMaxX(view.centre.x + halfWidth);
  m_control.SetMinY(view.centre.y - halfHeight);
  m_control.SetMaxY(view.centre.y + halfHeight);
  m_control.SetCenterX(view.centre.x);
  m_control.SetCenterY(view.centre.y);
  m_control.EndUpdate(true);
}

void TesseraSide::KeepOnlyShown() {
  TMapLayer &layer = Layer();
  TCardinalArray ids;
  layer.GetAllIdsInRect(Bounds2CellBounds(m_control.GetViewBounds()), ids);
  std::vector<TCustomMapObject *> shown;
  for (const std::uint32_t id : std::as_const(ids).Ids()) shown.push_back(layer.GetObjects(static_cast<int>(id)));
  std::vector<std::unique_ptr<TCustomMapObject>> kept;
  for (TCustomMapObject *object : shown) kept.push_back(layer.RemoveObject(object));
  m_control.BeginUpdate();
  layer.DeleteObjects();
  for (auto &object : kept) {
    const TObjectStylePtr style = object->GetStyle();
    layer.AddObject(std::move(object), false)->SetStyle(style);
  }
  m_control.EndUpdate(true);
}

QImage TesseraSide::Picture() const {
  TBitmap bitmap;
  m_control.AssignToBitmap(bitmap);
  return bitmap.GetImage();
}

}  // namespace tessera::bench
