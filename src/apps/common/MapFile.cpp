// SPDX-License-Identifier: MIT
#include <apps/common/MapFile.h>
#include <tessera/base/Exceptions.h>
#include <tessera/base/MessageSink.h>
#include <tessera/providers/CustomFormatProvider.h>

#include <QFileInfo>

namespace tessera::apps {
namespace {

/// Keeps the messages that come up while it lives, each text once, instead of letting them be shown.
class TMessageCollector {
 public:
  TMessageCollector()
      : m_before(SetMessageSink([this](const QString &text) {
          if (!m_messages.contains(text)) m_messages.append(text);
        })) {}
  ~TMessageCollector() { SetMessageSink(m_before); }
  TMessageCollector(const TMessageCollector &) = delete;
  TMessageCollector &operator=(const TMessageCollector &) = delete;

  [[nodiscard]] const QStringList &GetMessages() const { return m_messages; }

 private:
  QStringList m_messages;
  TMessageSink m_before;
};

QString About(const QString &fileName, const QString &words) {
  return fileName + QStringLiteral(": ") + words.simplified();
}

QString Words(const TFormatDefect &defect) {
  return defect.line > 0 ? QStringLiteral("error in line %1: %2").arg(defect.line).arg(defect.words) : defect.words;
}

/// Why a file cannot even be handed to a provider; empty when it can.
QString ObstacleTo(const QString &fileName, const TCustomFormatProvider *provider) {
  const QFileInfo file(fileName);
  if (!file.exists()) return QStringLiteral("there is no such file");
  if (!file.isFile()) return QStringLiteral("this is not a file");
  if (provider == nullptr) return QStringLiteral("no format is known for files of this name");
  if (!file.isReadable()) return QStringLiteral("no permission to read it");
  return {};
}

TCustomFormatProvider *ProviderFor(const QString &fileName) {
  return FormatProviders == nullptr ? nullptr : FormatProviders->FindSuitableProvider(fileName);
}

/// Adds a layer and fills it. An exception on the way becomes the report's error.
TMapLayer *AddLayer(TTessera &map, const QString &path, const TCustomFormatProvider &provider, TFormatReport &report) {
  TMapLayers &layers = *map.GetLayers();
  const int index = layers.GetCount();
  try {
    layers.Add(path, QFileInfo(path).completeBaseName());
    report = provider.GetReport();
  } catch (const std::exception &error) {
    report.Fail(0, MessageOf(error));
  }
  return layers.GetCount() > index ? layers.Last() : nullptr;
}

/// Everything but the error that the report and the messages tell of.
void AddWarnings(TLoadedFile &loaded, const QStringList &messages) {
  const TFormatReport &report = loaded.report;
  for (const QString &words : report.warnings) loaded.warnings.append(About(loaded.fileName, words));
  if (report.droppedWarnings > 0) {
    loaded.warnings.append(About(loaded.fileName, QStringLiteral("%1 more warnings").arg(report.droppedWarnings)));
  }
  for (const QString &message : messages) {
    // The report says the same with the line's number.
    const bool isKnown = report.firstError && message.contains(report.firstError->words);
    if (!isKnown) loaded.warnings.append(About(loaded.fileName, message));
  }
}

}  // namespace

TLoadedFile LoadMapFile(TTessera &map, const QString &fileName) {
  TLoadedFile loaded;
  loaded.fileName = fileName;
  const QString path = QFileInfo(fileName).absoluteFilePath();
  const TCustomFormatProvider *provider = ProviderFor(path);
  if (provider != nullptr) loaded.provider = provider->GetDescription();
  if (const QString obstacle = ObstacleTo(path, provider); !obstacle.isEmpty()) {
    loaded.error = About(fileName, obstacle);
    return loaded;
  }
  const TMessageCollector collector;
  TMapLayer *layer = AddLayer(map, path, *provider, loaded.report);
  const auto &defect = loaded.report.firstError;
  if (defect && (layer == nullptr || layer->GetObjectCount() == 0)) {
    if (layer != nullptr) map.GetLayers()->Delete(map.GetLayers()->GetCount() - 1);
    loaded.error = About(fileName, Words(*defect));
    return loaded;
  }
  if (defect) loaded.warnings.append(About(fileName, Words(*defect)));
  AddWarnings(loaded, collector.GetMessages());
  // A provider that answers false leaves the layer without the name of its file.
  layer->SetFileName(path);
  loaded.layer = layer;
  return loaded;
}

QString SaveMapFile(TMapLayer &layer, const QString &fileName) {
  const TCustomFormatProvider *provider = ProviderFor(fileName);
  if (provider == nullptr) return About(fileName, QStringLiteral("no format is known for files of this name"));
  const TMessageCollector collector;
  try {
    layer.SaveToFile(fileName);
  } catch (const std::exception &error) {
    return About(fileName, MessageOf(error));
  }
  if (const auto &defect = provider->GetReport().firstError) return About(fileName, Words(*defect));
  return collector.GetMessages().isEmpty() ? QString() : About(fileName, collector.GetMessages().join(u' '));
}

}  // namespace tessera::apps
