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
}

TEST(DebugTraceTest, ReachesTheSinkOnlyWhileThereIsOne) {
  QStringList heard;
  SetDebugTraceSink(
      [&heard](const QString &format, auto arguments) { heard.append(FormatMessage(format, arguments)); });
  DebugTrace(QStringLiteral("DrawTime = %s"), {A});
  SetDebugTraceSink({});
  DebugTrace(B);
  EXPECT_EQ(heard, QStringList{QStringLiteral("DrawTime = a")});
}

TEST(MessageSinkTest, FallsBackToTheDefaultWhenTheSinkIsTakenAway) {
  QStringList heard;
  const TMessageSink before = SetMessageSink([&heard](const QString &text) { heard.append(u"own " + text); });
  const TMessageSink defaultBefore = SetDefaultMessageSink([&heard](const QString &text) { heard.append(text); });
  ShowMessage(A);
  SetMessageSink({});
  ShowMessage(B);
  SetMessageSink(before);
  SetDefaultMessageSink(defaultBefore);
  EXPECT_EQ(heard.join(u'|'), u"own a|b");
}

}  // namespace
}  // namespace tessera
