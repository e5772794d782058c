// SPDX-License-Identifier: MIT
#include "LabelBench.h"

#include <tessera/objects/TText.h>

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <random>

namespace tessera::bench {
namespace {

constexpr int Labels = 100'000;
constexpr int LabelsInView = 5'000;
constexpr double MillisecondsPerSecond = 1000;

/// Places of two to four syllables, such as people give them.
QString MakeName(std::mt19937 &random) {
  static constexpr std::array Syllables = {"ka", "lin", "bor",  "ost",  "ra",  "ven", "dal", "mün", "fjörd", "sel",
                                           "to", "mar", "ийск", "град", "бел", "ова", "сан", "ton", "ham",   "ley"};
  QString name;
  for (auto left = 2 + random() % 3; left > 0; --left)
    name += QString::fromUtf8(Syllables[random() % Syllables.size()]);
  name[0] = name[0].toUpper();
  return name;
}

}  // namespace

LabelBench::LabelBench(QSize pictureSize, BenchTable &table)
    : m_view{{0, 0}, 1, pictureSize},
      m_table(table),
      m_tessera(pictureSize),
      m_picture(pictureSize, QImage::Format_RGB32) {
  m_tessera.Show(m_view);
  MakeLabels();
  m_tessera.Draw();
  MakeFlatLabels();
}

void LabelBench::MakeLabels() {
  constexpr std::array HeightsPx = {14.0, 17.0, 21.0, 28.0};
  constexpr double RoomyWidthPx = 400;  // so that the height decides on the font
  std::mt19937 random(20);
  const double reach = std::sqrt(double(Labels) / LabelsInView) / 2;
  std::uniform_real_distribution<double> x(-reach * m_view.size.width(), reach * m_view.size.width());
  std::uniform_real_distribution<double> y(-reach * m_view.size.height(), reach * m_view.size.height());
  TMapLayer &layer = m_tessera.Layer();
  for (int i = 0; i < Labels; ++i) {
    auto *label = layer.NewObject<TText>();
    label->MoveTo(x(random), y(random));
    label->SetFont(TFont(QStringLiteral("DejaVu Sans"), 10, RGB(0x20, 0x30, 0x60)));
    label->SetHeight(HeightsPx[random() % HeightsPx.size()]);
    label->SetWidth(RoomyWidthPx);
    label->SetText(MakeName(random));
  }
}

void LabelBench::MakeFlatLabels() {
  std::map<int, std::size_t> fontOfSize;
  const TMapLayer &layer = m_tessera.Layer();
  for (int i = 0; i < layer.GetObjectCount(); ++i) {
    const auto &label = static_cast<const TText &>(*layer.GetObjects(i));
    const int sizePx = label.GetFont().GetPixelSize();
    const auto [font, isNew] = fontOfSize.try_emplace(sizePx, m_fonts.size());
    if (isNew) m_fonts.emplace_back(label.GetFont().GetName()).setPixelSize(sizePx);
    const TMapPoint anchor = label.GetPosition();
    m_flatLabels.push_back({{anchor.X, anchor.Y + label.GetHeight()}, font->second, label.GetText()});
  }
  // So that the painter need not change its font for every label.
  std::ranges::stable_sort(m_flatLabels, {}, &FlatLabel::font);
}

void LabelBench::DrawBare() {
  m_picture.fill(Qt::white);
  QPainter painter(&m_picture);
  painter.setPen(QColor(0x20, 0x30, 0x60));
  std::size_t font = m_fonts.size();
  double ascent = 0;
  for (const FlatLabel &label : m_flatLabels) {
    const double x = m_view.size.width() / 2.0 + (label.upperLeft.x - m_view.centre.x) / m_view.unitsPerPx;
    const double y = m_view.size.height() / 2.0 - (label.upperLeft.y - m_view.centre.y) / m_view.unitsPerPx;
    if (x < 0 || x > m_view.size.width() || y < 0 || y > m_view.size.height()) continue;
    if (label.font != font) {
      font = label.font;
      painter.setFont(m_fonts[font]);
      ascent = painter.fontMetrics().ascent();
    }
    const QPointF corner(std::round(x), std::round(y));
    if (m_angleDeg == 0) {
      painter.drawText(corner + QPointF(0, ascent), label.text);
    } else {
      painter.setTransform(QTransform::fromTranslate(corner.x(), corner.y()).rotate(-m_angleDeg));
      painter.drawText(QPointF(0, ascent), label.text);
      painter.resetTransform();
    }
  }
}

void LabelBench::Turn(double angleDeg) {
  m_angleDeg = angleDeg;
  const TMapLayer &layer = m_tessera.Layer();
  for (int i = 0; i < layer.GetObjectCount(); ++i) static_cast<TText *>(layer.GetObjects(i))->SetAngle(angleDeg);
}

void LabelBench::Run(int runs) {
  constexpr double Target = 2;
  const auto reference = [this] { return MillisecondsPerSecond * SecondsOf([this] { DrawBare(); }); };
  const auto same = [this] { return MillisecondsPerSecond * SecondsOf([this] { m_tessera.Draw(); }); };
  m_table.Measure(
      {QStringLiteral("T picture of 5,000 of 100,000 labels"), QStringLiteral("ms"), same, reference, Target}, runs);
  // Each picture at another scale, so that every font has to be fitted anew.
  double unitsPerPx = m_view.unitsPerPx;
  const auto zoomed = [&] {
    unitsPerPx *= 1.01;
    m_tessera.Show({m_view.centre, unitsPerPx, m_view.size});
    return same();
  };
  m_table.Measure({QStringLiteral("T the same after a change of scale"), QStringLiteral("ms"), zoomed, reference, {}},
                  runs);
  m_tessera.Show(m_view);
  Turn(30);
  m_table.Measure({QStringLiteral("T the same, turned by 30 degrees"), QStringLiteral("ms"), same, reference, Target},
                  runs);
}

}  // namespace tessera::bench
