// SPDX-License-Identifier: MIT
#include <apps/common/MifScan.h>
#include <apps/common/TMapInfoFiles.h>
#include <tessera/formats/detail/Companions.h>
#include <tessera/formats/detail/MitabLibrary.h>

#include <QFileInfo>

namespace tessera::apps {
namespace {

bool IsMif(const QString &fileName) {
  return QFileInfo(fileName).suffix().compare(QStringLiteral("mif"), Qt::CaseInsensitive) == 0;
}

bool IsPlain(const QString &fileName) {
  return HoldsOnlyPlainShapes(fileName, detail::CompanionOf(fileName, QStringLiteral("mid")));
}

}  // namespace

TMapInfoFiles::TMapInfoFiles(QObject *parent) : TMapInfoFormatProvider(parent) {
  // Files are not to be given to it directly.
  m_plain.SetEnabled(false);
  FormatProviders->Remove(&m_plain);
}

bool TMapInfoFiles::Load(TMapLayer *layer, const QString &fileName) {
  const bool isForPlain = IsMif(fileName) && ((m_takesFastWay && IsPlain(fileName)) || !detail::EnsureMitab());
  if (!isForPlain) return TMapInfoFormatProvider::Load(layer, fileName);
  m_plain.Load(layer, fileName);
  NewReport() = m_plain.GetReport();
  return GetReport().ok();
}

}  // namespace tessera::apps
