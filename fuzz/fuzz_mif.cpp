// SPDX-License-Identifier: MIT
#include "../tests/support/FakeMapHost.h"

#include <tessera/base/Exceptions.h>
#include <tessera/formats/detail/MifReader.h>
#include <tessera/layers/TMapLayer.h>

#include <cstdint>
#include <cstdlib>

namespace {

/// What stands between the two files of a pair.
constexpr std::string_view Marker = "\n====\n";

void Require(bool holds) {
  if (!holds) std::abort();
}

/// What was read cannot be more than the bytes can hold, and lies within its bounds.
void CheckObject(const tessera::TCustomMapObject &object, std::size_t size) {
  std::size_t vertices = 0;
  for (const tessera::TPart &part : object.GetParts().Items()) {
    vertices += part.GetPoints().Points().size();
    for (const tessera::TMapPoint &point : part.GetPoints().Points()) {
      constexpr double Widest = tessera::BoundsSentinel;
      const bool isCounted = std::abs(point.X) <= Widest && std::abs(point.Y) <= Widest;
      Require(!isCounted || object.GetBounds().ContainsPoint(point.X, point.Y));
    }
  }
  Require(4 * vertices <= size + 4);
  for (int i = 0; i < object.GetFields().GetCount(); ++i) {
    static_cast<void>(object.GetFields().GetRecord().Get(i));
  }
}

}  // namespace

/// A MIF file, and behind the marker its data file; without the marker there is none.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  const std::string_view pair(reinterpret_cast<const char *>(data), size);
  const std::size_t marker = pair.find(Marker);
  const bool hasMid = marker != std::string_view::npos;

  static tessera::test::TFakeMapHost map;
  map.TakeEvents();
  tessera::TMapLayer layer;
  layer.SetMap(&map);
  tessera::TFormatReport report;
  tessera::detail::MemorySource mif(pair.substr(0, marker));
  tessera::detail::MemorySource mid(hasMid ? pair.substr(marker + Marker.size()) : std::string_view());
  tessera::detail::MifReader reader(layer, mif, hasMid ? &mid : nullptr, report);
  try {
    reader.Read();
  } catch (const tessera::EConvertError &) {
  } catch (const tessera::ERangeError &) {
  }
  Require(reader.GetLine() >= 1);
  reader.FinishReport();
  Require(report.CountOfObjects() == layer.GetObjectCount());
  static_cast<void>(report.Summary());
  for (int i = 0; i < layer.GetObjectCount(); ++i) CheckObject(*layer.GetObjects(i), size);
  return 0;
}
