// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/geometry/TMapMeasure.h>
#include <tessera/tools/TCustomMultiPointTool.h>

namespace tessera {

/// Measures a line that is clicked together and ended by a double click, and the area between its ends: of three
/// corners and more, the place of the mouse among them. It draws nothing into any layer.
class TESSERA_WIDGETS_EXPORT TMeasureTool : public TCustomMultiPointTool {
  Q_OBJECT
  Q_PROPERTY(tessera::TMapMeasure::TUnit Unit READ GetUnit WRITE SetUnit)
  Q_PROPERTY(bool Geodetic READ GetGeodetic WRITE SetGeodetic)
  Q_PROPERTY(double MetresPerUnit READ GetMetresPerUnit WRITE SetMetresPerUnit)

 public:
  explicit TMeasureTool(QObject *parent = nullptr);

  /// How it measures, from the next change of the line on. Plain map units at first.
  [[nodiscard]] const TMapMeasure &GetMeasure() const { return m_measure; }
  void SetMeasure(const TMapMeasure &measure) { m_measure = measure; }
  [[nodiscard]] TMapMeasure::TUnit GetUnit() const { return m_measure.Unit; }
  void SetUnit(TMapMeasure::TUnit unit) { m_measure.Unit = unit; }
  [[nodiscard]] bool GetGeodetic() const { return m_measure.Geodetic; }
  void SetGeodetic(bool geodetic) { m_measure.Geodetic = geodetic; }
  [[nodiscard]] double GetMetresPerUnit() const { return m_measure.MetresPerUnit; }
  void SetMetresPerUnit(double metres) { m_measure.MetresPerUnit = metres; }

  /// What was measured last.
  [[nodiscard]] double GetLength() const { return m_length; }
  [[nodiscard]] double GetArea() const { return m_area; }

  void Draw() override;
  /// Measures once more, without the mouse.
  bool CreateObject() override;
  /// No layer need be editable.
  [[nodiscard]] bool GetEnabled() const override;

 Q_SIGNALS:
  /// The line has changed, or was ended. The text tells its length and, of three corners and more, the area, in the
  /// locale of the map.
  void OnMeasure(tessera::TMeasureTool *sender, const QString &text);

 private:
  void Measure(const std::vector<TMapPoint> &line);

  TMapMeasure m_measure;
  double m_length = 0;
  double m_area = 0;
};

/// How a tool or a program tells of a line: its length, and with three corners and more, where that counts, the area
/// between its ends.
[[nodiscard]] TESSERA_WIDGETS_EXPORT QString TextOfOutline(std::span<const TMapPoint> line, const TMapMeasure &measure,
                                                           bool hasArea, const QLocale &locale = QLocale());

}  // namespace tessera
