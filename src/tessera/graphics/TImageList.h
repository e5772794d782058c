// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/graphics/TBitmap.h>

#include <vector>

namespace tessera {

/// Pictures by number. A value.
class TESSERA_CORE_EXPORT TImageList {
 public:
  /// Answers the number of the new picture.
  int Add(const TBitmap &bitmap);
  void Clear() { m_bitmaps.clear(); }
  [[nodiscard]] int GetCount() const { return int(m_bitmaps.size()); }
  /// Copies a picture to `bitmap`, which keeps its transparency. False, and nothing changed, when there is none of that
  /// number.
  bool GetBitmap(int index, TBitmap &bitmap) const;

 private:
  std::vector<TBitmap> m_bitmaps;
};

}  // namespace tessera
