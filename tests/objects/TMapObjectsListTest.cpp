// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/objects/TMapObjectsList.h>
#include <tessera/objects/TPolyline.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>

namespace tessera {
namespace {

/// A list that can be filled.
class TFilledList : public TMapObjectsList {
 public:
  explicit TFilledList(std::vector<TCustomMapObject *> objects) { m_items = std::move(objects); }
};

TEST(TMapObjectsListTest, HasNoObjectOutsideTheCount) {
  TPolyline a;
  TPolyline b;
  TFilledList list({&a, &b, &b});
  EXPECT_EQ(list.GetItem(-1), nullptr);
  EXPECT_EQ(list.GetItem(2), &b);
  EXPECT_EQ(list.GetItem(3), nullptr);
  EXPECT_EQ(list.IndexOf(&b), 1);
  EXPECT_EQ(list.IndexOf(nullptr), -1);
  list.SetItem(1, &a);
  EXPECT_EQ(list.GetItem(1), &a);
  EXPECT_THROW(list.SetItem(3, &a), ERangeError);
}

TEST(TDisplayedObjectsTest, FollowsAListThroughRandomChanges) {
  std::mt19937 random(5);
  std::array<TPolyline, 12> objects;
  TDisplayedObjects displayed;
  std::vector<TCustomMapObject *> model;
  for (int step = 0; step < 5000; ++step) {
    TPolyline &object = objects[random() % objects.size()];
    const auto found = std::find(model.begin(), model.end(), &object);
    const auto action = random() % 20;
    if (action == 0) {
      displayed.Clear();
      model.clear();
    } else if (action < 8) {
      displayed.Remove(object);
      if (found != model.end()) model.erase(found);
    } else {
      displayed.Add(object);
      if (found == model.end()) model.push_back(&object);
    }
    ASSERT_EQ(displayed.GetItem(int(model.size())), nullptr);
    ASSERT_TRUE(std::ranges::equal(displayed.Items(), model));
    ASSERT_EQ(displayed.Holds(object), std::find(model.begin(), model.end(), &object) != model.end());
  }
}

}  // namespace
}  // namespace tessera
