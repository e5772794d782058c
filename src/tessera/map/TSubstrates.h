// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>
#include <tessera/graphics/TBitmap.h>
#include <tessera/objects/TRectangle.h>

#include <memory>
#include <vector>

namespace tessera {

class TTessera;

/// A picture under the layers of a map, stretched over a rectangle in map units: a scanned sheet, an aerial photograph.
///
/// The rectangle is shared with whoever gave it: moved, it takes the picture along at the next repaint of the map.
class TESSERA_WIDGETS_EXPORT TSubstrate {
 public:
  TSubstrate() = default;
  TSubstrate(const TSubstrate &) = delete;
  TSubstrate &operator=(const TSubstrate &) = delete;

  /// Takes over the rectangle, then reads the picture, of any format Qt knows.
  /// @throws EInOutError when that fails; the substrate then keeps the picture it had.
  void LoadFromFile(const QString &fileName, std::shared_ptr<TRectangle> rect);
  /// As above, over a rectangle of its own with a corner at (x, y). A negative width or height extends it to the other
  /// side; the picture is not mirrored.
  void LoadFromFile(const QString &fileName, double x, double y, double width, double height);
  /// Draws the picture over its rectangle on the map's canvas; nothing without a map, rectangle or picture. Costs what
  /// is visible.
  void Paint();

  [[nodiscard]] const TBitmap &GetBitmap() const { return m_bitmap; }
  void SetBitmap(const TBitmap &bitmap) { m_bitmap = bitmap; }
  [[nodiscard]] const std::shared_ptr<TRectangle> &GetRect() const { return m_rect; }
  void SetRect(std::shared_ptr<TRectangle> rect) { m_rect = std::move(rect); }
  /// The map it is drawn on, which its collection sets.
  [[nodiscard]] TTessera *GetMap() const { return m_map; }
  void SetMap(TTessera *map) { m_map = map; }

 private:
  TBitmap m_bitmap;
  std::shared_ptr<TRectangle> m_rect;
  TTessera *m_map = nullptr;
};

/// The substrates of a map, which it owns, from the bottom up. Every change of the list asks the map for a new picture.
class TESSERA_WIDGETS_EXPORT TSubstrates {
 public:
  explicit TSubstrates(TTessera *map = nullptr) : m_map(map) {}
  TSubstrates(const TSubstrates &) = delete;
  TSubstrates &operator=(const TSubstrates &) = delete;

  /// Appends a substrate, that is, lays it over the others.
  TSubstrate *Add(std::unique_ptr<TSubstrate> substrate);
  /// Loads a new substrate and adds it. @throws EInOutError when the picture cannot be read; nothing is added then.
  TSubstrate *LoadFromFile(const QString &fileName, std::shared_ptr<TRectangle> rect);
  TSubstrate *LoadFromFile(const QString &fileName, double x, double y, double width, double height);
  /// Takes a substrate out and hands it back, without a map; none when it is not there.
  std::unique_ptr<TSubstrate> Remove(TSubstrate *substrate);
  /// Destroys all substrates.
  void Clear();
  [[nodiscard]] int GetCount() const { return int(m_substrates.size()); }
  /// @throws ERangeError outside the count.
  [[nodiscard]] TSubstrate *GetSubstrate(int index) const;
  /// Puts a substrate into the place of another, which is handed back without a map. @throws ERangeError outside the
  /// count.
  std::unique_ptr<TSubstrate> SetSubstrate(int index, std::unique_ptr<TSubstrate> substrate);
  /// Paints all substrates, the first one first.
  void Paint();

  [[nodiscard]] TTessera *GetMap() const { return m_map; }
  /// Also the map of every substrate from now on.
  void SetMap(TTessera *map);

 private:
  void UpdateMap();

  std::vector<std::unique_ptr<TSubstrate>> m_substrates;
  TTessera *m_map;
};

}  // namespace tessera
