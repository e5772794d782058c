// SPDX-License-Identifier: MIT
#include "EditingFixture.h"

#include <tessera/base/Exceptions.h>
#include <tessera/editing/TObjectClipboard.h>
#include <tessera/objects/GeoCircle.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TGeoCircle.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TSprite.h>
#include <tessera/objects/TText.h>

#include <random>
#include <typeinfo>

namespace tessera::test {
namespace {

class ObjectClipboardTest : public TEditingFixture {
 protected:
  template <class Kind>
  Kind *Put() {
    auto object = std::make_unique<Kind>();
    Kind *put = object.get();
    layer->PutObject(layer->GetObjectCount(), std::move(object));
    return put;
  }
  /// One of each kind, with tools and values that no new object has.
  void PutOneOfEachKind() {
    AddPart(*Put<TRegion>(), {{1, 2}, {3, 4}, {5, 0.1}});
    AddPart(*Put<TPolyline>(), {{-1, 2}, {3, 4}});
    AddPart(*layer->Last(), {{7, 8}, {9, 10}});
    Put<TRectangle>()->SetX1(5);
    Put<TSymbol>()->SetShape(77);
    Put<TCircle>()->SetRadius(3.5);
    Put<TGeoCircle>()->SetPieCount(7);
    Put<geocircle::TGeoCircle>()->SetY(33);
    auto *text = Put<TText>();
    text->SetText(QStringLiteral("Река"));
    text->SetWidth(12);
    text->SetAngle(45);
    for (TCustomMapObject *object : Order()) {
      TPen pen;
      pen.SetStyle(TPenStyle::psDot);
      pen.SetWidth(4);
      object->SetPen(pen);
      object->SetUseBGColor(true);
      object->SetFont(TFont(QStringLiteral("Serif"), 33, clRed));
      object->GetFields().Add(QStringLiteral("Name"), TDataType::dtString, 9).SetAsString(QStringLiteral("road"));
      object->GetFields().Add(QStringLiteral("When"), TDataType::dtDateTime, 0).SetAsDateTime(1.5);
      object->GetFields().Add(QStringLiteral("Lanes"), TDataType::dtInteger, 0).SetAsInteger(2);
    }
  }
  /// Whether two objects are alike in all that the bytes hold.
  static void ExpectAlike(TCustomMapObject &one, TCustomMapObject &other) {
    EXPECT_EQ(typeid(one), typeid(other));
    TCustomMapObject *objects[] = {&one, &other};
    EXPECT_EQ(ObjectsToMimeData({objects, 1})->data(ObjectsMimeType()),
              ObjectsToMimeData({objects + 1, 1})->data(ObjectsMimeType()));
    EXPECT_EQ(one.GetStyle()->font, other.GetStyle()->font);
    EXPECT_EQ(one.GetPen(), other.GetPen());
    EXPECT_EQ(one.GetBounds(), other.GetBounds());
    EXPECT_EQ(one.GetParts().GetCount(), other.GetParts().GetCount());
    for (int i = 0; i < one.GetFields().GetCount(); ++i) {
      EXPECT_EQ(one.GetFields().GetFields(i).GetValue(), other.GetFields().GetFields(i).GetValue());
    }
  }
};

TEST_F(ObjectClipboardTest, HoldsEveryKindWithAllItHasAndTheShapesAsText) {
  PutOneOfEachKind();
  Put<TSprite>();
  const auto data = ObjectsToMimeData(Order());
  const auto copies = ObjectsFromMimeData(*data);
  ASSERT_EQ(copies.size(), 8U) << "all but the sprite";
  for (std::size_t i = 0; i < copies.size(); ++i) ExpectAlike(*copies[i], *layer->GetObjects(int(i)));
  EXPECT_EQ(static_cast<TGeoCircle &>(*copies[5]).GetPieCount(), 7);
  EXPECT_EQ(static_cast<TText &>(*copies[7]).GetText(), QStringLiteral("Река"));
  EXPECT_TRUE(data->text().startsWith(QStringLiteral("Version 300"))) << data->text().toStdString();
  EXPECT_TRUE(data->text().contains(QStringLiteral("Pline 2")));
}

TEST_F(ObjectClipboardTest, RefusesDamagedData) {
  PutOneOfEachKind();
  const QByteArray good = ObjectsToMimeData(Order())->data(ObjectsMimeType());
  const auto read = [](const QByteArray &bytes) {
    QMimeData data;
    data.setData(ObjectsMimeType(), bytes);
    return ObjectsFromMimeData(data).size();
  };
  const auto readOrRefuse = [&](const QByteArray &bytes) -> std::size_t {
    try {
      return read(bytes);
    } catch (const EConvertError &) {
      return 0;
    }
  };
  EXPECT_EQ(read(good), 8U);
  EXPECT_THROW(read(good.left(good.size() - 1)), EConvertError);
  std::size_t most = 0;
  for (qsizetype size = 0; size < good.size(); ++size) most = std::max(most, readOrRefuse(good.left(size)));
  EXPECT_EQ(most, 7U) << "only between two objects";
  std::mt19937 random(3);
  for (int i = 0; i < 3000; ++i) {
    QByteArray bad = good;
    bad[qsizetype(random() % std::size_t(bad.size()))] = char(random());
    EXPECT_LE(readOrRefuse(bad), 8U);
  }
  EXPECT_EQ(ObjectsFromMimeData(QMimeData()).size(), 0U);
}

TEST_F(ObjectClipboardTest, PastesOnTopWithTheColumnsOfTheLayerAndSelectsWhatItPasted) {
  PutOneOfEachKind();
  const auto data = ObjectsToMimeData({Order().data(), 2});
  TMapLayer *other = layers.Insert(QString(), 1);
  other->GetFields().Add(QStringLiteral("lanes"), TDataType::dtString, 5);
  other->GetFields().Add(QStringLiteral("When"), TDataType::dtInteger, 0);
  other->GetFields().Add(QStringLiteral("NAME"), TDataType::dtString, 5);
  host.selection.Add(layer->First(), true);
  Edits().PasteObjects(*other, ObjectsFromMimeData(*data));
  ASSERT_EQ(other->GetObjectCount(), 2);
  const TDataFields &values = std::as_const(*other->First()).GetFields();
  EXPECT_EQ(values.GetFields(0).GetAsString(), QStringLiteral("2"));
  EXPECT_EQ(values.GetFields(1).GetValue(), TDataValue()) << "a time is no whole number";
  EXPECT_EQ(values.GetFields(2).GetAsString(), QStringLiteral("road"));
  EXPECT_EQ(Selected(), OrderOf(*other));
  EXPECT_EQ(stack.undoText(), QStringLiteral("paste objects (2)"));
  stack.undo();
  EXPECT_EQ(other->GetObjectCount(), 0);
  EXPECT_EQ(Selected(), Objects{layer->First()});
}

TEST_F(ObjectClipboardTest, DuplicatesAndReordersInOneStep) {
  for (int i = 0; i < 5; ++i) AddPart(*layer->NewObject<TPolyline>(), {{double(i), 0}, {double(i), 1}});
  const Objects before = Order();
  const auto at = [&](std::initializer_list<int> places) {
    Objects objects;
    for (int place : places) objects.push_back(before[std::size_t(place)]);
    return objects;
  };
  Edits().BringToFront(at({3, 1}));
  EXPECT_EQ(Order(), at({0, 2, 4, 1, 3}));
  Edits().BringToFront(at({1, 3}));
  EXPECT_EQ(stack.count(), 1) << "they are there";
  Edits().SendToBack(at({3, 4}));
  EXPECT_EQ(Order(), at({4, 3, 0, 2, 1}));
  stack.undo();
  stack.undo();
  EXPECT_EQ(Order(), before);
  Edits().DuplicateObjects(at({4, 0}), 10, 20);
  ASSERT_EQ(layer->GetObjectCount(), 7);
  EXPECT_EQ(layer->GetObjects(5)->GetBounds(), (TBounds{10, 20, 10, 21}));
  EXPECT_EQ(layer->GetObjects(6)->GetBounds(), (TBounds{14, 20, 14, 21}));
  EXPECT_EQ(Selected(), (Objects{layer->GetObjects(5), layer->GetObjects(6)}));
  stack.undo();
  EXPECT_EQ(Order(), before);
}

}  // namespace
}  // namespace tessera::test
