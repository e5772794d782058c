// SPDX-License-Identifier: MIT
#include "../base/LocaleGuard.h"

#include <tessera/base/Exceptions.h>
#include <tessera/data/TDataFields.h>

#include <gtest/gtest.h>

#include <limits>

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
  EXPECT_EQ(fields.Add(QStringLiteral("Number"), TDataType::dtFloat, 0).GetSize(), 0);
  fields.GetFields(2).SetDataType(TDataType::dtString);
  EXPECT_EQ(fields.GetFields(2).GetSize(), 255);

  TDataFields assigned;
  assigned.Assign(fields);
  EXPECT_EQ(assigned.GetFields(0).GetSize(), 255);
  TDataFields single = ThreeColumns();
  fields.GetFields(0).AssignTo(single.GetFields(1));
  EXPECT_EQ(single.GetFields(1).GetSize(), 255);
  EXPECT_EQ(fields.GetFields(0).GetSize(), 0);
}

TEST(TDataFieldsTest, NamesItsTypes) {
  using enum TDataType;
  const std::pair<TDataType, const char *> rows[] = {
      {dtString, "Char(40)"}, {dtFloat, "Float"},       {dtDecimal, "Decimal"},
      {dtInteger, "Integer"}, {dtSmallInt, "SmallInt"}, {dtDateTime, "DateTime"},
      {dtDate, "Date"},       {dtTime, "Time"},         {dtBoolean, ""}};
  for (const auto &[type, name] : rows) {
    TDataFields fields;
    EXPECT_EQ(fields.Add({}, type, 40).GetDataTypeName(), QLatin1String(name));
  }
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

TEST(TDataFieldsTest, CountsDisplayedFieldsPastHiddenOnes) {
  TDataFields fields = ThreeColumns();
  fields.GetFields(0).SetVisible(false);
  EXPECT_EQ(fields.GetVisibleFieldCount(), 2);
  EXPECT_EQ(fields.GetDisplayed(0).GetIndex(), 1);
  EXPECT_EQ(std::as_const(fields).GetDisplayed(1).GetIndex(), 2);
  for (const int index : {-1, 2}) EXPECT_THROW(static_cast<void>(fields.GetDisplayed(index)), ERangeError);
}

TEST(TDataFieldsTest, RefusesFieldsThatDoNotExist) {
  TDataFields fields = ThreeColumns();
  for (const int index : {-1, 3}) {
    EXPECT_THROW(static_cast<void>(fields.GetFields(index)), ERangeError) << index;
    EXPECT_THROW(fields.Delete(index), ERangeError) << index;
    EXPECT_THROW(fields.Insert(index < 0 ? index : 4, {}, TDataType::dtTime, 0), ERangeError) << index;
  }
}

TEST(TDataFieldsTest, KeepsValuesWithTheirColumns) {
  TDataFields fields = ThreeColumns();
  for (int i = 0; i < 3; ++i) fields.GetFields(i).SetAsInteger(i);
  fields.Insert(1, QStringLiteral("New"), TDataType::dtFloat, 0);
  fields.Delete(0);
  const std::pair<const char16_t *, TDataValue> expected[] = {{u"New", {}}, {u"Lanes", 1}, {u"Built", 2}};
  ASSERT_EQ(fields.GetCount(), 3);
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(fields.GetFields(i).GetName(), expected[i].first);
    EXPECT_EQ(fields.GetFields(i).GetValue(), expected[i].second);
  }
  fields.Clear();
  EXPECT_EQ(fields.GetCount(), 0);
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
  EXPECT_EQ(second.GetFields(1).GetName(), u"Lanes");
  EXPECT_EQ(first.GetFields(0).GetAsString(), u"High Street");
  // Copies that differ from the original, as a text without a size has got one, share among each other.
  layer.Insert(0, QStringLiteral("Text"), TDataType::dtString, 0);
  first.Assign(layer);
  second.Assign(layer);
  EXPECT_EQ(ColumnsOf(first), ColumnsOf(second));
  layer.GetFields(0).SetName(QStringLiteral("Title"));
  second.Assign(layer);
  EXPECT_EQ(first.GetFields(0).GetName(), u"Text");
  EXPECT_EQ(second.GetFields(0).GetName(), u"Title");
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
  EXPECT_TRUE(copy.GetIsPrimaryKey());
  EXPECT_EQ(copy.GetSize(), 5);
  EXPECT_EQ(copy.GetName(), u"Lanes");
  EXPECT_EQ(copy.GetDataType(), TDataType::dtInteger);
  EXPECT_EQ(copy.GetDefaultValue(), TDataValue(QStringLiteral("2")));
  EXPECT_EQ(copy.GetValue(), TDataValue(4));
  EXPECT_FALSE(copy.GetVisible());
  source.Assign(source);
  EXPECT_EQ(source.GetFields(1).GetAsInteger(), 4);
}

/// One field of a type, of which the values may be of any.
class TDataFieldTest : public testing::Test {
 protected:
  TDataField Field(TDataType type) { return m_fields.Insert(0, {}, type, 0); }

 private:
  TDataFields m_fields;
};

TEST_F(TDataFieldTest, StoresWhatTheSetterIsFor) {
  TDataField field = Field(TDataType::dtBoolean);
  const std::pair<void (*)(TDataField &), TDataValue> rows[] = {
      {[](TDataField &f) { f.SetAsString(QStringLiteral("7")); }, QStringLiteral("7")},
      {[](TDataField &f) { f.SetAsFloat(7); }, 7.0},
      {[](TDataField &f) { f.SetAsDecimal(7); }, 7.0},
      {[](TDataField &f) { f.SetAsInteger(7); }, 7},
      {[](TDataField &f) { f.SetAsDateTime(7); }, TDateTime{7}},
      {[](TDataField &f) { f.SetAsDate(7); }, 7.0},
      {[](TDataField &f) { f.SetAsTime(7); }, 7.0}};
  for (const auto &[set, stored] : rows) {
    set(field);
    EXPECT_EQ(field.GetValue(), stored);
  }
}

TEST_F(TDataFieldTest, GivesItsValueAsText) {
  const test::TLocaleGuard guard(test::Russian());
  struct Row {
    TDataType type;
    TDataValue value;
    const char *text;
  };
  using enum TDataType;
  const Row rows[] = {{dtFloat, 1.5, "1,5"},
                      {dtFloat, QStringLiteral("as it is"), "as it is"},
                      {dtInteger, -12, "-12"},
                      {dtBoolean, true, "True"},
                      {dtDate, {}, ""},
                      {dtDate, 45000.75, "15.03.2023"},
                      {dtDate, QStringLiteral("45000"), "15.03.2023"},
                      {dtTime, 45000.75, "18:00:00"},
                      {dtDateTime, TDateTime{45000.75}, "15.03.2023 18:00:00"},
                      {dtString, TDateTime{45000.75}, "15.03.2023 18:00:00"}};
  for (const Row &row : rows) {
    TDataField field = Field(row.type);
    field.SetValue(row.value);
    EXPECT_EQ(field.GetAsString(), QLatin1String(row.text));
  }
}

TEST_F(TDataFieldTest, GivesItsValueAsNumbers) {
  struct Row {
    TDataValue value;
    double real;
    std::int32_t integer;
  };
  TDataField field = Field(TDataType::dtString);
  for (const Row &row : {Row{{}, 0, 0}, Row{QStringLiteral("-2.5"), -2.5, -2}, Row{3.5, 3.5, 4}, Row{7, 7, 7},
                         Row{true, 1, 1}, Row{TDateTime{1.75}, 1.75, 2}}) {
    field.SetValue(row.value);
    EXPECT_EQ(field.GetAsDecimal(), row.real);
    EXPECT_EQ(field.GetAsDateTime(), row.real);
    EXPECT_EQ(field.GetAsDate(), row.real);
    EXPECT_EQ(field.GetAsTime(), row.real);
    EXPECT_EQ(field.GetAsInteger(), row.integer);
  }
  field.SetAsString(QStringLiteral("2.25"));
  EXPECT_EQ(field.GetAsFloat(), 2.25);
}

TEST_F(TDataFieldTest, RefusesTextsThatAreNoNumbersAndNumbersThatAreTooLarge) {
  TDataField field = Field(TDataType::dtDate);
  field.SetAsString(QStringLiteral("seven"));
  EXPECT_THROW(static_cast<void>(field.GetAsFloat()), EConvertError);
  EXPECT_THROW(static_cast<void>(field.GetAsInteger()), EConvertError);
  EXPECT_THROW(static_cast<void>(field.GetAsString()), EConvertError);
  field.SetAsFloat(2147483647.4);
  EXPECT_EQ(field.GetAsInteger(), std::numeric_limits<std::int32_t>::max());
  for (const double number : {2147483647.5, -2147483649.0, std::numeric_limits<double>::quiet_NaN()}) {
    field.SetAsFloat(number);
    EXPECT_THROW(static_cast<void>(field.GetAsInteger()), ERangeError) << number;
  }
}

}  // namespace
}  // namespace tessera
