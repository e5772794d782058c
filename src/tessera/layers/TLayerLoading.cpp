// SPDX-License-Identifier: MIT
#include <tessera/base/DebugTrace.h>
#include <tessera/base/GuardedCall.h>
#include <tessera/layers/TLayerLoading.h>
#include <tessera/layers/detail/LoadReports.h>
#include <tessera/layers/detail/LoadingHost.h>
#include <tessera/providers/CustomFormatProvider.h>

#include <QFileInfo>
#include <QPointer>
#include <QTimer>

#include <system_error>
#include <thread>

namespace tessera {

/// One loading. While the thread is at work, only `aside` and `host` may be asked, by what they let any thread ask.
struct TLayerLoading::Run {
  explicit Run(TMapHost *map) {
    if (map) host.emplace(*map, aside);
  }
  ~Run() { Stop(); }
  Run(const Run &) = delete;
  Run &operator=(const Run &) = delete;

  void Start() {
    layer = std::make_unique<TMapLayer>();
    try {
      thread = std::thread([this] { Work(); });
    } catch (const std::system_error &) {
      load = nullptr;
    }
  }
  void Stop() {
    aside.Cancel();
    if (thread.joinable()) thread.join();
  }
  void Work() {
    const detail::AsideScope scope(aside);
    layer->SetMap(&*host);
    layer->SetName(QFileInfo(path).completeBaseName());
    loaded.report = detail::GuardedReport([this] {
      TFormatReport report;
      layer->FillBy([&] { return report = load(*layer); }, path);
      return report;
    });
    layer->SetMap(nullptr);
    // Here, where nobody waits for it.
    if (aside.IsCancelled()) layer.reset();
    isOver.store(true, std::memory_order_release);
  }

  detail::AsideRun aside;
  std::optional<detail::LoadingHost> host;  ///< None without a map.
  TFormatRun load;                          ///< None when it must be done in the thread of the user interface.
  QString path;
  TLoadedFile loaded;
  std::unique_ptr<TMapLayer> layer;
  std::atomic<bool> isOver = false;
  std::thread thread;
};

// The loading is looked at instead of telling, so that the threads share nothing but the run.
constexpr int LookIntervalMs = 15;

TLayerLoading::TLayerLoading(TMapLayers &layers, QObject *parent)
    : QObject(parent), m_layers(&layers), m_timer(new QTimer(this)) {
  m_timer->setInterval(LookIntervalMs);
  connect(m_timer, &QTimer::timeout, this, &TLayerLoading::Look);
}

TLayerLoading::~TLayerLoading() = default;

void TLayerLoading::Start(const QString &fileName) {
  m_run.reset();
  m_run = std::make_unique<Run>(m_layers ? m_layers->GetMapHost() : nullptr);
  m_run->loaded.fileName = fileName;
  m_shownPercent = 0;
  Prepare(*m_run);
  m_timer->start();
}

void TLayerLoading::Prepare(Run &run) const {
  run.path = QFileInfo(run.loaded.fileName).absoluteFilePath();
  const TCustomFormatProvider *provider = detail::FindProviderFor(run.path, run.loaded);
  if (provider && run.host) run.load = provider->MakeRun(run.path);
  if (run.load) run.Start();
  if (!run.load) run.isOver = true;
}

void TLayerLoading::Cancel() {
  if (m_run) m_run->aside.Cancel();
}

void TLayerLoading::Look() {
  if (!m_layers) Cancel();
  if (m_run->isOver.load(std::memory_order_acquire)) {
    m_timer->stop();
    const std::unique_ptr<Run> run = std::move(m_run);
    GuardedCall([&] { Finish(*run); });
    return;
  }
  const int percent = m_run->host->GetPercent();
  if (std::exchange(m_shownPercent, percent) != percent) GuardedCall([&] { Q_EMIT OnProgress(percent); });
}

void TLayerLoading::Finish(Run &run) {
  const bool isCancelled = run.aside.IsCancelled() || !m_layers;
  run.Stop();
  if (isCancelled) {
    Q_EMIT OnCancelled();
    return;
  }
  const QPointer<TLayerLoading> self(this);
  if (run.load) {
    HandOver(run);
  } else if (run.loaded.error.isEmpty()) {
    run.loaded = LoadMapFile(*m_layers.Get(), run.loaded.fileName);
  }
  if (!self) return;
  if (run.loaded.layer) {
    Q_EMIT OnLoaded(run.loaded);
  } else {
    Q_EMIT OnFailed(run.loaded);
  }
}

void TLayerLoading::HandOver(Run &run) {
  for (const QString &notice : run.aside.GetNotices()) DebugTrace(notice);
  if (!detail::Judge(run.loaded, run.layer.get(), run.aside.GetMessages())) return;
  const THandle<TMapLayer> layer(run.layer.get());
  GuardedCall([&] { m_layers->PutLayer(m_layers->GetCount(), std::move(run.layer)); });
  run.loaded.layer = layer.Get();
  if (!layer)
    run.loaded.error = detail::About(run.loaded.fileName, TFormatReport::tr("its layer was deleted meanwhile"));
}

}  // namespace tessera
