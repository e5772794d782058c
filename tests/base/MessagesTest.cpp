// SPDX-License-Identifier: MIT
#include <tessera/base/DebugTrace.h>
#include <tessera/base/MessageSink.h>

#include <QStringList>
#include <gtest/gtest.h>

namespace tessera {
namespace {

const QString A = QStringLiteral("a");
const QString B = QStringLiteral("b");

TEST(FormatMessageTest, PutsTheArgumentsIntoTheirPlacesInOrder) {
  EXPECT_EQ(FormatMessage(QStringLiteral("%s, %S; %d/%D"), {A, B, B, A}), u"a, b; b/a");
  EXPECT_EQ(FormatMessage(QStringLiteral("%s-%s"), {QStringLiteral("%s"), B}), u"%s-b") << "an argument has no places";
  EXPECT_EQ(FormatMessage(QStringLiteral("100%, %x, %s, %"), {}), u"100%, %x, %s, %");
  EXPECT_EQ(FormatMessage(A, {B}), A) << "an argument without a place";
}

TEST(DebugTraceTest, ReachesTheSinkOnlyWhileThereIsOne) {
  QStringList heard;
  SetDebugTraceSink([&heard](const QString &format, std::initializer_list<QString> arguments) {
    heard.append(FormatMessage(format, arguments));
  });
  DebugTrace(QStringLiteral("DrawTime = %s"), {A});
  SetDebugTraceSink({});
  DebugTrace(B);
  EXPECT_EQ(heard, QStringList{QStringLiteral("DrawTime = a")});
}

TEST(MessageSinkTest, FallsBackToTheDefaultWhenTheSinkIsTakenAway) {
  QStringList own;
  QStringList fallback;
  const TMessageSink before = SetMessageSink([&own](const QString &text) { own.append(text); });
  const TMessageSink defaultBefore = SetDefaultMessageSink([&fallback](const QString &text) { fallback.append(text); });
  ShowMessage(A);
  SetMessageSink({});
  ShowMessage(B);
  SetMessageSink(before);
  SetDefaultMessageSink(defaultBefore);
  EXPECT_EQ(own, QStringList{A});
  EXPECT_EQ(fallback, QStringList{B});
}

}  // namespace
}  // namespace tessera
