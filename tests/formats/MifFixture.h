// SPDX-License-Identifier: MIT
#pragma once

#include "../support/FakeMapHost.h"
#include "../support/FolderFixture.h"

#include <tessera/base/MessageSink.h>
#include <tessera/formats/SimpleMIFFormatProvider.h>
#include <tessera/layers/TMapLayer.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRegion.h>
#include <tessera/objects/TSymbol.h>

#include <utility>
#include <vector>

namespace tessera::test {

using TVertices = std::vector<std::pair<double, double>>;

/// A layer on a map, a provider, and a folder of its own for files. Messages are collected instead of shown.
class TMifTest : public FolderFixture {
 protected:
  TMifTest() : m_sinkBefore(SetMessageSink([this](const QString &text) { messages.push_back(text.toStdString()); })) {
    layer.SetMap(&map);
  }
  ~TMifTest() override { SetMessageSink(m_sinkBefore); }

  /// Loads a pair written for the occasion. A line of no meaning is put behind, as the last line does not count.
  void LoadText(const QByteArray &mif, const QByteArray &mid = "") {
    WriteFile(QStringLiteral("a.mif"), mif + "\nEnd\n");
    WriteFile(QStringLiteral("a.mid"), mid);
    provider.Load(&layer, PathOf(QStringLiteral("a.mif")));
  }
  /// Loads a pair of the test data.
  void LoadData(const QString &name) {
    provider.Load(&layer, QStringLiteral(TESSERA_TEST_DATA "/mif/") + name + QStringLiteral(".mif"));
  }
  /// Saves the layer as b.mif and b.mid.
  void Save() { provider.Save(&layer, PathOf(QStringLiteral("b.mif"))); }

  [[nodiscard]] TCustomMapObject &ObjectAt(int index) const { return *layer.GetObjects(index); }
  template <class Kind>
  [[nodiscard]] Kind *As(int index) const {
    return dynamic_cast<Kind *>(layer.GetObjects(index));
  }
  [[nodiscard]] TVertices VerticesOf(int object, int part) const {
    TVertices vertices;
    for (const TMapPoint &point : ObjectAt(object).GetParts().GetItems(part).GetPoints().Points()) {
      vertices.emplace_back(point.X, point.Y);
    }
    return vertices;
  }
  [[nodiscard]] std::string ValueOf(int object, int field) const {
    return ObjectAt(object).GetFields().GetFields(field).GetAsString().toStdString();
  }
  [[nodiscard]] std::string Warnings() const {
    return provider.GetReport().warnings.join(QStringLiteral("; ")).toStdString();
  }
  [[nodiscard]] std::string Losses() const {
    return provider.GetReport().losses.join(QStringLiteral("; ")).toStdString();
  }
  /// "line: words" of the first error.
  [[nodiscard]] std::string Error() const {
    const auto &error = provider.GetReport().firstError;
    return error ? std::to_string(error->line) + ": " + error->words.toStdString() : std::string();
  }

  TFakeMapHost map;
  TMapLayer layer;
  TSimpleMIFFormatProvider provider;
  std::vector<std::string> messages;

 private:
  TMessageSink m_sinkBefore;
};

}  // namespace tessera::test
