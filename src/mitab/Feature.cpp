// SPDX-License-Identifier: MIT
#include "Feature.h"

#include <algorithm>

namespace tessera::mitab {

bool Feature::IsPoint() const {
  return kind == Kind::Point || kind == Kind::FontPoint || kind == Kind::CustomPoint || kind == Kind::Text;
}

bool Feature::HasPen() const {
  return kind == Kind::Text || kind == Kind::Polyline || kind == Kind::Arc || HasBrush();
}

bool Feature::HasBrush() const {
  return kind == Kind::Region || kind == Kind::Rectangle || kind == Kind::Ellipse;
}

bool Feature::HasSymbol() const {
  return kind == Kind::Point || kind == Kind::FontPoint || kind == Kind::CustomPoint || kind == Kind::MultiPoint;
}

std::unique_ptr<Feature> Feature::CopyShape() const {
  auto copy = std::make_unique<Feature>();
  copy->kind = kind;
  copy->parts = parts;
  copy->style = style;
  return copy;
}

std::unique_ptr<Feature> MakeFeature(Kind kind, std::shared_ptr<const Columns> columns) {
  auto feature = std::make_unique<Feature>();
  feature->kind = kind;
  feature->values.resize(columns->size());
  feature->columns = std::move(columns);
  if (kind == Kind::Text) {
    feature->label.text = "Default Text";
    feature->style.font = "Arial";
  }
  return feature;
}

int LineCount(const std::string &text) {
  return 1 + int(std::count(text.begin(), text.end(), '\n'));
}

double WidthToHeight(const std::string &text) {
  constexpr double OfLetter = 0.6;
  const auto isLetter = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; };
  return OfLetter * double(std::count_if(text.begin(), text.end(), isLetter));
}

double TextWidth(const Label &label) {
  return label.height * WidthToHeight(label.text);
}

}  // namespace tessera::mitab
