// SPDX-License-Identifier: MIT
#include "Deeds.h"
#include "Person.h"

#include <apps/editor/EditRecovery.h>
#include <apps/editor/EditorTools.h>
#include <apps/editor/LayerDocks.h>
#include <apps/editor/LayerFiles.h>
#include <tessera/formats/detail/MitabLibrary.h>
#include <tessera/layers/MapFiles.h>

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QPixmapCache>
#include <QTextStream>
#include <QUndoStack>
#include <QUrl>

namespace tessera::soak {
namespace {

using Unsaved = apps::FileQuestions::Unsaved;

/// Where all the shapes are, in map units.
constexpr double WorldWidth = 40;
constexpr double WorldHeight = 30;

void WritePoint(Person &person, QTextStream &out) {
  out << person.Real(0, WorldWidth) << ' ' << person.Real(0, WorldHeight) << '\n';
}

void WriteShape(Person &person, QTextStream &out) {
  const int corners = person.Whole(3, 9);
  switch (person.Whole(0, 2)) {
    case 0:
      out << "Point ";
      WritePoint(person, out);
      out << "    Symbol (" << person.Whole(33, 60) << ",255," << person.Whole(8, 20) << ")\n";
      return;
    case 1:
      out << "Pline " << corners << '\n';
      for (int i = 0; i < corners; ++i) WritePoint(person, out);
      out << "    Pen (" << person.Whole(1, 4) << ",2," << person.Whole(0, 0xFFFFFF) << ")\n";
      return;
    default:
      out << "Region 1\n  " << corners << '\n';
      for (int i = 0; i < corners; ++i) WritePoint(person, out);
      out << "    Pen (1,2,0)\n    Brush (" << person.Whole(1, 8) << ',' << person.Whole(0, 0xFFFFFF) << ")\n";
  }
}

void WriteMap(Person &person, const QString &name, int shapes) {
  QFile mif(person.FileNamed(name + QStringLiteral(".mif")));
  QFile mid(person.FileNamed(name + QStringLiteral(".mid")));
  if (!mif.open(QIODevice::WriteOnly) || !mid.open(QIODevice::WriteOnly))
    return person.Fail(QStringLiteral("Cannot write ") + mif.fileName());
  QTextStream out(&mif);
  QTextStream values(&mid);
  out << "Version 300\nCharset \"WindowsCyrillic\"\nDelimiter \",\"\nCoordSys Earth Projection 1, 0\n"
         "Columns 3\n  Name Char(20)\n  Size Integer\n  Area Float\nData\n\n";
  for (int i = 0; i < shapes; ++i) {
    WriteShape(person, out);
    values << "\"B" << i << "\"," << person.Whole(0, 99) << ',' << person.Real(0, 9) << '\n';
  }
}

void Open(Person &person) {
  const QStringList kinds = {QStringLiteral("*.mif"), QStringLiteral("*.tab"), QStringLiteral("*.wor")};
  const QString file = person.FileNamed(person.OneOf(QDir(person.FileNamed({})).entryList(kinds)));
  person.Note(file);
  if (person.OneIn(3)) {
    person.Choose(QStringLiteral("&Open…"));
  } else if (person.OneIn(2)) {
    person.window.GetFiles().Open({file});
  } else {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(file)});
    QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&person.window, &drop);
    person.Settle();
  }
  // Now and then the work goes on, or the person does not want to wait.
  if (person.OneIn(8)) person.window.GetFiles().CancelOpening();
  if (!person.OneIn(3)) person.WaitForFiles();
}

void NewLayer(Person &person) {
  person.Choose(QStringLiteral("&New layer"));
}

void Save(Person &person) {
  person.Choose(person.OneIn(2) ? QStringLiteral("&Save layer") : QStringLiteral("Save layer &as"));
}

void Close(Person &person) {
  person.Choose(QStringLiteral("&Close layer"));
}

void Export(Person &person) {
  person.Choose(QStringLiteral("&Export picture"));
}

/// A map that many objects or layers have made slow to work with is not worked with any longer.
void CloseWhatIsMuch(Person &person) {
  constexpr int MostLayers = 7;
  constexpr int MostObjects = 1500;
  const TMapLayers &layers = *person.map.GetLayers();
  int objects = 0;
  for (const auto &layer : layers.Items()) objects += layer->GetObjectCount();
  if (layers.GetCount() > MostLayers || objects > MostObjects) Close(person);
  if (layers.GetCount() == 0) Open(person);
}

/// A workspace has tables, which are TAB files.
void WriteWorkspace(Person &person) {
  if (!detail::EnsureMitab()) return;
  for (const QString &name : {QStringLiteral("map5"), QStringLiteral("map40")}) {
    person.window.GetFiles().Open({person.FileNamed(name + QStringLiteral(".mif"))});
    person.WaitForFiles();
    const TSavedFile saved =
        SaveMapFile(*person.map.GetLayers()->Last(), person.FileNamed(name + QStringLiteral(".tab")));
    if (!saved.error.isEmpty()) person.Fail(saved.error);
  }
  QFile workspace(person.FileNamed(QStringLiteral("all.wor")));
  if (!workspace.open(QIODevice::WriteOnly)) return person.Fail(QStringLiteral("Cannot write a workspace"));
  workspace.write(
      "!Workspace\n!Version 300\nOpen Table \"map5\" As map5 Interactive\nOpen Table \"map40\" As map40 Interactive\n"
      "Map From map5,map40\nSet Map\n  Center (20,15)\n  Zoom 4000 Units \"km\"\nSet Map\n  Layer 1\n"
      "    Display Graphic\n  Layer 2\n    Display Graphic\n    Selectable Off\n");
}

}  // namespace

std::span<const Deed> FileDeeds() {
  static constexpr Deed Deeds[] = {{"open", 6, Open},   {"new layer", 3, NewLayer}, {"save", 5, Save},
                                   {"close", 3, Close}, {"export", 2, Export},      {"enough", 6, CloseWhatIsMuch}};
  return Deeds;
}

void WriteFirstFiles(Person &person) {
  for (const int shapes : {5, 40, 300}) WriteMap(person, QStringLiteral("map%1").arg(shapes), shapes);
  WriteWorkspace(person);
  // Most questions are answered at once, some in their dialogs.
  apps::FileQuestions &questions = person.window.GetFiles().Questions();
  questions.whereToSave = [&person, ask = questions.whereToSave](const TMapLayer &layer) {
    return person.OneIn(6) ? ask(layer) : person.FileToWrite();
  };
  questions.aboutUnsaved = [&person, ask = questions.aboutUnsaved](const TMapLayer &layer) {
    constexpr Unsaved Answers[] = {Unsaved::Discard, Unsaved::Discard, Unsaved::Save, Unsaved::Cancel};
    return person.OneIn(6) ? ask(layer) : person.OneOf(Answers);
  };
  questions.goOnLosing = [&person, ask = questions.goOnLosing](const QString &question, const QStringList &losses) {
    return person.OneIn(6) ? ask(question, losses) : !person.OneIn(4);
  };
}

void StartAfresh(Person &person) {
  apps::TEditorWindow &window = person.window;
  window.GetFiles().CancelOpening();
  person.WaitForFiles();
  window.GetTools().GetActions().front()->trigger();
  auto &question = window.GetFiles().Questions().aboutUnsaved;
  const auto before = std::exchange(question, [](const TMapLayer &) { return Unsaved::Discard; });
  while (person.map.GetLayers()->GetCount() > 0) window.GetFiles().Close(*person.map.GetLayers()->Last());
  question = before;
  window.GetUndoStack().clear();
  window.GetRecovery().Write();
  QApplication::clipboard()->clear();
  // Pictures of the map take most of the memory.
  for (QAction *panel : window.GetDocks().GetActions()) panel->setChecked(false);
  window.resize(1000, 700);
  QPixmapCache::clear();
  person.Settle();
  person.ReadMessages();
}

}  // namespace tessera::soak
