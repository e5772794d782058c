// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/layers/TMapLayer.h>
#include <tessera/layers/detail/ExtentCache.h>
#include <tessera/providers/CustomFormatProvider.h>

#include <QFileInfo>

#include <algorithm>

namespace tessera {
namespace {

constexpr char ObjectIndex[] = "Object";

}  // namespace

TMapLayer::TMapLayer() : m_extents(std::make_unique<detail::ExtentCache>()) {}

TMapLayer::~TMapLayer() {
  bool allowDelete = false;
  if (m_map) m_map->FireBeforeDelLayer(*this, false, allowDelete);
  DeleteObjects();
}

TCustomMapObject *TMapLayer::AddObject(std::unique_ptr<TCustomMapObject> object, bool paintNow) {
  TCustomMapObject *added = object.get();
  m_objects.push_back(std::move(object));
  m_extents->Invalidate();
  added->SetMap(m_map);
  added->SetLayer(this);
  added->GetFields().Assign(m_fields);
  if (m_map == nullptr) return added;
  added->SetStyle(m_map->GetDefaultStyle(added->GetFontKind()));
  m_map->SetModified(true);
  if (paintNow) m_map->FireAddObject(*added);
  m_map->TraceMapEvent(mdlAddObject, this);
  if (!m_map->GetInUpdate() && m_map->IsReadyToPaint()) added->Paint();
  return added;
}

std::size_t TMapLayer::PositionOf(const TCustomMapObject *object) const {
  // Most objects that leave a layer have come last.
  const auto found =
      std::find_if(m_objects.rbegin(), m_objects.rend(), [object](const auto &o) { return o.get() == object; });
  return found == m_objects.rend() ? m_objects.size() : std::size_t(m_objects.rend() - found) - 1;
}

std::unique_ptr<TCustomMapObject> TMapLayer::RemoveObject(TCustomMapObject *object) {
  const std::size_t at = PositionOf(object);
  if (at == m_objects.size()) return nullptr;
  std::unique_ptr<TCustomMapObject> removed = std::move(m_objects[at]);
  m_objects.erase(m_objects.begin() + std::ptrdiff_t(at));
  m_extents->Invalidate();
  return removed;
}

void TMapLayer::ForgetObject(TCustomMapObject &object) {
  // The object is being destroyed already, by whoever owns it now.
  const std::size_t at = PositionOf(&object);
  if (at == m_objects.size()) return;
  static_cast<void>(m_objects[at].release());
  m_objects.erase(m_objects.begin() + std::ptrdiff_t(at));
  m_extents->Invalidate();
}

bool TMapLayer::Destroy(std::size_t at) {
  TCustomMapObject *object = m_objects[at].get();
  const bool isOwn = object->GetObjectLayer() == this;
  if (isOwn) {
    // The object takes itself out of the list while it is destroyed.
    std::default_delete<TCustomMapObject>()(object);
  } else {
    // One that SetObjects has put in knows nothing of this list.
    RemoveObject(object).reset();
  }
  return isOwn;
}

void TMapLayer::DeleteObject(int index) {
  if (index != -1 && Destroy(CheckedIndex(index, m_objects.size(), ObjectIndex))) {
    const std::size_t next = CheckedIndex(index, m_objects.size(), ObjectIndex);
    static_cast<void>(m_objects[next].release());
    m_objects.erase(m_objects.begin() + index);
    m_extents->Invalidate();
  }
  UpdateMap();
}

void TMapLayer::DeleteObjects() {
  while (!m_objects.empty()) Destroy(m_objects.size() - 1);
  UpdateMap();
}

TCustomMapObject *TMapLayer::GetObjects(int index) const {
  return m_objects[CheckedIndex(index, m_objects.size(), ObjectIndex)].get();
}

std::unique_ptr<TCustomMapObject> TMapLayer::SetObjects(int index, std::unique_ptr<TCustomMapObject> object) {
  m_objects[CheckedIndex(index, m_objects.size(), ObjectIndex)].swap(object);
  m_extents->Invalidate();
  return object;
}

void TMapLayer::UpdateMap() {
  if (m_map) m_map->DoUpdate(true);
}

void TMapLayer::TraceToMap(TMapDataLinkEvent event) {
  if (m_map) m_map->TraceMapEvent(event, this);
}

void TMapLayer::SetVisible(bool visible) {
  m_isVisible = visible;
  if (!visible) {
    m_isEditable = false;
    if (m_map) m_map->DeselectLayer(*this);
  }
  UpdateMap();
  TraceToMap(mdlLayerVisibleChanged);
}

void TMapLayer::SetSelectable(bool selectable) {
  m_isSelectable = m_isEditable || (selectable && m_isVisible);
  if (!m_isSelectable && m_map) m_map->DeselectLayer(*this);
  TraceToMap(mdlLayerSelectableChanged);
}

void TMapLayer::SetEditable(bool editable) {
  m_isEditable = editable && m_isVisible;
  if (m_isEditable) {
    m_isSelectable = true;
    if (m_map) m_map->EndEditingOfOthers(*this);
  }
  TraceToMap(mdlLayerEditableChanged);
}

void TMapLayer::SetAutoLabel(bool autoLabel) {
  if (m_autoLabel == autoLabel) return;
  m_autoLabel = autoLabel;
  TraceToMap(mdlLayerAutolabelChanged);
  UpdateMap();
}

bool TMapLayer::ValidZoom() const {
  const double zoom = m_map ? m_map->GetViewport().Zoom : 0;
  if (m_minZoom == 0 && m_maxZoom == 0) return true;
  if (m_minZoom == 0 || zoom < m_minZoom || m_maxZoom == 0) return false;
  return zoom <= m_maxZoom;
}

bool TMapLayer::MeetsRect(std::size_t id, const TBounds &rect) const {
  using Relation = detail::ExtentCache::Relation;
  const Relation relation = rect.IsInverted() ? Relation::Unknown : m_extents->RelationOf(id, rect);
  if (relation != Relation::Unknown) return relation == Relation::Inside;
  const TCustomMapObject &object = *m_objects[id];
  return object.IntersectsRect(rect.MinX, rect.MinY, rect.MaxX, rect.MaxY) ||
         object.WithinRect(rect.MinX, rect.MinY, rect.MaxX, rect.MaxY) ||
         object.ContainsRect(rect.MinX, rect.MinY, rect.MaxX, rect.MaxY);
}

void TMapLayer::SetUseIndex2D(bool use) {
  if (m_useIndex2D == use) return;
  m_useIndex2D = use;
  m_index2D->SetLayer(use ? this : nullptr);
  // They settle most candidates without a look at the objects.
  if (use) m_extents->Update(m_objects);
}

std::unique_ptr<TIndexCell> TMapLayer::SetIndex2D(std::unique_ptr<TIndexCell> index) {
  Q_ASSERT(index);
  return std::exchange(m_index2D, std::move(index));
}

bool TMapLayer::IsCandidateInRect(std::uint32_t id, const TBounds &rect) const {
  const TCustomMapObject &object = *m_objects[CheckedIndex(id, m_objects.size(), ObjectIndex)];
  // The extents are of use as long as nothing changes, but bringing them up to date takes longer than the query.
  if (m_extents->IsUpToDate() && !rect.IsInverted()) {
    using Relation = detail::ExtentCache::Relation;
    const Relation relation = m_extents->RelationOf(id, rect);
    if (relation != Relation::Unknown) return relation == Relation::Inside;
  }
  return object.IntersectsRect(rect.MinX, rect.MinY, rect.MaxX, rect.MaxY) ||
         object.WithinRect(rect.MinX, rect.MinY, rect.MaxX, rect.MaxY);
}

void TMapLayer::KeepThoseInRect(const TBounds &rect, TCardinalArray &ids) const {
  // From the last to the first; those that stay gather at the end.
  const std::span<std::uint32_t> all = ids.Ids();
  std::size_t firstKept = all.size();
  for (std::size_t i = all.size(); i-- > 0;) {
    if (IsCandidateInRect(all[i], rect)) all[--firstKept] = all[i];
  }
  std::copy(all.begin() + std::ptrdiff_t(firstKept), all.end(), all.begin());
  ids.Truncate(int(all.size() - firstKept));
}

bool TMapLayer::GetAllIdsInRect(const TCellBounds &rect, TCardinalArray &ids) const {
  ids.Clear();
  if (m_useIndex2D) {
    if (!m_index2D->GetAllIdsInRect(rect, ids)) return false;
    KeepThoseInRect(CellBounds2Bounds(rect), ids);
    return true;
  }
  m_extents->Update(m_objects);
  const TBounds bounds = CellBounds2Bounds(rect);
  for (std::size_t id = 0; id < m_objects.size(); ++id) {
    if (MeetsRect(id, bounds)) ids.Add(std::uint32_t(id));
  }
  return ids.GetCount() != 0;
}

void TMapLayer::Paint() {
  if (m_map == nullptr || !m_map->IsReadyToPaint() || !m_isVisible || !ValidZoom()) return;
  TCardinalArray ids;
  if (!GetAllIdsInRect(Bounds2CellBounds(m_map->GetViewport().GetViewBounds()), ids)) return;
  for (const std::uint32_t id : ids.Ids()) m_objects[id]->Paint();
}

void TMapLayer::PaintSelection() {
  if (m_map == nullptr || !m_map->GetViewFlags().FastSelection || !m_isVisible || !ValidZoom()) return;
  m_map->DrawSelectionOf(*this);
}

bool TMapLayer::LoadFromFile(const QString &fileName, const QString &layerName) {
  if (FormatProviders == nullptr) return false;
  TCustomFormatProvider *provider = FormatProviders->FindSuitableProvider(fileName);
  if (provider == nullptr || !provider->Load(this, fileName)) return false;
  SetFileName(fileName);
  SetName(layerName.isEmpty() ? QFileInfo(fileName).completeBaseName() : layerName);
  return true;
}

bool TMapLayer::SaveToFile(const QString &fileName) {
  if (FormatProviders == nullptr) return false;
  const QString name = fileName.isEmpty() ? m_fileName : fileName;
  if (name.isEmpty()) return false;
  TCustomFormatProvider *provider = FormatProviders->FindSuitableProvider(name);
  if (provider == nullptr) return false;
  if (m_map && m_map->GetisMapRotated()) m_map->UnRotate();
  return provider->Save(this, name);
}

}  // namespace tessera
