// SPDX-License-Identifier: MIT
#include "Checks.h"

#include "Person.h"

#include <apps/editor/LayerFiles.h>
#include <tessera/editing/TObjectClipboard.h>
#include <tessera/graphics/TBitmap.h>
#include <tessera/graphics/TCanvas.h>
#include <tessera/objects/TText.h>

#include <QFile>
#include <QUndoStack>

#include <algorithm>
#include <malloc.h>
#include <unistd.h>

#ifdef __SANITIZE_ADDRESS__
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();  // NOLINT(bugprone-reserved-identifier)
#endif

namespace tessera::soak {
namespace {

/// All about a layer that steps bring back: objects, whole and as the text of a MIF file, columns and switches.
QByteArray BytesOf(const TMapLayer &layer) {
  std::vector<std::unique_ptr<TCustomMapObject>> copies;
  std::vector<TCustomMapObject *> objects;
  for (int i = 0; i < layer.GetObjectCount(); ++i) {
    objects.push_back(copies.emplace_back(layer.GetObjects(i)->Clone()).get());
    // An object may have other sizes of columns than its layer, which is what counts.
    if (TDataFields columns = layer.GetFields(); columns.GetCount() == objects.back()->GetFields().GetCount()) {
      columns.SetRecord(objects.back()->GetFields().GetRecord().Bytes());
      objects.back()->SetFields(columns);
    }
    // The size of a text's font follows the view.
    if (auto *text = dynamic_cast<TText *>(objects.back())) text->SetFont(TFont(text->GetFont().GetName(), 10));
  }
  const auto data = ObjectsToMimeData(objects);
  QByteArray bytes;
  for (const QString &format : data->formats()) bytes += data->data(format);
  const TDataFields &fields = layer.GetFields();
  for (int i = 0; i < fields.GetCount(); ++i) bytes += fields.GetFields(i).GetName().toUtf8() + '\n';
  for (const bool flag : {layer.GetVisible(), layer.GetSelectableFlag(), layer.GetEditable(), layer.GetAutoLabel()})
    bytes += flag ? '1' : '0';
  return bytes + layer.GetName().toUtf8();
}

QImage PictureOf(const TTessera &map) {
  TBitmap picture;
  map.AssignToBitmap(picture);
  return picture.GetImage();
}

int FirstDifference(const QByteArray &one, const QByteArray &other) {
  const auto length = std::min(one.size(), other.size());
  return int(std::mismatch(one.begin(), one.begin() + length, other.begin()).first - one.begin());
}

}  // namespace

void Checks::Begin() {
  m_person.firstStep = m_person.window.GetUndoStack().index();
  m_looks = LookAtLayers();
  m_angleDeg = m_person.map.GetRotationAngle();
  m_center = m_person.map.GetRotationCenter();
  m_isStanding = true;
}

void Checks::Follow() {
  const bool isTurned =
      m_person.map.GetRotationAngle() != m_angleDeg || !(m_person.map.GetRotationCenter() == m_center);
  if (!isTurned && m_person.window.GetUndoStack().index() >= m_person.firstStep) return;
  m_isStanding = false;
  m_person.firstStep = 0;
}

void Checks::Run() {
  m_person.WaitForFiles();
  Follow();
  CheckSelection();
  CheckPictures();
  CheckUndo();
  m_person.ReadMessages();
  Begin();
}

void Checks::CheckSelection() {
  const TMapLayers &layers = *m_person.map.GetLayers();
  for (const TCustomMapObject *object : m_person.map.GetSelection()->Items()) {
    TMapLayer *layer = object->GetLayer();
    if (layer == nullptr || layers.IndexOf(layer) < 0 || layer->IndexOf(object) < 0)
      m_person.Fail(QStringLiteral("An object is selected that is not on the map"));
  }
}

void Checks::CheckPictures() {
  TTessera &map = m_person.map;
  const TMapSnapping &snapping = *map.GetSnapping();
  // The mark of a place that the mouse is drawn to goes with the next repaint, or with the tool.
  if (snapping.GetToVertices() || snapping.GetToEdges() || snapping.GetToIntersections() || snapping.GetGridStep() > 0)
    m_person.Choose(QStringLiteral("&Select"));
  m_person.Settle();
  if (map.visibleRegion().isEmpty()) return m_person.Fail(QStringLiteral("The map is not to be seen"));
  const QImage picture = PictureOf(map);
  const QImage screen = map.grab().toImage();
  map.PaintMapToBitmap();
  const QImage fresh = PictureOf(map);
  map.DoUpdate(true);
  m_person.Settle();
  const QImage freshScreen = map.grab().toImage();
  const auto compare = [this](const QImage &one, const QImage &other, const QString &name) {
    if (one == other) return;
    m_person.Fail(
        name +
        QStringLiteral(" is not what a new one is; selected are %1").arg(m_person.map.GetSelection()->GetCount()));
    one.save(m_person.FileNamed(name + QStringLiteral(".png")));
    other.save(m_person.FileNamed(name + QStringLiteral(" anew.png")));
  };
  compare(picture, fresh, QStringLiteral("The picture of the map"));
  compare(screen, freshScreen, QStringLiteral("What the map shows"));
}

void Checks::CheckUndo() {
  QUndoStack &steps = m_person.window.GetUndoStack();
  if (!m_isStanding) return;
  const int now = steps.index();
  const auto present = LookAtLayers();
  for (int i = m_person.firstStep; i < now; ++i) m_person.Note(QStringLiteral("step: ") + steps.text(i));
  while (steps.index() > m_person.firstStep) steps.undo();
  Compare(m_looks, QStringLiteral("after undoing"));
  while (steps.index() < now && steps.canRedo()) steps.redo();
  Compare(present, QStringLiteral("after doing again"));
}

std::vector<Checks::Look> Checks::LookAtLayers() const {
  m_person.map.GetCanvas().Font() = TFont();  // with which texts are measured, whatever was drawn last
  std::vector<Look> looks;
  for (const auto &layer : m_person.map.GetLayers()->Items())
    looks.push_back({THandle<TMapLayer>(layer.get()), BytesOf(*layer)});
  return looks;
}

void Checks::Compare(const std::vector<Look> &looks, const QString &when) {
  m_person.map.GetCanvas().Font() = TFont();
  for (const Look &look : looks) {
    if (!look.layer || m_person.map.GetLayers()->IndexOf(look.layer.Get()) < 0) {
      m_person.Fail(QStringLiteral("A layer is missing ") + when +
                    (look.layer ? look.layer->GetName() : QStringLiteral("?")));
      continue;
    }
    const QByteArray bytes = BytesOf(*look.layer.Get());
    if (bytes == look.bytes) continue;
    const int at = FirstDifference(bytes, look.bytes);
    m_person.Fail(QStringLiteral("The layer %1 is another one %2: byte %3 of %4, %5 before\n%6\n%7")
                      .arg(look.layer->GetName(), when)
                      .arg(at)
                      .arg(bytes.size())
                      .arg(look.bytes.size())
                      .arg(QString::fromLatin1(bytes.mid(at - 40, 80).toHex()),
                           QString::fromLatin1(look.bytes.mid(at - 40, 80).toHex())));
  }
}

std::size_t HeapInUse() {
#ifdef __SANITIZE_ADDRESS__
  return __sanitizer_get_current_allocated_bytes();
#else
  malloc_trim(0);
  const auto heap = mallinfo2();
  return heap.uordblks + heap.hblkhd;
#endif
}

std::size_t ResidentSet() {
  QFile file(QStringLiteral("/proc/self/statm"));
  if (!file.open(QIODevice::ReadOnly)) return 0;
  return file.readAll().split(' ').value(1).toULongLong() * std::size_t(sysconf(_SC_PAGESIZE));
}

}  // namespace tessera::soak
