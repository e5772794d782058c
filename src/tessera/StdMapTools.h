// SPDX-License-Identifier: MIT
#pragma once

/// The standard tools of a map, all together.

#include <tessera/tools/TCircleSelectionTool.h>
#include <tessera/tools/TCircleTool.h>
#include <tessera/tools/TIdentifyTool.h>
#include <tessera/tools/TLineTool.h>
#include <tessera/tools/TMeasureTool.h>
#include <tessera/tools/TMoveTool.h>
#include <tessera/tools/TPanTool.h>
#include <tessera/tools/TPolygonSelectionTool.h>
#include <tessera/tools/TPolylineTool.h>
#include <tessera/tools/TRectSelectionTool.h>
#include <tessera/tools/TRectTool.h>
#include <tessera/tools/TRegionTool.h>
#include <tessera/tools/TSelectionTool.h>
#include <tessera/tools/TSymbolTool.h>
#include <tessera/tools/TTextTool.h>
#include <tessera/tools/TTransformTool.h>
#include <tessera/tools/TVertexTool.h>
#include <tessera/tools/TZoomInTool.h>
#include <tessera/tools/TZoomOutTool.h>
