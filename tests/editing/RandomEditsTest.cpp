// SPDX-License-Identifier: MIT
#include "../support/RandomShapes.h"
#include "EditingFixture.h"

#include <tessera/editing/TObjectClipboard.h>
#include <tessera/formats/SimpleMIFFormatProvider.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TGeoCircle.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TRegion.h>
#include <tessera/objects/TText.h>

#include <QCryptographicHash>

namespace tessera::test {
namespace {

constexpr TBounds World{-50, -50, 150, 150};
constexpr int MostLayers = 4;
constexpr int MostObjects = 40;
constexpr int MostColumns = 6;

/// Everything about a map but its selection, as one hash.
class Snapshot {
 public:
  explicit Snapshot(const TMapLayers &layers) {
    for (const auto &layer : layers.Items()) Note(*layer);
  }
  [[nodiscard]] QByteArray Result() const { return m_hash.result(); }

 private:
  template <typename Value>
  void Put(const Value &value) {
    m_hash.addData(QByteArray(reinterpret_cast<const char *>(&value), sizeof value));
  }
  void Put(const QString &text) { m_hash.addData(QByteArray(text.toUtf8() + '\n')); }
  void Put(const TDataFields &fields) {
    for (int i = 0; i < fields.GetCount(); ++i) {
      Put(fields.GetFields(i).GetName());
      Put(fields.GetFields(i).GetSize());
      Put(fields.GetFields(i).GetAsString());
    }
  }
  void Note(TMapLayer &layer) {
    Put(quintptr(&layer));  // which one it is
    Put(layer.GetName());
    for (bool flag : {layer.GetVisible(), layer.GetSelectableFlag(), layer.GetEditable(), layer.GetAutoLabel()})
      Put(flag);
    Put(layer.GetMinZoom());
    Put(layer.GetLabelFieldIndex());
    Put(std::as_const(layer).GetFields());
    for (TCustomMapObject *object : OrderOf(layer)) Note(*object);
  }
  static Objects OrderOf(const TMapLayer &layer) {
    Objects order;
    for (int i = 0; i < layer.GetObjectCount(); ++i) order.push_back(layer.GetObjects(i));
    return order;
  }
  void Note(TCustomMapObject &object) {
    Put(quintptr(&object));
    Put(object.GetBounds());
    for (const TPart &part : std::as_const(object).GetParts().Items()) {
      Put(part.GetPoints().GetCount());
      for (const TMapPoint &point : part.GetPoints().Points()) Put(point);
    }
    Put(object.GetPen().GetColor());
    Put(object.GetPen().GetWidth());
    Put(object.GetFont().GetName());
    Put(object.GetFont().GetSize());
    if (const auto *symbol = dynamic_cast<const TSymbol *>(&object)) Put(symbol->GetShape());
    if (const auto *circle = dynamic_cast<const TCircle *>(&object)) Put(circle->GetRadius());
    if (const auto *circle = dynamic_cast<const TGeoCircle *>(&object)) Put(circle->GetCenterX());
    if (const auto *text = dynamic_cast<const TText *>(&object)) {
      Put(text->GetText());
      for (double size : {text->GetAngle(), text->GetWidth(), text->GetHeight()}) Put(size);
    }
    Put(std::as_const(object).GetFields());
  }

  QCryptographicHash m_hash{QCryptographicHash::Md5};
};

/// Does one random edit after another.
class RandomEdits {
 public:
  RandomEdits(TFakeMapHost &host, unsigned seed) : m_host(host), m_random(seed) {}

  void Edit() {
    constexpr void (RandomEdits::*Kinds[])() = {
        &RandomEdits::Add,       &RandomEdits::Add,      &RandomEdits::Delete,  &RandomEdits::Delete,
        &RandomEdits::Reorder,   &RandomEdits::Move,     &RandomEdits::Reshape, &RandomEdits::Restyle,
        &RandomEdits::SetValue,  &RandomEdits::SetValue, &RandomEdits::SetOwn,  &RandomEdits::Columns,
        &RandomEdits::Layers,    &RandomEdits::Switches, &RandomEdits::Copy,    &RandomEdits::SeveralAsOne,
        &RandomEdits::Transform, &RandomEdits::Vertices, &RandomEdits::Lines};
    (this->*Kinds[m_random.Whole(0, int(std::size(Kinds)) - 1)])();
    m_host.TakeEvents();
  }
  /// A few objects of the map, selected in any order.
  void Select() {
    m_host.selection.Clear();
    for (TCustomMapObject *object : Some()) m_host.selection.Add(object, false);
  }

 private:
  [[nodiscard]] TMapEdits Edits() const { return TMapEdits(&m_host); }
  [[nodiscard]] TMapLayer *Layer() {
    const int count = m_host.layers->GetCount();
    return count == 0 ? nullptr : m_host.layers->GetLayer(m_random.Whole(0, count - 1));
  }
  TCustomMapObject *Object() {
    TMapLayer *layer = Layer();
    const int count = layer ? layer->GetObjectCount() : 0;
    return count == 0 ? nullptr : layer->GetObjects(m_random.Whole(0, count - 1));
  }
  /// Now and then one of them twice.
  Objects Some() {
    Objects some;
    for (int i = m_random.Whole(0, 4); i > 0; --i) {
      TCustomMapObject *object = Object();
      if (object) some.push_back(object);
    }
    return some;
  }
  [[nodiscard]] QString Word() { return QStringLiteral("w%1").arg(m_random.Whole(0, 999)); }
  void Fill(TCustomMapObject &object) {
    for (int i = m_random.Whole(1, 3); i > 0; --i) {
      TMapPoints &points = object.GetParts().Add().GetPoints();
      for (const TMapPoint &point : m_random.Tangle(World, m_random.Whole(3, 8))) points.Add(point);
    }
  }
  std::unique_ptr<TCustomMapObject> Make() {
    constexpr TMapObjectClass Kinds[] = {
        CreateMapObject<TPolyline>, CreateMapObject<TRegion>,    CreateMapObject<TSymbol>,   CreateMapObject<TText>,
        CreateMapObject<TCircle>,   CreateMapObject<TGeoCircle>, CreateMapObject<TRectangle>};
    const int kind = m_random.Whole(0, int(std::size(Kinds)) - 1);
    auto made = Kinds[kind]();
    if (kind < 2) Fill(*made);
    SetOwn(*made);
    return made;
  }
  void SetOwn(TCustomMapObject &object) {
    const double size = m_random.Real(1, 40);
    if (auto *text = dynamic_cast<TText *>(&object)) {
      text->SetText(Word());
      text->SetAngle(size);
      text->SetWidth(size);
      text->SetHeight(size / 2);
    } else if (auto *symbol = dynamic_cast<TSymbol *>(&object)) {
      symbol->SetShape(m_random.Whole(33, 60));
      symbol->MoveTo(size, -size);
    } else if (auto *circle = dynamic_cast<TCircle *>(&object)) {
      circle->SetRadius(size);
    } else if (auto *ring = dynamic_cast<TGeoCircle *>(&object)) {
      ring->SetRadius(size * 1000);
    } else if (auto *box = dynamic_cast<TRectangle *>(&object)) {
      box->SetX1(size);
    } else {
      object.GetParts().GetFirst().GetPoints().Add(size, size);
    }
  }

  void Add() {
    TMapLayer *layer = Layer();
    if (layer && layer->GetObjectCount() < MostObjects) Edits().AddObject(*layer, Make());
  }
  void Delete() { Edits().DeleteObjects(Some()); }
  void Copy() {
    TMapLayer *layer = Layer();
    if (layer == nullptr || layer->GetObjectCount() >= MostObjects) return;
    if (m_random.Whole(0, 1) == 0) return Edits().DuplicateObjects(Some(), 3, 4);
    Edits().PasteObjects(*layer, ObjectsFromMimeData(*ObjectsToMimeData(Some())));
  }
  void Reorder() {
    if (m_random.Whole(0, 3) == 0) return Edits().BringToFront(Some());
    if (m_random.Whole(0, 3) == 0) return Edits().SendToBack(Some());
    TCustomMapObject *object = Object();
    if (object == nullptr) return;
    TMapLayer &layer = *object->GetLayer();
    Edits().ReorderObject(layer, layer.IndexOf(object), m_random.Whole(0, layer.GetObjectCount() - 1));
  }
  void Move() { Edits().MoveObjects(Some(), m_random.Real(-9, 9), m_random.Real(-9, 9)); }
  void Transform() {
    const TMapPoint about{m_random.Real(-50, 150), m_random.Real(-50, 150)};
    const bool isFlat = m_random.Whole(0, 9) == 0;
    const double factor = m_random.Real(-1.4, 1.4);
    Edits().TransformObjects(Some(), m_random.Whole(0, 1) == 0
                                         ? TMapTransform::Rotation(90 * factor, about)
                                         : TMapTransform::Scaling(isFlat ? 0 : factor, 1 / factor, about));
  }
  void Vertices() {
    TCustomMapObject *object = Object();
    if (object == nullptr || !TMapEdits::HasFreeVertices(*object) || object->GetParts().GetCount() == 0) return;
    const int part = m_random.Whole(0, object->GetParts().GetCount() - 1);
    const int count = object->GetParts().GetItems(part).GetPoints().GetCount();
    const TVertexPlace place{part, m_random.Whole(0, count - 1)};
    const TMapPoint point{m_random.Real(-50, 150), m_random.Real(-50, 150)};
    const int kind = m_random.Whole(0, 2);
    if (kind == 0) return Edits().MoveVertex(*object, place, point);
    if (kind == 1) return Edits().InsertVertex(*object, place, point);
    Edits().DeleteVertex(*object, place);
  }
  void Lines() {
    TCustomMapObject *object = Object();
    switch (m_random.Whole(0, 3)) {
      case 0:
        return Edits().ReverseLines(Some());
      case 1:
        return Edits().AlignObjects(Some(), TMapAlignment(m_random.Whole(0, 5)));
      case 2:
        Edits().JoinLines(Some(), m_random.Real(0, 60));
        return;
      default:
        if (object == nullptr || object->GetParts().GetCount() == 0) return;
        Edits().SplitLine(*object, {0, m_random.Whole(0, object->GetParts().GetFirst().GetPoints().GetCount() - 1)});
    }
  }
  void Reshape() {
    TCustomMapObject *object = Object();
    if (dynamic_cast<TPolyline *>(object) == nullptr && dynamic_cast<TRegion *>(object) == nullptr) return;
    TPolyline other;
    Fill(other);
    Edits().SetGeometry(*object, other.GetParts());
  }
  void Restyle() {
    TObjectStylePtr style(new TObjectStyle);
    style->pen.SetColor(TColor(m_random.Whole(0, 0xFFFFFF)));
    style->pen.SetWidth(m_random.Whole(1, 5));
    style->font.SetSize(m_random.Whole(6, 30));
    Edits().SetStyle(Some(), style);
  }
  void SetValue() {
    TCustomMapObject *object = Object();
    const int count = object ? object->GetFields().GetCount() : 0;
    if (count == 0) return;
    const TDataValue value = m_random.Whole(0, 3) == 0 ? TDataValue() : TDataValue(Word());
    Edits().SetValue(*object, m_random.Whole(0, count - 1), value);
  }
  void SetOwn() {
    Edits().ChangeObjects(Some(), TObjectAspect::Geometry, Word(),
                          [this](TCustomMapObject &object) { SetOwn(object); });
  }
  void Columns() {
    TMapLayer *layer = Layer();
    const int count = layer ? layer->GetFieldCount() : MostColumns;
    if (count < MostColumns && m_random.Whole(0, 1) == 0) {
      Edits().AddColumn(*layer, Word(), TDataType::dtString, m_random.Whole(0, 20));
    } else if (layer && count > 0) {
      const int field = m_random.Whole(0, count - 1);
      if (m_random.Whole(0, 2) == 0) {
        Edits().RemoveColumn(*layer, field);
      } else {
        Edits().RenameColumn(*layer, field, Word());
      }
    }
  }
  void Layers() {
    const int count = m_host.layers->GetCount();
    if (count < MostLayers) {
      Edits().AddLayer(QString(), Word());
    } else if (m_random.Whole(0, 1) == 0) {
      Edits().DeleteLayer(m_random.Whole(0, count - 1));
    } else {
      Edits().MoveLayer(m_random.Whole(0, count - 1), m_random.Whole(0, count - 1));
    }
  }
  void Switches() {
    TMapLayer *layer = Layer();
    if (layer == nullptr) return;
    Edits().ChangeLayers(Word(), [&] {
      for (int i = m_random.Whole(1, 3); i > 0; --i) Switch(*layer);
    });
  }
  void Switch(TMapLayer &layer) {
    const bool isOn = m_random.Whole(0, 1) == 1;
    switch (m_random.Whole(0, 6)) {
      case 0:
        return layer.SetVisible(isOn);
      case 1:
        return layer.SetSelectable(isOn);
      case 2:
        return layer.SetEditable(isOn);
      case 3:
        return layer.SetAutoLabel(isOn);
      case 4:
        return layer.SetName(Word());
      case 5:
        return layer.SetMinZoom(m_random.Whole(0, 9));
      default:
        return layer.SetLabelFieldIndex(m_random.Whole(0, 3));
    }
  }
  void SeveralAsOne() {
    const TEditScope oneStep(&m_host, Word());
    Select();
    for (int i = m_random.Whole(0, 5); i > 0; --i) Edit();
  }

  TFakeMapHost &m_host;
  TRandomShapes m_random;
};

/// A map that is edited at random, and what it looked like before and after each step.
class RandomEditsTest : public TEditingFixture {
 protected:
  struct Step {
    Objects selectedBefore;
    QByteArray after;
  };

  [[nodiscard]] QByteArray Look() const { return Snapshot(layers).Result(); }
  /// The files that all layers are saved to, one after the other.
  QByteArray Saved() {
    QByteArray all;
    host.GetCanvas().Font() = TFont();  // with which texts are measured, whatever was drawn last
    for (const auto &each : layers.Items()) {
      provider.Save(each.get(), PathOf(QStringLiteral("a.mif")));
      all += ReadFile(QStringLiteral("a.mif")) + ReadFile(QStringLiteral("a.mid"));
    }
    return all;
  }
  /// Edits until something has come of it.
  void TakeStep() {
    for (;;) {
      random.Select();
      const Objects selected = Selected();
      const int before = stack.index();
      random.Edit();
      if (stack.index() == before) continue;
      steps.resize(std::size_t(before));
      steps.push_back({selected, Look()});
      return;
    }
  }
  void UndoOne() {
    random.Select();
    const Step &step = steps[std::size_t(stack.index() - 1)];
    stack.undo();
    host.TakeEvents();
    ASSERT_EQ(Selected(), step.selectedBefore) << stack.index();
    ASSERT_EQ(Look(), stack.index() == 0 ? atStart : steps[std::size_t(stack.index() - 1)].after)
        << stack.index() << ' ' << stack.redoText().toStdString();
  }
  void RedoOne() {
    random.Select();
    stack.redo();
    host.TakeEvents();
    ASSERT_EQ(Look(), steps[std::size_t(stack.index() - 1)].after)
        << stack.index() << ' ' << stack.undoText().toStdString();
  }

  TSimpleMIFFormatProvider provider;
  RandomEdits random{host, 12};
  std::vector<Step> steps;
  QByteArray atStart = Look();
};

TEST_F(RandomEditsTest, TenThousandAreUndoneAndDoneAgainExactly) {
  constexpr int Count = 10000;
  const QByteArray savedAtStart = Saved();
  while (stack.count() < Count) TakeStep();
  const QByteArray savedAtEnd = Saved();
  EXPECT_GT(savedAtEnd.size(), 1000);
  while (stack.canUndo()) ASSERT_NO_FATAL_FAILURE(UndoOne());
  EXPECT_EQ(Saved(), savedAtStart);
  while (stack.canRedo()) ASSERT_NO_FATAL_FAILURE(RedoOne());
  EXPECT_EQ(Saved(), savedAtEnd);
  EXPECT_EQ(stack.count(), Count);
  EXPECT_EQ(messages, std::vector<std::string>());
}

TEST_F(RandomEditsTest, AreUndoneAndDoneAgainInBetween) {
  TRandomShapes dice(7);
  for (int i = 0; i < 300; ++i) {
    for (int n = dice.Whole(1, 12); n > 0; --n) TakeStep();
    for (int n = dice.Whole(0, 12); n > 0 && stack.canUndo(); --n) ASSERT_NO_FATAL_FAILURE(UndoOne());
    for (int n = dice.Whole(0, 6); n > 0 && stack.canRedo(); --n) ASSERT_NO_FATAL_FAILURE(RedoOne());
  }
  while (stack.canUndo()) ASSERT_NO_FATAL_FAILURE(UndoOne());
}

}  // namespace
}  // namespace tessera::test
