// SPDX-License-Identifier: MIT
#include "LocaleGuard.h"

#include <tessera/base/Exceptions.h>
#include <tessera/base/detail/Numbers.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tessera {
namespace {

using test::TLocaleGuard;

TEST(NumbersTest, FollowsTheSeparatorOfTheLocaleWhereThatIsAscii) {
  EXPECT_EQ(detail::StrToFloat(u"12.5"), 12.5);
  const TLocaleGuard guard(test::Russian());
  EXPECT_EQ(detail::StrToFloat(u"12,5"), 12.5);
  EXPECT_THROW(static_cast<void>(detail::StrToFloat(u"12.5")), EConvertError);
  EXPECT_EQ(detail::FloatToStr(-12.5), u"-12,5");
  const TLocaleGuard persian(QLocale(QLocale::Persian, QLocale::Iran));
  EXPECT_NE(QLocale().decimalPoint(), QStringLiteral(".")) << "the locale does not make the case any more";
  EXPECT_EQ(detail::DecimalSeparator(), '.');
}

TEST(NumbersTest, AcceptsNoGroupsAndNoSpecialValues) {
  for (const char16_t *text :
       {u"", u" ", u"1 000", u"1,000.5", u"nan", u"inf", u"0x1p3", u"1.5m", u"1\u0660", u"\u00d71", u"1.."}) {
    double value = 7;
    EXPECT_FALSE(detail::TryStrToFloat(text, value)) << QString::fromUtf16(text).toStdString();
    EXPECT_EQ(value, 7);
  }
}

TEST(NumbersTest, PassesOverBlanksAroundAFloatButOnlyInFrontOfAnInteger) {
  EXPECT_EQ(detail::StrToFloat(u"  1e2 "), 100);
  EXPECT_EQ(detail::StrToInt(u"  -12"), -12);
  int value = 7;
  for (const char16_t *text : {u"12 ", u"\t12", u"$FF", u"2147483648"}) EXPECT_FALSE(detail::TryStrToInt(text, value));
  EXPECT_EQ(value, 7);
}

TEST(NumbersTest, NamesTheBadTextInTheErrorButNoMoreOfItThanCanBeRead) {
  const auto errorOf = [](auto convert, const QString &text) {
    try {
      static_cast<void>(convert(text));
    } catch (const EConvertError &error) {
      return MessageOf(error);
    }
    return QStringLiteral("no EConvertError");
  };
  const QString longText(1'000'000, u'x');
  EXPECT_EQ(errorOf(detail::StrToFloat, QStringLiteral("5%1x")), u"'5%1x' is not a valid floating point value");
  EXPECT_EQ(errorOf(detail::StrToInt, QStringLiteral("1.5")), u"'1.5' is not a valid integer value");
  EXPECT_EQ(errorOf(detail::StrToInt, longText),
            QStringLiteral("'%1...' is not a valid integer value").arg(longText.first(60)));
}

TEST(NumbersTest, WritesFifteenDigitsAndAnExponentOnlyWhereItIsNeeded) {
  const std::pair<double, const char *> cases[] = {
      {-0.0, "0"},
      {0.1, "0.1"},
      {2.0 / 3, "0.666666666666667"},
      {-1234567.890625, "-1234567.890625"},
      {0.0001, "0.0001"},
      {0.00001, "1E-5"},
      {123456789012345, "123456789012345"},
      {1e15, "1E15"},
      {-1.5e300, "-1.5E300"},
      {std::numeric_limits<double>::quiet_NaN(), "NAN"},
      {std::numeric_limits<double>::infinity(), "INF"},
      {-std::numeric_limits<double>::infinity(), "-INF"},
  };
  for (const auto &[value, text] : cases) EXPECT_EQ(detail::FloatToStr(value), QLatin1String(text));
}

}  // namespace
}  // namespace tessera
