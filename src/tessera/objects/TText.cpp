// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/graphics/TCanvas.h>
#include <tessera/objects/TText.h>
#include <tessera/objects/detail/StylePool.h>
#include <tessera/objects/detail/TextFit.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

namespace tessera {
namespace {

/// Keeps the map's guard up as long as it lives.
class SizingScope {
 public:
  explicit SizingScope(TMapHost &map) : m_map(map) { m_map.SetTextSizingGuard(true); }
  ~SizingScope() { m_map.SetTextSizingGuard(false); }
  SizingScope(const SizingScope &) = delete;
  SizingScope &operator=(const SizingScope &) = delete;

 private:
  TMapHost &m_map;
};

int CeilToInt(double value) {
  const double ceiled = std::ceil(value);
  return std::abs(ceiled) < std::numeric_limits<int>::max() ? int(ceiled) : 0;
}

std::uint32_t Distance(int a, int b) {
  const auto distance = std::abs(std::int64_t(a) - b);
  return std::uint32_t(std::min<std::int64_t>(distance, UINT32_MAX - std::int64_t(1)));
}

/// From one direction to another, counter-clockwise.
double TurnDeg(const TMapPoint &from, const TMapPoint &to) {
  return std::atan2(from.X * to.Y - from.Y * to.X, from.X * to.X + from.Y * to.Y) * 180 / std::numbers::pi;
}

}  // namespace

int TextEscapement(double angleDeg) {
  return CeilToInt(angleDeg * 10);
}

int TextOrientation(double angleDeg) {
  return CeilToInt((angleDeg + 10) * 100);
}

void TText::CanvasSetAngle(TCanvas &canvas, double angleDeg) {
  canvas.SetFontEscapement(TextEscapement(angleDeg));
}

void TText::SetFont(const TFont &font) {
  if (font == GetFont()) return;
  TSymbol::SetFont(font);
  m_fittedBox = Unfitted;
  onFontChange();
}

void TText::SetStyle(const TObjectStylePtr &style) {
  const bool isOtherFont = !(style.constData()->font == GetFont());
  TSymbol::SetStyle(style);
  if (!isOtherFont) return;
  m_fittedBox = Unfitted;
  onFontChange();
}

void TText::onFontChange(TObject * /*sender*/) {
  TMapHost *map = GetMapHost();
  if (map == nullptr || m_text.isEmpty() || map->GetTextSizingGuard()) return;
  const SizingScope sizing(*map);
  AutoSizeText();
  map->DoUpdate(true);
}

void TText::SetText(const QString &text) {
  m_text = text;
  m_fittedBox = Unfitted;
  RecalcTextSize();
}

void TText::SetWidth(double width) {
  m_width = width;
  RecalcTextSize();
}

void TText::SetHeight(double height) {
  m_height = height;
  RecalcTextSize();
}

void TText::SetFreezeFontSize(bool freeze) {
  m_freezeFontSize = freeze;
  if (freeze && GetMapHost()) GetMapHost()->DoUpdate(true);
}

void TText::SetMinShowTextSize(int sizePt) {
  constexpr int Lowest = 4;
  if (sizePt < Lowest) return;
  m_minShowTextSizePt = sizePt;
  m_fittedBox = Unfitted;
  if (GetMapHost()) GetMapHost()->DoUpdate(true);
}

TText::Corners TText::GetScreenBox() const {
  const TMapPoint anchor = GetAnchor();
  const TMapPoint corners[] = {anchor, {anchor.X + m_width, anchor.Y + m_height}};
  QPoint pixels[2];
  GetMapHost()->GetViewport().MapToScreen(corners, pixels);
  return {pixels[0], pixels[1]};
}

void TText::RecalcTextSize() {
  if (GetMapHost()) FitFont(GetScreenBox());
}

void TText::FitFont(const Corners &corners) {
  constexpr std::uint32_t LowestBoxPx = 6;
  constexpr std::uint32_t NarrowestBoxPx = 4;
  constexpr int UnreadablePt = 3;
  if (m_text.isEmpty() || !(m_height > 0) || !(m_width > 0)) return;
  const PixelBox box{Distance(corners.lowerLeft.x(), corners.upperRight.x()),
                     Distance(corners.lowerLeft.y(), corners.upperRight.y())};
  if (box == m_fittedBox) return;
  int sizePt = UnreadablePt;
  if (box.height >= LowestBoxPx && box.width >= NarrowestBoxPx) {
    TCanvas &canvas = Canvas();
    canvas.Font() = GetFont();
    sizePt = detail::TextFit(canvas, m_text, {box.width, box.height}).FindSize(m_minShowTextSizePt - 1);
  }
  if (sizePt != GetFont().GetSize()) {
    ReplaceStyle(detail::StylePool::Instance().Resized(GetStyle(), sizePt));
  }
  m_fittedBox = box;
}

void TText::AutoSizeText() {
  TMapHost *map = GetMapHost();
  if (map == nullptr || m_text.isEmpty()) return;
  TCanvas &canvas = map->GetCanvas();
  canvas.Font() = GetFont();
  const QSize extent = canvas.TextExtent(m_text);
  const TMapPoint anchor = GetAnchor();
  const TMapPoint opposite = map->GetViewport().MovedByPixels(anchor, extent.width(), -extent.height());
  m_width = std::abs(opposite.X - anchor.X);
  m_height = std::abs(anchor.Y - opposite.Y);
}

std::unique_ptr<TCustomMapObject> TText::Clone() const {
  auto copy = std::make_unique<TText>();
  copy->SetTraits(*GetTraits());
  return CloneInto(std::move(copy));
}

struct TText::Traits : TObjectTraits {
  int shape;
  QString text;
  double angleDeg;
  double width;
  double height;
  PixelBox fittedBox;
  int minShowTextSizePt;
  bool freezeFontSize;
};

std::unique_ptr<TObjectTraits> TText::GetTraits() const {
  auto traits = std::make_unique<Traits>();
  traits->shape = GetShape();
  traits->text = m_text;
  traits->angleDeg = m_angleDeg;
  traits->width = m_width;
  traits->height = m_height;
  traits->fittedBox = m_fittedBox;
  traits->minShowTextSizePt = m_minShowTextSizePt;
  traits->freezeFontSize = m_freezeFontSize;
  return traits;
}

void TText::SetTraits(const TObjectTraits &traits) {
  const auto &own = static_cast<const Traits &>(traits);
  SetShape(own.shape);
  m_text = own.text;
  m_angleDeg = own.angleDeg;
  m_width = own.width;
  m_height = own.height;
  m_fittedBox = own.fittedBox;
  m_minShowTextSizePt = own.minShowTextSizePt;
  m_freezeFontSize = own.freezeFontSize;
}

void TText::Transform(const TMapTransform &transform) {
  const auto middleFrom = [this](const TMapPoint &corner) {
    const auto [along, down] = GetSides();
    return TMapPoint{corner.X + (along.X + down.X) / 2, corner.Y + (along.Y + down.Y) / 2};
  };
  const TMapPoint anchor = std::as_const(*this).GetAnchor();
  const TMapPoint middle = transform(middleFrom({anchor.X, anchor.Y + m_height}));
  const double angle = m_angleDeg * std::numbers::pi / 180;
  const TMapPoint along = transform.Turned({std::cos(angle), std::sin(angle)});
  const TMapPoint down = transform.Turned({std::sin(angle), -std::cos(angle)});
  if (!m_freezeFontSize) {
    m_width *= std::hypot(along.X, along.Y);
    m_height *= std::hypot(down.X, down.Y);
  }
  if (transform.GetDeterminant() > 0) m_angleDeg += TurnDeg({std::cos(angle), std::sin(angle)}, along);
  const TMapPoint way = middleFrom({0, 0});
  MoveTo(middle.X - way.X, middle.Y - way.Y - m_height);
  if (!m_freezeFontSize) RecalcTextSize();
}

void TText::Draw() {
  TMapHost *map = GetMapHost();
  if (map == nullptr) return;
  Corners box{};
  {
    const SizingScope sizing(*map);
    if (m_freezeFontSize) AutoSizeText();
    box = GetScreenBox();
    if (!m_freezeFontSize) FitFont(box);
  }
  if (GetFont().GetSize() < m_minShowTextSizePt) return;
  TCustomMapObject::Draw();  // NOLINT(bugprone-parent-virtual-call): the sign of a symbol is not drawn
  TCanvas &canvas = map->GetCanvas();
  canvas.Font() = GetFont();
  PrepareBackground(canvas);
  CanvasSetAngle(canvas, m_angleDeg);
  canvas.TextOut(box.lowerLeft.x(), box.upperRight.y(), m_text);
  CanvasSetAngle(canvas, 0);
  canvas.Brush().SetStyle(TBrushStyle::bsSolid);
}

void TText::PrepareBackground(TCanvas &canvas) {
  if (!GetMapHost()->GetViewFlags().FastSelection && GetSelected()) {
    canvas.Brush().SetBitmap(GetMapHost()->GetSelectionPattern());
    canvas.Polygon(GetTurnedBox());
  } else if (GetUseBGColor()) {
    canvas.Brush().SetStyle(TBrushStyle::bsSolid);
    canvas.Brush().SetColor(GetBGColor());
    canvas.Pen().SetColor(GetPen().GetColor());
    canvas.Polygon(GetTurnedBox());
  }
  canvas.Brush().SetStyle(TBrushStyle::bsClear);
}

void TText::DrawSelection() {
  TMapHost *map = GetMapHost();
  if (map == nullptr || !map->GetViewFlags().ShowSelection) return;
  PrepareCanvasAtributes();
  TCanvas &canvas = map->GetCanvas();
  canvas.Brush().SetStyle(TBrushStyle::bsSolid);
  canvas.Pen().SetMode(TPenMode::pmXor);
  canvas.Pen().SetColor(GetFont().GetColor());
  canvas.Pen().SetStyle(TPenStyle::psClear);
  canvas.Polygon(GetTurnedBox());
  canvas.Brush().SetStyle(TBrushStyle::bsSolid);
  canvas.Pen().SetMode(TPenMode::pmCopy);
  canvas.Pen().SetStyle(GetPen().GetStyle());
}

TText::Sides TText::GetSides() const {
  const double angle = m_angleDeg * std::numbers::pi / 180;
  return {.along = {m_width * std::cos(angle), m_width * std::sin(angle)},
          .down = {m_height * std::sin(angle), -m_height * std::cos(angle)}};
}

std::array<TPoint, 4> TText::GetTurnedBox() const {
  const TMapPoint anchor = GetAnchor();
  const TMapPoint corner{anchor.X, anchor.Y + m_height};
  const auto [along, down] = GetSides();
  const TMapPoint corners[] = {corner,
                               {corner.X + along.X, corner.Y + along.Y},
                               {corner.X + along.X + down.X, corner.Y + along.Y + down.Y},
                               {corner.X + down.X, corner.Y + down.Y}};
  std::array<TPoint, 4> pixels;
  GetMapHost()->GetViewport().MapToScreen(corners, pixels.data());
  return pixels;
}

std::vector<TPoint> TText::GetTextPolygon() const {
  if (GetMapHost() == nullptr) return {};
  const std::array<TPoint, 4> corners = GetTurnedBox();
  return {corners.begin(), corners.end()};
}

QRect TText::GetTextRect(bool /*screen*/) const {
  const std::vector<TPoint> corners = GetTextPolygon();
  if (corners.empty()) throw ERangeError(QStringLiteral("A text without a map has no place on the screen"));
  const auto [left, right] = std::minmax({corners[0].x(), corners[1].x(), corners[2].x(), corners[3].x()});
  const auto [top, bottom] = std::minmax({corners[0].y(), corners[1].y(), corners[2].y(), corners[3].y()});
  return {QPoint(left, top), QPoint(right, bottom)};
}

bool TText::ContainsPoint(double x, double y) const {
  if (GetMapHost() == nullptr) return false;
  const QRect rect = GetTextRect(true);
  const TPoint asked = GetMapHost()->GetViewport().MapToScreen(x, y);
  // QRect::contains cannot tell rectangles wider than 32 bits.
  return rect.left() <= asked.x() && asked.x() <= rect.right() && rect.top() <= asked.y() && asked.y() <= rect.bottom();
}

}  // namespace tessera
