// SPDX-License-Identifier: MIT
#include <apps/editor/EditorTools.h>
#include <apps/editor/MeasureLabel.h>
#include <icons/ThemedIcon.h>
#include <tessera/StdMapTools.h>
#include <tessera/map/TMapToolsManager.h>

#include <QActionGroup>

#include <algorithm>

namespace tessera::apps {
namespace {

template <class Kind>
std::unique_ptr<TCustomMapTool> Make() {
  return std::make_unique<Kind>();
}

struct ToolRow {
  std::unique_ptr<TCustomMapTool> (*make)();
  const char *icon;
  const char *text;
  const char *statusTip = "";
};

/// In the order of the tool bar. The first nine have the shortcuts Ctrl+1 to Ctrl+9.
constexpr ToolRow Rows[] = {
    {Make<TSelectionTool>, "select", QT_TRANSLATE_NOOP("tessera::apps::EditorTools", "&Select")},
    {Make<TZoomInTool>, "zoom-in", QT_TRANSLATE_NOOP("tessera::apps::EditorTools", "Zoom &in")},
    {Make<TZoomOutTool>, "zoom-out", QT_TRANSLATE_NOOP("tessera::apps::EditorTools", "Zoom &out")},
    {Make<TPanTool>, "pan", QT_TRANSLATE_NOOP("tessera::apps::EditorTools", "&Pan")},
    {Make<TLineTool>, "line", QT_TRANSLATE_NOOP("tessera::apps::EditorTools", "&Line")},
    {Make<TPolylineTool>, "polyline", QT_TRANSLATE_NOOP("tessera::apps::EditorTools", "Pol&yline")},
    {Make<TRectTool>, "rectangle", QT_TRANSLATE_NOOP("tessera::apps::EditorTools", "&Rectangle")},
    {Make<TRegionTool>, "region", QT_TRANSLATE_NOOP("tessera::apps::EditorTools", "Re&gion")},
    {Make<TCircleTool>, "circle", QT_TRANSLATE_NOOP("tessera::apps::EditorTools", "&Circle of 100 km")},
    {Make<TSymbolTool>, "symbol", QT_TRANSLATE_NOOP("tessera::apps::EditorTools", "Sy&mbol")},
    {Make<TTextTool>, "text", QT_TRANSLATE_NOOP("tessera::apps::EditorTools", "&Text")},
    {Make<TRectSelectionTool>, "select-rectangle",
     QT_TRANSLATE_NOOP("tessera::apps::EditorTools", "Select by r&ectangle")},
    {Make<TCircleSelectionTool>, "select-circle", QT_TRANSLATE_NOOP("tessera::apps::EditorTools", "Select &by circle")},
    {Make<TPolygonSelectionTool>, "select-polygon",
     QT_TRANSLATE_NOOP("tessera::apps::EditorTools", "Select by polygo&n")},
    {Make<TMoveTool>, "move", QT_TRANSLATE_NOOP("tessera::apps::EditorTools", "Mo&ve")},
    {Make<TTransformTool>, "transform", QT_TRANSLATE_NOOP("tessera::apps::EditorTools", "Sc&ale and turn"),
     QT_TRANSLATE_NOOP("tessera::apps::EditorTools",
                       "Drag the handles around what is selected; Shift keeps proportions, or steps of 15 degrees")},
    {Make<TVertexTool>, "vertices", QT_TRANSLATE_NOOP("tessera::apps::EditorTools", "E&dit vertices"),
     QT_TRANSLATE_NOOP("tessera::apps::EditorTools",
                       "Drag vertices and edges of the selected line or region; Delete takes a vertex out")},
    {Make<TIdentifyTool>, "identify", QT_TRANSLATE_NOOP("tessera::apps::EditorTools", "Identif&y")},
    {Make<TMeasureTool>, "measure", QT_TRANSLATE_NOOP("tessera::apps::EditorTools", "Me&asure")},
};
constexpr int LastDigit = 9;

}  // namespace

EditorTools::EditorTools(TTessera &map, QObject *parent)
    : QObject(parent), m_map(map), m_follower(map, [this](TMapDataLinkEvent, TObject *) { ShowState(); }) {
  auto *group = new QActionGroup(this);
  for (const ToolRow &row : Rows) {
    Entry entry{row.make(), group->addAction(ThemedIcon(QString::fromLatin1(row.icon)), tr(row.text))};
    entry.action->setCheckable(true);
    entry.action->setStatusTip(tr(row.statusTip));
    const int number = int(m_entries.size()) + 1;
    if (number <= LastDigit) entry.action->setShortcut(QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_0 + number)));
    entry.tool->SetTessera(&map);
    connect(entry.action, &QAction::triggered, entry.tool.get(), [tool = entry.tool.get()] { tool->SetActive(true); });
    m_entries.push_back(std::move(entry));
  }
  connect(&map, &TTessera::OnMapToolChanged, this, &EditorTools::ShowState);
  m_entries.front().tool->SetActive(true);
}

EditorTools::~EditorTools() = default;

QList<QAction *> EditorTools::GetActions() const {
  QList<QAction *> actions;
  for (const Entry &entry : m_entries) actions.append(entry.action);
  return actions;
}

bool EditorTools::AreKeysInUse() const {
  const TCustomMapTool *tool = m_map.GetMapToolsManager()->GetActiveMapTool();
  return tool != nullptr && tool->GetWantsKeys();
}

void EditorTools::SetMeasure(const TMapMeasure &measure) {
  Find<TMeasureTool>()->SetMeasure(measure);
}

void EditorTools::ShowSizesIn(MeasureLabel &label) const {
  label.Follow(*Find<TPolylineTool>(), false);
  label.Follow(*Find<TRegionTool>(), true);
  label.Follow(*Find<TMeasureTool>(), true);
}

void EditorTools::ShowState() {
  for (const Entry &entry : m_entries) {
    // The selection is there even where there is nothing to select.
    const bool isUsable = entry.tool->GetEnabled() || &entry == &m_entries.front();
    entry.action->setEnabled(isUsable);
    entry.action->setChecked(entry.tool->GetActive());
    if (!isUsable && entry.tool->GetActive()) m_entries.front().tool->SetActive(true);
  }
}

}  // namespace tessera::apps
