// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/data/TDataFields.h>

#include <QLocale>
#include <QVariant>

namespace tessera::detail {

/// What a cell needs to know of its column.
struct CellColumn {
  int field = 0;  ///< its number among the columns of the layer
  QString name;
  TDataType type = TDataType::dtString;
  int size = 0;  ///< of a text, in characters

  bool operator==(const CellColumn &) const = default;
};

/// The smallest and the largest number that a column of whole numbers holds.
struct IntegerRange {
  int low;
  int high;
};

[[nodiscard]] bool IsInteger(TDataType type);
/// @pre IsInteger(type)
[[nodiscard]] IntegerRange RangeOf(TDataType type);
[[nodiscard]] bool IsNumber(TDataType type);

/// A value as the Qt type that fits the column: int, double, bool, QDate, QTime, QDateTime or QString; invalid when
/// unassigned. What does not fit the column's type is a QString.
[[nodiscard]] QVariant CellToVariant(const TDataValue &value, TDataType type);
/// What cells of one column are ordered by: numbers, or texts in a column of texts; invalid for what is neither.
[[nodiscard]] QVariant CellToSortKey(const TDataValue &value, TDataType type);
/// A value for other programs, whatever the locale: numbers with a point and all digits, dates as 2024-05-31, times as
/// 09:05:30.
[[nodiscard]] QString CellToNeutralText(const TDataValue &value, TDataType type);

/// What came of an input.
struct ParsedCell {
  TDataValue value;
  QString refusal;  ///< why it is no value of the column; empty when it is one
};

/// Reads an input for a column: the Qt type that fits it, or a text in the format of a locale. Dates are read in its
/// short format with the year in four digits, and as 2024-05-31. Nothing, and a blank text but in a column of texts, is
/// unassigned.
[[nodiscard]] ParsedCell ParseCell(const CellColumn &column, const QVariant &input, const QLocale &locale = QLocale());

/// "Char(20)", "Float", …; also for the columns that have no name of their type.
[[nodiscard]] QString TypeNameOf(const CellColumn &column);

}  // namespace tessera::detail
