// SPDX-License-Identifier: MIT
#include "MapFixture.h"

#include <QSignalSpy>
#include <QTest>

namespace tessera::test {
namespace {

using TTesseraInputTest = MapFixture;

TEST_F(TTesseraInputTest, TellsOfTheMouseInClientPixels) {
  QSignalSpy down(&map, &TTessera::OnMouseDown);
  QSignalSpy up(&map, &TTessera::OnMouseUp);
  QSignalSpy twice(&map, &TTessera::OnDblClick);
  QTest::mousePress(&map, Qt::RightButton, Qt::ShiftModifier, QPoint(30, 40));
  QTest::mouseRelease(&map, Qt::RightButton, Qt::NoModifier, QPoint(31, 41));
  QTest::mouseDClick(&map, Qt::LeftButton, Qt::NoModifier, QPoint(31, 41));
  ASSERT_GE(down.count(), 1);
  EXPECT_EQ(down.at(0).at(1).value<Qt::MouseButton>(), Qt::RightButton);
  EXPECT_EQ(down.at(0).at(3).toInt(), 30);
  EXPECT_EQ(down.at(0).at(4).toInt(), 40);
  ASSERT_GE(up.count(), 1);
  EXPECT_EQ(up.at(0).at(3).toInt(), 31);
  EXPECT_EQ(twice.count(), 1);
}

TEST_F(TTesseraInputTest, GetsEveryKey) {
  QList<int> keys;
  QString typed;
  QObject::connect(&map, &TTessera::OnKeyDown, &map, [&](TTessera *, int &key) { keys << key; });
  QObject::connect(&map, &TTessera::OnKeyPress, &map, [&](TTessera *, QChar &character) { typed += character; });
  map.show();
  map.setFocus();
  QTest::keyClick(&map, Qt::Key_Tab);
  QTest::keyClick(&map, Qt::Key_Left);
  QTest::keyClick(&map, 'a');
  EXPECT_EQ(keys, (QList<int>{Qt::Key_Tab, Qt::Key_Left, Qt::Key_A}));
  EXPECT_TRUE(typed.endsWith(u'a'));
}

TEST_F(TTesseraInputTest, KeepsAKeyThatAHandlerTookFromTyping) {
  QObject::connect(&map, &TTessera::OnKeyDown, &map, [](TTessera *, int &key) { key = 0; });
  QSignalSpy typed(&map, &TTessera::OnKeyPress);
  QTest::keyClick(&map, 'a');
  EXPECT_EQ(typed.count(), 0);
}

}  // namespace
}  // namespace tessera::test
