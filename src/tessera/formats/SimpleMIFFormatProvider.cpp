// SPDX-License-Identifier: MIT
#include <tessera/base/DebugTrace.h>
#include <tessera/base/Exceptions.h>
#include <tessera/base/MessageSink.h>
#include <tessera/base/detail/StagedSet.h>
#include <tessera/formats/SimpleMIFFormatProvider.h>
#include <tessera/formats/detail/MifReader.h>
#include <tessera/formats/detail/MifStyles.h>
#include <tessera/formats/detail/MifText.h>
#include <tessera/formats/detail/MifWriter.h>
#include <tessera/layers/TMapLayer.h>

#include <QFileInfo>
#include <QScopeGuard>

namespace tessera {
namespace {

/// The data file that belongs to a .mif file: the one with the extension .mid, or one that only differs in the case of
/// these letters when just that is there.
QString DataFileName(const QString &fileName) {
  const qsizetype dot = fileName.lastIndexOf(u'.');
  const QString bare = dot > fileName.lastIndexOf(u'/') ? fileName.first(dot) : fileName;
  QString usual = bare + QStringLiteral(".mid");
  if (QFileInfo::exists(usual)) return usual;
  constexpr unsigned LetterCount = 3;
  for (unsigned capitals = 1; capitals < 1U << LetterCount; ++capitals) {
    QString extension = QStringLiteral("MID");
    for (unsigned i = 0; i < LetterCount; ++i) {
      if ((capitals >> i & 1U) == 0) extension[i] = extension[i].toLower();
    }
    if (QString other = bare + u'.' + extension; QFileInfo::exists(other)) return other;
  }
  return usual;
}

/// Brackets the loading of a layer with what its map is told.
class TLoadBracket {
 public:
  explicit TLoadBracket(TMapHost &map) : m_map(map) {
    m_map.BeginUpdate();
    m_map.SetIsLoading(true);
  }
  ~TLoadBracket() {
    m_map.StopProgress();
    m_map.EndUpdate(true);
    m_map.SetIsLoading(false);
  }
  TLoadBracket(const TLoadBracket &) = delete;
  TLoadBracket &operator=(const TLoadBracket &) = delete;

 private:
  TMapHost &m_map;
};

void ReportError(TFormatReport &report, int line, const std::exception &error) {
  report.Fail(line, MessageOf(error));
  ShowMessage(FormatMessage(QStringLiteral("Error reading mif-file at line %d with message: %s!"),
                            {QString::number(line), MessageOf(error)}));
}

/// @throws EInOutError when a file cannot be opened.
void ReadPair(TMapLayer &layer, const QString &fileName, TFormatReport &report) {
  const QStringList files = detail::StagedSet::Recover({fileName, DataFileName(fileName)});
  detail::FileSource mif(files[0]);
  std::optional<detail::FileSource> mid;
  if (QFileInfo(files[1]).isFile()) {
    mid.emplace(files[1]);
  } else {
    DebugTrace(QStringLiteral("missing data file for vector file %S!"), {fileName});
  }
  const qint64 size = mif.GetSize();
  layer.GetMapHost()->StartProgress(0, detail::MifReader::ProgressPosition(size, size), QStringLiteral("Loading file"));
  detail::MifReader reader(layer, mif, mid ? &*mid : nullptr, report);
  try {
    reader.Read();
  } catch (const std::exception &error) {
    ReportError(report, reader.GetLine(), error);
  }
  if (!mid && layer.GetFields().GetCount() > 0) {
    report.Warn(QStringLiteral("there is no data file, so the objects have no values"));
  }
  reader.FinishReport();
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

TObjectAttribute TSimpleMIFFormatProvider::IsObjAttrString(const QString &line) const {
  return detail::ClassifyClause(line.toLatin1().toStdString());
}

bool TSimpleMIFFormatProvider::Load(TMapLayer *layer, const QString &fileName) {
  TFormatReport &report = NewReport();
  if (layer == nullptr || layer->GetMapHost() == nullptr || !QFileInfo(fileName).isFile()) {
    report.Fail(0, QStringLiteral("there is no such file, or the layer is on no map"));
    return false;
  }
  const TLoadBracket bracket(*layer->GetMapHost());
  try {
    ReadPair(*layer, fileName, report);
  } catch (const std::exception &error) {
    ReportError(report, 0, error);
  }
  return false;
}

bool TSimpleMIFFormatProvider::Save(TMapLayer *layer, const QString &fileName) {
  TFormatReport &report = NewReport();
  if (layer == nullptr) return false;
  if (!fileName.isEmpty()) layer->SetFileName(fileName);
  TMapHost *map = layer->GetMapHost();
  const auto stopProgress = qScopeGuard([map] {
    if (map != nullptr) map->StopProgress();
  });
  try {
    const QString dataFileName = DataFileName(fileName);
    if (dataFileName == fileName) {
      throw EInOutError(QStringLiteral("Cannot create file \"%1\". It would be its own data file.").arg(fileName));
    }
    detail::StagedSet files({fileName, dataFileName});
    if (map != nullptr) map->StartProgress(0, 0, QStringLiteral("Saving..."));
    detail::MifWriter(*layer, files.File(0), files.File(1), report).Write();
    files.Commit();
  } catch (const std::exception &error) {
    report.Fail(0, MessageOf(error));
    throw;
  }
  return false;
}

}  // namespace tessera
