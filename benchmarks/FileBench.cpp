// SPDX-License-Identifier: MIT
#include "FileBench.h"

#include "HeapUse.h"
#include "IndexBench.h"

#include <QDir>
#include <QTemporaryDir>

#include <random>

namespace tessera::bench {
namespace {

constexpr double MillisecondsPerSecond = 1000;

std::optional<double> Goal(double value) {
  return value > 0 ? std::optional(value) : std::nullopt;
}

double MillisecondsOf(const std::function<void()> &work) {
  return MillisecondsPerSecond * SecondsOf(work);
}

/// A heap as a program has it that has run for a while: full of small holes between blocks that stay.
class UsedHeap {
 public:
  explicit UsedHeap(std::size_t megabytes) {
    constexpr std::size_t LargestBlock = 256;
    std::mt19937 random(7);
    std::vector<std::unique_ptr<char[]>> blocks;
    for (std::size_t bytes = 0; bytes < megabytes << 20U;) {
      const std::size_t size = 16 + random() % LargestBlock;
      blocks.push_back(std::make_unique<char[]>(size));
      bytes += size;
    }
    std::shuffle(blocks.begin(), blocks.end(), random);
    blocks.resize(blocks.size() / 2);
    m_kept = std::move(blocks);
  }

 private:
  std::vector<std::unique_ptr<char[]>> m_kept;
};

}  // namespace

void FileBenchSettings::KeepPicture(const QImage &picture, QString title) const {
  if (picturesDir.isEmpty()) return;
  QDir().mkpath(picturesDir);
  picture.save(QDir(picturesDir).filePath(title.replace(u'/', u'-') + QStringLiteral(".png")));
}

std::unique_ptr<TesseraSide> FileBench::Load() const {
  return std::make_unique<TesseraSide>(m_file.mifPath, m_settings.pictureSize);
}

void FileBench::Run() {
  const bool measuresAll = !m_settings.drawsOnly && !m_settings.indexOnly;
  if (measuresAll && m_file.goals.table > 0) MeasureTable();
  if (m_settings.tablesOnly) return;
  if (measuresAll) {
    MeasureLoad();
    MeasureMemory();
  }
  m_gdal = std::make_unique<GdalMap>(m_file.mifPath);
  m_tessera = Load();
  if (measuresAll) MeasureSave();
  FlatMap map = m_gdal->Flatten();
  map.SetSymbolSize(m_file.symbolSizePx);
  m_gdal.reset();
  if (!m_settings.indexOnly) MeasureDrawing(map);
  if (!m_settings.drawsOnly) MeasureIndex(map);
}

void FileBench::MeasureLoad() {
  const auto ours = [this] {
    std::unique_ptr<TesseraSide> map;
    return SecondsOf([&] { map = Load(); });
  };
  const auto reference = [this] {
    std::unique_ptr<GdalMap> map;
    return SecondsOf([&] { map = std::make_unique<GdalMap>(m_file.mifPath); });
  };
  m_table.Measure({Title(QStringLiteral("load")), QStringLiteral("s"), ours, reference, Goal(m_file.goals.load)},
                  m_settings.slowRuns);
}

/// The memory that a map keeps when it is loaded, when it has been drawn, and with its index, too.
void FileBench::MeasureMemory() {
  auto before = HeapUse();
  const std::unique_ptr<TesseraSide> tessera = Load();
  const auto vertices = static_cast<double>(tessera->CountVertices());
  const bool hasOnlyPoints = tessera->CountVertices() == static_cast<std::size_t>(tessera->GetObjectCount());
  const auto use = [&before, vertices] { return static_cast<double>(HeapUse() - before) / vertices; };
  const double loaded = use();
  tessera->Draw();
  const double drawn = use();
  tessera->Layer().SetUseIndex2D(true);
  tessera->Draw();
  const double indexed = use();
  before = HeapUse();
  const auto gdal = std::make_unique<GdalMap>(m_file.mifPath);
  const double reference = use();
  const auto add = [&](const QString &what, double value, std::optional<double> limit) {
    m_table.Measure({Title(what), hasOnlyPoints ? QStringLiteral("bytes/object") : QStringLiteral("bytes/vertex"),
                     [&] { return value; }, [&] { return reference; }, std::nullopt, limit},
                    1);
  };
  add(QStringLiteral("memory, loaded"), loaded, std::nullopt);
  add(QStringLiteral("memory after a picture"), drawn, Goal(m_file.goals.loadedBytes));
  add(QStringLiteral("memory after a picture, with the index"), indexed, Goal(m_file.goals.usedBytes));
}

/// The same from a TAB file, and the memory that it keeps then, compared with that from the MIF file.
void FileBench::MeasureTable() {
  const QString path = EnsureTable(m_file.mifPath);
  const auto load = [&] { return std::make_unique<TesseraSide>(path, m_settings.pictureSize); };
  const auto ours = [&] {
    std::unique_ptr<TesseraSide> map;
    return SecondsOf([&] { map = load(); });
  };
  const auto reference = [&] {
    std::unique_ptr<GdalMap> map;
    return SecondsOf([&] { map = std::make_unique<GdalMap>(path); });
  };
  m_table.Measure({Title(QStringLiteral("load from TAB")), QStringLiteral("s"), ours, reference, m_file.goals.table},
                  m_settings.slowRuns);
  const auto memoryOf = [](const std::function<std::unique_ptr<TesseraSide>()> &loadIt) {
    const auto before = HeapUse();
    const auto side = loadIt();
    return static_cast<double>(HeapUse() - before) / static_cast<double>(side->CountVertices());
  };
  m_table.Measure({Title(QStringLiteral("memory from TAB, or from MIF")), QStringLiteral("bytes/vertex"),
                   [&] { return memoryOf(load); }, [&] { return memoryOf([this] { return Load(); }); }, 1.0},
                  1);
}

void FileBench::MeasureSave() {
  constexpr double Target = 1.0 / 8;
  const QTemporaryDir directory;
  const auto ours = [&] {
    return SecondsOf([&] { m_tessera->Write(directory.filePath(QStringLiteral("ours.mif"))); });
  };
  const auto reference = [&] {
    return SecondsOf([&] { m_gdal->Write(directory.filePath(QStringLiteral("reference.mif"))); });
  };
  m_table.Measure({Title(QStringLiteral("save")), QStringLiteral("s"), ours, reference, Target}, m_settings.slowRuns);
}

void FileBench::MeasureDrawing(const FlatMap &map) {
  BareLoop loop(map);
  QImage picture(m_settings.pictureSize, QImage::Format_RGB32);
  const BareView all = loop.ViewOf(m_settings.pictureSize, 1);
  // Zoom 4 shows a sixteenth of the area.
  int zoom = 1;
  for (const double target : m_file.goals.pictures) {
    const QString title =
        Title(zoom == 1 ? QStringLiteral("picture of all") : QStringLiteral("picture of 1/%1").arg(zoom * zoom));
    const BareView view = loop.ViewOf(m_settings.pictureSize, zoom);
    m_tessera->Show(view);
    const auto ours = [&] { return MillisecondsOf([&] { m_tessera->Draw(); }); };
    const auto reference = [&] { return MillisecondsOf([&] { loop.Draw(view, picture); }); };
    m_table.Measure({title, QStringLiteral("ms"), ours, reference, Goal(target)}, m_settings.fastRuns);
    m_settings.KeepPicture(m_tessera->Picture(), title + QStringLiteral(" ours"));
    m_settings.KeepPicture(picture, title + QStringLiteral(" reference"));
    if (map.HasOnlyPoints()) break;
    zoom *= 4;
  }
  MeasurePan(loop);
  if (!map.HasOnlyPoints()) MeasureSmall(all);
  if (m_settings.drawsOnly) return;
  MeasureFirstPicture(all);
  MeasureUsedHeap(all);
}

/// Pictures of 1/16 of the area, each eight pixels beside the last.
void FileBench::MeasurePan(BareLoop &loop) {
  constexpr double StepPx = 8;
  QImage picture(m_settings.pictureSize, QImage::Format_RGB32);
  const BareView start = loop.ViewOf(m_settings.pictureSize, 4);
  int steps = 0;
  const auto next = [&] {
    BareView view = start;
    view.centre.x += StepPx * view.unitsPerPx * (++steps % 64);
    return view;
  };
  const auto ours = [&] {
    m_tessera->Show(next());
    return MillisecondsOf([&] { m_tessera->Draw(); });
  };
  const auto reference = [&] {
    const BareView view = next();
    return MillisecondsOf([&] { loop.Draw(view, picture); });
  };
  m_table.Measure({Title(QStringLiteral("picture of 1/16 after a pan by 8 pixels")), QStringLiteral("ms"), ours,
                   reference, Goal(m_file.goals.pictures[1])},
                  m_settings.fastRuns);
}

/// The picture of all with a pixel for each object that is too small to leave ink, or without.
void FileBench::MeasureSmall(const BareView &view) {
  constexpr double Target = 1.3;
  m_tessera->Show(view);
  const auto draw = [&](bool showsSmall) {
    m_tessera->Control().GetPainting()->SetShowSmallObjects(showsSmall);
    return MillisecondsOf([&] { m_tessera->Draw(); });
  };
  const QString title = Title(QStringLiteral("picture of all with small objects shown, or without"));
  m_table.Measure({title, QStringLiteral("ms"), [&] { return draw(true); }, [&] { return draw(false); }, Target},
                  m_settings.fastRuns);
  draw(true);
  m_settings.KeepPicture(m_tessera->Picture(), title);
  m_tessera->Control().GetPainting()->SetShowSmallObjects(false);
}

void FileBench::MeasureFirstPicture(const BareView &view) {
  constexpr double Target = 1.3;
  const auto first = [&] {
    const std::unique_ptr<TesseraSide> fresh = Load();
    fresh->Show(view);
    return MillisecondsOf([&] { fresh->Draw(); });
  };
  m_tessera->Show(view);
  const auto later = [&] { return MillisecondsOf([&] { m_tessera->Draw(); }); };
  m_table.Measure(
      {Title(QStringLiteral("first picture of all, or a later one")), QStringLiteral("ms"), first, later, Target},
      m_settings.slowRuns);
}

void FileBench::MeasureUsedHeap(const BareView &view) {
  constexpr double Target = 1.1;
  constexpr std::size_t Megabytes = 512;
  const UsedHeap heap(Megabytes);
  const std::unique_ptr<TesseraSide> late = Load();
  late->Show(view);
  m_tessera->Show(view);
  const auto ours = [&] { return MillisecondsOf([&] { late->Draw(); }); };
  const auto reference = [&] { return MillisecondsOf([&] { m_tessera->Draw(); }); };
  ours();
  m_table.Measure({Title(QStringLiteral("picture of all in a used heap, or in a fresh one")), QStringLiteral("ms"),
                   ours, reference, Target},
                  m_settings.fastRuns);
}

void FileBench::MeasureIndex(const FlatMap &map) {
  IndexBench(m_tessera->Layer(), m_file.label, m_table).Run(m_settings.slowRuns, m_settings.fastRuns);
  MeasureIndexedPictures(map);
  if (map.HasOnlyPoints()) return;
  const BareView view = BareLoop(map).ViewOf(m_settings.pictureSize, 16);
  m_tessera->Show(view);
  TesseraSide alone(m_file.mifPath, m_settings.pictureSize);
  alone.Show(view);
  alone.KeepOnlyShown();
  const auto drawAlone = [&] { return MillisecondsOf([&] { alone.Draw(); }); };
  // One after the other, so that the difference is not that of two moments.
  const auto search = [&] { return -drawAlone() + MillisecondsOf([&] { m_tessera->Draw(); }); };
  const auto allowance = [] { return 3.0; };
  m_table.Measure({Title(QStringLiteral("finding the objects of the picture, or 3 ms")), QStringLiteral("ms"), search,
                   allowance, 1.0},
                  m_settings.fastRuns);
}

void FileBench::MeasureIndexedPictures(const FlatMap &map) {
  constexpr double Target = 1.05;
  const auto draw = [this](bool useIndex) {
    return [this, useIndex] {
      m_tessera->Layer().SetUseIndex2D(useIndex);
      return MillisecondsOf([this] { m_tessera->Draw(); });
    };
  };
  for (const int zoom : {1, 4, 16}) {
    m_tessera->Show(BareLoop(map).ViewOf(m_settings.pictureSize, zoom));
    const QString title = Title(QStringLiteral("picture of 1/%1 with the index, or without")).arg(zoom * zoom);
    m_table.Measure({title, QStringLiteral("ms"), draw(true), draw(false), Target}, m_settings.fastRuns);
  }
  m_tessera->Layer().SetUseIndex2D(true);
}

}  // namespace tessera::bench
