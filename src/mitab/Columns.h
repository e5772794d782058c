// SPDX-License-Identifier: MIT
#pragma once

#include "Constants.h"

#include <ogr_feature.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tessera::mitab {

struct Column {
  std::string name;
  ColumnType type = ColumnType::None;
  int width = 0;
  int precision = 0;
  bool isIndexed = false;
  bool isUnique = false;
};
using Columns = std::vector<Column>;

/// A column as OGR has it, which does not tell small integers and logical values from integers and texts.
[[nodiscard]] Column ColumnOf(const OGRFieldDefn &definition);

/// The column for OGR to create. Small integers become integers, and logical values texts of one letter.
[[nodiscard]] std::unique_ptr<OGRFieldDefn> DefinitionOf(const Column &column);

/// The value in the forms of the interface: Decimal padded to its width, dates as YYYYMMDD, times as HHMMSSmmm; numbers
/// that are not set are 0, other values are empty.
[[nodiscard]] std::string ValueText(const OGRFeature &row, int field, const Column &column);

/// A number as ValueText gives it, in a column of decimals or floats.
[[nodiscard]] std::string NumberText(double value, const Column &column);

/// Sets a value given in one of the forms of the interface; dates may also stand with slashes. Integers
/// wrap; what is longer than its column is cut when it is written. False for a date that is none.
[[nodiscard]] bool SetValue(OGRFeature &row, int field, const Column &column, std::string_view text);

}  // namespace tessera::mitab
