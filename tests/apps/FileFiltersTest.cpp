// SPDX-License-Identifier: MIT
#include <apps/common/FileFilters.h>

#include <gtest/gtest.h>

namespace tessera::apps {
namespace {

TEST(FileFiltersTest, TurnsProviderFiltersIntoThoseOfQt) {
  const struct {
    const char *filter;
    QStringList names;
  } rows[] = {
      {"", {}},
      {"Maps (*.a)|*.a", {QStringLiteral("Maps (*.a)")}},
      {"Maps|*.a", {QStringLiteral("Maps (*.a)")}},
      {"Maps (*.a; *.b)|*.a; *.b", {QStringLiteral("Maps (*.a *.b)")}},
      {"Maps (*.a)|*.a|Plans (*.b)|*.b;*.c", {QStringLiteral("Maps (*.a)"), QStringLiteral("Plans (*.b *.c)")}},
      {"Maps (of old) (*.a)|*.a", {QStringLiteral("Maps (of old) (*.a)")}},
      {"Maps (*.a)|", {}},
      {"Maps (*.a)", {}},
  };
  for (const auto &row : rows) EXPECT_EQ(ToNameFilters(QString::fromLatin1(row.filter)), row.names) << row.filter;
}

TEST(FileFiltersTest, JoinsAllMasksInOneFilter) {
  const QStringList filters{QStringLiteral("Maps (of old) (*.a *.b)"), QStringLiteral("Plans (*.b *.c)")};
  EXPECT_EQ(ToCommonNameFilter(filters), QStringLiteral("All map files (*.a *.b *.c)"));
}

TEST(FileFiltersTest, TakesTheEndingOfTheFirstMask) {
  EXPECT_EQ(DefaultEnding(QStringLiteral("Maps (of old) (*.a *.b)")), QStringLiteral("a"));
  EXPECT_EQ(DefaultEnding(QString()), QString());
}

}  // namespace
}  // namespace tessera::apps
