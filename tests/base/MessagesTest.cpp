// SPDX-License-Identifier: MIT
#include <tessera/base/DebugTrace.h>
#include <tessera/base/Exceptions.h>
#include <tessera/base/MessageSink.h>

#include <QStringList>
#include <gtest/gtest.h>

namespace tessera {
namespace {

TEST(FormatMessageTest, PutsTheArgumentsIntoTheirPlacesInOrder) {
  EXPECT_EQ(FormatMessage(QStringLiteral("%s, %S; %d/%D"),
                          {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("1"), QStringLiteral("2")}),
            QStringLiteral("a, b; 1/2"));
}

TEST(FormatMessageTest, DoesNotLookForPlacesInArguments) {
  EXPECT_EQ(FormatMessage(QStringLiteral("%s-%s"), {QStringLiteral("%s"), QStringLiteral("x")}),
            QStringLiteral("%s-x"));
}

TEST(FormatMessageTest, KeepsWhatHasNoArgument) {
  EXPECT_EQ(FormatMessage(QStringLiteral("100%, %x, %s, %"), {}), QStringLiteral("100%, %x, %s, %"));
  EXPECT_EQ(FormatMessage(QStringLiteral("none"), {QStringLiteral("unused")}), QStringLiteral("none"));
}

TEST(DebugTraceTest, ReachesTheSinkOnlyWhileThereIsOne) {
  QStringList heard;
  SetDebugTraceSink([&heard](const QString &format, std::initializer_list<QString> arguments) {
    heard.append(FormatMessage(format, arguments));
  });
  DebugTrace(QStringLiteral("DrawTime = %s"), {QStringLiteral("12")});
  SetDebugTraceSink({});
  DebugTrace(QStringLiteral("unheard"));
  EXPECT_EQ(heard, QStringList{QStringLiteral("DrawTime = 12")});
}

TEST(MessageSinkTest, FallsBackToTheDefaultWhenTheSinkIsTakenAway) {
  QStringList own;
  QStringList fallback;
  const TMessageSink before = SetMessageSink([&own](const QString &text) { own.append(text); });
  const TMessageSink defaultBefore = SetDefaultMessageSink([&fallback](const QString &text) { fallback.append(text); });
  ShowMessage(QStringLiteral("first"));
  SetMessageSink({});
  ShowMessage(QStringLiteral("second"));
  SetMessageSink(before);
  SetDefaultMessageSink(defaultBefore);
  EXPECT_EQ(own, QStringList{QStringLiteral("first")});
  EXPECT_EQ(fallback, QStringList{QStringLiteral("second")});
}

TEST(CheckedIndexTest, AnswersTheIndexOrNamesTheDefect) {
  EXPECT_EQ(CheckedIndex(2, 3, "Part"), 2U);
  for (const std::ptrdiff_t index : {std::ptrdiff_t(-1), std::ptrdiff_t(3)}) {
    try {
      CheckedIndex(index, 3, "Part");
      FAIL() << index;
    } catch (const ERangeError &error) {
      EXPECT_EQ(MessageOf(error), QStringLiteral("Part index out of bounds (%1)").arg(index));
    }
  }
  EXPECT_THROW(CheckedIndex(0, 0, "Part"), std::out_of_range);
}

}  // namespace
}  // namespace tessera
