// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/base/MessageSink.h>
#include <tessera/map/TTessera.h>
#include <tessera/map/detail/MapAccessible.h>
#include <tessera/map/detail/MapByName.h>
#include <tessera/map/detail/TesseraPrivate.h>

#include <QApplication>
#include <QMessageBox>

#include <utility>

namespace tessera {
namespace {

/// Every pixel blue but those in odd columns of odd rows, through which the picture shows.
TBitmap MakeSelectionPattern() {
  constexpr int SizePx = 8;
  constexpr TColor SeeThrough = 0x20000000;  // no colour of a pixel
  QImage image(SizePx, SizePx, QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < SizePx; ++y) {
    for (int x = 0; x < SizePx; ++x) {
      image.setPixel(x, y, x % 2 == 1 && y % 2 == 1 ? qRgba(0, 0, 0, 0) : ToRgb(clBlue));
    }
  }
  TBitmap pattern(image);
  pattern.SetTransparentColor(SeeThrough);
  pattern.SetTransparent(true);
  return pattern;
}

void ShowMessageBox(const QString &text) {
  auto *box = new QMessageBox(QMessageBox::Information, QCoreApplication::applicationName(), text, QMessageBox::Ok,
                              QApplication::activeWindow());
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->open();
}

/// On a platform without windows nobody would ever close a message box.
bool HasWindows() {
  const QString platform = QGuiApplication::platformName();
  return platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
}

}  // namespace

TTessera::TTessera(QWidget *parent, TPlace place) : TTesseraEvents(parent), d(std::make_unique<Private>(*this)) {
  if (place == plProgram) {
    if (HasWindows()) SetDefaultMessageSink(ShowMessageBox);
    detail::InstallMapAccessibility();
  }
  d->layers = std::make_unique<TMapLayers>();
  d->substrates = std::make_unique<TSubstrates>(this);
  d->selection = std::make_unique<TSelection>();
  d->displayed = std::make_unique<TDisplayedObjects>();
  d->dataLinks = std::make_unique<TMapDataLinks>();
  d->options = std::make_unique<TTesseraOptions>();
  d->tools = std::make_unique<TMapToolsManager>();
  d->selectionPattern = QSharedPointer<TBitmap>::create(MakeSelectionPattern());
  resize(TTessera::sizeHint());
  d->layers->SetMap(this);
  d->selection->SetMap(this);
  d->displayed->SetMap(this);
  d->dataLinks->SetMap(this);
  detail::AnnounceMapAlways(*this);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAttribute(Qt::WA_InputMethodEnabled);
  grabGesture(Qt::PinchGesture);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

TTessera::~TTessera() {
  d->isBeingDestroyed = true;
  d->steps.GiveUp();
  // As long as all of the map is still there.
  d->tools = std::make_unique<TMapToolsManager>();
  GuardedCall([this] { d->layers->AnnounceEnd(); });
  d->layers.reset();
}

QSize TTessera::sizeHint() const {
  return {100, 100};
}

const TViewport &TTessera::GetViewport() const {
  d->viewport.ClientWidth = width();
  d->viewport.ClientHeight = height();
  return d->viewport;
}

void TTessera::SetView(double TViewport::*member, double value) {
  d->viewport.*member = value;
  DoUpdate(true);
}

void TTessera::SetZoom(double zoom) {
  if (zoom == 0 || zoom == GetZoom()) return;
  SetView(&TViewport::Zoom, zoom);
  Q_EMIT OnZoom(this);
}

void TTessera::SetCenterX(double x) {
  SetView(&TViewport::CenterX, x);
}
void TTessera::SetCenterY(double y) {
  SetView(&TViewport::CenterY, y);
}
void TTessera::SetMinX(double x) {
  SetView(&TViewport::MinX, x);
}
void TTessera::SetMinY(double y) {
  SetView(&TViewport::MinY, y);
}
void TTessera::SetMaxX(double x) {
  SetView(&TViewport::MaxX, x);
}
void TTessera::SetMaxY(double y) {
  SetView(&TViewport::MaxY, y);
}
double TTessera::GetMinZoom() const {
  return d->minZoom;
}
void TTessera::SetMinZoom(double zoom) {
  d->minZoom = zoom;
}
double TTessera::GetMaxZoom() const {
  return d->maxZoom;
}
void TTessera::SetMaxZoom(double zoom) {
  d->maxZoom = zoom;
}
bool TTessera::GetWheelMouse() const {
  return d->wheelMouse;
}
void TTessera::SetWheelMouse(bool enabled) {
  d->wheelMouse = enabled;
}
TTessera::TWheelMouseZoomType TTessera::GetZoomType() const {
  return d->zoomType;
}
void TTessera::SetZoomType(TWheelMouseZoomType type) {
  d->zoomType = type;
}

void TTessera::ScreenToMap(int x, int y, double &mx, double &my) const {
  const TMapPoint point = GetViewport().ScreenToMap(x, y);
  mx = point.X;
  my = point.Y;
}

void TTessera::MapToScreen(double mx, double my, int &x, int &y, bool clip) const {
  const TViewport &viewport = GetViewport();
  const QPoint pixel = clip ? viewport.MapToScreenClipped(mx, my) : viewport.MapToScreen(mx, my);
  x = pixel.x();
  y = pixel.y();
}

void TTessera::DoUpdate(bool /*value*/) {
  d->modified = true;
  if (!d->inUpdate) Invalidate();
}

void TTessera::BeginUpdate() {
  d->inUpdate = true;
}

void TTessera::EndUpdate(bool update) {
  SetInUpdate(false);
  if (update) DoUpdate(true);
}

bool TTessera::GetInUpdate() const {
  return d->inUpdate;
}
bool TTessera::GetModified() const {
  return d->modified;
}
void TTessera::SetModified(bool modified) {
  d->modified = modified;
}
bool TTessera::GetIsBusy() const {
  return d->isBusy;
}
bool TTessera::GetIsLoading() const {
  return d->isLoading;
}
void TTessera::SetIsLoading(bool isLoading) {
  d->isLoading = isLoading;
}

const TViewFlags &TTessera::GetViewFlags() const {
  return d->flags;
}

void TTessera::SetShowSelection(bool show) {
  if (std::exchange(d->flags.ShowSelection, show) != show) DoUpdate(true);
}

void TTessera::SetFastSelection(bool fast) {
  if (std::exchange(d->flags.FastSelection, fast) != fast) DoUpdate(true);
}

void TTessera::SetUseGeneralization(bool use) {
  if (std::exchange(d->flags.UseGeneralization, use) != use) DoUpdate(true);
}

void TTessera::SetGeneralizationLevel(int levelPx) {
  if (std::exchange(d->flags.GeneralizationLevel, levelPx) != levelPx) DoUpdate(true);
}

void TTessera::SetFastDraw(bool fast) {
  d->flags.FastDraw = fast;
  DoUpdate(true);
}

TColor TTessera::GetColor() const {
  return d->color;
}

void TTessera::SetColor(TColor color) {
  if (std::exchange(d->color, color) != color) DoUpdate(true);
}

namespace {

/// Puts `given` into the place of `held`, which is handed back. The one is on the map from now on, the other on none.
template <class Part, class Map>
std::unique_ptr<Part> Replaced(std::unique_ptr<Part> &held, std::unique_ptr<Part> given, Map *map) {
  held->SetMap(nullptr);
  held.swap(given);
  held->SetMap(map);
  map->DoUpdate(true);
  return given;
}

}  // namespace

TMapLayers *TTessera::GetLayers() const {
  return d->layers.get();
}
std::unique_ptr<TMapLayers> TTessera::SetLayers(std::unique_ptr<TMapLayers> layers) {
  return Replaced(d->layers, std::move(layers), this);
}
TSubstrates *TTessera::GetSubstrates() const {
  return d->substrates.get();
}
std::unique_ptr<TSubstrates> TTessera::SetSubstrates(std::unique_ptr<TSubstrates> substrates) {
  return Replaced(d->substrates, std::move(substrates), this);
}
TSelection *TTessera::GetSelection() const {
  return d->selection.get();
}
std::unique_ptr<TSelection> TTessera::SetSelection(std::unique_ptr<TSelection> selection) {
  return Replaced(d->selection, std::move(selection), this);
}
TDisplayedObjects *TTessera::GetDisplayed() const {
  return d->displayed.get();
}
std::unique_ptr<TDisplayedObjects> TTessera::SetDisplayed(std::unique_ptr<TDisplayedObjects> displayed) {
  return Replaced(d->displayed, std::move(displayed), this);
}
TMapDataLinks *TTessera::GetDataLinks() const {
  return d->dataLinks.get();
}
std::unique_ptr<TMapDataLinks> TTessera::SetDataLinks(std::unique_ptr<TMapDataLinks> links) {
  return Replaced(d->dataLinks, std::move(links), this);
}
TTesseraOptions *TTessera::GetOptions() const {
  return d->options.get();
}
std::unique_ptr<TTesseraOptions> TTessera::SetOptions(std::unique_ptr<TTesseraOptions> options) {
  return std::exchange(d->options, std::move(options));
}
TMapToolsManager *TTessera::GetMapToolsManager() const {
  return d->tools.get();
}
std::unique_ptr<TMapToolsManager> TTessera::SetMapToolsManager(std::unique_ptr<TMapToolsManager> tools) {
  return std::exchange(d->tools, std::move(tools));
}
TMapNavigation *TTessera::GetNavigation() const {
  return &d->navigation;
}
TMapPainting *TTessera::GetPainting() const {
  return &d->painting;
}
TMapSnapping *TTessera::GetSnapping() const {
  return &d->snapping;
}
const QSharedPointer<TBitmap> &TTessera::GetSelectionPattern() const {
  return d->selectionPattern;
}
void TTessera::SetSelectionPattern(const TBitmap &pattern) {
  d->selectionPattern = QSharedPointer<TBitmap>::create(pattern);
}
}  // namespace tessera
