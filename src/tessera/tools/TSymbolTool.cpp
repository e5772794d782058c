// SPDX-License-Identifier: MIT
#include <tessera/editing/TMapEdits.h>
#include <tessera/map/TTessera.h>
#include <tessera/objects/TSymbol.h>
#include <tessera/tools/TSymbolTool.h>

namespace tessera {

TSymbolTool::TSymbolTool(QObject *parent) : TCustomClickTool(parent) {
  SetDisplayName(QStringLiteral("Symbol Tool"));
}

void TSymbolTool::PutObject(TMapLayer &layer, const TMapPoint &at) {
  auto symbol = std::make_unique<TSymbol>();
  symbol->MoveTo(at.X, at.Y);
  symbol->SetShape(GetTessera()->GetOptions()->GetDefaultSymbolShape());
  // The layer gives it the font, with the other tools of the options.
  TMapEdits(layer).AddObject(layer, std::move(symbol));
}

}  // namespace tessera
