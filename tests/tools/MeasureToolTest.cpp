// SPDX-License-Identifier: MIT
#include "../map/MapFixture.h"
#include "../support/MapInput.h"

#include <tessera/StdMapTools.h>

#include <QSignalSpy>

namespace tessera::test {
namespace {

class MeasureToolTest : public MapFixture {
 protected:
  MeasureToolTest() {
    AddLayer();
    tool->SetTessera(&map);
    tool->SetActive(true);
    QObject::connect(tool.get(), &TMeasureTool::OnMeasure, &map,
                     [this](TMeasureTool *, const QString &text) { told << text; });
  }
  QStringList told;
  MapInput input{map};
  std::unique_ptr<TMeasureTool> tool = std::make_unique<TMeasureTool>();
};

TEST_F(MeasureToolTest, TellsLengthAndAreaAtEveryStepWithoutAnEditableLayer) {
  EXPECT_TRUE(tool->GetEnabled());
  input.MoveTo({5, 5}, Qt::NoButton);
  EXPECT_EQ(told, QStringList());
  input.Click({10, 10});
  input.MoveTo({40, 10}, Qt::NoButton);
  EXPECT_EQ(told.last(), QStringLiteral("30.0000"));
  EXPECT_EQ(tool->GetArea(), 0);
  input.Click({40, 10});
  input.MoveTo({40, 50}, Qt::NoButton);
  EXPECT_EQ(told.last(), QStringLiteral("70.0000, 600.000"));
  input.DoubleClick({40, 30});
  EXPECT_FALSE(tool->GetInGesture());
  EXPECT_EQ(told.last(), QStringLiteral("50.0000, 300.000"));
  EXPECT_DOUBLE_EQ(tool->GetLength(), 50);
  EXPECT_DOUBLE_EQ(tool->GetArea(), 300);
  const qsizetype count = told.size();
  input.MoveTo({1, 1}, Qt::NoButton);
  EXPECT_EQ(told.size(), count);
  tool->SetUnit(TMapMeasure::muKilometre);
  tool->SetMetresPerUnit(500);
  input.Click({10, 10});
  input.MoveTo({30, 10}, Qt::NoButton);
  EXPECT_EQ(told.last(), QStringLiteral("10.0000 km"));
}

TEST_F(MeasureToolTest, LetsHandlersDestroyTheToolAtAnyStep) {
  const std::function<void()> steps[] = {[this] {
                                           input.Click({10, 10});
                                         },
                                         [this] {
                                           input.MoveTo({30, 10}, Qt::NoButton);
                                         },
                                         [this] {
                                           input.DoubleClick({50, 50});
                                         }};
  for (std::size_t last = 0; last < std::size(steps); ++last) {
    tool = std::make_unique<TMeasureTool>();
    tool->SetTessera(&map);
    tool->SetActive(true);
    for (std::size_t i = 0; i < last; ++i) steps[i]();
    QObject::connect(tool.get(), &TMeasureTool::OnMeasure, &map, [this] { tool.reset(); });
    steps[last]();
    EXPECT_EQ(tool, nullptr);
  }
  EXPECT_TRUE(messages.isEmpty());
}

}  // namespace
}  // namespace tessera::test
