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

/// The displayed objects beside a plain list of them, which holds each once.
void ChangeAtRandom(TDisplayedObjects &list, std::vector<TCustomMapObject *> &model, TCustomMapObject *object,
                    std::mt19937 &random) {
  const auto found = std::find(model.begin(), model.end(), object);
  const bool isThere = found != model.end();
  const auto at = [&] { return model.empty() ? 0 : int(random() % model.size()); };
  const auto action = random() % 24;
  if (action == 0) {
    list.Clear();
    model.clear();
  } else if (action < 8) {
    list.Remove(object);
    if (isThere) model.erase(found);
  } else if (action < 10 && !model.empty()) {
    const int index = at();
    list.Delete(index);
    model.erase(model.begin() + index);
  } else if (action < 12 && !model.empty()) {
    const int from = at();
    const int to = at();
    list.Move(from, to);
    TCustomMapObject *moved = model[std::size_t(from)];
    model.erase(model.begin() + from);
    model.insert(model.begin() + to, moved);
  } else if (action < 14 && !model.empty()) {
    const int one = at();
    const int other = at();
    list.Exchange(one, other);
    std::swap(model[std::size_t(one)], model[std::size_t(other)]);
  } else if (action < 16) {
    const int index = at();
    list.Insert(index, object);
    if (!isThere) model.insert(model.begin() + index, object);
  } else {
    list.Add(object);
    if (!isThere) model.push_back(object);
  }
}

TEST(TMapObjectsListTest, HasNoObjectOutsideTheCount) {
  TPolyline a;
  TPolyline b;
  TMapObjectsList list;
  for (TPolyline *object : {&a, &b, &b}) list.Add(object);
  EXPECT_EQ(list.GetItem(-1), nullptr);
  EXPECT_EQ(list.GetItem(2), &b);
  EXPECT_EQ(list.GetItem(3), nullptr);
  EXPECT_EQ(list.IndexOf(&b), 1);
  EXPECT_EQ(list.IndexOf(nullptr), -1);
  list.SetItem(1, &a);
  EXPECT_EQ(list.GetItem(1), &a);
  EXPECT_THROW(list.SetItem(3, &a), ERangeError);
  EXPECT_THROW(static_cast<void>(TMapObjectsList().Last()), ERangeError);
}

TEST(TDisplayedObjectsTest, FollowsAListThroughRandomChanges) {
  std::mt19937 random(5);
  std::array<TPolyline, 12> objects;
  TDisplayedObjects displayed;
  std::vector<TCustomMapObject *> model;
  for (int step = 0; step < 5000; ++step) {
    TPolyline *object = &objects[random() % objects.size()];
    ChangeAtRandom(displayed, model, object, random);
    ASSERT_EQ(displayed.GetCount(), int(model.size()));
    ASSERT_EQ(displayed.Holds(object), std::find(model.begin(), model.end(), object) != model.end());
    if (random() % 2 == 0) continue;  // gaps may pile up
    ASSERT_EQ(displayed.GetItem(int(model.size())), nullptr);
    ASSERT_TRUE(std::ranges::equal(displayed.Items(), model));
  }
}

}  // namespace
}  // namespace tessera
