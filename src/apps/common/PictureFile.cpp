// SPDX-License-Identifier: MIT
#include <apps/common/PictureFile.h>

#include <QFileInfo>
#include <QImageWriter>
#include <QSaveFile>

namespace tessera::apps {
namespace {

QByteArray KindOf(const QString &fileName) {
  return QFileInfo(fileName).suffix().toLower().toLatin1();
}

QString About(const QString &fileName, const QString &words) {
  return fileName + QStringLiteral(": the picture cannot be written: ") + words;
}

}  // namespace

bool IsPictureName(const QString &fileName) {
  return QImageWriter::supportedImageFormats().contains(KindOf(fileName));
}

QString SavePicture(const QImage &picture, const QString &fileName) {
  QSaveFile file(fileName);
  if (!file.open(QIODevice::WriteOnly)) return About(fileName, file.errorString());
  QImageWriter writer(&file, KindOf(fileName));
  if (!writer.write(picture)) return About(fileName, writer.errorString());
  return file.commit() ? QString() : About(fileName, file.errorString());
}

QString PictureNameFilter() {
  QStringList masks{QStringLiteral("*.png")};
  for (const QByteArray &kind : QImageWriter::supportedImageFormats()) {
    masks.append(QStringLiteral("*.") + QString::fromLatin1(kind));
  }
  masks.removeDuplicates();
  return QStringLiteral("Pictures (") + masks.join(u' ') + u')';
}

}  // namespace tessera::apps
