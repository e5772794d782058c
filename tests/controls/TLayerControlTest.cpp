// SPDX-License-Identifier: MIT
// Runs with a device pixel ratio of 1 and of 2.
#include "../support/MapInput.h"
#include "ControlFixture.h"

#include <tessera/base/Exceptions.h>
#include <tessera/controls/LayerCtrl.h>

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QMetaProperty>
#include <QPainter>
#include <QUndoStack>

#include <stdexcept>

namespace tessera::test {
namespace {

class TLayerControlTest : public ControlFixture {
 protected:
  TLayerControlTest() {
    for (const QChar name : {u'a', u'b', u'c'}) AddLayer(name);
    control->resize(160, 100);
    control->SetMap(map.get());
    control->show();
    Settle();
  }

  TMapLayer &Layer(int index) { return *map->GetLayers()->GetLayer(index); }
  void Click(const QRect &rect) { MapInput(*control->viewport()).Click(rect.center()); }
  QPoint Name(int row) { return control->GetNameRect(row).center(); }
  void Drag(const QPoint &from, const QPoint &to) { MapInput(*control->viewport()).Drag(from, to); }
  void Key(int key, Qt::KeyboardModifiers modifiers = {}) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(control.get(), &event);
  }
  /// What of the control is painted anew because of `action`.
  QRegion Repainted(const std::function<void()> &action) {
    Settle();
    PaintLog log;
    control->viewport()->installEventFilter(&log);
    action();
    Settle();
    return log.region;
  }
  QImage Shown() { return control->viewport()->grab().toImage(); }
  /// The switches of a layer as letters, those that are off as dots.
  static std::string Switches(const TMapLayer &layer) {
    return {layer.GetVisible() ? 'v' : '.', layer.GetSelectable() ? 's' : '.', layer.GetEditable() ? 'e' : '.',
            layer.GetAutoLabel() ? 'l' : '.'};
  }
  QStringList Rows() const {
    QStringList rows;
    for (int row = 0; row < control->model()->rowCount(); ++row)
      rows << control->model()->index(row, 0).data().toString();
    return rows;
  }
  QAccessibleInterface *Cell(int row, int column) {
    return QAccessible::queryAccessibleInterface(control.get())->tableInterface()->cellAt(row, column);
  }

  std::unique_ptr<TLayerControl> control = std::make_unique<TLayerControl>();
  QAbstractItemModelTester tester{control->model(), QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(TLayerControlTest, LaysItsColumnsOutFromTheRightEdge) {
  const int right = control->viewport()->width();
  const QRect item = control->GetItemRect(1);
  EXPECT_EQ(item, QRect(0, 15, right, 15));
  EXPECT_EQ(control->GetVisibleRect(1), QRect(right - 70, 16, 14, 13));
  EXPECT_EQ(control->GetSelectableRect(1), QRect(right - 52, 16, 14, 13));
  EXPECT_EQ(control->GetEditableRect(1), QRect(right - 34, 16, 14, 13));
  EXPECT_EQ(control->GetAutolabelRect(1), QRect(right - 16, 16, 14, 13));
  EXPECT_EQ(control->GetNameRect(1), QRect(4, 15, right - 76, 15));
  EXPECT_EQ(control->GetIndicatorRect(1), QRect(right - 68, 15, 68, 15));
  EXPECT_TRUE(control->GetVisibleRect(3).isEmpty());
  QStringList published;
  for (int i = control->metaObject()->propertyOffset(); i < control->metaObject()->propertyCount(); ++i) {
    published << QString::fromLatin1(control->metaObject()->property(i).name());
  }
  EXPECT_EQ(published.join(u' '), QStringLiteral("Map Glyphs DrawVertLines DrawHorzLines"));
}

TEST_F(TLayerControlTest, TurnsTheSwitchThatIsClicked) {
  using Rect = QRect (TLayerControl::*)(int) const;
  const std::tuple<Rect, std::string, std::string> cases[] = {
      {&TLayerControl::GetVisibleRect, "....", "vs.."},
      {&TLayerControl::GetSelectableRect, "v...", "vs.."},
      {&TLayerControl::GetEditableRect, "vse.", "vs.."},
      {&TLayerControl::GetAutolabelRect, "vs.l", "vs.."},
  };
  for (const auto &[rect, once, twice] : cases) {
    const QRect column = (control.get()->*rect)(1);
    Click(column);
    EXPECT_EQ(Switches(Layer(1)), once);
    MapInput(*control->viewport()).DoubleClick(column.center());
    EXPECT_EQ(Switches(Layer(1)), once) << "a double click is two presses";
    Click(column);
    EXPECT_EQ(Switches(Layer(1)), twice);
    EXPECT_EQ(control->GetCurrentLayer(), &Layer(1));
    MapInput(*control->viewport()).Click(column.topLeft() - QPoint(1, 0));
    EXPECT_EQ(Switches(Layer(1)), twice) << "between the columns is no switch";
  }
  EXPECT_EQ(control->GetCurrentIndex(), -1);
  MapInput(*control->viewport()).Click(Name(2));
  EXPECT_EQ(control->GetCurrentIndex(), 2);
  EXPECT_EQ(control->GetItemIndex(), 2);
  MapInput(*control->viewport()).Click({10, 80});
  EXPECT_EQ(control->GetCurrentIndex(), 2) << "there is no row";
}

TEST_F(TLayerControlTest, RedrawsOnlyTheRowOfTheLayerThatChanges) {
  const auto row = [this](int index) { return QRegion(control->GetItemRect(index)); };
  EXPECT_EQ(Repainted([&] { Layer(1).SetVisible(false); }), row(1));
  EXPECT_EQ(Repainted([&] { Layer(1).SetEditable(true); }), row(1)) << "a hidden layer does not become editable";
  EXPECT_FALSE(Layer(1).GetEditable());
  EXPECT_EQ(Repainted([&] { Layer(0).SetEditable(true); }), row(0));
  EXPECT_EQ(Repainted([&] { Layer(2).SetEditable(true); }), row(0) + row(2)) << "the other one loses it";
  EXPECT_EQ(Repainted([&] { Layer(0).SetSelectable(false); }), row(0));
  EXPECT_EQ(Repainted([&] { Layer(2).SetAutoLabel(true); }), row(2));
  EXPECT_EQ(Repainted([&] { Layer(2).SetName(QStringLiteral("new")); }), row(2));
  EXPECT_EQ(Repainted([&] { Layer(2).SetMinZoom(1); }), QRegion());
  EXPECT_EQ(Repainted([&] { Layer(2).NewObject<TRegion>()->Select(); }), QRegion());
}

TEST_F(TLayerControlTest, FollowsTheLayersOfItsMap) {
  const auto expectRows = [this](const char *after) {
    Settle();
    EXPECT_EQ(Rows().join(u' '), LayerNames()) << after;
  };
  control->SetItemIndex(1);
  TMapLayers &layers = *map->GetLayers();
  AddLayer(QStringLiteral("d"));
  expectRows("Add");
  layers.Insert(QString(), 1)->SetName(QStringLiteral("e"));
  expectRows("Insert");
  layers.Exchange(0, 3);
  expectRows("Exchange");
  layers.Move(0, 4);
  expectRows("Move");
  EXPECT_EQ(control->GetCurrentLayer()->GetName(), QStringLiteral("b")) << "the selection goes with its layer";
  layers.Delete(1);
  expectRows("Delete");
  layers.SetLayer(0, std::make_unique<TMapLayer>());
  control->Refresh();
  expectRows("SetLayer");
  layers.Clear();
  EXPECT_EQ(control->GetCurrentLayer(), nullptr);
  Shown();
  expectRows("Clear");
  AddLayer(QStringLiteral("last"));
  map.reset();
  Shown();
  Settle();
  EXPECT_EQ(control->GetMap(), nullptr);
  EXPECT_EQ(Rows(), QStringList());
}

TEST_F(TLayerControlTest, IsLeftBehindByItsMapAndTheOtherWayRound) {
  TTessera other;
  other.GetLayers()->Add(QString(), QStringLiteral("z"));
  control->SetMap(&other);
  EXPECT_EQ(map->GetDataLinks()->GetCount(), 0);
  EXPECT_EQ(Rows().join(u' '), QStringLiteral("z"));
  const auto link = control->SetDataLink(std::make_unique<TLayerControlDataLink>(*control));
  EXPECT_EQ(link->GetMap(), nullptr);
  EXPECT_EQ(other.GetDataLinks()->GetMapDataLink(0), control->GetDataLink());
  other.GetLayers()->Add(QString(), QStringLiteral("y"));
  EXPECT_EQ(Rows().join(u' '), QStringLiteral("z y"));
  // While a handler of its own click runs, and then for good.
  QObject::connect(&other, &TTessera::OnBeforeDelLayer, &other, [&] { control.reset(); });
  control->SetItemIndex(0);
  Key(Qt::Key_Delete);
  EXPECT_EQ(control, nullptr);
  EXPECT_EQ(other.GetDataLinks()->GetCount(), 0);
  other.GetLayers()->Clear();
}

TEST_F(TLayerControlTest, DeletesTheSelectedLayerUnlessAHandlerForbids) {
  bool allow = false;
  const auto connection = QObject::connect(map.get(), &TTessera::OnBeforeDelLayer, map.get(),
                                           [&](TTessera *, TMapLayer *, bool, bool &canDelete) { canDelete = allow; });
  Key(Qt::Key_Delete);
  EXPECT_EQ(LayerNames(), QStringLiteral("a b c")) << "no row is selected";
  control->SetItemIndex(1);
  Key(Qt::Key_Delete);
  EXPECT_EQ(LayerNames(), QStringLiteral("a b c"));
  allow = true;
  Key(Qt::Key_Delete);
  EXPECT_EQ(LayerNames(), QStringLiteral("a c"));
  QObject::disconnect(connection);
  QObject::connect(map.get(), &TTessera::OnBeforeDelLayer, map.get(), [] { throw std::runtime_error("no"); });
  Key(Qt::Key_Delete);
  EXPECT_EQ(messages, QStringList{QStringLiteral("no")});
  map->disconnect();
  for (int i = 0; i < 4; ++i) Key(Qt::Key_Delete);
  EXPECT_EQ(LayerNames(), QString());
}

TEST_F(TLayerControlTest, ReachesEverySwitchWithTheKeyboard) {
  control->setFocus();
  control->SetItemIndex(0);
  Key(Qt::Key_Down);
  Key(Qt::Key_Space);
  EXPECT_EQ(Switches(Layer(1)), "vs..") << "a name is no switch";
  const std::string after[] = {"....", "v...", "vse.", "vs.l"};
  for (const std::string &switches : after) {
    Key(Qt::Key_Right);
    Key(Qt::Key_Space);
    EXPECT_EQ(Switches(Layer(1)), switches);
    Key(Qt::Key_Space);
    EXPECT_EQ(Switches(Layer(1)), "vs..");
  }
  Key(Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(LayerNames(), QStringLiteral("a c b"));
  Key(Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(LayerNames(), QStringLiteral("a c b"));
  Key(Qt::Key_Up, Qt::ControlModifier);
  Key(Qt::Key_Up, Qt::ControlModifier);
  EXPECT_EQ(LayerNames(), QStringLiteral("b a c"));
  EXPECT_EQ(control->GetItemIndex(), 0);
}

TEST_F(TLayerControlTest, MovesTheLayerWhoseNameIsDragged) {
  const QPoint upper(0, -5);
  const QPoint lower(0, 5);
  const std::tuple<QPoint, QPoint, QString> cases[] = {
      {Name(0), Name(1) + lower, QStringLiteral("b a c")},
      {Name(0), Name(1) + upper, QStringLiteral("a b c")},
      {Name(2), Name(0) + upper, QStringLiteral("c a b")},
      {Name(0), QPoint(30, 90), QStringLiteral("b c a")},
      {Name(2), QPoint(30, -20), QStringLiteral("c a b")},
      {control->GetVisibleRect(0).center(), Name(2), QStringLiteral("a b c")},
  };
  for (const auto &[from, to, expected] : cases) {
    Drag(from, to);
    EXPECT_EQ(LayerNames(), expected) << from.y() << " to " << to.y();
    for (int place = 0; const QChar name : {u'a', u'b', u'c'}) {
      TMapLayers &layers = *map->GetLayers();
      layers.Move(layers.IndexOf(layers.Search(name)), place++);
    }
  }
}

TEST_F(TLayerControlTest, WhatItDoesToLayersAreStepsThatCanBeUndone) {
  QUndoStack stack;
  map->SetUndoStack(&stack);
  Layer(1).SetEditable(true);
  Click(control->GetEditableRect(0));
  Drag(Name(0), Name(1) + QPoint(0, 5));
  EXPECT_EQ(LayerNames(), QStringLiteral("b a c"));
  TMapLayer *first = &Layer(0);
  control->SetItemIndex(0);
  Key(Qt::Key_Delete);
  EXPECT_EQ(LayerNames(), QStringLiteral("a c"));
  ASSERT_EQ(stack.count(), 3);
  stack.undo();
  EXPECT_EQ(&Layer(0), first);
  Settle();
  EXPECT_EQ(Rows(), (QStringList{QStringLiteral("b"), QStringLiteral("a"), QStringLiteral("c")}));
  stack.undo();
  EXPECT_EQ(LayerNames(), QStringLiteral("a b c"));
  stack.undo();
  EXPECT_EQ(map->GetLayers()->GetEditableLayer(), first);
}

TEST_F(TLayerControlTest, MarksWhereADraggedLayerWouldGo) {
  MapInput input(*control->viewport());
  input.Press(Name(0));
  const QImage pressed = Shown();
  input.MoveTo(Name(0) + QPoint(1, 1));
  EXPECT_EQ(Shown(), pressed);
  input.MoveTo(Name(1) + QPoint(0, 5));
  EXPECT_EQ(Shown().pixel(2, int(30 * control->devicePixelRatioF())),
            control->palette().color(QPalette::Highlight).rgb());
  Key(Qt::Key_Escape);
  EXPECT_EQ(Shown(), pressed);
  input.Release(Name(1) + QPoint(0, 5));
  EXPECT_EQ(LayerNames(), QStringLiteral("a b c"));
  // The layer goes, or the button is let go elsewhere, in the middle of it.
  input.Press(Name(0));
  input.MoveTo(Name(2));
  map->GetLayers()->Delete(0);
  input.Release(Name(1));
  input.Press(Name(0));
  const QImage pressedAgain = Shown();
  input.MoveTo(Name(1));
  EXPECT_NE(Shown(), pressedAgain);
  input.MoveTo(Name(1), Qt::NoButton);
  EXPECT_EQ(Shown(), pressedAgain);
  input.Release(Name(1));
  EXPECT_EQ(LayerNames(), QStringLiteral("b c"));
}

TEST_F(TLayerControlTest, DrawsTheStateOfEverySwitch) {
  const auto column = [this](const QRect &rect) {
    const double ratio = control->devicePixelRatioF();
    return Shown().copy(QRect(rect.topLeft() * ratio, rect.size() * ratio));
  };
  const auto picture = [this](int index) {
    QImage image(QSize(14, 13) * control->devicePixelRatioF(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(control->devicePixelRatioF());
    image.fill(control->palette().color(QPalette::Base));
    QPainter(&image).drawPixmap(0, 0, control->GetIndicators(index));
    return image.convertToFormat(QImage::Format_RGB32);
  };
  Layer(1).SetAutoLabel(true);
  for (const bool isVisible : {true, false}) {
    Layer(1).SetVisible(isVisible);
    Settle();
    EXPECT_EQ(column(control->GetVisibleRect(1)), picture(isVisible ? 0 : 1));
    EXPECT_EQ(column(control->GetSelectableRect(1)), picture(isVisible ? 4 : 5));
    EXPECT_EQ(column(control->GetEditableRect(1)), picture(3));
    EXPECT_EQ(column(control->GetAutolabelRect(1)), picture(6));
  }
  EXPECT_EQ(control->GetIndicators(7).size(), QSize(16, 13) * control->devicePixelRatioF());
  EXPECT_THROW(control->GetIndicators(8), ERangeError);
  const QImage glyphs = Shown();
  control->SetGlyphs(false);
  const QImage boxes = Shown();
  EXPECT_NE(boxes, glyphs);
  Layer(1).SetVisible(true);
  EXPECT_NE(Shown(), boxes);
  const QImage before = Shown();
  control->SetDrawHorzLines(false);
  control->SetDrawVertLines(true);
  const int x = int(control->devicePixelRatioF()) * (control->viewport()->width() - 72);
  EXPECT_NE(Shown().pixel(x, 2), before.pixel(x, 2));
  EXPECT_NE(Shown().pixel(2, int(14 * control->devicePixelRatioF())),
            before.pixel(2, int(14 * control->devicePixelRatioF())));
}

TEST_F(TLayerControlTest, TellsEveryCellToAssistiveTechnology) {
  Layer(1).SetEditable(true);
  const QString names[] = {QStringLiteral("b"), QStringLiteral("b: Visible"), QStringLiteral("b: Selectable"),
                           QStringLiteral("b: Editable"), QStringLiteral("b: Labelled")};
  for (int column = 0; column < 5; ++column) {
    QAccessibleInterface *cell = Cell(1, column);
    ASSERT_TRUE(cell);
    EXPECT_EQ(cell->text(QAccessible::Name), names[column]);
    EXPECT_EQ(cell->state().checkable, column > 0);
    EXPECT_EQ(cell->state().checked, column > 0 && column < 4);
    EXPECT_FALSE(control->model()->index(1, column).data(Qt::ToolTipRole).toString().isEmpty());
  }
  EXPECT_TRUE(control->model()->setData(control->model()->index(1, 1), Qt::Unchecked, Qt::CheckStateRole));
  EXPECT_EQ(Switches(Layer(1)), "....");
}

}  // namespace
}  // namespace tessera::test
