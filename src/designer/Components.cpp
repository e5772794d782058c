// SPDX-License-Identifier: MIT
#include <designer/Components.h>
#include <designer/FormItem.h>
#include <tessera/controls/LayerCtrl.h>
#include <tessera/controls/LayersComboBox.h>
#include <tessera/controls/TDataBrowser.h>
#include <tessera/controls/TMapLegend.h>
#include <tessera/controls/TObjectProperties.h>
#include <tessera/controls/TScaleBar.h>
#include <tessera/form/TFormProviders.h>
#include <tessera/form/TFormTools.h>

#include <algorithm>
#include <type_traits>

namespace tessera::designer {
namespace {

QWidget *MakeMap(const Component & /*component*/, QWidget *parent, bool isInDesigner) {
  return new TTessera(parent, isInDesigner ? TTessera::plDesigner : TTessera::plProgram);
}

template <class Control>
QWidget *Make(const Component & /*component*/, QWidget *parent, bool /*isInDesigner*/) {
  return new Control(parent);
}

template <class Item>
QWidget *MakeItem(const Component &component, QWidget *parent, bool isInDesigner) {
  if (!isInDesigner) return new Item(parent);
  Item *item = IsOnForm(parent) ? new FormItem<Item>(component, parent) : new Item(parent);
  // Forms that are open side by side, and previews of them, must not take the mark of the default from each other.
  if constexpr (std::is_base_of_v<form::TFormProvider, Item>) FormatProviders->Remove(item->GetProvider());
  return item;
}

constexpr char Basic[] = "Tessera - Basic";
constexpr char Tools[] = "Tessera - Map Tools";
constexpr char Providers[] = "Tessera - Format Providers";
constexpr char ToolsHeader[] = "tessera/form/TFormTools.h";
constexpr char ProvidersHeader[] = "tessera/form/TFormProviders.h";

constexpr Component Tool(const char *className, const char *icon, const char *name, const char *description,
                         decltype(Component::make) make) {
  return {Tools, className, ToolsHeader, "QWidget", icon, name, description, {}, "Tessera", "", make};
}

constexpr Component Provider(const char *className, const char *icon, const char *name, const char *description,
                             const char *plainTexts, decltype(Component::make) make) {
  return {Providers, className, ProvidersHeader, "QWidget", icon, name, description, {}, nullptr, plainTexts, make};
}

constexpr Component Components[] = {
    {Basic, "tessera::TTessera", "tessera/map/TTessera.h", "QWidget", "map", "map", "A map: layers of objects",
     QSize(320, 240), nullptr, "", MakeMap},
    {Basic, "tessera::TLayerControl", "tessera/controls/LayerCtrl.h", "QTableView", "layers", "layerControl",
     "The list of a map's layers with their switches", QSize(200, 160), "Map", "", Make<TLayerControl>},
    {Basic, "tessera::TLayersComboBox", "tessera/controls/LayersComboBox.h", "QComboBox", "layers-choice",
     "layersComboBox", "From which a layer of a map is picked", QSize(160, 26), "Map", "", Make<TLayersComboBox>},
    {Basic, "tessera::TDataBrowser", "tessera/controls/TDataBrowser.h", "QWidget", "table", "dataBrowser",
     "The attributes of a layer's objects in a grid", QSize(320, 200), "Map", "Layer", Make<TDataBrowser>},
    {Basic, "tessera::TObjectProperties", "tessera/controls/TObjectProperties.h", "QWidget", "properties",
     "objectProperties", "The properties of the selected objects", QSize(200, 240), "Map", "", Make<TObjectProperties>},
    {Basic, "tessera::TScaleBar", "tessera/controls/TScaleBar.h", "QWidget", "scale-bar", "scaleBar",
     "How long a round distance is on a map", QSize(160, 30), "Map", "", Make<TScaleBar>},
    {Basic, "tessera::TMapLegend", "tessera/controls/TMapLegend.h", "QWidget", "legend", "mapLegend",
     "The layers that a map shows, with samples of their looks", QSize(140, 160), "Map", "", Make<TMapLegend>},

    Tool("tessera::form::TSelectionTool", "select", "selectionTool", "Selects objects", MakeItem<form::TSelectionTool>),
    Tool("tessera::form::TRectSelectionTool", "select-rectangle", "rectSelectionTool", "Selects what meets a rectangle",
         MakeItem<form::TRectSelectionTool>),
    Tool("tessera::form::TCircleSelectionTool", "select-circle", "circleSelectionTool", "Selects what meets a circle",
         MakeItem<form::TCircleSelectionTool>),
    Tool("tessera::form::TPolygonSelectionTool", "select-polygon", "polygonSelectionTool",
         "Selects what meets a polygon", MakeItem<form::TPolygonSelectionTool>),
    Tool("tessera::form::TZoomInTool", "zoom-in", "zoomInTool", "Zooms in", MakeItem<form::TZoomInTool>),
    Tool("tessera::form::TZoomOutTool", "zoom-out", "zoomOutTool", "Zooms out", MakeItem<form::TZoomOutTool>),
    Tool("tessera::form::TPanTool", "pan", "panTool", "Drags the map", MakeItem<form::TPanTool>),
    Tool("tessera::form::TMoveTool", "move", "moveTool", "Moves what is selected", MakeItem<form::TMoveTool>),
    Tool("tessera::form::TTransformTool", "transform", "transformTool", "Scales, turns and moves what is selected",
         MakeItem<form::TTransformTool>),
    Tool("tessera::form::TVertexTool", "vertices", "vertexTool", "Moves, inserts and deletes vertices",
         MakeItem<form::TVertexTool>),
    Tool("tessera::form::TLineTool", "line", "lineTool", "Draws lines", MakeItem<form::TLineTool>),
    Tool("tessera::form::TPolylineTool", "polyline", "polylineTool", "Draws polylines", MakeItem<form::TPolylineTool>),
    Tool("tessera::form::TRectTool", "rectangle", "rectTool", "Draws rectangles", MakeItem<form::TRectTool>),
    Tool("tessera::form::TRegionTool", "region", "regionTool", "Draws regions", MakeItem<form::TRegionTool>),
    Tool("tessera::form::TCircleTool", "circle", "circleTool", "Puts geodesic circles on the map",
         MakeItem<form::TCircleTool>),
    Tool("tessera::form::TSymbolTool", "symbol", "symbolTool", "Puts symbols on the map", MakeItem<form::TSymbolTool>),
    Tool("tessera::form::TTextTool", "text", "textTool", "Types labels onto the map", MakeItem<form::TTextTool>),
    Tool("tessera::form::TIdentifyTool", "identify", "identifyTool", "Tells what there is at a click",
         MakeItem<form::TIdentifyTool>),
    Tool("tessera::form::TMeasureTool", "measure", "measureTool", "Measures lengths and areas",
         MakeItem<form::TMeasureTool>),

    Provider("tessera::form::TSimpleMIFFormatProvider", "mif", "simpleMIFFormatProvider", "Reads and writes MIF files",
             "", MakeItem<form::TSimpleMIFFormatProvider>),
    Provider("tessera::form::TMapInfoFormatProvider", "mapinfo", "mapInfoFormatProvider",
             "Reads and writes TAB and MIF files", "Charset", MakeItem<form::TMapInfoFormatProvider>),
};

}  // namespace

std::span<const Component> GetComponents() {
  return Components;
}

const Component *FindComponent(const QObject &object) {
  const QLatin1String name(object.metaObject()->className());
  const auto *found =
      std::ranges::find_if(Components, [&](const Component &c) { return name == QLatin1String(c.className); });
  return found == std::end(Components) ? nullptr : found;
}

}  // namespace tessera::designer
