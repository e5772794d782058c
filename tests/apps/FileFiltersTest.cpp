// SPDX-License-Identifier: MIT
#include <apps/common/FileFilters.h>

#include <gtest/gtest.h>

namespace tessera::apps {
namespace {

TEST(FileFiltersTest, TurnsProviderFiltersIntoThoseOfQt) {
  const std::pair<const char *, const char16_t *> rows[] = {
      {"", u""},
      {"Maps (*.a)|*.a", u"Maps (*.a)"},
      {"Maps|*.a", u"Maps (*.a)"},
      {"Maps (*.a; *.b)|*.a; *.b", u"Maps (*.a *.b)"},
      {"Maps (*.a)|*.a|Plans (*.b)|*.b;*.c", u"Maps (*.a);;Plans (*.b *.c)"},
      {"Maps (of old) (*.a)|*.a", u"Maps (of old) (*.a)"},
      {"Maps (*.a)|", u""},
      {"Maps (*.a)", u""},
  };
  for (const auto &[filter, names] : rows) {
    EXPECT_EQ(ToNameFilters(QString::fromLatin1(filter)).join(QStringLiteral(";;")), names) << filter;
  }
}

TEST(FileFiltersTest, JoinsAllMasksInOneFilterAndTakesTheEndingOfTheFirst) {
  const QStringList filters{QStringLiteral("Maps (of old) (*.a *.b)"), QStringLiteral("Plans (*.b *.c)")};
  EXPECT_EQ(ToCommonNameFilter(filters), u"All map files (*.a *.b *.c)");
  EXPECT_EQ(DefaultEnding(filters.first()), u"a");
  EXPECT_EQ(DefaultEnding(QString()), QString());
}

}  // namespace
}  // namespace tessera::apps
