// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TObjectStyle.h>

#include <array>
#include <unordered_map>

namespace tessera::detail {

/// Styles that differ in nothing but the font's size, shared by all objects that ask for the same: texts change their
/// size with every zoom, and a style of its own would cost each of them more than the rest of the object.
/// Bounded: forgets everything when it has grown too large, which costs no more than new styles.
class StylePool {
 public:
  /// `style` with the font size `sizePt`.
  [[nodiscard]] TObjectStylePtr Resized(const TObjectStylePtr &style, int sizePt);
  /// The pool of this thread.
  [[nodiscard]] static StylePool &Instance();

 private:
  /// An answer given lately. Holding the style keeps its address from being used for another.
  struct Answer {
    TObjectStylePtr asked;
    int sizePt = 0;
    TObjectStylePtr style;
  };

  [[nodiscard]] const TObjectStylePtr &Shared(const TObjectStylePtr &style);

  std::array<Answer, 512> m_answers;
  std::unordered_multimap<std::size_t, TObjectStylePtr> m_styles;
};

}  // namespace tessera::detail
