// SPDX-License-Identifier: MIT
#include "../support/FakeMapHost.h"

#include <tessera/base/Exceptions.h>
#include <tessera/objects/TText.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace tessera {
namespace {

using test::TFakeMapHost;

/// A label at the pixel (100, 200) of a map of 300 x 300 pixels, one map unit to a pixel.
class TTextTest : public testing::Test {
 protected:
  TTextTest() {
    host.ResizeClient(300, 300);
    text.SetMap(&host);
    text.SetFont(TFont(QStringLiteral("DejaVu Sans"), 12));
    text.MoveTo(100, 100);
  }
  void SetBox(double width, double height) {
    text.SetWidth(width);
    text.SetHeight(height);
  }
  [[nodiscard]] QSize Extent(int sizePt) {
    host.canvas.Font() = text.GetFont();
    host.canvas.Font().SetSize(sizePt);
    return host.canvas.TextExtent(text.GetText());
  }
  [[nodiscard]] int FontSize() const { return text.GetFont().GetSize(); }
  void Freeze(const QString &label) {
    text.SetFreezeFontSize(true);
    text.SetText(label);
    text.AutoSizeText();
  }

  TFakeMapHost host;
  TText text;
};

TEST_F(TTextTest, FillsItsBoxWithTheLargestFontThatFits) {
  text.SetText(QStringLiteral("Mount Mount"));
  SetBox(150, 40);
  const int size = FontSize();
  EXPECT_LE(Extent(size).width(), 150);
  EXPECT_LE(Extent(size).height(), 40);
  EXPECT_GT(Extent(size + 1).width(), 150);
  SetBox(1000, 40);
  EXPECT_LE(Extent(FontSize()).height(), 40);
  EXPECT_GT(Extent(FontSize() + 1).height(), 40);
  EXPECT_EQ(text.GetWidth(), 1000) << "fitting the font leaves the box alone";
}

/// The size that walking by single points from the estimate leads to.
template <typename Measure>
int WalkAlone(Measure extentAt, const QSize &box, int minShowSize) {
  int size = int(std::clamp(std::nearbyint(box.height() / 1.48), 2.0, 200.0));
  const auto exceeds = [&box](const QSize &e) { return e.width() > box.width() || e.height() > box.height(); };
  const QSize first = extentAt(size);
  if (exceeds(first)) {
    while (exceeds(extentAt(size)) && size > minShowSize - 1) --size;
    return size;
  }
  if (first.width() >= box.width() || first.height() >= box.height() ||
      box.height() / (first.height() + 0.000001) <= 1.05) {
    return size;
  }
  for (;;) {
    const QSize next = extentAt(++size);
    if (exceeds(next)) return size - 1;
    if (next.height() == box.height()) return size;
  }
}

TEST_F(TTextTest, EndsWhereTheWalkByPointsEnds) {
  std::mt19937 random(7);
  const auto upTo = [&random](int bound) { return int(random() % unsigned(bound)); };
  const QString letters = QStringLiteral("abcdeiWMQgj .,-\u0416\u0449\u0456AVTo");
  for (int round = 0; round < 200; ++round) {
    const QString family = upTo(2) == 0 ? QStringLiteral("DejaVu Serif") : QStringLiteral("Liberation Sans");
    text.SetFont(TFont(family, 8 + upTo(20)));
    if (round % 5 == 0) text.SetMinShowTextSize(4 + upTo(30));
    QString label;
    for (int i = upTo(14); i >= 0; --i) label += letters[upTo(int(letters.size()))];
    const bool isHuge = round % 40 == 0;
    const QSize box(isHuge ? 40000 : 4 + upTo(round % 3 == 0 ? 60 : 900), 6 + upTo(isHuge ? 700 : 250));
    text.SetText(label);
    SetBox(box.width(), box.height());
    text.RecalcTextSize();
    EXPECT_EQ(FontSize(), WalkAlone([this](int size) { return Extent(size); }, box, text.GetMinShowTextSize()))
        << label.toStdString() << ' ' << box.width() << 'x' << box.height();
  }
}

TEST_F(TTextTest, IsLeftOutWhenItsBoxIsTooSmallToRead) {
  struct Row {
    double width, height;
    bool isReadable;
  };
  text.SetText(QStringLiteral("i"));
  for (const Row &row : {Row{100, 5, false}, {3, 50, false}, {100, 12, true}}) {
    SetBox(row.width, row.height);
    host.displayed.Clear();
    host.ClearPicture();
    const QImage before = host.picture.GetImage().copy();
    text.Paint();
    EXPECT_EQ(FontSize() > 3, row.isReadable);
    EXPECT_EQ(host.displayed.Holds(text), row.isReadable);
    EXPECT_EQ(host.picture.GetImage() != before, row.isReadable);
  }
}

TEST_F(TTextTest, FollowsWhateverItsFitDependsOn) {
  text.SetText(QStringLiteral("Mount Mount"));
  SetBox(150, 40);
  const int size = FontSize();
  host.viewport.Zoom = 0.5;
  text.Draw();
  EXPECT_LT(FontSize(), size);
  host.viewport.Zoom = 1;
  text.Draw();
  EXPECT_EQ(FontSize(), size);
  text.SetText(QStringLiteral("Mount"));
  EXPECT_GT(FontSize(), size);
  text.SetText(QStringLiteral("Mount Mount"));
  EXPECT_EQ(FontSize(), size);
  ASSERT_LT(size, 20);
  text.SetMinShowTextSize(24);
  text.Draw();
  EXPECT_EQ(FontSize(), 23) << "the walk stops below the smallest size that is drawn";
}

TEST_F(TTextTest, IgnoresSmallestSizesBelowFour) {
  text.SetMinShowTextSize(3);
  EXPECT_EQ(text.GetMinShowTextSize(), 4);
  host.TakeEvents();
  text.SetMinShowTextSize(6);
  EXPECT_EQ(text.GetMinShowTextSize(), 6);
  EXPECT_EQ(host.TakeEvents(), std::vector<std::string>{"DoUpdate"});
}

TEST_F(TTextTest, LeavesTheFontAloneWithoutTextOrBox) {
  SetBox(100, 30);
  EXPECT_EQ(FontSize(), 12);
  text.SetWidth(0);
  text.SetText(QStringLiteral("a"));
  EXPECT_EQ(FontSize(), 12);
  TText loose;
  loose.SetText(QStringLiteral("a"));
  loose.SetWidth(1);
  loose.SetHeight(1);
  loose.Draw();
  EXPECT_EQ(loose.GetFont().GetSize(), TFont().GetSize());
}

TEST_F(TTextTest, MakesTheBoxThatOfAFrozenFont) {
  Freeze(QStringLiteral("Frozen"));
  const QSize extent = Extent(12);
  EXPECT_DOUBLE_EQ(text.GetWidth(), extent.width());
  EXPECT_DOUBLE_EQ(text.GetHeight(), extent.height());
  host.viewport.Zoom = 4;
  text.Draw();
  EXPECT_EQ(FontSize(), 12);
  EXPECT_DOUBLE_EQ(text.GetWidth(), extent.width() / 4.0);
  EXPECT_FALSE(host.GetTextSizingGuard());
}

TEST_F(TTextTest, FollowsAChangeOfTheFontWithItsBox) {
  Freeze(QStringLiteral("Frozen"));
  const double width = text.GetWidth();
  host.TakeEvents();
  text.SetFont(TFont(QStringLiteral("DejaVu Sans"), 24));
  EXPECT_GT(text.GetWidth(), 1.8 * width);
  EXPECT_EQ(host.TakeEvents(), std::vector<std::string>{"DoUpdate"});
  text.SetFont(text.GetFont());
  EXPECT_TRUE(host.TakeEvents().empty()) << "the same font is no change";
  host.SetTextSizingGuard(true);
  text.SetFont(TFont(QStringLiteral("DejaVu Sans"), 12));
  EXPECT_GT(text.GetWidth(), 1.8 * width) << "the guard holds the box";
  host.SetTextSizingGuard(false);
  const TObjectStylePtr style(new TObjectStyle);
  text.SetStyle(style);
  EXPECT_DOUBLE_EQ(text.GetWidth(), Extent(style->font.GetSize()).width());
}

TEST_F(TTextTest, SharesItsStyleWithLabelsOfTheSameSize) {
  TText other;
  other.SetMap(&host);
  TObjectStylePtr style(new TObjectStyle);
  style->pen.SetColor(clRed);
  for (TText *label : {&text, &other}) {
    label->SetStyle(style);
    label->SetText(QStringLiteral("Mount"));
    label->SetWidth(200);
    label->SetHeight(60);
  }
  EXPECT_NE(text.GetFont().GetSize(), style->font.GetSize());
  EXPECT_EQ(text.GetStyle().constData(), other.GetStyle().constData());
  EXPECT_EQ(text.GetPen().GetColor(), clRed);
  other.SetPen(TPen());
  EXPECT_EQ(text.GetPen().GetColor(), clRed);
  // More styles than are kept.
  for (unsigned color = 0; color < 5000; ++color) {
    text.SetPen(other.GetPen());
    TPen pen;
    pen.SetColor(color);
    text.SetPen(pen);
    text.SetHeight(color % 2 == 0 ? 20 : 60);
    ASSERT_EQ(text.GetPen().GetColor(), color);
  }
}

TEST_F(TTextTest, TurnsTheFontByTheAngleRoundedUp) {
  struct Row {
    double angle;
    int escapement, orientation;
  };
  for (const Row &row :
       {Row{0, 0, 1000}, {90, 900, 10000}, {17.01, 171, 2701}, {-45, -450, -3500}, {-0.05, 0, 995}, {1e300, 0, 0}}) {
    EXPECT_EQ(TextEscapement(row.angle), row.escapement);
    EXPECT_EQ(TextOrientation(row.angle), row.orientation);
  }
}

/// Extent of the ink along the text and down from its upper left corner, in client pixels.
struct InkBox {
  double left = 1e9, top = 1e9, right = -1e9, bottom = -1e9;
};

InkBox InkAlong(const QImage &image, const TPoint &corner, double angleDeg) {
  const double angle = angleDeg * M_PI / 180;
  const double ratio = image.devicePixelRatio();
  InkBox ink;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      constexpr int Dark = 128;
      if (qGray(image.pixel(x, y)) > Dark) continue;
      const double dx = (x + 0.5) / ratio - corner.x();
      const double dy = (y + 0.5) / ratio - corner.y();
      const double along = dx * std::cos(angle) - dy * std::sin(angle);
      const double down = dx * std::sin(angle) + dy * std::cos(angle);
      ink = {std::min(ink.left, along), std::min(ink.top, down), std::max(ink.right, along),
             std::max(ink.bottom, down)};
    }
  }
  return ink;
}

class TTextTurnTest : public TTextTest, public testing::WithParamInterface<double> {};

TEST_P(TTextTurnTest, StandsInItsPolygon) {
  // Corners are whole pixels, and letters are smoothed, upright ones to whole pixels.
  constexpr double TolerancePx = 2;
  const double angle = GetParam();
  for (const int ratio : {1, 2}) {
    host.picture.SetSize(300, 300, ratio);
    text.SetFont(TFont(QStringLiteral("DejaVu Sans"), 20));
    text.MoveTo(150, 150);
    Freeze(QStringLiteral("Hagj|H"));
    text.SetAngle(0);
    text.Paint();
    const std::vector<TPoint> box = text.GetTextPolygon();
    const InkBox upright = InkAlong(host.picture.GetImage(), box[0], 0);
    EXPECT_EQ(box[2] - box[0], QPoint(Extent(20).width(), Extent(20).height()));
    ASSERT_GT(upright.right - upright.left, 0.8 * Extent(20).width());

    host.ClearPicture();
    text.SetAngle(angle);
    text.Paint();
    const std::vector<TPoint> polygon = text.GetTextPolygon();
    const InkBox ink = InkAlong(host.picture.GetImage(), polygon[0], angle);
    EXPECT_NEAR(ink.left, upright.left, TolerancePx);
    EXPECT_NEAR(ink.top, upright.top, TolerancePx);
    EXPECT_NEAR(ink.right, upright.right, TolerancePx);
    EXPECT_NEAR(ink.bottom, upright.bottom, TolerancePx);
    const auto length = [&](int from, int to) {
      const QPoint side = polygon[std::size_t(to)] - polygon[std::size_t(from)];
      return std::hypot(side.x(), side.y());
    };
    for (const auto &[from, to, expected] : {std::tuple(0, 1, text.GetWidth()),
                                             {3, 2, text.GetWidth()},
                                             {0, 3, text.GetHeight()},
                                             {1, 2, text.GetHeight()}}) {
      EXPECT_NEAR(length(from, to), expected, TolerancePx) << from;
    }
    // Corner 1 lies where the writing goes.
    const QPoint along = polygon[1] - polygon[0];
    EXPECT_NEAR(along.x(), text.GetWidth() * std::cos(angle * M_PI / 180), TolerancePx);
    EXPECT_NEAR(along.y(), -text.GetWidth() * std::sin(angle * M_PI / 180), TolerancePx);
  }
}

INSTANTIATE_TEST_SUITE_P(Angles, TTextTurnTest, testing::Values(0, 17, 45, 90, 133, 180, 270, 359.5, -30));

TEST_F(TTextTest, IsHitInTheRectangleAroundItsPolygon) {
  Freeze(QStringLiteral("Hit"));
  text.SetAngle(90);
  const double width = text.GetWidth();
  const double height = text.GetHeight();
  // The corner (100, 100 + height) stays; the text goes up from it and its lower side lies to the right.
  const double top = 100 + height + width;
  struct Row {
    double x, y;
    bool isHit;
  };
  for (const Row &row : {Row{100, 100 + height, true},
                         {100 + height, top, true},
                         {99, 100 + height, false},
                         {101 + height, top, false},
                         {100, 99 + height, false},
                         {100, top + 1, false}}) {
    EXPECT_EQ(text.ContainsPoint(row.x, row.y), row.isHit) << row.x << ' ' << row.y;
  }
  const QRect rect = text.GetTextRect(true);
  EXPECT_EQ(rect, QRect(QPoint(100, int(300 - top)), QPoint(int(100 + height), int(200 - height))));
  TText loose;
  EXPECT_FALSE(loose.ContainsPoint(0, 0));
  EXPECT_TRUE(loose.GetTextPolygon().empty());
  EXPECT_THROW(static_cast<void>(loose.GetTextRect(false)), ERangeError);
}

TEST_F(TTextTest, FillsItsPolygonBehindTheLetters) {
  Freeze(QStringLiteral("H"));
  text.SetBGColor(clNavy);
  text.SetUseBGColor(true);
  text.SetAngle(45);
  text.Paint();
  const TPoint middle = text.GetTextRect(true).center();
  bool isGreen = false;
  for (int x = -6; x <= 6; ++x) isGreen |= host.At(middle.x() + x, middle.y()) == clNavy;
  EXPECT_TRUE(isGreen);
  EXPECT_EQ(host.canvas.Brush().GetStyle(), TBrushStyle::bsSolid);
  host.ClearPicture();
  text.SetUseBGColor(false);
  host.flags.FastSelection = false;
  text.Select();
  text.Paint();
  bool isPattern = false;
  for (int x = -6; x <= 6; ++x) isPattern |= host.At(middle.x() + x, middle.y()) == TFakeMapHost::PatternColor;
  EXPECT_TRUE(isPattern);
}

TEST_F(TTextTest, RestoresThePictureWhenItsHighlightIsDrawnTwice) {
  Freeze(QStringLiteral("Twice"));
  text.SetAngle(33);
  text.Paint();
  const QImage before = host.picture.GetImage().copy();
  text.DrawSelection();
  EXPECT_NE(host.picture.GetImage(), before);
  EXPECT_EQ(host.canvas.Pen().GetMode(), TPenMode::pmCopy);
  EXPECT_EQ(host.canvas.Pen().GetStyle(), text.GetPen().GetStyle());
  text.DrawSelection();
  EXPECT_EQ(host.picture.GetImage(), before);
  host.flags.ShowSelection = false;
  text.DrawSelection();
  EXPECT_EQ(host.picture.GetImage(), before);
}

TEST_F(TTextTest, TakesTheMapsTextFontInALayer) {
  TMapLayer layer;
  layer.SetMap(&host);
  EXPECT_EQ(layer.NewObject<TText>()->GetFont().GetName(), QStringLiteral("Courier New"));
}

TEST_F(TTextTest, StaysReadableAtEveryZoom) {
  text.SetText(QStringLiteral("Far and near"));
  SetBox(150, 40);
  for (const double zoom : {0.0, 1e-9, 0.1, 40.0, 1e6, 1e300}) {
    host.viewport.Zoom = zoom;
    text.Draw();
    EXPECT_FALSE(host.GetTextSizingGuard());
    EXPECT_GE(FontSize(), 3);
    EXPECT_LE(FontSize(), 12288);
  }
  host.viewport.MaxX = host.viewport.MinX;
  EXPECT_THROW(text.Draw(), EZeroDivide);
  EXPECT_FALSE(host.GetTextSizingGuard()) << "an error takes the guard down";
}

}  // namespace
}  // namespace tessera
