// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/layers/TMapDataLink.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace tessera {
namespace {

/// Writes down what it hears.
class TTestLink : public TMapDataLink {
 public:
  explicit TTestLink(std::string name = {}, std::string *heard = nullptr) : m_name(std::move(name)), m_heard(heard) {}
  void MapEvent(TMapDataLinkEvent event, TObject *sender, int info) override {
    *m_heard += m_name + std::to_string(event) + '-' + std::to_string(info) + ' ';
    lastSender = sender;
  }

  TObject *lastSender = nullptr;

 private:
  std::string m_name;
  std::string *m_heard;
};

TEST(TMapDataLinksTest, TellEveryLinkInOrder) {
  std::string heard;
  TMapDataLinks links;
  TObject sender;
  TTestLink a("a", &heard);
  TTestLink b("b", &heard);
  links.TraceMapEvent(mdlMoveLayer, &sender);
  for (TTestLink *link : {&a, &b, &a}) link->SetLinks(&links);
  links.TraceMapEvent(mdlDelSelection, &sender);
  EXPECT_EQ(heard, "b14-0 a14-0 ");
  EXPECT_EQ(a.lastSender, &sender);
  heard.clear();
  links.Insert(0, &a);
  links.SetMapDataLink(1, &a);
  links.TraceMapEvent(mdlBeforeAddLayer, nullptr);
  EXPECT_EQ(heard, "a0-0 a0-0 a0-0 ");
  EXPECT_THROW(links.Insert(4, &a), ERangeError);
  EXPECT_THROW(links.SetMapDataLink(3, &a), ERangeError);
}

TEST(TMapDataLinkTest, LeavesItsMapForAnotherAndOutlivesIt) {
  TTestLink link;
  TMapDataLinks first;
  {
    TMapDataLinks second;
    link.SetLinks(&first);
    link.SetLinks(&second);
    EXPECT_EQ(first.GetCount(), 0);
    EXPECT_EQ(second.GetMapDataLink(0), &link);
  }
  EXPECT_EQ(link.GetLinks(), nullptr);
  {
    TTestLink leaving;
    leaving.SetLinks(&first);
    TMapDataLinks().Add(&leaving);
    EXPECT_EQ(leaving.GetLinks(), &first) << "another list that named it is gone";
  }
  EXPECT_EQ(first.GetCount(), 0);
}

}  // namespace
}  // namespace tessera
