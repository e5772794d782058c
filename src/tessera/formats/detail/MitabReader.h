// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/THandle.h>
#include <tessera/formats/detail/MitabColumns.h>
#include <tessera/formats/detail/MitabLibrary.h>
#include <tessera/formats/detail/MitabStyles.h>
#include <tessera/objects/TCustomMapObject.h>
#include <tessera/providers/TFormatReport.h>

#include <array>
#include <memory>
#include <vector>

namespace tessera {

class TMapLayer;

namespace detail {

/// Reads the objects of a file into a layer: first all of them, and then, when nothing has come in between, into the
/// layer.
class MitabReader {
 public:
  /// What is given must outlive the reader. @pre the layer is on a map
  MitabReader(TMapLayer &layer, mitab_handle file, MitabText &text, TFormatReport &report);

  /// Reads the file to its end, or to where it is damaged, which the report tells. Progress events are sent; what their
  /// handlers throw goes on, and the layer is as it was. @throws EInOutError when a handler has deleted the layer.
  void Read();
  /// Gives the layer the columns and the objects. @throws EInOutError when a handler has deleted the layer.
  void Deliver();

 private:
  friend struct MitabKindReaders;
  static constexpr std::size_t KindCount = TABFC_Collection + 1;

  /// Reads the next object; false at the end.
  bool ReadNext(int &id);
  void ReadObject(mitab_feature feature);
  [[nodiscard]] static std::size_t KindOf(mitab_feature feature);
  void ReadShape(mitab_feature feature);
  void ReadPlace(mitab_feature feature);
  void ReadPoints(mitab_feature feature);
  void ReadText(mitab_feature feature);
  void ReadLine(mitab_feature feature);
  void ReadRegion(mitab_feature feature);
  void ReadRectangle(mitab_feature feature);
  void ReadEllipse(mitab_feature feature);
  void ReadMembers(mitab_feature feature);
  void AddSymbol(const TMapPoint &place, mitab_feature feature);
  template <class Kind>
  Kind &Add(mitab_feature feature);
  /// An object that has been read, and what it gets once it is in the layer.
  struct Staged {
    std::unique_ptr<TCustomMapObject> object;
    TObjectStylePtr style;
    std::size_t row = 0;  ///< Where its values begin among those of all objects.
    std::size_t rowSize = 0;
  };
  void DeliverObject(Staged &staged);
  void CheckEnd();
  void CheckLayer() const;
  void FinishReport();

  TMapLayer &m_layer;
  THandle<TMapLayer> m_watchedLayer;
  TMapHost &m_map;
  mitab_handle m_file;
  TFormatReport &m_report;
  bool m_knowsTextWidths;
  MitabColumnReader m_columns;
  MitabStyleReader m_styles;
  std::vector<Staged> m_objects;
  std::vector<char> m_values;
  std::array<qint64, KindCount> m_counts{};
  qint64 m_unreadable = 0;
  qint64 m_roundRectangles = 0;
  qint64 m_ellipses = 0;  // that are no circles
  qint64 m_justified = 0;
  qint64 m_spaced = 0;
  qint64 m_labelLines = 0;
};

}  // namespace detail
}  // namespace tessera
