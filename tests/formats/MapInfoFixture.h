// SPDX-License-Identifier: MIT
#pragma once

#include "../support/FakeMapHost.h"
#include "../support/FolderFixture.h"

#include <tessera/base/MessageSink.h>
#include <tessera/formats/TMapInfoFormatProvider.h>
#include <tessera/layers/TMapLayer.h>

#include <algorithm>

namespace tessera::test {

/// A layer on a map to be written, another to be read, the provider, and a folder of its own for files.
class TMapInfoTest : public FolderFixture {
 protected:
  TMapInfoTest() {
    layer.SetMap(&map);
    read.SetMap(&map);
  }

  /// Writes `layer` and reads it into `read`.
  void RoundTrip(const QString &name) {
    ASSERT_TRUE(provider.Save(&layer, PathOf(name)));
    saveLosses = Losses();
    ASSERT_TRUE(provider.Load(&read, PathOf(name))) << Error();
  }
  template <class Kind>
  [[nodiscard]] Kind *As(int index) const {
    return dynamic_cast<Kind *>(read.GetObjects(index));
  }
  [[nodiscard]] std::string ValueOf(int object, int field) const {
    return read.GetObjects(object)->GetFields().GetFields(field).GetAsString().toStdString();
  }
  [[nodiscard]] std::string Losses() const {
    return provider.GetReport().losses.join(QStringLiteral("; ")).toStdString();
  }
  [[nodiscard]] std::string Error() const {
    const auto &error = provider.GetReport().firstError;
    return error ? error->words.toStdString() : std::string();
  }

  TFakeMapHost map;
  TMapLayer layer;
  TMapLayer read;
  TMapInfoFormatProvider provider;
  std::string saveLosses;
};

}  // namespace tessera::test
