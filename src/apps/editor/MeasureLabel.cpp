// SPDX-License-Identifier: MIT
#include <apps/editor/MeasureLabel.h>
#include <tessera/objects/ObjectMeasure.h>
#include <tessera/tools/TMeasureTool.h>

#include <optional>

namespace tessera::apps {
namespace {

std::optional<TObjectSize> SizeOf(const TSelection &selection, const TMapMeasure &measure) {
  constexpr int MostVertices = 20000;
  TObjectSize sum;
  int vertices = 0;
  for (const TCustomMapObject *object : selection.Items()) {
    ++vertices;  // of an object without any, too
    for (const TPart &part : object->GetParts().Items()) vertices += part.GetPoints().GetCount();
    if (vertices > MostVertices) return std::nullopt;
    const TObjectSize size = MeasureObject(*object, measure);
    sum.length += size.length;
    sum.area += size.area;
  }
  return sum;
}

}  // namespace

MeasureLabel::MeasureLabel(TTessera &map, QWidget *parent)
    : QLabel(parent), m_map(map), m_follower(map, [this](TMapDataLinkEvent event, TObject *) {
        const bool isOfSelection =
            event == mdlAddSelection || event == mdlDelSelection || event == mdlObjectGeometryChanged;
        if (isOfSelection) m_refresh.start();
      }) {
  setTextFormat(Qt::PlainText);
  m_refresh.setSingleShot(true);
  connect(&m_refresh, &QTimer::timeout, &map, [this] { ShowSelection(); });
}

void MeasureLabel::SetMeasure(const TMapMeasure &measure) {
  m_measure = measure;
  ShowSelection();
}

void MeasureLabel::Follow(TCustomMultiPointTool &tool, bool hasArea) {
  connect(&tool, &TCustomMultiPointTool::OnOutline, this, [this, hasArea](TCustomMultiPointTool *sender) {
    setText(TextOfOutline(sender->GetMapOutline(), m_measure, hasArea, locale()));
  });
  if (auto *measuring = qobject_cast<TMeasureTool *>(&tool)) {
    connect(measuring, &TMeasureTool::OnMeasure, this, [this](TMeasureTool *, const QString &text) { setText(text); });
  } else {
    connect(&tool, &TCustomMapTool::OnComplete, this, [this] { ShowSelection(); });
  }
  connect(&tool, &TCustomMapTool::OnCancel, this, [this] { ShowSelection(); });
}

void MeasureLabel::ShowSelection() {
  const std::optional<TObjectSize> size = SizeOf(*m_map.GetSelection(), m_measure);
  QStringList parts;
  if (size && size->length > 0) parts << m_measure.LengthText(size->length, locale());
  if (size && size->area > 0) parts << m_measure.AreaText(size->area, locale());
  setText(parts.join(QStringLiteral(", ")));
}

}  // namespace tessera::apps
