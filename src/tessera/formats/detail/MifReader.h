// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/THandle.h>
#include <tessera/formats/detail/MidReader.h>
#include <tessera/formats/detail/MifScanner.h>
#include <tessera/formats/detail/MifStyles.h>
#include <tessera/providers/TFormatReport.h>

#include <map>
#include <string>
#include <vector>

namespace tessera {

class TMapHost;
class TMapLayer;

namespace detail {

/// Reads the objects of a MIF file into a layer.
///
/// A line is understood by the keywords that occur in it, wherever that is. A line without any is passed over. The last
/// line of the file is never looked at; an object there is not read, which is intended.
///
/// Of long files vertices and values further on are read in other threads, where there are cores for that. Layer,
/// objects and report are touched in the caller's alone.
class TESSERA_CORE_EXPORT MifReader {
 public:
  /// What is given must outlive the reader; there may be no data file. @pre the layer is on a map.
  MifReader(TMapLayer &layer, ByteSource &mif, ByteSource *mid, TFormatReport &report,
            const LookAheadLimits &limits = LookAheadLimits::OfMachine());

  /// Reads to the end, or to the first thing that cannot be understood; the objects up to there stay in the layer.
  /// @throws EConvertError, ERangeError; EInOutError when a file cannot be read to its end
  void Read();
  /// Enters into the report what was read and passed over. To be called once, after Read, even when it threw.
  void FinishReport();
  /// The line that was read last.
  [[nodiscard]] int GetLine() { return m_mif.GetLine(); }
  /// The position in a file of that size as progress events give it: in bytes, or a unit that fits the size into 31
  /// bits.
  [[nodiscard]] static int ProgressPosition(qint64 position, qint64 size);

 private:
  friend struct KindReaders;

  void ShowProgress();
  /// Reads what the line begins, and answers the line after it.
  std::string_view ReadLine(std::string_view line);
  void ReadColumns(std::string_view countText);
  // The geometry of an object that `line` begins; `rest` is what follows the keyword.
  void ReadRegion(TCustomMapObject &object, std::string_view line, std::string_view rest);
  void ReadPline(TCustomMapObject &object, std::string_view line, std::string_view rest);
  void ReadPoint(TCustomMapObject &object, std::string_view line, std::string_view rest);
  /// Adds a part and reads so many vertices into it, as far as the file reaches.
  void ReadPart(TParts &parts, int count);
  TCustomMapObject &NewObject(std::size_t kind);
  std::string_view ReadClauses(TCustomMapObject &object);
  void Skip(std::string_view line);
  void WarnInLine(const QString &words);
  /// @throws EInOutError when a handler of an event has deleted the layer.
  void CheckLayer() const;
  void ReportLosses();

  TMapLayer &m_layer;
  THandle<TMapLayer> m_watchedLayer;
  TMapHost &m_map;
  MifScanner m_mif;
  MidReader m_mid;
  MifStyles m_styles;
  MifItems m_items;
  TFormatReport &m_report;
  qint64 m_nextProgress = 0;
  qint64 m_size;
  /// Parts without points take memory and nearly nothing of the file, so that they must not be many.
  qint64 m_emptyPartsLeft;
  // The line after an object is a plain point, and that is it.
  TMapPoint m_plainPoint{};
  bool m_nextIsPlainPoint = false;
  std::vector<qint64> m_counts;  // of objects by kind
  std::string m_headerLine;
  /// Lines that were passed over and that a save would not write again, by their first word.
  std::map<std::string, qint64, std::less<>> m_skipped;
};

}  // namespace detail
}  // namespace tessera
