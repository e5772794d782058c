// SPDX-License-Identifier: MIT
#include <tessera/base/DebugTrace.h>
#include <tessera/base/Exceptions.h>
#include <tessera/base/GuardedCall.h>
#include <tessera/base/MessageSink.h>
#include <tessera/base/detail/StagedSet.h>
#include <tessera/formats/SimpleMIFFormatProvider.h>
#include <tessera/formats/detail/Companions.h>
#include <tessera/formats/detail/MifReader.h>
#include <tessera/formats/detail/MifStyles.h>
#include <tessera/formats/detail/MifText.h>
#include <tessera/formats/detail/MifWriter.h>
#include <tessera/layers/TMapLayer.h>
#include <tessera/objects/TMapScopes.h>

#include <QFileInfo>
#include <QScopeGuard>

namespace tessera {
namespace {

/// Tells the map, if there is one, of the end of progress, when it is left.
auto StopProgressAtEnd(TMapHost *map) {
  return qScopeGuard([map] {
    if (map != nullptr) GuardedCall([map] { map->StopProgress(); });
  });
}

void ReportError(TFormatReport &report, int line, const std::exception &error) {
  report.Fail(line, MessageOf(error));
  ShowMessage(FormatMessage(QStringLiteral("Error reading mif-file at line %d with message: %s!"),
                            {QString::number(line), MessageOf(error)}));
}

/// @throws EInOutError when a file cannot be opened.
void ReadPair(TMapLayer &layer, const QString &fileName, TFormatReport &report) {
  const QStringList files = detail::StagedSet::Recover({fileName, TSimpleMIFFormatProvider::DataFileName(fileName)});
  detail::FileSource mif(files[0]);
  std::optional<detail::FileSource> mid;
  if (QFileInfo(files[1]).isFile()) {
    mid.emplace(files[1]);
  } else {
    DebugTrace(QStringLiteral("missing data file for vector file %S!"), {fileName});
  }
  const qint64 size = mif.GetSize();
  TMapHost &map = *layer.GetMapHost();
  // From the first event on there may be no layer any more; the reader knows.
  detail::MifReader reader(layer, mif, mid ? &*mid : nullptr, report);
  map.StartProgress(0, detail::MifReader::ProgressPosition(size, size), QStringLiteral("Loading file"));
  try {
    reader.Read();
  } catch (const std::exception &error) {
    ReportError(report, reader.GetLine(), error);
  }
  reader.FinishReport();
}

void LoadPair(TMapLayer *layer, const QString &fileName, TFormatReport &report) {
  if (layer == nullptr || layer->GetMapHost() == nullptr || !QFileInfo(fileName).isFile()) {
    report.Fail(0, TFormatReport::tr("there is no such file, or the layer is on no map"));
    return;
  }
  const TLoadingScope loading(*layer->GetMapHost());
  const auto stopProgress = StopProgressAtEnd(layer->GetMapHost());
  try {
    ReadPair(*layer, fileName, report);
  } catch (const std::exception &error) {
    ReportError(report, 0, error);
  }
}

}  // namespace

QString TSimpleMIFFormatProvider::GetDescription() const {
  return QStringLiteral("MapInfo Interchange Format (MIF) Provider (simple edition)");
}

QString TSimpleMIFFormatProvider::GetFilter() const {
  return QStringLiteral("MapInfo Interchange Format Files (*.mif)|*.mif");
}

QUuid TSimpleMIFFormatProvider::GetGUID() const {
  return QUuid(QStringLiteral("{830DF284-6671-4CD9-BE3C-CAF9B6DB2E2C}"));
}

bool TSimpleMIFFormatProvider::CanProcessFile(const QString &fileName) const {
  return QFileInfo(fileName).suffix().compare(QStringLiteral("mif"), Qt::CaseInsensitive) == 0;
}

QString TSimpleMIFFormatProvider::DataFileName(const QString &fileName) {
  return detail::CompanionOf(fileName, QStringLiteral("mid"));
}

TObjectAttribute TSimpleMIFFormatProvider::IsObjAttrString(const QString &line) const {
  return detail::ClassifyClause(line.toLatin1().toStdString());
}

bool TSimpleMIFFormatProvider::Load(TMapLayer *layer, const QString &fileName) {
  LoadPair(layer, fileName, NewReport());
  return false;
}

TFormatRun TSimpleMIFFormatProvider::MakeRun(const QString &fileName) const {
  return [fileName](TMapLayer &layer) {
    TFormatReport report;
    LoadPair(&layer, fileName, report);
    return report;
  };
}

bool TSimpleMIFFormatProvider::Save(TMapLayer *layer, const QString &fileName) {
  TFormatReport &report = NewReport();
  if (layer == nullptr) return false;
  if (!fileName.isEmpty()) layer->SetFileName(fileName);
  TMapHost *map = layer->GetMapHost();
  const auto stopProgress = StopProgressAtEnd(map);
  try {
    const QString dataFileName = DataFileName(fileName);
    if (dataFileName == fileName) {
      throw EInOutError(QStringLiteral("Cannot create file \"%1\". It would be its own data file.").arg(fileName));
    }
    detail::StagedSet files({fileName, dataFileName});
    const THandle<TMapLayer> watched(layer);
    if (map != nullptr) map->StartProgress(0, 0, QStringLiteral("Saving..."));
    if (!watched) throw EInOutError(TFormatReport::tr("the layer was deleted before it was saved"));
    detail::MifWriter(*layer, files.File(0), files.File(1), report).Write();
    files.Commit();
  } catch (const std::exception &error) {
    report.Fail(0, MessageOf(error));
    throw;
  }
  return false;
}

TFormatReport TSimpleMIFFormatProvider::TrySave(const TMapLayer &layer) const {
  TFormatReport report;
  detail::NoOutput mif;
  detail::NoOutput mid;
  try {
    detail::MifWriter(layer, mif, mid, report).Write();
  } catch (const std::exception &error) {
    report.Fail(0, MessageOf(error));
  }
  return report;
}

}  // namespace tessera
