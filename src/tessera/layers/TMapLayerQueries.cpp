// SPDX-License-Identifier: MIT
// What a layer answers to a rectangle, how it is drawn, and how it is read and written.
#include <tessera/base/Exceptions.h>
#include <tessera/base/detail/Pool.h>
#include <tessera/layers/TMapLayer.h>
#include <tessera/layers/detail/LayerPainting.h>
#include <tessera/layers/detail/ObjectStore.h>
#include <tessera/objects/TMapObjectsList.h>
#include <tessera/providers/CustomFormatProvider.h>

#include <QFileInfo>
#include <QScopeGuard>

#include <algorithm>
#include <cmath>
#include <limits>

namespace tessera {
namespace {

using Relation = detail::ObjectStore::Relation;

bool ReachesInto(const TBounds &rect, const TCustomMapObject &object) {
  const std::optional<TBounds> extent = object.GetExtent();
  return extent && extent->MinX <= rect.MaxX && extent->MaxX >= rect.MinX && extent->MinY <= rect.MaxY &&
         extent->MaxY >= rect.MinY;
}

}  // namespace

void TMapLayer::SetUseIndex2D(bool use) {
  if (m_useIndex2D == use) return;
  m_useIndex2D = use;
  m_isStaleIndexTold = false;
  m_index2D->SetLayer(use ? this : nullptr);
}

std::unique_ptr<TIndexCell> TMapLayer::SetIndex2D(std::unique_ptr<TIndexCell> index) {
  Q_ASSERT(index);
  m_isStaleIndexTold = false;
  return std::exchange(m_index2D, std::move(index));
}

bool TMapLayer::MeetsRect(std::size_t id, const TBounds &rect, const RectQuery &query) const {
  const Relation relation = rect.IsInverted() ? Relation::Unknown : m_objects->RelationOf(id, rect);
  if (relation != Relation::Unknown) return relation == Relation::Inside;
  const TCustomMapObject &object = *m_objects->Items()[id];
  return object.IntersectsRect(rect.MinX, rect.MinY, rect.MaxX, rect.MaxY) ||
         object.WithinRect(rect.MinX, rect.MinY, rect.MaxX, rect.MaxY) ||
         object.ContainsRect(rect.MinX, rect.MinY, rect.MaxX, rect.MaxY) ||
         (query.countsExtents && ReachesInto(rect, object));
}

bool TMapLayer::IsCandidateInRect(std::uint32_t id, const TBounds &rect) const {
  const Relation relation = rect.IsInverted() ? Relation::Unknown : m_objects->RelationOf(id, rect);
  if (relation != Relation::Unknown) return relation == Relation::Inside;
  const TCustomMapObject &object = *m_objects->Items()[id];
  return object.IntersectsRect(rect.MinX, rect.MinY, rect.MaxX, rect.MaxY) ||
         object.WithinRect(rect.MinX, rect.MinY, rect.MaxX, rect.MaxY);
}

void TMapLayer::KeepThoseInRect(const TBounds &rect, TCardinalArray &ids, const RectQuery &query) const {
  // From the last to the first; those that stay gather at the end.
  const std::span<std::uint32_t> all = ids.Ids();
  const std::size_t count = m_objects->GetCount();
  const bool areAllInside = m_objects->AreAllInside(rect);
  constexpr std::size_t Ahead = 16;
  std::size_t firstKept = all.size();
  for (std::size_t i = all.size(); i-- > 0;) {
    if (i >= Ahead && !areAllInside) m_objects->ExpectExtent(all[i - Ahead]);
    if (all[i] >= count && query.staleCount) {
      ++*query.staleCount;
      continue;
    }
    CheckedIndex(all[i], count, "Object");
    if (areAllInside || IsCandidateInRect(all[i], rect)) all[--firstKept] = all[i];
  }
  std::copy(all.begin() + std::ptrdiff_t(firstKept), all.end(), all.begin());
  ids.Truncate(int(all.size() - firstKept));
}

bool TMapLayer::FindIdsInRect(const TCellBounds &rect, TCardinalArray &ids, const RectQuery &query) const {
  ids.Clear();
  const TBounds bounds = CellBounds2Bounds(rect);
  if (m_useIndex2D && !query.countsExtents) {
    if (!m_index2D->GetAllIdsInRect(rect, ids)) return false;
    m_objects->UpdateExtents();
    KeepThoseInRect(bounds, ids, query);
    return true;
  }
  m_objects->UpdateExtents();
  const bool areAllInside = m_objects->AreAllInside(bounds);
  if (areAllInside || bounds.IsInverted()) {
    for (std::size_t id = 0; id < m_objects->GetCount(); ++id) ids.Add(std::uint32_t(id));
  } else {
    m_objects->FindMeeting(bounds, ids);
  }
  if (!areAllInside) {
    const auto found = ids.Ids();
    const auto isApart = [&](std::uint32_t id) { return !MeetsRect(id, bounds, query); };
    ids.Truncate(int(std::remove_if(found.begin(), found.end(), isApart) - found.begin()));
  }
  return ids.GetCount() != 0;
}

bool TMapLayer::GetAllIdsInRect(const TCellBounds &rect, TCardinalArray &ids) const {
  return FindIdsInRect(rect, ids, {});
}

void TMapLayer::GetIdsNear(const TMapPoint &point, int distancePx, TCardinalArray &ids) const {
  ids.Clear();
  m_objects->UpdateExtents();
  const std::optional<int> reachPx = m_objects->GetPickReachPx();
  constexpr double Infinity = std::numeric_limits<double>::infinity();
  TBounds near{-Infinity, -Infinity, Infinity, Infinity};
  if (reachPx && GetMapHost()) {
    const auto scale = std::fabs(double(GetMapHost()->GetViewport().GetScale().Kx));
    const double reach = (double(*reachPx) + distancePx) / scale;
    near = {point.X - reach, point.Y - reach, point.X + reach, point.Y + reach};
  }
  m_objects->FindMeeting(near, ids);
}

void TMapLayer::Paint() {
  detail::LayerPainting(*this).Continue(QDeadlineTimer::Forever);
}

void TMapLayer::PaintSelection() {
  const TMapHost *map = GetMapHost();
  if (map == nullptr || !map->GetViewFlags().FastSelection || !m_isVisible || !ValidZoom()) return;
  for (TCustomMapObject *object : map->GetSelection()->Items()) {
    if (object->GetObjectLayer() == this) object->DrawSelection();
  }
}

bool TMapLayer::FillBy(const std::function<TFormatReport()> &load, const QString &fileName) {
  const THandle<TMapLayer> self(this);
  SetQuiet(true);
  const auto loud = qScopeGuard([this, &self] {
    if (self) SetQuiet(false);
  });
  const TFormatReport report = [&load] {
    const detail::Pool pool;
    return load();
  }();
  if (!self) return false;
  // While it is expected to take a while, and not when the first picture is.
  m_objects->ForgetExtents();
  m_objects->UpdateExtents();
  SetSource({fileName, report.AllLosses()});
  return true;
}

bool TMapLayer::LoadFromFile(const QString &fileName, const QString &layerName) {
  if (FormatProviders == nullptr) return false;
  TCustomFormatProvider *provider = FormatProviders->FindSuitableProvider(fileName);
  if (provider == nullptr) return false;
  bool isLoaded = false;
  const auto load = [&] {
    isLoaded = provider->Load(this, fileName);
    return provider->GetReport();
  };
  if (!FillBy(load, fileName) || !isLoaded) return false;
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
  if (GetMapHost() && GetMapHost()->GetisMapRotated()) GetMapHost()->UnRotate();
  return provider->Save(this, name);
}

}  // namespace tessera
