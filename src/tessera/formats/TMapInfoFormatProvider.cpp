// SPDX-License-Identifier: MIT
#include <tessera/base/DebugTrace.h>
#include <tessera/base/Exceptions.h>
#include <tessera/base/GuardedCall.h>
#include <tessera/base/detail/StagedSet.h>
#include <tessera/formats/TMapInfoFormatProvider.h>
#include <tessera/formats/detail/Companions.h>
#include <tessera/formats/detail/MapInfoSource.h>
#include <tessera/formats/detail/MitabReader.h>
#include <tessera/formats/detail/MitabWriter.h>
#include <tessera/layers/TMapLayer.h>
#include <tessera/objects/TMapScopes.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QTemporaryDir>

namespace tessera {
namespace {

#ifdef Q_OS_WIN
constexpr QStringView SystemFolder = u"C:\\Windows\\System32";
#else
constexpr QStringView SystemFolder = u"/usr/lib";
#endif

void NeedMitab() {
  if (TMapInfoFormatProvider::HasLibrary()) return;
  throw EInOutError(FormatMessage(QStringLiteral("MITAB.DLL not fond! Please place DLL to %S or %S directory!"),
                                  {SystemFolder.toString(), QCoreApplication::applicationDirPath()}));
}

bool HasEnding(const QString &fileName, const QString &ending) {
  return QFileInfo(fileName).suffix().compare(ending, Qt::CaseInsensitive) == 0;
}

/// The endings of the files that make up a table, its own first.
QStringList EndingsOf(const QString &fileName) {
  if (HasEnding(fileName, QStringLiteral("mif"))) return {QStringLiteral("mif"), QStringLiteral("mid")};
  return {QStringLiteral("tab"), QStringLiteral("dat"), QStringLiteral("map"), QStringLiteral("id")};
}

/// The file itself and its companions.
QStringList FilesOf(const QString &fileName) {
  QStringList files{fileName};
  for (const QString &ending : EndingsOf(fileName).mid(1)) files.append(detail::CompanionOf(fileName, ending));
  return files;
}

/// Tells the map, if there is one, of the end of progress, when it is left.
auto StopProgressAtEnd(TMapHost *map) {
  return qScopeGuard([map] {
    if (map != nullptr) GuardedCall([map] { map->StopProgress(); });
  });
}

void CopyInto(detail::StagedFile &target, const QString &sourceName) {
  QFile source(sourceName);
  if (!source.open(QIODevice::ReadOnly)) throw EInOutError(QStringLiteral("Cannot read file \"%1\".").arg(sourceName));
  constexpr qint64 BlockSize = 65536;
  for (QByteArray block = source.read(BlockSize); !block.isEmpty(); block = source.read(BlockSize)) {
    target.Append({block.constData(), std::size_t(block.size())});
  }
}

/// A folder for what the library writes, and in it the files of one table.
class Workshop {
 public:
  explicit Workshop(const QString &fileName) : m_endings(EndingsOf(fileName)) {
    if (!m_folder.isValid()) throw EInOutError(QStringLiteral("Cannot create a temporary folder."));
  }
  [[nodiscard]] QString FileName(qsizetype index = 0) const {
    return m_folder.filePath(QStringLiteral("table.") + m_endings[index]);
  }

 private:
  QStringList m_endings;
  QTemporaryDir m_folder;
};

void LoadTable(TMapLayer *layer, const QString &fileName, TFormatReport &report) {
  const detail::MitabTurn turn;
  NeedMitab();
  if (layer == nullptr || layer->GetMapHost() == nullptr || !QFileInfo(fileName).isFile()) {
    report.Fail(0, TFormatReport::tr("there is no such file, or the layer is on no map"));
    return;
  }
  static_cast<void>(detail::StagedSet::Recover(FilesOf(fileName)));
  const TLoadingScope loading(*layer->GetMapHost());
  const auto stopProgress = StopProgressAtEnd(layer->GetMapHost());
  try {
    const detail::MitabFile file = detail::OpenMitabFile(fileName);
    if (!file) {
      report.Fail(
          0, TFormatReport::tr("this is no table that can be read. ") + QString::fromUtf8(mitab_c_getlasterrormsg()));
      return;
    }
    detail::MitabText text(detail::CharsetOf(fileName), detail::MitabRecodes());
    detail::MitabReader reader(*layer, file.get(), text, report);
    reader.Read();
    reader.Deliver();
    const bool lacksValues =
        HasEnding(fileName, QStringLiteral("mif")) && !QFile::exists(FilesOf(fileName).constLast());
    if (lacksValues) report.Warn(TFormatReport::tr("there is no data file, so the objects have no values"));
  } catch (const std::exception &error) {
    report.Fail(0, MessageOf(error));
    throw;
  }
}

}  // namespace

QString TMapInfoFormatProvider::GetDescription() const {
  return QStringLiteral("MapInfo Format Provider (mif, tab)");
}

QString TMapInfoFormatProvider::GetFilter() const {
  return QStringLiteral("MapInfo Files (*.mif; *.tab)|*.mif; *.tab");
}

QUuid TMapInfoFormatProvider::GetGUID() const {
  return QUuid(QStringLiteral("{4AC2894A-85A3-4613-80D2-27DDCDFEA816}"));
}

bool TMapInfoFormatProvider::HasLibrary() {
  return detail::EnsureMitab();
}

bool TMapInfoFormatProvider::IsCharset(const QString &charset) {
  return detail::MitabText(charset.toLatin1(), true).IsKnown();
}

bool TMapInfoFormatProvider::CanProcessFile(const QString &fileName) const {
  return HasEnding(fileName, QStringLiteral("mif")) || HasEnding(fileName, QStringLiteral("tab"));
}

bool TMapInfoFormatProvider::Load(TMapLayer *layer, const QString &fileName) {
  LoadTable(layer, fileName, NewReport());
  return GetReport().ok();
}

TFormatRun TMapInfoFormatProvider::MakeRun(const QString &fileName) const {
  return [fileName](TMapLayer &layer) {
    TFormatReport report;
    LoadTable(&layer, fileName, report);
    return report;
  };
}

bool TMapInfoFormatProvider::Save(TMapLayer *layer, const QString &fileName) {
  TFormatReport &report = NewReport();
  const detail::MitabTurn turn;
  NeedMitab();
  if (layer == nullptr) return false;
  TMapHost *map = layer->GetMapHost();
  const auto stopProgress = StopProgressAtEnd(map);
  try {
    const QStringList names = FilesOf(fileName);
    detail::StagedSet files(names);
    const Workshop workshop(fileName);
    const detail::MitabTarget target = detail::TargetFor(*layer, {fileName, workshop.FileName(), m_charset}, report);
    const THandle<TMapLayer> watched(layer);
    const auto checkLayer = [&watched] {
      if (!watched) throw EInOutError(TFormatReport::tr("the layer was deleted while it was being saved"));
    };
    if (map != nullptr) map->StartProgress(0, layer->GetObjectCount(), QStringLiteral("Saving..."));
    checkLayer();
    detail::MitabWriter(*layer, target, report).Write([&](int done) {
      if (map != nullptr) map->ShowProgress(done);
      checkLayer();
    });
    for (qsizetype i = 0; i < names.size(); ++i) CopyInto(files.File(std::size_t(i)), workshop.FileName(i));
    files.Commit();
    layer->SetFileName(fileName);
  } catch (const std::exception &error) {
    report.Fail(0, MessageOf(error));
    throw;
  }
  return true;
}

TFormatReport TMapInfoFormatProvider::TrySave(const TMapLayer &layer) const {
  TFormatReport report;
  const detail::MitabTurn turn;
  try {
    NeedMitab();
    const Workshop workshop(layer.GetFileName());
    const detail::MitabTarget target =
        detail::TargetFor(layer, {layer.GetFileName(), workshop.FileName(), m_charset}, report);
    detail::MitabWriter(layer, target, report).Write([](int /*done*/) {});
  } catch (const std::exception &error) {
    report.Fail(0, MessageOf(error));
  }
  return report;
}

}  // namespace tessera
