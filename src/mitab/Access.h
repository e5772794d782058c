// SPDX-License-Identifier: MIT
#pragma once

#include "Feature.h"
#include "Table.h"

namespace tessera::mitab {

/// What a caller's handle stands for; null stays null.
[[nodiscard]] inline Table *TableOf(void *handle) {
  return static_cast<Table *>(handle);
}
[[nodiscard]] inline Feature *FeatureOf(void *feature) {
  return static_cast<Feature *>(feature);
}
[[nodiscard]] inline std::string TextOf(const char *text) {
  return text == nullptr ? std::string() : std::string(text);
}

/// The part with that number; none when there is none.
[[nodiscard]] inline const Part *PartAt(const Feature *feature, int part) {
  if (feature == nullptr || part < 0 || std::size_t(part) >= feature->parts.size()) return nullptr;
  return &feature->parts[std::size_t(part)];
}

/// Copies a text into a caller's buffer of `size` bytes, always with an end; answers the length of what was copied.
int CopyText(const std::string &text, char *buffer, int size);

}  // namespace tessera::mitab
