// SPDX-License-Identifier: MIT
#include <apps/editor/MapDecorations.h>
#include <apps/editor/UnitsMenu.h>
#include <tessera/controls/TMapLegend.h>
#include <tessera/controls/TScaleBar.h>

#include <QGridLayout>
#include <QSettings>

namespace tessera::apps {

MapDecorations::MapDecorations(TTessera &map, const UnitsMenu &units, QGridLayout &cell, QObject *parent)
    : QObject(parent), m_scaleBar(new TScaleBar), m_legend(new TMapLegend) {
  Add(map, *m_scaleBar, cell, Qt::AlignBottom | Qt::AlignLeft, "view/scaleBar", tr("&Scale bar"));
  Add(map, *m_legend, cell, Qt::AlignTop | Qt::AlignRight, "view/legend", tr("Le&gend"));
  m_scaleBar->SetMeasure(units.GetMeasure());
  connect(&units, &UnitsMenu::Changed, m_scaleBar, &TScaleBar::SetMeasure);
}

void MapDecorations::Add(TTessera &map, TMapDecoration &decoration, QGridLayout &cell, Qt::Alignment corner,
                         const char *key, const QString &text) {
  cell.addWidget(&decoration, 0, 0, corner);
  decoration.SetMap(&map);
  decoration.hide();
  auto *action = new QAction(text, this);
  action->setCheckable(true);
  connect(action, &QAction::toggled, &decoration, [&decoration, name = QLatin1String(key)](bool isChecked) {
    decoration.setVisible(isChecked);
    decoration.SetInPictures(isChecked);
    QSettings().setValue(name, isChecked);
  });
  action->setChecked(QSettings().value(QLatin1String(key)).toBool());
  m_actions.append(action);
}

}  // namespace tessera::apps
