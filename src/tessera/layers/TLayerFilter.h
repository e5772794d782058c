// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/TMapLayer.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tessera {

/// Finds the objects of a layer for whose attributes an expression holds, such as `Population > 1e6 AND Name LIKE
/// 'B%'`.
///
/// Expressions are those of SQLite (sqlite.org/lang_expr.html) with its functions; `rowid` is the object's id. A column
/// stands under its name, in any script, in double quotes where that is no plain word; of several with one name the
/// last. Text columns are texts, numbers numbers (where a value is none, texts), logical values 0 and 1, dates and
/// times texts as in '2024-05-31 18:00:00', and what is unassigned is NULL. LIKE knows upper and lower case of ASCII
/// letters only. Nothing is copied, and nothing but the layer can be read; an expression cannot change anything.
///
/// It is compiled once, for the columns that the layer then has. The layer may be destroyed before the filter.
class TESSERA_CORE_EXPORT TLayerFilter {
 public:
  TLayerFilter(TMapLayer &layer, const QString &expression);
  ~TLayerFilter();
  TLayerFilter(const TLayerFilter &) = delete;
  TLayerFilter &operator=(const TLayerFilter &) = delete;

  /// What is wrong with the expression, or went wrong in the last Find; empty when all is well.
  [[nodiscard]] const QString &GetError() const { return m_error; }
  /// Where in the expression that is, in characters from 0; -1 where that is not known.
  [[nodiscard]] int GetErrorPlace() const { return m_errorPlace; }

  /// The ids of the objects found, ascending; none where there is an error, or `isCancelled` has said yes. It is asked
  /// from time to time, and may do anything but use this filter; what it throws goes on. Cost: linear in the objects,
  /// and in the columns in front of those that the expression names.
  [[nodiscard]] std::optional<std::vector<int>> Find(const std::function<bool()> &isCancelled = {});

 private:
  class Database;
  void NoteError(const QString &words, int place);

  THandle<TMapLayer> m_layer;
  std::unique_ptr<Database> m_database;
  QString m_error;
  int m_errorPlace = -1;
  bool m_isCompiled = false;
};

}  // namespace tessera
