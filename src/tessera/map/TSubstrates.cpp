// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/graphics/TCanvas.h>
#include <tessera/map/TSubstrates.h>
#include <tessera/map/TTessera.h>

#include <algorithm>
#include <utility>

namespace tessera {
namespace {

constexpr char SubstrateIndex[] = "Substrate";

}  // namespace

void TSubstrate::LoadFromFile(const QString &fileName, std::shared_ptr<TRectangle> rect) {
  m_rect = std::move(rect);
  m_bitmap.LoadFromFile(fileName);
}

void TSubstrate::LoadFromFile(const QString &fileName, double x, double y, double width, double height) {
  auto rect = std::make_shared<TRectangle>();
  rect->SetX0(x);
  rect->SetY0(y);
  rect->SetX1(x + width);
  rect->SetY1(y + height);
  LoadFromFile(fileName, std::move(rect));
}

void TSubstrate::Paint() {
  if (m_map == nullptr || m_rect == nullptr || m_bitmap.IsEmpty()) return;
  const TViewport &viewport = m_map->GetViewport();
  const TPoint first = viewport.MapToScreen(m_rect->GetX0(), m_rect->GetY0());
  const TPoint second = viewport.MapToScreen(m_rect->GetX1(), m_rect->GetY1());
  const auto [left, right] = std::minmax({first.x(), second.x()});
  const auto [top, bottom] = std::minmax({first.y(), second.y()});
  // A rectangle without pixels has no last one.
  if (left == right || top == bottom) return;
  m_map->GetCanvas().StretchDraw(QRect(QPoint(left, top), QPoint(right - 1, bottom - 1)), m_bitmap);
}

TSubstrate *TSubstrates::Add(std::unique_ptr<TSubstrate> substrate) {
  substrate->SetMap(m_map);
  m_substrates.push_back(std::move(substrate));
  UpdateMap();
  return m_substrates.back().get();
}

TSubstrate *TSubstrates::LoadFromFile(const QString &fileName, std::shared_ptr<TRectangle> rect) {
  auto substrate = std::make_unique<TSubstrate>();
  substrate->LoadFromFile(fileName, std::move(rect));
  return Add(std::move(substrate));
}

TSubstrate *TSubstrates::LoadFromFile(const QString &fileName, double x, double y, double width, double height) {
  auto substrate = std::make_unique<TSubstrate>();
  substrate->LoadFromFile(fileName, x, y, width, height);
  return Add(std::move(substrate));
}

std::unique_ptr<TSubstrate> TSubstrates::Remove(TSubstrate *substrate) {
  const auto found = std::find_if(m_substrates.begin(), m_substrates.end(),
                                  [substrate](const auto &held) { return held.get() == substrate; });
  if (found == m_substrates.end()) return nullptr;
  std::unique_ptr<TSubstrate> removed = std::move(*found);
  m_substrates.erase(found);
  removed->SetMap(nullptr);
  UpdateMap();
  return removed;
}

void TSubstrates::Clear() {
  m_substrates.clear();
  UpdateMap();
}

TSubstrate *TSubstrates::GetSubstrate(int index) const {
  return m_substrates[CheckedIndex(index, m_substrates.size(), SubstrateIndex)].get();
}

std::unique_ptr<TSubstrate> TSubstrates::SetSubstrate(int index, std::unique_ptr<TSubstrate> substrate) {
  auto &place = m_substrates[CheckedIndex(index, m_substrates.size(), SubstrateIndex)];
  substrate->SetMap(m_map);
  place.swap(substrate);
  substrate->SetMap(nullptr);
  UpdateMap();
  return substrate;
}

void TSubstrates::Paint() {
  for (const auto &substrate : m_substrates) substrate->Paint();
}

void TSubstrates::SetMap(TTessera *map) {
  m_map = map;
  for (const auto &substrate : m_substrates) substrate->SetMap(map);
}

void TSubstrates::UpdateMap() {
  if (m_map) m_map->DoUpdate(true);
}

}  // namespace tessera
