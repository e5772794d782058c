// SPDX-License-Identifier: MIT
// What the editor does about the edits of a run that came to a sudden end.
#include "EditorFixture.h"

#include <apps/editor/EditRecovery.h>
#include <tessera/editing/TMapEdits.h>
#include <tessera/objects/TPolyline.h>

#include <QDir>
#include <QFileInfo>

namespace tessera::apps {
namespace {

using test::MapFileNamed;
using Left = FileQuestions::Left;

class EditorRecoveryTest : public EditorFixture {
 protected:
  EditorRecoveryTest() {
    window.GetFiles().Questions().aboutUnsaved = [](const TMapLayer &) { return FileQuestions::Unsaved::Discard; };
    window.GetFiles().Questions().aboutLeft = [this](const QStringList &layers) {
      asked << layers;
      return answer;
    };
  }

  [[nodiscard]] static QStringList Journals() {
    return QDir(EditRecovery::Folder()).entryList({QStringLiteral("*.journal")}, QDir::Files);
  }
  /// As if this run had been killed now, and another had the window.
  void Kill() {
    recovery.Write();
    const QDir journals(EditRecovery::Folder());
    ASSERT_EQ(Journals().size(), 1);
    QFile::copy(journals.filePath(Journals().at(0)), journals.filePath(QStringLiteral("left.journal")));
    map.GetLayers()->Clear();
    recovery.Write();
  }
  void DrawLine(TMapLayer &layer) {
    auto line = std::make_unique<TPolyline>();
    line->GetParts().Add().GetPoints().Add(1, 2);
    line->GetParts().GetFirst().GetPoints().Add(3, 4);
    TMapEdits(&map).AddObject(layer, std::move(line));
  }

  EditRecovery &recovery = window.GetRecovery();
  Left answer = Left::Restore;
  QStringList asked;
};

TEST_F(EditorRecoveryTest, BringsBackWhatWasDrawnAndKeepsItSafeOnceMore) {
  Open({MapFileNamed("squares.mif"), MapFileNamed("cover.mif")});
  DrawLine(*map.GetLayers()->First());
  DrawLine(*window.AddLayer(QStringLiteral("drawn"), TDataFields()));
  Kill();
  const qint64 before = QFileInfo(QDir(EditRecovery::Folder()).filePath(QStringLiteral("left.journal"))).size();
  recovery.Offer();
  EXPECT_EQ(asked, (QStringList{QStringLiteral("squares"), QStringLiteral("drawn")}));
  ASSERT_EQ(map.GetLayers()->GetCount(), 2);
  EXPECT_EQ(map.GetLayers()->First()->GetObjectCount(), 4);
  EXPECT_EQ(map.GetLayers()->First()->Last()->GetBounds().MaxY, 4);
  EXPECT_EQ(map.GetLayers()->GetLayer(1)->GetObjectCount(), 1);
  EXPECT_EQ(window.GetFiles().GetUnsaved().GetLayers().size(), 2U);
  EXPECT_EQ(messages.GetCount(), 0);
  ASSERT_EQ(Journals().size(), 1) << "that of this run";
  const QFileInfo journal(QDir(EditRecovery::Folder()).filePath(Journals().at(0)));
  EXPECT_EQ(journal.size(), before) << "what is as the files have it is not kept once more";
  Kill();
  recovery.Offer();
  EXPECT_EQ(map.GetLayers()->First()->GetObjectCount(), 4);
}

TEST_F(EditorRecoveryTest, KeepsOrGivesUpWhatIsNotWantedNow) {
  DrawLine(*window.AddLayer(QStringLiteral("drawn"), TDataFields()));
  Kill();
  answer = Left::Keep;
  recovery.Offer();
  recovery.Offer();
  answer = Left::Discard;
  recovery.Offer();
  recovery.Offer();
  EXPECT_EQ(asked.size(), 3);
  EXPECT_EQ(map.GetLayers()->GetCount(), 0);
}

TEST_F(EditorRecoveryTest, KeepsWhatAHandlerDoesNotLetComeBack) {
  DrawLine(*window.AddLayer(QStringLiteral("drawn"), TDataFields()));
  Kill();
  const auto throwing = QObject::connect(&map, &TTessera::OnAddLayer, &map, [] { throw 1; });
  recovery.Offer();
  QObject::disconnect(throwing);
  recovery.Offer();
  EXPECT_EQ(asked.size(), 2);
  ASSERT_GE(map.GetLayers()->GetCount(), 1);
  EXPECT_EQ(map.GetLayers()->Last()->GetObjectCount(), 1);
}

TEST_F(EditorRecoveryTest, HasNothingToOfferOfWhatIsSaved) {
  TMapLayer &layer = *window.AddLayer(QStringLiteral("drawn"), TDataFields());
  DrawLine(layer);
  recovery.Write();
  ASSERT_TRUE(window.GetFiles().SaveTo(layer, PathOf("drawn.mif")));
  Kill();
  recovery.Offer();
  EXPECT_TRUE(asked.isEmpty());
}

}  // namespace
}  // namespace tessera::apps
