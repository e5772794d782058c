// SPDX-License-Identifier: MIT
// The form of the example, as uic compiles it and as it is loaded at run time.
#include "../support/MapInput.h"
#include "ui_form.h"

#include <tessera/map/TMapToolsManager.h>
#include <tessera/objects/TSymbol.h>

#include <QFile>
#include <QSignalSpy>
#include <QUiLoader>
#include <gtest/gtest.h>

namespace tessera::test {
namespace {

std::unique_ptr<QMainWindow> Compiled() {
  auto window = std::make_unique<QMainWindow>();
  Ui::Form().setupUi(window.get());
  return window;
}

struct Loader : QUiLoader {
  Loader() { addPluginPath(QStringLiteral(TESSERA_PLUGINS "/designer")); }
};

std::unique_ptr<QMainWindow> Loaded() {
  QFile file(QStringLiteral(TESSERA_FORM));
  Loader loader;
  std::unique_ptr<QWidget> widget(loader.load(&file));
  EXPECT_NE(widget, nullptr) << loader.errorString().toStdString();
  return std::unique_ptr<QMainWindow>(qobject_cast<QMainWindow *>(widget.release()));
}

class FormTest : public testing::TestWithParam<std::unique_ptr<QMainWindow> (*)()> {
 protected:
  FormTest() : window(GetParam()()), map(Find<TTessera>("map")) {
    layer = map->GetLayers()->Add(QString(), QStringLiteral("Objects"));
    layer->SetEditable(true);
    window->show();
    QApplication::processEvents();
  }
  template <class Kind>
  Kind *Find(const char *name) const {
    return window->findChild<Kind *>(QString::fromLatin1(name));
  }

  std::unique_ptr<QMainWindow> window;
  TTessera *map;
  TMapLayer *layer;
};

TEST_P(FormTest, HasItsComponentsLinked) {
  EXPECT_EQ(Find<TLayerControl>("layers")->GetMap(), map);
  EXPECT_EQ(Find<TLayersComboBox>("layer")->GetMap(), map);
  EXPECT_EQ(Find<TLayersComboBox>("layer")->count(), 1);
  EXPECT_EQ(Find<TDataBrowser>("browser")->GetLayer(), layer);
  EXPECT_EQ(map->GetMapToolsManager()->GetCount(), 3);
  EXPECT_EQ(map->GetMapToolsManager()->GetActiveMapTool(), Find<TSelectionTool>("selectionTool"));
  EXPECT_EQ(Find<TSymbolTool>("symbolTool")->GetCursor(), TCustomMapTool::crCross);
  EXPECT_EQ(map->GetZoomType(), TTessera::wmCursor);
  EXPECT_EQ(map->GetOptions()->GetDefaultSymbolShape(), 35);
  EXPECT_EQ(FormatProviders->FindSuitableProvider(QStringLiteral("a.mif")), Find<TSimpleMIFFormatProvider>("mif"));
}

TEST_P(FormTest, ShowsNothingOfWhatIsNoWidget) {
  for (const form::TFormComponent *component : window->findChildren<form::TFormComponent *>()) {
    EXPECT_FALSE(component->isVisible());
    EXPECT_TRUE(component->size().isEmpty());
  }
  // Not even a layout has room for it.
  const QSize before = window->centralWidget()->minimumSizeHint();
  window->centralWidget()->layout()->addWidget(new form::TPanTool(window->centralWidget()));
  EXPECT_EQ(window->centralWidget()->minimumSizeHint(), before);
}

TEST_P(FormTest, WorksWhenClicked) {
  QSignalSpy changes(Find<form::TSymbolTool>("symbolTool"), &form::TFormTool::OnToolStateChanged);
  QSignalSpy completed(Find<form::TSymbolTool>("symbolTool"), &form::TFormTool::OnComplete);
  Find<QPushButton>("symbolButton")->click();
  EXPECT_EQ(map->GetMapToolsManager()->GetActiveMapTool(), Find<TSymbolTool>("symbolTool"));
  EXPECT_EQ(changes.count(), 1);
  MapInput(*map).Click({100, 50});
  EXPECT_EQ(completed.count(), 1);
  ASSERT_EQ(layer->GetObjectCount(), 1);
  const auto *symbol = dynamic_cast<TSymbol *>(layer->GetObjects(0));
  ASSERT_NE(symbol, nullptr);
  EXPECT_EQ(symbol->GetShape(), 35);

  Find<QPushButton>("selectButton")->click();
  QApplication::processEvents();
  MapInput(*map).Click({100, 50});
  QApplication::processEvents();
  EXPECT_EQ(map->GetSelection()->GetCount(), 1);
  EXPECT_EQ(Find<TDataBrowser>("browser")->GetView()->model()->rowCount(), 1);
  auto *layers = Find<TLayerControl>("layers");
  MapInput(*layers->viewport()).Click(layers->GetVisibleRect(0).center());
  EXPECT_FALSE(layer->GetVisible());
}

TEST(FormLoaderTest, MakesEveryClass) {
  Loader loader;
  int made = 0;
  for (const QString &name : loader.availableWidgets()) {
    if (!name.startsWith(QStringLiteral("tessera::"))) continue;
    const std::unique_ptr<QWidget> widget(loader.createWidget(name));
    ASSERT_NE(widget, nullptr) << name.toStdString();
    EXPECT_EQ(QString::fromLatin1(widget->metaObject()->className()), name);
    ++made;
  }
  EXPECT_EQ(made, 28);
}

template <class Tool>
void ExpectWithinReaches() {
  Tool tool;
  EXPECT_EQ(tool.property("Within"), tool.Get()->GetWithin());
  EXPECT_TRUE(tool.setProperty("Within", true));
  EXPECT_TRUE(tool.Get()->GetWithin());
  EXPECT_EQ(tool.property("Within"), true);
  delete tool.Get();
  EXPECT_TRUE(tool.setProperty("Within", true)) << "without its tool it just has nothing to set";
  EXPECT_EQ(tool.property("Within"), false);
}

TEST(FormToolTest, HandsItsPropertiesOn) {
  ExpectWithinReaches<form::TRectSelectionTool>();
  ExpectWithinReaches<form::TCircleSelectionTool>();
  ExpectWithinReaches<form::TPolygonSelectionTool>();
}

INSTANTIATE_TEST_SUITE_P(Made, FormTest, testing::Values(Compiled, Loaded),
                         [](const auto &made) { return made.param == Compiled ? "ByUic" : "AtRunTime"; });

}  // namespace
}  // namespace tessera::test
