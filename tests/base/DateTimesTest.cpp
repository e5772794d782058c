// SPDX-License-Identifier: MIT
#include "LocaleGuard.h"

#include <tessera/base/Exceptions.h>
#include <tessera/base/detail/DateTimes.h>

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace tessera {
namespace {

TEST(DateTimesTest, CountsDaysFromTheEndOf1899AndTheTimeOfDayForwardsBeforeThatToo) {
  const test::TLocaleGuard guard(test::Russian());
  const std::pair<double, const char *> cases[] = {
      {36526, "01.01.2000"},          {1.25, "31.12.1899 06:00:00"},
      {-1.25, "29.12.1899 06:00:00"}, {86399.999 / 86400, "30.12.1899 23:59:59"},
      {0.999999999, "31.12.1899"},  // the last half millisecond is carried into the next day
  };
  for (const auto &[value, text] : cases) EXPECT_EQ(detail::DateTimeToStr(value), QLatin1String(text));
  EXPECT_EQ(detail::StrToDate(u" 29.02.2024 "), 45351);
  EXPECT_EQ(detail::StrToTime(u" 6:0:0 "), 0.25);
}

TEST(DateTimesTest, RefusesWhatIsNoDateOrTimeAndWhatLiesOutsideTheCalendar) {
  const test::TLocaleGuard guard(test::Russian());
  for (const char16_t *text :
       {u"", u"x", u"29.02.2023", u"01.01.23", u"2023-01-01", u"01.01.2000 10:00", u"24:00", u"10", u"10:00:00:00"}) {
    EXPECT_THROW(static_cast<void>(detail::StrToDate(text)), EConvertError) << QString::fromUtf16(text).toStdString();
    EXPECT_THROW(static_cast<void>(detail::StrToTime(text)), EConvertError) << QString::fromUtf16(text).toStdString();
  }
  for (const double value : {2958466.0, -693594.0, 1e300, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_THROW(static_cast<void>(detail::DateToStr(value)), EConvertError) << value;
    EXPECT_THROW(static_cast<void>(detail::TimeToStr(value)), EConvertError) << value;
  }
}

TEST(DateTimesTest, ReadsBackWhatItWroteInEveryLocale) {
  for (const char16_t *name : {u"C", u"en_US", u"ru_RU", u"de_DE", u"fa_IR", u"ar_EG", u"hu_HU", u"th_TH"}) {
    const test::TLocaleGuard guard{QLocale(QString::fromUtf16(name))};
    std::mt19937 engine(5);
    for (int i = 0; i < 300; ++i) {
      const double date = i == 0 ? -693593 : i == 1 ? 2958465 : int(engine() % 3652059) - 693593;
      const double time = double(engine() % 86400) / 86400;
      EXPECT_EQ(detail::StrToDate(detail::DateToStr(date)), date) << detail::DateToStr(date).toStdString();
      EXPECT_EQ(detail::StrToTime(detail::TimeToStr(time)), time) << detail::TimeToStr(time).toStdString();
    }
  }
}

}  // namespace
}  // namespace tessera
