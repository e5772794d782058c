// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TSymbol.h>

#include <array>
#include <cstdint>
#include <vector>

namespace tessera {

/// The escapement of a font that is turned by `angleDeg` degrees counter-clockwise, in tenths of a degree, rounded up.
/// It is what turns a text. Angles beyond 32 bits count as 0.
[[nodiscard]] TESSERA_CORE_EXPORT int TextEscapement(double angleDeg);
/// The orientation that goes with it. It differs from the escapement, which is intended, and turns nothing.
[[nodiscard]] TESSERA_CORE_EXPORT int TextOrientation(double angleDeg);

/// A label in a box of map units, so that it grows and shrinks with the zoom; or, with its font size frozen, a label of
/// one size whose box follows the zoom.
///
/// The anchor is the lower left corner of the unturned box. Text and box are turned about the box's upper left corner.
/// To rectangles the label is the point it is anchored to; to a click it is the rectangle around its turned box.
/// Drawing brings font size and box in line with each other: every Draw may change the size, or width and height.
class TESSERA_CORE_EXPORT TText : public TSymbol {
 public:
  /// Brings size and box in line and draws the text, unless the font is smaller than MinShowTextSize: then it is not
  /// entered into the displayed objects either.
  void Draw() override;
  [[nodiscard]] std::unique_ptr<TCustomMapObject> Clone() const override;
  [[nodiscard]] std::unique_ptr<TObjectTraits> GetTraits() const override;
  void SetTraits(const TObjectTraits &traits) override;
  /// The middle of the turned box goes along, width and height grow as what lies along them does, and the angle turns
  /// as the line of the text does; mirroring leaves the angle. With the font size frozen the size stays.
  void Transform(const TMapTransform &transform) override;
  /// Fills the turned box.
  void DrawSelection() override;
  /// Whether the point lies, on the screen, in GetTextRect, borders included. False without a map.
  bool ContainsPoint(double x, double y) const override;
  [[nodiscard]] std::optional<int> GetPickReachPx() const override { return std::nullopt; }
  [[nodiscard]] TObjectFont GetFontKind() const override { return TObjectFont::Text; }
  /// Another font calls onFontChange.
  void SetFont(const TFont &font) override;
  void SetStyle(const TObjectStylePtr &style) override;

  [[nodiscard]] const QString &GetText() const { return m_text; }
  /// Fits the font to the box, as do SetWidth and SetHeight.
  void SetText(const QString &text);
  /// In degrees, counter-clockwise.
  [[nodiscard]] double GetAngle() const { return m_angleDeg; }
  void SetAngle(double angleDeg) { m_angleDeg = angleDeg; }
  /// In map units.
  [[nodiscard]] double GetWidth() const { return m_width; }
  void SetWidth(double width);
  [[nodiscard]] double GetHeight() const { return m_height; }
  void SetHeight(double height);
  [[nodiscard]] bool GetFreezeFontSize() const { return m_freezeFontSize; }
  /// Freezing asks the map for an update.
  void SetFreezeFontSize(bool freeze);
  /// Texts with a smaller font are not drawn.
  [[nodiscard]] int GetMinShowTextSize() const { return m_minShowTextSizePt; }
  /// Asks the map for an update. Values below 4 are ignored.
  void SetMinShowTextSize(int sizePt);

  /// Makes the font the one that fills the box on the screen; 3 points where the box is less than 6 pixels high or 4
  /// wide. Does nothing without a map, a text or a box. Costs little as long as text, font and box in pixels stay.
  void RecalcTextSize();
  /// Makes the box that of the text on the screen. Does nothing without a map or a text.
  void AutoSizeText();
  /// Follows a change of the font that was not made by fitting it: the box becomes that of the text.
  void onFontChange(TObject *sender = nullptr);

  /// Turns the text that a canvas draws next.
  static void CanvasSetAngle(TCanvas &canvas, double angleDeg);
  /// The corners of the turned box in client pixels, from the upper left one clockwise about the text. None without a
  /// map.
  [[nodiscard]] std::vector<TPoint> GetTextPolygon() const;
  /// The smallest rectangle around the corners, in client pixels whatever `screen` says; right and bottom belong to it.
  /// @throws ERangeError without a map.
  [[nodiscard]] QRect GetTextRect(bool screen) const;

 private:
  struct Traits;
  struct Corners {
    TPoint lowerLeft, upperRight;
  };
  /// The ways along the turned box, from its upper left corner.
  struct Sides {
    TMapPoint along, down;
  };
  [[nodiscard]] Sides GetSides() const;
  [[nodiscard]] Corners GetScreenBox() const;
  [[nodiscard]] std::array<TPoint, 4> GetTurnedBox() const;
  void FitFont(const Corners &corners);
  void PrepareBackground(TCanvas &canvas);

  /// A size in client pixels that may be larger than any picture.
  struct PixelBox {
    std::uint32_t width;
    std::uint32_t height;

    bool operator==(const PixelBox &) const = default;
  };
  static constexpr PixelBox Unfitted{UINT32_MAX, UINT32_MAX};

  QString m_text;
  double m_angleDeg = 0;
  double m_width = 0;
  double m_height = 0;
  /// The box that the present font has been fitted to with the present text.
  PixelBox m_fittedBox = Unfitted;
  int m_minShowTextSizePt = 4;
  bool m_freezeFontSize = false;
};

}  // namespace tessera
