// SPDX-License-Identifier: MIT
#include "../support/PoolBegun.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>
#include <random>
#include <vector>

namespace tessera::detail {
namespace {

struct Piece {
  unsigned char *place;
  std::size_t size;
  unsigned char mark;

  void Fill(std::size_t from) const { std::memset(place + from, mark, size - from); }
  [[nodiscard]] bool IsWhole() const {
    return std::all_of(place, place + size, [this](unsigned char byte) { return byte == mark; });
  }
};

TEST(PoolTest, GivesPiecesThatStandApartUntilEachIsGivenBackWithOrAfterThePool) {
  std::mt19937 random(11);
  std::vector<Piece> pieces;
  std::optional<PoolBegun> pool(std::in_place);
  const auto giveBackOne = [&] {
    std::swap(pieces[random() % pieces.size()], pieces.back());
    ASSERT_TRUE(pieces.back().IsWhole());
    Pool::Release(pieces.back().place);
    pieces.pop_back();
  };
  for (int step = 0; step < 20000; ++step) {
    const std::size_t size = 1 + random() % (step % 50 == 0 ? 4000 : 200);
    const bool isFigure = random() % 2 == 0;
    void *place = Pool::Take(size, isFigure ? Pool::Shelf::Figures : Pool::Shelf::Values);
    ASSERT_NE(place, nullptr);
    ASSERT_EQ(reinterpret_cast<std::uintptr_t>(place) % (isFigure ? 8 : 4), 0U);
    pieces.push_back({static_cast<unsigned char *>(place), size, static_cast<unsigned char>(step)});
    pieces.back().Fill(0);
    if (isFigure && random() % 3 == 0 && Pool::ExtendFigure(place, size, size + 100)) {
      pieces.back().size += 100;
      pieces.back().Fill(size);
    }
    if (random() % 3 != 0) continue;
    ASSERT_NO_FATAL_FAILURE(giveBackOne());
  }
  pool.reset();
  while (!pieces.empty()) ASSERT_NO_FATAL_FAILURE(giveBackOne());
}

TEST(PoolTest, LeavesLargeAndFirstPiecesToTheHeapAndIsTheYoungestOfItsThread) {
  const auto gives = [](std::size_t size) {
    void *piece = Pool::Take(size, Pool::Shelf::Figures);
    if (piece) Pool::Release(piece);
    return piece != nullptr;
  };
  EXPECT_FALSE(gives(100)) << "without a pool";
  const PoolBegun outer;
  EXPECT_TRUE(gives(100));
  EXPECT_FALSE(gives(100000));
  {
    const Pool inner;
    EXPECT_FALSE(gives(100)) << "of a pool that has only just begun";
  }
  EXPECT_TRUE(gives(100));
}

TEST(PoolTest, ExtendsOnlyTheLastPieceAndWithinItsSlab) {
  const PoolBegun pool;
  void *first = Pool::Take(16, Pool::Shelf::Figures);
  void *last = Pool::Take(16, Pool::Shelf::Figures);
  EXPECT_FALSE(Pool::ExtendFigure(first, 16, 24));
  EXPECT_TRUE(Pool::ExtendFigure(last, 16, 24));
  EXPECT_FALSE(Pool::ExtendFigure(last, 24, std::size_t(1) << 30));
  Pool::Release(first);
  Pool::Release(last);
}

}  // namespace
}  // namespace tessera::detail
