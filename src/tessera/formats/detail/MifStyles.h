// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/formats/TObjectAttribute.h>
#include <tessera/formats/detail/MifItems.h>
#include <tessera/objects/TCustomMapObject.h>

#include <string>
#include <string_view>
#include <vector>

namespace tessera::detail {

/// The attribute of a line by the keywords that occur in it, be it within other words: of several, the last in the
/// order of TObjectAttribute.
[[nodiscard]] TESSERA_CORE_EXPORT TObjectAttribute ClassifyClause(std::string_view line);

/// A MIF colour is 65536 * red + 256 * green + blue.
[[nodiscard]] TESSERA_CORE_EXPORT TColor ColorFromMif(int mifColor);
[[nodiscard]] TESSERA_CORE_EXPORT int ColorToMif(TColor color);

/// The numbers of the MIF pattern, and of the font style, that are written for a style.
[[nodiscard]] int FillPattern(TBrushStyle style);
[[nodiscard]] int LinePattern(TPenStyle style);
[[nodiscard]] int FontStyleNumber(TFontStyles style);

/// Applies the clauses after an object's geometry to it. A file has few different clauses and many of each, so objects
/// with the same share one style, and a clause that was seen lately is not read again.
class MifStyles {
 public:
  MifStyles();

  /// Applies `line` to `object` if it is a clause, and answers whether it is. Widths and patterns are not read.
  /// @throws ERangeError, EConvertError when a clause lacks a value or has a bad one.
  bool Apply(std::string_view line, TCustomMapObject &object);
  /// The parts of the clauses that were not read though they say something that objects do not have by themselves.
  [[nodiscard]] QStringList GetLosses() const;

 private:
  struct Known {
    std::string line;  // empty in a free place
    TObjectStylePtr before;
    TObjectStylePtr after;
    int shape = NoShapeGiven;
  };
  static constexpr int NoShapeGiven = -1;

  /// The clause, if it is kept; `home` is its place.
  [[nodiscard]] const Known *Find(std::string_view line, const TObjectStyle *before, std::size_t home) const;
  void Keep(Known clause, std::size_t home);
  [[nodiscard]] Known Read(TObjectAttribute attribute, std::string_view line, const TObjectStylePtr &before);

  /// Whether item `index` of the clause is something else than `number`; one that is not there is not.
  [[nodiscard]] bool Differs(int index, int number) const;

  std::vector<Known> m_known;
  bool m_hasLostPens = false;
  bool m_hasLostBrushes = false;
  bool m_hasLostSymbols = false;
  bool m_hasLostCenters = false;
  MifItems m_items;
};

}  // namespace tessera::detail
