// SPDX-License-Identifier: MIT
#include "../support/FakeMapHost.h"
#include "../support/Printers.h"

#include <tessera/base/Exceptions.h>
#include <tessera/objects/TPolyline.h>

#include <gtest/gtest.h>

namespace tessera::test {
namespace {

using Events = std::vector<std::string>;

/// Three lines a, b and c, of which a and c are in one layer.
class TSelectionTest : public testing::Test {
 protected:
  TSelectionTest() {
    host.Name(a, "a");
    host.Name(b, "b");
    host.Name(c, "c");
    layer.SetMap(&host);
    other.SetMap(&host);
    double x = 10;
    for (TCustomMapObject *object : {a, b, c}) {
      AddPart(*object, {{x, 10}, {x, 90}});
      x += 30;
    }
    blank = host.picture.GetImage().copy();
    host.TakeEvents();
  }
  void Select(std::initializer_list<TCustomMapObject *> objects) {
    for (TCustomMapObject *object : objects) selection.Add(object, false);
    host.TakeEvents();
  }
  std::vector<TCustomMapObject *> Members() { return {selection.Items().begin(), selection.Items().end()}; }
  bool IsBlank() { return host.picture.GetImage() == blank; }
  using Objects = std::vector<TCustomMapObject *>;

  TFakeMapHost host;
  TSelection &selection = host.selection;
  TMapLayer layer;
  TMapLayer other;
  TCustomMapObject *a = layer.NewObject<TPolyline>();
  TCustomMapObject *b = other.NewObject<TPolyline>();
  TCustomMapObject *c = layer.NewObject<TPolyline>();
  QImage blank;
};

TEST_F(TSelectionTest, HighlightsWhatIsAddedAtOnceInTheFastWay) {
  selection.Add(a, false);
  EXPECT_EQ(host.TakeEvents(), (Events{"AddSelection a", "mdlAddSelection a"}));
  EXPECT_FALSE(IsBlank());
  selection.Paint();
  EXPECT_TRUE(IsBlank());
  selection.Paint();
  selection.Remove(a);
  EXPECT_EQ(host.TakeEvents(), (Events{"DelSelection a", "DelSelection a", "mdlDelSelection a", "Update"}));
  EXPECT_TRUE(IsBlank());
}

TEST_F(TSelectionTest, AsksForANewPictureOtherwise) {
  host.flags.FastSelection = false;
  selection.Add(a, false);
  EXPECT_EQ(host.TakeEvents(), (Events{"DoUpdate", "AddSelection a", "mdlAddSelection a"}));
  selection.Paint();
  EXPECT_TRUE(IsBlank());
  selection.Remove(a);
  EXPECT_EQ(host.TakeEvents(), (Events{"DelSelection a", "DoUpdate", "DelSelection a", "mdlDelSelection a"}));
  host.flags.FastSelection = true;
  host.isInUpdate = true;
  selection.Add(a, false);
  EXPECT_EQ(host.TakeEvents(), (Events{"DoUpdate", "AddSelection a", "mdlAddSelection a"}));
  selection.Delete(0);
  EXPECT_EQ(host.TakeEvents(), Events{"DelSelection a"});
  EXPECT_TRUE(IsBlank());
  EXPECT_THROW(selection.Delete(0), ERangeError);
}

TEST_F(TSelectionTest, IsClearedFirstWhereThatIsWanted) {
  Select({a, b});
  selection.Add(c, true);
  EXPECT_EQ(host.TakeEvents(),
            (Events{"DelSelection b", "DelSelection b", "mdlDelSelection b", "Update", "DelSelection a",
                    "DelSelection a", "mdlDelSelection a", "Update", "AddSelection c", "mdlAddSelection c"}));
  EXPECT_EQ(Members(), Objects{c});
  selection.Insert(a, 0, true);
  EXPECT_EQ(Members(), Objects{a});
}

TEST_F(TSelectionTest, DoesWithoutEventsWhatNeitherAddsNorRemoves) {
  Select({a, b});
  selection.Add(a, true);
  selection.Remove(c);
  selection.Remove(nullptr);
  EXPECT_EQ(Members(), (Objects{a, b}));
  selection.Insert(b, 0, false);
  selection.Insert(c, 3, false);
  EXPECT_EQ(Members(), (Objects{b, a, b, c}));
  selection.SetItem(3, a);
  EXPECT_FALSE(selection.Holds(c));
  EXPECT_THROW(selection.Insert(c, 5, false), ERangeError);
  EXPECT_THROW(selection.SetItem(4, c), ERangeError);
  EXPECT_EQ(host.TakeEvents(), Events());
  selection.Remove(b);
  EXPECT_TRUE(selection.Holds(b)) << "it was there twice";
  host.TakeEvents();
  host.isReady = false;
  selection.Clear();
  EXPECT_EQ(host.TakeEvents(), Events());
  EXPECT_EQ(Members(), Objects());
}

TEST_F(TSelectionTest, DropsTheObjectsOfALayerFromTheLastOn) {
  Select({a, b, c});
  selection.RemoveLayer(&layer);
  EXPECT_EQ(Members(), Objects{b});
  EXPECT_EQ(host.TakeEvents(), (Events{"DelSelection c", "DelSelection c", "mdlDelSelection c", "Update",
                                       "DelSelection a", "DelSelection a", "mdlDelSelection a", "Update"}));
  Select({a, c});
  host.flags.FastSelection = false;
  selection.RemoveLayer(&layer);
  EXPECT_EQ(Members(), Objects{b});
  EXPECT_EQ(host.TakeEvents(), (Events{"BeginUpdate", "DelSelection c", "DelSelection c", "mdlDelSelection c",
                                       "DelSelection a", "DelSelection a", "mdlDelSelection a", "EndUpdate(true)"}));
}

TEST_F(TSelectionTest, BringsTheVerticesOfItsMembersIntoView) {
  selection.Zoom();
  EXPECT_EQ(host.TakeEvents(), Events());
  Select({a, b});
  a->GetParts().GetFirst().GetPoints().SetPoint(1, {15, 70});
  selection.Zoom();
  EXPECT_EQ(host.TakeEvents(), Events{"ShowBounds"});
  EXPECT_EQ(host.shownBounds, (TBounds{10, 10, 40, 90}));
  selection.Remove(b);
  EXPECT_EQ(selection.GetVertexBounds(), (TBounds{10, 10, 15, 70}));
}

}  // namespace
}  // namespace tessera::test
