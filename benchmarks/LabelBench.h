// SPDX-License-Identifier: MIT
#pragma once

#include "BenchTable.h"
#include "TesseraSide.h"

#include <QFont>
#include <QPoint>

class QPainter;

namespace tessera::bench {

/// Measures the drawing of 100,000 labels, 5,000 of them in view, side by side with a bare QPainter loop that has the
/// places, texts and fonts in arrays.
class LabelBench {
 public:
  LabelBench(QSize pictureSize, BenchTable &table);

  void Run(int runs);
  /// What was drawn last: the turned labels.
  [[nodiscard]] QImage OursPicture() const { return m_tessera.Picture(); }
  [[nodiscard]] const QImage &ReferencePicture() const { return m_picture; }

 private:
  /// A label as the bare loop has it.
  struct FlatLabel {
    FlatVertex upperLeft;
    std::size_t font;
    QString text;
  };

  void MakeLabels();
  /// The fonts that the boxes of the labels come to in the first picture.
  void MakeFlatLabels();
  void DrawBare();
  /// Turns the labels of both sides.
  void Turn(double angleDeg);

  BareView m_view;
  BenchTable &m_table;
  TesseraSide m_tessera;
  std::vector<FlatLabel> m_flatLabels;
  std::vector<QFont> m_fonts;
  double m_angleDeg = 0;
  QImage m_picture;
};

}  // namespace tessera::bench
