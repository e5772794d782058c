// SPDX-License-Identifier: MIT
// What survives of the edits of a map when its process is killed.
#include "../support/FolderFixture.h"
#include "../support/RandomShapes.h"
#include "MapFixture.h"

#include <tessera/base/Exceptions.h>
#include <tessera/base/detail/ByteOutput.h>
#include <tessera/editing/TEditJournal.h>
#include <tessera/editing/TLeftJournal.h>
#include <tessera/editing/TMapEdits.h>
#include <tessera/formats/SimpleMIFFormatProvider.h>
#include <tessera/formats/detail/MifWriter.h>
#include <tessera/layers/MapFiles.h>
#include <tessera/objects/TSprite.h>

#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QUndoStack>

#include <array>
#include <csignal>
#include <map>
#include <sys/wait.h>
#include <unistd.h>

namespace tessera::test {
namespace {

/// A layer as the text of its files, but for the widths of its columns, which a MIF file loses when it is read.
std::string TextOf(const TMapLayer &layer) {
  TFormatReport report;
  detail::MemoryOutput mif;
  detail::MemoryOutput mid;
  detail::MifWriter(layer, mif, mid, report).Write();
  static const QRegularExpression widths(QStringLiteral("Char\\([0-9]+\\)"));
  QString text = QString::fromLatin1(mif.GetBytes());
  return text.replace(widths, QStringLiteral("Char")).toStdString() + mid.GetBytes();
}

/// The texts of layers by their names.
using Texts = std::map<std::string, std::string>;

Texts TextsOf(const TMapLayers &layers) {
  Texts texts;
  for (const auto &layer : layers.Items()) texts[layer->GetName().toStdString()] = TextOf(*layer);
  return texts;
}

/// A map with an undo stack that is edited at random, as a person might, and a journal of it.
class EditedMap {
 public:
  EditedMap(QString folder, unsigned seed) : m_folder(std::move(folder)), m_random(seed) {
    m_map.resize(200, 100);
    m_map.SetUndoStack(&m_stack);
    m_journal.SetMap(&m_map);
    for (int i = 0; i < 3; ++i) AddLayer();
  }

  [[nodiscard]] TMapLayers &GetLayers() { return *m_map.GetLayers(); }
  [[nodiscard]] TEditJournal &GetJournal() { return m_journal; }
  [[nodiscard]] QString GetJournalFolder() const { return m_folder + QStringLiteral("/journals"); }

  void EditOnce() {
    TMapLayer &layer = *GetLayers().GetLayer(m_random.Whole(0, GetLayers().GetCount() - 1));
    const auto some = SomeOf(layer);
    TMapEdits edits(&m_map);
    const std::array<std::function<void()>, 12> things{
        [&] { edits.AddObject(layer, MakeShape()); },
        [&] { edits.AddObject(layer, MakeShape()); },
        [&] { edits.DeleteObjects(some); },
        [&] { edits.MoveObjects(some, m_random.Whole(-5, 5), 3); },
        [&] { edits.DuplicateObjects(some, 1, 1); },
        [&] { edits.BringToFront(some); },
        [&] { edits.SendToBack(some); },
        [&] { edits.AddColumn(layer, QStringLiteral("c%1").arg(++m_made), TDataType::dtString, 20); },
        [&] { m_stack.undo(); },
        [&] { m_stack.redo(); },
        [&] { AddLayer(); },
        [&] { Save(layer); },
    };
    things[std::size_t(m_random.Whole(0, int(things.size()) - 1))]();
    if (GetLayers().GetCount() > 5) edits.DeleteLayer(0);
  }

 private:
  std::unique_ptr<TCustomMapObject> MakeShape() {
    auto line = std::make_unique<TPolyline>();
    TMapPoints &points = line->GetParts().Add().GetPoints();
    for (int i = m_random.Whole(2, 5); i > 0; --i) points.Add(m_random.Whole(0, 200), m_random.Whole(0, 100));
    return line;
  }
  std::vector<TCustomMapObject *> SomeOf(const TMapLayer &layer) {
    std::vector<TCustomMapObject *> some;
    for (int i = 0; i < layer.GetObjectCount(); ++i) {
      if (m_random.Whole(0, 3) == 0) some.push_back(layer.GetObjects(i));
    }
    return some;
  }
  /// A layer of the map that is like its file.
  void AddLayer() {
    const QString name = QStringLiteral("layer%1").arg(++m_made);
    if (m_random.Whole(0, 2) == 0) {
      GetLayers().Add(QString(), name);
      return;
    }
    TMapLayer made;
    made.GetFields().Add(QStringLiteral("Name"), TDataType::dtString, 30);
    for (int i = m_random.Whole(1, 9); i > 0; --i) made.AddObject(MakeShape(), false);
    const QString fileName = m_folder + u'/' + name + u".mif";
    EXPECT_TRUE(SaveMapFile(made, fileName).error.isEmpty());
    EXPECT_NE(LoadMapFile(GetLayers(), fileName).layer, nullptr);
  }
  void Save(TMapLayer &layer) {
    const QString fileName = m_folder + u'/' + layer.GetName() + u".mif";
    m_journal.NoteSaving(layer);
    if (SaveMapFile(layer, fileName).error.isEmpty()) m_journal.NoteSaved(layer, fileName);
  }

  QString m_folder;
  TRandomShapes m_random;
  int m_made = 0;
  QUndoStack m_stack;
  TTessera m_map;
  TEditJournal m_journal{m_map, GetJournalFolder()};
};

class EditJournalTest : public FolderFixture {
 protected:
  /// The layers that journals hold, in a later run of the program. Nothing is left of the journals.
  static Texts Restored(const QString &journals) {
    TTessera map;
    QStringList problems;
    for (TLeftJournal &left : TLeftJournal::FindIn(journals)) {
      problems << left.RestoreInto(*map.GetLayers());
      left.Discard();
    }
    EXPECT_TRUE(problems.isEmpty()) << problems.join(u'\n').toStdString();
    EXPECT_TRUE(QDir(journals).isEmpty(QDir::Files));
    return TextsOf(*map.GetLayers());
  }

  /// With those of the expected layers that are as their files are.
  static Texts WithFiles(Texts restored, const QString &files, const Texts &expected) {
    TTessera map;
    for (const auto &[name, text] : expected) {
      const QString fileName = files + u'/' + QString::fromStdString(name) + u".mif";
      if (restored.contains(name) || !QFile::exists(fileName)) continue;
      restored[name] = TextOf(*LoadMapFile(*map.GetLayers(), fileName).layer);
    }
    return restored;
  }

  /// A copy of a folder's journals, which nobody has in use.
  static QString CopyOf(const QString &journals) {
    QString copies = journals + QStringLiteral(".copy");
    QDir(copies).removeRecursively();
    QDir().mkpath(copies);
    for (const QString &name : QDir(journals).entryList({QStringLiteral("*.journal")}, QDir::Files)) {
      QFile::copy(journals + u'/' + name, copies + u'/' + name);
    }
    return copies;
  }

  TSimpleMIFFormatProvider provider;
};

TEST_F(EditJournalTest, HasWhatWasEditedUntilItWasLastWritten) {
  TRandomShapes random(5);
  for (unsigned seed = 0; seed < 8; ++seed) {
    const QString files = PathOf(QString::number(seed));
    QDir().mkpath(files);
    EditedMap edited(files, seed);
    for (int i = 0; i < 25; ++i) {
      SCOPED_TRACE(testing::Message() << seed << ' ' << i);
      for (int edits = random.Whole(0, 12); edits > 0; --edits) edited.EditOnce();
      edited.GetJournal().Write();
      const Texts expected = TextsOf(edited.GetLayers());
      ASSERT_EQ(WithFiles(Restored(CopyOf(edited.GetJournalFolder())), files, expected), expected);
      ASSERT_TRUE(TLeftJournal::FindIn(edited.GetJournalFolder()).empty()) << "its process lives";
    }
  }
}

QByteArray Packed(const Texts &texts) {
  QByteArray bytes;
  QDataStream stream(&bytes, QIODevice::WriteOnly);
  for (const auto &[name, text] : texts) stream << QByteArray::fromStdString(name) << QByteArray::fromStdString(text);
  return bytes;
}

Texts Unpacked(const QByteArray &bytes) {
  Texts texts;
  QDataStream stream(bytes);
  for (QByteArray name, text; !stream.atEnd();) {
    stream >> name >> text;
    texts[name.toStdString()] = text.toStdString();
  }
  return texts;
}

/// Tells what a map will have in its journal, and then that it has it.
void EditUntilKilled(const QString &files, unsigned seed, int pipeEnd) {
  EditedMap edited(files, seed);
  QFile pipe;
  if (!pipe.open(pipeEnd, QIODevice::WriteOnly | QIODevice::Unbuffered)) return;
  QDataStream stream(&pipe);
  while (stream.status() == QDataStream::Ok) {
    edited.EditOnce();
    stream << Packed(TextsOf(edited.GetLayers()));
    edited.GetJournal().Write();
    stream << QByteArray("written");
  }
}

TEST_F(EditJournalTest, OutlivesAKillAtAnyMoment) {
  for (unsigned seed = 0; seed < 20; ++seed) {
    SCOPED_TRACE(seed);
    const QString files = PathOf(QString::number(seed));
    QDir().mkpath(files);
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    const pid_t child = fork();
    if (child == 0) {
      EditUntilKilled(files, seed, ends[1]);
      _exit(1);
    }
    close(ends[1]);
    QFile pipe;
    ASSERT_TRUE(pipe.open(ends[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle));
    QDataStream stream(&pipe);
    QByteArrayList told;
    for (QByteArray one; stream >> one, stream.status() == QDataStream::Ok; told << one) {
      if (told.size() == 5 + 9 * int(seed)) kill(child, SIGKILL);
    }
    waitpid(child, nullptr, 0);
    told.removeAll(QByteArray("written"));
    ASSERT_GE(told.size(), 2);
    const Texts restored = Restored(files + QStringLiteral("/journals"));
    // What it was about to write last may be there or not.
    const Texts last = Unpacked(told.takeLast());
    const Texts before = Unpacked(told.takeLast());
    const bool isBefore = WithFiles(restored, files, before) == before;
    EXPECT_EQ(WithFiles(restored, files, isBefore ? before : last), isBefore ? before : last);
  }
}

class JournaledMapTest : public EditJournalTest {
 protected:
  JournaledMapTest() {
    TMapLayer made;
    for (int i = 0; i < 3; ++i) made.AddObject(MakeLine(i), false);
    EXPECT_TRUE(SaveMapFile(made, PathOf(QStringLiteral("lines.mif"))).error.isEmpty());
    journal.SetMap(&map);
    layer = LoadMapFile(*map.GetLayers(), PathOf(QStringLiteral("lines.mif"))).layer;
  }
  static std::unique_ptr<TPolyline> MakeLine(int y) {
    auto line = std::make_unique<TPolyline>();
    line->GetParts().Add().GetPoints().Add(0, y);
    line->GetParts().GetFirst().GetPoints().Add(9, y);
    return line;
  }
  QByteArray WrittenBytes() {
    journal.Write();
    QFile file(JournalFile());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  QString JournalFile() const {
    const QDir folder(PathOf(QStringLiteral("j")));
    return folder.filePath(folder.entryList({QStringLiteral("*.journal")}).value(0));
  }
  TLeftJournal Left() { return std::move(TLeftJournal::FindIn(CopyOf(PathOf(QStringLiteral("j")))).at(0)); }

  TTessera map;
  TEditJournal journal{map, PathOf(QStringLiteral("j"))};
  TMapLayer *layer = nullptr;
};

TEST_F(JournaledMapTest, HoldsNothingOfWhatIsAsItsFileIs) {
  const QByteArray nothing = WrittenBytes();
  EXPECT_LT(nothing.size(), 10);
  TMapEdits(&map).MoveObjects(std::array{layer->First()}, 1, 1);
  EXPECT_GT(WrittenBytes().size(), 100);
  ASSERT_TRUE(SaveMapFile(*layer, layer->GetSource().fileName).error.isEmpty());
  journal.NoteSaved(*layer, layer->GetSource().fileName);
  EXPECT_EQ(WrittenBytes(), nothing);
  TMapEdits(&map).AddObject(*layer, MakeLine(7));
  EXPECT_GT(WrittenBytes().size(), 100);
  map.GetLayers()->Delete(0);
  EXPECT_EQ(WrittenBytes(), nothing) << "closed without being saved";
}

TEST_F(JournaledMapTest, CostsWhatHasChanged) {
  for (int i = 0; i < 1000; ++i) layer->AddObject(MakeLine(i), false);
  const auto all = WrittenBytes().size();
  TMapEdits(&map).MoveObjects(std::array{layer->GetObjects(500)}, 1, 1);
  TMapEdits(&map).BringToFront(std::array{layer->GetObjects(20)});
  EXPECT_LT(WrittenBytes().size() - all, all / 100);
}

TEST_F(JournaledMapTest, LeavesOutWhatItCannotHold) {
  layer->PutObject(1, std::make_unique<TSprite>());
  layer->PutObject(3, MakeLine(5));
  WrittenBytes();
  layer->PutObject(1, MakeLine(6));
  WrittenBytes();
  TTessera later;
  EXPECT_TRUE(Left().RestoreInto(*later.GetLayers()).isEmpty());
  layer->TakeObject(layer->GetObjects(2)).reset();
  EXPECT_EQ(TextsOf(*later.GetLayers()), TextsOf(*map.GetLayers()));
}

TEST_F(JournaledMapTest, HasWhatStandsAtTheAddressOfAnObjectThatWasTakenOut) {
  WrittenBytes();
  // It could be another one as well: nobody is told what becomes of an object outside its layer.
  std::unique_ptr<TCustomMapObject> taken = layer->TakeObject(layer->First());
  taken->MoveBy(0, 40);
  layer->PutObject(0, std::move(taken));
  WrittenBytes();
  TTessera later;
  EXPECT_TRUE(Left().RestoreInto(*later.GetLayers()).isEmpty());
  EXPECT_EQ(TextsOf(*later.GetLayers()), TextsOf(*map.GetLayers()));
}

TEST_F(JournaledMapTest, HasWhatIsBeingSavedUntilItsFileHasIt) {
  const auto left = [this] { return TLeftJournal::FindIn(CopyOf(PathOf(QStringLiteral("j")))); };
  map.GetLayers()->Add(QString(), QStringLiteral("without a file"))->AddObject(MakeLine(8), false);
  layer->AddObject(MakeLine(7), false);
  journal.Write();
  for (const auto &saved : map.GetLayers()->Items()) journal.NoteSaving(*saved);
  {
    SCOPED_TRACE("killed before a file is replaced");
    TTessera later;
    EXPECT_TRUE(Left().RestoreInto(*later.GetLayers()).isEmpty());
    EXPECT_EQ(TextsOf(*later.GetLayers()), TextsOf(*map.GetLayers()));
  }
  ASSERT_TRUE(SaveMapFile(*layer, layer->GetSource().fileName).error.isEmpty());
  ASSERT_EQ(left().size(), 1) << "killed before the journal knows that the file is replaced";
  EXPECT_EQ(left()[0].GetLayerNames(), QStringList(QStringLiteral("without a file")));
  // What is edited later is in no file, whoever has replaced it.
  layer->AddObject(MakeLine(9), false);
  journal.Write();
  TTessera later;
  EXPECT_EQ(Left().RestoreInto(*later.GetLayers()).size(), 1);
  ASSERT_EQ(later.GetLayers()->GetCount(), 2);
  EXPECT_EQ(later.GetLayers()->GetLayer(0)->GetObjectCount() + later.GetLayers()->GetLayer(1)->GetObjectCount(), 3);
}

TEST_F(JournaledMapTest, SaysWhenAFileIsNotAsItWasAndHasWhatWasChanged) {
  layer->AddObject(MakeLine(7), false);
  WrittenBytes();
  WriteFile(QStringLiteral("lines.mif"), "Version 300\n\nData\n\nPoint 1 2\n");
  TTessera later;
  TMapLayers &layers = *later.GetLayers();
  const QStringList problems = Left().RestoreInto(layers);
  ASSERT_EQ(problems.size(), 1);
  EXPECT_TRUE(problems[0].contains(QStringLiteral("lines.mif"))) << problems[0].toStdString();
  ASSERT_EQ(layers.GetCount(), 1);
  ASSERT_EQ(layers.First()->GetObjectCount(), 1);
  EXPECT_EQ(layers.First()->First()->GetBounds().MinY, 7);
}

TEST_F(JournaledMapTest, ReadsADamagedJournalUpToTheDamage) {
  layer->AddObject(MakeLine(7), false);
  const auto length = WrittenBytes().size();
  layer->AddObject(MakeLine(8), false);
  const QByteArray whole = WrittenBytes();
  QDir().mkpath(PathOf(QStringLiteral("damaged")));
  TTessera later;
  TMapLayers &layers = *later.GetLayers();
  TRandomShapes random(9);
  for (int i = 0; i < 300; ++i) {
    QByteArray bytes = i % 2 == 0 ? whole : whole.left(random.Whole(0, int(whole.size())));
    const int at = random.Whole(0, int(whole.size()) - 1);
    if (at < bytes.size()) bytes[at] = char(bytes[at] + 1);
    WriteFile(QStringLiteral("damaged/one.journal"), bytes);
    layers.Clear();
    for (const TLeftJournal &left : TLeftJournal::FindIn(PathOf(QStringLiteral("damaged")))) left.RestoreInto(layers);
    const int most = std::min<int>(at, int(bytes.size())) < length ? 4 : 5;
    for (const auto &restored : layers.Items()) EXPECT_LE(restored->GetObjectCount(), most);
  }
}

TEST_F(JournaledMapTest, IsNotMadeWhereThereCanBeNoFile) {
  EXPECT_THROW(TEditJournal(map, PathOf(QStringLiteral("lines.mif/no"))), EInOutError);
}

}  // namespace
}  // namespace tessera::test
