// SPDX-License-Identifier: MIT
#include "../support/ObjectChecks.h"

#include <tessera/base/Exceptions.h>
#include <tessera/objects/TText.h>

#include <QTransform>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace tessera::test {
namespace {

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
  if (first.width() >= box.width() || box.height() / (first.height() + 0.000001) <= 1.05) return size;
  for (;;) {
    const QSize next = extentAt(++size);
    if (exceeds(next)) return size - 1;
    if (next.height() == box.height()) return size;
  }
}

TEST_F(TTextTest, EndsWhereTheWalkByPointsEnds) {
  const QString families[] = {QStringLiteral("DejaVu Serif"), QStringLiteral("Liberation Sans")};
  const auto check = [this](const QString &family, const QString &label, const QSize &box) {
    text.SetFont(TFont(family, 12));
    text.SetHeight(0);
    text.SetText(label);
    SetBox(box.width(), box.height());
    EXPECT_EQ(FontSize(), WalkAlone([this](int size) { return Extent(size); }, box, text.GetMinShowTextSize()))
        << label.toStdString() << ' ' << box.width() << 'x' << box.height();
    EXPECT_EQ(text.GetWidth(), box.width()) << "fitting the font leaves the box alone";
  };
  for (const QString &family : families) check(family, QStringLiteral(".-"), {76, 220});  // in proportion, too small
  check(families[1], QStringLiteral("i"), {76, 54});  // the next size fits, but a twentieth of the height may stay free
  std::mt19937 random(7);
  const auto upTo = [&random](int bound) { return int(random() % unsigned(bound)); };
  const QString letters = QStringLiteral("abcdeiWMQgj .,-\u0416\u0449\u0456AVTo");
  for (int round = 0; round < 150; ++round) {
    if (round % 5 == 0) text.SetMinShowTextSize(4 + upTo(30));
    QString label;
    for (int i = upTo(14); i >= 0; --i) label += letters[upTo(int(letters.size()))];
    const bool isHuge = round % 60 == 0;
    check(families[upTo(2)], label,
          {isHuge ? 40000 : 4 + upTo(round % 3 == 0 ? 60 : 500), 6 + upTo(isHuge ? 450 : 140)});
  }
}

TEST_F(TTextTest, IsLeftOutWhenItsBoxIsTooSmallToRead) {
  text.SetText(QStringLiteral("i"));
  for (const auto &[width, height, isReadable] : {std::tuple(100, 5, false), {3, 50, false}, {100, 12, true}}) {
    SetBox(width, height);
    host.displayed.Clear();
    host.ClearPicture();
    text.Paint();
    EXPECT_EQ(host.displayed.Holds(&text), isReadable);
    EXPECT_EQ(InkOf(host).isNull(), !isReadable);
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
  text.SetText(QStringLiteral("Mount"));
  EXPECT_GT(FontSize(), size);
  text.SetText(QStringLiteral("Mount Mount"));
  text.SetMinShowTextSize(24);
  text.SetMinShowTextSize(3);
  EXPECT_EQ(text.GetMinShowTextSize(), 24) << "three is too small to be taken";
  text.Draw();
  EXPECT_EQ(FontSize(), 23) << "the walk stops below the smallest size that is drawn";
  for (const double zoom : {0.0, 1e-9, 40.0, 1e300}) {
    host.viewport.Zoom = zoom;
    text.Draw();
    EXPECT_TRUE(FontSize() >= 3 && FontSize() <= 12288) << FontSize();
  }
  host.viewport.MaxX = host.viewport.MinX;
  EXPECT_THROW(text.Draw(), EZeroDivide);
  EXPECT_FALSE(host.GetTextSizingGuard()) << "an error takes the guard down";
}

TEST_F(TTextTest, MakesTheBoxThatOfAFrozenFont) {
  Freeze(QStringLiteral("Frozen"));
  const QSize extent = Extent(12);
  EXPECT_DOUBLE_EQ(text.GetHeight(), extent.height());
  text.SetFont(TFont(QStringLiteral("DejaVu Sans"), 24));
  const double width = text.GetWidth();
  EXPECT_GT(width, 1.8 * extent.width());
  host.SetTextSizingGuard(true);
  text.SetFont(TFont(QStringLiteral("DejaVu Sans"), 12));
  EXPECT_EQ(text.GetWidth(), width) << "the guard holds the box";
  host.SetTextSizingGuard(false);
  host.viewport.Zoom = 4;
  text.Draw();
  EXPECT_EQ(FontSize(), 12);
  EXPECT_DOUBLE_EQ(text.GetWidth(), extent.width() / 4.0);
}

TEST_F(TTextTest, SharesItsStyleWithLabelsOfTheSameSize) {
  TText other;
  other.SetMap(&host);
  TObjectStylePtr style(new TObjectStyle);
  for (TText *label : {&text, &other}) {
    label->SetStyle(style);
    label->SetText(QStringLiteral("Mount"));
    label->SetWidth(200), label->SetHeight(60);
  }
  EXPECT_NE(FontSize(), style->font.GetSize());
  EXPECT_EQ(text.GetStyle().constData(), other.GetStyle().constData());
  for (unsigned color = 0; color < 5000; ++color) {  // more styles than are kept
    TPen pen;
    pen.SetColor(color);
    text.SetPen(pen);
    text.SetHeight(color % 2 == 0 ? 20 : 60);
    ASSERT_EQ(text.GetPen().GetColor(), color);
  }
  EXPECT_EQ(other.GetPen(), style->pen);
}

TEST_F(TTextTest, TurnsTheFontByTheAngleRoundedUp) {
  for (const auto &[angle, escapement, orientation] :
       {std::tuple(0.0, 0, 1000), {17.01, 171, 2701}, {-45, -450, -3500}, {-0.05, 0, 995}, {1e300, 0, 0}}) {
    EXPECT_EQ(TextEscapement(angle), escapement);
    EXPECT_EQ(TextOrientation(angle), orientation);
  }
}

/// Extent of the ink in client pixels, once `turn` has moved it.
QRectF InkOf(const QImage &image, const QTransform &turn) {
  constexpr int Dark = 128;
  QPolygonF ink;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (qGray(image.pixel(x, y)) <= Dark) ink << turn.map(QPointF(x + 0.5, y + 0.5) / image.devicePixelRatio());
    }
  }
  return ink.boundingRect();
}

void ExpectNear(const QPointF &point, const QPointF &expected) {
  // Corners are whole pixels, and letters are smoothed, upright ones to whole pixels.
  constexpr double TolerancePx = 2;
  EXPECT_NEAR(point.x(), expected.x(), TolerancePx);
  EXPECT_NEAR(point.y(), expected.y(), TolerancePx);
}

TEST_F(TTextTest, StandsInItsPolygonAtAnyAngle) {
  text.SetFont(TFont(QStringLiteral("DejaVu Sans"), 20));
  text.MoveTo(150, 150);
  Freeze(QStringLiteral("Hagj|H"));
  for (const int ratio : {1, 2}) {
    host.picture.SetSize(300, 300, ratio);
    QRectF upright;
    for (const double angle : {0.0, 17.0, 45.0, 90.0, 133.0, 180.0, 270.0, 359.5, -30.0}) {
      SCOPED_TRACE(testing::Message() << angle << " degrees, " << ratio << " pixels a point");
      host.ClearPicture();
      text.SetAngle(angle);
      text.Paint();
      const std::vector<TPoint> polygon = text.GetTextPolygon();
      ASSERT_EQ(polygon.size(), 4U);
      // Turned back about the first corner, ink and corners lie as those of an upright text.
      const QTransform turn = QTransform().rotate(angle).translate(-polygon[0].x(), -polygon[0].y());
      const QRectF ink = InkOf(host.picture.GetImage(), turn);
      if (angle == 0) upright = ink;
      ASSERT_GT(ink.width(), 0.8 * Extent(20).width());
      ExpectNear(ink.topLeft(), upright.topLeft());
      ExpectNear(ink.bottomRight(), upright.bottomRight());
      ExpectNear(turn.map(QPointF(polygon[1])), {text.GetWidth(), 0});
      ExpectNear(turn.map(QPointF(polygon[2])), {text.GetWidth(), text.GetHeight()});
      ExpectNear(turn.map(QPointF(polygon[3])), {0, text.GetHeight()});
    }
  }
}

TEST_F(TTextTest, IsHitInTheRectangleAroundItsPolygon) {
  Freeze(QStringLiteral("Hit"));
  text.SetAngle(90);
  // The lower left corner stays; the text goes up from it and its lower side lies to the right.
  const double side = 100 + text.GetHeight();  // the bottom as well as the right
  const double top = side + text.GetWidth();
  ExpectHits(text, {{100, side}, {side, top}}, {{99, side}, {side + 1, top}, {100, side - 1}, {100, top + 1}});
  TText loose;
  EXPECT_FALSE(loose.ContainsPoint(0, 0));
  EXPECT_THROW(static_cast<void>(loose.GetTextRect(false)), ERangeError);
}

TEST_F(TTextTest, FillsItsPolygonBehindTheLettersAndRestoresThePictureWhenItsHighlightIsDrawnTwice) {
  Freeze(QStringLiteral("H"));
  text.SetAngle(33);
  ExpectTwoHighlightsCancel(host, text);
  text.DrawSelection();
  EXPECT_EQ(host.canvas.Pen().GetMode(), TPenMode::pmCopy);
  text.SetBGColor(clNavy);
  text.SetUseBGColor(true);
  const auto isBehind = [this](TColor color) {
    host.ClearPicture();
    text.Paint();
    const TPoint middle = text.GetTextRect(true).center();
    bool isFound = false;
    for (int x = -6; x <= 6; ++x) isFound |= host.At(middle.x() + x, middle.y()) == color;
    return isFound;
  };
  EXPECT_TRUE(isBehind(clNavy));
  host.flags.FastSelection = false;
  text.Select();
  EXPECT_TRUE(isBehind(TFakeMapHost::PatternColor));
}

}  // namespace
}  // namespace tessera::test
