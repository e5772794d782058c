// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/editing/TMapEdits.h>

#include <QVariant>

namespace tessera::detail {

enum class RowKind { Text, Number, WholeNumber, Color, Choice };

/// One property of objects, as a row of a panel.
struct ObjectRow {
  using Objects = std::span<TCustomMapObject *const>;
  /// What gives an object the new value.
  using Change = std::function<void(TCustomMapObject &object)>;

  QString name;
  RowKind kind = RowKind::Text;
  QStringList choices;     ///< of a Choice, whose values are their numbers
  TObjectAspects aspects;  ///< that a change touches
  /// The value: a QString, double, int or QColor; invalid where there is none.
  std::function<QVariant(const TCustomMapObject &object)> get;
  /// The change of objects to a value, or to a text that stands for one; none for what is no value, or none that all of
  /// them can take. None at all for a property that cannot be changed. Objects that shared their tools share them
  /// afterwards.
  std::function<Change(const QVariant &input, Objects objects)> changeTo;
};

/// What all of these objects have, with the columns of their layer if that is the same. Texts that stand for numbers
/// and dates are in the format of the locale.
[[nodiscard]] std::vector<ObjectRow> RowsOf(ObjectRow::Objects objects, const QLocale &locale);

}  // namespace tessera::detail
