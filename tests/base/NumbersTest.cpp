// SPDX-License-Identifier: MIT
#include "LocaleGuard.h"

#include <tessera/base/Exceptions.h>
#include <tessera/base/Numbers.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tessera {
namespace {

using test::TLocaleGuard;

template <typename TCall>
QString ConvertErrorOf(TCall call) {
  try {
    call();
  } catch (const EConvertError &error) {
    return MessageOf(error);
  }
  return QStringLiteral("no EConvertError");
}

TEST(NumbersTest, FollowsTheSeparatorOfTheLocale) {
  EXPECT_EQ(DecimalSeparator(), '.');
  EXPECT_EQ(StrToFloat(u"12.5"), 12.5);
  EXPECT_EQ(FloatToStr(-12.5), QStringLiteral("-12.5"));
  const TLocaleGuard guard(test::Russian());
  EXPECT_EQ(DecimalSeparator(), ',');
  EXPECT_EQ(StrToFloat(u"12,5"), 12.5);
  EXPECT_THROW(static_cast<void>(StrToFloat(u"12.5")), EConvertError);
  EXPECT_EQ(FloatToStr(-12.5), QStringLiteral("-12,5"));
}

TEST(NumbersTest, TakesAPointWhereTheSeparatorIsNotAscii) {
  const TLocaleGuard guard(QLocale(QLocale::Persian, QLocale::Iran));
  EXPECT_NE(QLocale().decimalPoint(), QStringLiteral(".")) << "the locale does not make the case any more";
  EXPECT_EQ(DecimalSeparator(), '.');
}

TEST(NumbersTest, AcceptsNoGroupsAndNoSpecialValues) {
  for (const char16_t *text :
       {u"", u" ", u"1 000", u"1,000.5", u"nan", u"inf", u"0x1p3", u"1.5m", u"1\u0660", u"\u00d71", u"1.."}) {
    double value = 7;
    EXPECT_FALSE(TryStrToFloat(text, value)) << QString::fromUtf16(text).toStdString();
    EXPECT_EQ(value, 7);
  }
}

TEST(NumbersTest, PassesOverBlanksAroundAFloatButOnlyInFrontOfAnInteger) {
  EXPECT_EQ(StrToFloat(u"  1e2 "), 100);
  EXPECT_EQ(StrToInt(u"  -12"), -12);
  int value = 7;
  EXPECT_FALSE(TryStrToInt(u"12 ", value));
  EXPECT_FALSE(TryStrToInt(u"\t12", value));
  EXPECT_FALSE(TryStrToInt(u"$FF", value));
  EXPECT_FALSE(TryStrToInt(u"2147483648", value));
  EXPECT_EQ(value, 7);
}

TEST(NumbersTest, NamesTheBadTextInTheError) {
  EXPECT_EQ(ConvertErrorOf([] { return StrToFloat(u"5%1x"); }),
            QStringLiteral("'5%1x' is not a valid floating point value"));
  EXPECT_EQ(ConvertErrorOf([] { return StrToInt(u"1.5"); }), QStringLiteral("'1.5' is not a valid integer value"));
  const QString longText(1'000'000, u'x');
  EXPECT_EQ(ConvertErrorOf([&] { return StrToInt(longText); }),
            QStringLiteral("'%1...' is not a valid integer value").arg(longText.first(60)));
}

struct TFloatCase {
  double value;
  const char *text;
};

TEST(NumbersTest, WritesFifteenDigitsAndAnExponentOnlyWhereItIsNeeded) {
  const TFloatCase cases[] = {
      {0, "0"},
      {-0.0, "0"},
      {1, "1"},
      {0.1, "0.1"},
      {1.0 / 3, "0.333333333333333"},
      {2.0 / 3, "0.666666666666667"},
      {-1234567.890625, "-1234567.890625"},
      {0.0001, "0.0001"},
      {0.00001, "1E-5"},
      {2.5e-7, "2.5E-7"},
      {123456789012345, "123456789012345"},
      {1e15, "1E15"},
      {-1.5e300, "-1.5E300"},
      {std::numeric_limits<double>::quiet_NaN(), "NAN"},
      {std::numeric_limits<double>::infinity(), "INF"},
      {-std::numeric_limits<double>::infinity(), "-INF"},
  };
  for (const TFloatCase &test : cases) EXPECT_EQ(FloatToStr(test.value), QLatin1String(test.text));
}

}  // namespace
}  // namespace tessera
