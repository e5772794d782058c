// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/graphics/detail/StampPainter.h>
#include <tessera/layers/detail/ObjectStore.h>
#include <tessera/objects/TMapObjectsList.h>
#include <tessera/objects/TSymbol.h>

#include <QDeadlineTimer>

#include <array>

namespace tessera::detail {

/// Draws objects of one layer on its map, with the same pixels and the same displayed objects as
/// TCustomMapObject::Paint of each in turn: outlines that thin to nothing are passed over by their boxes, or set as
/// dots together, and symbols in a row are stamped together.
class LayerPainter {
 public:
  /// @pre the layer is on a map and the store's extents are up to date
  LayerPainter(const TObjectLayer &layer, const ObjectStore &store);
  /// The order in which objects are drawn: that of their list, or another, in which they do not follow each other in
  /// the memory.
  enum class Order { List, Scattered };
  /// Draws one object at least, and stops soon after a time. Answers how many are drawn, in full.
  std::size_t Paint(std::span<const std::uint32_t> ids, Order order, const QDeadlineTimer &until);

 private:
  /// The look of a symbol, and what draws it.
  struct KnownLook {
    enum class Way { Nothing, Stamp, Alone };
    const TObjectStyle *style = nullptr;
    int shape = 0;
    Way way = Way::Nothing;
    std::uint32_t stamp = 0;  ///< Which one.
  };
  /// As many as a map's legend has entries.
  static constexpr std::size_t KnownLooks = 64;
  static constexpr std::size_t BlockSize = 256;
  static constexpr std::size_t MostPlaces = std::size_t(1) << 18;
  static constexpr std::size_t MostStamps = 4 * KnownLooks;

  /// Has the processor fetch what the objects after the one at `i` will need.
  void Expect(std::span<const std::uint32_t> ids, std::size_t i) const;
  /// For the view as it is; asked for again when an object has drawn itself, which may do anything.
  [[nodiscard]] const ScreenOutliner &Outliner();
  [[nodiscard]] bool IsPassedOver(const ObjectStore::Extent &extent, const TCustomMapObject &object);
  void PassOver(TCustomMapObject &object, const ObjectStore::Extent &extent);
  void FlushDots();
  enum class Cost { Low, Unknown };
  /// Draws the object or notes how it is to be drawn; tells of one that has drawn itself, which may take long.
  Cost PaintNext(TCustomMapObject &object, const ObjectStore::Extent &extent);
  void PaintAlone(TCustomMapObject &object);
  void PaintSymbol(TSymbol &symbol);
  /// Turns the symbols of a block into places of stamps.
  void PlaceBlock();
  /// Draws the places, and forgets the looks: what is drawn next may free a style.
  void FlushPlaces();
  /// Draws the symbols that are not drawn yet.
  void FlushSymbols();
  [[nodiscard]] const KnownLook &LookOf(const TSymbol &symbol);

  const ObjectStore &m_store;
  TMapHost &m_map;
  StampPainter m_stamps;
  const ScreenOutliner *m_outliner = nullptr;
  bool m_showsSelected;  ///< Those selected look otherwise.
  bool m_setsDots;       ///< For what is passed over.
  bool m_passesOver;
  bool m_stampsSymbols;
  TCustomMapObject *m_lastPassed = nullptr;  ///< With nothing drawn after it.
  TSymbol *m_lastSymbol = nullptr;           ///< Of those in a row; not among the others.
  std::vector<TPixel> m_dots;
  // Symbols in a row, a block of them, and the places of all.
  std::vector<TSymbol *> m_symbols;
  std::vector<TMapPoint> m_positions;
  std::vector<TPoint> m_pixels;
  std::vector<StampPainter::Place> m_places;
  std::vector<StampPainter::Stamp> m_usedStamps;
  std::array<KnownLook, KnownLooks> m_known;
};

}  // namespace tessera::detail
