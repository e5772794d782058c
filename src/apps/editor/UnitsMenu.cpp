// SPDX-License-Identifier: MIT
#include <apps/editor/UnitsMenu.h>

#include <QActionGroup>
#include <QSettings>

namespace tessera::apps {
namespace {

constexpr std::pair<TMapMeasure::TUnit, const char *> Units[] = {
    {TMapMeasure::muKilometre, QT_TRANSLATE_NOOP("tessera::apps::UnitsMenu", "&Kilometres")},
    {TMapMeasure::muMetre, QT_TRANSLATE_NOOP("tessera::apps::UnitsMenu", "&Metres")},
    {TMapMeasure::muMile, QT_TRANSLATE_NOOP("tessera::apps::UnitsMenu", "M&iles")},
    {TMapMeasure::muFoot, QT_TRANSLATE_NOOP("tessera::apps::UnitsMenu", "&Feet")},
    {TMapMeasure::muMap, QT_TRANSLATE_NOOP("tessera::apps::UnitsMenu", "Map &units")},
};

QString UnitKey() {
  return QStringLiteral("measure/unit");
}
QString GeodeticKey() {
  return QStringLiteral("measure/degrees");
}

}  // namespace

UnitsMenu::UnitsMenu(const QString &title, QWidget *parent) : QMenu(title, parent) {
  const QSettings settings;
  const int unit = settings.value(UnitKey(), TMapMeasure::muKilometre).toInt();
  const bool isUnit = unit >= TMapMeasure::muMap && unit <= TMapMeasure::muMile;
  m_measure.Unit = isUnit ? TMapMeasure::TUnit(unit) : TMapMeasure::muKilometre;
  m_measure.Geodetic = settings.value(GeodeticKey(), true).toBool();
  AddUnits();
  addSeparator();
  QAction *degrees = addAction(tr("Coordinates are &degrees"));
  degrees->setToolTip(tr("Otherwise they are metres"));
  degrees->setCheckable(true);
  degrees->setChecked(m_measure.Geodetic);
  connect(degrees, &QAction::toggled, this, [this](bool isChecked) {
    TMapMeasure measure = m_measure;
    measure.Geodetic = isChecked;
    SetMeasure(measure);
  });
}

void UnitsMenu::AddUnits() {
  auto *group = new QActionGroup(this);
  for (const auto &[unit, text] : Units) {
    QAction *action = group->addAction(addAction(tr(text)));
    action->setCheckable(true);
    action->setChecked(unit == m_measure.Unit);
    connect(action, &QAction::triggered, this, [this, chosen = unit] {
      TMapMeasure measure = m_measure;
      measure.Unit = chosen;
      SetMeasure(measure);
    });
  }
}

void UnitsMenu::SetMeasure(const TMapMeasure &measure) {
  m_measure = measure;
  QSettings settings;
  settings.setValue(UnitKey(), int(measure.Unit));
  settings.setValue(GeodeticKey(), measure.Geodetic);
  Q_EMIT Changed(m_measure);
}

}  // namespace tessera::apps
