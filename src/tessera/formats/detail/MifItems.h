// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <array>
#include <string_view>

namespace tessera::detail {

/// The first items of a line of a MIF file, as TSyntaxParser cuts it when it takes plus, minus and point for parts of
/// numbers and drops blanks, commas and parentheses; on bytes, and without a copy.
class TESSERA_CORE_EXPORT MifItems {
 public:
  /// Items beyond so many are not looked for.
  static constexpr int MaxCount = 7;

  /// Cuts `line`, which must outlive the items. `ordinary` is one more byte that does not end an item.
  void Read(std::string_view line, char ordinary = '.');
  [[nodiscard]] int GetCount() const { return m_count; }
  /// @throws ERangeError beyond the count.
  [[nodiscard]] std::string_view At(int index) const;
  /// @throws ERangeError beyond the count, EConvertError when it is no integer.
  [[nodiscard]] int IntegerAt(int index) const;
  /// @throws ERangeError beyond the count, EConvertError when it is no number.
  [[nodiscard]] double FloatAt(int index, char separator) const;

 private:
  /// Whether there is room for more.
  bool Add(std::string_view item);

  std::array<std::string_view, MaxCount> m_items;
  int m_count = 0;
};

/// The integer, or the number, that the bytes are, as StrToInt and StrToFloat take them. @throws EConvertError
[[nodiscard]] TESSERA_CORE_EXPORT int BytesToInt(std::string_view bytes);
[[nodiscard]] TESSERA_CORE_EXPORT double BytesToFloat(std::string_view bytes, char separator);

}  // namespace tessera::detail
