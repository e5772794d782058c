// SPDX-License-Identifier: MIT
#include "../support/MapInput.h"
#include "EditorFixture.h"

#include <apps/editor/HelpWindow.h>
#include <apps/editor/Language.h>
#include <apps/editor/SampleMap.h>
#include <tessera/objects/TRegion.h>

#include <QAbstractButton>
#include <QLabel>
#include <QMenu>
#include <QRegularExpression>
#include <QTextBrowser>
#include <QTranslator>

namespace tessera::apps {
namespace {

/// Makes the application speak Russian before the window is made, and English again in the end.
struct InRussian {
  InRussian() { Translate(QLocale(QLocale::Russian)); }
  ~InRussian() {
    for (auto *translator : QCoreApplication::instance()->findChildren<QTranslator *>()) {
      QCoreApplication::removeTranslator(translator);
      translator->deleteLater();
    }
  }
};

class EditorLanguageTest : public InRussian, public EditorFixture {
 protected:
  EditorLanguageTest() { window.setLocale(QLocale(QLocale::Russian)); }
};

/// What people read of a widget and of the actions in it.
QStringList TextsIn(const QWidget &window) {
  QStringList texts;
  for (const auto *action : window.findChildren<QAction *>()) {
    texts << action->text() << action->statusTip() << action->toolTip();
  }
  for (const auto *menu : window.findChildren<QMenu *>()) texts << menu->title();
  for (const auto *widget : window.findChildren<QWidget *>()) {
    texts << widget->windowTitle() << widget->toolTip() << widget->accessibleName();
  }
  for (const auto *label : window.findChildren<QLabel *>()) texts << label->text();
  for (const auto *button : window.findChildren<QAbstractButton *>()) texts << button->text();
  return texts;
}

TEST_F(EditorLanguageTest, LeavesNothingInTheWindowInEnglish) {
  window.AddLayer(QStringLiteral("Слой"), TDataFields());
  QApplication::processEvents();
  // Names, and what the styles and Qt put in for themselves.
  static const QRegularExpression foreign(
      QStringLiteral("\\b(?!(?:Tessera|English|SQL|LIKE|Shift|Delete|Ctrl|Esc)\\b)"
                     "[A-Za-z]{3,}"));
  for (const QString &text : TextsIn(window)) {
    const QString words = QString(text).remove(u'&');
    EXPECT_FALSE(words.contains(foreign)) << words.toStdString();
  }
  EXPECT_TRUE(window.windowTitle().contains(QStringLiteral("Редактор")));
}

TEST_F(EditorLanguageTest, WritesNumbersOfTheLocaleInTheWindowAndNeverInFiles) {
  TMapLayer *layer = window.AddLayer(QStringLiteral("Слой"), TDataFields());
  map.SetZoom(1.5);
  EXPECT_EQ(window.GetStatusPanel().GetZoom(), u"Масштаб 1,5");
  test::MapInput(map).MoveTo({31, 40}, Qt::NoButton);
  EXPECT_EQ(window.GetStatusPanel().GetCoordinates().count(u','), 2) << "the decimal commas";
  EXPECT_EQ(window.GetStatusPanel().GetCoordinates().count(u';'), 1);
  auto &part = layer->NewObject<TRegion>()->GetParts().Add();
  for (const TMapPoint &corner : {TMapPoint{0.5, 0}, {1.25, 0}, {1, 1}}) part.GetPoints().Add(corner.X, corner.Y);
  ASSERT_TRUE(SaveMapFile(*layer, PathOf("layer.mif")).error.isEmpty());
  EXPECT_TRUE(BytesOf(PathOf("layer.mif")).contains("0.5 0"));
}

TEST_F(EditorLanguageTest, TellsOfFilesInTheRightPlural) {
  Open({test::MapFileNamed("squares.mif")});
  EXPECT_TRUE(window.GetStatusPanel().GetSummary().startsWith(QStringLiteral("squares.mif: 3 объекта")))
      << window.GetStatusPanel().GetSummary().toStdString();
}

TEST_F(EditorLanguageTest, HelpsInTheLanguageOfTheWindowOrElseInEnglish) {
  for (const auto &[language, word] : {std::pair(QLocale::Russian, QStringLiteral("Сохранять")),
                                       {QLocale::English, QStringLiteral("Keep")},
                                       {QLocale::Finnish, QStringLiteral("Keep")}}) {
    const HelpWindow help{QLocale(language), nullptr};
    EXPECT_TRUE(help.findChild<QTextBrowser *>()->toPlainText().contains(word)) << language;
  }
}

TEST_F(EditorLanguageTest, HelpsInOneWindowHoweverOftenItIsAsked) {
  const auto ask = [&] {
    for (QAction *action : window.findChildren<QAction *>()) {
      if (action->shortcut() == QKeySequence(QKeySequence::HelpContents)) action->trigger();
    }
    return window.findChildren<HelpWindow *>();
  };
  ask();
  const auto shown = ask();
  ASSERT_EQ(shown.size(), 1);
  EXPECT_TRUE(shown.front()->isVisible());
  shown.front()->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(ask().size(), 1);
}

TEST_F(EditorLanguageTest, SpeaksTheChosenLanguageFromTheNextStart) {
  LanguageMenu menu{QString()};
  EXPECT_EQ(WindowLocale(), QLocale::system());
  EXPECT_TRUE(menu.actions().first()->isChecked());
  menu.actions().last()->trigger();
  EXPECT_EQ(WindowLocale().language(), QLocale::Russian);
  EXPECT_TRUE(LanguageMenu(QString()).actions().last()->isChecked());
}

TEST_F(EditorLanguageTest, ShowsTheSampleMapAtTheFirstStart) {
  EXPECT_TRUE(TakeFirstRun());
  EXPECT_FALSE(TakeFirstRun());
  Open(SampleMapFiles());
  EXPECT_EQ(map.GetLayers()->GetCount(), 3);
  EXPECT_EQ(map.GetLayers()->First()->GetName(), u"graticule");
}

}  // namespace
}  // namespace tessera::apps
