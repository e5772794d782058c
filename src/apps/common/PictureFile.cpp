// SPDX-License-Identifier: MIT
#include <apps/common/PictureFile.h>
#include <apps/common/VectorPicture.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QImageWriter>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QSvgGenerator>

#include <algorithm>
#include <utility>

namespace tessera::apps {
namespace {

QByteArray KindOf(const QString &fileName) {
  return QFileInfo(fileName).suffix().toLower().toLatin1();
}

QString About(const QString &fileName, const QString &words) {
  return fileName + u": " +
         QCoreApplication::translate("tessera::apps::PictureFile", "the picture cannot be written: %1").arg(words);
}

constexpr int PixelsPerInch = 96;

void WriteSvg(TTessera &map, QIODevice &device) {
  QSvgGenerator drawing;
  drawing.setOutputDevice(&device);
  drawing.setSize(map.size());
  drawing.setViewBox(map.rect());
  drawing.setResolution(PixelsPerInch);
  QPainter painter(&drawing);
  DrawAsVectors(map, painter);
}

void WritePdf(TTessera &map, QIODevice &device) {
  QPdfWriter page(&device);
  page.setResolution(PixelsPerInch);
  page.setPageSize(QPageSize(QSizeF(map.size()) / PixelsPerInch, QPageSize::Inch));
  page.setPageMargins({});
  QPainter painter(&page);
  DrawAsVectors(map, painter);
}

/// The kinds of drawings; others are those of images.
constexpr std::pair<const char *, void (*)(TTessera &, QIODevice &)> Drawings[] = {{"svg", WriteSvg},
                                                                                   {"pdf", WritePdf}};

}  // namespace

bool IsPictureName(const QString &fileName) {
  const auto isKind = [&fileName](const auto &drawing) { return KindOf(fileName) == drawing.first; };
  return std::any_of(std::begin(Drawings), std::end(Drawings), isKind) ||
         QImageWriter::supportedImageFormats().contains(KindOf(fileName));
}

QString SavePicture(const QImage &picture, const QString &fileName) {
  QSaveFile file(fileName);
  if (!file.open(QIODevice::WriteOnly)) return About(fileName, file.errorString());
  QImageWriter writer(&file, KindOf(fileName));
  if (!writer.write(picture)) return About(fileName, writer.errorString());
  return file.commit() ? QString() : About(fileName, file.errorString());
}

QString SaveMapPicture(TTessera &map, const QString &fileName) {
  for (const auto &[kind, write] : Drawings) {
    if (KindOf(fileName) != kind) continue;
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly)) return About(fileName, file.errorString());
    write(map, file);
    return file.commit() ? QString() : About(fileName, file.errorString());
  }
  return SavePicture(DecoratedPicture(map), fileName);
}

QImage DecoratedPicture(TTessera &map) {
  TBitmap picture;
  map.AssignToBitmap(picture);
  QImage image = picture.GetImage();
  QPainter painter(&image);
  map.GetPainting()->Decorate(painter, map.rect());
  return image;
}

QString PictureNameFilter() {
  QStringList masks{QStringLiteral("*.png")};
  for (const auto &drawing : Drawings) masks.append(QStringLiteral("*.") + QString::fromLatin1(drawing.first));
  for (const QByteArray &kind : QImageWriter::supportedImageFormats()) {
    masks.append(QStringLiteral("*.") + QString::fromLatin1(kind));
  }
  masks.removeDuplicates();
  return QCoreApplication::translate("tessera::apps::PictureFile", "Pictures") + u" (" + masks.join(u' ') + u')';
}

}  // namespace tessera::apps
