// SPDX-License-Identifier: MIT
#include "../map/MapFixture.h"
#include "../support/MapInput.h"

#include <tessera/graphics/TCanvas.h>
#include <tessera/objects/TText.h>
#include <tessera/tools/TTextTool.h>

#include <QTest>

namespace tessera::test {
namespace {

class TTextToolTest : public MapFixture {
 protected:
  TTextToolTest() : layer(AddLayer()) {
    layer->SetEditable(true);
    tool.SetTessera(&map);
    tool.SetActive(true);
    map.show();
    Shown();
  }
  QStringList Texts() const {
    QStringList texts;
    for (int i = 0; i < layer->GetObjectCount(); ++i) {
      texts << dynamic_cast<const TText &>(*layer->GetObjects(i)).GetText();
    }
    return texts;
  }

  TMapLayer *layer;
  TTextTool tool;
  MapInput input{map};
};

TEST_F(TTextToolTest, PutsWhatWasTypedWhereItWasClicked) {
  const QString cyrillicAndPair = QStringLiteral("Река ") + QString::fromUcs4(U"\U0001F5FA");
  input.Click({30, 40});
  input.Type(cyrillicAndPair);
  EXPECT_EQ(layer->GetObjectCount(), 0);
  const QImage typing = Shown();
  input.Key(Qt::Key_Return, QStringLiteral("\r"));
  ASSERT_EQ(Texts(), QStringList{cyrillicAndPair});
  auto &text = dynamic_cast<TText &>(*layer->First());
  EXPECT_EQ(text.GetPosition().X, 30);
  EXPECT_EQ(text.GetPosition().Y, 60);
  EXPECT_EQ(text.GetFont(), map.GetOptions()->GetDefaultTextFont());
  const QSize size = [this, &cyrillicAndPair] {
    map.GetCanvas().Font() = map.GetOptions()->GetDefaultTextFont();
    return map.GetCanvas().TextExtent(cyrillicAndPair);
  }();
  EXPECT_DOUBLE_EQ(text.GetWidth(), size.width());
  EXPECT_DOUBLE_EQ(text.GetHeight(), size.height());
  // The label stands where it was typed; the caret stood right of it.
  const QRect label(30, 40 - size.height(), size.width(), size.height());
  EXPECT_EQ(Shown().copy(label), typing.copy(label));
}

TEST_F(TTextToolTest, EditsBeforeTheTextIsPut) {
  input.Click({30, 40});
  input.Key(Qt::Key_Backspace, QStringLiteral("\b"));
  input.Type(QStringLiteral("abc"));
  for (const int key : {Qt::Key_Home, Qt::Key_Delete, Qt::Key_Right, Qt::Key_Left, Qt::Key_Left}) input.Key(key);
  EXPECT_EQ(tool.GetText(), QStringLiteral("bc"));
  EXPECT_EQ(tool.GetCurrentChar(), 0);
  input.Type(QString::fromUcs4(U"\U0001F5FA"));
  input.Key(Qt::Key_Left);
  EXPECT_EQ(tool.GetCurrentChar(), 0) << "over both halves of a pair";
  input.Key(Qt::Key_Right);
  EXPECT_EQ(tool.GetCurrentChar(), 2);
  input.Key(Qt::Key_Backspace);
  EXPECT_EQ(tool.GetText(), QStringLiteral("bc"));
  input.Key(Qt::Key_End);
  input.Type(QStringLiteral("\x01\x7f"));
  input.Type(QStringLiteral("d"));
  EXPECT_EQ(map.GetCenterX(), 100) << "the keys did not move the map";
  input.Key(Qt::Key_Escape, QStringLiteral("\x1b"));
  EXPECT_EQ(Texts(), QStringList{QStringLiteral("bcd")}) << "Escape puts it, too";
  input.Key(Qt::Key_Return);
  input.Type(QStringLiteral("e"));
  EXPECT_EQ(layer->GetObjectCount(), 1) << "no text was started";
  input.Key(Qt::Key_Left);
  EXPECT_EQ(map.GetCenterX(), 80) << "the keys are the map's again";
}

TEST_F(TTextToolTest, PutsTheTextAndBeginsAnotherWhereItIsClickedNext) {
  input.Click({30, 40});
  input.Type(QStringLiteral("one"));
  input.Click({60, 70});
  EXPECT_EQ(Texts(), QStringList{QStringLiteral("one")});
  input.DoubleClick({90, 20});
  EXPECT_EQ(Texts(), (QStringList{QStringLiteral("one"), QString()})) << "an empty one, and no third for the double";
  input.Type(QStringLiteral("dropped"));
  tool.Cancel();
  EXPECT_EQ(layer->GetObjectCount(), 2);
  EXPECT_EQ(map.cursor().shape(), Qt::IBeamCursor) << "the tool is still active";
}

TEST_F(TTextToolTest, ShowsWhatIsBeingComposedAtTheCaret) {
  input.Click({30, 40});
  input.Type(QStringLiteral("ab"));
  input.Key(Qt::Key_Left);
  const QRect caret = tool.GetCaretRect();
  const QImage plain = Shown();
  input.Compose(QStringLiteral("\u00b4"));
  EXPECT_EQ(tool.GetText(), QStringLiteral("ab"));
  EXPECT_NE(Shown(), plain);
  const auto asked = map.inputMethodQuery(Qt::ImCursorRectangle).toRect();
  EXPECT_EQ(asked.bottomLeft().y(), 39);
  EXPECT_GT(asked.x(), caret.x());
  input.Compose(QString(), QStringLiteral("\u00e9"));
  EXPECT_EQ(tool.GetText(), QStringLiteral("a\u00e9b"));
  input.Key(Qt::Key_Backspace);
  EXPECT_EQ(tool.GetCaretRect(), caret);
  EXPECT_EQ(Shown(), plain);
}

TEST_F(TTextToolTest, BlinksItsCaret) {
  const int before = QApplication::cursorFlashTime();
  QApplication::setCursorFlashTime(40);
  input.Click({30, 40});
  std::vector<bool> seen;
  const QPoint onCaret(30, 35);
  for (int i = 0; i < 400 && (seen.size() < 3); ++i) {
    const bool isDark = Shown().pixel(onCaret) == Pixel(clBlack);
    if (seen.empty() || seen.back() != isDark) seen.push_back(isDark);
    QTest::qWait(5);
  }
  QApplication::setCursorFlashTime(before);
  EXPECT_EQ(seen, (std::vector{true, false, true}));
}

}  // namespace
}  // namespace tessera::test
