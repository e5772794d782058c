// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/editing/detail/JournaledLayer.h>
#include <tessera/editing/detail/ObjectPacking.h>
#include <tessera/layers/MapFiles.h>
#include <tessera/layers/TMapLayers.h>
#include <tessera/objects/TMapHost.h>
#include <tessera/objects/TMapScopes.h>

#include <QCoreApplication>

#include <algorithm>
#include <optional>

namespace tessera::detail {
namespace {

using Layers = std::vector<std::unique_ptr<JournaledLayer>>;
using Owned = std::unique_ptr<TCustomMapObject>;

Layers::iterator Find(Layers &layers, quint64 number) {
  return std::ranges::find_if(layers, [number](const auto &layer) { return layer->number == number; });
}

[[noreturn]] void Refuse() {
  throw EConvertError(QStringLiteral("The journal is damaged."));
}

void Apply(Layers &layers, const JournalBegin &record) {
  // An object of a file takes more than a byte.
  if (record.source.objectCount > quint64(std::max<qint64>(record.source.sizeBytes, 0))) Refuse();
  auto layer = std::make_unique<JournaledLayer>();
  layer->number = record.layer;
  layer->source = record.source;
  for (quint64 i = 0; i < record.source.objectCount; ++i) layer->entries.push_back({i, -1});
  if (const auto found = Find(layers, record.layer); found != layers.end()) layers.erase(found);
  layers.push_back(std::move(layer));
}

void Apply(Layers &layers, const JournalChange &record) {
  if (const auto found = Find(layers, record.layer); found != layers.end()) (*found)->Apply(record);
}

void Apply(Layers &layers, const JournalEnd &record) {
  if (const auto found = Find(layers, record.layer); found != layers.end()) layers.erase(found);
}

void Apply(Layers &layers, const JournalSaving &record) {
  if (const auto found = Find(layers, record.layer); found != layers.end()) (*found)->isBeingSaved = true;
}

/// Takes all objects of a layer out of it.
std::vector<Owned> TakeAll(TMapLayer &layer) {
  std::vector<Owned> objects(std::size_t(layer.GetObjectCount()));
  for (std::size_t i = objects.size(); i > 0; --i) objects[i - 1] = layer.RemoveObject(layer.Last());
  return objects;
}

/// Has an object share the columns of the layer, unless it has others.
void ShareColumns(const TMapLayer &layer, TCustomMapObject &object) {
  const TDataFields &own = std::as_const(object).GetFields();
  if (own.GetCount() != layer.GetFieldCount()) return;
  TDataFields shared = layer.GetFields();
  for (int i = 0; i < shared.GetCount(); ++i) shared.GetFields(i).SetValue(own.GetFields(i).GetValue());
  object.SetFields(shared);
}

/// The layer as its file has it, if it still does; else an empty one.
TMapLayer *OpenLayer(TMapLayers &layers, const JournaledLayer &journaled, QString &problem) {
  const JournalSource &source = journaled.source;
  const auto tell = [&](const char *text) {
    problem = QCoreApplication::translate("tessera::TLeftJournal", text).arg(source.fileName, journaled.name);
  };
  if (source.fileName.isEmpty()) return layers.Add(QString(), journaled.name);
  if (source.IsThere()) {
    TMapLayer *layer = LoadMapFile(layers, source.fileName).layer;
    if (layer != nullptr && quint64(layer->GetObjectCount()) == source.objectCount) return layer;
    if (layer != nullptr) layers.Delete(layers.IndexOf(layer));
    tell(QT_TRANSLATE_NOOP("tessera::TLeftJournal", "%1 cannot be read as it was; %2 has what was changed in it"));
  } else {
    tell(QT_TRANSLATE_NOOP("tessera::TLeftJournal", "%1 is not as it was; %2 has what was changed in it"));
  }
  return layers.Add(QString(), journaled.name);
}

}  // namespace

Layers JournaledLayer::ReadFrom(const std::vector<QByteArray> &records) {
  Layers layers;
  try {
    for (const QByteArray &bytes : records) {
      std::visit([&](const auto &record) { tessera::detail::Apply(layers, record); }, UnpackRecord(bytes));
    }
  } catch (const EConvertError &) {
    // What was understood before is what there is.
  }
  // Where a layer had no file yet nothing tells whether it got one.
  std::erase_if(layers, [](const auto &layer) {
    return layer->isBeingSaved && !layer->source.fileName.isEmpty() && !layer->source.IsThere();
  });
  return layers;
}

void JournaledLayer::Apply(const JournalChange &change) {
  std::vector<Entry> after;
  for (const JournalChange::Run &run : change.runs) {
    if (run.first > entries.size() || run.count > entries.size() - run.first) {
      Refuse();
    }
    const auto first = entries.begin() + std::ptrdiff_t(run.first);
    after.insert(after.end(), first, first + std::ptrdiff_t(run.count));
    if (run.count > 0) continue;
    const std::size_t count = UnpackObjects(run.packed).size();
    for (std::size_t i = 0; i < count; ++i) after.push_back({i, int(packs.size())});
    packs.push_back(run.packed);
  }
  TDataFields checked;
  UnpackColumns(change.columns, checked);
  isBeingSaved = false;
  name = change.name;
  columns = change.columns;
  entries = std::move(after);
}

QString JournaledLayer::RestoreInto(TMapLayers &layers) const {
  std::optional<TUpdateScope> update;
  if (layers.GetMapHost() != nullptr) update.emplace(*layers.GetMapHost());
  QString problem;
  const THandle<TMapLayer> layer(OpenLayer(layers, *this, problem));
  if (layer) UnpackColumns(columns, layer->GetFields());
  if (layer) layer->SetName(name);
  // A handler may have other ideas.
  if (!layer) return problem;
  layer->PutObjects(MakeObjects(*layer.Get()));
  return problem;
}

std::vector<TTakenObject> JournaledLayer::MakeObjects(TMapLayer &layer) const {
  std::vector<Owned> ofFile = TakeAll(layer);
  std::vector<std::vector<Owned>> unpacked;
  for (const QByteArray &pack : packs) unpacked.push_back(UnpackObjects(pack));
  std::vector<TTakenObject> restored;
  for (const Entry &entry : entries) {
    std::vector<Owned> &from = entry.pack < 0 ? ofFile : unpacked[std::size_t(entry.pack)];
    if (entry.number >= from.size()) continue;
    Owned &object = from[std::size_t(entry.number)];
    if (entry.pack >= 0) ShareColumns(layer, *object);
    restored.push_back({int(restored.size()), std::move(object)});
  }
  return restored;
}

}  // namespace tessera::detail
