// SPDX-License-Identifier: MIT
#include "../tests/support/FakeMapHost.h"

#include <tessera/formats/TMapInfoFormatProvider.h>
#include <tessera/layers/TMapLayer.h>

#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdlib>

namespace {

/// What stands between the files of a table.
constexpr QByteArrayView Marker("\n====\n");

void Require(bool holds) {
  if (!holds) std::abort();
}

/// Cuts the input into the files of a table, in a folder; those that it does not reach are not there.
QString UnpackTable(QByteArrayView input, const QTemporaryDir &folder) {
  for (const char *ending : {"tab", "dat", "map", "id"}) {
    const QString name = folder.filePath(QStringLiteral("a.") + QString::fromLatin1(ending));
    QFile::remove(name);
    if (input.isNull()) continue;
    const qsizetype end = input.indexOf(Marker);
    const QByteArrayView content = end < 0 ? input : input.first(end);
    input = end < 0 ? QByteArrayView() : input.sliced(end + Marker.size());
    QFile file(name);
    Require(file.open(QIODevice::WriteOnly) && file.write(content.data(), content.size()) == content.size());
  }
  return folder.filePath(QStringLiteral("a.tab"));
}

/// What was read lies within its bounds, and has its values.
void CheckObject(const tessera::TCustomMapObject &object) {
  for (const tessera::TPart &part : object.GetParts().Items()) {
    for (const tessera::TMapPoint &point : part.GetPoints().Points()) {
      constexpr double Widest = tessera::BoundsSentinel;
      const bool isCounted = std::abs(point.X) <= Widest && std::abs(point.Y) <= Widest;
      Require(!isCounted || object.GetBounds().ContainsPoint(point.X, point.Y));
    }
  }
  for (int i = 0; i < object.GetFields().GetCount(); ++i) {
    static_cast<void>(object.GetFields().GetRecord().Get(i));
  }
}

}  // namespace

/// What is there once, and not the readers'.
extern "C" const char *__lsan_default_suppressions() {
  return "leak:libfontconfig";
}

/// Texts have fonts, which only a program with a screen of some kind knows.
extern "C" int LLVMFuzzerInitialize(int *count, char ***arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static const QGuiApplication application(*count, *arguments);
  return 0;
}

/// The files of a table, .tab, .dat, .map and .id in that order, with the marker between them.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  static const QTemporaryDir folder;
  static tessera::TMapInfoFormatProvider provider;
  static tessera::test::TFakeMapHost map;
  map.TakeEvents();
  tessera::TMapLayer layer;
  layer.SetMap(&map);
  const QByteArrayView input(data, qsizetype(size));
  const bool isWhole = provider.Load(&layer, UnpackTable(input, folder));
  Require(isWhole == provider.GetReport().ok());
  static_cast<void>(provider.GetReport().Summary());
  for (int i = 0; i < layer.GetObjectCount(); ++i) CheckObject(*layer.GetObjects(i));
  return 0;
}
