// SPDX-License-Identifier: MIT
#include <apps/editor/MessageBar.h>

#include <QApplication>
#include <QToolButton>
#include <gtest/gtest.h>

namespace tessera::apps {
namespace {

TEST(MessageBarTest, ShowsQueuedMessagesOneByOne) {
  QWidget window;
  MessageBar bar(&window);
  bar.Post(QStringLiteral("one"));
  bar.Post(QStringLiteral("two"));
  EXPECT_TRUE(bar.isHidden()) << "before the present event is done";
  QApplication::processEvents();
  EXPECT_FALSE(bar.isHidden());
  EXPECT_EQ(bar.GetText(), u"one");
  EXPECT_EQ(bar.GetCount(), 2);
  bar.findChild<QToolButton *>()->click();
  EXPECT_EQ(bar.GetText(), u"two");
  bar.Dismiss();
  EXPECT_TRUE(bar.isHidden());
  bar.Dismiss();
  EXPECT_EQ(bar.GetCount(), 0);
}

TEST(MessageBarTest, KeepsATextOnceAndNoMoreThanCanBeRead) {
  MessageBar bar;
  bar.Post(QString(100000, u'x'));
  for (int i = 0; i < 1000; ++i) {
    bar.Post(QStringLiteral("again"));
    bar.Post(QString::number(i));
  }
  QApplication::processEvents();
  EXPECT_EQ(bar.GetCount(), 100);
  EXPECT_LT(bar.GetText().size(), 1000);
  bar.Dismiss();
  EXPECT_EQ(bar.GetText(), u"again");
  bar.Dismiss();
  EXPECT_EQ(bar.GetText(), u"0");
}

}  // namespace
}  // namespace tessera::apps
