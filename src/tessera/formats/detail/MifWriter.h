// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/detail/ByteOutput.h>
#include <tessera/objects/TCustomMapObject.h>
#include <tessera/providers/TFormatReport.h>

#include <string>
#include <string_view>
#include <vector>

namespace tessera {

class TMapLayer;
class TPolyline;
class TRectangle;
class TRegion;
class TSymbol;
class TText;

namespace detail {

/// Writes the objects of a layer to a MIF file and their values to its data file. Lines end as the format's home
/// platform ends them, in carriage return and line feed.
///
/// The header and its oddities are intended to the last character: a Float column loses its name, a date column is the
/// word Date alone, a boolean column is counted but has no line, and the small integers miss a letter.
class TESSERA_CORE_EXPORT MifWriter {
 public:
  /// What is given must outlive the writer.
  MifWriter(const TMapLayer &layer, ByteOutput &mif, ByteOutput &mid, TFormatReport &report);

  /// @throws EInOutError, ERangeError when an object has fewer columns than the layer.
  void Write();

 private:
  friend struct KindWriters;

  void WriteHeader();
  void WriteColumn(const TDataFieldView &column);
  void WriteValues(const TCustomMapObject &object);
  void WriteGeometry(const TCustomMapObject &object);
  void WriteRegion(const TRegion &region);
  void WritePline(const TPolyline &line);
  void WriteRectangle(const TRectangle &rectangle);
  void WriteText(const TText &text);
  void WritePoint(const TSymbol &symbol);
  void WritePen(const TObjectStyle &style);
  void WriteBrush(const TObjectStyle &style);
  void WriteVertices(std::span<const TMapPoint> vertices);
  /// The map point across the text as it would be drawn with the font that the map's canvas has just now, which is
  /// intended: to the right of the anchor and below it. Of a text without a map, that of its own box.
  [[nodiscard]] TMapPoint FarCornerOf(const TText &text) const;
  /// "x y" at `out`; answers its end.
  char *PutPoint(char *out, const TMapPoint &point);
  /// The point and the line end.
  char *PutVertex(char *out, const TMapPoint &vertex);
  void AddNumber(int number);
  void AddText(QStringView text);
  /// Writes the line put together so far.
  void EndLine();
  void FinishReport();

  const TMapLayer &m_layer;
  ByteOutput &m_mif;
  ByteOutput &m_mid;
  TFormatReport &m_report;
  char m_separator;
  std::string m_line;
  std::string m_bytes;
  std::string m_values;
  std::vector<qint64> m_counts;  // of objects by kind; last of those of no kind that has a shape in the format
  // What was lost.
  qint64 m_unknownCharacters = 0;
  qint64 m_brokenValues = 0;
  qint64 m_droppedParts = 0;
  qint64 m_brokenTexts = 0;
  qint64 m_badCoordinates = 0;
  qint64 m_strayColumns = 0;
  qint64 m_plainRegions = 0;
  qint64 m_turnedTexts = 0;
};

}  // namespace detail
}  // namespace tessera
