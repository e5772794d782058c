// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/formats/detail/MitabText.h>
#include <tessera/formats/mitab_dyn.h>
#include <tessera/objects/TMapHost.h>
#include <tessera/providers/TFormatReport.h>

#include <array>
#include <map>
#include <string>

namespace tessera::detail {

/// Reads the drawing tools of objects. Objects with the same tools share one style.
class MitabStyleReader {
 public:
  /// What is given must outlive the reader.
  MitabStyleReader(const TMapHost &map, MitabText &text) : m_map(map), m_text(text) {}

  [[nodiscard]] TObjectStylePtr StyleOf(mitab_feature feature);
  /// What the styles given so far do not have of those in the file.
  void ReportLosses(TFormatReport &report) const;

 private:
  /// All that a style depends on.
  struct Look {
    int kind = TABFC_NoGeom;
    std::array<int, 3> pen{};
    std::array<int, 4> brush{};
    std::array<int, 2> font{};
    int back = 0;
    std::string fontName;
    // NOLINTNEXTLINE(modernize-use-nullptr): it takes the comparison with zero within for one of pointers
    auto operator<=>(const Look &) const = default;
  };
  static Look LookOf(mitab_feature feature);
  TObjectStylePtr MakeStyle(const Look &look);
  void ReadPen(const Look &look, TPen &pen);
  void ReadBrush(const Look &look, TObjectStyle &style);
  void ReadFont(const Look &look, TObjectStyle &style);

  const TMapHost &m_map;
  MitabText &m_text;
  std::map<Look, TObjectStylePtr> m_styles;
  bool m_hasOtherPens = false;
  bool m_hasOtherBrushes = false;
  bool m_hasPictures = false;
};

/// Gives objects of the library their drawing tools.
class MitabStyleWriter {
 public:
  /// `text` must outlive the writer.
  explicit MitabStyleWriter(MitabText &text) : m_text(text) {}

  void WritePen(const TObjectStyle &style, mitab_feature feature);
  void WriteBrush(const TObjectStyle &style, mitab_feature feature);
  void WriteSymbol(const TObjectStyle &style, int shape, mitab_feature feature);
  void WriteFontName(const TObjectStyle &style, mitab_feature feature);
  void ReportLosses(TFormatReport &report) const;

 private:
  MitabText &m_text;
  qint64 m_changedPens = 0;
  qint64 m_changedSymbols = 0;
  qint64 m_bitmaps = 0;
  qint64 m_fontStyles = 0;
};

/// How wide the letters of a text are, compared with their height, in a font of any size; 0 without letters.
[[nodiscard]] double LettersWidthToHeight(TCanvas &canvas, const TFont &font, const QString &text);

/// Whether a symbol in this font is one of MapInfo's own, and not a character of a font.
[[nodiscard]] bool IsMapInfoSymbolFont(const QString &name);

}  // namespace tessera::detail
