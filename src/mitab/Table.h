// SPDX-License-Identifier: MIT
#pragma once

#include "Columns.h"
#include "Feature.h"
#include "PlainObjects.h"
#include "Styles.h"

#include <ogrsf_frmts.h>

#include <memory>
#include <string>

namespace tessera::mitab {

struct TableBounds {
  double west = 0;
  double south = 0;
  double east = 0;
  double north = 0;

  [[nodiscard]] bool IsGiven() const { return west != 0 || south != 0 || east != 0 || north != 0; }
};

/// A file that is open for reading, or that is being made. What fails posts an error.
class Table {
 public:
  /// None when there is no such table.
  [[nodiscard]] static std::unique_ptr<Table> Open(const std::string &fileName);
  /// None when the file cannot be made. It is laid out when the first object is written, or when it is closed.
  [[nodiscard]] static std::unique_ptr<Table> Create(const std::string &fileName, FileKind kind,
                                                     const std::string &coordSys, const TableBounds &bounds);
  /// Lays out a file that has not been yet, and writes what is left.
  ~Table();
  Table(const Table &) = delete;
  Table &operator=(const Table &) = delete;

  [[nodiscard]] const std::shared_ptr<const Columns> &GetColumns() const { return m_columns; }
  /// Empty when the table does not tell.
  [[nodiscard]] const std::string &GetCoordSys() const { return m_coordSys; }

  [[nodiscard]] int GetCount();
  /// The id of the object that follows on the one with that id, -1 begins; -1 at the end, and where the file cannot be
  /// read any further, with an error.
  [[nodiscard]] int NextId(int lastId);
  [[nodiscard]] std::unique_ptr<Feature> Read(int id);
  // The same for objects that need no GDAL: 0 and null for others.
  [[nodiscard]] int NextPlainId(int lastId);
  [[nodiscard]] std::unique_ptr<Feature> ReadPlain(int id);

  // Of a file that is being made, before the first object. False, and nothing is changed, elsewhere.

  [[nodiscard]] bool SetCharset(const std::string &charset);
  [[nodiscard]] bool SetQuickIndex();
  [[nodiscard]] bool Add(Column column);

  [[nodiscard]] bool Write(const Feature &feature);

 private:
  explicit Table(std::string fileName) : m_fileName(std::move(fileName)) {}
  [[nodiscard]] bool IsBeingDefined() const { return m_isNew && m_layer == nullptr; }
  bool LayOut();
  void FillColumns(const Columns &told);
  OGRFeatureUniquePtr Fetch(int id);
  void GoBehind(int id);
  [[nodiscard]] int IdOf(const OGRFeature &row);

  std::string m_fileName;
  GDALDatasetUniquePtr m_dataset;
  OGRLayer *m_layer = nullptr;  ///< None as long as a new file has not been laid out.
  std::shared_ptr<const Columns> m_columns = std::make_shared<Columns>();
  std::string m_charset = "Neutral";
  std::string m_coordSys;
  StyleReader m_styles;
  OGRFeatureUniquePtr m_next;  ///< Read already, to know its id.
  int m_position = -1;         ///< The id up to which the layer has been read.
  std::unique_ptr<PlainObjects> m_plain;
  bool m_isCounted = false;  ///< Ids are those of the order, since OGR's own are too large.
  bool m_isNew = false;
  bool m_isQuick = false;
  FileKind m_kind = FileKind::Tab;
  TableBounds m_bounds;
};

}  // namespace tessera::mitab
