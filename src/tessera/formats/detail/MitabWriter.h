// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/formats/detail/MitabColumns.h>
#include <tessera/formats/detail/MitabLibrary.h>
#include <tessera/formats/detail/MitabStyles.h>
#include <tessera/providers/TFormatReport.h>

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace tessera {

class TCircle;
class TMapLayer;
class TPolyline;
class TRectangle;
class TRegion;
class TSymbol;
class TText;

namespace detail {

/// What a new file is made with.
struct MitabTarget {
  QString fileName;  ///< Ends in .tab or .mif, which says what is written.
  QByteArray coordSys;
  QByteArray charset;
};

/// Writes the objects of a layer and their values to a new file.
class MitabWriter {
 public:
  /// What is given must outlive the writer.
  MitabWriter(const TMapLayer &layer, const MitabTarget &target, TFormatReport &report);

  /// Calls `showProgress` with the number of objects written, now and then; what it throws goes on, and the file is not
  /// to be used. @throws EInOutError when the library cannot write it.
  void Write(const std::function<void(int)> &showProgress);

 private:
  friend struct MitabKindWriters;

  [[nodiscard]] MitabFile Create();
  void WriteObject(const TCustomMapObject &object);
  /// Makes the library's object; none when nothing of its shape can be written.
  [[nodiscard]] MitabFeature Make(const TCustomMapObject &object);
  MitabFeature MakeRegion(const TCustomMapObject &region);
  MitabFeature MakeLine(const TCustomMapObject &line);
  MitabFeature MakeRectangle(const TCustomMapObject &rectangle);
  MitabFeature MakeCircle(const TCustomMapObject &object);
  MitabFeature MakeText(const TCustomMapObject &object);
  MitabFeature MakeSymbol(const TCustomMapObject &object);
  MitabFeature MakePlace(const TCustomMapObject &object);
  [[nodiscard]] MitabFeature New(int kind);
  void SetPart(mitab_feature feature, int part, std::span<const TMapPoint> points, std::size_t leastPoints);
  void SetPlace(mitab_feature feature, const TMapPoint &place);
  /// Whether a text will have its box again when it is read.
  [[nodiscard]] bool KeepsBox(const TText &text, mitab_feature feature) const;
  void FinishReport();

  const TMapLayer &m_layer;
  const MitabTarget &m_target;
  TFormatReport &m_report;
  MitabText m_text;
  MitabColumnWriter m_columns;
  MitabStyleWriter m_styles;
  mitab_handle m_file = nullptr;
  bool m_hasBadCoordinates = false;  // in the object that is being written
  std::vector<double> m_x;
  std::vector<double> m_y;
  std::vector<qint64> m_counts;
  // What was lost.
  qint64 m_badShapes = 0;
  qint64 m_changedBoxes = 0;
  qint64 m_plainRegions = 0;
  qint64 m_frozenTexts = 0;
};

}  // namespace detail
}  // namespace tessera
