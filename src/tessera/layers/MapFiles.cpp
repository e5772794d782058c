// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/GuardedCall.h>
#include <tessera/base/MessageSink.h>
#include <tessera/layers/MapFiles.h>
#include <tessera/layers/detail/LoadReports.h>
#include <tessera/providers/CustomFormatProvider.h>

#include <QFileInfo>
#include <QPointer>

#include <algorithm>
#include <set>

namespace tessera {
namespace {

/// Keeps the messages that come up while it lives, each text once, instead of letting them be shown.
class MessageCollector {
 public:
  MessageCollector()
      : m_before(SetMessageSink([this](const QString &text) {
          if (!m_messages.contains(text)) m_messages.append(text);
        })) {}
  ~MessageCollector() { SetMessageSink(m_before); }
  MessageCollector(const MessageCollector &) = delete;
  MessageCollector &operator=(const MessageCollector &) = delete;

  [[nodiscard]] const QStringList &GetMessages() const { return m_messages; }

 private:
  QStringList m_messages;
  TMessageSink m_before;
};

using detail::About;
using detail::Words;

TCustomFormatProvider *ProviderFor(const QString &fileName) {
  return FormatProviders == nullptr ? nullptr : FormatProviders->FindSuitableProvider(fileName);
}

/// Does `work` with a provider and answers its report. Whatever `work` throws becomes the report's error.
template <typename Work>
TFormatReport ReportOf(TCustomFormatProvider *provider, const Work &work) {
  const QPointer<TCustomFormatProvider> watched(provider);
  const TFormatReport thrown = detail::GuardedReport([&] {
    work();
    return TFormatReport();
  });
  // A provider that throws may not have begun a report of this run.
  return thrown.firstError || !watched ? thrown : watched->GetReport();
}

/// Adds a layer and fills it. None when it was deleted meanwhile.
TMapLayer *AddLayer(TMapLayers &layers, const QString &path, TCustomFormatProvider *provider, TFormatReport &report) {
  std::set<const TMapLayer *> before;
  for (const auto &layer : layers.Items()) before.insert(layer.get());
  report = ReportOf(provider, [&] { layers.Add(path, QFileInfo(path).completeBaseName()); });
  const auto isNew = [&before](const auto &layer) { return !before.contains(layer.get()); };
  const auto items = layers.Items();
  const auto made = std::find_if(items.begin(), items.end(), isNew);
  return made == items.end() ? nullptr : made->get();
}

void DeleteLayer(TMapLayers &layers, const TMapLayer *layer) {
  for (int i = layers.GetCount() - 1; i >= 0; --i) {
    if (layers.GetLayer(i) == layer) return layers.Delete(i);
  }
}

bool IsSameFile(const QString &one, const QString &other) {
  return !one.isEmpty() && QFileInfo::exists(one) && QFileInfo(one) == QFileInfo(other);
}

}  // namespace

TLoadedFile LoadMapFile(TMapLayers &layers, const QString &fileName) {
  TLoadedFile loaded;
  loaded.fileName = fileName;
  const QString path = QFileInfo(fileName).absoluteFilePath();
  TCustomFormatProvider *provider = detail::FindProviderFor(path, loaded);
  if (provider == nullptr) return loaded;
  const MessageCollector collector;
  TMapLayer *layer = AddLayer(layers, path, provider, loaded.report);
  if (detail::Judge(loaded, layer, collector.GetMessages())) {
    loaded.layer = layer;
  } else if (layer != nullptr) {
    GuardedCall([&] { DeleteLayer(layers, layer); });
  }
  return loaded;
}

TSavedFile SaveMapFile(TMapLayer &layer, const QString &fileName) {
  TSavedFile saved;
  saved.fileName = fileName;
  TCustomFormatProvider *provider = ProviderFor(fileName);
  if (provider == nullptr) {
    saved.error = About(fileName, detail::UnknownFormat());
    return saved;
  }
  const MessageCollector collector;
  const THandle<TMapLayer> watched(&layer);
  const bool replacesSource = IsSameFile(layer.GetSource().fileName, fileName);
  const bool wasRotated = layer.GetMapHost() != nullptr && layer.GetMapHost()->GetisMapRotated();
  saved.report = ReportOf(provider, [&] { layer.SaveToFile(fileName); });
  // A map is turned back before one of its layers is written.
  if (wasRotated && watched && layer.GetMapHost() != nullptr) layer.GetMapHost()->DoUpdate(true);
  saved.warnings = detail::WarningsOf(fileName, saved.report, collector.GetMessages());
  for (const QString &words : saved.report.losses)
    saved.warnings.append(About(fileName, TFormatReport::tr("lost: %1").arg(words)));
  if (const auto &defect = saved.report.firstError) {
    saved.error = About(fileName, Words(*defect));
  } else if (replacesSource && watched) {
    // From now on the file has nothing that the layer lacks.
    layer.SetSource({fileName, {}});
  }
  return saved;
}

QStringList LossesOfSaving(const TMapLayer &layer, const QString &fileName) {
  const TLayerSource &source = layer.GetSource();
  const bool isSource = IsSameFile(source.fileName, fileName);
  if (!isSource && !IsSameFile(layer.GetFileName(), fileName)) return {};
  QStringList losses = isSource ? source.losses : QStringList();
  const TCustomFormatProvider *provider = ProviderFor(fileName);
  if (provider != nullptr) losses += provider->TrySave(layer).losses;
  return losses;
}

}  // namespace tessera
