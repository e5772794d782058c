// SPDX-License-Identifier: MIT
#pragma once

/// An exported function of the library.
#define MITAB_API extern "C" __attribute__((visibility("default")))

namespace tessera::mitab {

/// Kinds of objects, by the numbers of the interface.
enum class Kind {
  NoGeometry,
  Point,
  FontPoint,
  CustomPoint,
  Text,
  Polyline,
  Arc,
  Region,
  Rectangle,
  Ellipse,
  MultiPoint,
  Collection,
};
inline constexpr int KindCount = 12;

/// Types of columns, by the numbers of the interface.
enum class ColumnType { None, Char, Integer, SmallInt, Decimal, Float, Date, Logical, Time, DateTime };
inline constexpr int LastColumnType = int(ColumnType::DateTime);

enum class Justification { Left, Center, Right };

/// What kinds of files there are.
enum class FileKind { Tab, Mif };

}  // namespace tessera::mitab
