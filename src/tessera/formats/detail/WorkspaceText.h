// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TMapPoint.h>
#include <tessera/formats/TWorkspaceReport.h>
#include <tessera/graphics/TBrush.h>
#include <tessera/graphics/TFont.h>
#include <tessera/graphics/TPen.h>

#include <map>
#include <optional>

namespace tessera::detail {

/// A table that a workspace opens: the file's path without ending, and the name that the workspace calls it by.
struct WorkspaceTable {
  QString name;
  QString alias;
};

/// How a workspace shows a layer.
enum class WorkspaceDisplay { Usual, Off, Global };

/// The commands of a MapInfo workspace, as far as maps understand them. Keywords are found wherever they stand, in any
/// letter case. A layer's number counts from the top, which is 1.
///
/// Settings of a layer are the first of their kind behind "layer" and its number, behind the first "set map"; where a
/// layer has none the next layer's count, which is intended.
class TESSERA_CORE_EXPORT WorkspaceText {
 public:
  /// Of the file's bytes, whose character set they tell themselves; windows-1252 when they do not.
  explicit WorkspaceText(const QByteArray &bytes);

  /// The tables that the map shows, the top one first; all that are opened, in order, when it does not say.
  [[nodiscard]] std::vector<WorkspaceTable> Tables() const;
  /// The number of the editable layer; none when no layer is. @throws EConvertError for what is no number.
  [[nodiscard]] std::optional<int> EditableLayer() const;
  /// @throws EConvertError for what are no numbers.
  [[nodiscard]] std::optional<TMapPoint> Center() const;

  [[nodiscard]] WorkspaceDisplay DisplayOf(int layer) const;
  [[nodiscard]] bool IsAutoLabelled(int layer) const;
  /// The clauses of a layer's own style; none when there is none.
  [[nodiscard]] std::optional<TBrush> BrushOf(int layer) const;
  [[nodiscard]] std::optional<TPen> PenOf(int layer) const;
  [[nodiscard]] std::optional<TFont> FontOf(int layer) const;

  /// Sorts the statements by whether anything here asks for them.
  void ListStatements(TWorkspaceReport &report) const;

 private:
  /// Places of a keyword in the text, ascending.
  using Places = std::vector<qsizetype>;

  [[nodiscard]] const Places &PlacesOf(const QString &keyword) const;
  /// The end of the first `keyword` from a place on; -1 without one.
  [[nodiscard]] qsizetype EndAfter(const QString &keyword, qsizetype from) const;
  /// The end of "layer" and the number; -1 where the workspace does not have that.
  [[nodiscard]] qsizetype EndOfLayer(int layer) const;
  [[nodiscard]] QString WordAfter(const QString &keyword, int layer) const;
  /// What stands in the parentheses behind a keyword.
  [[nodiscard]] std::optional<QString> ArgumentsAfter(const QString &keyword, qsizetype from) const;
  [[nodiscard]] std::optional<std::vector<int>> NumbersOf(const QString &clause, int layer) const;
  [[nodiscard]] std::vector<WorkspaceTable> OpenedTables() const;
  [[nodiscard]] QStringList ShownAliases() const;

  QString m_text;
  QString m_lower;
  mutable std::map<QString, Places> m_places;
  mutable std::map<int, qsizetype> m_layers;  // number -> end, once they were looked for
};

}  // namespace tessera::detail
