// SPDX-License-Identifier: MIT
#include <tessera/base/detail/ByteOutput.h>
#include <tessera/editing/TObjectClipboard.h>
#include <tessera/editing/detail/ObjectPacking.h>
#include <tessera/formats/detail/MifText.h>
#include <tessera/formats/detail/MifWriter.h>
#include <tessera/layers/TMapLayer.h>

namespace tessera {
namespace {

/// The shapes of objects as a MIF file has them.
QString MifTextOf(std::span<TCustomMapObject *const> objects) {
  TMapLayer layer;
  for (const TCustomMapObject *object : objects) layer.PutObject(layer.GetObjectCount(), object->Clone());
  TFormatReport report;
  detail::MemoryOutput mif;
  detail::NoOutput mid;
  detail::MifWriter(layer, mif, mid, report).Write();
  return detail::DecodeWindows1251(mif.GetBytes());
}

}  // namespace

QString ObjectsMimeType() {
  return QStringLiteral("application/x-tessera-objects");
}

std::unique_ptr<QMimeData> ObjectsToMimeData(std::span<TCustomMapObject *const> objects) {
  auto data = std::make_unique<QMimeData>();
  data->setData(ObjectsMimeType(), detail::PackObjects(objects));
  data->setText(MifTextOf(objects));
  return data;
}

bool HoldsObjects(const QMimeData &data) {
  return data.hasFormat(ObjectsMimeType());
}

std::vector<std::unique_ptr<TCustomMapObject>> ObjectsFromMimeData(const QMimeData &data) {
  return HoldsObjects(data) ? detail::UnpackObjects(data.data(ObjectsMimeType()))
                            : std::vector<std::unique_ptr<TCustomMapObject>>();
}

}  // namespace tessera
