// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/providers/CustomFormatProvider.h>

namespace tessera {

/// Reads and writes MapInfo's tables, a file .tab with companions, and the interchange format .mif, through the MITAB
/// library (mitab_dyn.h). Where the system has none, the one that is installed with this library is taken, and what
/// that one cannot keep is told in docs/mitab.md. Layers must be on a map to be loaded.
///
/// Every object in the file becomes the nearest one here, with its row of values, its pen, brush, symbol and font:
/// - points become TSymbol, texts TText, lines and arcs TPolyline, areas TRegion, rectangles TRectangle;
/// - an ellipse becomes a TCircle if it is one, and a region otherwise;
/// - a multipoint becomes a symbol for each point and a collection its members, each with the row;
/// - a row without a shape becomes a plain TCustomMapObject.
///
/// The reverse is written, and geodesic circles as regions, sprites as symbols. GetReport tells what got lost.
class TESSERA_CORE_EXPORT TMapInfoFormatProvider : public TCustomFormatProvider {
  Q_OBJECT
  Q_PROPERTY(QString Charset READ GetCharset WRITE SetCharset)

 public:
  using TCustomFormatProvider::TCustomFormatProvider;

  /// The character set of the files that are written, as MapInfo names it, such as WindowsLatin1; when empty, as at
  /// first, the one that Save tells of.
  [[nodiscard]] const QString &GetCharset() const { return m_charset; }
  void SetCharset(const QString &charset) { m_charset = charset; }
  /// Whether MapInfo has a character set of that name, in letters of any case, that can be written.
  [[nodiscard]] static bool IsCharset(const QString &charset);

  /// Whether there is a MITAB library, which is looked for as long as none is bound.
  [[nodiscard]] static bool HasLibrary();

  [[nodiscard]] QString GetDescription() const override;
  [[nodiscard]] QString GetFilter() const override;
  [[nodiscard]] QUuid GetGUID() const override;
  /// Whether the name ends in .mif or .tab, in letters of any case.
  [[nodiscard]] bool CanProcessFile(const QString &fileName) const override;

  /// Appends the objects of the file to the layer, gives it the file's columns, and answers whether the file was read
  /// to its end. Objects are only added when all have been read: as long as progress is shown the layer is as it was,
  /// and a handler that throws cancels. @throws EInOutError without a MITAB library; what handlers throw.
  bool Load(TMapLayer *layer, const QString &fileName) override;
  /// Only one thread at a time uses the library; others wait.
  [[nodiscard]] TFormatRun MakeRun(const QString &fileName) const override;
  /// Writes the layer to the file and its companions, which are replaced all at once, and gives the layer the name. The
  /// projection and the character set are those of the file that the layer was read from, or of the one that is
  /// replaced; without such a file they are longitude and latitude, and WindowsCyrillic.
  /// @throws EInOutError without a MITAB library, and when a file cannot be written; what handlers throw. The old files
  /// stay as they were.
  bool Save(TMapLayer *layer, const QString &fileName) override;

  /// Writes the layer to a temporary folder.
  [[nodiscard]] TFormatReport TrySave(const TMapLayer &layer) const override;

 private:
  QString m_charset;
};

}  // namespace tessera
