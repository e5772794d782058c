// SPDX-License-Identifier: MIT
#include <tessera/data/detail/ValueRecordIO.h>

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace tessera::detail {
namespace {

using Values = std::vector<TDataValue>;

/// One value of every kind, and the texts around the lengths at which their packed form changes.
Values AllKinds() {
  using Integers = std::numeric_limits<std::int32_t>;
  Values values{{},
                QString(),
                QString(QChar(0)),
                QString(QChar(QChar::ByteOrderMark)) + QChar(u'x'),
                QString::fromUcs4(U"\U0001F30D", 1),
                0,
                Integers::min(),
                Integers::max(),
                -0.5,
                5e-324,
                std::numeric_limits<double>::infinity(),
                true,
                false,
                TDateTime{-1.75}};
  for (const int length : {127, 128, 16383, 16384}) values.push_back(QString(length, QChar(u'a')));
  for (const int length : {63, 64, 8191, 8192}) values.push_back(QString(length, QChar(0x0416)));
  return values;
}

Values Unpacked(const TValueRecord &record) {
  Values values;
  for (ValueRecordReader reader(record); !reader.AtEnd();) values.push_back(reader.Next());
  return values;
}

TEST(ValueRecordTest, FollowsAListOfValuesThroughRandomChangesAndItsCopiesDoNot) {
  std::mt19937 random(31);
  const Values kinds = AllKinds();
  const auto any = [&](std::size_t count) { return std::size_t(random() % count); };
  for (int run = 0; run < 20; ++run) {
    Values model(kinds.begin(), kinds.begin() + run);
    ValueRecordWriter writer;
    for (const TDataValue &value : model) writer.Append(value);
    TValueRecord record;
    record.Assign(writer.Bytes());
    for (int step = 0; step < 200; ++step) {
      SCOPED_TRACE(testing::Message() << "run " << run << " step " << step);
      const TValueRecord before(record);
      const Values modelBefore = model;
      const std::size_t at = any(model.size() + 3);
      const TDataValue &value = kinds[any(kinds.size())];
      const std::size_t what = any(3);
      if (what == 0) {
        record.Remove(int(at));
        if (at < model.size()) model.erase(model.begin() + std::ptrdiff_t(at));
      } else if (what == 1) {
        record.Insert(int(at), value);
        model.resize(std::max(model.size(), at));
        model.insert(model.begin() + std::ptrdiff_t(at), value);
      } else {
        record.Set(int(at), value);
        model.resize(std::max(model.size(), at + 1));
        model[at] = value;
      }
      ASSERT_EQ(Unpacked(record), model);
      ASSERT_EQ(record.Get(int(at)), at < model.size() ? model[at] : TDataValue());
      ASSERT_EQ(record.Get(int(model.size())), TDataValue()) << "beyond the end";
      ASSERT_EQ(Unpacked(before), modelBefore);
      const TValueRecord &itself = record;
      record = itself;
    }
  }
}

}  // namespace
}  // namespace tessera::detail
