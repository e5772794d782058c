// SPDX-License-Identifier: MIT
#include "InputBench.h"

#include <tessera/StdMapTools.h>
#include <tessera/layers/TSelection.h>

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>

namespace tessera::bench {
namespace {

constexpr double MillisecondsPerSecond = 1000;
constexpr int ManyObjects = 10000;

double MillisecondsOf(const std::function<void()> &work) {
  return MillisecondsPerSecond * SecondsOf(work);
}

void Send(QWidget &target, QEvent::Type type, const QPoint &at) {
  const bool isMove = type == QEvent::MouseMove;
  const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
  QMouseEvent event(type, at, at, isMove ? Qt::NoButton : Qt::LeftButton, held, Qt::NoModifier);
  QApplication::sendEvent(&target, &event);
}

/// A control that shows a picture where it is told to, and nothing else.
class BarePicture : public QWidget {
 public:
  explicit BarePicture(QImage picture) : m_picture(std::move(picture)) {
    resize(m_picture.size());
    setAttribute(Qt::WA_OpaquePaintEvent);
    show();
  }
  void MoveTo(const QPoint &at) {
    m_at = at;
    repaint();
  }

 protected:
  void paintEvent(QPaintEvent * /*event*/) override { QPainter(this).drawImage(m_at, m_picture); }

 private:
  QImage m_picture;
  QPoint m_at;
};

}  // namespace

InputBench::InputBench(const QString &path, QSize size, BenchTable &table) : m_side(path, size), m_table(table) {
  m_side.Control().show();
  m_side.Control().ShowAll();
  QApplication::processEvents();
}

QPoint InputBench::Somewhere() {
  return {int(m_random() % m_side.Control().width()), int(m_random() % m_side.Control().height())};
}

double InputBench::FrameMs(const QPoint &at) {
  return MillisecondsOf([&] {
    Send(m_side.Control(), QEvent::MouseMove, at);
    // Shows what has changed, and only that.
    QApplication::processEvents();
  });
}

void InputBench::MeasureFrames(int runs) {
  TTessera &map = m_side.Control();
  BarePicture bare(m_side.Picture());
  TPanTool pan;
  TRectTool rectangle;
  for (const auto &[what, tool] :
       {std::pair<const char *, TCustomMapTool *>{"a pan drag", &pan}, {"a rubber rectangle", &rectangle}}) {
    tool->SetTessera(&map);
    tool->SetActive(true);
    Send(map, QEvent::MouseButtonPress, {100, 100});
    int x = 100;
    const auto ours = [&] { return FrameMs({x = (x + 7) % 400, 120}); };
    const auto blit = [&] { return MillisecondsOf([&] { bare.MoveTo({x, 20}); }); };
    m_table.Measure({QStringLiteral("H frame of %1").arg(QString::fromLatin1(what)), QStringLiteral("ms"), ours, blit},
                    runs * 10);
    tool->SetActive(false);
  }
}

void InputBench::MeasureClick(int runs) {
  constexpr double Target = 1.5;
  constexpr double LimitMs = 5;
  TTessera &map = m_side.Control();
  TSelectionTool tool;
  tool.SetTessera(&map);
  tool.SetActive(true);
  std::vector<TBounds> boxes;
  for (const TCustomMapObject *object : map.GetDisplayed()->Items()) boxes.push_back(object->GetBounds());
  const auto ours = [&] {
    const QPoint at = Somewhere();
    return MillisecondsOf([&] { Send(map, QEvent::MouseButtonPress, at); });
  };
  int hits = 0;
  const auto scan = [&] {
    const QPoint at = Somewhere();
    const TMapPoint point = map.GetViewport().ScreenToMap(at.x(), at.y());
    return MillisecondsOf([&] {
      for (const TBounds &box : boxes) hits += box.ContainsPoint(point.X, point.Y);
    });
  };
  const QString title = QStringLiteral("H click among %1 objects, or a scan of their boxes").arg(boxes.size());
  m_table.Measure({title, QStringLiteral("ms"), ours, scan, Target, LimitMs}, runs * 10);
  map.GetSelection()->Clear();
}

void InputBench::MeasureSnapping(int runs) {
  constexpr double LimitMs = 1;
  TTessera &map = m_side.Control();
  map.GetLayers()->First()->SetEditable(true);
  TLineTool tool;
  tool.SetTessera(&map);
  tool.SetActive(true);
  TMapSnapping &snapping = *map.GetSnapping();
  const auto moveWith = [&](bool snaps) {
    snapping.SetToVertices(snaps);
    snapping.SetToIntersections(snaps);
    snapping.SetToEdges(snaps);
    const QPoint at = Somewhere();
    return MillisecondsOf([&] { Send(map, QEvent::MouseMove, at); });
  };
  m_table.Measure({QStringLiteral("H move of the mouse with snapping, or without"),
                   QStringLiteral("ms"),
                   [&] { return moveWith(true); },
                   [&] { return moveWith(false); },
                   {},
                   LimitMs},
                  runs * 100);
  map.GetLayers()->First()->SetEditable(false);
}

void InputBench::MeasureSelection(int runs) {
  constexpr double LimitMs = 100;
  TSelection &selection = *m_side.Control().GetSelection();
  const auto displayed = m_side.Control().GetDisplayed()->Items();
  std::vector<TCustomMapObject *> chosen(displayed.begin(), displayed.end());
  std::shuffle(chosen.begin(), chosen.end(), std::mt19937(1));
  chosen.resize(std::min<std::size_t>(chosen.size(), ManyObjects));
  const auto select = [&] {
    for (TCustomMapObject *object : chosen) selection.Add(object, false);
  };
  const auto ours = [&] {
    return MillisecondsOf([&] {
      select();
      selection.Clear();
    });
  };
  const auto twiceDrawn = [&] {
    select();
    const double ms = MillisecondsOf([&] {
      selection.Paint();
      selection.Paint();
    });
    selection.Clear();
    return ms;
  };
  m_table.Measure({QStringLiteral("H selecting %1 objects and clearing, or their highlights alone").arg(chosen.size()),
                   QStringLiteral("ms"),
                   ours,
                   twiceDrawn,
                   {},
                   LimitMs},
                  runs);
}

void InputBench::Run(int runs) {
  MeasureFrames(runs);
  MeasureClick(runs);
  MeasureSnapping(runs);
  MeasureSelection(runs);
}

}  // namespace tessera::bench
