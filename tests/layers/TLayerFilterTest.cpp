// SPDX-License-Identifier: MIT
#include <tessera/layers/TLayerFilter.h>
#include <tessera/objects/TSymbol.h>

#include <QLocale>
#include <gtest/gtest.h>

#include <random>
#include <stdexcept>

namespace tessera {
namespace {

using Ids = std::optional<std::vector<int>>;

class TLayerFilterTest : public testing::Test {
 protected:
  TLayerFilterTest() {
    TDataFields &fields = layer->GetFields();
    fields.Add(QStringLiteral("Name"), TDataType::dtString, 20);
    fields.Add(QStringLiteral("Население"), TDataType::dtInteger, 0);
    fields.Add(QStringLiteral("two \"words\""), TDataType::dtFloat, 0);
    fields.Add(QStringLiteral("Capital"), TDataType::dtBoolean, 0);
    fields.Add(QStringLiteral("Since"), TDataType::dtDate, 0);
    fields.Add(QStringLiteral("At"), TDataType::dtDateTime, 0);
  }
  void Add(const std::vector<TDataValue> &values) {
    auto *object = layer->NewObject<TSymbol>();
    for (std::size_t i = 0; i < values.size(); ++i) object->GetFields().GetFields(int(i)).SetValue(values[i]);
  }
  Ids Find(const char *expression) { return TLayerFilter(*layer, QString::fromUtf8(expression)).Find(); }
  std::unique_ptr<TMapLayer> layer = std::make_unique<TMapLayer>();
};

TEST_F(TLayerFilterTest, HasValuesOfTheTypesOfTheirColumns) {
  Add({QStringLiteral("10"), 9, 0.5, true, 45443.0, TDateTime{45443.75}});
  Add({QStringLiteral("9"), QStringLiteral("10"), 2, false, QStringLiteral("long ago")});
  Add({});
  Add({5, QStringLiteral("many"), QStringLiteral("1e3"), 1});
  const std::pair<const char *, std::vector<int>> rows[] = {
      {"Name < '9'", {0, 3}},
      {"name = '5'", {3}},
      {R"("Население" > 9 AND typeof(Население) = 'real')", {1}},
      {"Население = 'many'", {3}},
      {R"("two ""words""" >= 2)", {1, 3}},
      {"Capital", {0, 3}},
      {"NOT capital", {1}},
      {"Name IS NULL", {2}},
      {"Since = '2024-05-31' OR since LIKE 'long%'", {0, 1}},
      {"strftime('%H', At) = '18'", {0}},
      {"rowid IN (3, 1) -- a comment", {1, 3}},
      {"1) UNION SELECT -5 UNION SELECT 99 UNION SELECT (0", {0, 1, 2, 3}},
      {"", {}},
  };
  for (const auto &[expression, expected] : rows) {
    const Ids found = Find(expression);
    if (*expression == 0) {
      EXPECT_FALSE(found);
    } else {
      ASSERT_TRUE(found) << expression;
      EXPECT_EQ(*found, expected) << expression;
    }
  }
}

TEST_F(TLayerFilterTest, TellsWhatIsWrongAndWhere) {
  Add({QStringLiteral("a")});
  const struct {
    const char *expression;
    const char *error;
    int place;
  } rows[] = {
      {"Население > AND 1", "near \"AND\": syntax error", 12},
      {"Name = 'я' + нет", "no such column: нет", 13},
      {"Nam(1)", "no such function: Nam", 0},
      {"Name = (", "near \")\": syntax error", -1},
      {"1); DELETE FROM layer; --", "more than an expression", -1},
      {"load_extension('x')", "not authorized to use function: load_extension", -1},
      {"(SELECT 1 FROM sqlite_master)", "not authorized", -1},
      {"(SELECT name FROM pragma_database_list) = 1", "", -1},
  };
  for (const auto &row : rows) {
    TLayerFilter filter(*layer, QString::fromUtf8(row.expression));
    EXPECT_FALSE(filter.GetError().isEmpty()) << row.expression;
    EXPECT_TRUE(*row.error == 0 || filter.GetError() == QString::fromUtf8(row.error))
        << row.expression << ": " << filter.GetError().toStdString();
    EXPECT_TRUE(row.place < 0 || filter.GetErrorPlace() == row.place) << row.expression << filter.GetErrorPlace();
    EXPECT_FALSE(filter.Find()) << row.expression;
    EXPECT_FALSE(filter.GetError().isEmpty()) << row.expression;
  }
  TLayerFilter atRunTime(*layer, QStringLiteral("length(zeroblob(100000000)) + rowid > 0"));
  EXPECT_EQ(atRunTime.GetError(), QString());
  EXPECT_FALSE(atRunTime.Find());
  EXPECT_EQ(atRunTime.GetError(), QStringLiteral("string or blob too big"));
}

TEST_F(TLayerFilterTest, CanBeCancelledAndUsedAgain) {
  for (int i = 0; i < 5000; ++i) Add({QString::number(i)});
  TLayerFilter filter(*layer, QStringLiteral("Name >= '0'"));
  EXPECT_FALSE(filter.Find([] { return true; }));
  EXPECT_EQ(filter.GetError(), QString());
  EXPECT_THROW(static_cast<void>(filter.Find([]() -> bool { throw std::runtime_error("no"); })), std::runtime_error);
  EXPECT_EQ(filter.Find([] { return false; })->size(), 5000U);
  const Ids shortened = filter.Find([this] {
    while (layer->GetObjectCount() > 100) layer->RemoveObject(layer->Last());
    return false;
  });
  EXPECT_EQ(shortened->size(), 100U);
  TLayerFilter endless(*layer, QStringLiteral("(SELECT count(*) FROM layer a, layer b, layer c, layer d, layer e)"));
  int asked = 0;
  EXPECT_FALSE(endless.Find([&asked] { return ++asked == 100; }));
  EXPECT_EQ(endless.GetError(), QString());
  layer.reset();
  EXPECT_FALSE(filter.Find());
}

TEST_F(TLayerFilterTest, CopesWithColumnsOfOneNameOrNone) {
  TDataFields &fields = layer->GetFields();
  fields.Clear();
  EXPECT_EQ(TLayerFilter(*layer, QStringLiteral("1")).GetError(), QString());
  for (const char *name : {"A", "", "a", "", "#1"}) fields.Add(QString::fromLatin1(name), TDataType::dtInteger, 0);
  Add({1, 2, 3, 4, 5});
  EXPECT_EQ(Find("a = 3")->size(), 1U) << "the last of the name";
  for (int i = 0; i < 2000; ++i) fields.Add(QStringLiteral("c%1").arg(i), TDataType::dtInteger, 0);
  Add({});
  EXPECT_EQ(TLayerFilter(*layer, QStringLiteral("1")).GetError(), QStringLiteral("the layer has too many columns"));
}

TEST_F(TLayerFilterTest, FindsWhatAPlainLoopFinds) {
  std::mt19937 random(20);
  const auto number = [&random](int below) { return int(random() % unsigned(below)); };
  for (int i = 0; i < 500; ++i) {
    std::vector<TDataValue> values(4);
    if (number(5) != 0) values[0] = QString(QChar(u'a' + number(4)));
    if (number(5) != 0) values[1] = number(20) - 10;
    if (number(5) != 0) values[2] = number(100) / 8.0;
    if (number(5) != 0) values[3] = number(2) == 0;
    Add(values);
  }
  struct Term {
    QString text;
    std::function<std::optional<bool>(const TDataFields &)> holds;  // none is NULL
  };
  const auto compare = [](int column, const QString &text, auto test) {
    return Term{text, [column, test](const TDataFields &fields) -> std::optional<bool> {
                  const TDataValue value = fields.GetFields(column).GetValue();
                  if (std::holds_alternative<std::monostate>(value)) return std::nullopt;
                  return test(value);
                }};
  };
  const auto term = [&]() -> Term {
    const int limit = number(20) - 10;
    switch (number(4)) {
      case 0:
        return compare(0, QStringLiteral("Name > 'b'"), [](auto &v) { return std::get<QString>(v) > u'b'; });
      case 1:
        return compare(1, QStringLiteral("Население < %1").arg(limit),
                       [limit](auto &v) { return std::get<int>(v) < limit; });
      case 2:
        return compare(2, QStringLiteral("\"two \"\"words\"\"\" >= %1.5").arg(limit + 10),
                       [limit](auto &v) { return std::get<double>(v) >= limit + 10.5; });
      default:
        return compare(3, QStringLiteral("Capital"), [](auto &v) { return std::get<bool>(v); });
    }
  };
  for (int round = 0; round < 200; ++round) {
    const Term a = term();
    const Term b = term();
    const bool isAnd = number(2) == 0;
    const QString text = QStringLiteral("%1 %2 NOT %3").arg(a.text, isAnd ? u"AND" : u"OR", b.text);
    std::vector<int> expected;
    for (int id = 0; id < layer->GetObjectCount(); ++id) {
      const TDataFields &fields = layer->GetObjects(id)->GetFields();
      const bool left = a.holds(fields).value_or(false);
      const bool right = !b.holds(fields).value_or(true);
      if (isAnd ? left && right : left || right) expected.push_back(id);
    }
    TLayerFilter filter(*layer, text);
    EXPECT_EQ(filter.Find(), Ids(expected)) << text.toStdString();
  }
}

}  // namespace
}  // namespace tessera
