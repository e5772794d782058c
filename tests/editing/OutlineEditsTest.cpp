// SPDX-License-Identifier: MIT
// Edits of vertices, of lines, and of the places of objects.
#include "EditingFixture.h"

#include <tessera/base/Exceptions.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRegion.h>

namespace tessera::test {
namespace {

/// The vertices of an object, whose coordinates have one digit.
std::string Figure(const TCustomMapObject &object) {
  std::string text;
  for (const TPart &part : object.GetParts().Items()) {
    for (const TMapPoint &at : part.GetPoints().Points()) text += QString::asprintf("%g%g ", at.X, at.Y).toStdString();
    text += "| ";
  }
  return text;
}

class OutlineEditsTest : public TEditingFixture {
 protected:
  void AddLine(const std::vector<TMapPoint> &vertices) {
    TMapPoints &points = layer->NewObject<TPolyline>()->GetParts().Add().GetPoints();
    for (const TMapPoint &vertex : vertices) points.Add(vertex);
  }
};

TEST_F(OutlineEditsTest, ChangesSingleVerticesAndKeepsRingsClosed) {
  auto *region = layer->NewObject<TRegion>();
  AddPart(*region, {{0, 0}, {9, 0}, {9, 9}, {0, 9}, {0, 0}});
  AddPart(*region, {{2, 2}, {4, 2}, {2, 4}, {2, 2}});
  auto *line = layer->NewObject<TPolyline>();
  AddPart(*line, {{0, 0}, {9, 0}, {0, 0}});
  AddPart(*line, {{5, 5}});
  struct Case {
    TCustomMapObject *object;
    std::function<void()> edit;
    const char *after;
    TBounds bounds;
  };
  const TBounds whole{0, 0, 9, 9};
  const Case cases[] = {
      {region,
       [&] {
         Edits().MoveVertex(*region, {0, 2}, {7, 8});
       },
       "00 90 78 09 00 | 22 42 24 22 | ", whole},
      {region,
       [&] {
         Edits().MoveVertex(*region, {0, 0}, {1, 1});
       },
       "11 90 99 09 11 | 22 42 24 22 | ", whole},
      {region,
       [&] {
         Edits().MoveVertex(*region, {1, 3}, {3, 3});
       },
       "00 90 99 09 00 | 33 42 24 33 | ", whole},
      {region,
       [&] {
         Edits().InsertVertex(*region, {0, 1}, {5, 5});
       },
       "00 55 90 99 09 00 | 22 42 24 22 | ", whole},
      {region,
       [&] {
         Edits().InsertVertex(*region, {0, 0}, {5, 5});
       },
       "00 90 99 09 55 00 | 22 42 24 22 | ", whole},
      {region,
       [&] {
         Edits().InsertVertex(*region, {0, 5}, {5, 5});
       },
       "00 90 99 09 55 00 | 22 42 24 22 | ", whole},
      {region,
       [&] {
         EXPECT_TRUE(Edits().DeleteVertex(*region, {0, 2}));
       },
       "00 90 09 00 | 22 42 24 22 | ", whole},
      {region,
       [&] {
         EXPECT_TRUE(Edits().DeleteVertex(*region, {0, 0}));
       },
       "90 99 09 90 | 22 42 24 22 | ", whole},
      {region,
       [&] {
         EXPECT_TRUE(Edits().DeleteVertex(*region, {0, 4}));
       },
       "90 99 09 90 | 22 42 24 22 | ", whole},
      {line,
       [&] {
         Edits().MoveVertex(*line, {0, 0}, {-1, 7});
       },
       "-17 90 00 | 55 | ",
       {-1, 0, 9, 7}},
      {line,
       [&] {
         Edits().InsertVertex(*line, {0, 3}, {8, 8});
       },
       "00 90 00 88 | 55 | ",
       {0, 0, 9, 8}},
      {line,
       [&] {
         EXPECT_TRUE(Edits().DeleteVertex(*line, {0, 1}));
       },
       "00 00 | 55 | ",
       {0, 0, 5, 5}},
      {line,
       [&] {
         EXPECT_TRUE(Edits().DeleteVertex(*line, {1, 0}));
       },
       "00 90 00 | ",
       {0, 0, 9, 0}},
  };
  for (const Case &one : cases) {
    const std::string before = Figure(*one.object);
    const TBounds boundsBefore = one.object->GetBounds();
    one.edit();
    EXPECT_EQ(Figure(*one.object), one.after);
    EXPECT_EQ(one.object->GetBounds(), one.bounds);
    ASSERT_EQ(stack.count(), 1);
    stack.undo();
    EXPECT_EQ(Figure(*one.object), before);
    EXPECT_EQ(one.object->GetBounds(), boundsBefore);
    stack.redo();
    EXPECT_EQ(Figure(*one.object), one.after);
    stack.undo();
    stack.clear();
  }
  EXPECT_FALSE(Edits().DeleteVertex(*region, {1, 1})) << "three corners stay";
  Edits().DeleteVertex(*line, {1, 0});
  Edits().DeleteVertex(*line, {0, 1});
  EXPECT_FALSE(Edits().DeleteVertex(*line, {0, 1})) << "two vertices stay";
  EXPECT_THROW(Edits().MoveVertex(*line, {0, 2}, {}), ERangeError);
  EXPECT_THROW(Edits().DeleteVertex(*line, {1, 0}), ERangeError);
  EXPECT_EQ(stack.count(), 2);
  line->GetParts().GetFirst().GetPoints().Add(1, 1);  // behind the back of the stack
  stack.undo();
  EXPECT_EQ(Figure(*line), "00 00 11 | ");
  EXPECT_EQ(stack.count(), 1);
}

TEST_F(OutlineEditsTest, SplitsALineIntoTwoThatHaveAllElseInCommon) {
  Edits().AddColumn(*layer, QStringLiteral("Name"), TDataType::dtString, 9);
  const Objects lines{layer->NewObject<TPolyline>(), layer->NewObject<TPolyline>()};
  Edits().SetValue(*lines[0], 0, QStringLiteral("road"));
  TPolyline shape;
  AddPart(shape, {{1, 1}, {2, 2}});
  AddPart(shape, {{3, 3}, {4, 4}, {5, 5}});
  AddPart(shape, {{6, 6}, {7, 7}});
  Edits().SetGeometry(*lines[0], shape.GetParts());
  Edits().SetStyle({lines.data(), 1}, TObjectStylePtr(new TObjectStyle));
  const int stepsBefore = stack.count();
  EXPECT_EQ(Edits().SplitLine(*lines[0], {1, 0}), nullptr);
  EXPECT_EQ(Edits().SplitLine(*lines[0], {1, 2}), nullptr);
  EXPECT_THROW(Edits().SplitLine(*lines[0], {1, 3}), ERangeError);
  EXPECT_EQ(stack.count(), stepsBefore);
  TCustomMapObject *made = Edits().SplitLine(*lines[0], {1, 1});
  ASSERT_EQ(Order(), (Objects{lines[0], made, lines[1]}));
  EXPECT_EQ(Figure(*lines[0]), "11 22 | 33 44 | ");
  EXPECT_EQ(Figure(*made), "44 55 | 66 77 | ");
  EXPECT_EQ(lines[0]->GetBounds(), (TBounds{1, 1, 4, 4}));
  EXPECT_EQ(made->GetBounds(), (TBounds{4, 4, 7, 7}));
  EXPECT_EQ(made->GetStyle(), lines[0]->GetStyle());
  EXPECT_EQ(made->GetFields().GetFields(0).GetAsString(), QStringLiteral("road"));
  EXPECT_EQ(stack.count(), stepsBefore + 1);
  stack.undo();
  EXPECT_EQ(Order(), lines);
  EXPECT_EQ(Figure(*lines[0]), "11 22 | 33 44 55 | 66 77 | ");
}

TEST_F(OutlineEditsTest, JoinsLinesWhoseEndsMeet) {
  using Lines = std::vector<std::vector<TMapPoint>>;
  struct Case {
    const char *name;
    double distance;
    Lines lines;
    std::string after;
  };
  const Case cases[] = {
      {"one behind the other", 0, {{{1, 1}, {2, 2}}, {{2, 2}, {3, 3}}}, "11 22 33 | "},
      {"the other way round", 0, {{{2, 2}, {1, 1}}, {{3, 3}, {2, 2}}}, "33 22 11 | "},
      {"against each other", 0, {{{1, 1}, {2, 2}}, {{3, 3}, {2, 2}}}, "11 22 33 | "},
      {"at both ends of the first", 0, {{{2, 2}, {3, 3}}, {{2, 2}, {1, 1}}, {{4, 4}, {3, 3}}}, "11 22 33 44 | "},
      {"to a ring", 0, {{{1, 1}, {2, 2}}, {{2, 2}, {3, 1}, {1, 1}}}, "11 22 31 11 | "},
      {"apart", 0, {{{1, 1}, {2, 2}}, {{2, 3}, {3, 3}}}, "11 22 | ; 23 33 | "},
      {"near enough", 1, {{{1, 1}, {2, 2}}, {{2, 3}, {3, 3}}}, "11 22 33 | "},
      {"two pairs",
       0,
       {{{1, 1}, {2, 2}}, {{5, 5}, {6, 6}}, {{2, 2}, {3, 3}}, {{6, 6}, {7, 7}}},
       "11 22 33 | ; 55 66 77 | "},
      {"three at one place", 0, {{{1, 1}, {2, 2}}, {{2, 2}, {3, 3}}, {{2, 2}, {4, 4}}}, "11 22 33 | ; 22 44 | "},
      {"one that is closed", 0, {{{1, 1}, {2, 2}}, {{2, 2}, {3, 3}, {2, 2}}}, "11 22 | ; 22 33 22 | "},
  };
  for (const Case &one : cases) {
    SCOPED_TRACE(one.name);
    layer->DeleteObjects();
    for (const auto &vertices : one.lines) AddLine(vertices);
    const Objects before = Order();
    std::string drawn;
    for (const TCustomMapObject *line : before) drawn += Figure(*line);
    const int grown = Edits().JoinLines(before, one.distance);
    std::string after;
    for (const TCustomMapObject *line : Order()) after += (after.empty() ? "" : "; ") + Figure(*line);
    EXPECT_EQ(after, one.after);
    EXPECT_EQ(grown > 0, layer->GetObjectCount() < int(before.size()));
    EXPECT_EQ(stack.count(), grown > 0 ? 1 : 0);
    stack.undo();
    EXPECT_EQ(Order(), before);
    std::string undone;
    for (const TCustomMapObject *line : before) undone += Figure(*line);
    EXPECT_EQ(undone, drawn);
    stack.clear();
  }
}

TEST_F(OutlineEditsTest, JoinsThePartsOfSeveralLinesAndReversesThem) {
  for (int x = 0; x < 6; x += 2) {
    auto *line = layer->NewObject<TPolyline>();
    AddPart(*line, {{double(x), 1}, {double(x + 2), 1}});
    AddPart(*line, {{double(x), 5}, {double(x + 1), 5}});
  }
  EXPECT_EQ(Edits().JoinLines(Order()), 1);
  ASSERT_EQ(layer->GetObjectCount(), 1);
  EXPECT_EQ(Figure(*layer->First()), "01 21 41 61 | 05 15 | 25 35 | 45 55 | ");
  const Objects all = Order();
  Edits().ReverseLines(all);
  EXPECT_EQ(Figure(*layer->First()), "61 41 21 01 | 15 05 | 35 25 | 55 45 | ");
  stack.undo();
  EXPECT_EQ(Figure(*layer->First()), "01 21 41 61 | 05 15 | 25 35 | 45 55 | ");
}

TEST_F(OutlineEditsTest, AlignsObjectsByTheBoundsOfAll) {
  const std::pair<TMapAlignment, const char *> cases[] = {
      {TMapAlignment::Left, "11 33 | 13 24 | "},         {TMapAlignment::Right, "31 53 | 43 54 | "},
      {TMapAlignment::Top, "12 34 | 43 54 | "},          {TMapAlignment::Bottom, "11 33 | 41 52 | "},
      {TMapAlignment::CentersX, "21 43 | 2.53 3.54 | "}, {TMapAlignment::CentersY, "11.5 33.5 | 42 53 | "}};
  AddPart(*layer->NewObject<TPolyline>(), {{1, 1}, {3, 3}});
  AddPart(*layer->NewObject<TPolyline>(), {{4, 3}, {5, 4}});
  const auto look = [&] { return Figure(*layer->First()) + Figure(*layer->Last()); };
  for (const auto &[alignment, after] : cases) {
    Edits().AlignObjects(Order(), alignment);
    EXPECT_EQ(look(), after);
    Edits().AlignObjects(Order(), alignment);
    ASSERT_EQ(stack.count(), 1) << "nothing moves the second time";
    stack.undo();
    EXPECT_EQ(look(), "11 33 | 43 54 | ");
    stack.clear();
  }
}

}  // namespace
}  // namespace tessera::test
