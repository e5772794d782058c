// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/geometry/TMapMeasure.h>

#include <QMenu>

namespace tessera::apps {

/// The choice of how the editor measures: in kilometres of degrees on the ellipsoid at first; kept from one run to the
/// next.
class UnitsMenu : public QMenu {
  Q_OBJECT

 public:
  explicit UnitsMenu(const QString &title, QWidget *parent = nullptr);

  [[nodiscard]] const TMapMeasure &GetMeasure() const { return m_measure; }
  void SetMeasure(const TMapMeasure &measure);

 Q_SIGNALS:
  void Changed(const tessera::TMapMeasure &measure);

 private:
  void AddUnits();

  TMapMeasure m_measure;
};

}  // namespace tessera::apps
