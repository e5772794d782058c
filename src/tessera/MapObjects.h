// SPDX-License-Identifier: MIT
#pragma once

/// All that a program with a map needs to show, select and edit: the map control, its options, layers, selection,
/// spatial index, attribute fields, links, substrates and tools manager, edits, and every kind of object. The standard
/// tools are in StdMapTools.h.

#include <tessera/data/TDataFields.h>
#include <tessera/editing/TEditScope.h>
#include <tessera/editing/TMapEdits.h>
#include <tessera/editing/TObjectClipboard.h>
#include <tessera/layers/LayerBounds.h>
#include <tessera/layers/TIndexCell.h>
#include <tessera/layers/TMapDataLink.h>
#include <tessera/layers/TMapLayers.h>
#include <tessera/layers/TSelection.h>
#include <tessera/map/TCustomMapTool.h>
#include <tessera/map/TMapNavigation.h>
#include <tessera/map/TMapPainting.h>
#include <tessera/map/TMapToolsManager.h>
#include <tessera/map/TSubstrates.h>
#include <tessera/map/TTessera.h>
#include <tessera/map/TTesseraOptions.h>
#include <tessera/objects/GeoCircle.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TGeoCircle.h>
#include <tessera/objects/TMapObjectsList.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TRegion.h>
#include <tessera/objects/TSprite.h>
#include <tessera/objects/TSymbol.h>
#include <tessera/objects/TText.h>
