// SPDX-License-Identifier: MIT
#include "ControlFixture.h"

#include <tessera/controls/LayersComboBox.h>

namespace tessera::test {
namespace {

class TLayersComboBoxTest : public ControlFixture {
 protected:
  TLayersComboBoxTest() {
    AddLayer(QStringLiteral("early"));
    box->SetMap(map.get());
    for (const QChar name : {u'a', u'b', u'c'}) AddLayer(name);
  }
  QString Items() const {
    QStringList items;
    for (int i = 0; i < box->count(); ++i) items << box->itemText(i);
    return items.join(u' ');
  }
  std::unique_ptr<TLayersComboBox> box = std::make_unique<TLayersComboBox>();
};

TEST_F(TLayersComboBoxTest, HasAnItemForEveryLayerThatItIsToldOf) {
  TMapLayers &layers = *map->GetLayers();
  EXPECT_EQ(Items(), QStringLiteral("a b c")) << "a layer from before is not told of";
  layers.Insert(QString(), 0);
  layers.Search(QStringLiteral("b"))->SetName(QStringLiteral("new"));
  layers.Exchange(2, 3);
  layers.Move(2, 4);
  EXPECT_EQ(Items(), QStringLiteral("a b c"));
  layers.Delete(layers.IndexOf(layers.Search(QStringLiteral("new"))));
  EXPECT_EQ(Items(), QStringLiteral("a c"));
  EXPECT_EQ(box->GetItemLayer(1), layers.Search(QStringLiteral("c")));
  layers.Delete(1);
  EXPECT_EQ(Items(), QStringLiteral("a c")) << "it had no item";
  EXPECT_EQ(box->GetItemLayer(2), nullptr);
  layers.Clear();
  EXPECT_EQ(box->GetItemLayer(0), nullptr) << "nobody told of the end of the layer";
  EXPECT_EQ(box->GetCurrentLayer(), nullptr);
}

TEST_F(TLayersComboBoxTest, AnswersTheLayerAtThePlaceOfTheItem) {
  map->GetLayers()->Delete(0);
  box->setCurrentIndex(0);
  EXPECT_EQ(box->GetCurrentLayer()->GetName(), QStringLiteral("a"));
  map->GetLayers()->Exchange(0, 2);
  EXPECT_EQ(box->currentText(), QStringLiteral("a"));
  EXPECT_EQ(box->GetCurrentLayer()->GetName(), QStringLiteral("c"));
  box->setCurrentIndex(-1);
  EXPECT_EQ(box->GetCurrentLayer(), nullptr);
}

TEST_F(TLayersComboBoxTest, StaysWithItsLastMap) {
  box->SetMap(nullptr);
  EXPECT_EQ(box->GetMap(), map.get());
  TTessera other;
  box->SetMap(&other);
  AddLayer(QStringLiteral("d"));
  EXPECT_EQ(Items(), QStringLiteral("a b c"));
  box->SetMap(map.get());
  map.reset();
  EXPECT_EQ(box->GetMap(), nullptr);
  EXPECT_EQ(box->GetCurrentLayer(), nullptr);
  box->SetMap(&other);
  box.reset();
  EXPECT_EQ(other.GetDataLinks()->GetCount(), 0);
}

}  // namespace
}  // namespace tessera::test
