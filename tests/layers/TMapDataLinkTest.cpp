// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/layers/TMapDataLink.h>

#include <gtest/gtest.h>

#include <string>

namespace tessera {
namespace {

/// Writes down what it hears.
class TTestLink : public TMapDataLink {
 public:
  explicit TTestLink(char name = '?', std::string *heard = nullptr) : m_name(name), m_heard(heard) {}
  void MapEvent(TMapDataLinkEvent event, TObject *sender, int info) override {
    *m_heard += m_name;
    lastEvent = event;
    lastSender = sender;
    lastInfo = info;
  }

  TMapDataLinkEvent lastEvent = mdlBeforeAddLayer;
  TObject *lastSender = nullptr;
  int lastInfo = -1;

 private:
  char m_name;
  std::string *m_heard;
};

class TMapDataLinksTest : public testing::Test {
 protected:
  std::string heard;
  TMapDataLinks links;
  TObject sender;
  TTestLink a{'a', &heard};
  TTestLink b{'b', &heard};
};

TEST_F(TMapDataLinksTest, TellsEveryLinkInOrder) {
  links.TraceMapEvent(mdlMoveLayer, &sender);
  for (TTestLink *link : {&a, &b, &a}) link->SetLinks(&links);
  links.TraceMapEvent(mdlDelSelection, &sender);
  EXPECT_EQ(heard, "ba");
  EXPECT_EQ(a.lastEvent, 14);
  EXPECT_EQ(a.lastSender, &sender);
  EXPECT_EQ(a.lastInfo, 0);
}

TEST_F(TMapDataLinksTest, IsAPlainListToo) {
  links.Add(&a);
  links.Insert(0, &b);
  links.Insert(2, &b);
  links.TraceMapEvent(mdlAddObject, &sender);
  EXPECT_EQ(heard, "bab");
  links.SetMapDataLink(1, &b);
  EXPECT_EQ(links.GetMapDataLink(1), &b);
  EXPECT_THROW(links.Insert(4, &a), ERangeError);
  EXPECT_THROW(links.SetMapDataLink(3, &a), ERangeError);
  EXPECT_THROW(static_cast<void>(links.GetMapDataLink(-1)), ERangeError);
}

TEST(TMapDataLinkTest, LeavesItsMapForAnotherAndOutlivesIt) {
  TTestLink link;
  TMapDataLinks first;
  {
    TMapDataLinks second;
    link.SetLinks(&first);
    EXPECT_EQ(first.GetCount(), 1);
    link.SetLinks(&second);
    EXPECT_EQ(first.GetCount(), 0);
    EXPECT_EQ(second.GetMapDataLink(0), &link);
  }
  EXPECT_EQ(link.GetLinks(), nullptr);
  EXPECT_EQ(link.GetMap(), nullptr);
}

TEST(TMapDataLinkTest, StaysWithItsMapWhenAnotherListThatNamesItGoes) {
  TMapDataLinks links;
  {
    TTestLink link;
    link.SetLinks(&links);
    TMapDataLinks().Add(&link);
    EXPECT_EQ(link.GetLinks(), &links);
  }
  EXPECT_EQ(links.GetCount(), 0);
}

}  // namespace
}  // namespace tessera
