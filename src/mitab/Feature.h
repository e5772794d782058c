// SPDX-License-Identifier: MIT
#pragma once

#include "Columns.h"
#include "Constants.h"
#include "Records.h"

#include <ogr_feature.h>

#include <memory>
#include <string>
#include <vector>

namespace tessera::mitab {

struct Pen {
  int width = 1;  ///< Pixels up to 7; from 11 on 10 + 10 × points.
  int pattern = 2;
  int color = 0;
};

struct Brush {
  int fore = 0;
  int back = 0xffffff;
  int pattern = 1;
  bool isTransparent = false;
};

struct Symbol {
  int number = 35;
  int sizePt = 12;
  int color = 0;
  int customStyle = 0;
  double angleDeg = 0;
};

struct Label {
  std::string text;
  double angleDeg = 0;
  double height = 0;  ///< Of the box.
  int fore = 0;
  int back = 0xffffff;
  bool usesBack = false;
  Justification justification = Justification::Left;
  int spacing = 0;
  int lineType = 0;
};

/// How an object looks, as far as its kind has such tools.
struct Style {
  Pen pen;
  Brush brush;
  Symbol symbol;
  /// Of a text or a font symbol; of a custom symbol the name of its picture.
  std::string font;
};

/// One chain of points: the points of a point kind, a part of a line, or a ring of an area.
struct Part {
  std::vector<OGRRawPoint> points;
  bool isHole = false;
};

/// An object as the interface sees it, with values of its own: it needs no file.
struct Feature {
  Kind kind = Kind::NoGeometry;
  std::vector<Part> parts;
  Style style;
  Label label;

  // The members of a collection.
  std::unique_ptr<Feature> region;
  std::unique_ptr<Feature> polyline;
  std::unique_ptr<Feature> multiPoint;

  std::shared_ptr<const Columns> columns;
  /// The values as they were read by GDAL.
  OGRFeatureUniquePtr row;
  /// The values as they stand in the file, under the id; none in an object that GDAL has read or that is to be written.
  std::shared_ptr<const Records> records;
  int id = 0;
  /// The values as they were set, by column.
  std::vector<std::string> values;
  /// What the last call for a value answered.
  std::string answer;

  [[nodiscard]] bool IsPoint() const;
  [[nodiscard]] bool HasPen() const;
  [[nodiscard]] bool HasBrush() const;
  [[nodiscard]] bool HasSymbol() const;
  [[nodiscard]] bool HasFont() const {
    return kind == Kind::Text || kind == Kind::FontPoint || kind == Kind::CustomPoint;
  }
  /// A copy without values, for a collection to own.
  [[nodiscard]] std::unique_ptr<Feature> CopyShape() const;
};

/// A new object of a kind, as the interface begins it.
[[nodiscard]] std::unique_ptr<Feature> MakeFeature(Kind kind, std::shared_ptr<const Columns> columns);

/// The width of the box of a text, which OGR neither tells nor takes: that of its letters on an average.
[[nodiscard]] double TextWidth(const Label &label);
/// How the width of the box of a text follows from its height.
[[nodiscard]] double WidthToHeight(const std::string &text);
/// Of a text of several lines.
[[nodiscard]] int LineCount(const std::string &text);

}  // namespace tessera::mitab
