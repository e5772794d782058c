// SPDX-License-Identifier: MIT
#pragma once

#include "Feature.h"

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tessera::mitab {

/// Understands the style texts of OGR, each of them once: the objects of a file have few.
class StyleReader {
 public:
  /// Takes pen, brush, symbol, font and label from the text, as far as objects of the kind have them, and makes a point
  /// the kind of point that it tells of. A label gets what OGR tells of its box, the height.
  void Read(std::string_view text, Feature &feature);

 private:
  struct Known {
    Kind kind;
    Style style;
  };
  struct Hash : std::hash<std::string_view> {
    using is_transparent = void;
  };
  using Texts = std::unordered_map<std::string, Known, Hash, std::equal_to<>>;

  std::array<Texts, KindCount> m_known;  // by the kind of the object
};

/// Takes the height of a turned text, which OGR has given as that of the upright box around it, and the place that it
/// has worked out from that, as it does for .mif files, for what they are. @pre the object is a text
void StraightenLabel(Feature &feature);

/// The style text by which OGR writes the object; empty for one without a look.
[[nodiscard]] std::string StyleOf(const Feature &feature);

/// The width of a pen that OGR writes for the one that is wanted: whole points from 11 on, and up to 7 pixels below.
[[nodiscard]] int WritablePenWidth(int width);

}  // namespace tessera::mitab
