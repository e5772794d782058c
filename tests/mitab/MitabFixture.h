// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/formats/detail/MitabEntries.h>
#include <tessera/formats/mitab_dyn.h>

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tessera::test {

using TCoordinates = std::vector<std::pair<double, double>>;
using TMitabFeature = std::unique_ptr<void, void (*)(mitab_feature)>;

/// The library of the project, bound as any other, and a folder of its own for files.
class TMitabTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    LibPath = QStringLiteral(TESSERA_MITAB_LIBRARY);
    MITAB_load();
  }
  void SetUp() override { ASSERT_EQ(MITAB_LoadErr, 0); }

  [[nodiscard]] std::string PathOf(const std::string &name) const {
    return m_folder.filePath(QString::fromStdString(name)).toStdString();
  }
  void WriteFile(const std::string &name, const QByteArray &bytes) const {
    QFile file(QString::fromStdString(PathOf(name)));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }
  [[nodiscard]] QByteArray ReadFile(const std::string &name) const {
    QFile file(QString::fromStdString(PathOf(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
  }

  /// A new file, "a.tab" or "a.mif", whose bounds hold what the tests write.
  [[nodiscard]] mitab_handle Create(const std::string &format, const char *coordSys = "Earth Projection 1, 104") const {
    return mitab_c_create(PathOf("a." + format).c_str(), format.c_str(), coordSys, 1000, -1000, 1000, -1000);
  }
  [[nodiscard]] mitab_handle Open(const std::string &name) const { return mitab_c_open(PathOf(name).c_str()); }
  static TMitabFeature New(mitab_handle file, int kind) {
    return {mitab_c_create_feature(file, kind), mitab_c_destroy_feature};
  }

  static void SetPart(mitab_feature feature, int part, const TCoordinates &points) {
    std::vector<double> x;
    std::vector<double> y;
    for (const auto &[pointX, pointY] : points) {
      x.push_back(pointX);
      y.push_back(pointY);
    }
    mitab_c_set_points(feature, part, int(points.size()), x.data(), y.data());
  }
  static TCoordinates PartOf(mitab_feature feature, int part) {
    TCoordinates points;
    for (int i = 0; i < mitab_c_get_vertex_count(feature, part); ++i) {
      points.emplace_back(mitab_c_get_vertex_x(feature, part, i), mitab_c_get_vertex_y(feature, part, i));
    }
    return points;
  }
  /// All objects, read in order.
  static std::vector<TMitabFeature> ReadAll(mitab_handle file) {
    std::vector<TMitabFeature> features;
    for (int id = mitab_c_next_feature_id(file, -1); id != -1; id = mitab_c_next_feature_id(file, id)) {
      features.emplace_back(mitab_c_read_feature(file, id), mitab_c_destroy_feature);
    }
    return features;
  }

 private:
  QTemporaryDir m_folder;
};

}  // namespace tessera::test
