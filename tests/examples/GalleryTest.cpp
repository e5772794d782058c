// SPDX-License-Identifier: MIT
#include <tessera/formats/SimpleMIFFormatProvider.h>
#include <tessera/map/TTessera.h>

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace tessera {
namespace {

/// Works in a folder of its own.
class GalleryTest : public testing::Test {
 protected:
  /// Runs the program and answers its exit status; -1 when it did not end by itself.
  int Run(const QStringList &arguments) {
    constexpr int PatienceMs = 60000;
    QProcess process;
    process.start(QStringLiteral(TESSERA_GALLERY), arguments);
    const bool isDone = process.waitForFinished(PatienceMs) && process.exitStatus() == QProcess::NormalExit;
    complaint = QString::fromUtf8(process.readAllStandardError()).toStdString();
    return isDone ? process.exitCode() : -1;
  }
  /// The picture of the sheet in the given size.
  QImage Draw(const QString &size) {
    const QString file = PathOf(QStringLiteral("sheet.png"));
    EXPECT_EQ(Run({QStringLiteral("--out"), file, QStringLiteral("--size"), size}), 0) << complaint;
    return QImage(file).convertToFormat(QImage::Format_RGB32);
  }
  /// Writes the sheet's map files to the test's folder.
  void Save() { ASSERT_EQ(Run({QStringLiteral("--save"), m_folder.path()}), 0) << complaint; }
  [[nodiscard]] QString PathOf(const QString &name) const { return m_folder.filePath(name); }

  std::string complaint;

 private:
  QTemporaryDir m_folder;
};

QByteArray BytesOf(const QString &fileName) {
  QFile file(fileName);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
}

TEST_F(GalleryTest, DrawsEveryPanel) {
  struct TPanel {
    const char *name;
    QRect boxPx;  ///< Below the heading.
    QRgb color;   ///< What something in it is drawn with.
  };
  const TPanel panels[] = {
      {"lines", {30, 140, 425, 240}, qRgb(178, 58, 46)},     {"symbols", {480, 140, 425, 240}, qRgb(34, 43, 56)},
      {"areas", {30, 430, 425, 230}, qRgb(205, 222, 236)},   {"texts", {480, 430, 425, 230}, qRgb(246, 228, 190)},
      {"circles", {30, 710, 150, 140}, qRgb(205, 222, 236)}, {"rectangles", {190, 710, 135, 140}, qRgb(212, 228, 205)},
      {"sprites", {345, 710, 110, 140}, qRgb(72, 122, 80)},  {"labelled", {480, 710, 200, 140}, qRgb(242, 211, 203)},
      {"route", {705, 710, 200, 140}, qRgb(178, 58, 46)},    {"ground", {930, 140, 240, 700}, qRgb(246, 228, 190)},
  };
  const QImage picture = Draw(QStringLiteral("1200x900"));
  ASSERT_EQ(picture.size(), QSize(1200, 900));
  EXPECT_EQ(picture.pixel(2, 2), qRgb(252, 250, 245)) << "the paper";
  for (const TPanel &panel : panels) {
    int count = 0;
    for (int y = panel.boxPx.top(); y <= panel.boxPx.bottom(); ++y) {
      for (int x = panel.boxPx.left(); x <= panel.boxPx.right(); ++x) count += picture.pixel(x, y) == panel.color;
    }
    EXPECT_GT(count, 100) << panel.name;
  }
}

TEST_F(GalleryTest, SavesWhatReadsBack) {
  Save();
  TSimpleMIFFormatProvider mif;
  TTessera map;
  std::map<QString, qint64> objects;
  for (const QString &name : QDir(PathOf(QString())).entryList({QStringLiteral("*.mif")})) {
    map.GetLayers()->Add(PathOf(name), name);
    EXPECT_TRUE(mif.GetReport().ok()) << mif.GetReport().Summary().toStdString();
    for (const auto &[kind, count] : mif.GetReport().objects) objects[kind] += count;
  }
  EXPECT_EQ(map.GetLayers()->GetCount(), 10);
  const std::map<QString, qint64> expected{
      {QStringLiteral("Pline"), 35}, {QStringLiteral("Region"), 35}, {QStringLiteral("Point"), 44}};
  EXPECT_EQ(objects, expected);
}

TEST_F(GalleryTest, WritesTheSampleOfTheProject) {
  Save();
  const QDir sample(QStringLiteral(TESSERA_GALLERY_SAMPLE));
  const QStringList names = sample.entryList({QStringLiteral("*.mif"), QStringLiteral("*.mid")});
  ASSERT_FALSE(names.isEmpty());
  for (const QString &name : names) {
    // The places of texts depend on the fonts of the machine.
    if (name == QStringLiteral("captions.mif") || name == QStringLiteral("texts.mif")) continue;
    EXPECT_EQ(BytesOf(PathOf(name)), BytesOf(sample.filePath(name))) << name.toStdString();
  }
}

TEST_F(GalleryTest, RefusesWhatItCannotFollow) {
  const QString picture = PathOf(QStringLiteral("sheet.png"));
  EXPECT_EQ(Run({QStringLiteral("--out"), picture, QStringLiteral("--size"), QStringLiteral("600")}), 2);
  EXPECT_NE(complaint.find("--size takes WxH"), std::string::npos) << complaint;
  EXPECT_EQ(Run({QStringLiteral("--out"), PathOf(QStringLiteral("sheet.nosuchkind"))}), 1);
  EXPECT_NE(complaint.find("sheet.nosuchkind"), std::string::npos) << complaint;
  EXPECT_EQ(Run({QStringLiteral("--save"), QStringLiteral("/dev/null/folder")}), 1);
  EXPECT_NE(complaint.find("/dev/null/folder"), std::string::npos) << complaint;
}

}  // namespace
}  // namespace tessera
