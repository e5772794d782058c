// SPDX-License-Identifier: MIT
#include "../base/LocaleGuard.h"

#include <tessera/base/Exceptions.h>
#include <tessera/data/TDataFields.h>

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

namespace tessera {
namespace {

/// Where the definitions stand tells whether two collections share them.
const void *ColumnsOf(const TDataFields &fields) {
  return &fields.GetFields(0).GetName();
}

TDataFields ThreeColumns() {
  TDataFields fields;
  fields.Add(QStringLiteral("Name"), TDataType::dtString, 40);
  fields.Add(QStringLiteral("Lanes"), TDataType::dtInteger, 0);
  fields.Add(QStringLiteral("Built"), TDataType::dtDate, 0);
  return fields;
}

TEST(TDataFieldsTest, GivesATextWithoutSizeOneWhenAddedOrCopiedButNotWhenInserted) {
  TDataFields fields;
  EXPECT_EQ(fields.Add(QStringLiteral("Added"), TDataType::dtString, 0).GetSize(), 255);
  EXPECT_EQ(fields.Insert(0, QStringLiteral("Inserted"), TDataType::dtString, 0).GetSize(), 0);
  TDataField number = fields.Add(QStringLiteral("Number"), TDataType::dtFloat, 0);
  EXPECT_EQ(number.GetSize(), 0);
  number.SetDataType(TDataType::dtString);
  EXPECT_EQ(number.GetSize(), 255);
  TDataFields assigned;
  assigned.Assign(fields);
  EXPECT_EQ(assigned.GetFields(0).GetSize(), 255);
  EXPECT_EQ(fields.GetFields(0).GetSize(), 0);
}

TEST(TDataFieldsTest, NamesItsTypes) {
  using enum TDataType;
  QStringList names;
  for (const auto type : {dtString, dtFloat, dtDecimal, dtInteger, dtSmallInt, dtDateTime, dtDate, dtTime, dtBoolean}) {
    names.append(TDataFields().Add({}, type, 40).GetDataTypeName());
  }
  EXPECT_EQ(names.join(u'|'), u"Char(40)|Float|Decimal|Integer|SmallInt|DateTime|Date|Time|");
}

TEST(TDataFieldsTest, FindsTheLastFieldOfAName) {
  TDataFields fields = ThreeColumns();
  fields.Add(QStringLiteral("LANES"), TDataType::dtString, 1);
  const QString street = QString::fromUtf8("Улица");
  fields.Add(street, TDataType::dtString, 1);
  EXPECT_EQ(fields.FieldByName(QStringLiteral("lanes"))->GetIndex(), 3);
  EXPECT_EQ(std::as_const(fields).FieldByName(street.toUpper())->GetIndex(), 4);
  EXPECT_FALSE(fields.FieldByName(QStringLiteral("Lane")).has_value());
}

TEST(TDataFieldsTest, CountsDisplayedFieldsPastHiddenOnesAndRefusesOthers) {
  TDataFields fields = ThreeColumns();
  fields.GetFields(0).SetVisible(false);
  EXPECT_EQ(fields.GetVisibleFieldCount(), 2);
  EXPECT_EQ(fields.GetDisplayed(0).GetIndex(), 1);
  EXPECT_EQ(std::as_const(fields).GetDisplayed(1).GetIndex(), 2);
  for (const int index : {-1, 2}) EXPECT_THROW(static_cast<void>(fields.GetDisplayed(index)), ERangeError);
  for (const int index : {-1, 3}) EXPECT_THROW(fields.Delete(index), ERangeError) << index;
  for (const int index : {-1, 4}) EXPECT_THROW(fields.Insert(index, {}, TDataType::dtTime, 0), ERangeError) << index;
}

TEST(TDataFieldsTest, KeepsValuesWithTheirColumns) {
  TDataFields fields = ThreeColumns();
  for (int i = 0; i < 3; ++i) fields.GetFields(i).SetAsInteger(i);
  fields.Insert(1, QStringLiteral("New"), TDataType::dtFloat, 0);
  fields.Delete(0);
  std::vector<std::pair<QString, TDataValue>> columns;
  columns.reserve(3);
  for (int i = 0; i < 3; ++i) columns.emplace_back(fields.GetFields(i).GetName(), fields.GetFields(i).GetValue());
  EXPECT_EQ(columns, (decltype(columns){
                         {QStringLiteral("New"), {}}, {QStringLiteral("Lanes"), 1}, {QStringLiteral("Built"), 2}}));
  fields.Clear();
  EXPECT_EQ(fields.Add({}, TDataType::dtFloat, 0).GetValue(), TDataValue());
}

TEST(TDataFieldsTest, SharesDefinitionsUntilOneIsChanged) {
  TDataFields layer = ThreeColumns();
  TDataFields first;
  TDataFields second;
  first.Assign(layer);
  second.Assign(layer);
  first.GetFields(0).SetValue(QStringLiteral("High Street"));
  EXPECT_EQ(ColumnsOf(first), ColumnsOf(layer));
  EXPECT_EQ(second.GetFields(0).GetValue(), TDataValue());
  first.GetFields(1).SetName(QStringLiteral("Tracks"));
  EXPECT_EQ(ColumnsOf(second), ColumnsOf(layer));
  EXPECT_EQ(second.GetFields(1).GetName() + first.GetFields(0).GetAsString(), u"LanesHigh Street");
  // Copies that differ from the original, as a text without a size has got one, share among each other.
  layer.Insert(0, QStringLiteral("Text"), TDataType::dtString, 0);
  first.Assign(layer);
  second.Assign(layer);
  EXPECT_EQ(ColumnsOf(first), ColumnsOf(second));
  layer.GetFields(0).SetName(QStringLiteral("Title"));
  second.Assign(layer);
  EXPECT_EQ(first.GetFields(0).GetName() + second.GetFields(0).GetName(), u"TextTitle");
}

TEST(TDataFieldsTest, CopiesEveryPropertyOfAField) {
  TDataFields source = ThreeColumns();
  TDataField field = source.GetFields(1);
  field.SetIsPrimaryKey(true);
  field.SetSize(5);
  field.SetDefaultValue(QStringLiteral("2"));
  field.SetVisible(false);
  field.SetAsInteger(4);
  TDataFields dest = ThreeColumns();
  dest.SetFields(2, field);
  const TDataField copy = dest.GetFields(2);
  EXPECT_TRUE(copy.GetIsPrimaryKey() && !copy.GetVisible());
  EXPECT_EQ(copy.GetName() + copy.GetDataTypeName(), u"LanesInteger");
  EXPECT_EQ(copy.GetDefaultValue(), TDataValue(QStringLiteral("2")));
  EXPECT_EQ(copy.GetSize() + copy.GetAsInteger(), 9);
  source.Assign(source);
  EXPECT_EQ(source.GetFields(1).GetAsInteger(), 4);
}

TEST(TDataFieldTest, GivesItsValueAsText) {
  const test::TLocaleGuard guard(test::Russian());
  using enum TDataType;
  const std::tuple<TDataType, TDataValue, const char *> rows[] = {
      {dtFloat, 1.5, "1,5"},
      {dtFloat, QStringLiteral("as it is"), "as it is"},
      {dtInteger, -12, "-12"},
      {dtBoolean, true, "True"},
      {dtDate, {}, ""},
      {dtDate, 45000.75, "15.03.2023"},
      {dtDate, QStringLiteral("45000"), "15.03.2023"},
      {dtTime, 45000.75, "18:00:00"},
      {dtDateTime, TDateTime{45000.75}, "15.03.2023 18:00:00"},
      {dtDateTime, -1.25, "29.12.1899 06:00:00"},
      {dtDateTime, 86399.999 / 86400, "30.12.1899 23:59:59"},
      {dtDateTime, 0.999999999, "31.12.1899"},
      {dtString, TDateTime{45000.75}, "15.03.2023 18:00:00"}};
  for (const auto &[type, value, text] : rows) {
    TDataFields fields;
    TDataField field = fields.Add({}, type, 0);
    field.SetValue(value);
    EXPECT_EQ(field.GetAsString(), QLatin1String(text));
  }
}

TEST(TDataFieldTest, GivesItsValueAsNumbersOrRefusesIt) {
  TDataFields fields;
  TDataField field = fields.Add({}, TDataType::dtDate, 0);
  const std::tuple<TDataValue, double, std::int32_t> rows[] = {{{}, 0, 0},
                                                               {QStringLiteral("-2.5"), -2.5, -2},
                                                               {3.5, 3.5, 4},
                                                               {7, 7, 7},
                                                               {true, 1, 1},
                                                               {TDateTime{1.75}, 1.75, 2},
                                                               {2147483647.25, 2147483647.25, 2147483647}};
  for (const auto &[value, real, integer] : rows) {
    field.SetValue(value);
    for (const double got : {field.GetAsDecimal(), field.GetAsDateTime(), field.GetAsDate(), field.GetAsTime()}) {
      EXPECT_EQ(got, real);
    }
    EXPECT_EQ(field.GetAsInteger(), integer);
  }
  for (const double number : {2147483647.5, -2147483649.0, std::numeric_limits<double>::quiet_NaN()}) {
    field.SetAsFloat(number);
    EXPECT_THROW(static_cast<void>(field.GetAsInteger()), ERangeError) << number;
  }
  field.SetAsString(QStringLiteral("seven"));
  EXPECT_THROW(static_cast<void>(field.GetAsFloat()), EConvertError);
  EXPECT_THROW(static_cast<void>(field.GetAsInteger()), EConvertError);
  EXPECT_THROW(static_cast<void>(field.GetAsString()), EConvertError);
}

}  // namespace
}  // namespace tessera
