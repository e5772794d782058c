// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/TCardinalArray.h>

#include <gtest/gtest.h>

#include <vector>

namespace tessera {
namespace {

void Fill(TCardinalArray &ids, std::uint32_t count) {
  for (std::uint32_t id = 0; id < count; ++id) ids.Add(id * 10);
}

using TIds = std::vector<std::uint32_t>;

TIds Contents(const TCardinalArray &ids) {
  return {ids.Ids().begin(), ids.Ids().end()};
}

/// Items are checked against the capacity and not the count, which shows how great it is.
void ExpectCapacity(const TCardinalArray &ids, int capacity) {
  EXPECT_NO_THROW(static_cast<void>(ids.GetItem(capacity - 1)));
  EXPECT_THROW(static_cast<void>(ids.GetItem(capacity)), ERangeError);
}

int CapacityOf(const TCardinalArray &ids) {
  int capacity = ids.GetCount();
  try {
    for (;; ++capacity) static_cast<void>(ids.GetItem(capacity));
  } catch (const ERangeError &) {
    return capacity;
  }
}

TEST(TCardinalArrayTest, DoublesWhenOneFreePlaceIsLeftAndGivesStorageBackWhenCleared) {
  TCardinalArray ids;
  Fill(ids, 31);
  ExpectCapacity(ids, 32);
  ids.SetItem(31, 7);
  EXPECT_EQ(ids.GetItem(31), 7U) << "beyond the count";
  EXPECT_THROW(ids.SetItem(-1, 7), ERangeError);
  ids.Add(310);
  ExpectCapacity(ids, 62);
  Fill(ids, 968);
  for (int i = 32; i < 1000; ++i) ASSERT_EQ(ids.GetItem(i), std::uint32_t(i - 32) * 10);
  ids.Clear();
  EXPECT_EQ(ids.GetItem(31), 0U);
  ExpectCapacity(ids, 32);
}

TEST(TCardinalArrayTest, AddsManyAsOneByOne) {
  for (const std::uint32_t there : {0U, 1U, 30U, 31U, 40U}) {
    for (const std::uint32_t more : {0U, 1U, 2U, 29U, 30U, 31U, 32U, 200U}) {
      SCOPED_TRACE(testing::Message() << there << " and " << more);
      TCardinalArray ids;
      TCardinalArray oneByOne;
      for (TCardinalArray *each : {&ids, &oneByOne}) Fill(*each, there);
      const TIds added(more, 7);
      ids.AddAll(added);
      for (const std::uint32_t id : added) oneByOne.Add(id);
      EXPECT_EQ(Contents(ids), Contents(oneByOne));
      ExpectCapacity(ids, CapacityOf(oneByOne));
    }
  }
}

TEST(TCardinalArrayTest, LeavesNoPlaceInACopy) {
  TCardinalArray ids;
  Fill(ids, 3);
  TCardinalArray copy;
  copy.Copy(ids);
  EXPECT_EQ(Contents(copy), Contents(ids));
  EXPECT_THROW(copy.Add(1), ERangeError);
  EXPECT_THROW(copy.AddAll(Contents(ids)), ERangeError);
  copy.Clear();
  EXPECT_NO_THROW(copy.Add(1));
}

TEST(TCardinalArrayTest, RemovesOneAndTruncatesButDoesNotExtend) {
  TCardinalArray ids;
  Fill(ids, 5);
  ids.Remove(1);
  ids.Remove(3);
  EXPECT_EQ(Contents(ids), (TIds{0, 20, 30}));
  EXPECT_TRUE(ids.Exists(30));
  EXPECT_FALSE(ids.Exists(40)) << "a removed id is still stored, but not in use";
  for (const int index : {-1, 3}) EXPECT_THROW(ids.Remove(index), ERangeError);
  EXPECT_THROW(ids.Truncate(4), ERangeError);
  ids.Truncate(2);
  EXPECT_EQ(Contents(ids), (TIds{0, 20}));
}

}  // namespace
}  // namespace tessera
