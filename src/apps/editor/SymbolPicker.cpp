// SPDX-License-Identifier: MIT
#include <apps/editor/SymbolPicker.h>
#include <tessera/graphics/TCanvas.h>
#include <tessera/objects/TSymbol.h>

#include <algorithm>

namespace tessera::apps {
namespace {

constexpr int FirstShape = TSymbol::NoShape + 1;
constexpr int LastShape = 67;  // of the symbols that maps commonly use
constexpr int CellPx = 32;
constexpr int SignPt = 16;
constexpr int Columns = 9;

QIcon PictureOf(int shape, const TFont &font, double ratio) {
  TBitmap picture;
  picture.SetSize(CellPx, CellPx, ratio);
  picture.GetImage().fill(Qt::white);
  TCanvas canvas(&picture);
  canvas.Font() = font;
  canvas.Font().SetSize(SignPt);
  canvas.Brush().SetStyle(TBrushStyle::bsClear);
  const QString sign{QChar(shape)};
  const QSize size = canvas.TextExtent(sign);
  canvas.TextOut((CellPx - size.width()) / 2, (CellPx - size.height()) / 2, sign);
  return {QPixmap::fromImage(picture.GetImage())};
}

}  // namespace

SymbolPicker::SymbolPicker(QWidget *parent) : QListWidget(parent) {
  setViewMode(QListView::IconMode);
  setIconSize({CellPx, CellPx});
  setMovement(QListView::Static);
  setResizeMode(QListView::Adjust);
  setUniformItemSizes(true);
  constexpr int MarginPx = 10;
  setMinimumSize(Columns * (CellPx + MarginPx), 4 * (CellPx + MarginPx));
  for (int shape = FirstShape; shape <= LastShape; ++shape) {
    auto *item = new QListWidgetItem(this);
    item->setToolTip(tr("Symbol %1").arg(shape));
    item->setData(Qt::AccessibleTextRole, item->toolTip());
  }
}

void SymbolPicker::ShowFont(const TFont &font) {
  for (int row = 0; row < count(); ++row) {
    item(row)->setIcon(PictureOf(FirstShape + row, font, devicePixelRatioF()));
  }
}

void SymbolPicker::Choose(int shape) {
  setCurrentRow(std::clamp(shape - FirstShape, 0, count() - 1));
}

int SymbolPicker::GetShape() const {
  return FirstShape + currentRow();
}

}  // namespace tessera::apps
