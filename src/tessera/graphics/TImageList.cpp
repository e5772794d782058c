// SPDX-License-Identifier: MIT
#include <tessera/graphics/TImageList.h>

namespace tessera {

int TImageList::Add(const TBitmap &bitmap) {
  m_bitmaps.push_back(bitmap);
  return GetCount() - 1;
}

bool TImageList::GetBitmap(int index, TBitmap &bitmap) const {
  if (index < 0 || index >= GetCount()) return false;
  bitmap.GetImage() = m_bitmaps[std::size_t(index)].GetImage();
  return true;
}

}  // namespace tessera
