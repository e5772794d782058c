// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/layers/detail/LoadReports.h>
#include <tessera/providers/CustomFormatProvider.h>

#include <QFileInfo>

namespace tessera::detail {
namespace {

/// Why a file cannot even be handed to a provider; empty when it can.
QString ObstacleTo(const QString &path, const TCustomFormatProvider *provider) {
  const QFileInfo file(path);
  if (!file.exists()) return TFormatReport::tr("there is no such file");
  if (!file.isFile()) return TFormatReport::tr("this is not a file");
  if (provider == nullptr) return UnknownFormat();
  if (!file.isReadable()) return TFormatReport::tr("no permission to read it");
  return {};
}

}  // namespace

QString About(const QString &fileName, const QString &words) {
  return fileName + QStringLiteral(": ") + words.simplified();
}

QString Words(const TFormatDefect &defect) {
  return defect.line > 0 ? TFormatReport::tr("error in line %1: %2").arg(defect.line).arg(defect.words) : defect.words;
}

QString UnknownFormat() {
  return TFormatReport::tr("no format is known for files of this name");
}

QStringList WarningsOf(const QString &fileName, const TFormatReport &report, const QStringList &messages) {
  QStringList warnings;
  for (const QString &words : report.warnings) warnings.append(About(fileName, words));
  if (report.droppedWarnings > 0) {
    warnings.append(About(fileName, TFormatReport::tr("%1 more warnings").arg(report.droppedWarnings)));
  }
  for (const QString &message : messages) {
    // The report says the same with the line's number.
    const bool isKnown = report.firstError && message.contains(report.firstError->words);
    if (!isKnown) warnings.append(About(fileName, message));
  }
  return warnings;
}

TFormatReport GuardedReport(const std::function<TFormatReport()> &work) {
  TFormatReport thrown;
  try {
    return work();
  } catch (const std::exception &error) {
    thrown.Fail(0, MessageOf(error));
  } catch (...) {
    thrown.Fail(0, TFormatReport::tr("an error of an unknown kind"));
  }
  return thrown;
}

TCustomFormatProvider *FindProviderFor(const QString &path, TLoadedFile &loaded) {
  TCustomFormatProvider *provider = FormatProviders == nullptr ? nullptr : FormatProviders->FindSuitableProvider(path);
  if (provider) loaded.provider = provider->GetDescription();
  const QString obstacle = ObstacleTo(path, provider);
  if (obstacle.isEmpty()) return provider;
  loaded.error = About(loaded.fileName, obstacle);
  return nullptr;
}

bool Judge(TLoadedFile &loaded, TMapLayer *layer, const QStringList &messages) {
  const auto &defect = loaded.report.firstError;
  if (layer == nullptr || (defect && layer->GetObjectCount() == 0)) {
    loaded.error =
        About(loaded.fileName, defect ? Words(*defect) : TFormatReport::tr("its layer was deleted meanwhile"));
    return false;
  }
  if (defect) loaded.warnings.append(About(loaded.fileName, Words(*defect)));
  loaded.warnings += WarningsOf(loaded.fileName, loaded.report, messages);
  // A provider that answers false leaves the layer without the name of its file, and one that throws without its
  // source.
  const QString path = QFileInfo(loaded.fileName).absoluteFilePath();
  layer->SetFileName(path);
  layer->SetSource({path, loaded.report.AllLosses()});
  return true;
}

}  // namespace tessera::detail
