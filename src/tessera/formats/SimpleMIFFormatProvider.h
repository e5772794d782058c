// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/formats/TObjectAttribute.h>
#include <tessera/providers/CustomFormatProvider.h>

namespace tessera {

/// Reads and writes the MapInfo interchange format without help: a text file .mif with a header and the shapes, and
/// beside it a text file .mid with a line of values for each shape. Both are windows-1251, and their numbers have the
/// decimal separator of the process. Layers must be on a map to be loaded.
///
/// Of the format it knows
/// - the header's delimiter and columns: a Char column becomes a text of size 0; Logical and Time become
///   Float, DateTime becomes Date; widths are not kept, and only texts, Float, Decimal and Integer get values;
/// - Region, Pline and Point, with the colours of their Pen, Brush and Symbol clauses, and a symbol's shape, font and
///   size. A Pline Multiple is read with the count of its first section for all of them, and the counts of the further
///   ones as X of a vertex, so that only the first section is read as it is meant;
/// - nothing else: other shapes are passed over, though not their lines of values, so that from there on values belong
///   to other shapes. Coordinates are taken as they stand, whatever CoordSys says.
///
/// A line counts by the keywords in it, wherever they are: a text "MEETING POINT" begins a point. The last line of the
/// file is never looked at. All of that is intended; GetReport tells what a run passed over.
class TESSERA_CORE_EXPORT TSimpleMIFFormatProvider : public TCustomFormatProvider {
  Q_OBJECT

 public:
  using TCustomFormatProvider::TCustomFormatProvider;

  [[nodiscard]] QString GetDescription() const override;
  [[nodiscard]] QString GetFilter() const override;
  [[nodiscard]] QUuid GetGUID() const override;
  /// Whether the name ends in .mif, in letters of any case.
  [[nodiscard]] bool CanProcessFile(const QString &fileName) const override;

  /// Reads the pair of files into the layer; always answers false. Without such a file, without a layer or a layer's
  /// map nothing happens; without the data file the objects get no values. At the first thing that cannot be understood
  /// reading stops with a message to the user, and what was read stays. Time and memory are linear in the sizes of the
  /// files, whatever they hold.
  bool Load(TMapLayer *layer, const QString &fileName) override;
  [[nodiscard]] TFormatRun MakeRun(const QString &fileName) const override;
  /// Writes the layer to the pair of files, gives the layer the name, and always answers false. Both are written under
  /// other names first and replace the old pair in one step when they are complete and on the disk; if the process is
  /// killed meanwhile, the next Load or Save of the pair completes it or takes it back.
  /// @throws EInOutError when a file cannot be written; ERangeError when an object has fewer columns than the layer.
  /// The old pair stays as it was.
  bool Save(TMapLayer *layer, const QString &fileName) override;

  [[nodiscard]] TFormatReport TrySave(const TMapLayer &layer) const override;

  /// The data file of a file .mif: the one beside it with the ending .mid, in letters of whatever case it is there.
  [[nodiscard]] static QString DataFileName(const QString &fileName);
  /// What a line after a shape tells of, by the keywords in it.
  [[nodiscard]] TObjectAttribute IsObjAttrString(const QString &line) const;
};

}  // namespace tessera
