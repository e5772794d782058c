// SPDX-License-Identifier: MIT
#include <apps/common/MifScan.h>
#include <apps/common/TMapInfoFiles.h>
#include <tessera/formats/detail/Companions.h>
#include <tessera/formats/detail/MitabLibrary.h>

#include <QFileInfo>

namespace tessera::apps {
namespace {

bool IsPlain(const QString &fileName) {
  const bool isMif = QFileInfo(fileName).suffix().compare(QStringLiteral("mif"), Qt::CaseInsensitive) == 0;
  if (!isMif) return false;
  return HoldsOnlyPlainShapes(fileName, detail::CompanionOf(fileName, QStringLiteral("mid"))) || !detail::EnsureMitab();
}

}  // namespace

TMapInfoFiles::TMapInfoFiles(QObject *parent) : TMapInfoFormatProvider(parent) {
  // Files are not to be given to it directly.
  m_plain.SetEnabled(false);
  FormatProviders->Remove(&m_plain);
}

bool TMapInfoFiles::Load(TMapLayer *layer, const QString &fileName) {
  if (!IsPlain(fileName)) return TMapInfoFormatProvider::Load(layer, fileName);
  m_plain.Load(layer, fileName);
  NewReport() = m_plain.GetReport();
  return GetReport().ok();
}

}  // namespace tessera::apps
