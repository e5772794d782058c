// SPDX-License-Identifier: MIT
#include <apps/common/MifScan.h>
#include <apps/common/TMapInfoFiles.h>

#include <QFileInfo>

namespace tessera::apps {
namespace {

bool IsMif(const QString &fileName) {
  return QFileInfo(fileName).suffix().compare(QStringLiteral("mif"), Qt::CaseInsensitive) == 0;
}

bool IsPlain(const QString &fileName) {
  return HoldsOnlyPlainShapes(fileName, TSimpleMIFFormatProvider::DataFileName(fileName));
}

/// Whether a file is for the provider that needs no library.
bool IsForPlain(const QString &fileName, bool takesFastWay) {
  return IsMif(fileName) && ((takesFastWay && IsPlain(fileName)) || !TMapInfoFormatProvider::HasLibrary());
}

}  // namespace

TMapInfoFiles::TMapInfoFiles(QObject *parent) : TMapInfoFormatProvider(parent) {
  // Files are not to be given to it directly.
  m_plain.SetEnabled(false);
  FormatProviders->Remove(&m_plain);
}

bool TMapInfoFiles::Load(TMapLayer *layer, const QString &fileName) {
  if (!IsForPlain(fileName, m_takesFastWay)) return TMapInfoFormatProvider::Load(layer, fileName);
  m_plain.Load(layer, fileName);
  NewReport() = m_plain.GetReport();
  return GetReport().ok();
}

TFormatRun TMapInfoFiles::MakeRun(const QString &fileName) const {
  // The file is looked at in the run, for that may take a while.
  return [fileName, takesFastWay = m_takesFastWay, plain = m_plain.MakeRun(fileName),
          full = TMapInfoFormatProvider::MakeRun(fileName)](TMapLayer &layer) {
    return IsForPlain(fileName, takesFastWay) ? plain(layer) : full(layer);
  };
}

}  // namespace tessera::apps
