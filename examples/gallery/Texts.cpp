// SPDX-License-Identifier: MIT
#include "Themes.h"

#include <cmath>
#include <numbers>

namespace tessera::gallery {
namespace {

constexpr TBounds Panel{48, 24, 90.5, 50};
constexpr double ExamplesLeft = 70.5;

/// Texts around a point, each reading away from it. A text turns about the upper left corner of its box, so that corner
/// lies half a line beside the ray.
void AddFan(TMapLayer &layer) {
  constexpr TMapPoint Centre{58, 35.6};
  constexpr double InnerRadius = 4;
  constexpr int StepDeg = 20;
  for (int angleDeg = 0; angleDeg < 360; angleDeg += StepDeg) {
    const double angle = angleDeg * std::numbers::pi / 180;
    TText &text = AddText(layer, Centre, QStringLiteral("Angle %1°").arg(angleDeg), FontOf(9, Ink));
    const double half = text.GetHeight() / 2;
    text.MoveTo(Centre.X + InnerRadius * std::cos(angle) - half * std::sin(angle),
                Centre.Y + InnerRadius * std::sin(angle) + half * std::cos(angle) - text.GetHeight());
    text.SetAngle(angleDeg);
    GiveRoom(text);
  }
}

void AddStyles(TMapLayer &layer) {
  struct TSample {
    const char *text;
    TFontStyle style;
  };
  constexpr double Gap = 1.2;
  double x = ExamplesLeft;
  for (const TSample &sample :
       {TSample{"bold", TFontStyle::fsBold}, TSample{"italic", TFontStyle::fsItalic},
        TSample{"underlined", TFontStyle::fsUnderline}, TSample{"struck out", TFontStyle::fsStrikeOut}}) {
    TText &text = AddText(layer, {x, 45}, QString::fromLatin1(sample.text), FontOf(9, Ink, sample.style));
    x += text.GetWidth() + Gap;
    GiveRoom(text);
  }
}

/// The background colour fills the box, and the pen's colour frames it.
void AddBackgrounds(TMapLayer &layer) {
  struct TSample {
    TMapPoint at;
    double angleDeg;
    TColor background, frame;
  };
  for (const TSample &sample :
       {TSample{{ExamplesLeft, 41.4}, 0, PaleOchre, Ochre}, TSample{{ExamplesLeft + 11, 40}, 15, PaleBlue, Blue}}) {
    TText &text = AddText(layer, sample.at, QStringLiteral("UseBGColor"), FontOf(9, Ink));
    text.SetAngle(sample.angleDeg);
    text.SetUseBGColor(true);
    text.SetBGColor(sample.background);
    text.SetPen(PenOf(sample.frame));
  }
}

/// A text fills its box as far as the box's height or its width allows; a rectangle shows the box.
void AddFitted(TMapLayer &layer, TMapLayer &frames, const TBounds &box, const QString &words) {
  auto *frame = frames.NewObject<TRectangle>();
  SetCorners(*frame, box);
  frame->SetPen(PenOf(Faint));
  frame->SetBrush(BrushOf(Paper, TBrushStyle::bsClear));

  TText &text = AddText(layer, {box.MinX, box.MinY}, words, FontOf(9, Blue));
  text.SetWidth(box.MaxX - box.MinX);
  text.SetHeight(box.MaxY - box.MinY);
}

void AddSizes(TSheet &sheet, TMapLayer &layer, TMapLayer &frames) {
  AddFitted(layer, frames, {ExamplesLeft, 31.6, 76, 36.4}, QStringLiteral("fits"));
  AddFitted(layer, frames, {77.5, 31.6, Panel.MaxX, 36.4}, QStringLiteral("fits its box"));
  sheet.AddCaption({ExamplesLeft, 29.6}, QStringLiteral("a box that gives the size"));

  TText &frozen = AddText(layer, {ExamplesLeft, 26.6}, QStringLiteral("FreezeFontSize"), FontOf(10, Blue));
  frozen.SetFreezeFontSize(true);
  sheet.AddCaption({ExamplesLeft, 24.8}, QStringLiteral("a size that gives the box"));
}

}  // namespace

void AddTexts(TSheet &sheet) {
  sheet.AddHeading(Panel, QStringLiteral("Text"), QStringLiteral("TText"));
  TMapLayer &frames = sheet.NewLayer(QStringLiteral("Text boxes"));
  TMapLayer &layer = sheet.NewLayer(QStringLiteral("Texts"));
  AddFan(layer);
  AddStyles(layer);
  AddBackgrounds(layer);
  sheet.AddCaption({ExamplesLeft, 38.6}, QStringLiteral("over a background"));
  AddSizes(sheet, layer, frames);
}

}  // namespace tessera::gallery
