// SPDX-License-Identifier: MIT
#pragma once

#include "../support/FakeMapHost.h"

#include <tessera/base/MessageSink.h>
#include <tessera/formats/TMapInfoFormatProvider.h>
#include <tessera/layers/TMapLayer.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <algorithm>

namespace tessera::test {

/// A layer on a map to be written, another to be read, the provider, and a folder of its own for files.
class TMapInfoTest : public testing::Test {
 protected:
  TMapInfoTest() {
    layer.SetMap(&map);
    read.SetMap(&map);
  }

  [[nodiscard]] QString PathOf(const QString &name) const { return m_folder.filePath(name); }
  void WriteFile(const QString &name, const QByteArray &bytes) const {
    QFile file(PathOf(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }
  [[nodiscard]] QByteArray ReadFile(const QString &name) const {
    QFile file(PathOf(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
  }
  [[nodiscard]] QStringList Files() const {
    return QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
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

 private:
  QTemporaryDir m_folder;
};

}  // namespace tessera::test
