// SPDX-License-Identifier: MIT
#include <tessera/editing/TEditJournal.h>
#include <tessera/editing/detail/JournalFile.h>
#include <tessera/editing/detail/JournalRecords.h>
#include <tessera/editing/detail/ListRuns.h>
#include <tessera/editing/detail/ObjectPacking.h>
#include <tessera/layers/TMapLayers.h>

#include <algorithm>

namespace tessera {
namespace {

using detail::JournalChange;

std::vector<TCustomMapObject *> ObjectsOf(const TMapLayer &layer) {
  std::vector<TCustomMapObject *> objects;
  objects.reserve(std::size_t(layer.GetObjectCount()));
  for (int i = 0; i < layer.GetObjectCount(); ++i) {
    TCustomMapObject *object = layer.GetObjects(i);
    if (detail::CanPack(*object)) objects.push_back(object);
  }
  return objects;
}

bool IsOnMap(const TMapLayer *layer, const TMapLayers &layers) {
  return layer != nullptr && layers.IndexOf(layer) >= 0;
}

}  // namespace

struct TEditJournal::Known {
  THandle<TMapLayer> layer;
  quint64 number = 0;
  detail::JournalSource source;
  QString name;
  QByteArray columns;
  std::vector<const TCustomMapObject *> objects;  // to be compared only: some may be gone
  bool isWritten = false;

  [[nodiscard]] bool IsAllOf(const std::vector<detail::ListRun> &runs) const {
    if (objects.empty() || runs.empty()) return objects.empty() && runs.empty();
    return runs.size() == 1 && runs.front().first == 0 && runs.front().count == objects.size();
  }
};

TEditJournal::TEditJournal(TMapHost &map, const QString &folder)
    : m_map(map), m_file(detail::JournalFile::Make(folder)) {}

TEditJournal::~TEditJournal() {
  m_file->Remove();
}

TEditJournal::Known *TEditJournal::Find(const TMapLayer &layer) {
  const auto found = std::ranges::find_if(m_known, [&](const auto &known) { return known->layer.Get() == &layer; });
  return found == m_known.end() ? nullptr : found->get();
}

TEditJournal::Known &TEditJournal::Enter(TMapLayer &layer, const detail::JournalSource &source) {
  auto known = std::make_unique<Known>();
  known->layer = THandle<TMapLayer>(&layer);
  known->number = ++m_lastNumber;
  known->source = source;
  if (!source.fileName.isEmpty()) {
    known->name = layer.GetName();
    known->columns = detail::PackColumns(layer.GetFields());
    const auto objects = ObjectsOf(layer);
    known->objects.assign(objects.begin(), objects.end());
    known->source.objectCount = known->objects.size();
  }
  return *m_known.emplace_back(std::move(known));
}

void TEditJournal::MapEvent(TMapDataLinkEvent event, TObject *sender, int /*info*/) {
  switch (event) {
    case mdlObjectStyleChanged:
    case mdlObjectFieldsChanged:
    case mdlObjectGeometryChanged:
    case mdlRemoveObject:  // another one may soon stand at its address
      m_changed.insert(sender);
      return;
    case mdlAfterAddLayer:
      if (auto *layer = dynamic_cast<TMapLayer *>(sender); layer != nullptr && Find(*layer) == nullptr) {
        Enter(*layer, detail::JournalSource::Of(layer->GetSource().fileName));
      }
      return;
    default:
      return;
  }
}

void TEditJournal::NoteSaving(const TMapLayer &layer) {
  const Known *known = Find(layer);
  if (known != nullptr && known->isWritten) m_file->Append(detail::PackRecord(detail::JournalSaving{known->number}));
}

void TEditJournal::NoteSaved(TMapLayer &layer, const QString &fileName) {
  const auto isIt = [&](const auto &known) { return known->layer.Get() == &layer; };
  const auto found = std::ranges::find_if(m_known, isIt);
  if (found != m_known.end()) {
    if ((*found)->isWritten) m_file->Append(detail::PackRecord(detail::JournalEnd{(*found)->number}));
    m_known.erase(found);
  }
  Enter(layer, detail::JournalSource::Of(fileName));
}

void TEditJournal::Write() {
  ForgetAbsent();
  for (const auto &layer : m_map.GetLayers()->Items()) WriteLayer(*layer);
  m_changed.clear();
  if (std::ranges::none_of(m_known, &Known::isWritten, [](const auto &known) -> const Known & { return *known; })) {
    m_file->Clear();
  }
}

void TEditJournal::ForgetAbsent() {
  const TMapLayers &layers = *m_map.GetLayers();
  for (const auto &known : m_known) {
    if (known->isWritten && !IsOnMap(known->layer.Get(), layers)) {
      m_file->Append(detail::PackRecord(detail::JournalEnd{known->number}));
      known->isWritten = false;
    }
  }
  std::erase_if(m_known, [&](const auto &known) { return !IsOnMap(known->layer.Get(), layers); });
}

void TEditJournal::WriteLayer(TMapLayer &layer) {
  Known *found = Find(layer);
  Known &known = found ? *found : Enter(layer, {});
  const auto objects = ObjectsOf(layer);
  const QByteArray columns = detail::PackColumns(layer.GetFields());
  const bool isAllNew = columns != known.columns;
  const auto runs = detail::FindListRuns(
      known.objects, objects, [&](const TCustomMapObject *object) { return isAllNew || m_changed.contains(object); });
  if (!isAllNew && known.name == layer.GetName() && known.IsAllOf(runs)) return;
  JournalChange change{known.number, layer.GetName(), columns, {}};
  for (const detail::ListRun &run : runs) {
    change.runs.push_back({run.first, run.count, run.count > 0 ? QByteArray() : detail::PackObjects(run.added)});
  }
  if (!known.isWritten) m_file->Append(detail::PackRecord(detail::JournalBegin{known.number, known.source}));
  known.isWritten = true;
  m_file->Append(detail::PackRecord(change));
  known.name = layer.GetName();
  known.columns = columns;
  known.objects.assign(objects.begin(), objects.end());
}

}  // namespace tessera
