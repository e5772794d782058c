// SPDX-License-Identifier: MIT
#include "../base/LocaleGuard.h"

#include <tessera/base/Exceptions.h>
#include <tessera/data/TDataFields.h>

#include <gtest/gtest.h>

#include <limits>

namespace tessera {
namespace {

QStringList NamesOf(const TDataFields &fields) {
  QStringList names;
  for (int i = 0; i < fields.GetCount(); ++i) names += fields.GetFields(i).GetName();
  return names;
}

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

TEST(TDataFieldsTest, GivesATextWithoutSizeOneWhenAddedButNotWhenInserted) {
  TDataFields fields;
  EXPECT_EQ(fields.Add(QStringLiteral("Added"), TDataType::dtString, 0).GetSize(), 255);
  EXPECT_EQ(fields.Insert(0, QStringLiteral("Inserted"), TDataType::dtString, 0).GetSize(), 0);
  EXPECT_EQ(fields.Add(QStringLiteral("Short"), TDataType::dtString, 7).GetSize(), 7);
  EXPECT_EQ(fields.Add(QStringLiteral("Number"), TDataType::dtFloat, 0).GetSize(), 0);
  fields.GetFields(3).SetDataType(TDataType::dtString);
  EXPECT_EQ(fields.GetFields(3).GetSize(), 255);
}

TEST(TDataFieldsTest, GivesATextWithoutSizeOneWhenCopied) {
  TDataFields fields;
  fields.Insert(0, QStringLiteral("Inserted"), TDataType::dtString, 0);
  TDataFields assigned;
  assigned.Assign(fields);
  EXPECT_EQ(assigned.GetFields(0).GetSize(), 255);
  TDataFields single = ThreeColumns();
  fields.GetFields(0).AssignTo(single.GetFields(1));
  EXPECT_EQ(single.GetFields(1).GetSize(), 255);
  EXPECT_EQ(single.GetFields(1).GetDataTypeName(), QStringLiteral("Char(255)"));
  EXPECT_EQ(fields.GetFields(0).GetSize(), 0);
}

TEST(TDataFieldsTest, NamesItsTypes) {
  struct Row {
    TDataType type;
    const char *name;
  };
  for (const Row &row :
       {Row{TDataType::dtString, "Char(40)"}, Row{TDataType::dtFloat, "Float"}, Row{TDataType::dtDecimal, "Decimal"},
        Row{TDataType::dtInteger, "Integer"}, Row{TDataType::dtSmallInt, "SmallInt"},
        Row{TDataType::dtDateTime, "DateTime"}, Row{TDataType::dtDate, "Date"}, Row{TDataType::dtTime, "Time"},
        Row{TDataType::dtBoolean, ""}}) {
    TDataFields fields;
    EXPECT_EQ(fields.Add({}, row.type, 40).GetDataTypeName(), QString::fromLatin1(row.name));
  }
}

TEST(TDataFieldsTest, FindsTheLastFieldOfAName) {
  TDataFields fields = ThreeColumns();
  fields.Add(QStringLiteral("LANES"), TDataType::dtString, 1);
  const QString street = QString::fromUtf8("Улица");
  fields.Add(street, TDataType::dtString, 1);
  EXPECT_EQ(fields.FieldByName(QStringLiteral("lanes"))->GetIndex(), 3);
  EXPECT_EQ(std::as_const(fields).FieldByName(QStringLiteral("Lanes"))->GetIndex(), 3);
  EXPECT_EQ(fields.FieldByName(street.toUpper())->GetIndex(), 4);
  EXPECT_FALSE(fields.FieldByName(QStringLiteral("Lane")).has_value());
  EXPECT_FALSE(TDataFields().FieldByName(QString()).has_value());
}

TEST(TDataFieldsTest, CountsDisplayedFieldsPastHiddenOnes) {
  TDataFields fields = ThreeColumns();
  fields.GetFields(0).SetVisible(false);
  EXPECT_EQ(fields.GetVisibleFieldCount(), 2);
  EXPECT_EQ(fields.GetDisplayed(0).GetIndex(), 1);
  EXPECT_EQ(std::as_const(fields).GetDisplayed(1).GetIndex(), 2);
  EXPECT_THROW(static_cast<void>(fields.GetDisplayed(2)), ERangeError);
  EXPECT_THROW(static_cast<void>(fields.GetDisplayed(-1)), ERangeError);
}

TEST(TDataFieldsTest, RefusesFieldsThatDoNotExist) {
  TDataFields fields = ThreeColumns();
  for (const int index : {-1, 3}) {
    EXPECT_THROW(static_cast<void>(fields.GetFields(index)), ERangeError) << index;
    EXPECT_THROW(fields.Delete(index), ERangeError) << index;
  }
  for (const int index : {-1, 4}) EXPECT_THROW(fields.Insert(index, {}, TDataType::dtTime, 0), ERangeError) << index;
  EXPECT_EQ(fields.GetCount(), 3);
}

TEST(TDataFieldsTest, KeepsValuesWithTheirColumns) {
  TDataFields fields = ThreeColumns();
  for (int i = 0; i < 3; ++i) fields.GetFields(i).SetAsInteger(i);
  fields.Insert(1, QStringLiteral("New"), TDataType::dtFloat, 0);
  EXPECT_EQ(NamesOf(fields), (QStringList{QStringLiteral("Name"), QStringLiteral("New"), QStringLiteral("Lanes"),
                                          QStringLiteral("Built")}));
  EXPECT_EQ(fields.GetFields(1).GetValue(), TDataValue());
  EXPECT_EQ(fields.GetFields(2).GetAsInteger(), 1);
  fields.Delete(0);
  EXPECT_EQ(fields.GetFields(0).GetValue(), TDataValue());
  EXPECT_EQ(fields.GetFields(2).GetAsInteger(), 2);
  fields.Clear();
  EXPECT_EQ(fields.GetCount(), 0);
  EXPECT_EQ(fields.Add({}, TDataType::dtFloat, 0).GetValue(), TDataValue());
}

TEST(TDataFieldsTest, SharesDefinitionsUntilOneIsChanged) {
  const TDataFields layer = ThreeColumns();
  TDataFields first;
  TDataFields second;
  first.Assign(layer);
  second.Assign(layer);
  first.GetFields(0).SetValue(QStringLiteral("High Street"));
  EXPECT_EQ(ColumnsOf(first), ColumnsOf(layer));
  EXPECT_EQ(ColumnsOf(second), ColumnsOf(layer));
  EXPECT_EQ(second.GetFields(0).GetValue(), TDataValue());

  first.GetFields(1).SetName(QStringLiteral("Tracks"));
  EXPECT_NE(ColumnsOf(first), ColumnsOf(layer));
  EXPECT_EQ(second.GetFields(1).GetName(), QStringLiteral("Lanes"));
  EXPECT_EQ(first.GetFields(0).GetAsString(), QStringLiteral("High Street"));
  second.Add(QStringLiteral("More"), TDataType::dtTime, 0);
  EXPECT_EQ(layer.GetCount(), 3);
}

TEST(TDataFieldsTest, SharesCopiesThatDifferFromTheOriginalAmongEachOther) {
  TDataFields layer;
  layer.Insert(0, QStringLiteral("Name"), TDataType::dtString, 0);
  TDataFields first;
  TDataFields second;
  first.Assign(layer);
  second.Assign(layer);
  EXPECT_EQ(ColumnsOf(first), ColumnsOf(second));
  layer.GetFields(0).SetName(QStringLiteral("Title"));
  second.Assign(layer);
  EXPECT_EQ(NamesOf(first), QStringList(QStringLiteral("Name")));
  EXPECT_EQ(NamesOf(second), QStringList(QStringLiteral("Title")));
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
  EXPECT_EQ(copy.GetName(), QStringLiteral("Lanes"));
  EXPECT_EQ(copy.GetDataType(), TDataType::dtInteger);
  EXPECT_EQ(copy.GetDefaultValue(), TDataValue(QStringLiteral("2")));
  EXPECT_EQ(copy.GetValue(), TDataValue(4));
  EXPECT_FALSE(copy.GetVisible());
  source.Assign(source);
  EXPECT_EQ(source.GetFields(1).GetAsInteger(), 4);
}

/// What the setters store, whatever the type of the column.
TEST(TDataFieldTest, StoresWhatTheSetterIsFor) {
  TDataFields fields;
  TDataField field = fields.Add({}, TDataType::dtBoolean, 0);
  struct Row {
    void (*set)(TDataField &);
    TDataValue stored;
  };
  const Row rows[] = {{[](TDataField &f) { f.SetAsString(QStringLiteral("7")); }, QStringLiteral("7")},
                      {[](TDataField &f) { f.SetAsFloat(7); }, 7.0},
                      {[](TDataField &f) { f.SetAsDecimal(7); }, 7.0},
                      {[](TDataField &f) { f.SetAsInteger(7); }, 7},
                      {[](TDataField &f) { f.SetAsDateTime(7); }, TDateTime{7}},
                      {[](TDataField &f) { f.SetAsDate(7); }, 7.0},
                      {[](TDataField &f) { f.SetAsTime(7); }, 7.0}};
  for (const Row &row : rows) {
    row.set(field);
    EXPECT_EQ(field.GetValue(), row.stored);
  }
}

TEST(TDataFieldTest, GivesItsValueAsText) {
  const test::TLocaleGuard guard(test::Russian());
  struct Row {
    TDataType type;
    TDataValue value;
    const char *text;
  };
  const Row rows[] = {{TDataType::dtFloat, 1.5, "1,5"},
                      {TDataType::dtFloat, QStringLiteral("as it is"), "as it is"},
                      {TDataType::dtInteger, -12, "-12"},
                      {TDataType::dtBoolean, true, "True"},
                      {TDataType::dtDate, {}, ""},
                      {TDataType::dtDate, 45000.75, "15.03.2023"},
                      {TDataType::dtDate, QStringLiteral("45000"), "15.03.2023"},
                      {TDataType::dtTime, 45000.75, "18:00:00"},
                      {TDataType::dtDateTime, TDateTime{45000.75}, "15.03.2023 18:00:00"},
                      {TDataType::dtString, TDateTime{45000.75}, "15.03.2023 18:00:00"}};
  for (const Row &row : rows) {
    TDataFields fields;
    TDataField field = fields.Add({}, row.type, 0);
    field.SetValue(row.value);
    EXPECT_EQ(field.GetAsString(), QString::fromLatin1(row.text));
  }
}

TEST(TDataFieldTest, GivesItsValueAsNumbers) {
  struct Row {
    TDataValue value;
    double real;
    std::int32_t integer;
  };
  TDataFields fields;
  TDataField field = fields.Add({}, TDataType::dtString, 0);
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

TEST(TDataFieldTest, RefusesTextsThatAreNoNumbersAndNumbersThatAreTooLarge) {
  TDataFields fields;
  TDataField field = fields.Add({}, TDataType::dtDate, 0);
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
