// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/data/TDataFields.h>
#include <tessera/data/detail/ValueRecordIO.h>
#include <tessera/formats/detail/MitabText.h>
#include <tessera/formats/mitab_dyn.h>
#include <tessera/providers/TFormatReport.h>

#include <vector>

namespace tessera {

class TMapLayer;

namespace detail {

/// Reads the columns of a file and the values of its objects.
class MitabColumnReader {
 public:
  /// `text` must outlive the reader.
  MitabColumnReader(mitab_handle file, MitabText &text);

  /// A text of the file.
  [[nodiscard]] QString TextOf(const char *bytes) { return m_text.Decode(bytes); }
  /// Makes the columns those of the file.
  void PutColumns(TDataFields &fields) const;
  /// The values of an object, packed; valid until the next call. Dates and times that are not set are unassigned; the
  /// format has no unassigned numbers.
  [[nodiscard]] std::string_view ReadValues(mitab_feature feature);

 private:
  struct Column {
    QString name;
    TDataType type;
    int size;
  };
  void ReadValue(mitab_feature feature, int index, TDataType type);

  MitabText &m_text;
  std::vector<Column> m_columns;
  ValueRecordWriter m_record;
};

/// Writes the columns of a layer to a new file, and the values of its objects.
class MitabColumnWriter {
 public:
  /// What is given must outlive the writer. The layer must have the columns of its objects. A MIF file keeps no line
  /// ends in values.
  MitabColumnWriter(const TMapLayer &layer, MitabText &text, bool isMif)
      : m_layer(layer), m_text(text), m_isMif(isMif) {}

  /// @throws EInOutError when the library takes one of them not.
  void WriteColumns(mitab_handle file);
  void WriteValues(const TDataFields &values, mitab_feature feature);
  void ReportLosses(TFormatReport &report) const;

 private:
  struct Column {
    int type;
    int width;
    int precision;
  };
  [[nodiscard]] Column ColumnFor(int index) const;
  [[nodiscard]] QByteArray NameFor(const QString &name, int index);
  [[nodiscard]] QByteArray TextOf(const Column &column, const TDataFieldView &field, const TDataValue &value);

  const TMapLayer &m_layer;
  MitabText &m_text;
  bool m_isMif;
  std::vector<Column> m_columns;
  std::vector<QByteArray> m_names;
  // What was lost.
  qint64 m_changedNames = 0;
  qint64 m_changedTypes = 0;
  qint64 m_brokenValues = 0;
  qint64 m_cutTexts = 0;
  qint64 m_brokenLines = 0;
  qint64 m_unassigned = 0;
};

}  // namespace detail
}  // namespace tessera
