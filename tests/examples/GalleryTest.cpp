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
  // The box below the heading, and a colour that something in it is drawn with.
  const std::pair<QRect, QRgb> panels[] = {
      {{30, 140, 425, 240}, qRgb(178, 58, 46)},   {{480, 140, 425, 240}, qRgb(34, 43, 56)},
      {{30, 430, 425, 230}, qRgb(205, 222, 236)}, {{480, 430, 425, 230}, qRgb(246, 228, 190)},
      {{30, 710, 150, 140}, qRgb(205, 222, 236)}, {{190, 710, 135, 140}, qRgb(212, 228, 205)},
      {{345, 710, 110, 140}, qRgb(72, 122, 80)},  {{480, 710, 200, 140}, qRgb(242, 211, 203)},
      {{705, 710, 200, 140}, qRgb(178, 58, 46)},  {{930, 140, 240, 700}, qRgb(246, 228, 190)}};
  const QString file = PathOf(QStringLiteral("sheet.png"));
  ASSERT_EQ(Run({QStringLiteral("--out"), file, QStringLiteral("--size"), QStringLiteral("1200x900")}), 0) << complaint;
  const QImage picture = QImage(file).convertToFormat(QImage::Format_RGB32);
  ASSERT_EQ(picture.size(), QSize(1200, 900));
  for (const auto &[boxPx, color] : panels) {
    int count = 0;
    for (int i = 0; i < 1200 * 900; ++i) {
      const QPoint at(i % 1200, i / 1200);
      count += boxPx.contains(at) && picture.pixel(at) == color;
    }
    EXPECT_GT(count, 100) << boxPx.x() << ',' << boxPx.y();
  }
}

TEST_F(GalleryTest, WritesTheSampleOfTheProjectWhichReadsBack) {
  ASSERT_EQ(Run({QStringLiteral("--save"), PathOf(QString())}), 0) << complaint;
  const QDir sample(QStringLiteral(TESSERA_GALLERY_SAMPLE));
  TSimpleMIFFormatProvider mif;
  TTessera map;
  for (const QString &name : sample.entryList({QStringLiteral("*.mif"), QStringLiteral("*.mid")})) {
    if (name.endsWith(u".mif")) {
      map.GetLayers()->Add(PathOf(name), name);
      EXPECT_TRUE(mif.GetReport().ok()) << mif.GetReport().Summary().toStdString();
    }
    // The places of texts depend on the fonts of the machine.
    if (name == u"captions.mif" || name == u"texts.mif") continue;
    EXPECT_EQ(BytesOf(PathOf(name)), BytesOf(sample.filePath(name))) << name.toStdString();
  }
  EXPECT_EQ(map.GetLayers()->GetCount(), 10);
}

TEST_F(GalleryTest, RefusesWhatItCannotFollow) {
  EXPECT_EQ(Run({QStringLiteral("--size"), QStringLiteral("600")}), 2);
  EXPECT_NE(complaint.find("--size takes WxH"), std::string::npos) << complaint;
  EXPECT_EQ(Run({QStringLiteral("--save"), QStringLiteral("/dev/null/folder")}), 1);
}

}  // namespace
}  // namespace tessera
