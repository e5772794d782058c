// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/controls/TMapDecoration.h>
#include <tessera/geometry/TMapMeasure.h>

namespace tessera {

/// Shows how long a round distance (1, 2 or 5 times a power of ten) is on a map: along x, at the centre of its view.
/// Where the map has no scale, nothing is shown.
class TESSERA_WIDGETS_EXPORT TScaleBar : public TMapDecoration {
  Q_OBJECT
  Q_PROPERTY(tessera::TMapMeasure::TUnit Unit READ GetUnit WRITE SetUnit)
  Q_PROPERTY(bool Geodetic READ GetGeodetic WRITE SetGeodetic)
  Q_PROPERTY(double MetresPerUnit READ GetMetresPerUnit WRITE SetMetresPerUnit)
  Q_PROPERTY(int MaxLengthPx READ GetMaxLengthPx WRITE SetMaxLengthPx)

 public:
  explicit TScaleBar(QWidget *parent = nullptr);

  /// How distances are measured, and their unit; three properties for form files. Plain map units at first.
  [[nodiscard]] const TMapMeasure &GetMeasure() const { return m_measure; }
  void SetMeasure(const TMapMeasure &measure);
  [[nodiscard]] TMapMeasure::TUnit GetUnit() const { return m_measure.Unit; }
  void SetUnit(TMapMeasure::TUnit unit) { Set(&TMapMeasure::Unit, unit); }
  [[nodiscard]] bool GetGeodetic() const { return m_measure.Geodetic; }
  void SetGeodetic(bool geodetic) { Set(&TMapMeasure::Geodetic, geodetic); }
  [[nodiscard]] double GetMetresPerUnit() const { return m_measure.MetresPerUnit; }
  void SetMetresPerUnit(double metres) { Set(&TMapMeasure::MetresPerUnit, metres); }
  /// The bar is the longest that is not longer than this, in client pixels of the map. 150 at first.
  [[nodiscard]] int GetMaxLengthPx() const { return m_maxLengthPx; }
  void SetMaxLengthPx(int lengthPx);

  /// The distance that is shown, in the unit, and how long it is in client pixels of the map; 0 where there is no bar.
  [[nodiscard]] double GetDistance() const { return m_bar.distance; }
  [[nodiscard]] double GetLengthPx() const { return m_bar.lengthPx; }
  /// What stands over the bar: "500 km"; empty where there is none.
  [[nodiscard]] QString GetText() const;

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void Refresh() override;
  void PaintContent(QPainter &painter, const QRect &rect) const override;
  void MapChanged() override;
  void MapRepainted() override;

 private:
  struct Bar {
    double distance = 0;
    double lengthPx = 0;
    bool operator==(const Bar &) const = default;
  };
  template <typename Value>
  void Set(Value TMapMeasure::*member, Value value) {
    m_measure.*member = value;
    ShowAnew();
  }
  [[nodiscard]] Bar FindBar() const;
  void ShowAnew();

  TMapMeasure m_measure;
  int m_maxLengthPx = 150;
  Bar m_bar;
};

}  // namespace tessera
