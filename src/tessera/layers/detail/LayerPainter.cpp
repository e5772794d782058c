// SPDX-License-Identifier: MIT
#include <tessera/base/DebugTrace.h>
#include <tessera/base/detail/FarPixels.h>
#include <tessera/graphics/TCanvas.h>
#include <tessera/graphics/detail/SymbolFont.h>
#include <tessera/layers/detail/LayerPainter.h>
#include <tessera/objects/detail/ScreenOutliner.h>

namespace tessera::detail {

using Look = ObjectStore::Look;

LayerPainter::LayerPainter(const TObjectLayer &layer, const ObjectStore &store)
    : m_store(store),
      m_map(*layer.GetMapHost()),
      m_stamps(m_map.GetCanvas()),
      m_showsSelected(!m_map.GetViewFlags().FastSelection && m_map.GetSelection()->GetCount() != 0),
      m_setsDots(m_map.GetViewFlags().ShowSmallObjects),
      // The notices that empty regions send are not to be missed.
      m_passesOver(m_map.GetViewFlags().UseGeneralization && !layer.GetAutoLabel() && !IsDebugTraced()),
      m_stampsSymbols(!layer.GetAutoLabel() && !m_showsSelected) {}

const ScreenOutliner &LayerPainter::Outliner() {
  if (m_outliner == nullptr) m_outliner = &m_map.GetOutliner();
  return *m_outliner;
}

bool LayerPainter::IsPassedOver(const ObjectStore::Extent &extent, const TCustomMapObject &object) {
  if (!m_passesOver || !Outliner().ThinsToOne(extent.box)) return false;
  if (extent.look == Look::OddOutline) return !m_setsDots;
  return extent.look == Look::Outline && !(m_setsDots && m_showsSelected && object.GetSelected());
}

void LayerPainter::Expect(std::span<const std::uint32_t> ids, std::size_t i) const {
  constexpr std::size_t PlacesAhead = 32;
  constexpr std::size_t ObjectsAhead = 16;
  constexpr std::size_t VerticesAhead = 6;
  if (i + PlacesAhead < ids.size()) m_store.ExpectPlace(ids[i + PlacesAhead]);
  if (i + ObjectsAhead < ids.size()) m_store.ExpectObject(ids[i + ObjectsAhead]);
  if (i + VerticesAhead < ids.size()) m_store.ExpectVertices(ids[i + VerticesAhead]);
}

std::size_t LayerPainter::Paint(std::span<const std::uint32_t> ids, Order order, const QDeadlineTimer &until) {
  // To look at the clock takes longer than many an object.
  constexpr std::size_t CheapOnes = 256;
  const bool isInStep = !until.isForever();
  std::size_t i = 0;
  for (bool isOver = false; i < ids.size() && !isOver; ++i) {
    if (order == Order::Scattered) Expect(ids, i);
    const std::uint32_t id = ids[i];
    const Cost cost = PaintNext(*m_store.Items()[id], m_store.ExtentOf(id));
    isOver = isInStep && (cost == Cost::Unknown || (i + 1) % CheapOnes == 0) && until.hasExpired();
  }
  FlushSymbols();
  FlushDots();
  // The tools stay in the canvas as the last object leaves them.
  if (m_lastPassed) m_lastPassed->AssignToolsToCanvas(m_map.GetCanvas());
  return i;
}

LayerPainter::Cost LayerPainter::PaintNext(TCustomMapObject &object, const ObjectStore::Extent &extent) {
  if (IsPassedOver(extent, object)) {
    PassOver(object, extent);
    return Cost::Low;
  }
  if (m_stampsSymbols && extent.look == Look::Sign) {
    PaintSymbol(static_cast<TSymbol &>(object));
    return Cost::Low;
  }
  PaintAlone(object);
  return Cost::Unknown;
}

void LayerPainter::PassOver(TCustomMapObject &object, const ObjectStore::Extent &extent) {
  constexpr std::size_t MostDots = 4096;
  if (m_setsDots) {
    if (m_dots.empty()) FlushSymbols();
    m_dots.push_back({Outliner().MiddleOf(extent.box), RGB(extent.dot[0], extent.dot[1], extent.dot[2])});
    if (m_dots.size() == MostDots) FlushDots();
  }
  m_map.GetDisplayed()->Add(&object);
  m_lastPassed = &object;
}

void LayerPainter::FlushDots() {
  if (m_dots.empty()) return;
  m_map.GetCanvas().Pen().SetMode(TPenMode::pmCopy);
  m_map.GetCanvas().SetPixels(m_dots);
  m_dots.clear();
}

void LayerPainter::PaintAlone(TCustomMapObject &object) {
  FlushSymbols();
  FlushDots();
  m_lastPassed = nullptr;
  object.Paint();
  m_outliner = nullptr;
}

void LayerPainter::PaintSymbol(TSymbol &symbol) {
  const auto parts = std::as_const(symbol).GetParts().Items();
  if (parts.empty() || parts[0].GetPoints().GetCount() == 0) return PaintAlone(symbol);
  FlushDots();
  m_map.GetDisplayed()->Add(&symbol);
  m_lastPassed = nullptr;
  if (TSymbol *before = std::exchange(m_lastSymbol, &symbol)) {
    m_symbols.push_back(before);
    if (m_symbols.size() == BlockSize) PlaceBlock();
  }
}

const LayerPainter::KnownLook &LayerPainter::LookOf(const TSymbol &symbol) {
  using Way = KnownLook::Way;
  const TObjectStyle *style = symbol.GetStyle().constData();
  const auto place = reinterpret_cast<std::uintptr_t>(style) / sizeof(TObjectStyle) + std::size_t(symbol.GetShape());
  KnownLook &known = m_known[place % KnownLooks];
  if (known.style == style && known.shape == symbol.GetShape()) return known;
  known = {style, symbol.GetShape(), Way::Nothing, std::uint32_t(m_usedStamps.size())};
  if (known.shape == TSymbol::NoShape) return known;
  symbol.AssignToolsToCanvas(m_map.GetCanvas());
  const SymbolGlyph &glyph = ResolveSymbol(style->font, known.shape);
  auto stamp = m_stamps.MakeStamp(glyph.font, glyph.text);
  known.way = stamp ? Way::Stamp : Way::Alone;
  if (stamp) m_usedStamps.push_back(std::move(*stamp));
  return known;
}

void LayerPainter::PlaceBlock() {
  using Way = KnownLook::Way;
  m_positions.clear();
  for (const TSymbol *symbol : m_symbols) m_positions.push_back(symbol->GetPosition());
  m_pixels.resize(m_positions.size());
  m_map.GetViewport().MapToScreen(m_positions, m_pixels.data());
  for (std::size_t i = 0; i < m_symbols.size(); ++i) {
    const KnownLook &look = LookOf(*m_symbols[i]);
    if (look.way == Way::Stamp) {
      const QSize &extent = m_usedStamps[look.stamp].extent;
      m_places.push_back({MovedBy(m_pixels[i], -(extent.width() / 2), -(extent.height() / 2)), look.stamp});
    } else if (look.way == Way::Alone) {
      FlushPlaces();
      m_symbols[i]->Paint();
      m_outliner = nullptr;
    }
  }
  m_symbols.clear();
  if (m_places.size() + BlockSize > MostPlaces || m_usedStamps.size() > MostStamps) FlushPlaces();
}

void LayerPainter::FlushPlaces() {
  m_stamps.Draw(m_places, m_usedStamps);
  m_places.clear();
  m_usedStamps.clear();
  m_known.fill({});
}

void LayerPainter::FlushSymbols() {
  if (m_lastSymbol == nullptr) return;
  PlaceBlock();
  FlushPlaces();
  // The last one is drawn by itself, and so leaves its tools in the canvas.
  std::exchange(m_lastSymbol, nullptr)->Paint();
  m_outliner = nullptr;
}

}  // namespace tessera::detail
